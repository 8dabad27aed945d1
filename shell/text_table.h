// The localized texts: a table of numbered strings read from the language's text file.
#pragma once
#include <cstdint>

#include "util/text.h"

constexpr int32_t TEXT_COUNT = 700;

// Entries the shell and the application show.
enum : int32_t {
    TEXT_ALTITUDE = 0,      // the briefing screen's altitude field
    TEXT_BRIEF_BUTTON = 1,  // the briefing screen's button
    TEXT_ALERT_TITLE = 600,
    TEXT_DIALOG_TITLE = 601,
    TEXT_ALERT_BUTTON = 602,
    TEXT_CHOOSER_A = 605,   // the file chooser's two texts
    TEXT_CHOOSER_B = 606,
};

extern Text text_table[TEXT_COUNT];

void text_table_reset();  // every entry empty

// Reads a text file into the table after emptying it: "A"/"I", a version-1 line, then lines
// of "index text" up to a negative index. A missing file, an index of TEXT_COUNT or more and
// an index given twice end the program. `path` is turned into the platform's form in place.
void text_file_read(char* path);

// The menus and texts of the current language: the Korean glyph sheet (Korean only), the
// menu file and the text file, both named "Vocalog.txt" in the language's folders.
void MACIBM_load_text();
