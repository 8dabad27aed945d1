// The quit flag and the shell's orderly shut-down.
#include "base/shutdown.h"

#include "base/log.h"

int32_t quit_requested = 0;

static ShutdownStep steps[SHUTDOWN_MAX_STEPS];
static int step_count = 0;

void shutdown_add_step(ShutdownStep step) {
    for (int i = 0; i < step_count; ++i)
        if (steps[i] == step) return;
    if (step_count < SHUTDOWN_MAX_STEPS) steps[step_count++] = step;
}

void shutdown_reset() { step_count = 0; }

void MACIBM_shutdown() {
    static bool running = false;  // a fatal alert inside a step must not loop
    if (running) return;
    running = true;
    for (int i = 0; i < step_count; ++i) steps[i]();
    MACIBM_log_close();
    running = false;
}
