// Writers of the simulator's files for tests (aircraft and preference files, the airport
// table) and the briefing state they feed.
#pragma once
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

struct TestAirport {
    std::string code, name;  // code: up to 4 characters
    float lat, lon;          // its one runway's position
    float elev = 0.0f;
};

struct TestAircraft {
    char marker = 'i';  // 'i' numbers low byte first, 'a' high byte first
    int32_t version = 626;
    std::string intro = "N172SP";
    float ref_speed = 160.0f;
    int32_t engine_kind = 0;
    bool swapped_block = false;  // the block's numbers high byte first (byte-order flag set)
    int32_t block_bytes = -1;    // bytes of block written; -1: the version's full size
};
std::string sim_aircraft(const TestAircraft& a);

struct TestSimPrefs {
    int32_t version = 6510;
    std::string aircraft_name = "C172.acf", aircraft_path = "", start_code = "KSFO";
    float local_hours = 14.4f, pressure = 29.92f, temperature = 15.0f, precip = 0.0f, visibility = 18520.0f;
    int32_t cloud_kind[2] = {2, 0};
    float cloud_top[2] = {1000, 0}, cloud_base[2] = {1000, 0};
    float wind_dir[3] = {0, 0, 270}, wind_speed[3] = {0, 0, 12}, gust[3] = {0, 0, 0};
};
std::string sim_prefs(const TestSimPrefs& p);

// Fills the airport table directly (no apt.dat), one runway per airport at its position.
void sim_set_airports(const std::vector<TestAirport>& airports);

// A fresh briefing state: reader slots, aircraft, request ("untitled.acf", 5000 feet) and
// weather cleared, the weather file dir + "metar.rwx" (absent until a test writes it).
void sim_brief_reset(const std::string& dir);

// The first generator state from which the next draws give the wanted choices: each row is
// (number of choices n, wanted choice r, 1..n). Leaves the generator in another state.
uint32_t sim_seed_for(const std::vector<std::pair<int, int>>& wanted);
