// Alerts: the log, the message box or the window, the kinds, the fatal end; the shut-down's order.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/alert.h"
#include "base/log.h"
#include "base/shutdown.h"
#include "tests/support/test_files.h"

using S = std::string;

static S shown;  // where the last alert went ('b' box, 'w' window) and its text
static void show(const char* const lines[4], char where) {
    char text[2100];
    alert_box_text(lines, text, sizeof text);
    shown = where + S(text);
}

TEST(Alert, KindsLogAndWhereTheyAreShown) {
    const S log = test_temp_dir() + "Error.out";
    MACIBM_log_open(log.c_str());
    alert_set_box([](const char* const lines[4], int32_t) { show(lines, 'b'); });
    alert_set_window([](int32_t, const char* const lines[4], int32_t) { show(lines, 'w'); });
    MACIBM_alert(0, "A", "", "", "B", ALERT_NOTE);
    EXPECT_EQ(shown, "bA\n\n\n\n\n\nB");  // before GL is up: the message box
    MACIBM_alert(0, "x", "y", "z", "w", ALERT_ABOUT);  // three fixed lines, not logged
    EXPECT_THAT(shown, testing::AllOf(testing::StartsWith("bVocalog"), testing::EndsWith("\n\nw")));
    gl_ready = 1;
    MACIBM_alert(0, S(700, 'k').c_str(), "", "", "", 13);  // lines are cut to 499 characters
    gl_ready = 0;
    EXPECT_EQ(shown, "w" + S(499, 'k') + "\n\n\n\n\n\n");
    MACIBM_log_close();
    EXPECT_EQ(test_read_file(log), "A\n\n\nB\n" + S(499, 'k') + "\n\n\n\n");
    alert_set_box(nullptr), alert_set_window(nullptr);
}

// The platform's box (standard error here), the shut-down with quit set, exit code 0.
TEST(AlertDeathTest, FatalShowsTheBoxRunsTheShutDownAndExitsZero) {
    const S log = test_temp_dir() + "Error.out";
    auto fatal = [&] {
        MACIBM_log_open(log.c_str());
        shutdown_set_step(SHUTDOWN_PREFS, [] { fprintf(stderr, "shut down with quit %d\n", quit_requested); });
        MACIBM_alert(0, "A", "", "", "B", ALERT_FATAL);
    };
    EXPECT_EXIT(fatal(), testing::ExitedWithCode(0), testing::HasSubstr("A\n\n\n\n\n\nB\nshut down with quit 1\n"));
    EXPECT_EQ(test_read_file(log), "A\n\n\nB\n");
}

// The steps run in their fixed order whatever order they were set in, the log still open, and
// the log closes last.
TEST(Shutdown, PreferencesDisplayWindowThenTheLog) {
    static S order;
    MACIBM_log_open((test_temp_dir() + "Error.out").c_str());
    shutdown_set_step(SHUTDOWN_WINDOW, [] { order += MACIBM_log_is_open() ? "window " : "window(no log) "; });
    shutdown_set_step(SHUTDOWN_DISPLAY, [] { order += MACIBM_log_is_open() ? "display " : "display(no log) "; });
    shutdown_set_step(SHUTDOWN_PREFS, [] { order += MACIBM_log_is_open() ? "prefs " : "prefs(no log) "; });
    MACIBM_shutdown();
    EXPECT_EQ(order + (MACIBM_log_is_open() ? "log open" : "log closed"), "prefs display window log closed");
    shutdown_reset();
}
