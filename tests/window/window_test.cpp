// The display-mode match and the window without a display (refused, then the graphics failure),
// and the folder table the preference files are found through.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/stat.h>
#include <utility>

#include "platform/platform.h"
#include "base/shutdown.h"
#include "util/folders.h"
#include "window/window.h"
#include "tests/support/test_files.h"
#include "util/prefs.h"

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
    std::string dir = test_temp_dir();
    std::string text = test_alert_text(
        "I could not set up the graphics for Zephyra! I hope your monitor is at 1024x768 or higher! It must be!",
        "You do not meet the system requirements or you do not have OpenGL drivers or you entered a bad resolution "
        "in Zephyra!",
        "You need at least 256 meg of RAM, 16 meg of VRAM, and OpenGl drivers for your 3-D accelerator card!",
        "If you reset the resolution, you can try launching Zephyra again, since I am resetting Zephyra to default "
        "resolution now.");
    EXPECT_EXIT((folders_fill(dir.c_str(), dir.c_str()), prefs_init(folders.path[FOLDER_LANG_RES_PREFS]),
                 MACIBM_graphics_failure()), testing::ExitedWithCode(0), testing::HasSubstr(text));
    EXPECT_EQ(test_read_file(dir + "Corvane 6 Language & Res.prf"), std::string("i\x19\xfc\xff\xff", 5));
}

// The paths under the program folder are checked by the command-line tool's tests.
TEST(Folders, ThePerUserFolderIsMadeOnlyWhenAFileIsSavedThere) {
    std::string home = test_temp_dir(), before = getenv("XDG_DATA_HOME");
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
