// Bitmap-font text drawing (bodies follow).
#include "kit/font.h"

int32_t OGL_face_advance(int32_t face) { return face_info(face) ? face_info(face)->advance : 0; }
int32_t OGL_glyph_cell(int32_t, int32_t) { return 0; }
void OGL_draw_glyph(float, float, int32_t, int32_t) {}
void OGL_draw_string(int32_t, float, float, const char*, float, int32_t) {}
void OGL_draw_number(int32_t, float, float, float, int32_t, int32_t, int32_t, int32_t) {}
