// The display-mode switch and window without a display: the windowless layer refuses a window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/alert.h"
#include "shell/folders.h"
#include "shell/shutdown.h"
#include "shell/window.h"
#include "tests/support/test_files.h"
#include "util/prefs.h"

namespace {

TEST(Window, FullScreenOffOrNoMatchingModeLeavesTheDisplay) {
    for (int32_t fs : {0, 1}) {
        full_screen = fs;
        EXPECT_EQ(MACIBM_set_fullscreen(1), 1);
        EXPECT_EQ(MACIBM_set_fullscreen(0), 1);
    }
}

TEST(Window, WithoutADisplayTheWindowCannotOpen) {
    window_reset();
    EXPECT_EQ(MACIBM_open_window(), 0);
    EXPECT_EQ(window_created, 0);
}

// The failure rewrites the language-and-resolution file as a bare version -999 header,
// which the shut-down does not overwrite, and ends with the fatal alert.
TEST(Window, GraphicsFailureResetsThePreferencesAndEnds) {
    std::string dir = test_temp_dir();
    std::string prefs = dir + "Corvane 6 Language & Res.prf";
    EXPECT_EXIT(
        {
            folders_fill(dir.c_str(), dir.c_str());
            prefs_init(folders.path[FOLDER_LANG_RES_PREFS]);
            MACIBM_graphics_failure();
        },
        testing::ExitedWithCode(0),
        testing::HasSubstr("I could not set up the graphics for Zephyra! I hope your monitor is at 1024x768 or "
                           "higher! It must be!"));
    EXPECT_EQ(test_read_file(prefs), std::string("i\x19\xfc\xff\xff", 5));
}

}  // namespace
