// Framed panels, bars, lamps and knobs cut from the interface sheet.
#pragma once
#include <cstdint>

// A nine-slice panel of `style` (0..6) with its title.
void BTN_util_draw_panel(int32_t style, float x, float y, float width, float height, const char* title);
