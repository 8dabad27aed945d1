// The display-mode match and the window without a display (refused, then the graphics failure),
// and the folder table the preference files are found through.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>

#include "base/shutdown.h"
#include "platform/platform.h"
#include "tests/support/test_files.h"
#include "util/folders.h"
#include "util/prefs.h"
#include "window/window.h"

TEST(Window, ModeMatchAndNoSwitchWithoutOne) {
    const uint32_t all = PLAT_MODE_WIDTH | PLAT_MODE_HEIGHT | PLAT_MODE_BITS;
    struct { float w, h, bits; PlatDisplayMode mode; int32_t fits; } rows[] = {
        {1024, 768, 16, {all, 1024, 768, 16, 60}, 1}, {1024, 768, 16, {all, 1024, 768, 16, 0}, 1},
        {1024, 768, 32, {all, 1024, 768, 16, 60}, 0}, {1023.9f, 768, 16, {all, 1023, 768, 16, 60}, 0},
        {1000, 700, 16, {all, 1024, 768, 16, 60}, 0}, {1024, 768, 16, {all & ~PLAT_MODE_BITS, 1024, 768, 16, 60}, 0}};
    for (auto& r : rows) {
        disp_width = r.w, disp_height = r.h, disp_bits = r.bits;
        EXPECT_EQ(window_mode_fits(&r.mode), r.fits) << r.w << " " << r.bits << " " << r.mode.fields;
    }
    for (int32_t fs : {0, 1}) {  // the windowless layer lists no mode: nothing to switch, and 1
        full_screen = fs;
        EXPECT_EQ((std::pair{MACIBM_set_fullscreen(1), MACIBM_set_fullscreen(0)}), std::pair(1, 1));
    }
    window_reset();
    EXPECT_EQ((std::pair{MACIBM_open_window(), window_created}), std::pair(0, 0));
}

// The language-and-resolution file becomes a bare version -999 header, which the shut-down
// does not write over, and the fatal alert ends the program.
TEST(WindowDeathTest, GraphicsFailureResetsThePreferencesAndEnds) {
    const std::string dir = test_temp_dir();
    EXPECT_EXIT((folders_fill(dir.c_str(), dir.c_str()), prefs_init(folders.path[FOLDER_LANG_RES_PREFS]),
                 MACIBM_graphics_failure()), testing::ExitedWithCode(0),
                testing::HasSubstr("I could not set up the graphics for Zephyra!"));
    EXPECT_EQ(test_read_file(dir + "Corvane 6 Language & Res.prf"), std::string("i\x19\xfc\xff\xff", 5));
}

// The paths under the program folder are checked by the command-line tool's tests.
TEST(Folders, ThePerUserFolderIsMadeOnlyWhenAFileIsSavedThere) {
    const std::string home = test_temp_dir(), before = getenv("XDG_DATA_HOME");
    setenv("XDG_DATA_HOME", (home + "data").c_str(), 1);
    ASSERT_EQ(folders_init(), 1);
    setenv("XDG_DATA_HOME", before.c_str(), 1);
    struct stat st{};
    EXPECT_NE(stat((home + "data/Zephyra").c_str(), &st), 0);  // reading leaves no trace
    EXPECT_EQ(std::string(folders.path[FOLDER_SIM_PREFS]), home + "data/Zephyra/Corvane 6 Zephyra.prf");
    EXPECT_NE(std::string(folders.path[FOLDER_PROGRAM]), "");
    prefs_init(folders.path[FOLDER_LANG_RES_PREFS]);
    prefs_write_lang_res();
    EXPECT_EQ(stat(folders.path[FOLDER_LANG_RES_PREFS], &st), 0);
    shutdown_reset();
}
