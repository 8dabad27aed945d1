// The folder table: entries from the program and per-user folders.
#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/stat.h>

#include "shell/folders.h"
#include "tests/support/test_files.h"

TEST(Folders, InitCreatesThePerUserFolder) {
    std::string home = test_temp_dir();
    setenv("XDG_DATA_HOME", (home + "data").c_str(), 1);
    EXPECT_EQ(folders_init(), 1);
    EXPECT_EQ(std::string(folders.path[FOLDER_SIM_PREFS]), home + "data/Zephyra/Corvane 6 Zephyra.prf");
    struct stat st{};
    EXPECT_EQ(stat((home + "data/Zephyra").c_str(), &st), 0);
    EXPECT_EQ(std::string(folders.path[FOLDER_EARTH_NAV]), std::string(folders.path[FOLDER_PROGRAM]) + "Resources:Earth nav data:");
    EXPECT_NE(folders.path[FOLDER_PROGRAM][0], 0);
}
