// Folder listing: the type filter, hidden names, byte-wise order, the 1000-entry limit,
// long names and unreadable or unterminated work folders.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/test_files.h"
#include "util/file_types.h"
#include "util/folder_list.h"

namespace fs = std::filesystem;
using testing::ElementsAreArray;
using testing::ExitedWithCode;
using testing::HasSubstr;
using S = std::string;

class FolderList : public testing::Test {
protected:
    S dir = test_temp_dir();
    void SetUp() override {
        listing_reset();
        folders_fill(dir.c_str(), dir.c_str());  // the work folder starts as the program folder
    }
    void TearDown() override { fs::remove_all(dir); }
    void make(const std::vector<S>& names) {
        for (const S& n : names) {
            fs::create_directories(fs::path(dir + n).parent_path());
            if (n.back() != '/') test_write_file(dir, n, "x");
        }
    }
    // The listing as "name kind" rows.
    std::vector<S> rows(int32_t type) {
        int32_t n = list_folder(type);
        std::vector<S> r;
        for (int32_t i = 0; i < n; ++i) r.push_back(S(listing.name[i]) + " " + listing.kind[i]);
        return r;
    }
};

TEST_F(FolderList, FilterHiddenNamesAndOrder) {
    make({"B.acf", "a.ACF", "notes.txt", "Heavy/", ".cache", ".old.acf", ".git/", "ab", "Zulu.Acf", "x.wav",
          "route.FMS"});
    struct Row {
        int32_t type;
        std::vector<S> want;
    } table[] = {
        {FTYPE_AIRCRAFT, {"B.acf file", "Heavy fold", "Zulu.Acf file", "a.ACF file"}},
        {FTYPE_DATA,
         {"B.acf file", "Heavy fold", "Zulu.Acf file", "a.ACF file", "ab file", "notes.txt file", "route.FMS file",
          "x.wav file"}},
        {FTYPE_SAVED_GAME, rows(FTYPE_DATA)},
        {FTYPE_FMS_PLAN, {"Heavy fold", "route.FMS file"}},
        {FTYPE_SOUND, {"Heavy fold", "x.wav file"}},
        {FTYPE_PREFS, {"Heavy fold"}},  // a type without an extension lists folders only
        {-1, {"Heavy fold"}},
    };
    for (const Row& r : table) EXPECT_THAT(rows(r.type), ElementsAreArray(r.want)) << "type " << r.type;

    ASSERT_EQ(list_folder(FTYPE_AIRCRAFT), 4);
    EXPECT_EQ(S(listing.path[1]), dir + "Heavy/");
    EXPECT_EQ(S(listing.path[3]), dir + "a.ACF");
    EXPECT_EQ(std::vector<int>(listing.is_folder, listing.is_folder + 4), (std::vector<int>{0, 1, 0, 0}));
}

TEST_F(FolderList, KeepsTheFirst1000TheSystemHandsOver) {
    for (int i = 0; i < 1500; ++i) test_write_file(dir, "f" + std::to_string(i * 7919 % 1500) + ".acf", "");
    make({"skip.txt"});
    std::vector<S> first;  // what the system hands over, in its order, filter applied
    for (const auto& e : fs::directory_iterator(dir))
        if (S name = e.path().filename(); name.ends_with(".acf") && first.size() < 1000) first.push_back(name);
    std::sort(first.begin(), first.end());

    ASSERT_EQ(list_folder(FTYPE_AIRCRAFT), 1000);
    for (int i = 0; i < 1000; ++i) {
        ASSERT_EQ(S(listing.name[i]), first[i]) << i;
        ASSERT_EQ(S(listing.path[i]), dir + first[i]) << i;
    }
}

TEST_F(FolderList, LongNamesAreCutVisiblyWhilePathsStayWhole) {
    const S fits(39, 'f');
    const S long_a = S(45, 'L') + "-a.acf", long_b = S(45, 'L') + "-b.acf";  // alike in their first 39
    const S long_folder = "A folder whose name is far too long to show";
    make({long_b, long_a, fits, long_folder + "/"});
    ASSERT_EQ(list_folder(FTYPE_DATA), 4);
    struct Row {
        S shown, path;
    } want[] = {
        {long_folder.substr(0, 37) + "..", dir + long_folder + "/"},
        {S(37, 'L') + "..", dir + long_a},
        {S(37, 'L') + "..", dir + long_b},
        {fits, dir + fits},
    };
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(S(listing.name[i]), want[i].shown) << i;
        EXPECT_EQ(S(listing.path[i]), want[i].path) << i;
        EXPECT_TRUE(fs::exists(listing.path[i])) << i;
    }
}

TEST_F(FolderList, SuiteFormFoldersAndUnreadableOnes) {
    make({"Aircraft/Jets/Lear.acf", "Aircraft/Jets/Notes.txt"});
    str_join(dir.c_str(), "Aircraft:Jets:", work_folder());
    EXPECT_THAT(rows(FTYPE_AIRCRAFT), ElementsAreArray({"Lear.acf file"}));

    str_join(dir.c_str(), "Missing:", work_folder());
    EXPECT_EQ(list_folder(FTYPE_DATA), 0);
    make({"plain.acf"});
    str_join(dir.c_str(), "plain.acf/", work_folder());  // a file named as a folder
    EXPECT_EQ(list_folder(FTYPE_DATA), 0);
}

using FolderListDeathTest = FolderList;
TEST_F(FolderListDeathTest, WorkFolderWithoutItsSeparatorIsFatal) {
    str_join(dir.c_str(), "Aircraft", work_folder());
    EXPECT_EXIT(list_folder(FTYPE_AIRCRAFT), ExitedWithCode(0),
                HasSubstr("Working path does not appear to be a directory!"));
}
