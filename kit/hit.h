// Hit testing against this pass's pointer: closed ranges in panel units.
#pragma once
#include "window/input.h"

inline bool BTN_within(float v, float lo, float hi) { return lo <= v && v <= hi; }
inline bool BTN_pointer_in(float x0, float x1, float y0, float y1) {
    return BTN_within(ShellInput.mouse_x, x0, x1) && BTN_within(ShellInput.mouse_y, y0, y1);
}
