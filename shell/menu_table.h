// The menu table: menus of the bar and menus hanging off items, with their laid-out items.
#pragma once
#include <cstdint>

constexpr int32_t MENU_COUNT = 420;
constexpr int32_t MENU_ITEMS = 100;
constexpr int32_t MENU_NAME_LIMIT = 40;  // a name this long is refused (glyphs for Korean titles, else bytes)
constexpr int32_t MENU_TITLE_SIZE = 2 * MENU_NAME_LIMIT;  // a Korean title of 39 glyphs and its zero
constexpr float MENU_UNUSED = -9999.0f;                   // every edge of an unused rectangle

// Menu-bar geometry in design units (the bar's y values are above ui_margin_y).
constexpr float MENU_BAR_FIRST_X = 12.0f;  // left edge of the first title
constexpr float MENU_TITLE_GAP = 12.0f;    // between one title's right and the next one's left
constexpr float MENU_BAR_BOTTOM = 750.0f;
constexpr float MENU_BAR_TOP = 768.0f;
constexpr float MENU_COLUMN_PAD = 35.0f;   // column width over the longest label
constexpr float MENU_LOWEST_TOP = 15.0f;   // an item whose top falls below starts a new column
constexpr float MENU_SEPARATOR_H = 2.0f;

struct MenuRect {
    float left, right, bottom, top;
};

struct MenuItem {
    char label[MENU_NAME_LIMIT];  // "" no item; "-..." separator; "=..." hidden, no height
    int32_t command;              // handed to app_menu_cmd when picked
    int32_t korean;               // drawn in the two-byte glyph face and measured wider
    MenuRect rect;
};

struct Menu {
    char title[MENU_TITLE_SIZE];  // "" unused
    int32_t parent;               // -1 on the bar, else the menu whose item it hangs off
    MenuRect rect;                // on the bar: the title; hanging: the item it hangs off
    MenuItem items[MENU_ITEMS];
};

extern Menu menu_table[MENU_COUNT];
extern float menu_next_x;  // left edge of the next title on the bar

// Every menu unused (an empty title; a menu is laid out afresh when built), no menu open.
void menus_reset();

// Menu `index` named `title`: parent code 0 puts it on the bar, else it hangs off item
// (code mod 100) of menu (code / 100). A title of MENU_NAME_LIMIT characters is fatal.
void MACIBM_create_menu(int32_t index, int32_t parent_code, const char* title);

// Item `item` of `menu`, then the menu's items laid out again: one column under the title
// as wide as the longest label allows, continued in further columns near the bottom of the
// design space. `plain` 1 keeps the Latin face with a Korean interface.
void append_menu(int32_t menu, int32_t item, int32_t command, const char* label, int32_t plain);

// An item that can be picked: a label that is neither empty, a separator nor hidden.
inline bool menu_item_pickable(const MenuItem& it) {
    return it.label[0] && it.label[0] != '-' && it.label[0] != '=';
}
// Edges included.
inline bool menu_rect_holds(const MenuRect& r, float x, float y) {
    return x >= r.left && x <= r.right && y >= r.bottom && y <= r.top;
}
