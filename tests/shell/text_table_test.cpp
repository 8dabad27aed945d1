// The text file reader: entries by index, blanks kept and dropped, the end marker, its limits.
#include <cstring>
#include <map>

#include "tests/shell/shell_fixture.h"

using testing::ExitedWithCode;
using testing::HasSubstr;

class TextFile : public Shell {
protected:
    void read(const S& body) {
        strcpy(path, test_write_file(dir, "Vocalog.txt", body).c_str());
        text_file_read(path);
    }
    char path[500];
};
using TextFileDeathTest = TextFile;

TEST_F(TextFile, EntriesLandByIndexAndEverythingElseStaysEmpty) {
    const std::pair<S, std::map<int, S>> rows[] = {
        {"I\n1\n600\n\n\n602 OK\n-1\n", {{600, ""}, {602, "OK"}}},  // a number ending its line has no text
        {"A\n1 version\n5  \t two  words  \n-1\n", {{5, "two  words  "}}},
        {"I\r\n1\r\n699 last\r\n0 a|b\r\n-7\r\n700 never read\r\n", {{699, "last"}, {0, "a|b"}}},
        {"I\n1\n12 " + S(520, 'x') + "\n-1\n", {{12, S(499, 'x')}}},
    };
    for (const auto& [body, want] : rows) {
        text_table[42][0] = 'z';  // left over from an earlier file: reading empties the table
        read(body);
        for (int i = 0; i < TEXT_COUNT; ++i)
            ASSERT_EQ(S(text_table[i]), want.count(i) ? want.at(i) : S()) << "entry " << i << " of " << body;
    }
}

TEST_F(TextFileDeathTest, LimitsEndTheProgram) {
    const S rows[][4] = {
        {"I\n1\n700 x\n-1\n", "Too many text strings!", "", ""},
        {"I\n1\n4 first\n5 b\n4 again\n-1\n", "Duplicate string readin!", "I already have:", "first"},
        {"I\n1\n4 no end marker\n", "File-scanning error!", "", "file:"},
    };
    for (const auto& r : rows)
        EXPECT_EXIT(read(r[0]), ExitedWithCode(0), HasSubstr(test_alert_text(r[1], r[2], r[3], dir + "Vocalog.txt")));
    strcpy(path, (dir + "absent.txt").c_str());
    EXPECT_EXIT(text_file_read(path), ExitedWithCode(0),
                HasSubstr(test_alert_text("Could not open text file!", dir + "absent.txt", "", "")));
}
