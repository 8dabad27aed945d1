// Screens: the current screen id and the opening of a screen.
#pragma once
#include <cstdint>

// Screen ids. The program's own screens are 0 and up; 996..999 are the modal screens the
// shell draws in its own loops (alert, dialog, file open, file save).
enum : int32_t {
    SCREEN_INTRO = -1,
    SCREEN_MAIN = 0,
    SCREEN_ALERT = 996,
    SCREEN_DIALOG = 997,
    SCREEN_FILE_OPEN = 998,
    SCREEN_FILE_SAVE = 999,
};
inline bool screen_is_modal(int32_t id) { return id >= SCREEN_ALERT && id <= SCREEN_FILE_SAVE; }

extern int32_t cur_screen;

// Makes `id` current: typed text emptied, menus closed, clicks forgotten.
void MACIBM_open_screen(int32_t id);

void screens_reset();  // back to the intro screen
