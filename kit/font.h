// Bitmap-font text drawing from the interface sheet.
#pragma once
#include <cstdint>

// Draws `text` in palette colour `color` from (x, y), wrapped at `width` units, in `face`.
void OGL_draw_string(int32_t color, float x, float y, const char* text, float width, int32_t face);
