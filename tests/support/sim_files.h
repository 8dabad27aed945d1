// Writers of the simulator's files for tests (apt.dat, metar.rwx, aircraft and preference
// files, a whole simulator folder) and the briefing state they feed.
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

// The language-and-resolution file: "i", version, width, height, bits, full screen, language.
std::string sim_lang_res(float width, float height, float bits, int32_t full, int32_t lang, int32_t version = 3);

struct TestSimPrefs {
    int32_t version = 6510;
    std::string aircraft_name = "C172.acf", aircraft_path, start_code = "KSFO";
    float local_hours = 14.4f, pressure = 29.92f, temperature = 15.0f, precip = 0.0f, visibility = 18520.0f;
    int32_t cloud_kind[2] = {2, 0};
    float cloud_top[2] = {1000, 0}, cloud_base[2] = {1000, 0};
    float wind_dir[3] = {0, 0, 270}, wind_speed[3] = {0, 0, 12}, gust[3] = {0, 0, 0};
};
std::string sim_prefs(const TestSimPrefs& p);

// Fills the airport table directly (no apt.dat), one runway per airport at its position;
// sim_add_airport appends one airport to the table as it stands.
void sim_set_airports(const std::vector<TestAirport>& airports);
void sim_add_airport(const TestAirport& a);

// A fresh briefing state: reader slots, aircraft, request ("untitled.acf", 5000 feet) and
// weather cleared, the weather file dir + "metar.rwx" (absent until a test writes it).
void sim_brief_reset(const std::string& dir);

// The first generator state from which the next draws give the wanted choices: each row is
// (number of choices n, wanted r), r = ((draw x n) >> 15) + 1.
uint32_t sim_seed_for(const std::vector<std::pair<int, int>>& wanted);

// A simulator folder under `dir`: "Resources/Earth nav data/apt.dat", "Aircraft/" and,
// unless `metar` is empty, "metar.rwx" with those lines. Returns dir.
std::string sim_folder(const std::string& dir, const std::vector<TestAirport>& airports,
                       const std::vector<std::string>& metar);
