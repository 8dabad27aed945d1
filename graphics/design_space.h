// The 1024 x 768 design space and its placement in the window: scale, margins, panel origin.
#pragma once
#include <cstdint>

#include "util/prefs.h"  // disp_width, disp_height: the window size in pixels

constexpr float DESIGN_W = 1024.0f;
constexpr float DESIGN_H = 768.0f;

extern float ui_scale;     // window pixels per design unit
extern float ui_margin_x;  // design units added on each side when the window is wider than 4:3
extern float ui_margin_y;  // design units added above when it is taller
extern float panel_x;      // lower-left corner of the current screen's panel; the primitives
extern float panel_y;      // add it to every coordinate they are given
extern float panel_w;      // the current screen's panel size in units
extern float panel_h;

// Computes ui_scale and the margins from disp_width and disp_height.
void design_space_fit();
// Back to a 1024 x 768 window with scale 1, no margins and the panel at the origin.
void design_space_reset();
