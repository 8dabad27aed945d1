// Writes small 24-bit BMP files for the bitmap reader's tests, with header fields that can be spoiled.
#pragma once
#include <cstdint>
#include <functional>
#include <string>

struct BmpSpec {
    int32_t width = 4, height = 4;
    uint16_t magic = 19778;  // "BM"
    uint16_t bits = 24;
    uint32_t compression = 0;
    // Colour of pixel (x, y), y = 0 at the bottom, as 0xRRGGBB.
    std::function<uint32_t(int32_t x, int32_t y)> pixel = [](int32_t, int32_t) { return 0xFFFFFFu; };
    size_t truncate_to = 0;  // non-zero: keep only this many bytes of the file
};

// The file's bytes: 54-byte header, then bottom-up rows of blue, green, red padded to 4 bytes.
std::string bmp_bytes(const BmpSpec& spec);
// Writes the file into `dir` and returns its path.
std::string bmp_write(const std::string& dir, const std::string& name, const BmpSpec& spec);

constexpr uint32_t BMP_MAGENTA = 0xFF00FF;
