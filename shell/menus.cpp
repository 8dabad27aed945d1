// Picking from the menu bar: titles open and close menus, items send their commands.
#include "shell/menus.h"

#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "kit/boxes.h"
#include "shell/app_hooks.h"
#include "shell/menu_table.h"
#include "shell/screens.h"
#include "window/input.h"

int32_t open_menu = -1;
MenuBox menu_box;

// The top corner knobs' boxes of a window screen's panel.
constexpr float KNOB_NEAR = 5.0f, KNOB_FAR = 25.0f, KNOB_HEIGHT = 20.0f;

static bool on_knob(float x, float y) {
    if (y < panel_h - KNOB_HEIGHT || y > panel_h) return false;
    return (x >= KNOB_NEAR && x <= KNOB_FAR) || (x >= panel_w - KNOB_FAR && x <= panel_w - KNOB_NEAR);
}

static void open(int32_t index) {
    open_menu = index;
    MenuBox b = {999.0f, 999.0f, 0.0f, 0.0f};
    bool any = false;
    for (const MenuItem& it : menu_table[index].items) {
        if (!it.label[0]) continue;
        any = true;
        if (it.rect.left < b.min_x) b.min_x = it.rect.left;
        if (it.rect.bottom < b.min_y) b.min_y = it.rect.bottom;
        if (it.rect.right > b.max_x) b.max_x = it.rect.right;
        if (it.rect.top > b.max_y) b.max_y = it.rect.top;
    }
    menu_box = any ? b : MenuBox{0.0f, 0.0f, 0.0f, 0.0f};
}

// A title that can be clicked now: on the bar, or hanging off the open menu.
static bool title_live(int32_t index) {
    const Menu& m = menu_table[index];
    return m.title[0] && (m.parent < 0 || (open_menu >= 0 && m.parent == open_menu));
}

void MACIBM_handleclick(int32_t from_return) {
    const float x = ShellInput.mouse_x, y = ShellInput.mouse_y;
    if (cur_screen != SCREEN_MAIN && !screen_is_modal(cur_screen)) {
        if (from_return == 1 || on_knob(x, y)) {
            BTN_util_draw_corner_knobs(1);
            OGL_swap_buffers();
            MACIBM_open_screen(SCREEN_MAIN);
            return;
        }
    } else if (cur_screen == SCREEN_MAIN) {
        for (int32_t i = 0; i < MENU_COUNT; ++i) {
            if (!title_live(i) || !menu_rect_holds(menu_table[i].rect, x, y)) continue;
            if (i == open_menu) open_menu = -1;
            else open(i);
            return;
        }
        if (open_menu >= 0) {
            for (const MenuItem& it : menu_table[open_menu].items) {
                if (!menu_item_pickable(it) || !menu_rect_holds(it.rect, x, y)) continue;
                app_menu_cmd(it.command);
                open_menu = -1;
                ShellInput.mouse_clicked = 0;
                ShellInput.mouse_down = 0;
                return;
            }
        }
    }
    open_menu = -1;
}

void MACIBM_menu_follow_pointer() {
    if (open_menu < 0) return;
    for (int32_t i = 0; i < MENU_COUNT; ++i) {
        const Menu& m = menu_table[i];
        if (m.title[0] && m.parent < 0 && i != open_menu &&
            menu_rect_holds(m.rect, ShellInput.mouse_x, ShellInput.mouse_y))
            MACIBM_handleclick(0);
    }
}
