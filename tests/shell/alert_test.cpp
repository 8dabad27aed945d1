// Alerts: the log, the message-box text, the kinds and the fatal end.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <unistd.h>

#include "shell/alert.h"
#include "shell/log.h"
#include "shell/shutdown.h"
#include "tests/support/test_files.h"

using testing::HasSubstr;

static std::string shown;
static void record_box(const char* const lines[4], int32_t) {
    char text[2100];
    alert_box_text(lines, text, sizeof text);
    shown = text;
}

class Alert : public testing::Test {
  protected:
    void SetUp() override {
        dir = test_temp_dir();
        MACIBM_log_open((dir + "Error.out").c_str());
        alert_set_box(record_box);
        shown.clear();
    }
    void TearDown() override {
        alert_set_box(nullptr);
        MACIBM_log_close();
    }
    std::string log() { return test_read_file(dir + "Error.out"); }
    std::string dir;
};

TEST_F(Alert, NoteIsLoggedAndShownJoined) {
    MACIBM_alert(0, "A", "", "", "B", ALERT_NOTE);
    EXPECT_EQ(shown, "A\n\n\n\n\n\nB");
    EXPECT_EQ(log(), "A\n\n\nB\n");
}

TEST_F(Alert, AboutReplacesThreeLinesAndIsNotLogged) {
    MACIBM_alert(0, "x", "y", "z", "w", ALERT_ABOUT);
    EXPECT_THAT(shown, HasSubstr("Vocalog"));
    EXPECT_THAT(shown, testing::EndsWith("\n\nw"));
    EXPECT_EQ(log(), "");
}

TEST_F(Alert, LongLinesAreCutTo499) {
    std::string l(700, 'k');
    MACIBM_alert(0, l.c_str(), "", "", "", ALERT_NOTE);
    EXPECT_EQ(log(), std::string(499, 'k') + "\n\n\n\n");
}

TEST(Progress, NothingBeforeAScreen) {
    MACIBM_progress("Scanning airports.");  // no hook: draws nothing, returns
    static std::string seen;
    progress_set([](const char* m) { seen = m; });
    MACIBM_progress("Scanning airports.");
    progress_set(nullptr);
    EXPECT_EQ(seen, "Scanning airports.");
}

static int steps_run = 0;
TEST(AlertDeathTest, FatalRunsShutdownAndExitsZero) {
    std::string dir = test_temp_dir();
    EXPECT_EXIT(
        {
            MACIBM_log_open((dir + "Error.out").c_str());
            shutdown_add_step([] {
                ++steps_run;
                fprintf(stderr, "shutdown step ran, quit=%d\n", quit_requested);
            });
            MACIBM_alert(0, "A", "", "", "B", ALERT_FATAL);
            fprintf(stderr, "returned\n");
        },
        testing::ExitedWithCode(0), HasSubstr("A\n\n\n\n\n\nB\nshutdown step ran, quit=1\n"));
    EXPECT_EQ(test_read_file(dir + "Error.out"), "A\n\n\nB\n");
}

TEST(AlertDeathTest, FrontEndCanEndDifferently) {
    EXPECT_EXIT(
        {
            alert_set_fatal_end([] { _exit(1); });
            MACIBM_alert(0, "x", "", "", "", ALERT_FATAL);
        },
        testing::ExitedWithCode(1), HasSubstr("x\n"));
}
