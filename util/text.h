// Bounded 500-byte texts and the small number, character and clock routines beside them.
#pragma once
#include <cstdint>

constexpr int STR_SIZE = 500;  // bytes in every text buffer; a text holds at most 499 characters
using Text = char[STR_SIZE];

// Bounded copies: a text of 500 or more characters is a fatal error (never returns).
void str_check(const char* s);
void str_copy(const char* src, char* dst);               // source first; null source changes nothing
void str_join(const char* a, const char* b, char* dst);  // dst = a + b; dst may be a or b
void str_append(char* dst, const char* b);

int32_t str_same_nocase(const char* a, const char* b);    // 0 when equal ignoring ASCII case
int32_t str_contains(const char* needle, const char* haystack);

void int_to_str(int32_t value, char* buf, int32_t min_digits);
int32_t str_to_int(const char* s);
int32_t str_is_int(const char* s);
int32_t char_is_digit(char c);
int32_t digit_value(char c);
char digit_char(int32_t d);

void char_lower(char* p);
void char_upper(char* p);

float clock_secs();
void secs_to_hm(float seconds, int32_t* hours_out, int32_t* minutes_out);

// A value cut toward zero to a 32-bit integer, held within the integer's range (0 for a
// value that is not a number), so a damaged file's number never overflows a conversion.
int32_t cut_to_int(double v);

// Rewrites a line of decimal glyph numbers as two-byte glyph codes, in place.
char* str_nums_to_glyphs(char* line);
