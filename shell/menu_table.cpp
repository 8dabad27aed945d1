// The menu table and its builders: titles on the bar, hanging menus, the item columns.
#include "shell/menu_table.h"

#include <algorithm>
#include <cstring>

#include "base/alert.h"
#include "graphics/design_space.h"
#include "shell/language.h"
#include "shell/menus.h"

Menu menu_table[MENU_COUNT];
float menu_next_x = MENU_BAR_FIRST_X;

static constexpr MenuRect unused_rect = {MENU_UNUSED, MENU_UNUSED, MENU_UNUSED, MENU_UNUSED};

// Menus from this index on have never been written: they read as unused (an empty title) and
// are put in the reset state only when a menu is first built there, so a reset touches the few
// menus the files build, not the whole 2.7 MB table.
static int32_t menus_touched = 0;

static void reset_menu(Menu& m) {
    memset(&m, 0, sizeof m);
    m.parent = -1;
    m.rect = unused_rect;
    for (MenuItem& it : m.items) it.rect = unused_rect;
}

static Menu& touch(int32_t index) {
    while (menus_touched <= index) reset_menu(menu_table[menus_touched++]);
    return menu_table[index];
}

void menus_reset() {
    for (int32_t i = 0; i < menus_touched; ++i) reset_menu(menu_table[i]);
    menu_next_x = MENU_BAR_FIRST_X;
    open_menu = -1;
}

void MACIBM_create_menu(int32_t index, int32_t parent_code, const char* title) {
    const bool korean = language_is_korean();
    int32_t n = (int32_t)strnlen(title, MENU_TITLE_SIZE);
    if (korean) n /= 2;  // two bytes a glyph
    if (n >= MENU_NAME_LIMIT)  // so a stored title always fits MENU_TITLE_SIZE
        MACIBM_fatal("menu name too long in MACIBM_create_menu!", "", "", title);
    if (index < 0 || index >= MENU_COUNT) MACIBM_fatal("Menu index out of range in MACIBM_create_menu!", "", "", title);
    if (parent_code < 0 || parent_code / 100 >= MENU_COUNT)
        MACIBM_fatal("Parent code out of range in MACIBM_create_menu!", "", "", title);
    Menu& m = touch(index);
    strcpy(m.title, title);
    if (parent_code == 0) {
        m.parent = -1;
        if (index == 0) menu_next_x = MENU_BAR_FIRST_X;
        const float cw = korean ? 14.0f : 7.0f;  // the title face's advance
        m.rect = {menu_next_x, menu_next_x + (float)n * cw, MENU_BAR_BOTTOM + ui_margin_y, MENU_BAR_TOP + ui_margin_y};
        menu_next_x = m.rect.right + MENU_TITLE_GAP;
    } else {
        m.parent = parent_code / 100;
        m.rect = menu_table[m.parent].items[parent_code % 100].rect;
    }
}

// Height of an item by its label's lead character.
static float item_height(const MenuItem& it, float row) {
    if (it.label[0] == '-') return MENU_SEPARATOR_H;
    if (it.label[0] == '=') return 0.0f;
    return row;
}

void append_menu(int32_t menu, int32_t item, int32_t command, const char* label, int32_t plain) {
    if (menu < 0 || menu >= MENU_COUNT) MACIBM_fatal("Menu index out of range in append_menu!", "", "", label);
    if (item < 0 || item >= MENU_ITEMS) MACIBM_fatal("Item index out of range in append_menu!", "", "", label);
    if (strnlen(label, MENU_NAME_LIMIT) >= (size_t)MENU_NAME_LIMIT)  // bytes, also for two-byte glyphs
        MACIBM_fatal("Menu name too long in append_menu!", "", "", label);
    Menu& m = touch(menu);
    MenuItem& added = m.items[item];
    strcpy(added.label, label);
    added.command = command;
    added.korean = language_is_korean() && plain == 0 ? 1 : 0;
    // The appended item's measures apply to the whole menu.
    const float row = added.korean ? 13.0f : 12.0f;
    const float cw = added.korean ? 13.0f : 7.0f;
    float width = 0.0f;
    for (const MenuItem& it : m.items)
        if (it.label[0]) width = std::max(width, (float)strlen(it.label) * cw + MENU_COLUMN_PAD);

    const MenuItem* first = nullptr;  // the column head: item 0 in every menu the file builds
    const MenuItem* prev = nullptr;
    for (MenuItem& it : m.items) {
        if (!it.label[0]) continue;
        MenuRect r;
        if (!first) {
            if (m.parent < 0) r.top = m.rect.bottom, r.bottom = m.rect.bottom - row;  // drops below the title
            else r.top = m.rect.top, r.bottom = m.rect.bottom;                          // level with its item
            r.left = m.rect.left;
            r.right = m.rect.left + width;
        } else {
            r.top = prev->rect.bottom;
            r.bottom = r.top - item_height(it, row);
            r.left = prev->rect.left;
            r.right = prev->rect.right;
        }
        if (first && r.top < MENU_LOWEST_TOP) {  // next column, level with the head
            r.left += width;
            r.right += width;
            r.bottom = first->rect.bottom;
            r.top = first->rect.top;
        }
        it.rect = r;
        if (!first) first = &it;
        prev = &it;
    }
}
