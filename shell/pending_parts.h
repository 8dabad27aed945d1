// Screens, menus, panel and font calls the shell makes into pieces that are
// written elsewhere. Until a piece exists its stand-in in pending_parts.cpp (a weak
// definition) runs; the real definition replaces it at link time when it is added.
#pragma once
#include <cstdint>

// Screens.
enum : int32_t { SCREEN_INTRO = -1, SCREEN_MAIN = 0, SCREEN_ALERT = 996 };
extern int32_t cur_screen;
void MACIBM_open_screen(int32_t id);

// Menus.
extern int32_t open_menu;                   // -1 when no menu is open
void MACIBM_handleclick(int32_t from_return);
void MACIBM_menu_follow_pointer();          // a menu open: switch to the title under the pointer
void MACIBM_draw_menus();                   // the menu bar and the open menu

// Panel and font.
void BTN_util_draw_panel(int32_t style, float x, float y, float width, float height, const char* title);
void OGL_draw_string(int32_t color, float x, float y, const char* text, float width, int32_t face);
