// The event pass and the message handler: pointer mapping, buttons, clock, tooltip, drawing.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "platform/platform.h"
#include "shell/app_hooks.h"
#include "shell/event_loop.h"
#include "shell/gl_caps.h"
#include "shell/input.h"
#include "shell/pending_parts.h"
#include "shell/shutdown.h"
#include "tests/support/gl_recorder.h"

namespace {

int draws = 0;
void count_draw() { ++draws; }

intptr_t xy(int x, int y) { return (intptr_t)(((uint32_t)y << 16) | (uint32_t)x); }

void post(uint32_t message, intptr_t lparam = 0, uintptr_t wparam = 0) {
    plat_post_message(PlatMessage{message, wparam, lparam, 0});
}

class Loop : public testing::Test {
  protected:
    void SetUp() override {
        gl_recorder_install();
        gl_state_reset();
        design_space_reset();
        input_reset();
        event_loop_reset();
        gl_caps_reset();
        plat_reset_messages();
        cur_screen = SCREEN_MAIN;
        open_menu = -1;
        quit_requested = 0;
        draws = 0;
        app_set_hooks(count_draw, nullptr, nullptr);
    }
    void TearDown() override { app_set_hooks(nullptr, nullptr, nullptr); }
    void paint() {
        post(PLAT_MSG_PAINT);
        MACIBM_event_pass();
    }
};

TEST_F(Loop, PointerInDesignUnitsForOtherWindowSizes) {
    struct Row {
        float w, h;
        int px, py;
        float panel_x, panel_y;
        float mouse_x, mouse_y, scale, margin_x, margin_y;
    } rows[] = {
        {1024, 768, 0, 0, 0, 0, 0, 768, 1, 0, 0},
        {1024, 768, 100, 700, 312, 274, 100 - 312, 68 - 274, 1, 0, 0},
        {1280, 1024, 0, 1023, 0, 0, 0, 0.8f, 1.25f, 0, 51.2f},
        {1536, 768, 256, 0, 0, 0, 0, 768, 1, 256, 0},
        {1536, 768, 0, 0, 0, 0, -256, 768, 1, 256, 0},  // in the left margin
        {800, 600, 400, 300, 0, 0, 512, 384, 0.78125f, 0, 0},
    };
    for (const Row& r : rows) {
        disp_width = r.w;
        disp_height = r.h;
        design_space_fit();
        panel_x = r.panel_x;
        panel_y = r.panel_y;
        EXPECT_FLOAT_EQ(ui_scale, r.scale);
        EXPECT_NEAR(ui_margin_x, r.margin_x, 1e-3);
        EXPECT_NEAR(ui_margin_y, r.margin_y, 1e-3);
        MACIBM_window_proc(nullptr, PLAT_MSG_MOUSEMOVE, 0, xy(r.px, r.py));
        EXPECT_NEAR(ShellInput.mouse_x, r.mouse_x, 1e-3) << r.w << "x" << r.h;
        EXPECT_NEAR(ShellInput.mouse_y, r.mouse_y, 1e-3) << r.w << "x" << r.h;
    }
}

TEST_F(Loop, PressAndReleaseBetweenPassesLeaveAClick) {
    paint();
    post(PLAT_MSG_MOUSEMOVE, xy(10, 20));
    post(PLAT_MSG_LBUTTONDOWN, xy(500, 500));
    post(PLAT_MSG_LBUTTONUP, xy(500, 500));
    MACIBM_event_pass();
    EXPECT_EQ(ShellInput.mouse_clicked, 1);
    EXPECT_EQ(ShellInput.mouse_down, 0);
    EXPECT_FLOAT_EQ(ShellInput.mouse_x, 10);  // buttons do not move the pointer
    EXPECT_FLOAT_EQ(ShellInput.mouse_y, 748);
    post(PLAT_MSG_RBUTTONDOWN);
    MACIBM_event_pass();
    EXPECT_EQ(ShellInput.mouse_clicked, 1);
    EXPECT_EQ(ShellInput.mouse_down, 1);
    MACIBM_event_pass();
    EXPECT_EQ(ShellInput.mouse_clicked, 0);  // cleared at the start of each pass
    EXPECT_EQ(ShellInput.mouse_down, 1);
}

TEST_F(Loop, NothingIsDrawnBeforeTheFirstPaint) {
    cur_screen = SCREEN_INTRO;
    MACIBM_event_pass();
    EXPECT_EQ(cur_screen, SCREEN_MAIN);  // the intro becomes the main screen at once
    EXPECT_EQ(draws, 0);
    EXPECT_EQ(ShellInput.elapsed_secs, 0.0f);
    paint();
    EXPECT_EQ(event_loop_painted(), 1);
    EXPECT_EQ(draws, 1);
}

TEST_F(Loop, AlertAndDialogScreensSkipTheApplication) {
    paint();
    for (int32_t screen : {996, 997, 998, 999}) {
        cur_screen = screen;
        MACIBM_event_pass();
    }
    EXPECT_EQ(draws, 1);
    cur_screen = 5;
    MACIBM_event_pass();
    EXPECT_EQ(draws, 2);
}

TEST_F(Loop, CloseEndsTheMainLoop) {
    post(PLAT_MSG_CLOSE);
    MACIBM_event_pass();
    EXPECT_EQ(quit_requested, 1);
}

TEST_F(Loop, PulsingColoursFollowTheClock) {
    paint();
    float t = ShellInput.elapsed_secs;
    float a = 0.8f + 0.2f * sinf(10 * t), d = 0.6f + 0.4f * sinf(10 * t);
    EXPECT_NEAR(OGL_palette[54][1], a, 1e-5);
    EXPECT_NEAR(OGL_palette[56][0], a, 1e-5);
    EXPECT_NEAR(OGL_palette[59][2], 0.5f * d, 1e-5);
    EXPECT_NEAR(OGL_palette[58][0], d, 1e-5);
}

TEST_F(Loop, ActivityFollowsMovesOfMoreThanHalfAUnit) {
    paint();
    post(PLAT_MSG_MOUSEMOVE, xy(100, 100));
    MACIBM_event_pass();
    float first = ShellInput.last_activity;
    EXPECT_EQ(first, ShellInput.elapsed_secs);
    for (int i = 0; i < 200 && ShellInput.elapsed_secs == first; ++i) MACIBM_event_pass();  // still
    EXPECT_GT(ShellInput.elapsed_secs, first);
    EXPECT_EQ(ShellInput.last_activity, first);
}

TEST_F(Loop, TooltipSizeAndPlacementLimits) {
    struct Row {
        int length;
        float mouse_x, mouse_y, panel_x, panel_y;
        float x, y, h;
    } rows[] = {
        {0, 600, 300, 0, 0, 200, 300, 60},
        {120, 600, 300, 0, 0, 200, 300, 60},    // 40 before the lower limit
        {300, 600, 300, 0, 0, 200, 300, 80},
        {499, 600, 300, 0, 0, 200, 300, 110},   // the longest help text
        {10, 100, 5, 0, 0, 10, 10, 60},         // pushed in from the left and the bottom
        {10, 1200, 740, 0, 0, 614, 688, 60},    // and from the right and the top
        {10, 50, -300, 312, 274, -302, -264, 60},  // limits are relative to the panel
    };
    for (const Row& r : rows) {
        panel_x = r.panel_x;
        panel_y = r.panel_y;
        std::string text(r.length, 'x');
        TooltipBox b = tooltip_box(text.c_str(), r.mouse_x, r.mouse_y);
        EXPECT_EQ(b.w, 400);
        EXPECT_EQ(b.h, r.h) << r.length;
        EXPECT_EQ(b.x, r.x) << r.length;
        EXPECT_EQ(b.y, r.y) << r.length;
    }
    std::string long_text(2000, 'x');  // the upper limit exists, though no help text reaches it
    EXPECT_EQ(tooltip_box(long_text.c_str(), 600, 300).h, 200);
}

TEST_F(Loop, EveryDrawnPassPresentsAFrame) {
    int swaps = 0;
    static int* counter = nullptr;
    counter = &swaps;
    OGL_set_swap([]() -> int32_t { return ++*counter; });
    MACIBM_event_pass();  // not painted yet
    EXPECT_EQ(swaps, 0);
    paint();
    MACIBM_event_pass();
    EXPECT_EQ(swaps, 2);
    OGL_set_swap(nullptr);
}

TEST_F(Loop, PassesArePacedToAbout120ASecond) {
    paint();
    uint32_t start = plat_ticks_ms();
    for (int i = 0; i < 24; ++i) MACIBM_event_pass();
    EXPECT_GE(plat_ticks_ms() - start, 24u * PASS_MIN_INTERVAL_US / 1000u - 2u);
}

}  // namespace
