// The drawing primitives: line, filled and framed rectangle, textured quad, tiled background.
#pragma once
#include <cstdint>

// Coordinates are design units relative to the panel origin (panel_x, panel_y); colours are
// palette indices; alpha 0..1.
void OGL_draw_line(int32_t color, float alpha, float x1, float y1, float x2, float y2);
void OGL_fill_rect(int32_t color, float alpha, float x, float y, float width, float height);
void OGL_frame_rect(int32_t color, float alpha, float x, float y, float width, float height);
// One textured quad, corners in the order given; texture <= 0 keeps the bound texture.
void OGL_draw_quad(int32_t texture, int32_t color, float alpha,
                   float x1, float y1, float s1, float t1, float x2, float y2, float s2, float t2,
                   float x3, float y3, float s3, float t3, float x4, float y4, float s4, float t4,
                   int32_t tex_units, int32_t alpha_code, int32_t blend_code);
// The twelve 256 x 256 background tiles (TEX_BACKGROUND..) over the whole design area.
void OGL_draw_background();

// The background image in OGL_pixbuf: 1024 texels a row, 4 bytes each, row 0 at the bottom.
constexpr int32_t COMPOSE_W = 1024;
constexpr int32_t COMPOSE_H = 768;
