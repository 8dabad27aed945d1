// Small 24-bit BMP files for tests.
#include "tests/support/bmp_file.h"

#include "tests/support/test_files.h"

void bmp_write(const std::string& dir, const std::string& name, const BmpLayout& b) {
    const int32_t w = b.width > 0 ? b.width : 0, h = b.height > 0 ? b.height : 0;
    const uint32_t row = ((uint32_t)w * 3 + 3) / 4 * 4, size = row * (uint32_t)h;
    const uint32_t fields[][2] = {{b.magic, 2}, {54 + size, 4}, {0, 2}, {0, 2}, {54, 4}, {40, 4},  // (value, bytes)
                                  {(uint32_t)b.width, 4}, {(uint32_t)b.height, 4}, {1, 2}, {b.bits, 2},
                                  {b.compression, 4}, {size, 4}, {2835, 4}, {2835, 4}, {0, 4}, {0, 4}};
    std::string s;
    for (const auto& f : fields)
        for (uint32_t i = 0; i < f[1]; ++i) s.push_back((char)(f[0] >> (8 * i)));
    for (int32_t y = 0; y < h; ++y) {
        for (int32_t x = 0; x < w; ++x) {
            const uint32_t c = b.pixel(x, y);
            s += {(char)c, (char)(c >> 8), (char)(c >> 16)};
        }
        s.append(row - (uint32_t)w * 3, '\0');
    }
    if (b.truncate_to) s.resize(b.truncate_to);
    test_write_file(dir, name, s);
}
