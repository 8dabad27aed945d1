// Loads what a briefing needs: the airport list, the weather source and the aircraft.
#pragma once
#include <cstdint>

// The loading of the program start, with the folder table already filled: the request is
// cleared, apt.dat is scanned, the weather file is checked (or the simulator preferences
// read instead), the aircraft "untitled.acf" (or the simulator's) is set and read, the
// altitude set to 5000 feet. Returns 1 when the weather file can be opened, 0 when the
// simulator preferences stand in for it. Problems are reported by alerts (a missing
// weather source is fatal).
int32_t brief_load_world();

// Starts the scan of apt.dat on a worker thread, with the folder table already filled, so
// that it runs beside the window's set-up; brief_load_world then waits for it (showing the
// progress screen while it is not done) instead of scanning, and shows its alerts in order.
void brief_scan_start();
