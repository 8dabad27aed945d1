// Writes small 24-bit BMP files for the bitmap reader's tests, with header fields that can be spoiled.
#pragma once
#include <cstdint>
#include <functional>
#include <string>

constexpr uint32_t BMP_MAGENTA = 0xFF00FF;

struct BmpLayout {
    int32_t width = 4, height = 4;
    uint16_t magic = 19778;  // "BM"
    uint16_t bits = 24;
    uint32_t compression = 0;
    // Colour of pixel (x, y) as 0xRRGGBB, y = 0 at the bottom.
    std::function<uint32_t(int32_t x, int32_t y)> pixel = [](int32_t, int32_t) { return 0xFFFFFFu; };
    size_t truncate_to = 0;  // non-zero: keep only this many bytes of the file
};

// Writes the 54-byte header and the bottom-up rows of blue, green, red (each padded to a
// multiple of 4 bytes) to `dir` + `name`; returns the path.
std::string bmp_write(const std::string& dir, const std::string& name, const BmpLayout& layout);
