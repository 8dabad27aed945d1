// The data-file reader: headers, line ends, byte orders, field reads, stream states, scan failures.
#include <gmock/gmock.h>

#include <cstring>
#include <string>
#include <tuple>
#include <vector>

#include "tests/support/test_files.h"
#include "util/file_reader.h"

using testing::ExitedWithCode;
using testing::HasSubstr;
using S = std::string;
using Strings = std::vector<S>;

static S word(int32_t size) { char b[40]; fio_read_word(b, size); return b; }
static S line(int32_t size) { char b[40]; fio_read_line(b, size); return b; }

class FileReader : public testing::Test {
  protected:
    void SetUp() override { fio_reset(); }
    // Opens the bytes written to a fresh file; `path` stays alive for the labels.
    int32_t open(const S& bytes, int32_t type, int32_t version, int32_t warn = 0) {
        strcpy(path, test_write_file(dir, "f" + std::to_string(++n), bytes).c_str());
        return fio_open(path, type, version, warn);
    }
    S dir = test_temp_dir();
    char path[500];
    int n = 0;
};
using FileReaderDeathTest = FileReader;

TEST_F(FileReader, TextFilesOnEveryLineEnd) {
    for (S e : {"\n", "\r\n", "\r"}) {
        ASSERT_EQ(open("I" + e + "600 a note  " + e + " 1 5355.5 KABQ Albuquerque Intl" + e + "ABCDEFG X" + e +
                           "   two words  " + e + "26R" + e + "last", FILE_TYPE_TEXT, 600), 1);
        EXPECT_EQ(fio_eol, e == "\r" ? '\r' : '\n');
        EXPECT_STREQ(fio_line_buf, "a note  ");
        EXPECT_EQ(fio_read_int("code"), 1);
        EXPECT_EQ(fio_read_flt("elev"), 5355.5f);
        // A long word keeps its first size - 1 characters; a word takes its delimiter with it;
        // a line drops its leading blanks and the rest past size - 1; the last has no line end.
        EXPECT_EQ((Strings{word(5), line(40), word(5), word(5), line(40), line(3), line(40), line(40)}),
                  (Strings{"KABQ", "Albuquerque Intl", "ABCD", "X", "two words  ", "26", "last", ""}));
    }
}

TEST_F(FileReader, OpenFailsQuietly) {
    // Empty files, a wrong marker or version (warn 0; binary ones in the aircraft tests), cut headers.
    const int32_t T = FILE_TYPE_TEXT;
    for (auto [bytes, type, version] :
         {std::tuple<S, int, int>{"", T, 0}, {"", FILE_TYPE_PREFS, 0}, {"X\n600\n", T, 600}, {"I\n601\n", T, 600},
          {"I", T, 0}, {"I\n", T, 600}, {"I\n \n", T, 600}, {S("a\0\0", 3), FILE_TYPE_AIRCRAFT, 600}})
        EXPECT_EQ(open(bytes, type, version), 0) << bytes;
    ASSERT_EQ(open("IXab\rcdXef gh", FILE_TYPE_TEXT, 0), 1);  // the character after the marker is the line end
    EXPECT_EQ(fio_eol, 'X');
    EXPECT_EQ((Strings{line(40), line(40), word(5)}), (Strings{"ab", "cd", "ef"}));  // a CR always ends a line
}

// Raw byte reads, fio_swap4 and the fio_swap flag on their own are checked by the aircraft tests.
TEST_F(FileReader, BinaryByteOrders) {
    ASSERT_EQ(open(S("a\0\0\x02\x58\x3f\x80\0\0\xff\xff\xff\xfe", 13), FILE_TYPE_AIRCRAFT, 600), 1);
    EXPECT_EQ((std::pair{fio_read_flt("f"), fio_read_int("i")}), std::pair(1.0f, -2));  // braces: in order
    ASSERT_EQ(open(S("i\x58\x02\0\0\0\0\x80\x3f\x01\x02\x03", 12), FILE_TYPE_PREFS, 600), 1);
    EXPECT_EQ(fio_read_flt("f"), 1.0f);
    unsigned char raw[4];
    fio_read_bytes(raw, 4);  // past the end: the stream fails
    EXPECT_FALSE(fs_good(fio_stream()));
    EXPECT_EQ(open("i", FILE_TYPE_PREFS, 0), 1);  // no version asked
}

TEST_F(FileReader, NumbersAsAStreamReadsThem) {
    ASSERT_EQ(open("I\n-12 +7 1.5e3 -.25 2147483647 -2147483648 000000000000000000000042\n 0 8x 99", FILE_TYPE_TEXT,
                   0), 1);
    auto i = [] { return (double)fio_read_int("i"); };
    EXPECT_EQ((std::vector<double>{i(), i(), fio_read_flt("f"), fio_read_flt("f"), i(), i(), i()}),
              (std::vector<double>{-12, 7, 1500, -0.25, 2147483647, -2147483648.0, 42}));
    EXPECT_EQ((S{fio_read_char(), fio_read_char(), fio_read_char()}), "08x");
    EXPECT_EQ(fio_read_int("i"), 99);  // a number that ends the data: end of data, not failed
    EXPECT_EQ(fio_stream()->state, FS_EOF);
    for (size_t pad : {FS_BLOCK - 3, FS_BLOCK - 2, FS_BLOCK - 1, FS_BLOCK}) {  // across the reader's blocks
        ASSERT_EQ(open("I\n" + S(pad - 2, ' ') + "-1234.5e-1 \r\n42", FILE_TYPE_TEXT, 0), 1);
        EXPECT_EQ(fio_read_flt("x"), -123.45f) << pad;
        EXPECT_EQ(fio_read_int("y"), 42) << pad;
    }
}

// Floats equal the standard conversion of the same text, short decimals and long, tiny values
// included; a float past the largest fails as a stream's read does.
TEST_F(FileReader, FloatsMatchTheStandardConversion) {
    S text = "I\n";
    Strings tokens;
    uint32_t x = 7;
    auto next = [&] { return (x = x * 1103515245u + 12345u) >> 16; };
    for (int i = 0; i < 20000; ++i) {
        S t = next() % 3 == 0 ? "-" : "";
        int int_digits = (int)(next() % 12), frac_digits = (int)(next() % 12) + (int_digits == 0);
        for (int d = 0; d < int_digits + frac_digits; ++d) t += S(d == int_digits, '.') + (char)('0' + next() % 10);
        if (next() % 4 == 0) t += "e" + std::to_string((int)(next() % 72) - 45);  // up to 1e37
        tokens.push_back(t);
        text += t + (i % 7 ? " " : "\r\n");
    }
    // The second's double lies on a midpoint of floats; the last two have long exponents.
    tokens.insert(tokens.end(), {"1e-45", "3023785331e16", "1e000000000001", "-2.5e-0000000000001"});
    ASSERT_EQ(open(text + "1e-45 3023785331e16 1e000000000001 -2.5e-0000000000001 4e38", FILE_TYPE_TEXT, 0), 1);
    for (auto& t : tokens) ASSERT_EQ(fio_read_flt("x"), strtof(t.c_str(), nullptr)) << t;
    float f;
    EXPECT_FALSE(fs_read_float(fio_stream(), &f));
    EXPECT_EQ(f, 3.40282347e+38f);
}

TEST_F(FileReaderDeathTest, ScanFailuresWrongVersionsAndBadSlotAreFatal) {
    // The second read fails: a fraction or a word left by the first, the end of the data,
    // an exponent without digits, a lone sign, a number past 32 bits.
    for (auto [body, flt] : {std::pair<S, bool>{"1.5 2", 0}, {"12 KSFO", 0}, {"12", 0}, {"12\n", 1}, {"7e 5", 1},
                             {"- 5", 0}, {"99999999999 5", 0}, {"-3.5e7777777777", 1}}) {
        ASSERT_EQ(open("I\n" + body, FILE_TYPE_TEXT, 0), 1);
        auto read = [flt] { flt ? (void)fio_read_flt("scan rwy rwy_lat") : (void)fio_read_int("scan rwy rwy_lat"); };
        EXPECT_EXIT((read(), read()), ExitedWithCode(0),
                    HasSubstr(test_alert_text("File-scanning error!", "", "file:", "scan rwy rwy_lat"))) << body;
    }
    S next = dir + "f" + std::to_string(n + 1);  // the file each death test below opens
    // A version line that does not begin with a number: the path is the label.
    EXPECT_EXIT(open("I\nabc\n", FILE_TYPE_TEXT, 600), ExitedWithCode(0),
                HasSubstr(test_alert_text("File-scanning error!", "", "file:", next)));
    EXPECT_EXIT(open("I\n601 x\n", FILE_TYPE_TEXT, 600, 1), ExitedWithCode(0),
                HasSubstr("The following file is the wrong version for this version of Zephyra:\n\n" + next + "\n\n"));
    EXPECT_EXIT(open(S("i\x01\x00\x00\x00", 5), FILE_TYPE_AIRCRAFT, 600, 1), ExitedWithCode(0),
                HasSubstr("The following file is the wrong version aircraft for this version of Zephyra:\n\n" + next));
    EXPECT_EXIT((fio_cur_slot = 2, open("I\n", FILE_TYPE_TEXT, 0)), ExitedWithCode(0),
                HasSubstr(test_alert_text("Bad file-use index!", "", "", "")));
}

// A line of fields read at once gives what the reads one by one give, or leaves them to it.
TEST_F(FileReader, FieldsAtOnceAsOneByOne) {
    const struct { S line; bool at_once; } rows[] = {  // each line that is read at once ends in 42
        {" 31.297462  -84.962794 32C 318.87   7567     0     0   98 983745\n 42", true},
        {"+1.5 -.5 a b c 5. 0.000001 123456789012345 1e2 7\n", false},  // an exponent: one by one
        {"1 2 x y z 3 4 5 6 7 2147483648\n", false},                    // past 32 bits: the read fails
        {"1 2\nx\ty\r\nz 3 4 5 6 7 8\n 42", true},                      // fields across line ends
        {"0.1 0.2 a b c 0.3 0.4 0.5 0.6 0.7 99", false},                 // the data ends in the last field
        {"1.2.3 4 ab 5 6 7 8 9 10 42", true},                            // a number ends where its form does
    };
    for (const auto& r : rows) {
        float f[7] = {}, g[7] = {};
        int32_t i = 0, j = 0;
        char c[3] = {}, d[3] = {};
        void* const out[] = {&f[0], &f[1], &c[0], &c[1], &c[2], &f[2], &f[3], &f[4], &f[5], &f[6], &i};
        ASSERT_EQ(open("I\n" + r.line, 0, 0), 1);
        int32_t at_once = fio_read_fields("ffcccfffffi", out);
        int32_t after = at_once ? fio_read_int("after") : 0;
        EXPECT_EQ(at_once, r.at_once ? 1 : 0) << r.line;
        if (!at_once) continue;
        ASSERT_EQ(open("I\n" + r.line, 0, 0), 1);
        g[0] = fio_read_flt("f"), g[1] = fio_read_flt("f");
        for (char& x : d) x = fio_read_char();
        for (int k = 2; k < 7; ++k) g[k] = fio_read_flt("f");
        j = fio_read_int("i");
        EXPECT_EQ(memcmp(f, g, sizeof f), 0) << r.line;
        EXPECT_EQ(S(c, 3) + std::to_string(i), S(d, 3) + std::to_string(j)) << r.line;
        EXPECT_EQ(after, 42) << r.line;
    }
}
