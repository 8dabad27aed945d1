// The 24-bit BMP reader: a bitmap file into a texture, or composed into the background image.
#pragma once
#include <cstdint>

#include "graphics/textures.h"  // the filter types

enum : int32_t {
    BMP_TEXTURE = -100,  // `where` is the texture index
    BMP_COMPOSE = -101,  // `where` is x * 10000 + y in the 1024-wide staging buffer
};

// Reads the bitmap `name` (a file name under the bitmaps folder, or a path under the program
// folder). Returns 1 when the file could be opened; a missing file in texture mode gives the
// texture a 16 x 16 grey checkerboard and returns 0. Damaged files end the program.
int32_t OGL_texbmp(int32_t mode, int32_t where, int32_t filter, const char* name,
                   int32_t* width_out, int32_t* height_out);
