// The GL state switch, projection, palette, colour rule and buffer swap.
#include "graphics/gl_state.h"

#include <cstring>

#include "graphics/design_space.h"
#include "graphics/qgl.h"

#ifndef GL_TEXTURE0_ARB
#define GL_TEXTURE0_ARB 0x84C0
#endif

float OGL_palette[OGL_PALETTE_SIZE][3];
float OGL_tint[3] = {1.0f, 1.0f, 1.0f};
int32_t gl_tex_units = 1;
int32_t bg_compose = 0;
uint8_t compose_rgb[3];
int32_t OGL_pulse_drawn = 0;

static OglSwapFn swap_fn = nullptr;

void gl_state_reset() {
    memset(OGL_palette, 0, sizeof OGL_palette);
    OGL_tint[0] = OGL_tint[1] = OGL_tint[2] = 1.0f;
    gl_tex_units = 1;
    bg_compose = 0;
    memset(compose_rgb, 0, sizeof compose_rgb);
    OGL_pulse_drawn = 0;
}

void OGL_set_palette(int32_t index, float red, float green, float blue) {
    OGL_palette[index][0] = red;
    OGL_palette[index][1] = green;
    OGL_palette[index][2] = blue;
}

void OGL_set_swap(OglSwapFn fn) { swap_fn = fn; }

// The colour of a palette entry: recorded as bytes in compose mode, else sent to GL with the
// tint on entries below 49, opaque when alpha is above 0.99.
void OGL_set_color(int32_t index, float alpha) {
    const float* c = OGL_palette[index];
    if (bg_compose == 1) {
        for (int i = 0; i < 3; ++i) compose_rgb[i] = (uint8_t)ogl_round(c[i] * 255.0f);
        return;
    }
    if (index >= OGL_PULSE_FIRST && index <= OGL_PULSE_LAST) OGL_mark_pulse(OGL_PULSING);
    float rgb[3] = {c[0], c[1], c[2]};
    if (index < 49)
        for (int i = 0; i < 3; ++i) rgb[i] *= OGL_tint[i];
    if ((double)alpha > 0.99)
        qglColor3fv(rgb);
    else
        qglColor4f(rgb[0], rgb[1], rgb[2], alpha);
}

void OGL_set_rgba(float red, float green, float blue, float alpha, int32_t no_tint) {
    if (no_tint == 0) {
        red *= OGL_tint[0];
        green *= OGL_tint[1];
        blue *= OGL_tint[2];
    }
    qglColor4f(red, green, blue, alpha);
}

static void select_unit(int32_t k) {  // k = 1..4
    if (qglActiveTextureARB) qglActiveTextureARB(GL_TEXTURE0_ARB + (GLenum)(k - 1));
}

// One capability: read back as its on or off code and switched only when that code is not
// the requested one (a request other than the on code means off).
static void switch_cap(GLenum cap, int32_t on_code, int32_t requested, bool with_light0) {
    int32_t current = qglIsEnabled(cap) ? on_code : on_code + 1;
    if (current == requested) return;
    if (requested == on_code) {
        qglEnable(cap);
        if (with_light0) qglEnable(GL_LIGHT0);
    } else {
        qglDisable(cap);
        if (with_light0) qglDisable(GL_LIGHT0);
    }
}

void OGL_set_state(int32_t fog, int32_t tex_units, int32_t lighting, int32_t alpha_test,
                   int32_t blend, int32_t depth_test, int32_t depth_write) {
    int32_t old_units = qglIsEnabled(GL_TEXTURE_2D) ? gl_tex_units : 0;
    if (old_units != tex_units) {
        if (tex_units > 0)
            qglEnable(GL_TEXTURE_2D);
        else
            qglDisable(GL_TEXTURE_2D);
    }
    switch_cap(GL_FOG, OGL_FOG_ON, fog, false);
    switch_cap(GL_LIGHTING, OGL_LIGHT_ON, lighting, true);
    switch_cap(GL_ALPHA_TEST, OGL_ALPHA_ON, alpha_test, false);
    switch_cap(GL_BLEND, OGL_BLEND_ON, blend, false);
    switch_cap(GL_DEPTH_TEST, OGL_DEPTH_ON, depth_test, false);
    qglDepthMask(depth_write == OGL_DEPTHW_ON ? GL_TRUE : GL_FALSE);
    if (old_units != tex_units) {
        gl_tex_units = tex_units;
        if (old_units > 1 || tex_units > 1) {
            for (int32_t k = 1; k <= 4; ++k) {
                if (tex_units >= k) {
                    select_unit(k);
                    qglEnable(GL_TEXTURE_2D);
                } else if (old_units >= k) {
                    select_unit(k);
                    qglDisable(GL_TEXTURE_2D);
                }
            }
            select_unit(1);
        }
    }
    OGL_set_color(61, 1.0f);
}

void OGL_set_projection(int32_t mode, float left, float bottom, float right, float top,
                        float vp_left, float vp_bottom, float vp_right, float vp_top,
                        float near_z, float far_z, float zoom) {
    if (mode == 2) {
        left -= ui_margin_x;
        right += DESIGN_W + ui_margin_x;
        top += DESIGN_H + ui_margin_y;
        vp_left = 0.0f;
        vp_bottom = 0.0f;
        vp_right = disp_width;
        vp_top = disp_height;
    } else if (mode == 3) {
        left *= near_z;
        bottom *= near_z;
        right *= near_z;
        top *= near_z;
        vp_left = (vp_left + ui_margin_x) * ui_scale;
        vp_right = (vp_right + ui_margin_x) * ui_scale;
        vp_bottom *= ui_scale;
        vp_top *= ui_scale;
    }
    float w = vp_right - vp_left;
    float h = vp_top - vp_bottom;
    qglMatrixMode(GL_PROJECTION);
    qglLoadIdentity();
    if (mode == 2)
        qglOrtho(left / zoom, right / zoom, bottom / zoom, top / zoom, -1.0, 1.0);
    else if (mode == 3)
        qglFrustum(left / zoom, right / zoom, bottom * h / w / zoom, top * h / w / zoom, near_z, far_z);
    qglViewport((GLint)vp_left, (GLint)vp_bottom, (GLsizei)w, (GLsizei)h);
    qglMatrixMode(GL_MODELVIEW);
    qglLoadIdentity();
}

int32_t OGL_swap_buffers() {
    OGL_set_color(61, 1.0f);  // entry 61 is above the tinted range
    return swap_fn ? swap_fn() : 0;
}

// The fixed default colours (index, red, green, blue); 54..59 pulse and are set per pass.
static const float default_colours[][4] = {
    {0, 1, 1, 1}, {1, 0.3f, 1, 0.3f}, {2, 1, 0.2f, 0.2f}, {3, 1, 1, 0.2f}, {4, 0.4f, 0.4f, 1},
    {5, 0.8f, 0.8f, 0.8f}, {6, 0, 1, 0}, {7, 1, 0, 0}, {8, 1, 1, 0}, {9, 0, 0, 1},
    {10, 0.6f, 0.6f, 0.6f}, {11, 0, 0.8f, 0}, {12, 0.8f, 0, 0}, {13, 0.6f, 0.6f, 0}, {14, 0, 0, 0.6f},
    {15, 0.4f, 0.4f, 0.4f}, {16, 0, 0.6f, 0}, {17, 0.6f, 0, 0}, {18, 0.2f, 0.2f, 0.2f}, {19, 0, 0.4f, 0},
    {20, 0.4f, 0, 0}, {21, 0.1f, 0.1f, 0.1f}, {22, 0, 0.2f, 0}, {23, 0.2f, 0, 0}, {24, 0, 0, 0},
    {25, 0, 0.1f, 0}, {26, 0.1f, 0, 0}, {27, 1, 0.8f, 0.2f}, {28, 0.2f, 0.2f, 0.6f},
    {29, 0.11f, 0.22f, 0.55f}, {30, 0.08f, 0.16f, 0.4f}, {31, 0.66f, 0.44f, 0.22f},
    {32, 0.48f, 0.32f, 0.16f}, {33, 0.9f, 0.9f, 0.95f}, {34, 1, 0, 1}, {35, 0, 0, 0},
    {36, 0.25390625f, 0.32421875f, 0.34765625f}, {37, 0.25390625f, 0.32421875f, 0.34765625f},
    {38, 0.20703125f, 0.25f, 0.265625f}, {39, 0.12890625f, 0.16015625f, 0.171875f},
    {40, 1, 1, 1}, {41, 1, 1, 0.6f}, {42, 0.6f, 0.6f, 1}, {43, 0.8f, 0.8f, 0.8f}, {44, 1, 1, 0.2f},
    {45, 0.2f, 0.2f, 1}, {46, 0.6f, 0.6f, 0.6f}, {47, 0.8f, 0.8f, 0}, {48, 0, 0, 0.8f}, {49, 0, 0, 0},
    {50, 0, 0.9f, 0}, {51, 0, 0.5f, 0}, {52, 1, 1, 0}, {53, 1, 0, 0},
    {61, 1, 1, 1}, {62, 0.8f, 0.8f, 0.8f}, {63, 0.5f, 0.5f, 0.5f}, {64, 0.2f, 0.2f, 0.2f},
    {65, 0, 0, 0}, {66, 0.1f, 1, 0.1f}, {67, 0, 0.8f, 0}, {68, 0, 0.6f, 0}, {69, 0, 0.4f, 0},
    {70, 0, 0.2f, 0}, {71, 0, 0.1f, 0}, {72, 1, 0.4f, 0.4f}, {73, 1, 0, 0}, {74, 0.6f, 0.2f, 0},
    {75, 0.92f, 0.87f, 0.67f}, {76, 0.67f, 0.61f, 0.42f}, {77, 0.49f, 0.43f, 0.24f},
    {78, 0.35f, 0.3f, 0.11f}, {79, 0.17f, 0.12f, 0}, {80, 1, 0.88f, 0.49f}, {81, 1, 0.5f, 0},
    {82, 0.5f, 0.3f, 0}, {83, 0.38f, 0.07f, 0.38f}, {84, 1, 1, 0.6f}, {85, 1, 1, 0.2f}, {86, 1, 1, 0},
    {87, 0.6f, 0.6f, 0}, {88, 0.6f, 0.6f, 1}, {89, 0.4f, 0.4f, 1}, {90, 0.2f, 0.2f, 0.8f},
    {91, 0.15f, 0.15f, 0.6f}, {92, 1, 0.2f, 1}, {94, 1, 1, 0.9f}, {95, 0.5f, 0.5f, 0.4f},
    {96, 0.8f, 0.8f, 0.6f}, {110, 0.5f, 0.5f, 0.4f}, {111, 1, 0.3f, 0},
};

void OGL_default_palette() {
    for (const auto& e : default_colours) OGL_set_palette((int32_t)e[0], e[1], e[2], e[3]);
    OGL_tint[0] = OGL_tint[1] = OGL_tint[2] = 1.0f;
}
