// The text a speech engine says for a written briefing paragraph.
#include "briefing/speech_text.h"

#include <cstdlib>
#include <cstring>

#include "briefing/spoken_words.h"

// ---- the wording's fixed quirks, smoothed before reading ('#' stands for any one digit) ----
static const struct { const char* from; const char* to; } quirks[] = {
    // A layer height without a cover word runs into the next word: "13100visibility"
    // says "13100, visibility".
    {"#visibility", "#, visibility"},
    // An enroute opener doubles a word: "Enroute lets look look at this one".
    {"lets look look", "let's look"},
};

// ---- reading rules: a word of some shape, between two neighbours, is read one way ----
enum Shape : uint8_t {
    SHAPE_WHOLE,         // 2985
    SHAPE_SIGNED,        // -5
    SHAPE_DECIMAL,       // 3.2
    SHAPE_REGISTRATION,  // N172SP, G-ABCD: capitals and digits with a digit or a hyphen
    SHAPE_MODEL,         // C172SP, KingAir350: letters with digits, or words run together
};

using ReadFn = void (*)(Spoken* out, const char* word, int32_t n);

struct ReadingRule {
    Shape shape;
    const char* before;    // the word before, lower case ("" any)
    const char* after;     // the word after, lower case ("" any)
    ReadFn read;
    const char* next_one;  // the word after said this way when the number is 1 or -1 (null: as written)
    const char* next_many; // ... and this way otherwise
};

static int64_t value_of(const char* word, int32_t n) {
    char buf[32];
    if (n > 18) n = 18;
    memcpy(buf, word, (size_t)n);
    buf[n] = 0;
    return strtoll(buf, nullptr, 10);
}

static void read_time(Spoken* out, const char* w, int32_t n) { say_digits(out, w, n, 4); }
static void read_digits(Spoken* out, const char* w, int32_t n) { say_digits(out, w, n, 0); }
static void read_direction(Spoken* out, const char* w, int32_t n) { say_digits(out, w, n, 3); }
static void read_altitude(Spoken* out, const char* w, int32_t n) { say_altitude(out, value_of(w, n)); }
static void read_cardinal(Spoken* out, const char* w, int32_t n) { say_cardinal(out, value_of(w, n)); }
static void read_registration(Spoken* out, const char* w, int32_t n) { say_registration(out, w, n); }
static void read_model(Spoken* out, const char* w, int32_t n) { say_aircraft_type(out, w, n); }
static void read_decimal(Spoken* out, const char* w, int32_t n) {
    const char* point = (const char*)memchr(w, '.', (size_t)n);
    say_cardinal(out, value_of(w, (int32_t)(point - w)));
    spoken_put(out, " point");
    for (const char* d = point + 1; d < w + n; ++d) say_cardinal(out, *d - '0');
}

static const ReadingRule rules[] = {
    // "at 2128 zulu": a time of day, hours and minutes digit by digit, always four digits:
    // "two one two eight zulu", "900 zulu" -> "zero niner zero zero zulu".
    {SHAPE_WHOLE, "", "zulu", read_time, nullptr, nullptr},
    // "barometric pressure 2985": the altimeter setting digit by digit, "two niner eight five".
    {SHAPE_WHOLE, "pressure", "", read_digits, nullptr, nullptr},
    // "at 6500 feet": an altitude as controllers say it, thousands digit by digit then the
    // hundreds: "six thousand five hundred feet", "one three thousand feet".
    {SHAPE_WHOLE, "", "feet", read_altitude, nullptr, nullptr},
    // "estimating 3.2 hours": "three point two hours".
    {SHAPE_DECIMAL, "", "hours", read_decimal, nullptr, nullptr},
    // "skies 5500 scattered, 13100, visibility": a cloud height in words, "five thousand
    // five hundred scattered", "thirteen thousand one hundred, visibility".
    {SHAPE_WHOLE, "", "scattered", read_cardinal, nullptr, nullptr},
    {SHAPE_WHOLE, "", "broken", read_cardinal, nullptr, nullptr},
    {SHAPE_WHOLE, "", "overcast", read_cardinal, nullptr, nullptr},
    {SHAPE_WHOLE, "", "visibility", read_cardinal, nullptr, nullptr},
    // "visibility 9 miles": "nine miles"; "1 miles" -> "one mile".
    {SHAPE_WHOLE, "", "miles", read_cardinal, "mile", "miles"},
    // "Wind 280 at 15 gust 25": the direction as three digits, the speeds digit by digit:
    // "two eight zero at one five gust two five", "Wind 0" -> "zero zero zero".
    {SHAPE_WHOLE, "wind", "", read_direction, nullptr, nullptr},
    {SHAPE_WHOLE, "at", "", read_digits, nullptr, nullptr},
    {SHAPE_WHOLE, "gust", "", read_digits, nullptr, nullptr},
    // "Temperature -5 C": "minus five degrees Celsius", "1 C" -> "one degree Celsius".
    {SHAPE_SIGNED, "", "c", read_cardinal, "degree Celsius", "degrees Celsius"},
    // "this is N172SP": a registration in the phonetic alphabet, "November one seven two
    // Sierra Papa".
    {SHAPE_REGISTRATION, "is", "", read_registration, nullptr, nullptr},
    // "a C172SP": an aircraft model as pilots name it, "C one seventy-two S P", "a
    // KingAir350" -> "King Air three fifty".
    {SHAPE_MODEL, "a", "", read_model, nullptr, nullptr},
    // Any other word: its digits as a number, "Area 51" -> "fifty-one", "22nd" ->
    // "twenty-second" (read_other below).
};

static bool is_digit(char c) { return c >= '0' && c <= '9'; }
static bool is_upper(char c) { return c >= 'A' && c <= 'Z'; }
static bool is_lower(char c) { return c >= 'a' && c <= 'z'; }
static bool is_alnum(char c) { return is_digit(c) || is_upper(c) || is_lower(c); }

static bool has_shape(const char* w, int32_t n, Shape shape) {
    int32_t digits = 0, points = 0, hyphens = 0, other = 0, camel = 0;
    for (int32_t k = 0; k < n; ++k) {
        char c = w[k];
        digits += is_digit(c);
        points += c == '.';
        hyphens += c == '-';
        other += !is_alnum(c) && c != '.' && c != '-' && c != '_';
        camel += k > 0 && is_upper(c) && is_lower(w[k - 1]);
    }
    switch (shape) {
        case SHAPE_WHOLE: return n > 0 && n <= 12 && digits == n;
        case SHAPE_SIGNED: return n > 0 && n <= 12 && (digits == n || (w[0] == '-' && n > 1 && digits == n - 1));
        case SHAPE_DECIMAL:
            return points == 1 && digits == n - 1 && n <= 12 && is_digit(w[0]) && is_digit(w[n - 1]);
        case SHAPE_REGISTRATION: {
            if (n < 2 || n > 8 || !is_upper(w[0]) || points || other || (!digits && !hyphens)) return false;
            for (int32_t k = 0; k < n; ++k)
                if (is_lower(w[k]) || w[k] == '_') return false;
            return true;
        }
        case SHAPE_MODEL: return n >= 2 && !points && !other && is_alnum(w[0]) && (digits || camel);
    }
    return false;
}

// Lower-case, the `n` characters of `w` equal `lower`.
static bool word_is(const char* w, int32_t n, const char* lower) {
    if ((int32_t)strlen(lower) != n) return false;
    for (int32_t k = 0; k < n; ++k)
        if ((is_upper(w[k]) ? (char)(w[k] | 0x20) : w[k]) != lower[k]) return false;
    return true;
}

// A word of the quirk-smoothed paragraph: its core without the punctuation around it.
struct Word {
    const char* start;
    int32_t length;
    int32_t core, core_length;  // offset and length of the core
};

static bool is_lead(char c) { return c == '(' || c == '"' || c == '\''; }
static bool is_trail(char c) { return strchr(",.;:!?)\"'", c) != nullptr; }

static int32_t split_words(const char* text, Word* words, int32_t max) {
    int32_t count = 0;
    for (const char* p = text; *p && count < max;) {
        if (*p == ' ') {
            ++p;
            continue;
        }
        Word& w = words[count++];
        w.start = p;
        while (*p && *p != ' ') ++p;
        w.length = (int32_t)(p - w.start);
        w.core = 0;
        while (w.core < w.length && is_lead(w.start[w.core])) ++w.core;
        int32_t end = w.length;
        while (end > w.core && is_trail(w.start[end - 1])) --end;
        w.core_length = end - w.core;
    }
    return count;
}

static void apply_quirks(const char* paragraph, char* out, int32_t size) {
    Spoken s;
    spoken_init(&s, out, size);
    for (const char* p = paragraph; *p;) {
        bool matched = false;
        for (const auto& q : quirks) {
            size_t n = strlen(q.from);
            bool same = true;
            for (size_t k = 0; same && k < n; ++k)  // stops at the text's end: no digit, no match
                same = q.from[k] == '#' ? is_digit(p[k]) : q.from[k] == p[k];
            if (!same) continue;
            for (const char* t = q.to; *t; ++t) spoken_put_n(&s, *t == '#' ? p + strcspn(q.from, "#") : t, 1);
            p += n;
            matched = true;
            break;
        }
        if (!matched) spoken_put_n(&s, p++, 1);
    }
}

// A word no rule reads: its digit runs as numbers, ordinal before "st", "nd", "rd", "th".
static void read_other(Spoken* out, const char* w, int32_t n) {
    for (int32_t k = 0; k < n;) {
        if (!is_digit(w[k])) {
            spoken_put_n(out, &w[k++], 1);
            continue;
        }
        int32_t start = k;
        while (k < n && is_digit(w[k])) ++k;
        int64_t v = value_of(w + start, k - start);
        static const char* const suffixes[4] = {"st", "nd", "rd", "th"};
        bool ordinal = false;
        for (const char* s : suffixes)
            if (k + 2 <= n && w[k] == s[0] && w[k + 1] == s[1] && (k + 2 == n || !is_alnum(w[k + 2]))) ordinal = true;
        if (ordinal) {
            say_ordinal(out, v);
            k += 2;
        } else {
            say_cardinal(out, v);
        }
        if (k < n && is_alnum(w[k])) spoken_put(out, " ");
    }
}

// Word i + step (the one before or after) is `lower`; "" matches any word, or none.
static bool neighbour_is(const Word* words, int32_t count, int32_t i, int32_t step, const char* lower) {
    if (!lower[0]) return true;
    if (i + step < 0 || i + step >= count) return false;
    const Word& w = words[i + step];
    return word_is(w.start + w.core, w.core_length, lower);
}

static const ReadingRule* find_rule(const Word* words, int32_t count, int32_t i) {
    const Word& w = words[i];
    for (const ReadingRule& r : rules)
        if (has_shape(w.start + w.core, w.core_length, r.shape) && neighbour_is(words, count, i, -1, r.before) &&
            neighbour_is(words, count, i, 1, r.after))
            return &r;
    return nullptr;
}

bool brief_spoken_text(const char* paragraph, char* out, int32_t size) {
    char text[1024];  // a 499-character paragraph and its quirks' few added characters
    apply_quirks(paragraph, text, sizeof text);
    Word words[512];
    int32_t count = split_words(text, words, 512);

    Spoken s;
    spoken_init(&s, out, size);
    for (int32_t i = 0; i < count; ++i) {
        const Word& w = words[i];
        const char* core = w.start + w.core;
        const ReadingRule* rule = find_rule(words, count, i);
        spoken_space(&s);
        spoken_put_n(&s, w.start, w.core);
        if (!rule) {
            read_other(&s, core, w.core_length);
        } else {
            rule->read(&s, core, w.core_length);
        }
        spoken_put_n(&s, core + w.core_length, w.length - w.core - w.core_length);
        if (rule && rule->next_many && i + 1 < count) {  // the next word, said to agree with the number
            const Word& next = words[++i];
            int64_t v = value_of(core, w.core_length);
            spoken_put(&s, " ");
            spoken_put(&s, v == 1 || v == -1 ? rule->next_one : rule->next_many);
            spoken_put_n(&s, next.start + next.core + next.core_length, next.length - next.core - next.core_length);
        }
    }
    return !s.cut;
}
