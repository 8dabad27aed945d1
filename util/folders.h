// The folder table: the program folder, the preference files and the suite's resource
// folders, in the suite's path form (":" between folders, turned into "/" on opening).
#pragma once
#include <cstdint>

#include "util/text.h"

constexpr int32_t FOLDER_COUNT = 32;

// Indices (the table's entries 1 to 32 are 0 to 31 here).
enum : int32_t {
    FOLDER_CDROM = 0,
    FOLDER_PROGRAM = 1,
    FOLDER_CURRENT = 2,
    FOLDER_SIM_PREFS = 3,
    FOLDER_LANG_RES_PREFS = 4,
    FOLDER_USER = 5,  // the per-user folder itself (entries 5 to 7)
    FOLDER_AIRFOILS = 8,
    FOLDER_WEAPONS = 9,
    FOLDER_AIRCRAFT = 10,
    FOLDER_BITMAPS = 23,
    FOLDER_EARTH_NAV = 26,
    FOLDER_MENUS = 28,
    FOLDER_TEXTS = 29,
};

struct FolderTable {
    Text path[FOLDER_COUNT];
};

extern FolderTable folders;

void folders_reset();  // every entry empty

// Fills the table from `program_folder` and `user_folder` (each with its trailing "/"):
// the preference files live in the per-user folder, everything else under the program's.
void folders_fill(const char* program_folder, const char* user_folder);

// Fills the table from the running program's folder and the per-user folder. 0 when either
// folder cannot be found; the table is then filled as far as known.
int32_t folders_init();

// Creates the per-user folder when `path` lies in it and it is missing: it is made only
// when a file is saved there, so a run that only reads leaves no trace.
void folders_make_user_for(const char* path);
