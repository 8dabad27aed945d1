// Lines, rectangles, textured quads and the background, drawn to GL or into the background image.
#include "graphics/primitives.h"

#include <cmath>

#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/qgl.h"
#include "graphics/textures.h"

// Writes one pixel of the background image in the current compose colour; pixels outside
// the 1024 x 768 design area are dropped.
static void compose_pixel(int32_t x, int32_t y) {
    if (x < 0 || x >= COMPOSE_W || y < 0 || y >= COMPOSE_H) return;
    uint8_t* p = OGL_pixbuf + (y * COMPOSE_W + x) * 4;
    p[0] = compose_rgb[0];
    p[1] = compose_rgb[1];
    p[2] = compose_rgb[2];
    p[3] = 255;
}

static int32_t blend_for(float alpha) { return (double)alpha < 0.99 ? OGL_BLEND_ON : OGL_BLEND_OFF; }

void OGL_draw_line(int32_t color, float alpha, float x1, float y1, float x2, float y2) {
    OGL_set_state(OGL_FOG_OFF, 0, OGL_LIGHT_OFF, OGL_ALPHA_OFF, blend_for(alpha), OGL_DEPTH_OFF, OGL_DEPTHW_OFF);
    OGL_set_color(color, alpha);
    if (bg_compose == 1) {
        float dx = x2 - x1, dy = y2 - y1;
        float len = std::sqrt(dx * dx + dy * dy);
        // A zero-length line writes its start pixel only.
        float sx = len > 0.0f ? dx / len : 0.0f, sy = len > 0.0f ? dy / len : 0.0f;
        float x = x1 + panel_x, y = y1 + panel_y;
        for (int32_t i = 0; (float)i < len + 0.5f; ++i) {
            compose_pixel(ogl_round(x), ogl_round(y));
            x += sx;
            y += sy;
        }
        return;
    }
    qglBegin(GL_LINES);
    qglVertex2f(x1 + panel_x + 0.5f, y1 + panel_y + 0.5f);
    qglVertex2f(x2 + panel_x + 0.5f, y2 + panel_y + 0.5f);
    qglEnd();
}

void OGL_fill_rect(int32_t color, float alpha, float x, float y, float width, float height) {
    OGL_set_state(OGL_FOG_OFF, 0, OGL_LIGHT_OFF, OGL_ALPHA_OFF, OGL_BLEND_ON, OGL_DEPTH_OFF, OGL_DEPTHW_OFF);
    OGL_set_color(color, alpha);
    float x0 = x + panel_x, y0 = y + panel_y;
    if (bg_compose == 1) {
        int32_t c0 = ogl_round(x0), c1 = ogl_round(x0 + width);
        int32_t r0 = ogl_round(y0), r1 = ogl_round(y0 + height);
        for (int32_t r = r0; r < r1; ++r)
            for (int32_t c = c0; c < c1; ++c) compose_pixel(c, r);
        return;
    }
    qglBegin(GL_QUADS);
    qglVertex2f(x0, y0);
    qglVertex2f(x0, y0 + height);
    qglVertex2f(x0 + width, y0 + height);
    qglVertex2f(x0 + width, y0);
    qglEnd();
}

void OGL_frame_rect(int32_t color, float alpha, float x, float y, float width, float height) {
    float x0 = x + panel_x + 0.5f, y0 = y + panel_y + 0.5f;
    OGL_set_state(OGL_FOG_OFF, 0, OGL_LIGHT_OFF, OGL_ALPHA_OFF, blend_for(alpha), OGL_DEPTH_OFF, OGL_DEPTHW_OFF);
    OGL_set_color(color, alpha);
    // The outline always goes to GL, in compose mode too.
    qglBegin(GL_LINE_STRIP);
    qglVertex2f(x0, y0);
    qglVertex2f(x0, y0 + height);
    qglVertex2f(x0 + width, y0 + height);
    qglVertex2f(x0 + width, y0);
    qglVertex2f(x0, y0);
    qglEnd();
}

void OGL_draw_quad(int32_t texture, int32_t color, float alpha,
                   float x1, float y1, float s1, float t1, float x2, float y2, float s2, float t2,
                   float x3, float y3, float s3, float t3, float x4, float y4, float s4, float t4,
                   int32_t tex_units, int32_t alpha_code, int32_t blend_code) {
    OGL_set_state(OGL_FOG_OFF, tex_units, OGL_LIGHT_OFF, alpha_code, blend_code, OGL_DEPTH_OFF, OGL_DEPTHW_OFF);
    if (texture > 0) OGL_bind_tex(texture, 1);
    OGL_set_color(color, alpha);
    qglBegin(GL_QUADS);
    qglTexCoord2f(s1, t1);
    qglVertex2f(x1 + panel_x, y1 + panel_y);
    qglTexCoord2f(s2, t2);
    qglVertex2f(x2 + panel_x, y2 + panel_y);
    qglTexCoord2f(s3, t3);
    qglVertex2f(x3 + panel_x, y3 + panel_y);
    qglTexCoord2f(s4, t4);
    qglVertex2f(x4 + panel_x, y4 + panel_y);
    qglEnd();
}

void OGL_draw_background() {
    OGL_set_state(OGL_FOG_OFF, 1, OGL_LIGHT_OFF, OGL_ALPHA_ON, OGL_BLEND_OFF, OGL_DEPTH_OFF, OGL_DEPTHW_OFF);
    OGL_set_color(COLOR_WHITE, 1.0f);  // tinted, opaque
    for (int32_t i = 0; i < 4; ++i)
        for (int32_t j = 0; j < 3; ++j) {
            OGL_bind_tex(TEX_BACKGROUND + 4 * j + i, 1);
            float l = 256.0f * (float)i, r = 256.0f * (float)(i + 1);
            float b = 256.0f * (float)j, t = 256.0f * (float)(j + 1);
            qglBegin(GL_QUADS);
            qglTexCoord2f(0, 0);
            qglVertex2f(l, b);
            qglTexCoord2f(0, 1);
            qglVertex2f(l, t);
            qglTexCoord2f(1, 1);
            qglVertex2f(r, t);
            qglTexCoord2f(1, 0);
            qglVertex2f(r, b);
            qglEnd();
        }
}
