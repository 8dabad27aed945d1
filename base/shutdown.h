// The quit flag and the shell's orderly shut-down.
#pragma once
#include <cstdint>

extern int32_t quit_requested;  // 1 ends the main loop

// Releases what the shell holds, in order, and closes the log. Safe to call more than once.
void MACIBM_shutdown();

// A step run by the shut-down before the log closes (preferences, display, window).
// Steps run in the order they were added; at most SHUTDOWN_MAX_STEPS.
constexpr int SHUTDOWN_MAX_STEPS = 8;
using ShutdownStep = void (*)();
void shutdown_add_step(ShutdownStep step);
void shutdown_reset();
