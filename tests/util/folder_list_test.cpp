// Folder listing: the type filter, hidden names, byte-wise order, the 1000-entry limit, long
// names, and unreadable or unterminated work folders.
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>

#include "tests/support/test_files.h"
#include "util/file_types.h"
#include "util/folder_list.h"

namespace fs = std::filesystem;
using testing::ElementsAreArray;
using S = std::string;

class FolderList : public testing::Test {
protected:
    S dir = test_temp_dir();
    void SetUp() override { listing_reset(), folders_fill(dir.c_str(), dir.c_str()); }  // work folder: dir
    void TearDown() override { fs::remove_all(dir); }
    void make(const std::vector<S>& names) {
        for (const S& n : names) {
            fs::create_directories(fs::path(dir + n).parent_path());
            if (n.back() != '/') test_write_file(dir, n, "x");
        }
    }
    std::vector<S> rows(int32_t type) {  // "name kind path-past-dir"
        std::vector<S> r;
        for (int32_t i = 0, n = list_folder(type); i < n; ++i)
            r.push_back(S(listing.name[i]) + " " + listing.kind[i] + " " + (listing.path[i] + dir.size()));
        return r;
    }
};

TEST_F(FolderList, FilterHiddenNamesAndOrder) {
    make({"B.acf", "a.ACF", "notes.txt", "Heavy/", ".cache", ".old.acf", ".git/", "ab", "route.FMS"});
    const std::vector<S> all = {"B.acf file B.acf", "Heavy fold Heavy/", "a.ACF file a.ACF", "ab file ab",
                                "notes.txt file notes.txt", "route.FMS file route.FMS"};
    EXPECT_THAT(rows(FILE_TYPE_AIRCRAFT), ElementsAreArray({all[0], all[1], all[2]}));
    EXPECT_THAT(rows(FILE_TYPE_TEXT), ElementsAreArray(all));
    EXPECT_THAT(rows(FILE_TYPE_FLIGHT_PLAN), ElementsAreArray({all[1], all[5]}));
    EXPECT_THAT(rows(FILE_TYPE_PREFS), ElementsAreArray({all[1]}));  // no extension of its own: folders only
}

TEST_F(FolderList, KeepsTheFirst1000TheSystemHandsOver) {
    for (int i = 0; i < 1500; ++i) test_write_file(dir, "f" + std::to_string(i * 7919 % 1500) + ".acf", "");
    std::vector<S> want;  // the system's first 1000, sorted
    for (const auto& e : fs::directory_iterator(dir)) want.push_back(S(e.path().filename()) + " file " + S(e.path().filename()));
    want.resize(1000);
    std::sort(want.begin(), want.end());
    EXPECT_THAT(rows(FILE_TYPE_AIRCRAFT), ElementsAreArray(want));
}

TEST_F(FolderList, LongNamesAreCutVisiblyWhilePathsStayWhole) {
    const S a = S(45, 'L') + "-a.acf", b = S(45, 'L') + "-b.acf", fits(39, 'f');  // a and b alike in their first 39
    const S folder = "A folder whose name is far too long to show";
    make({b, a, fits, folder + "/"});
    EXPECT_THAT(rows(FILE_TYPE_TEXT), ElementsAreArray({folder.substr(0, 37) + ".. fold " + folder + "/",
                                                    S(37, 'L') + ".. file " + a, S(37, 'L') + ".. file " + b,
                                                    fits + " file " + fits}));
}

// A work folder in the suite's form, none, a file named as one, and one without its separator.
TEST_F(FolderList, SuiteFormFoldersAndUnreadableOnes) {
    make({"Aircraft/Jets/Lear.acf", "Aircraft/Jets/Notes.txt", "plain.acf"});
    for (auto [folder, want] : {std::pair<S, int>{"Aircraft:Jets:", 1}, {"Missing:", 0}, {"plain.acf/", 0}}) {
        str_join(dir.c_str(), folder.c_str(), work_folder());
        EXPECT_EQ(list_folder(FILE_TYPE_AIRCRAFT), want) << folder;
        EXPECT_EQ(S(want ? listing.path[0] : ""), want ? dir + "Aircraft:Jets:Lear.acf" : "") << folder;
    }
    str_join(dir.c_str(), "Aircraft", work_folder());
    EXPECT_EXIT(list_folder(FILE_TYPE_AIRCRAFT), testing::ExitedWithCode(0),
                testing::HasSubstr("Working path does not appear to be a directory!"));
}
