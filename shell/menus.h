// The menu bar: the open menu, picks by pointer and Return, and its drawing.
#pragma once
#include <cstdint>

extern int32_t open_menu;  // -1 when no menu is open

void MACIBM_handleclick(int32_t from_return);  // a click (or Return) on the bar or an open menu
void MACIBM_menu_follow_pointer();             // a menu open: switch to the title under the pointer
void MACIBM_draw_menus();                      // the menu bar and the open menu
