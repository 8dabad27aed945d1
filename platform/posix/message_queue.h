// The pending window messages shared by both platform layers (internal to platform/).
#pragma once
#include <cstdint>

// Turns the system's pending events into queued messages; each layer defines it.
void plat_gather_events();
// Waits up to `us` microseconds for the system to have an event; true when one is there.
// Each layer defines it.
bool plat_wait_events(int64_t us);
// Waits up to `us` microseconds for a message to be pending (one already queued, or an
// event of the system); true when one is.
bool plat_wait_input(int64_t us);
// Sleeps `us` microseconds (defined with the pacing).
void plat_sleep_us(int64_t us);
