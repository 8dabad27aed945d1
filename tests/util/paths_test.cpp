// Paths: only the suite part after the program's or the user's folder changes form.
#include <gmock/gmock.h>

#include <filesystem>

#include "tests/support/test_files.h"

#include "util/file_reader.h"
#include "util/paths.h"
#include "util/text.h"

TEST(Paths, TheHostFolderKeepsItsCharacters) {
    path_set_roots("/home/ann/Flight: 2025/", "/home/ann/.local/share/Zephyra/");
    const struct { const char* in; const char* out; } rows[] = {
        {"/home/ann/Flight: 2025/Resources:Earth nav data:apt.dat", "/home/ann/Flight: 2025/Resources/Earth nav data/apt.dat"},
        {"/home/ann/Flight: 2025/metar.rwx", "/home/ann/Flight: 2025/metar.rwx"},
        {"/home/ann/.local/share/Zephyra/Sub:a.prf", "/home/ann/.local/share/Zephyra/Sub/a.prf"},
        {"/home/ann/Flight: 2025/Aircraft/a:b.acf", "/home/ann/Flight: 2025/Aircraft/a:b.acf"},  // a host path already
        {"a:b.acf", "a:b.acf"},                                                                     // outside both folders
        {"/home/ann/Flight: 2026/Aircraft:x.acf", "/home/ann/Flight: 2026/Aircraft:x.acf"},
    };
    for (const auto& r : rows) {
        Text p;
        str_copy(r.in, p);
        path_to_platform(p);
        EXPECT_STREQ(p, r.out) << r.in;
    }
    Text opened;  // the reader opens the converted path and leaves it in the buffer
    str_copy("/home/ann/Flight: 2025/Resources:none.dat", opened);
    EXPECT_EQ(fio_open(opened, 0, 0, 0), 0);
    EXPECT_STREQ(opened, "/home/ann/Flight: 2025/Resources/none.dat");
    path_set_roots("", "");
}

TEST(Paths, ResourceNamesAreFoundCaseBlindBelowTheProgramFolder) {
    const std::string root = test_temp_dir() + "Sim/";
    std::filesystem::create_directories(root + "Resources/Menus/ENGLISH");
    test_write_file(root + "Resources/Menus/ENGLISH/", "VOCALOG.txt", "I\n1 version\nFile\n");
    test_write_file(root + "Resources/Menus/ENGLISH/", "vocalog.TXT", "");  // two answer: byte order picks
    test_write_file(root, "a.bmp", "");
    path_set_roots(root.c_str(), "");
    const struct { std::string in, out; int32_t found; } rows[] = {
        {root + "Resources/menus/English/Vocalog.txt", root + "Resources/Menus/ENGLISH/VOCALOG.txt", 1},
        {root + "Resources/Menus/ENGLISH/vocalog.TXT", root + "Resources/Menus/ENGLISH/vocalog.TXT", 1},
        {root + "A.BMP", root + "a.bmp", 1},
        {root + "Resources/menus/none.txt", root + "Resources/menus/none.txt", 0},
        {root + "resources/", root + "Resources/", 1},
        {root.substr(0, root.size() - 4) + "SIM/a.bmp", root.substr(0, root.size() - 4) + "SIM/a.bmp", 0},  // above
    };
    for (const auto& r : rows) {
        Text p;
        str_copy(r.in.c_str(), p);
        EXPECT_EQ(path_find_case_blind(p), r.found) << r.in;
        EXPECT_EQ(p, r.out);
    }
    Text suite;  // the data-file reader finds the menu file as another system spelled it
    str_copy((root + "RESOURCES:MENUS:english:vocalog.txt").c_str(), suite);
    EXPECT_EQ(fio_open(suite, 0, 1, 0), 1);
    EXPECT_EQ(std::string(suite), root + "Resources/Menus/ENGLISH/VOCALOG.txt");
    fio_close();
    path_set_roots("", "");
}
