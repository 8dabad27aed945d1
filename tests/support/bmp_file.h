// Small 24-bit BMP files for tests, with header fields that can be spoiled.
#pragma once
#include <cstdint>
#include <functional>
#include <string>

struct BmpLayout {
    int32_t width = 4, height = 4;
    uint16_t magic = 19778;  // "BM"
    uint16_t bits = 24;
    uint32_t compression = 0;
    std::function<uint32_t(int32_t x, int32_t y)> pixel = [](int32_t, int32_t) { return 0xFFFFFFu; };  // y up
    size_t truncate_to = 0;  // non-zero: keep only this many bytes of the file
};

// Writes dir + name: the 54-byte header, then the bottom-up rows of blue, green, red, each
// padded to 4 bytes.
void bmp_write(const std::string& dir, const std::string& name, const BmpLayout& b);
