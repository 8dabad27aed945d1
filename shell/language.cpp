// The interface languages' folder words.
#include "shell/language.h"

#include "util/text.h"

static const char* const folder_words[LANG_COUNT] = {
    "english:", "french:", "german:", "italian:", "spanish:", "korean:",
};

const char* language_folder_word(int32_t lang) {
    return lang >= 0 && lang < LANG_COUNT ? folder_words[lang] : "";
}

void language_folder(const char* base, char* dst) { str_join(base, language_folder_word(language), dst); }
