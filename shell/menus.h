// The menu bar: reading the menus, the open menu, picks by pointer and Return, and drawing.
#pragma once
#include <cstdint>

extern int32_t open_menu;  // -1 when no menu is open

// The open menu's items' bounding box (all 0 for a menu without items).
struct MenuBox {
    float min_x, min_y, max_x, max_y;
};
extern MenuBox menu_box;

// Empties the menu table and reads the menu file `name` of the current language.
void MACIBM_load_menus(const char* name);

// A press (from_return 0) or Return (1): closes a window screen by its corner knobs (or
// Return), opens and closes menus by their titles, and hands a picked item's command to
// app_menu_cmd. Anything else closes the open menu.
void MACIBM_handleclick(int32_t from_return);
// With a menu open: a bar title under the pointer other than the open menu's opens its menu.
void MACIBM_menu_follow_pointer();
// The bar and its titles, then the open menu, its items and the arrows of hanging menus.
void MACIBM_draw_menus();
