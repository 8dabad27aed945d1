// The progress screen: a box with the product's lines, a row of lamps whose lit lamp moves one
// step per call, and the message, presented at once while no event loop runs.
#include <cmath>

#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/palette_names.h"
#include "graphics/primitives.h"
#include "kit/boxes.h"
#include "kit/font.h"
#include "shell/alert_window.h"
#include "shell/screens.h"
#include "window/input.h"

int32_t progress_lamp = 0;
static float last_call_secs = 0.0f;

// A palette entry nothing else sets: the screen colour of the progress fill.
constexpr int32_t PAL_PROGRESS_FILL = 97;
constexpr int32_t PAL_ADVICE = 62;  // light grey

static const char* const fixed_lines[3] = {
    "Vocalog 1.0 - the Zephyra weather briefer, by the Vocalog team.",
    "A joystick with a twist grip for the rudder and a throttle lever of its own makes the whole suite "
    "feel like flying.",
    "Pick a 3-D card with hardware transform and lighting and at least 32 MB: the scenery then stays smooth "
    "at full detail.",
};

void progress_reset() {
    progress_lamp = 0;
    last_call_secs = 0.0f;
}

static float clamp01(float v) { return v < 0.0f ? 0.0f : v > 1.0f ? 1.0f : v; }

// One of the 8 x 22 glows over lamp centre cx; `block` is one of the three glows.
static void draw_glow(int32_t block, float cx, float cy, float alpha) {
    const SheetBlock& g = BTN_sheet[block];
    const float s0 = (float)g.x / SHEET_TEXELS, s1 = (float)(g.x + g.w) / SHEET_TEXELS;
    const float t0 = (float)g.y / SHEET_TEXELS, t1 = (float)(g.y + g.h) / SHEET_TEXELS;
    const float x0 = cx - (float)g.w / 2.0f, x1 = cx + (float)g.w / 2.0f;
    const float y0 = cy - (float)g.h / 2.0f, y1 = cy + (float)g.h / 2.0f;
    OGL_draw_quad(OGL_TEX_SHEET, PAL_LIT, alpha, x0, y0, s0, t0, x0, y1, s0, t1, x1, y1, s1, t1, x1, y0, s1, t0, 1,
                  OGL_ALPHA_ON, OGL_BLEND_ON);
}

// A lit lamp cross-fades from the first glow to the second over the left half of the row and
// from the second to the third over the right half.
static void draw_lit_lamp(int32_t i, float cx, float cy) {
    const float t = (float)i / 100.0f;
    const bool left = t < 0.5f;
    const float a = clamp01(left ? 1.0f - 2.0f * t : 1.0f - 2.0f * (t - 0.5f));
    draw_glow(left ? SHEET_PROGRESS0 : SHEET_PROGRESS1, cx, cy, a);
    draw_glow(left ? SHEET_PROGRESS1 : SHEET_PROGRESS2, cx, cy, 1.0f - a);
}

void MACIBM_progress_screen(const char* message) {
    if (!screen_opened) return;
    const int32_t compose = bg_compose;
    bg_compose = 0;
    // Positions below are absolute: the panel origin is taken off so the primitives' offset cancels.
    const float ox = -panel_x, oy = -panel_y;
    if (cur_screen == SCREEN_INTRO) {
        OGL_draw_background();
    } else {
        OGL_set_palette(PAL_PROGRESS_FILL, bg_color[0] / 255.0f, bg_color[1] / 255.0f, bg_color[2] / 255.0f);
        OGL_fill_rect(PAL_PROGRESS_FILL, 1.0f, ox - ui_margin_x, oy, DESIGN_W + 2.0f * ui_margin_x,
                      DESIGN_H + ui_margin_y);
    }
    BTN_util_draw_panel(PANEL_TIP, ox + 8.0f, oy + 30.0f, 310.0f, 206.0f, "");
    for (int32_t k = 0; k < 3; ++k)
        OGL_draw_string(k == 0 ? PAL_YELLOW : PAL_ADVICE, ox + 22.0f, oy + 215.0f - 50.0f * (float)k, fixed_lines[k],
                        280.0f, FACE_FIELD);

    if (std::fabs(ShellInput.elapsed_secs - last_call_secs) > 0.1f) progress_lamp = 0;
    last_call_secs = ShellInput.elapsed_secs;
    const SheetBlock& lamp = BTN_sheet[SHEET_LAMP];
    const float lamp_u = (float)lamp.x + (float)lamp.w / 2.0f, lamp_v = (float)lamp.y + (float)lamp.h / 2.0f;
    for (int32_t i = 0; i < PROGRESS_LAMPS; ++i) {
        const float cx = ox + 12.0f + 10.0f * (float)i, cy = oy + 15.0f;
        BTN_util_draw_lamp(cx, cy, lamp_u, lamp_v, 0);
        if (i == progress_lamp || progress_lamp >= PROGRESS_LAMPS) draw_lit_lamp(i, cx, cy);
    }
    ++progress_lamp;

    OGL_draw_string(PAL_GREEN, ox + 22.0f, oy + 65.0f, message, 280.0f, FACE_FIELD);
    OGL_swap_buffers();
    bg_compose = compose;
}
