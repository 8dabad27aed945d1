// Bounded 500-byte texts: copies, joins, comparisons, number text, characters and the clock.
#include "util/text.h"

#include <cstring>
#include <initializer_list>

#include "platform/platform.h"
#include "base/alert.h"

static size_t bounded_len(const char* s) { return strnlen(s, STR_SIZE); }

// A text of 500 characters or more ends the program with the too-long alert, which shows
// its first 499 characters.
void str_check(const char* s) {
    if (bounded_len(s) < (size_t)STR_SIZE) return;
    Text head;
    memcpy(head, s, STR_SIZE - 1);
    head[STR_SIZE - 1] = 0;
    MACIBM_fatal("String too long!", "I can not repeat this entire string or I will overflow the alert procedure!",
                 "Here is the first part of the string, though:", head);
}

void str_copy(const char* src, char* dst) {
    if (!src) return;
    str_check(src);
    memmove(dst, src, bounded_len(src) + 1);
}

void str_join(const char* a, const char* b, char* dst) {
    str_check(a);
    str_check(b);
    size_t la = bounded_len(a), lb = bounded_len(b);
    char joined[2 * STR_SIZE];
    memcpy(joined, a, la);
    memcpy(joined + la, b, lb);
    joined[la + lb] = 0;
    str_check(joined);
    memcpy(dst, joined, la + lb + 1);
}

void str_append(char* dst, const char* b) { str_join(dst, b, dst); }

int32_t str_same_nocase(const char* a, const char* b) {
    for (const char* s : {a, b}) {
        if (bounded_len(s) >= (size_t)STR_SIZE) {
            Text head;
            memcpy(head, s, STR_SIZE - 1);
            head[STR_SIZE - 1] = 0;
            MACIBM_fatal("Opps! String too long!", head, "", "");
        }
    }
    Text la = {}, lb = {};
    str_copy(a, la);
    str_copy(b, lb);
    for (int i = 0; i < STR_SIZE; ++i) {
        char_lower(&la[i]);
        char_lower(&lb[i]);
    }
    return strcmp(la, lb);
}

int32_t str_contains(const char* needle, const char* haystack) {
    return strstr(haystack, needle) != nullptr ? 1 : 0;
}

void int_to_str(int32_t value, char* buf, int32_t min_digits) {
    int64_t mag = value < 0 ? -(int64_t)value : (int64_t)value;
    char digits[10];
    int n = 0;
    do {
        digits[n++] = (char)('0' + mag % 10);
        mag /= 10;
    } while (mag && n < 10);
    if (min_digits > 10) min_digits = 10;
    while (n < min_digits) digits[n++] = '0';
    int o = 0;
    if (value < 0) buf[o++] = '-';
    while (n) buf[o++] = digits[--n];
    buf[o] = 0;
}

int32_t str_is_int(const char* s) {
    if (!s[0]) return 0;
    for (const char* p = s; *p; ++p)
        if (!char_is_digit(*p) && *p != '+' && *p != '-') return 0;
    return 1;
}

// Positional rule: each character counts as its digit_value in its place, so a sign
// inside the text weighs 1 ("+") or -1 ("-") at its position.
int32_t str_to_int(const char* s) {
    size_t n = strlen(s);
    if (n == 0 || n > 7 || !str_is_int(s)) return -1;
    int32_t v = 0;
    for (size_t i = 0; i < n; ++i) v = v * 10 + digit_value(s[i]);
    return v;
}

int32_t char_is_digit(char c) { return c >= '0' && c <= '9' ? 1 : 0; }

int32_t digit_value(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c == '+') return 1;
    if (c == '-') return -1;
    return 0;
}

char digit_char(int32_t d) { return d >= 1 && d <= 9 ? (char)('0' + d) : '0'; }

void char_lower(char* p) {
    if (*p >= 'A' && *p <= 'Z') *p = (char)(*p - 'A' + 'a');
}

void char_upper(char* p) {
    if (*p >= 'a' && *p <= 'z') *p = (char)(*p - 'a' + 'A');
}

float clock_secs() { return (float)((double)plat_ticks_ms() / 1000.0); }

int32_t cut_to_int(double v) {
    if (!(v == v)) return 0;  // not a number
    if (v >= 2147483647.0) return INT32_MAX;
    if (v <= -2147483648.0) return INT32_MIN;
    return (int32_t)v;
}

void secs_to_hm(float seconds, int32_t* hours_out, int32_t* minutes_out) {
    int32_t total = cut_to_int(seconds);
    *hours_out = total / 3600;
    *minutes_out = total / 60 - *hours_out * 60;
}
