// Interface pieces (bodies follow).
#include "kit/boxes.h"

void BTN_util_draw_piece(float, float, float, float, float, float, float, float, int32_t, float, int32_t) {}
void BTN_util_draw_sprite(int32_t, float, float, int32_t) {}
void BTN_util_split_label(const char*, char* left, char* right) { left[0] = right[0] = 0; }
void BTN_util_draw_label(float, float, int32_t, const char*) {}
void BTN_util_draw_lamp(float, float, float, float, int32_t) {}
void BTN_util_draw_bar(int32_t, float, float, float) {}
void BTN_util_draw_panel(int32_t, float, float, float, float, const char*) {}
void BTN_util_draw_corner_knobs(int32_t) {}
