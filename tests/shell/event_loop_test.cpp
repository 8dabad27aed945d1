// The event pass and the message handler: pointer mapping, buttons, drawing, clock, tooltip.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <tuple>
#include <utility>

#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/textures.h"
#include "platform/platform.h"
#include "shell/app_hooks.h"
#include "shell/event_loop.h"
#include "shell/gl_caps.h"
#include "shell/input.h"
#include "shell/pending_parts.h"
#include "shell/shutdown.h"
#include "tests/support/gl_recorder.h"

using P = std::pair<float, float>;
static int draws = 0, swaps = 0;
static intptr_t xy(int x, int y) { return (intptr_t)(((uint32_t)y << 16) | (uint32_t)x); }

class Loop : public testing::Test {
  protected:
    void SetUp() override {
        gl_recorder_install();
        gl_state_reset(), tex_reset(), design_space_reset(), input_reset(), event_loop_reset(), gl_caps_reset();
        for (int32_t t : {300, 311, 312, 313, 314, 315, 316, 317, 318, 319, 320, 321, 322}) OGL_tex_bytes[t] = 1;
        plat_reset_messages();
        cur_screen = SCREEN_MAIN, open_menu = -1, quit_requested = draws = swaps = 0;
        app_set_hooks([] { ++draws; }, nullptr, nullptr);
        OGL_set_swap([]() -> int32_t { return ++swaps; });
    }
    void TearDown() override { app_set_hooks(nullptr, nullptr, nullptr), OGL_set_swap(nullptr); }
    // One pass, after `message` (if any) has been queued.
    void pass(uint32_t message = 0, intptr_t lparam = 0) {
        if (message) plat_post_message(PlatMessage{message, 0, lparam, 0});
        MACIBM_event_pass();
    }
    P clicked_down() { return P(ShellInput.mouse_clicked, ShellInput.mouse_down); }
};

TEST_F(Loop, PointerInDesignUnitsForOtherWindowSizes) {
    struct { float w, h; int px, py; float panel_x, panel_y, mouse_x, mouse_y, scale, margin_x, margin_y; } rows[] = {
        {1024, 768, 0, 0, 0, 0, 0, 768, 1, 0, 0},              {1024, 768, 100, 700, 312, 274, -212, -206, 1, 0, 0},
        {1280, 1024, 0, 1023, 0, 0, 0, 0.8f, 1.25f, 0, 51.2f}, {1536, 768, 256, 0, 0, 0, 0, 768, 1, 256, 0},
        {1536, 768, 0, 0, 0, 0, -256, 768, 1, 256, 0},         {800, 600, 400, 300, 0, 0, 512, 384, 0.78125f, 0, 0}};
    for (auto& r : rows) {
        disp_width = r.w, disp_height = r.h;
        design_space_fit();
        panel_x = r.panel_x, panel_y = r.panel_y;
        MACIBM_window_proc(nullptr, PLAT_MSG_MOUSEMOVE, 0, xy(r.px, r.py));
        EXPECT_FLOAT_EQ(ui_scale, r.scale);
        for (auto [got, want] : {P(ui_margin_x, r.margin_x), P(ui_margin_y, r.margin_y),
                                 P(ShellInput.mouse_x, r.mouse_x), P(ShellInput.mouse_y, r.mouse_y)})
            EXPECT_NEAR(got, want, 1e-3) << r.w << "x" << r.h << " at " << r.px << "," << r.py;
    }
}

TEST_F(Loop, PressAndReleaseBetweenPassesLeaveAClick) {
    pass(PLAT_MSG_PAINT);
    for (uint32_t m : {PLAT_MSG_MOUSEMOVE, PLAT_MSG_LBUTTONDOWN}) plat_post_message(PlatMessage{m, 0, xy(10, 20), 0});
    pass(PLAT_MSG_LBUTTONUP, xy(500, 500));
    EXPECT_EQ(clicked_down(), P(1, 0));
    EXPECT_EQ(P(ShellInput.mouse_x, ShellInput.mouse_y), P(10, 748));  // buttons do not move the pointer
    pass(PLAT_MSG_RBUTTONDOWN);
    EXPECT_EQ(clicked_down(), P(1, 1));
    pass();
    EXPECT_EQ(clicked_down(), P(0, 1));  // the click lasts one pass
    pass(PLAT_MSG_RBUTTONUP);
    EXPECT_EQ(clicked_down(), P(0, 0));
    pass(PLAT_MSG_CLOSE);                 // the window manager's close ends the main loop
    EXPECT_EQ(quit_requested, 1);
}

TEST_F(Loop, WhatEachPassDraws) {
    cur_screen = SCREEN_INTRO;
    pass();
    EXPECT_EQ(cur_screen, SCREEN_MAIN);  // the intro becomes the main screen at once
    EXPECT_EQ(std::tuple(draws, swaps, ShellInput.elapsed_secs), std::tuple(0, 0, 0.0f));  // nothing before a paint
    pass(PLAT_MSG_PAINT);
    EXPECT_EQ(P(draws, swaps), P(1, 1));
    float t = ShellInput.elapsed_secs, a = 0.8f + 0.2f * sinf(10 * t), d = 0.6f + 0.4f * sinf(10 * t);
    EXPECT_NEAR(OGL_palette[54][1], a, 1e-5);
    EXPECT_NEAR(OGL_palette[59][2], 0.5f * d, 1e-5);
    for (int32_t screen : {996, 997, 998, 999, 5}) cur_screen = screen, pass();
    EXPECT_EQ(P(draws, swaps), P(2, 6));  // alert and dialog screens skip the application
    sw_cursor = 1;                         // the pointer sprite of the interface sheet, drawn last
    pass(PLAT_MSG_MOUSEMOVE, xy(100, 100));
    EXPECT_EQ(ShellInput.last_activity, ShellInput.elapsed_secs);  // a move is activity
    const GlPrim& p = gl_rec().prims.back();
    EXPECT_EQ(p.tex[0], 300u);
    EXPECT_EQ((std::pair(P(p.v[0].x, p.v[0].y), P(p.v[2].x, p.v[2].y))), (std::pair(P(93, 650), P(115, 672))));
}

TEST_F(Loop, TooltipSizeAndPlacementLimits) {
    struct { int length; float mouse_x, mouse_y, panel_x, panel_y, x, y, h; } rows[] = {
        {0, 600, 300, 0, 0, 200, 300, 60}, {120, 600, 300, 0, 0, 200, 300, 60},  // 40 before the lower limit
        {300, 600, 300, 0, 0, 200, 300, 80}, {499, 600, 300, 0, 0, 200, 300, 110},  // the longest help text
        {2000, 600, 300, 0, 0, 200, 300, 200},                                      // the upper limit
        {10, 100, 5, 0, 0, 10, 10, 60}, {10, 1200, 740, 0, 0, 614, 688, 60},      // pushed in from every side
        {10, 50, -300, 312, 274, -302, -264, 60}};                                  // relative to the panel
    for (auto& r : rows) {
        panel_x = r.panel_x, panel_y = r.panel_y;
        TooltipBox b = tooltip_box(std::string(r.length, 'x').c_str(), r.mouse_x, r.mouse_y);
        EXPECT_EQ(std::pair(b.w, b.h), P(400, r.h)) << r.length;
        EXPECT_EQ(P(b.x, b.y), P(r.x, r.y)) << r.length << " at " << r.mouse_x << "," << r.mouse_y;
    }
}

TEST_F(Loop, IdlePacingWaitsForInputUnlessTheFrameAnimates) {
    struct { float elapsed, last_message; bool animated; uint32_t interval; } rows[] = {
        {10, 9, false, PASS_MIN_INTERVAL_US},  {10, 7, false, PASS_MIN_INTERVAL_US},  // exactly 3 s: not yet
        {10, 6.9f, false, PASS_IDLE_INTERVAL_US}, {10, 0, true, PASS_MIN_INTERVAL_US}};
    for (auto& r : rows)
        EXPECT_EQ(pass_interval_us(r.elapsed, r.last_message, r.animated), r.interval) << r.last_message;
    // A frame drawn with a pulsing colour is animated; one without is not.
    app_set_hooks([] { OGL_set_color(57, 1.0f); }, nullptr, nullptr);
    pass(PLAT_MSG_PAINT);
    EXPECT_EQ(OGL_pulse_drawn, 1);
    app_set_hooks([] { OGL_set_color(60, 1.0f); }, nullptr, nullptr);
    pass();
    EXPECT_EQ(OGL_pulse_drawn, 0);
    // A pending message ends an idle wait at once (a broken wake would sleep the full 20 s).
    plat_pace(0, false);
    plat_post_message(PlatMessage{PLAT_MSG_MOUSEMOVE, 0, xy(1, 1), 0});
    uint32_t t0 = plat_ticks_ms();
    plat_pace(20000000, true);
    EXPECT_LT(plat_ticks_ms() - t0, 10000u);
}
