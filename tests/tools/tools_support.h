// Shared pieces of the tools tests: generators, airport files and a reference decoding of reports.
#pragma once
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "briefing/airports.h"
#include "briefing/weather.h"
#include "tests/support/test_files.h"
#include "util/text.h"
#include "util/units.h"

// Runs a generator of the build folder with the arguments; its exit status.
int run_tool(const std::string& tool, const std::string& args);
std::string quoted(const std::string& s);

// An airport file read line by line without the program's reader: each airport and its first runway.
struct AptRow {
    std::string code, name, number;
    float elev = 0, hdg = 0;
    double lat = 0, lon = 0;
    int runways = 0;
    bool tower = false;  // has a tower viewpoint line
};
std::vector<AptRow> parse_apt_text(const std::string& text);
// Scans an airport file into apt_table with the program's own reader.
void scan_apt_file(const std::string& path);

// What the weather reader must make of a report's well-formed groups, decoded without the reader.
struct RefReport {
    int kt_groups = 0, altimeters = 0, layers = 0;  // KT groups, A and Q groups, cloud layers (first two)
    bool mps = false, wind = false, vrb = false;    // an MPS wind; the last KT group well-formed; VRB
    bool temp = false, time = false;                // a dd/dd-shaped group; a ddhhmmZ group
    float dir = 0, speed = 0, gust = 0, t = 0, d = 0, secs = 0;  // gust: the speed when none
    float pressure = 0, q_pressure = 0;             // the last altimeter group; the Q group's
    int kind[2] = {0, 0};
    float base[2] = {0, 0};
    float rmk_t = NAN, rmk_d = NAN;                 // tenths of the remarks' T group
};
RefReport ref_decode(const std::string& raw);
// The reader's decoding of `raw` into a record whose numbers start at `unset`.
StationWeather reader_decode(const std::string& raw, float unset);
// The fields where the reader differs from the reference ("" when none); a field that no group
// sets must have kept `unset`.
std::string ref_mismatch(const RefReport& r, const StationWeather& w, float unset);
