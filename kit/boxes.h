// Interface pieces cut from the interface sheet: labels, lamps, bars, panels, corner knobs.
#pragma once
#include <cstdint>

#include "kit/sheet_map.h"

enum LabelAlign : int32_t {
    LABEL_RIGHT = 0,  // right-aligned to x, split in two lines when long
    LABEL_LINE = 1,   // one line from x
    LABEL_LEFT = 2,   // left-aligned from x, split when long
};
constexpr int32_t LABEL_SPLIT_AT = 12;  // labels longer than this may split

enum BarKind : int32_t {
    BAR_BUTTON = 0,      // push-button body
    BAR_BUTTON_LIT = 1,  // its lit overlay
    BAR_SPARE = 2,
    BAR_FIELD = 3,  // tall field: digit field, search fields, the file chooser
    BAR_MENU = 4,   // menu bar
    BAR_KINDS = 5,
};

enum PanelStyle : int32_t {
    PANEL_SCREEN = 0,        // a whole screen's backing, title centred
    PANEL_SCREEN_KNOBS = 1,  // the same with the corner knobs
    PANEL_INNER = 2,         // inner box, drawn 8 wider and lower
    PANEL_DIALOG = 3,        // alerts and the file chooser, drawn 8 wider and lower
    PANEL_PLAIN = 4,
    PANEL_BOX = 5,  // inner box with a green tooltip-face title, drawn 8 wider and lower
    PANEL_TIP = 6,  // translucent: tooltips and the progress screen's boxes
    PANEL_STYLES = 7,
};

constexpr int32_t LAMP_SIZE = 22;   // lamps and knobs are 22 x 22 sprites
constexpr int32_t LAMP_LIT_UP = 23;  // a lit lamp's overlay lies this many texels higher

// One piece of the interface sheet: texels (u0, v0) .. (u1, v1) drawn over units (x0, y0) ..
// (x1, y1) relative to the panel, one texture unit, alpha test on; blending on only if `blend`.
void BTN_util_draw_piece(float x0, float y0, float x1, float y1, float u0, float v0, float u1, float v1,
                         int32_t color, float alpha, int32_t blend);
// A sheet block drawn whole at one unit per texel with its lower-left corner at (x, y).
void BTN_util_draw_sprite(int32_t block, float x, float y, int32_t color);

// Splits `label` at its first vertical bar into two 500-byte buffers.
void BTN_util_split_label(const char* label, char* left, char* right);
// Draws a label in face 103 aligned by `align` (LabelAlign); a leading - is dropped and
// forbids the split.
void BTN_util_draw_label(float x, float y, int32_t align, const char* text);
// A 22 x 22 lamp centred on (x, y) from sheet position (u, v), with its lit overlay when lit.
void BTN_util_draw_lamp(float x, float y, float u, float v, int32_t lit);
// A stretchable bar of `kind` centred on (x, y), `width` units wide (made even).
void BTN_util_draw_bar(int32_t kind, float x, float y, float width);
// A nine-slice panel of `style` (0..6) with its lower-left corner at (x, y), and its title.
void BTN_util_draw_panel(int32_t style, float x, float y, float width, float height, const char* title);
// The two knobs at the top corners of the current screen's panel (panel_w x panel_h).
void BTN_util_draw_corner_knobs(int32_t lit);
