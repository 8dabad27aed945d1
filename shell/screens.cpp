// Screens: the current screen id and the opening of a screen.
#include "shell/screens.h"

#include "shell/menus.h"
#include "window/input.h"

int32_t cur_screen = SCREEN_INTRO;

void MACIBM_open_screen(int32_t id) {
    ShellInput.typed_text[0] = 0;
    open_menu = -1;
    cur_screen = id;
    ShellInput.mouse_clicked = 0;
    ShellInput.mouse_down = 0;
}

void screens_reset() { cur_screen = SCREEN_INTRO; }
