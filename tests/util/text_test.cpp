// Bounded texts: limits, fatal alerts, number text and glyph codes.
#include <gtest/gtest.h>

#include <string>

#include <gmock/gmock.h>

#include "tests/support/test_files.h"
#include "util/text.h"

using testing::HasSubstr;

static std::string too_long(const std::string& head) {
    return test_alert_text("String too long!",
                           "I can not repeat this entire string or I will overflow the alert procedure!",
                           "Here is the first part of the string, though:", head);
}

TEST(Text, CopyJoinAppendStopAt500) {
    std::string s499(499, 'x');
    Text dst;
    str_copy(s499.c_str(), dst);
    EXPECT_EQ(std::string(dst), s499);

    std::string a(249, 'a'), b(249, 'b');
    str_join(a.c_str(), b.c_str(), dst);
    EXPECT_EQ(std::string(dst), a + b);
    str_copy("ab", dst);
    str_append(dst, "cd");
    str_join("x", dst, dst);  // the destination may be an argument
    EXPECT_STREQ(dst, "xabcd");
    str_copy(nullptr, dst);
    EXPECT_STREQ(dst, "xabcd");
}

TEST(TextDeathTest, TooLongShowsFirst499AndExitsZero) {
    std::string s600 = std::string(499, 'p') + std::string(101, 'q');
    Text dst;
    EXPECT_EXIT(str_copy(s600.c_str(), dst), testing::ExitedWithCode(0),
                HasSubstr(too_long(std::string(499, 'p'))));
    std::string a(300, 'a'), b(300, 'b');
    EXPECT_EXIT(str_join(a.c_str(), b.c_str(), dst), testing::ExitedWithCode(0),
                HasSubstr(too_long(a + std::string(199, 'b'))));
    std::string s500(500, 'z');
    EXPECT_EXIT(str_check(s500.c_str()), testing::ExitedWithCode(0), "String too long!");
    Text full;
    memset(full, 'c', sizeof full);  // no terminator inside the buffer
    EXPECT_EXIT(str_same_nocase(full, "x"), testing::ExitedWithCode(0),
                HasSubstr(test_alert_text("Opps! String too long!", std::string(499, 'c'), "", "")));
}

TEST(Text, NumberText) {
    struct Row { int32_t v, digits; const char* want; } rows[] = {
        {5, 2, "05"}, {5, 0, "5"}, {-7, 3, "-007"}, {123, 2, "123"}, {0, 0, "0"},
        {2147483647, 0, "2147483647"}, {42, 12, "0000000042"}, {-2147483647 - 1, 0, "-2147483648"},
    };
    for (auto& r : rows) {
        char buf[16];
        int_to_str(r.v, buf, r.digits);
        EXPECT_STREQ(buf, r.want) << r.v << " " << r.digits;
    }
    struct Parse { const char* s; int32_t want; } parses[] = {
        {"0042", 42}, {"12345678", -1}, {"1234567", 1234567}, {"12a", -1}, {"", -1},
        {"-5", -5}, {"+5", 15}, {"5-", 49},
    };
    for (auto& p : parses) EXPECT_EQ(str_to_int(p.s), p.want) << p.s;
    EXPECT_EQ(str_is_int("+-09"), 1);
    EXPECT_EQ(str_is_int(""), 0);
    EXPECT_EQ(str_is_int("1.5"), 0);
    EXPECT_EQ(digit_value('7') + digit_value('+') + digit_value('-') + digit_value('x'), 7);
    EXPECT_EQ(digit_char(9), '9');
    EXPECT_EQ(digit_char(10), '0');
    EXPECT_EQ(digit_char(-1), '0');
}

TEST(Text, CompareSearchCase) {
    EXPECT_EQ(str_same_nocase("ACF", "acf"), 0);
    EXPECT_LT(str_same_nocase("abc", "ABD"), 0);
    EXPECT_GT(str_same_nocase("b", "A"), 0);
    EXPECT_EQ(str_contains("abc", "xxabcx"), 1);
    EXPECT_EQ(str_contains("abcd", "abc"), 0);
    EXPECT_EQ(str_contains("", "abc"), 1);
    EXPECT_EQ(str_contains("ABC", "abc"), 0);
    char c[] = "a[Z@";
    for (char* p = c; *p; ++p) char_upper(p);
    EXPECT_STREQ(c, "A[Z@");
    for (char* p = c; *p; ++p) char_lower(p);
    EXPECT_STREQ(c, "a[z@");
}

TEST(Text, SecondsToHoursMinutes) {
    struct Row { float s; int32_t h, m; } rows[] = {
        {2 * 3600 + 2 * 60 + 5.5f, 2, 2}, {59.9f, 0, 0}, {68160.f, 18, 56}, {86399.f, 23, 59},
    };
    for (auto& r : rows) {
        int32_t h, m;
        secs_to_hm(r.s, &h, &m);
        EXPECT_EQ(h, r.h) << r.s;
        EXPECT_EQ(m, r.m) << r.s;
    }
}

TEST(Text, NumbersToGlyphs) {
    char line[500] = "0 126 127 999";
    str_nums_to_glyphs(line);
    EXPECT_EQ(std::string(line), std::string("\x01\x01\x01\x7f\x02\x01\x08\x6f"));
    char same[500] = "=0 1";
    EXPECT_STREQ(str_nums_to_glyphs(same), "=0 1");
    char packed[500] = "1234";  // a fourth digit starts the next number
    str_nums_to_glyphs(packed);
    EXPECT_EQ(std::string(packed), std::string("\x01\x7c\x01\x05"));
    char blank[500] = "   ";
    EXPECT_STREQ(str_nums_to_glyphs(blank), "");
}

TEST(TextDeathTest, GlyphLimits) {
    std::string many;
    for (int i = 0; i < 250; ++i) many += "1 ";  // 250 numbers need exactly 500 bytes
    char line[500];
    memcpy(line, many.c_str(), 499);
    line[499] = 0;
    EXPECT_EXIT(str_nums_to_glyphs(line), testing::ExitedWithCode(0), "String too long!");
    char spaces[500];
    memset(spaces, ' ', sizeof spaces);  // no end inside the buffer
    EXPECT_EXIT(str_nums_to_glyphs(spaces), testing::ExitedWithCode(0),
                HasSubstr(test_alert_text("Too many characters in a line!", "", "", "")));
}
