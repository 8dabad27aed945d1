// Words a speech engine says for numbers, registrations and aircraft types.
#include "briefing/spoken_words.h"

#include <cstdio>
#include <cstring>

static const char* const digit_words[10] = {"zero", "one", "two", "three", "four",
                                            "five", "six", "seven", "eight", "niner"};
static const char* const small_words[20] = {
    "zero",    "one",     "two",       "three",    "four",     "five",    "six",
    "seven",   "eight",   "nine",      "ten",      "eleven",   "twelve",  "thirteen",
    "fourteen", "fifteen", "sixteen",  "seventeen", "eighteen", "nineteen"};
static const char* const tens_words[10] = {"",      "",      "twenty",  "thirty", "forty",
                                           "fifty", "sixty", "seventy", "eighty", "ninety"};
static const struct { uint64_t value; const char* name; } scales[] = {
    {1000000000ull, "billion"}, {1000000ull, "million"}, {1000ull, "thousand"}};
// The last word of a cardinal and its ordinal where adding "th" is wrong.
static const struct { const char* cardinal; const char* ordinal; } ordinal_words[] = {
    {"one", "first"}, {"two", "second"}, {"three", "third"}, {"five", "fifth"},
    {"eight", "eighth"}, {"nine", "ninth"}, {"twelve", "twelfth"}};
static const char* const phonetic[26] = {
    "Alpha", "Bravo",  "Charlie", "Delta",  "Echo",   "Foxtrot", "Golf",    "Hotel", "India",
    "Juliet", "Kilo",  "Lima",    "Mike",   "November", "Oscar", "Papa",    "Quebec", "Romeo",
    "Sierra", "Tango", "Uniform", "Victor", "Whiskey", "X-ray",  "Yankee",  "Zulu"};

static bool is_digit(char c) { return c >= '0' && c <= '9'; }
static bool is_upper(char c) { return c >= 'A' && c <= 'Z'; }
static bool is_lower(char c) { return c >= 'a' && c <= 'z'; }

void spoken_init(Spoken* out, char* buffer, int32_t size) {
    out->text = buffer;
    out->size = size;
    out->length = 0;
    out->cut = false;
    buffer[0] = 0;
}

void spoken_put_n(Spoken* out, const char* s, int32_t n) {
    int32_t room = out->size - 1 - out->length;
    if (n > room) {
        n = room;
        out->cut = true;
    }
    memcpy(out->text + out->length, s, (size_t)n);
    out->length += n;
    out->text[out->length] = 0;
}

void spoken_put(Spoken* out, const char* s) { spoken_put_n(out, s, (int32_t)strlen(s)); }

void spoken_space(Spoken* out) {
    if (out->length > 0 && !strchr(" (-/", out->text[out->length - 1])) spoken_put(out, " ");
}

void say_digits(Spoken* out, const char* digits, int32_t n, int32_t width) {
    for (int32_t k = n; k < width; ++k) {
        spoken_space(out);
        spoken_put(out, digit_words[0]);
    }
    for (int32_t k = 0; k < n; ++k) {
        spoken_space(out);
        spoken_put(out, digit_words[digits[k] - '0']);
    }
}

// 0 to 999, nothing for 0.
static void say_hundreds(Spoken* out, uint32_t v) {
    if (v >= 100) {
        spoken_space(out);
        spoken_put(out, small_words[v / 100]);
        spoken_put(out, " hundred");
        v %= 100;
    }
    if (v == 0) return;
    spoken_space(out);
    if (v < 20) {
        spoken_put(out, small_words[v]);
        return;
    }
    spoken_put(out, tens_words[v / 10]);
    if (v % 10) {
        spoken_put(out, "-");
        spoken_put(out, small_words[v % 10]);
    }
}

static void say_magnitude(Spoken* out, uint64_t v) {
    for (const auto& s : scales) {
        if (v < s.value) continue;
        say_magnitude(out, v / s.value);  // above a billion the count of billions is itself long
        spoken_put(out, " ");
        spoken_put(out, s.name);
        v %= s.value;
    }
    say_hundreds(out, (uint32_t)v);
}

void say_cardinal(Spoken* out, int64_t v) {
    spoken_space(out);
    if (v == 0) {
        spoken_put(out, small_words[0]);
        return;
    }
    if (v < 0) spoken_put(out, "minus ");
    say_magnitude(out, v < 0 ? 0ull - (uint64_t)v : (uint64_t)v);
}

void say_ordinal(Spoken* out, int64_t v) {
    char words[256];
    Spoken card;
    spoken_init(&card, words, sizeof words);
    say_cardinal(&card, v);
    char* last = words + card.length;
    while (last > words && last[-1] != ' ' && last[-1] != '-') --last;
    spoken_space(out);
    spoken_put_n(out, words, (int32_t)(last - words));
    for (const auto& w : ordinal_words)
        if (strcmp(last, w.cardinal) == 0) {
            spoken_put(out, w.ordinal);
            return;
        }
    size_t n = strlen(last);
    if (n > 0 && last[n - 1] == 'y') {
        spoken_put_n(out, last, (int32_t)n - 1);
        spoken_put(out, "ieth");
    } else {
        spoken_put(out, last);
        spoken_put(out, "th");
    }
}

void say_altitude(Spoken* out, int64_t v) {
    char digits[24];
    if (v < 0) {
        say_cardinal(out, v);
    } else if (v == 0 || v % 100 != 0) {
        say_digits(out, digits, snprintf(digits, sizeof digits, "%lld", (long long)v), 0);
    } else {
        if (v >= 1000) {
            say_digits(out, digits, snprintf(digits, sizeof digits, "%lld", (long long)(v / 1000)), 0);
            spoken_put(out, " thousand");
        }
        if (v % 1000) {
            spoken_space(out);
            spoken_put(out, digit_words[v % 1000 / 100]);
            spoken_put(out, " hundred");
        }
    }
}

void say_registration(Spoken* out, const char* s, int32_t n) {
    for (int32_t k = 0; k < n; ++k) {
        char c = s[k];
        if (is_digit(c)) {
            say_digits(out, &s[k], 1, 0);
        } else if (is_upper(c) || is_lower(c)) {
            spoken_space(out);
            spoken_put(out, phonetic[(c | 0x20) - 'a']);
        }
    }
}

// A model number: "58" fifty-eight, "172" one seventy-two, "350" three fifty, "707" seven oh
// seven, "100" one hundred; longer ones as cardinals.
static void say_model_number(Spoken* out, const char* s, int32_t n) {
    int64_t v = 0;
    for (int32_t k = 0; k < n && k < 15; ++k) v = v * 10 + (s[k] - '0');
    if (n != 3 || v % 100 == 0) {
        say_cardinal(out, v);
        return;
    }
    say_cardinal(out, v / 100);
    if (v % 100 < 10) spoken_put(out, " oh");
    say_cardinal(out, v % 100);
}

void say_aircraft_type(Spoken* out, const char* s, int32_t n) {
    int32_t k = 0;
    while (k < n) {
        int32_t start = k;
        if (is_digit(s[k])) {
            while (k < n && is_digit(s[k])) ++k;
            say_model_number(out, s + start, k - start);
        } else if (is_upper(s[k]) || is_lower(s[k])) {
            // A run of one to three capitals is spelled ("CJ" of "CJ4", "C" of "CJet": the
            // last capital before lower-case letters starts a word); a capital with its
            // lower-case letters, or a longer capital run, is a word.
            int32_t caps = 0;
            while (k + caps < n && is_upper(s[k + caps])) ++caps;
            if (caps >= 2 && k + caps < n && is_lower(s[k + caps])) --caps;
            if (caps >= 1 && caps <= 3 && !(caps == 1 && k + 1 < n && is_lower(s[k + 1]))) {
                for (int32_t end = k + caps; k < end; ++k) {
                    spoken_space(out);
                    spoken_put_n(out, &s[k], 1);
                }
            } else {
                k += caps;
                while (k < n && is_lower(s[k])) ++k;
                spoken_space(out);
                spoken_put_n(out, s + start, k - start);
            }
        } else {
            spoken_space(out);  // "_", "-" and the like part the words
            ++k;
        }
    }
}
