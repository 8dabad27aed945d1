// The folder table of the program folder, the preference files and the resource folders.
#include "util/folders.h"

#include <cstring>

#include "platform/platform.h"
#include "util/paths.h"

FolderTable folders;

// Entries 9 to 32, relative to the program folder.
static const char* const relative[FOLDER_COUNT - 8] = {
    "Airfoils:",
    "Weapons:",
    "Aircraft:",
    "Output:situations:",
    "Output:movies:",
    "Output:logbooks:",
    "Output:FMS plans:",
    "Dunemark Resources:saved games:",
    "Roadlet Resources:tracks:",
    "Roadlet Resources:cars:",
    "Starvale Resources:spaceships:",
    "Starvale Resources:regions:",
    "Resources:AutoGen objects:",
    "Resources:AutoGen textures:",
    "Resources:sounds:",
    "Resources:bitmaps:",
    "Dunemark Resources:planets:",
    "Custom Scenery:",
    "Resources:Earth nav data:",
    "Resources:Mars nav data:",
    "Resources:menus:",
    "Resources:text:",
    "Resources:keys:",
    "Resources:sounds:radio chatter:",
};

void folders_reset() {
    memset(&folders, 0, sizeof folders);
    path_set_roots("", "");
}

void folders_fill(const char* program_folder, const char* user_folder) {
    folders_reset();
    str_join(user_folder, "Corvane 6 Zephyra.prf", folders.path[FOLDER_SIM_PREFS]);
    str_join(user_folder, "Corvane 6 Language & Res.prf", folders.path[FOLDER_LANG_RES_PREFS]);
    for (int32_t i = FOLDER_USER; i < FOLDER_AIRFOILS; ++i) str_copy(user_folder, folders.path[i]);
    path_set_roots(program_folder, user_folder);
    str_copy(program_folder, folders.path[FOLDER_PROGRAM]);
    str_copy(program_folder, folders.path[FOLDER_CURRENT]);
    for (int32_t i = 8; i < FOLDER_COUNT; ++i) str_join(program_folder, relative[i - 8], folders.path[i]);
}

int32_t folders_init() {
    char program[STR_SIZE] = "";
    char user[STR_SIZE] = "";
    bool ok_program = plat_program_folder(program, sizeof program);
    bool ok_user = plat_user_folder(user, sizeof user);
    if (!ok_program) program[0] = 0;
    if (!ok_user) user[0] = 0;
    folders_fill(program, user);
    return ok_program && ok_user ? 1 : 0;
}

void folders_make_user_for(const char* path) {
    const char* user = folders.path[FOLDER_USER];
    size_t n = strlen(user);
    if (n && strncmp(path, user, n) == 0) plat_make_folders(user);
}
