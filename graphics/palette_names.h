// Names of the palette entries the menus and the progress screen draw with.
#pragma once
#include <cstdint>

#include "graphics/gl_state.h"  // the entries every drawing code uses (COLOR_...)

enum PaletteName : int32_t {
    // The menus: grey text, and the open menu's fill, lit row and bevelled edges.
    PAL_MENU_INK = 5,
    PAL_MENU_LIT = 36,
    PAL_MENU_LIGHT = 37,
    PAL_MENU_FILL = 38,
    PAL_MENU_SHADE = 39,
    COLOR_CURSOR = 55,  // green pulsing quickly (the event pass sets it): text cursors
};
