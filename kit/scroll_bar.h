// The vertical scroll bar: a three-slice track, a thumb that shows and drags a value, and a
// step end at each end of the track. `first` sits at the top.
#pragma once
#include <cstdint>

//  zone (x - 11 .. x + 11 across)              | input       | effect
//  y_top - 15 .. y_top (the top end)           | press       | value - 1
//  y_bottom .. y_bottom + 15 (the bottom end)  | press       | value + 1
//  y_bottom + 15 .. y_top - 15 (the track)     | button held | value follows the pointer (the
//                                              |             | thumb's travel top..bottom maps
//                                              |             | first..last); lit thumb; returns 1
//  anywhere else                               | any         | nothing
//  Every pass the value is held within first .. last; the thumb shows it as it was on entry.
constexpr float SCROLL_HALF_W = 11.0f;
constexpr float SCROLL_STEP_END = 15.0f;  // length of each step end
constexpr float SCROLL_THUMB_INSET = 28.0f;  // the thumb's centre stops this far from each end
constexpr float SCROLL_CAP = 30.0f;          // track caps, in units and texels

int32_t BTN_scroll_bar(float x, float y_bottom, float y_top, int32_t first, int32_t last, int32_t* value);

// The thumb's centre for `value` on a track from y_bottom to y_top.
float BTN_scroll_thumb_y(float y_bottom, float y_top, int32_t first, int32_t last, int32_t value);
