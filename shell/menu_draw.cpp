// Drawing the menu bar and the open menu.
#include "graphics/design_space.h"
#include "graphics/palette_names.h"
#include "graphics/primitives.h"
#include "kit/boxes.h"
#include "kit/font.h"
#include "shell/language.h"
#include "shell/menu_table.h"
#include "shell/menus.h"
#include "window/input.h"

constexpr float MENU_BAR_MID_Y = 759.0f;  // the bar's centre line, above ui_margin_y
constexpr float TITLE_LIFT = 5.0f;        // titles stand this far above the bar's bottom
constexpr float LABEL_INDENT = 18.0f;     // labels start this far into their item
constexpr float LABEL_LIFT = 2.0f, KOREAN_LABEL_LIFT = 3.0f;  // and this far above its bottom
constexpr float ARROW_LEFT = 19.0f, ARROW_DROP = 5.0f;  // arrow sprite from its item's right and bottom

// The last pickable item of the open menu whose rectangle, less its top row, holds the pointer.
static int32_t item_under_pointer(const Menu& m) {
    const float x = ShellInput.mouse_x, y = ShellInput.mouse_y;
    int32_t under = -1;
    for (int32_t k = 0; k < MENU_ITEMS; ++k) {
        const MenuRect& r = m.items[k].rect;
        if (menu_item_pickable(m.items[k]) && x >= r.left && x <= r.right && y >= r.bottom && y <= r.top - 1.0f)
            under = k;
    }
    return under;
}

static void fill(int32_t color, float l, float b, float r, float t) { OGL_fill_rect(color, 1.0f, l, b, r - l, t - b); }

static void draw_frame(const MenuBox& b) {
    OGL_draw_line(PAL_MENU_LIGHT, 1.0f, b.min_x, b.min_y - 1.0f, b.min_x, b.max_y);
    OGL_draw_line(PAL_MENU_LIGHT, 1.0f, b.min_x, b.max_y, b.max_x, b.max_y);
    OGL_draw_line(PAL_MENU_SHADE, 1.0f, b.max_x, b.max_y, b.max_x, b.min_y - 1.0f);
    OGL_draw_line(PAL_MENU_SHADE, 1.0f, b.min_x, b.min_y - 1.0f, b.max_x, b.min_y - 1.0f);
}

static void draw_items(const Menu& m, int32_t under, bool korean) {
    const float lift = korean ? KOREAN_LABEL_LIFT : LABEL_LIFT;
    float prev_left = MENU_UNUSED;
    for (int32_t k = 0; k < MENU_ITEMS; ++k) {
        const MenuItem& it = m.items[k];
        if (!it.label[0]) continue;
        const MenuRect& r = it.rect;
        if (prev_left != MENU_UNUSED && r.left != prev_left) {  // a new column's divider
            OGL_draw_line(PAL_MENU_SHADE, 1.0f, r.left - 1.0f, menu_box.min_y - 1.0f, r.left - 1.0f, menu_box.max_y);
            OGL_draw_line(PAL_MENU_LIGHT, 1.0f, r.left, menu_box.min_y - 1.0f, r.left, menu_box.max_y);
        }
        prev_left = r.left;
        if (it.label[0] == '-') {
            OGL_draw_line(PAL_MENU_SHADE, 1.0f, r.left, r.bottom + 1.0f, r.right - 1.0f, r.bottom + 1.0f);
            OGL_draw_line(PAL_MENU_LIGHT, 1.0f, r.left, r.bottom, r.right - 1.0f, r.bottom);
        } else if (it.label[0] != '=') {
            int32_t ink = PAL_MENU_INK;
            if (k == under) ink = COLOR_WHITE;
            OGL_draw_string(ink, r.left + LABEL_INDENT, r.bottom + lift, it.label, FONT_NO_WRAP,
                            it.korean ? FACE_KOREAN : FACE_MENU);
        }
    }
}

void MACIBM_draw_menus() {
    const bool korean = language_is_korean();
    BTN_util_draw_bar(BAR_MENU, DESIGN_W / 2.0f, MENU_BAR_MID_Y + ui_margin_y, DESIGN_W);
    for (const Menu& m : menu_table)
        if (m.title[0] && m.parent < 0)
            OGL_draw_string(PAL_MENU_INK, m.rect.left, m.rect.bottom + TITLE_LIFT, m.title, FONT_NO_WRAP,
                            korean ? FACE_KOREAN : FACE_MENU);
    if (open_menu < 0) return;
    const Menu& m = menu_table[open_menu];
    const int32_t under = item_under_pointer(m);
    fill(PAL_MENU_FILL, menu_box.min_x, menu_box.min_y, menu_box.max_x, menu_box.max_y);
    if (under >= 0) {
        const MenuRect& r = m.items[under].rect;
        fill(PAL_MENU_LIT, r.left, r.bottom, r.right, r.top);
    }
    draw_frame(menu_box);
    draw_items(m, under, korean);
    for (const Menu& sub : menu_table)
        if (sub.title[0] && sub.parent == open_menu)
            BTN_util_draw_sprite(SHEET_MENU_ARROW, sub.rect.right - ARROW_LEFT, sub.rect.bottom - ARROW_DROP, COLOR_WHITE);
}
