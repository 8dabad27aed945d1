// Shared pieces of the tools tests: generators, airport files and the reader's decoding of one report.
#pragma once
#include <sys/wait.h>

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "briefing/airports.h"
#include "briefing/metar_decode.h"
#include "briefing/weather.h"
#include "tests/support/test_files.h"
#include "util/file_reader.h"
#include "util/units.h"

// Runs a generator of the build folder with the arguments (each quoted); its exit status.
inline int run_tool(const std::string& tool, const std::vector<std::string>& args) {
    std::string cmd = "\"$VOCALOG_BINARY_DIR/" + tool + "\"";  // the test entry sets the folder
    for (const std::string& a : args) cmd += " \"" + a + "\"";
    const int rc = std::system((cmd + " 2>/dev/null").c_str());
    return WIFEXITED(rc) ? WEXITSTATUS(rc) : -1;
}

// An airport file read line by line without the program's reader: each airport and its first runway.
struct AptRow {
    std::string code, name, number;
    float elev = 0, hdg = 0;
    double lat = 0, lon = 0;
    int runways = 0;
    bool tower = false;  // has a tower viewpoint line
};
inline std::vector<AptRow> parse_apt_text(const std::string& text) {
    std::vector<AptRow> out;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        std::istringstream l(line);
        int code = 0, tower, bldg;
        if (!(l >> code) || (code != 1 && out.empty())) continue;
        AptRow& a = code == 1 ? out.emplace_back() : out.back();
        if (code == 1) l >> a.elev >> tower >> bldg >> a.code >> std::ws, std::getline(l, a.name);
        if (code == 10 && a.runways++ == 0) l >> a.lat >> a.lon >> a.number >> a.hdg;
        a.tower = a.tower || code == 14;
    }
    return out;
}

// Scans an airport file into apt_table with the program's own reader.
inline void scan_apt_file(std::string path) {
    apt_reset();
    if (fio_open(path.data(), FILE_TYPE_TEXT, 600, 1)) apt_scan(path.c_str()), fio_close();
}

// The reader's decoding of `raw` into a record whose numbers start at `unset`.
inline StationWeather reader_decode(const std::string& raw, float unset) {
    StationWeather w{};
    w.time = w.visibility = w.temperature = w.dewpoint = w.wind_dir = w.wind_speed = w.gust = w.pressure = unset;
    wx_decode(raw.c_str(), {&w.time, w.cloud_kind, w.cloud_base, w.cloud_top, &w.visibility, &w.wx_kind,
                            &w.wx_intensity, &w.temperature, &w.dewpoint, &w.wind_dir, &w.wind_speed, &w.gust,
                            &w.pressure});
    return w;
}
