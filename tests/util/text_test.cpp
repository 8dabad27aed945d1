// Bounded texts: the 499/500 limits and their fatal alerts, number text, case, glyph codes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>
#include <utility>

#include "tests/support/test_files.h"
#include "util/text.h"

using testing::ExitedWithCode;
using testing::HasSubstr;
using S = std::string;

TEST(Text, CopyJoinAppendUpTo499) {
    Text dst;
    str_copy(S(499, 'x').c_str(), dst);
    EXPECT_EQ(S(dst), S(499, 'x'));
    str_join(S(249, 'a').c_str(), S(249, 'b').c_str(), dst);
    str_append(dst, "c");
    EXPECT_EQ(S(dst), S(249, 'a') + S(249, 'b') + "c");
    str_copy("ab", dst);
    str_join("x", dst, dst);  // the destination may be an argument
    str_copy(nullptr, dst);   // a null source changes nothing
    EXPECT_STREQ(dst, "xab");
}

// A copy of 500 characters is fatal in the preference tests; an append is a join.
TEST(TextDeathTest, LimitsAreFatal) {
    Text dst, full, spaces;
    S ones, glyphs;
    for (int i = 0; i < 250; ++i) ones += "1 ";  // 250 numbers in 499 characters need 500 bytes
    for (int i = 0; i < 499; ++i) glyphs += (char)(i % 2 + 1);
    memset(full, 'c', sizeof full);  // no end inside the buffer
    memset(spaces, ' ', sizeof spaces);
    auto too_long = [](const S& head) {
        return HasSubstr(test_alert_text("String too long!",
                                         "I can not repeat this entire string or I will overflow the alert procedure!",
                                         "Here is the first part of the string, though:", head));
    };
    EXPECT_EXIT(str_join(S(300, 'a').c_str(), S(200, 'b').c_str(), dst), ExitedWithCode(0),
                too_long(S(300, 'a') + S(199, 'b')));
    EXPECT_EXIT(str_nums_to_glyphs(strcpy(dst, ones.substr(0, 499).c_str())), ExitedWithCode(0), too_long(glyphs));
    EXPECT_EXIT(str_same_nocase("x", full), ExitedWithCode(0),
                HasSubstr(test_alert_text("Opps! String too long!", S(499, 'c'), "", "")));
    EXPECT_EXIT(str_nums_to_glyphs(spaces), ExitedWithCode(0),
                HasSubstr(test_alert_text("Too many characters in a line!", "", "", "")));
}

TEST(Text, NumberText) {
    for (auto [v, digits, want] : {std::tuple{5, 2, "05"}, {5, 0, "5"}, {-7, 3, "-007"}, {123, 2, "123"}, {0, 0, "0"},
                                   {2147483647, 0, "2147483647"}, {42, 12, "0000000042"},
                                   {-2147483647 - 1, 0, "-2147483648"}}) {
        char buf[16];
        int_to_str(v, buf, digits);
        EXPECT_STREQ(buf, want) << v << " " << digits;
    }
    for (auto [s, value, is_int] : {std::tuple{"0042", 42, 1}, {"12345678", -1, 1}, {"1234567", 1234567, 1},
                                    {"12a", -1, 0}, {"", -1, 0}, {"1.5", -1, 0}, {"-5", -5, 1}, {"+5", 15, 1},
                                    {"5-", 49, 1}})
        EXPECT_EQ(std::pair(str_to_int(s), str_is_int(s)), std::pair(value, is_int)) << s;  // signs weigh 1 or -1
    for (auto [c, v] : {std::pair{'7', 7}, {'0', 0}, {'+', 1}, {'-', -1}, {'x', 0}}) EXPECT_EQ(digit_value(c), v) << c;
}

// Case-blind order; the case changes touch only the letters (each range with the bytes around it).
TEST(Text, CaseBlindOrderAndCaseChanges) {
    for (auto [a, b, sign] : {std::tuple{"ACF", "acf", 0}, {"abc", "ABD", -1}, {"b", "A", 1}})
        EXPECT_EQ((str_same_nocase(a, b) > 0) - (str_same_nocase(a, b) < 0), sign) << a << " " << b;
    char c[] = "a`{Z@[";
    for (int i : {0, 1, 2}) char_upper(&c[i]);
    for (int i : {3, 4, 5}) char_lower(&c[i]);
    EXPECT_STREQ(c, "A`{z@[");
}

TEST(Text, NumbersToGlyphs) {
    Text line;
    for (auto [in, out] : {std::pair<S, S>{"0 126 127 999", "\x01\x01\x01\x7f\x02\x01\x08\x6f"}, {"=0 1", "=0 1"},
                           {"-5", "-5"}, {"1234", "\x01\x7c\x01\x05"}, {"   ", ""}})  // a 4th digit starts a number
        EXPECT_EQ(S(str_nums_to_glyphs(strcpy(line, in.c_str()))), out) << in;
}
