// A key-down as the program sees it: the application's key hook (not on the save screen,
// whose name field takes the keys), typed text, and Return as a click.
#include "shell/keydown.h"

#include "shell/app_hooks.h"
#include "shell/menus.h"
#include "shell/screens.h"
#include "window/input.h"

void MACIBM_keydown(uint32_t virtual_key) {
    KeyDown k = input_key_down(virtual_key);
    if (cur_screen != SCREEN_FILE_SAVE) app_key(k.key_class, k.key);
    input_enter_text(k.code, k.ch);
    if (ShellInput.enter_pressed) MACIBM_handleclick(1);
}
