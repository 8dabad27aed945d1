// Weak stand-ins for the screens, menus, panel and font the shell calls; each
// is replaced by the real definition once that piece is written.
#include "shell/pending_parts.h"

#include "shell/input.h"

[[gnu::weak]] int32_t cur_screen = SCREEN_INTRO;
[[gnu::weak]] int32_t open_menu = -1;

// The part of a screen opening the input record depends on: the rest (panel, background)
// belongs to the screens.
[[gnu::weak]] void MACIBM_open_screen(int32_t id) {
    ShellInput.typed_text[0] = 0;
    open_menu = -1;
    cur_screen = id;
    ShellInput.mouse_clicked = 0;
    ShellInput.mouse_down = 0;
}

[[gnu::weak]] void MACIBM_handleclick(int32_t) {}
[[gnu::weak]] void MACIBM_menu_follow_pointer() {}
[[gnu::weak]] void MACIBM_draw_menus() {}
[[gnu::weak]] void BTN_util_draw_panel(int32_t, float, float, float, float, const char*) {}
[[gnu::weak]] void OGL_draw_string(int32_t, float, float, const char*, float, int32_t) {}
