// The in-window alert: its own loop of passes, button and Return, the language chooser, the
// screen it returns to with the pointer put back, and the fatal end.
#include <cstdio>

#include "tests/shell/shell_fixture.h"

// The alert panel lies at (312, 274); its button at (200, 25) inside it, the language choices at
// x = 175 and y = 170, 150, ... 70.
constexpr float PANEL_X = 312, PANEL_Y = 274, BUTTON_X = PANEL_X + 200, BUTTON_Y = PANEL_Y + 25;
static float choice_y(int k) { return PANEL_Y + 170 - 20.0f * (float)k; }

// A press before the first frame, then Return, the button or nothing after it: how many frames
// the alert stayed, the screen it returned to, and the language chosen.
TEST_F(Screens, AlertClosesByButtonOrReturnOntoItsScreenWithThePointerBack) {
    enum Then { NOTHING, RETURN, BUTTON };
    const struct { int32_t kind; float press_x, press_y; Then then; int32_t back; size_t frames; int32_t lang; } rows[] =
    {
        {ALERT_NOTE, BUTTON_X, BUTTON_Y, NOTHING, SCREEN_MAIN, 1, 0},
        {13, BUTTON_X + 40, BUTTON_Y, RETURN, 5, 2, 0},  // a press beside the button does nothing
        {ALERT_ABOUT, -1, -1, RETURN, SCREEN_MAIN, 2, 0}, {ALERT_LANGUAGE, PANEL_X + 175, choice_y(2), RETURN, SCREEN_MAIN, 2, 2},
        {ALERT_LANGUAGE, PANEL_X + 175, choice_y(5), BUTTON, SCREEN_MAIN, 2, 5},
        {ALERT_LANGUAGE, -1, -1, RETURN, SCREEN_MAIN, 2, 0}};
    for (const auto& r : rows) {
        language = 0, frames.clear();
        MACIBM_open_screen(SCREEN_MAIN);
        ShellInput.mouse_x = 100, ShellInput.mouse_y = 700;
        if (r.press_x > 0) post_press(r.press_x, r.press_y);  // the pointer moves while the alert is up
        on_frame = [then = r.then](size_t n) {
            if (n == 1 && then) then == RETURN ? post_key(PLAT_VK_RETURN) : post_press(BUTTON_X, BUTTON_Y);
        };
        MACIBM_alert(r.back, "Line one", "", "Line three", "", r.kind);
        EXPECT_EQ(std::tuple(cur_screen, ShellInput.mouse_x, ShellInput.mouse_y, ShellInput.enter_pressed, frames.size(),
                             language), std::tuple(r.back, 100.0f, 700.0f, 0, r.frames, r.lang)) << r.kind;
        const Frame& first = frames.at(0);
        EXPECT_EQ(std::tuple(first.screen, first.panel_x, first.panel_y), std::tuple(SCREEN_ALERT, PANEL_X, PANEL_Y));
    }
}

TEST_F(Screens, FatalAlertEndsTheProgramThroughTheShutDown) {
    auto fatal = [] {
        shutdown_set_step(SHUTDOWN_PREFS, [] { fputs("shut down in order\n", stderr); });
        post_press(BUTTON_X, BUTTON_Y);
        MACIBM_alert(0, "Disk on fire", "", "", "", ALERT_FATAL);
        fputs("returned\n", stderr);
    };
    EXPECT_EXIT(fatal(), testing::ExitedWithCode(0), "shut down in order\n$");
}
