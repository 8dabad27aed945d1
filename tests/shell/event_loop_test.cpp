// The event pass, the message handler and key-downs: pointer mapping, buttons, what a pass
// draws and in which order, the tooltip, idle pacing, key classes and typed text.
#include <cstring>

#include "tests/shell/shell_fixture.h"

using Call = std::pair<int32_t, int32_t>;  // key class, key
using Calls = std::vector<Call>;
static int draws = 0, swaps = 0;
static Calls calls;  // what app_key received
static const uint32_t SH = PLAT_HELD_SHIFT, C = PLAT_HELD_CTRL, K = PLAT_VK_NUMPAD0;
static intptr_t xy(int x, int y) { return (intptr_t)(((uint32_t)y << 16) | (uint32_t)x); }

class Loop : public Shell {
protected:
    void SetUp() override {
        Shell::SetUp();
        calls.clear(), draws = swaps = 0;
        app_set_hooks([] { ++draws; }, [](int32_t key_class, int32_t key) { calls.push_back({key_class, key}); },
                      nullptr);
        OGL_set_swap([]() -> int32_t { return ++swaps; });
    }
    // One pass, after a message (if any) has been queued as the window delivers it.
    static void pass(uint32_t message = 0, intptr_t lparam = 0, uintptr_t wparam = 0, uint32_t held = 0) {
        if (message) plat_post_message(PlatMessage{message, wparam, lparam, held});
        MACIBM_event_pass();
    }
    static void press(uint32_t vk, uint32_t held = 0) { pass(PLAT_MSG_KEYDOWN, 0, vk, held); }  // Shift, Ctrl held
};
using Keys = Loop;

// The scale and margins themselves are checked through the projection by the drawing tests.
TEST_F(Loop, PointerInDesignUnitsForOtherWindowSizes) {
    struct { float w, h; int px, py; float panel_x, panel_y, mouse_x, mouse_y; } rows[] = {
        {1024, 768, 100, 700, 312, 274, -212, -206}, {1280, 1024, 0, 1023, 0, 0, 0, 0.8f},
        {1536, 768, 256, 0, 0, 0, 0, 768}, {800, 600, 400, 300, 0, 0, 512, 384}};
    for (auto& r : rows) {
        disp_width = r.w, disp_height = r.h, panel_x = r.panel_x, panel_y = r.panel_y;
        design_space_fit();
        MACIBM_window_proc(nullptr, PLAT_MSG_MOUSEMOVE, 0, xy(r.px, r.py));
        EXPECT_EQ(P(ShellInput.mouse_x, ShellInput.mouse_y), P(r.mouse_x, r.mouse_y)) << r.w << " " << r.px;
    }
}

TEST_F(Loop, PressAndReleaseBetweenPassesLeaveAClick) {
    pass(PLAT_MSG_PAINT);
    for (uint32_t m : {PLAT_MSG_MOUSEMOVE, PLAT_MSG_LBUTTONDOWN}) plat_post_message(PlatMessage{m, 0, xy(10, 20), 0});
    // Clicked and down after each pass: a click lasts one pass; both buttons act alike.
    std::string seen;
    for (uint32_t m : std::vector<uint32_t>{PLAT_MSG_LBUTTONUP, PLAT_MSG_RBUTTONDOWN, 0, PLAT_MSG_RBUTTONUP}) {
        pass(m, xy(500, 500));
        seen += std::to_string(ShellInput.mouse_clicked) + std::to_string(ShellInput.mouse_down) + " ";
    }
    EXPECT_EQ(seen, "10 11 01 00 ");
    EXPECT_EQ(P(ShellInput.mouse_x, ShellInput.mouse_y), P(10, 748));  // buttons do not move the pointer
    pass(PLAT_MSG_CLOSE);  // the window manager's close ends the main loop
    EXPECT_EQ(quit_requested, 1);
}

// A pass draws the background, the application, then the pointer, and swaps once.
TEST_F(Loop, WhatEachPassDrawsAndInWhichOrder) {
    cur_screen = SCREEN_INTRO;
    pass();
    EXPECT_EQ(cur_screen, SCREEN_MAIN);  // the intro becomes the main screen at once
    EXPECT_EQ(std::tuple(draws, swaps, ShellInput.elapsed_secs), std::tuple(0, 0, 0.0f));  // nothing before a paint
    app_set_hooks([] { ++draws, OGL_fill_rect(COLOR_TEXT, 1.0f, 1, 2, 3, 4); }, nullptr, nullptr);
    sw_cursor = 1;  // the pointer sprite of the interface sheet
    plat_post_message(PlatMessage{PLAT_MSG_MOUSEMOVE, 0, xy(100, 100), 0});
    pass(PLAT_MSG_PAINT);
    std::vector<GLuint> order;  // the texture of each primitive; the application's rectangle has none
    for (const GlPrim& p : gl.prims) order.push_back(p.tex2d[0] ? p.tex[0] : 0);
    std::vector<GLuint> want;
    for (int32_t t : {0, 4, 8, 1, 5, 9, 2, 6, 10, 3, 7, 11}) want.push_back(TEX_BACKGROUND + t);  // column by column
    want.push_back(0);  // then the menu bar's pieces and, last, the pointer: all cut from the sheet
    ASSERT_GT(order.size(), want.size());
    EXPECT_EQ(std::vector<GLuint>(order.begin(), order.begin() + (long)want.size()), want);
    for (size_t k = want.size(); k < order.size(); ++k) EXPECT_EQ(order[k], (GLuint)TEX_SHEET) << k;
    EXPECT_EQ(P(draws, swaps), P(1, 1));
    for (int32_t c = COLOR_PULSE_GREEN; c <= COLOR_PULSE_AMBER; ++c)  // set every pass, never black
        EXPECT_GT(OGL_palette[c][0] + OGL_palette[c][1], 0.0f) << c;
    const GlPrim& p = gl.prims.back();  // the sprite around the pointer at (100, 668)
    EXPECT_EQ((std::pair(P(p.v[0].x, p.v[0].y), P(p.v[2].x, p.v[2].y))), (std::pair(P(93, 650), P(115, 672))));
    EXPECT_EQ(ShellInput.last_activity, ShellInput.elapsed_secs);  // a move is activity
    for (int32_t screen : std::vector<int32_t>{SCREEN_ALERT, SCREEN_DIALOG, SCREEN_FILE_OPEN, SCREEN_FILE_SAVE, 5})
        cur_screen = screen, pass();
    EXPECT_EQ(P(draws, swaps), P(2, 6));  // modal screens skip the application (their loops draw them)
}

TEST_F(Loop, TooltipPlacementAndRest) {
    struct { int length; float mouse_x, mouse_y, panel_x, panel_y, x, y, h; } rows[] = {
        {120, 600, 300, 0, 0, 200, 300, 60}, {499, 600, 300, 0, 0, 200, 300, 110},  // 40 lifted to the least
        {2000, 600, 300, 0, 0, 200, 300, 200}, {10, 100, 5, 0, 0, 10, 10, 60},      // the most; pushed in from
        {10, 1200, 740, 0, 0, 614, 688, 60}, {10, 50, -300, 312, 274, -302, -264, 60}};  // every side; on a panel
    for (auto& r : rows) {
        panel_x = r.panel_x, panel_y = r.panel_y;
        TooltipBox b = tooltip_box(std::string(r.length, 'x').c_str(), r.mouse_x, r.mouse_y);
        EXPECT_EQ(std::tuple(b.x, b.y, b.w, b.h), std::tuple(r.x, r.y, 400.0f, r.h)) << r.length << " at " << r.mouse_x;
    }
    // Shown once the pointer has rested more than a second, and only with a text.
    for (auto [text, rested, due] : {std::tuple{"help", 3.9f, true}, {"help", 4.0f, false}, {"", 0.0f, false}})
        EXPECT_EQ(tooltip_due(text, 5.0f, rested), due) << text << " " << rested;
}

TEST_F(Loop, IdlePacingWaitsForInputUnlessTheFrameAnimates) {
    struct { float last_message; int32_t motion; uint32_t interval; } rows[] = {  // at 10 s
        {7, OGL_STILL, PASS_MIN_INTERVAL_US}, {6.9f, OGL_STILL, PASS_IDLE_INTERVAL_US},  // idle after 3 s
        {0, OGL_PULSING, PASS_MIN_INTERVAL_US}, {0, OGL_SMALL_PULSE, PASS_PULSE_INTERVAL_US},
        {9, OGL_SMALL_PULSE, PASS_MIN_INTERVAL_US}};
    for (auto& r : rows) EXPECT_EQ(pass_interval_us(10, r.last_message, r.motion), r.interval) << r.last_message;
    // A frame drawn with a pulsing colour moves; a small pulse does not raise a pulsing frame's
    // pace, drawing done before the pass (a modal loop's) counts, and a frame of neither is still.
    app_set_hooks([] { OGL_set_color(COLOR_PULSE_RED_FAST, 1.0f), OGL_mark_pulse(OGL_SMALL_PULSE); }, nullptr, nullptr);
    pass(PLAT_MSG_PAINT);
    EXPECT_EQ(event_loop_motion(), OGL_PULSING);
    app_set_hooks([] { OGL_set_color(COLOR_LIT, 1.0f); }, nullptr, nullptr);
    OGL_mark_pulse(OGL_SMALL_PULSE);
    pass();
    EXPECT_EQ(event_loop_motion(), OGL_SMALL_PULSE);
    pass();
    EXPECT_EQ(event_loop_motion(), OGL_STILL);
    // A pending message ends an idle wait at once (a broken wake would sleep the full 20 s).
    plat_pace(0, false);
    plat_post_message(PlatMessage{PLAT_MSG_MOUSEMOVE, 0, xy(1, 1), 0});
    uint32_t t0 = plat_ticks_ms();
    plat_pace(20000000, true);
    EXPECT_LT(plat_ticks_ms() - t0, 10000u);
}

// Letters with Shift or Ctrl, Ctrl alone, Left, Shift-Up, keypad 1 and minus, and what they type,
// are checked through a real X window by tests/x11/window_input_test.sh.
TEST_F(Keys, ClassesAndWhatAppKeyReceives) {
    struct { uint32_t vk, held; Call call; } rows[] = {
        {PLAT_VK_OEM_7, 0, {KEY_CLASS_PLAIN, (int32_t)(signed char)0xDE}},  // high bytes: negative
        {K + 7, 0, {KEY_CLASS_PLAIN, 'g'}}, {'1', SH, {KEY_CLASS_PLAIN, '!'}}, {'Q', C, {KEY_CLASS_CTRL, 'q'}},
        {PLAT_VK_TAB, C, {KEY_CLASS_MOVE, KEY_TAB}},  // moving wins over Ctrl
        {K + 8, 0, {KEY_CLASS_MOVE, 0x5B00}}, {PLAT_VK_DOWN, SH | C, {KEY_CLASS_MOVE, KEY_SHIFT_DOWN}},
        {PLAT_VK_LEFT, SH, {KEY_CLASS_MOVE, KEY_SHIFT_LEFT}}, {PLAT_VK_RIGHT, SH, {KEY_CLASS_MOVE, KEY_SHIFT_RIGHT}}};
    for (auto& r : rows) {
        calls.clear(), press(r.vk, r.held);
        EXPECT_EQ(std::pair(calls, ShellInput.key_pressed), std::pair(Calls{r.call}, 1)) << r.vk << " held " << r.held;
    }
}

TEST_F(Keys, TypedTextFollowsTheKeys) {
    struct { std::vector<std::pair<uint32_t, uint32_t>> keys; std::string text; } rows[] = {
        {{{'A', 0}, {'B', 0}, {PLAT_VK_INSERT, 0}}, "a"}, {{{'A', 0}, {PLAT_VK_DELETE, 0}, {PLAT_VK_DELETE, 0}}, ""},
        {{{PLAT_VK_OEM_MINUS, SH}, {PLAT_VK_OEM_PLUS, 0}, {PLAT_VK_OEM_PLUS, SH}}, ""},
        {{{PLAT_VK_UP, 0}, {PLAT_VK_DOWN, SH}, {PLAT_VK_TAB, 0}, {PLAT_VK_RETURN, 0}}, ""},
        {{{'6', 0}, {PLAT_VK_SPACE, 0}, {'X', SH}, {PLAT_VK_OEM_5, SH}}, "6 X|"}};
    for (auto& r : rows) {
        input_reset();
        for (auto [vk, held] : r.keys) press(vk, held);
        const int32_t entered = r.keys.back().first == PLAT_VK_RETURN;
        EXPECT_EQ(std::pair(S(ShellInput.typed_text), ShellInput.enter_pressed), std::pair(r.text, entered));
    }
    // The French 6 key gives "-": nothing typed, but app_key hears it; the save screen's keys reach
    // the text but not app_key.
    calls.clear(), language = 1;
    for (auto [screen, vk] :
         {std::pair<int32_t, uint32_t>(SCREEN_MAIN, '6'), {SCREEN_FILE_SAVE, 'K'}, {SCREEN_FILE_OPEN, 'L'}})
        cur_screen = screen, press(vk);
    EXPECT_EQ(std::string(ShellInput.typed_text), "6 X|kl");
    EXPECT_EQ(calls, (Calls{{KEY_CLASS_PLAIN, '-'}, {KEY_CLASS_PLAIN, 'l'}}));
    memset(ShellInput.typed_text, 'x', 499);  // full: a new character replaces the last one
    press('B');
    EXPECT_EQ(std::string(ShellInput.typed_text), std::string(498, 'x') + "b");
    press(PLAT_VK_BACK);  // the character before position 498 goes, and the text ends there
    EXPECT_EQ(std::string(ShellInput.typed_text), std::string(497, 'x'));
}
