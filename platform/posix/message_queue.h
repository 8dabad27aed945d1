// The pending window messages shared by both platform layers (internal to platform/).
#pragma once

// Turns the system's pending events into queued messages; each layer defines it.
void plat_gather_events();
