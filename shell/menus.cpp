// The menu bar. Until menu files are read there are no titles: nothing to pick or draw.
#include "shell/menus.h"

int32_t open_menu = -1;

void MACIBM_handleclick(int32_t) {}
void MACIBM_menu_follow_pointer() {}
void MACIBM_draw_menus() {}
