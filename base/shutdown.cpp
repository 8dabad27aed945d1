// The quit flag and the shell's orderly shut-down.
#include "base/shutdown.h"

#include "base/log.h"

int32_t quit_requested = 0;

static ShutdownStep steps[SHUTDOWN_SLOTS];

void shutdown_set_step(ShutdownSlot slot, ShutdownStep step) {
    if (slot >= 0 && slot < SHUTDOWN_SLOTS) steps[slot] = step;
}

void shutdown_reset() {
    for (ShutdownStep& s : steps) s = nullptr;
}

void MACIBM_shutdown() {
    static bool running = false;  // a fatal alert inside a step must not loop
    if (running) return;
    running = true;
    for (ShutdownStep step : steps)
        if (step) step();
    MACIBM_log_close();
    running = false;
}
