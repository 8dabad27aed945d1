// Screen ids: the program's own screens are 0 and up; 996..999 are the modal screens the shell
// draws in its own loops. Widgets below the shell name them too (the file screens).
#pragma once
#include <cstdint>

enum : int32_t {
    SCREEN_INTRO = -1,
    SCREEN_MAIN = 0,
    SCREEN_ALERT = 996,
    SCREEN_DIALOG = 997,
    SCREEN_FILE_OPEN = 998,
    SCREEN_FILE_SAVE = 999,
};
inline bool screen_is_modal(int32_t id) { return id >= SCREEN_ALERT && id <= SCREEN_FILE_SAVE; }
