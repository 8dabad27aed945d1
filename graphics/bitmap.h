// The 24-bit BMP reader: a bitmap file into a texture, or composed into the background image.
#pragma once
#include <cstdint>

enum : int32_t {
    BMP_TEXTURE = -100,  // `where` is the texture index
    BMP_COMPOSE = -101,  // `where` is x * 10000 + y in the 1024-wide staging buffer
};

// Filter types: texel format, alpha treatment and mipmaps.
enum : int32_t {
    BMP_RGB = -104,             // RGB, no mipmaps
    BMP_RGB_MIP = -105,         // RGB, mipmaps
    BMP_MAGENTA_CLEAR = -106,   // RGBA, magenta transparent
    BMP_GREY_ALPHA = -107,      // RGBA, alpha = (R + G + B) / 3
    BMP_MAGENTA_CLEAR_MIP = -108,
    BMP_GREY_ALPHA_MIP = -109,
};

// Reads the bitmap `name` (a file name under the bitmaps folder, or a path under the program
// folder). Returns 1 when the file could be opened; a missing file in texture mode gives the
// texture a 16 x 16 grey checkerboard and returns 0. Damaged files end the program.
int32_t OGL_texbmp(int32_t mode, int32_t where, int32_t filter, const char* name,
                   int32_t* width_out, int32_t* height_out);
