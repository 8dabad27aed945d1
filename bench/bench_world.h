// A full-size generated simulator world for benchmarks: apt.dat and metar.rwx in a folder.
#pragma once
#include <string>

// Sizes of the full-size world: the airport table's limits and a busy weather file.
constexpr int BENCH_WORLD_AIRPORTS = 22000;
constexpr int BENCH_WORLD_RUNWAYS = 180000;
constexpr int BENCH_WORLD_REPORTS = 6000;

// Writes `dir`apt.dat (marker I, version 600, `airports` airport lines with `runways`
// runway lines spread over them, tower and start lines, code 99 at the end) and
// `dir`metar.rwx (`reports` reports of stations that are airports of that file, each after
// a date line). `dir` ends with '/'. The same sizes always give the same files.
// Returns false when a file cannot be written.
bool bench_world_make(const std::string& dir, int airports, int runways, int reports);

// A fresh folder under the system's temporary folder, with a trailing '/'; it is removed, with
// all it holds, when the program ends.
std::string bench_world_temp_dir();

// The full-size world, written once per process into a temporary folder; returns the folder.
const std::string& bench_world_full();

// Scans `dir`apt.dat into the airport table and points the weather lookup at
// `dir`metar.rwx. Returns false when apt.dat cannot be opened.
bool bench_world_load(const std::string& dir);
