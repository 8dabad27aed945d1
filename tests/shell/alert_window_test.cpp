// The in-window alert: its own loop of passes, the button and Return, the language chooser,
// the screen it returns to with the pointer put back, and the fatal end.
#include <cstdio>

#include "tests/shell/shell_fixture.h"

// The alert panel lies at (312, 274) of the design space; its button at (200, 25) inside it.
constexpr float BUTTON_X = 312 + 200, BUTTON_Y = 274 + 25;

TEST_F(Screens, AlertClosesByButtonOrReturnOntoItsScreenWithThePointerBack) {
    const struct { const char* how; int32_t kind, return_screen; } rows[] = {
        {"button", ALERT_NOTE, SCREEN_MAIN}, {"return", 13, SCREEN_MAIN}, {"button", ALERT_ABOUT, 5}};
    for (const auto& r : rows) {
        MACIBM_open_screen(SCREEN_MAIN);
        ShellInput.mouse_x = 100, ShellInput.mouse_y = 700;
        frames.clear(), gl.clear_log();
        post(PLAT_MSG_PAINT);
        post(PLAT_MSG_MOUSEMOVE, 20, 20);  // the pointer moves while the alert is up
        if (std::string(r.how) == "button")
            post_press(BUTTON_X, BUTTON_Y);
        else
            post(PLAT_MSG_KEYDOWN, 0, 0, PLAT_VK_RETURN);
        MACIBM_alert(r.return_screen, "Line one", "", "Line three", "", r.kind);
        EXPECT_EQ(cur_screen, r.return_screen) << r.how;
        EXPECT_EQ(std::pair(ShellInput.mouse_x, ShellInput.mouse_y), std::pair(100.0f, 700.0f)) << r.how;
        EXPECT_EQ(ShellInput.enter_pressed, 0);
        ASSERT_FALSE(frames.empty());
        EXPECT_EQ((std::tuple(frames[0].screen, frames[0].panel_x, frames[0].panel_y)),
                  std::tuple(SCREEN_ALERT, 312.0f, 274.0f));
    }
    // A press beside the button does not close it: the alert waits for the next one.
    MACIBM_open_screen(SCREEN_MAIN);
    frames.clear();
    post(PLAT_MSG_PAINT);
    post_press(BUTTON_X + 40, BUTTON_Y);
    on_frame = [](size_t n) {  // Return only after the press beside has had its pass
        if (n == 1) post(PLAT_MSG_KEYDOWN, 0, 0, PLAT_VK_RETURN);
    };
    MACIBM_alert(0, "a", "b", "c", "d", ALERT_NOTE);
    EXPECT_EQ(frames.size(), 2u);
    EXPECT_EQ(cur_screen, SCREEN_MAIN);
}

TEST_F(Screens, AlertDrawsItsPanelLinesAndButton) {
    MACIBM_open_screen(SCREEN_MAIN);
    post(PLAT_MSG_PAINT);
    post(PLAT_MSG_KEYDOWN, 0, 0, PLAT_VK_RETURN);
    gl.clear_log();
    MACIBM_alert(0, "First", "Second", "Third", "Fourth", ALERT_NOTE);
    // The four lines in face 106 from x = 10 of the panel, 40 units apart from y = 180 down.
    std::vector<std::pair<float, float>> lines;
    float panel_left = 1e9f, panel_bottom = 1e9f;
    for (const GlPrim& p : gl.prims) {
        if (p.mode != GL_QUADS || p.v.empty()) continue;
        const float u = p.v[0].s * 512, v = p.v[0].t * 512;
        if (u >= 265 && v >= 289 && p.v.size() > 4 && p.v[2].x - p.v[0].x == 6) lines.push_back({p.v[0].x, p.v[0].y});
        if (u >= 128 && u < 256 && v >= 366 && v < 512)  // the dialog panel's block
            panel_left = std::min(panel_left, p.v[0].x), panel_bottom = std::min(panel_bottom, p.v[0].y);
    }
    ASSERT_GE(lines.size(), 4u);
    for (int k = 0; k < 4; ++k) EXPECT_EQ(lines[(size_t)k], std::pair(312.0f + 10, 274.0f + 180 - 40 * k - 2)) << k;
    EXPECT_EQ(std::pair(panel_left, panel_bottom), std::pair(312.0f, 274.0f - 8));  // style 3 grows downward
}

TEST_F(Screens, LanguageChooserSetsTheLanguageAndAccepts) {
    // Choices at x = panel_w / 2 - 25 = 175, y = 170, 150, ... 70 inside the panel.
    const struct { int choice; bool by_return; int32_t language; } rows[] = {{2, true, 2}, {5, false, 5}, {-1, true, 0}};
    for (const auto& r : rows) {
        language = 0, frames.clear();
        MACIBM_open_screen(SCREEN_MAIN);
        post(PLAT_MSG_PAINT);
        if (r.choice >= 0) post_press(312 + 175, 274 + 170 - 20.0f * (float)r.choice);
        static bool by_return;
        by_return = r.by_return;
        on_frame = [](size_t n) {  // accepted in the pass after the choice
            if (n == 1 && by_return) post(PLAT_MSG_KEYDOWN, 0, 0, PLAT_VK_RETURN);
            if (n == 1 && !by_return) post_press(BUTTON_X, BUTTON_Y);
        };
        MACIBM_alert(SCREEN_MAIN, "", "", "", "", ALERT_LANGUAGE);
        EXPECT_EQ(language, r.language) << r.choice;
        EXPECT_EQ(cur_screen, SCREEN_MAIN);
        EXPECT_STREQ(panel_title, "");
    }
}

TEST_F(Screens, FatalAlertEndsTheProgramThroughTheShutDown) {
    auto fatal = [] {
        shutdown_set_step(SHUTDOWN_PREFS, [] { fputs("shut down in order\n", stderr); });
        MACIBM_open_screen(SCREEN_MAIN);
        post(PLAT_MSG_PAINT);
        post_press(BUTTON_X, BUTTON_Y);
        MACIBM_alert(0, "Disk on fire", "", "", "", ALERT_FATAL);
        fputs("returned\n", stderr);
    };
    EXPECT_EXIT(fatal(), testing::ExitedWithCode(0), "shut down in order\n$");
}
