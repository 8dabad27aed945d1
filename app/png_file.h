// Screenshots as PNG files: 8-bit RGB rows, top row first, compressed with zlib.
#pragma once
#include <cstdint>

// Writes `path`; false when the file cannot be written or the pixels not compressed.
bool png_write_rgb(const char* path, int32_t width, int32_t height, const uint8_t* rgb_top_first);
