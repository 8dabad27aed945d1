// The text file reader: entries by index, blanks kept and dropped, the end marker, its limits.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <string>

#include "shell/text_table.h"
#include "tests/support/test_files.h"
#include "util/file_reader.h"

using testing::ExitedWithCode;
using testing::HasSubstr;
using S = std::string;

class TextFile : public testing::Test {
  protected:
    void SetUp() override { fio_reset(), text_table_reset(); }
    void read(const S& body) {
        strcpy(path, test_write_file(dir, "Vocalog.txt", body).c_str());
        text_file_read(path);
    }
    S dir = test_temp_dir();
    char path[500];
};
using TextFileDeathTest = TextFile;

TEST_F(TextFile, EntriesLandByIndexAndEverythingElseStaysEmpty) {
    struct Row {
        S body;
        std::map<int, S> want;
    } rows[] = {
        {"I\n1\n600\n602 OK\n-1\n", {{600, ""}, {602, "OK"}}},  // a number ending its line gets no text
        {"A\n1 version\n600   Warning\n\n\n602\tOK\n-1\n", {{600, "Warning"}, {602, "OK"}}},
        {"I\n1\n5    two  words  \n-1\n", {{5, "two  words  "}}},
        {"I\r\n1\r\n699 last\r\n3\r\n0 a|b\r\n-7\r\n700 never read\r\n", {{699, "last"}, {3, ""}, {0, "a|b"}}},
        {"I\n1\n12 " + S(520, 'x') + "\n-1\n", {{12, S(499, 'x')}}},
    };
    for (const Row& r : rows) {
        text_table[42][0] = 'z';  // left over from an earlier file: reading empties the table
        read(r.body);
        for (int i = 0; i < TEXT_COUNT; ++i) {
            auto it = r.want.find(i);
            ASSERT_EQ(S(text_table[i]), it == r.want.end() ? S() : it->second) << "entry " << i << " of " << r.body;
        }
    }
}

TEST_F(TextFileDeathTest, LimitsEndTheProgram) {
    struct Row {
        S body, l1, l2, l3;
        bool path_last;
    } rows[] = {
        {"I\n1\n700 x\n-1\n", "Too many text strings!", "", "", true},
        {"I\n1\n4 first\n5 b\n4 again\n-1\n", "Duplicate string readin!", "I already have:", "first", true},
        {"I\n1\n4 no end marker\n", "File-scanning error!", "", "file:", true},
        {"I\n2\n4 x\n-1\n", "The following file is the wrong version for this version of Zephyra:", "", "", false},
    };
    for (const Row& r : rows) {
        if (r.path_last)
            EXPECT_EXIT(read(r.body), ExitedWithCode(0), HasSubstr(test_alert_text(r.l1, r.l2, r.l3, dir + "Vocalog.txt")));
        else
            EXPECT_EXIT(read(r.body), ExitedWithCode(0), HasSubstr(r.l1 + "\n\n" + dir + "Vocalog.txt"));
    }
    strcpy(path, (dir + "absent.txt").c_str());
    EXPECT_EXIT(text_file_read(path), ExitedWithCode(0),
                HasSubstr(test_alert_text("Could not open text file!", dir + "absent.txt", "", "")));
}
