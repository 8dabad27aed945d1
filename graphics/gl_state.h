// The GL state switch, the design-space projection, the palette and the colour rule.
#pragma once
#include <cstdint>

constexpr int32_t OGL_PALETTE_SIZE = 112;

// State codes: the on and off code of each capability the state switch manages.
enum : int32_t {
    OGL_FOG_ON = 2, OGL_FOG_OFF = 3,
    OGL_LIGHT_ON = 4, OGL_LIGHT_OFF = 5,
    OGL_ALPHA_ON = 6, OGL_ALPHA_OFF = 7,
    OGL_BLEND_ON = 8, OGL_BLEND_OFF = 9,
    OGL_DEPTH_ON = 10, OGL_DEPTH_OFF = 11,
    OGL_DEPTHW_ON = 12, OGL_DEPTHW_OFF = 13,
};

extern float OGL_palette[OGL_PALETTE_SIZE][3];  // red, green, blue in 0..1
extern float OGL_tint[3];                       // multiplies palette entries 0..48
extern int32_t gl_tex_units;  // texture units the last state switch enabled
extern int32_t bg_compose;    // 1: colours are recorded and lines/rectangles go to the background image
extern uint8_t compose_rgb[3];
// Palette entries that the event loop changes every pass (pulsing colours).
constexpr int32_t OGL_PULSE_FIRST = 54, OGL_PULSE_LAST = 59;
// How much the frame being drawn moves on its own; the event loop clears it at each pass and
// paces the next pass by it. Pulsing colours change the look of whole pieces; a small pulse
// (a text cursor) looks smooth at a few passes a second.
enum : int32_t { OGL_STILL = 0, OGL_SMALL_PULSE = 1, OGL_PULSING = 2 };
extern int32_t OGL_pulse_drawn;
inline void OGL_mark_pulse(int32_t level) {
    if (level > OGL_pulse_drawn) OGL_pulse_drawn = level;
}

// Brings GL to the given state, issuing enables and disables only where it differs.
void OGL_set_state(int32_t fog, int32_t tex_units, int32_t lighting, int32_t alpha_test,
                   int32_t blend, int32_t depth_test, int32_t depth_write);
void OGL_set_projection(int32_t mode, float left, float bottom, float right, float top,
                        float vp_left, float vp_bottom, float vp_right, float vp_top,
                        float near_z, float far_z, float zoom);
void OGL_set_rgba(float red, float green, float blue, float alpha, int32_t no_tint);
void OGL_set_color(int32_t index, float alpha);
void OGL_set_palette(int32_t index, float red, float green, float blue);
// The default colours of every fixed palette entry, and the tint at 1.
void OGL_default_palette();

// Ends a frame: colour back to entry 61, then the platform's buffer swap; returns its result.
int32_t OGL_swap_buffers();
// The platform's swap, installed by the window layer; without one the swap returns 0.
using OglSwapFn = int32_t (*)();
void OGL_set_swap(OglSwapFn fn);

// Rounds halves away from zero, then cuts the fraction.
inline int32_t ogl_round(float v) { return (int32_t)(v < 0.0f ? v - 0.5f : v + 0.5f); }

// Program-start values: palette black, tint 1, one texture unit, compose mode off.
void gl_state_reset();
