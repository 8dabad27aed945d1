// Names of the palette entries the interface kit and the menus draw with.
#pragma once
#include <cstdint>

enum PaletteName : int32_t {
    PAL_WHITE = 0,    // images, labels, panel titles (tinted like every entry below 49)
    PAL_BLACK = 24,   // the list picker's default frame
    PAL_LIT = 61,     // white that is never tinted: lit overlays, the colour left by a state switch
    PAL_GREEN = 66,   // text of fields, lists, the briefing and tooltips
    PAL_YELLOW = 85,  // folder rows in lists
    // The menus: grey text, and the open menu's fill, lit row and bevelled edges.
    PAL_MENU_INK = 5,
    PAL_MENU_LIT = 36,
    PAL_MENU_LIGHT = 37,
    PAL_MENU_FILL = 38,
    PAL_MENU_SHADE = 39,
};
