// Names of the palette entries the interface kit draws with.
#pragma once
#include <cstdint>

enum PaletteName : int32_t {
    PAL_WHITE = 0,    // images, labels, panel titles (tinted like every entry below 49)
    PAL_BLACK = 24,   // the list picker's default frame
    PAL_PULSE_GREEN = 55,  // green pulsing quickly (the event pass sets it): text cursors
    PAL_LIT = 61,     // white that is never tinted: lit overlays, the colour left by a state switch
    PAL_GREEN = 66,   // text of fields, lists, the briefing and tooltips
    PAL_YELLOW = 85,  // folder rows in lists
};
