// The map of the interface sheet: every block of "general_interface" that the kit draws.
#pragma once
#include <cstdint>

#include "kit/faces.h"

// Block ids. Positions are texels of the 512 x 512 sheet, origin at the lower left, y up.
enum SheetBlockId : int32_t {
    SHEET_PANEL0,  // nine-slice panels by style; style 1 shares style 0's block
    SHEET_PANEL1,
    SHEET_PANEL2,  // lies inside style 3's block: style 3 is style 2 with a title band on top
    SHEET_PANEL3,
    SHEET_PANEL4,
    SHEET_PANEL5,
    SHEET_PANEL6,
    SHEET_BAR0,  // bar strips by kind: push button, its lit overlay, spare, tall field, menu bar
    SHEET_BAR1,
    SHEET_BAR2,
    SHEET_BAR3,
    SHEET_BAR4,  // the top 18 rows of style 0's block
    SHEET_KNOB,
    SHEET_KNOB_LIT,
    SHEET_LAMP,
    SHEET_LAMP_LIT,
    SHEET_PROGRESS0,  // the progress row's three 8-wide glows, over the lit lamp
    SHEET_PROGRESS1,
    SHEET_PROGRESS2,
    SHEET_CHECK,
    SHEET_CHECK_TICK,
    SHEET_DIGIT_BOX,
    SHEET_FILE_FIELD,
    SHEET_LIST_BOX,      // its top row meets the first font row, its right column the track
    SHEET_SCROLL_TRACK,  // vertical three-slice
    SHEET_THUMB,
    SHEET_THUMB_LIT,
    SHEET_POINTER,     // tip 7 texels from the left, 4 from the top
    SHEET_MENU_ARROW,  // points right
    SHEET_BG_COLOR,    // one texel of style 0's corner: the colour behind every screen
    SHEET_FONT_LABEL,  // faces 100, 101, 103: the full cell rows ...
    SHEET_FONT_LABEL_TAIL,  // ... and the cells of the last, partly used row
    SHEET_FONT_TIP,         // faces 104, 105
    SHEET_FONT_TIP_TAIL,
    SHEET_FONT_FIELD,  // face 106
    SHEET_FONT_FIELD_TAIL,
    SHEET_COUNT,
};

struct SheetBlock {
    int16_t x, y, w, h;                // lower-left texel and size
    int16_t left, right, bottom, top;  // slice edges in texels (bar caps, panel borders); 0 = none
    const char* name;
};

extern const SheetBlock BTN_sheet[SHEET_COUNT];

// The block holding face `face`'s cells (its full rows), or -1 for a face not on the sheet.
int32_t sheet_font_block(int32_t face);
