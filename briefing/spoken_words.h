// Words a speech engine says for numbers, registrations and aircraft types.
#pragma once
#include <cstdint>

// A bounded text the readings append to. Text past the end is dropped and `cut` set; the
// last byte always stays free for the terminating zero.
struct Spoken {
    char* text;
    int32_t size;    // bytes of `text`
    int32_t length;  // characters held
    bool cut;
};
void spoken_init(Spoken* out, char* buffer, int32_t size);
void spoken_put(Spoken* out, const char* s);
void spoken_put_n(Spoken* out, const char* s, int32_t n);
// One blank, unless the text is empty or ends in a blank, "(", "-" or "/".
void spoken_space(Spoken* out);

// "2985" -> "two niner eight five": each digit of `digits` (n of them), left-padded with
// zeros to `width`, "niner" for 9 as radio phraseology has it.
void say_digits(Spoken* out, const char* digits, int32_t n, int32_t width);
// 13100 -> "thirteen thousand one hundred", -5 -> "minus five", 21 -> "twenty-one".
void say_cardinal(Spoken* out, int64_t v);
// 22 -> "twenty-second".
void say_ordinal(Spoken* out, int64_t v);
// 6500 -> "six thousand five hundred", 13000 -> "one three thousand": thousands digit by digit,
// then the hundreds; a value not in whole hundreds digit by digit.
void say_altitude(Spoken* out, int64_t v);
// "N172SP" -> "November one seven two Sierra Papa"; a hyphen is not said.
void say_registration(Spoken* out, const char* s, int32_t n);
// "C172SP" -> "C one seventy-two S P", "KingAir350" -> "King Air three fifty": words as they
// stand, short capital runs letter by letter, numbers as pilots name the model.
void say_aircraft_type(Spoken* out, const char* s, int32_t n);
