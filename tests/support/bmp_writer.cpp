// Small 24-bit BMP files for the bitmap reader's tests.
#include "tests/support/bmp_writer.h"

#include "tests/support/test_files.h"

static void put(std::string& s, uint32_t v, int bytes) {
    for (int i = 0; i < bytes; ++i) s.push_back((char)((v >> (8 * i)) & 0xFF));
}

std::string bmp_bytes(const BmpSpec& b) {
    const int32_t w = b.width > 0 ? b.width : 0, h = b.height > 0 ? b.height : 0;
    const uint32_t row = ((uint32_t)w * 3 + 3) / 4 * 4;
    std::string s;
    put(s, b.magic, 2);
    put(s, 54 + row * (uint32_t)h, 4);
    put(s, 0, 2);
    put(s, 0, 2);
    put(s, 54, 4);
    put(s, 40, 4);
    put(s, (uint32_t)b.width, 4);
    put(s, (uint32_t)b.height, 4);
    put(s, 1, 2);
    put(s, b.bits, 2);
    put(s, b.compression, 4);
    put(s, row * (uint32_t)h, 4);
    put(s, 2835, 4);
    put(s, 2835, 4);
    put(s, 0, 4);
    put(s, 0, 4);
    for (int32_t y = 0; y < h; ++y) {
        for (int32_t x = 0; x < w; ++x) {
            uint32_t c = b.pixel(x, y);
            s.push_back((char)(c & 0xFF));          // blue
            s.push_back((char)((c >> 8) & 0xFF));   // green
            s.push_back((char)((c >> 16) & 0xFF));  // red
        }
        for (uint32_t p = (uint32_t)w * 3; p < row; ++p) s.push_back(0);
    }
    if (b.truncate_to) s.resize(b.truncate_to);
    return s;
}

std::string bmp_write(const std::string& dir, const std::string& name, const BmpSpec& spec) {
    return test_write_file(dir, name, bmp_bytes(spec));
}
