// Framed panels. The frames are cut from the interface sheet once it is drawn; until then
// a panel draws nothing.
#include "kit/boxes.h"

void BTN_util_draw_panel(int32_t, float, float, float, float, const char*) {}
