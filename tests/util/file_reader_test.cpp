// The data-file reader: headers, line ends, byte orders, field reads and scan failures.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "tests/support/test_files.h"
#include "util/file_reader.h"
#include "util/paths.h"

using testing::HasSubstr;

class FileReader : public testing::Test {
  protected:
    void SetUp() override {
        fio_reset();
        dir = test_temp_dir();
    }
    void TearDown() override { fio_reset(); }
    // Opens bytes written to a fresh file; the path buffer stays alive for labels.
    int32_t open(const std::string& bytes, int32_t type, int32_t version, int32_t warn = 0) {
        std::string p = test_write_file(dir, "f" + std::to_string(++n), bytes);
        strcpy(path, p.c_str());
        return fio_open(path, type, version, warn);
    }
    std::string dir;
    char path[500];
    int n = 0;
};

TEST_F(FileReader, TextHeaderOnEveryLineEnd) {
    struct Row { const char* eol; char want; } rows[] = {{"\n", '\n'}, {"\r\n", '\n'}, {"\r", '\r'}};
    for (auto& r : rows) {
        std::string e = r.eol;
        ASSERT_EQ(open("I" + e + "600 a note  " + e + "1 5355 1 0 KABQ Albuquerque Intl" + e + "99" + e, 0, 600), 1)
            << "eol " << (int)r.want;
        EXPECT_EQ(fio_eol, r.want);
        EXPECT_STREQ(fio_line_buf, "a note  ");
        EXPECT_EQ(fio_read_int("code"), 1);
        EXPECT_FLOAT_EQ(fio_read_flt("elev"), 5355.f);
        EXPECT_EQ(fio_read_int("twr"), 1);
        EXPECT_EQ(fio_read_int("bld"), 0);
        char word[5];
        fio_read_word(word, 5);
        EXPECT_STREQ(word, "KABQ");
        char line[40];
        fio_read_line(line, 40);
        EXPECT_STREQ(line, "Albuquerque Intl");
        EXPECT_EQ(fio_read_int("end"), 99);
        fio_close();
    }
}

TEST_F(FileReader, OpenFailsQuietly) {
    EXPECT_EQ(open("", 0, 600), 0);                       // empty
    EXPECT_EQ(open("X\n600\n", 0, 600), 0);               // wrong marker
    EXPECT_EQ(open("I\n601\n", 0, 600, 0), 0);            // wrong version, warn 0
    EXPECT_EQ(open("a\x00\x00", 3, 600), 0);              // ends inside the header
    EXPECT_EQ(open("i", 20, 0), 1);                       // no version asked
    char missing[] = "/nonexistent:folder:file";
    EXPECT_EQ(fio_open(missing, 0, 0, 0), 0);
    EXPECT_STREQ(missing, "/nonexistent/folder/file");
    EXPECT_EQ(open("IX", 0, 0), 1);                       // the character after the marker is the line end
    EXPECT_EQ(fio_eol, 'X');
}

TEST_F(FileReader, BinaryByteOrders) {
    std::string be = std::string("a") + std::string("\x00\x00\x02\x58", 4) + std::string("\x3f\x80\x00\x00", 4) +
                     std::string("\xff\xff\xff\xfe", 4);
    ASSERT_EQ(open(be, 3, 600), 1);
    EXPECT_EQ(fio_swap, 1);
    EXPECT_FLOAT_EQ(fio_read_flt("f"), 1.0f);
    EXPECT_EQ(fio_read_int("i"), -2);
    std::string le = std::string("i") + std::string("\x58\x02\x00\x00", 4) + std::string("\x00\x00\x80\x3f", 4);
    ASSERT_EQ(open(le, 20, 600), 1);
    EXPECT_EQ(fio_swap, 0);
    EXPECT_FLOAT_EQ(fio_read_flt("f"), 1.0f);
    char raw[3];
    fio_read_bytes(raw, 3);  // past the end: the stream fails, which a number read reports
    EXPECT_FALSE(fs_good(fio_stream()));
    unsigned char w[4] = {1, 2, 3, 4};
    fio_swap4(w);
    EXPECT_EQ(w[0], 4);
    EXPECT_EQ(w[3], 1);
    EXPECT_EQ(open(le, 3, 601), 0);
}

TEST_F(FileReader, WordsLinesAndChars) {
    ASSERT_EQ(open("I\n  KSFO 123\nABCDEFG X\n   two words  \n 0 8x 26R\nlast", 0, 0), 1);
    char w[5];
    fio_read_word(w, 5);
    EXPECT_STREQ(w, "KSFO");
    EXPECT_EQ(fio_read_int("n"), 123);
    fio_read_word(w, 5);
    EXPECT_STREQ(w, "ABCD");
    fio_read_word(w, 5);
    EXPECT_STREQ(w, "X");
    char line[100];  // the word took its line end with it
    fio_read_line(line, 100);
    EXPECT_STREQ(line, "two words  ");
    char num[4] = {fio_read_char(), fio_read_char(), fio_read_char(), 0};
    EXPECT_STREQ(num, "08x");
    fio_read_line(line, 3);  // longer than size: the rest is dropped
    EXPECT_STREQ(line, "26");
    fio_read_line(line, 100);
    EXPECT_STREQ(line, "last");
    fio_read_line(line, 100);
    EXPECT_STREQ(line, "");
}

TEST_F(FileReader, NumbersAsAStreamReadsThem) {
    ASSERT_EQ(open("I\n-12 +7 1.5e3 -.25 7e 3x 2147483647", 0, 0), 1);
    EXPECT_EQ(fio_read_int("a"), -12);
    EXPECT_EQ(fio_read_int("b"), 7);
    EXPECT_FLOAT_EQ(fio_read_flt("c"), 1500.f);
    EXPECT_FLOAT_EQ(fio_read_flt("d"), -0.25f);
    // "7e" takes the e and then fails, like a standard stream: checked in the death test.
    FileStream* s = fio_stream();
    float f;
    EXPECT_FALSE(fs_read_float(s, &f));
}

TEST_F(FileReader, IntegerRangeEdges) {
    ASSERT_EQ(open("I\n2147483647 -2147483648 000000000000000000000042 2147483648", 0, 0), 1);
    EXPECT_EQ(fio_read_int("a"), 2147483647);
    EXPECT_EQ(fio_read_int("b"), -2147483647 - 1);
    EXPECT_EQ(fio_read_int("c"), 42);  // long runs of leading zeros take the general path
    int32_t v;
    EXPECT_FALSE(fs_read_int(fio_stream(), &v));
    EXPECT_EQ(v, 2147483647);
}

TEST_F(FileReader, NumberEndingTheDataIsGood) {
    ASSERT_EQ(open("I\n99", 0, 0), 1);
    EXPECT_EQ(fio_read_int("x"), 99);
    EXPECT_TRUE(fio_stream()->state & FS_EOF);
    ASSERT_EQ(open("I\n7\n" + std::string(300000, ' ') + "123456 8", 0, 0), 1);  // across blocks
    EXPECT_EQ(fio_read_int("x"), 7);
    EXPECT_EQ(fio_read_int("x"), 123456);
    EXPECT_EQ(fio_read_int("x"), 8);
}

TEST_F(FileReader, NumbersAcrossBlockEdges) {
    // Every position of a number relative to the block edge parses the same.
    for (size_t pad : {FS_BLOCK - 3, FS_BLOCK - 2, FS_BLOCK - 1, FS_BLOCK}) {
        ASSERT_EQ(open("I\n" + std::string(pad - 2, ' ') + "-1234.5e-1 \r\n42", 0, 0), 1);
        EXPECT_FLOAT_EQ(fio_read_flt("x"), -123.45f) << pad;
        EXPECT_EQ(fio_read_int("y"), 42) << pad;
    }
}

class FileReaderDeathTest : public FileReader {};

TEST_F(FileReaderDeathTest, ScanFailures) {
    struct Row { std::string body; } rows[] = {
        {"1.5 2"},   // the fraction is left for the next integer read
        {"12 KSFO"}, // a word where a number belongs
        {"12"},      // the data ends
        {"7e"},      // an exponent without digits
        {"-"},
        {"99999999999"},  // out of range
    };
    for (auto& r : rows) {
        ASSERT_EQ(open("I\n" + r.body, 0, 0), 1);
        EXPECT_EXIT(
            {
                fio_read_int("scan rwy rwy_code");
                fio_read_int("scan rwy rwy_code");
            },
            testing::ExitedWithCode(0), HasSubstr(test_alert_text("File-scanning error!", "", "file:", "scan rwy rwy_code")))
            << r.body;
    }
}

TEST_F(FileReaderDeathTest, VersionFailuresWithWarn) {
    EXPECT_EXIT(open("I\n601 x\n", 0, 600, 1), testing::ExitedWithCode(0),
                HasSubstr("The following file is the wrong version for this version of Zephyra:\n\n" + dir));
    EXPECT_EXIT(open(std::string("i\x01\x00\x00\x00", 5), 3, 600, 1), testing::ExitedWithCode(0),
                HasSubstr("You MAY be able to get the aircraft up to date by opening it and re-saving it in Hullwright."));
    EXPECT_EXIT(open("I\nabc\n", 0, 600, 1), testing::ExitedWithCode(0), HasSubstr("File-scanning error!\n\n\n\nfile:\n\n" + dir));
    fio_cur_slot = 2;
    EXPECT_EXIT(open("I\n", 0, 0), testing::ExitedWithCode(0), HasSubstr("Bad file-use index!"));
    fio_cur_slot = 0;
}

TEST(Paths, SuiteFormToPlatform) {
    struct Row { const char* in; const char* out; } rows[] = {
        {"/sim/Resources:Earth nav data:apt.dat", "/sim/Resources/Earth nav data/apt.dat"},
        {"C:Data:apt.dat", "C:Data/apt.dat"},
        {"::a:b", "::a/b"},
    };
    for (auto& r : rows) {
        char p[100];
        strcpy(p, r.in);
        path_to_platform(p);
        EXPECT_STREQ(p, r.out);
    }
}

// Every float read must equal the standard library's conversion of the same text, on the
// fast path (short decimals) and the general one (long mantissas, big exponents, tiny values).
TEST_F(FileReader, FloatsMatchStandardConversion) {
    std::string text = "I\n";
    std::vector<std::string> tokens;
    uint32_t x = 7;
    auto next = [&] { return x = x * 1103515245u + 12345u; };
    for (int i = 0; i < 20000; ++i) {
        std::string t = (next() >> 16) % 3 == 0 ? "-" : "";
        int int_digits = (int)((next() >> 16) % 12), frac_digits = (int)((next() >> 16) % 12);
        for (int d = 0; d < int_digits; ++d) t += (char)('0' + (next() >> 16) % 10);
        if (frac_digits || int_digits == 0) {
            t += '.';
            for (int d = 0; d < frac_digits + (int_digits == 0); ++d) t += (char)('0' + (next() >> 16) % 10);
        }
        if ((next() >> 16) % 4 == 0) t += "e" + std::to_string((int)((next() >> 16) % 90) - 45);
        tokens.push_back(t);
        text += t + ((i % 7) ? " " : "\r\n");
    }
    tokens.push_back("0.000000000000000000000000000000000000000000001");  // a tiny value
    text += tokens.back() + "\n";
    ASSERT_EQ(open(text, 0, 0), 1);
    for (auto& t : tokens) {
        float want = strtof(t.c_str(), nullptr);
        ASSERT_EQ(fio_read_flt("x"), want) << t;
    }
}
