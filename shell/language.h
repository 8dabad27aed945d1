// The interface languages and the folder word each one's files live under.
#pragma once
#include <cstdint>

#include "util/prefs.h"  // language: -1 until chosen, then one of the ids below

enum : int32_t {
    LANG_NONE = -1,
    LANG_ENGLISH = 0,
    LANG_FRENCH = 1,
    LANG_GERMAN = 2,
    LANG_ITALIAN = 3,
    LANG_SPANISH = 4,
    LANG_KOREAN = 5,
    LANG_COUNT = 6,
};

// "english:" ... "korean:" for 0..5; "" for any other value (no language folder).
const char* language_folder_word(int32_t lang);

// The Korean interface: menu names are two-byte glyph codes, measured and drawn wider.
inline bool language_is_korean() { return language == LANG_KOREAN; }

// `base` followed by the folder word of the current language, into `dst`.
void language_folder(const char* base, char* dst);
