// The in-window alert: its own loop of passes, button and Return, the language chooser, the
// screen it returns to with the pointer put back, and the fatal end.
#include <cstdio>

#include "tests/shell/shell_fixture.h"

// The alert panel lies at (312, 274); its button at (200, 25) inside it.
constexpr float BUTTON_X = 312 + 200, BUTTON_Y = 274 + 25;

TEST_F(Screens, AlertClosesByButtonOrReturnOntoItsScreenWithThePointerBack) {
    // How it is closed, after how many frames: a press beside the button does nothing.
    const struct { float press_x; bool then_return; int32_t kind, return_screen; size_t frames; } rows[] = {
        {BUTTON_X, false, ALERT_NOTE, SCREEN_MAIN, 1}, {BUTTON_X + 40, true, 13, 5, 2},
        {-1, true, ALERT_ABOUT, SCREEN_MAIN, 2}};
    for (const auto& r : rows) {
        MACIBM_open_screen(SCREEN_MAIN);
        ShellInput.mouse_x = 100, ShellInput.mouse_y = 700, frames.clear();
        if (r.press_x > 0) post_press(r.press_x, BUTTON_Y);  // the pointer moves while the alert is up
        on_frame = [then_return = r.then_return](size_t n) { n == 1 && then_return ? post_key(PLAT_VK_RETURN) : void(); };
        MACIBM_alert(r.return_screen, "Line one", "", "Line three", "", r.kind);
        EXPECT_EQ(std::tuple(cur_screen, ShellInput.mouse_x, ShellInput.mouse_y, ShellInput.enter_pressed, frames.size()),
                  std::tuple(r.return_screen, 100.0f, 700.0f, 0, r.frames)) << r.kind;
        EXPECT_EQ(std::tuple(frames.at(0).screen, frames[0].panel_x, frames[0].panel_y), std::tuple(SCREEN_ALERT, 312.0f, 274.0f));
    }
}

TEST_F(Screens, LanguageChooserSetsTheLanguageAndAccepts) {
    // The choices lie at x = 175 and y = 170, 150, ... 70 inside the panel.
    for (auto [choice, by_return, want] : {std::tuple(2, true, 2), {5, false, 5}, {-1, true, 0}}) {
        language = 0, frames.clear();
        MACIBM_open_screen(SCREEN_MAIN);
        if (choice >= 0) post_press(312 + 175, 274 + 170 - 20.0f * (float)choice);
        on_frame = [by_return = by_return](size_t n) {  // accepted in the pass after the choice
            if (n == 1) by_return ? post_key(PLAT_VK_RETURN) : post_press(BUTTON_X, BUTTON_Y);
        };
        MACIBM_alert(SCREEN_MAIN, "", "", "", "", ALERT_LANGUAGE);
        EXPECT_EQ(std::pair(language, cur_screen), std::pair(want, (int32_t)SCREEN_MAIN)) << choice;
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
