// Paths: only the suite part after the program's or the user's folder changes form.
#include <gmock/gmock.h>

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
