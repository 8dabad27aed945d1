// The quit flag and the shell's orderly shut-down.
#pragma once
#include <cstdint>

extern int32_t quit_requested;  // 1 ends the main loop

// Runs the shut-down steps in their fixed order (the preferences, the display mode, the
// window), then closes the log. Safe to call more than once.
void MACIBM_shutdown();

// The steps, each set by the part that owns it; an empty step is skipped.
enum ShutdownSlot : int32_t {
    SHUTDOWN_SOUND = 0,  // speaking stopped before anything it plays through goes
    SHUTDOWN_PREFS = 1,
    SHUTDOWN_DISPLAY = 2,
    SHUTDOWN_WINDOW = 3,
    SHUTDOWN_SLOTS = 4,
};
using ShutdownStep = void (*)();
void shutdown_set_step(ShutdownSlot slot, ShutdownStep step);  // nullptr empties the slot
void shutdown_reset();  // every slot empty
