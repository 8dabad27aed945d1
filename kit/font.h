// Bitmap-font text drawing: one glyph, a wrapped string, a number in fixed places.
#pragma once
#include <cstdint>

#include "kit/faces.h"

constexpr float FONT_NO_WRAP = 9999.0f;  // a width of this or more draws one line
constexpr float FONT_LINE_STEP = 10.0f;  // units between wrapped lines, whatever the face
constexpr int32_t FONT_NUMBER_PLACES = 11;

// Pen step of `face` in units; 0 for a code outside the faces.
int32_t OGL_face_advance(int32_t face);
// Cell index of character `code` in `face` (for the two-byte face the code is the glyph number).
int32_t OGL_glyph_cell(int32_t code, int32_t face);

// The four textured vertices of one glyph quad at (x, y), absolute units. Call it inside
// glBegin(GL_QUADS) with the face's texture bound: it sets no state, no colour, no panel origin.
void OGL_draw_glyph(float x, float y, int32_t code, int32_t face);
// Draws `text` in palette colour `color` with its first line at (x, y), panel units. A width
// below FONT_NO_WRAP wraps after blanks, -, / and : and at line feeds; a longer word runs past.
void OGL_draw_string(int32_t color, float x, float y, const char* text, float width, int32_t face);
// Draws `value` in exactly `digits` places (up to 11), `decimals` of them after a point, with
// a sign place in front when show_sign is non-zero; a value that does not fit shows as 1.23x5.
void OGL_draw_number(int32_t color, float x, float y, float value, int32_t digits, int32_t decimals,
                     int32_t show_sign, int32_t face);
