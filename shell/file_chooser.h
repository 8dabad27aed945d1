// The file chooser: the program's own modal open and save dialog over the folder listing.
#pragma once
#include <cstdint>

#include "util/text.h"

// The chooser's state while it runs; the work folder (util/folder_list.h) outlives it.
struct FileChooserState {
    Text limit;          // walking up never leaves this folder
    int32_t count;       // entries listed in this frame
    int32_t selection;   // the highlighted entry
};
extern FileChooserState chooser;

// Runs the dialog on `screen` (SCREEN_FILE_OPEN or SCREEN_FILE_SAVE) for files of `type` until
// the user chooses (1) or cancels (0); the screen that was current is current again after
// either. `name` holds the current name on entry; a choice leaves the file's name in `name`
// and its full path in `path`, a cancel leaves both alone. Both are 500-byte texts.
int32_t opensave(int32_t screen, int32_t type, char* name, char* path);

// Installs opensave as the file button's chooser.
void file_chooser_install();

// Sets the work folder to where a dialog for `type` starts (the types with a folder of their
// own; any other keeps the work folder) and `limit` to the folder above which it never goes.
// Both stay in the suite's form.
void chooser_start(int32_t type, char* limit);

void chooser_reset();
