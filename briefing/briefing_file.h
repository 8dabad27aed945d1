// The menu commands of the briefing: about, write the briefing file, quit.
#pragma once
#include <cstdint>

#include "util/out_file.h"

enum : int32_t { CMD_ABOUT = 0, CMD_WRITE_BRIEFING = 100, CMD_QUIT = 102, CMD_SPEAK = 103 };

// The program's menu handler: 0 shows the about alert, 100 composes a fresh briefing and
// writes it to "Vocalog.txt" in the current folder, 102 asks the main loop to end, 103 speaks
// the briefing shown (composing one first when none is) or stops the speaking.
void brief_write_file(int32_t command);

// Writes the four paragraphs, each followed by two line ends, to an open stream.
void brief_put_paragraphs(OutFile* f);

// Writes the four paragraphs to `path`, replacing the file only once the whole briefing is
// written. 1 on success; 0 leaves any old file as it was.
int32_t brief_save(const char* path);
