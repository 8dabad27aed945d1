// Reading 24-bit BMP files: the path of a bitmap name, the 54-byte header and its checks, the pixel rows.
#pragma once
#include <cstdint>
#include <cstdio>

#include "util/text.h"

// The header fields the reader uses; `failed` when the file ended inside the header.
struct BmpHeader {
    int32_t magic, width, height, bits, compression;
    bool failed;
};

// Where picture rows land in a buffer of texels. Source row r and column c, taking every
// `step`-th of each, go to buffer row round(y + r * scale) and column round(x + c * scale).
struct BmpPlacement {
    int32_t x, y, step, bpt, buf_row;  // place, reduction step, bytes per texel, texels per buffer row
    float scale;
    bool skip_magenta;  // leave the buffer as it is under magenta pixels (laying over)
};

// The platform path of bitmap `name`: under the bitmaps folder unless it already starts with
// the program folder, ".BMP" added unless it ends in ".bmp" in any case. Returns the name as
// the progress line shows it (without the program folder).
const char* bmp_path(const char* name, Text path);

// The 54 header bytes, field by field, little-endian.
BmpHeader bmp_read_header(FILE* f);
// Ends the program at the first failing check, with `path` as the alert's last line.
void bmp_check_header(const BmpHeader& h, const char* path);
// Bytes of one file row: three per pixel, padded to a multiple of 4.
int32_t bmp_row_bytes(int32_t width);

// All rows at once, as the file holds them; bytes past the end of the file read as 0.
void bmp_read_all(FILE* f, uint8_t* buf, int32_t width, int32_t height);
// Row group by row group: of every `step` file rows the last is kept and placed as texels
// (red, green, blue, then alpha 255 in 4-byte texels). A texel outside the buffer is fatal.
void bmp_read_rows(FILE* f, const char* path, int32_t width, int32_t height, const BmpPlacement& at,
                   uint8_t* buf, int64_t buf_size);
