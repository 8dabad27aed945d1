// The simulator's preference record: the aircraft, the start airport and the weather.
#pragma once
#include <cstdint>

// Reads the simulator's preference file at `path` (changed in place) into the briefing's
// request and weather; 1 when it could be opened and its header was accepted, else 0.
int32_t brief_read_sim_prefs(char* path);
