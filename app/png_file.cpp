// PNG writing: the signature, IHDR, one IDAT of zlib-compressed rows (each with the Up
// filter, which suits flat interface pictures) and IEND.
#include "app/png_file.h"

#include <zlib.h>

#include <cstdio>
#include <string>
#include <vector>

static void put32(std::string& s, uint32_t v) {
    for (int shift = 24; shift >= 0; shift -= 8) s.push_back((char)(v >> shift));
}

static void chunk(std::string& out, const char* type, const std::string& data) {
    put32(out, (uint32_t)data.size());
    const std::string body = std::string(type, 4) + data;
    out += body;
    put32(out, (uint32_t)crc32(0, reinterpret_cast<const Bytef*>(body.data()), (uInt)body.size()));
}

bool png_write_rgb(const char* path, int32_t width, int32_t height, const uint8_t* rgb) {
    const size_t row = (size_t)width * 3;
    std::vector<uint8_t> raw((row + 1) * (size_t)height);
    for (int32_t y = 0; y < height; ++y) {
        uint8_t* dst = &raw[(row + 1) * (size_t)y];
        const uint8_t* cur = rgb + row * (size_t)y;
        dst[0] = 2;  // Up: each byte minus the one above it
        for (size_t i = 0; i < row; ++i) dst[1 + i] = (uint8_t)(cur[i] - (y ? cur[i - row] : 0));
    }
    uLongf packed_size = compressBound((uLong)raw.size());
    std::vector<uint8_t> packed(packed_size);
    if (compress2(packed.data(), &packed_size, raw.data(), (uLong)raw.size(), 9) != Z_OK) return false;

    std::string png = "\x89PNG\r\n\x1a\n", ihdr;
    put32(ihdr, (uint32_t)width);
    put32(ihdr, (uint32_t)height);
    ihdr += std::string("\x08\x02\x00\x00\x00", 5);  // 8 bits, RGB, deflate, no interlace
    chunk(png, "IHDR", ihdr);
    chunk(png, "IDAT", std::string(packed.begin(), packed.begin() + (long)packed_size));
    chunk(png, "IEND", "");
    FILE* f = fopen(path, "wb");
    if (!f) return false;
    const bool ok = fwrite(png.data(), 1, png.size(), f) == png.size();
    return fclose(f) == 0 && ok;
}
