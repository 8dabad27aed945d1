// Shared pieces of the tools tests: generators, airport files and a reference decoding of reports.
#pragma once
#include <sys/wait.h>

#include <cctype>
#include <cmath>
#include <regex>
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

// What the weather reader must make of a report's well-formed groups, decoded without the reader.
struct RefReport {
    int kt_groups = 0, altimeters = 0, layers = 0;  // KT groups, A and Q groups, cloud layers (first two)
    bool mps = false, wind = false, vrb = false;    // an MPS wind; the last KT group well-formed; VRB
    bool temp = false, time = false;                // a dd/dd-shaped group; a ddhhmmZ group
    float dir = 0, speed = 0, gust = 0, t = 0, d = 0, secs = 0;  // gust: the speed when none
    float pressure = 0, q_pressure = 0;             // the last altimeter group; the Q group's
    int kind[2] = {0, 0};                           // the first two cloud layers
    float base[2] = {0, 0}, rmk_t = NAN, rmk_d = NAN;  // rmk_: tenths of the remarks' T group
};
inline RefReport ref_decode(const std::string& raw) {
    static const std::regex wind("(VRB|\\d{3})(\\d{2,3})(?:G(\\d{2,3}))?KT"), temp("(M?\\d\\d)/(M?\\d\\d)"),
        altimeter("[AQ]\\d{4}"), cloud("(FEW|SCT|BKN|OVC)..."), rmk_t("T[01]\\d{3}.*"), rmk_d("T.{4}[01]\\d{3}");
    // A character as the reader counts it: a digit its value, '+' 1, '-' -1, anything else 0.
    auto dv = [](char c) { return std::isdigit((unsigned char)c) ? c - '0' : c == '+' ? 1 : c == '-' ? -1 : 0; };
    auto two = [](const std::string& s) { return (s[0] == 'M' ? -1.0f : 1.0f) * std::stof(s.substr(s.size() - 2)); };
    auto tenths = [](const std::string& g, size_t p) {  // a sign (1 negative) and three digits of tenths
        return (g[p] == '1' ? -0.1f : 0.1f) * std::stof(g.substr(p + 1, 3));
    };
    RefReport r;
    std::istringstream in(raw);
    std::smatch s;
    int n = 0;  // groups examined; after RMK, as many as the reader examines
    for (std::string g; in >> g;) {
        if (++n > WX_GROUPS) {  // the remarks' T group: T, sign, three digits, then the same for the dewpoint
            if (std::regex_match(g, rmk_t)) r.rmk_t = tenths(g, 1);
            if (std::regex_match(g, rmk_d)) r.rmk_d = tenths(g, 5);
            continue;
        }
        if (g == "RMK") n = WX_GROUPS;
        if (g.size() == 7 && g[6] == 'Z')
            r.time = true, r.secs = dv(g[2]) * 36000 + dv(g[3]) * 3600 + dv(g[4]) * 600 + dv(g[5]) * 60;
        r.mps = r.mps || (g.size() > 3 && g.ends_with("MPS"));
        const bool kt = g.ends_with("KT");  // the last KT group is the wind
        r.kt_groups += kt;
        if (kt && (r.wind = std::regex_match(g, s, wind))) {
            r.vrb = s[1] == "VRB", r.dir = r.vrb ? 0.0f : std::stof(s[1]), r.speed = std::stof(s[2]);
            r.gust = s[3].matched ? std::stof(s[3]) : r.speed;
        }
        if (std::regex_match(g, s, temp)) r.temp = true, r.t = two(s[1]), r.d = two(s[2]);
        if (std::regex_match(g, altimeter)) {
            const double v = std::stod(g.substr(1));
            ++r.altimeters;
            r.pressure = g[0] == 'A' ? float(v / 100) : (r.q_pressure = float(v * 29.92 / 1013.25));
        }
        if (r.layers < 2 && std::regex_match(g, s, cloud)) {  // a base of other characters than digits: see dv
            const int k = int(std::string("FEWSCTBKNOVC").find(s[1].str()) / 3);
            r.base[r.layers] = (dv(g[3]) * 10000 + dv(g[4]) * 1000 + dv(g[5]) * 100) * 0.3048f;
            r.kind[r.layers] = k >= 2 ? k + 1 : r.base[r.layers] > 3000.0f ? 1 : 2;
            ++r.layers;
        }
    }
    return r;
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

// The fields where the reader differs from the reference ("" when none); a field that no group
// sets must have kept `unset`.
inline std::string ref_mismatch(const RefReport& r, const StationWeather& w, float unset) {
    std::string bad;
    auto check = [&](const char* name, bool known, float ours, float want, float tolerance) {
        if (known ? !(std::fabs(ours - want) <= tolerance) : ours != unset) bad += std::string(" ") + name;
    };
    if (r.wind || r.kt_groups == 0) {  // a malformed wind group is decoded by character position
        if (!r.vrb) check("direction", r.wind, w.wind_dir, r.dir, 0);
        check("speed", r.wind, w.wind_speed, r.speed, 0);
        check("gust", r.wind, r.wind ? w.wind_speed + w.gust : w.gust, r.gust, 0);
    }
    check("temperature", r.temp, w.temperature, r.t, 0);
    check("dewpoint", r.temp, w.dewpoint, r.d, 0);
    check("altimeter", r.altimeters > 0, w.pressure, r.pressure, 1e-4f);
    check("time", r.time, w.time, r.secs, 0);
    for (int k = 0; k < 2; ++k) {  // a cloud base without a layer keeps the reset value
        check("cloud kind", true, float(w.cloud_kind[k]), float(r.kind[k]), 0);
        check("cloud base", true, w.cloud_base[k], k < r.layers ? r.base[k] : 30479.7f, 0.01f);
    }
    return bad;
}
