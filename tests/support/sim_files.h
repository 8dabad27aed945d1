// Writers of the simulator's files for tests: apt.dat, metar.rwx, aircraft and preference
// files, and a whole simulator folder.
#pragma once
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

struct TestAirport {
    std::string code;  // up to 4 characters
    std::string name;
    float lat, lon;    // its one runway's position
    float elev = 0.0f;
};

// apt.dat text: header, one airport line and one runway line per airport, then 99.
std::string sim_apt_dat(const std::vector<TestAirport>& airports);
// metar.rwx text: the lines, each ended by "\n".
std::string sim_metar(const std::vector<std::string>& lines);

struct TestAircraft {
    char marker = 'i';         // 'i' numbers low byte first, 'a' high byte first
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
    char marker = 'i';
    int32_t version = 6510;
    std::string aircraft_name = "C172.acf";
    std::string aircraft_path;
    std::string start_code = "KSFO";
    float local_hours = 14.4f;
    float pressure = 29.92f, temperature = 15.0f, precip = 0.0f, visibility = 18520.0f;
    int32_t cloud_kind[2] = {2, 0};
    float cloud_top[2] = {1000.0f, 0.0f};
    float cloud_base[2] = {1000.0f, 0.0f};
    float wind_dir[3] = {0.0f, 0.0f, 270.0f};
    float wind_speed[3] = {0.0f, 0.0f, 12.0f};
    float gust[3] = {0.0f, 0.0f, 0.0f};
};
std::string sim_prefs(const TestSimPrefs& p);

// Fills the airport table directly (no apt.dat): one runway per airport at its position.
void sim_set_airports(const std::vector<TestAirport>& airports);

// The first generator state from which the next draws give the wanted choices: each row is
// (number of choices n, wanted r), r = ((draw x n) >> 15) + 1.
uint32_t sim_seed_for(const std::vector<std::pair<int, int>>& wanted);

// A simulator folder under `dir`: "Resources/Earth nav data/apt.dat", "Aircraft/" and,
// unless `metar` is empty, "metar.rwx". Returns dir.
std::string sim_folder(const std::string& dir, const std::vector<TestAirport>& airports,
                       const std::vector<std::string>& metar);
