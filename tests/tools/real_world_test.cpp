// The weather reader and the briefing against the real world: one hour of the weather service's
// reports and the OurAirports runways, from the shared data folder (skipped when it is absent).
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

#include "briefing/composer.h"
#include "briefing/request.h"
#include "tests/support/sim_files.h"
#include "tests/tools/tools_support.h"

namespace {

constexpr float UNSET = -9999.0f;
constexpr const char* REPORTS = "metar/metars-2025-01-27.csv";  // one real hour, with the service's decoding

// A CSV file; rows[0] holds the column names, lines of one field (the reports' preamble) are
// dropped and quoted fields may hold commas.
struct Csv {
    std::vector<std::vector<std::string>> rows{{""}};
    std::map<std::string, size_t> col;  // the first of repeated names
    explicit Csv(const std::string& path) {
        bool quoted = false;
        for (char c : test_read_file(path)) {
            if (c == '"') quoted = !quoted;
            else if (quoted || (c != ',' && c != '\n' && c != '\r')) rows.back().back() += c;
            else if (c == ',') rows.back().emplace_back();
            else if (c == '\n') rows.emplace_back(1);
        }
        std::erase_if(rows, [](const std::vector<std::string>& r) { return r.size() < 2; });
        for (size_t i = 0; i < rows.at(0).size(); ++i) col.emplace(rows[0][i], i);
    }
    std::string operator()(size_t row, const char* name) const { return rows[row].at(col.at(name)); }
    double number(size_t row, const char* name) const { return std::atof((*this)(row, name).c_str()); }
};

// The real world's airport file: the airports of runways.csv with a 3- or 4-character code and a runway
// position, named "Wx CODE" for a reporting station and "Field CODE" for the others, then the stations with no
// runway there, one runway each. A runway without a position lies at the station, else at the first runway.
std::string real_apt_dat(const std::string& shared, const Csv& m) {
    const Csv c(shared + "ourairports/runways.csv");
    std::map<std::string, size_t> stations;  // report row of each station
    for (size_t k = 1; k < m.rows.size(); ++k) stations.emplace(m(k, "station_id"), k);
    std::string out = "I\n600 Version - real-world test airports\n", open;  // open: the airport being written
    double at[2] = {0, 0};
    for (size_t i = 1; i < c.rows.size(); ++i) {  // runways.csv lists each airport's runways together
        const std::string code = c(i, "airport_ident"), y = c(i, "le_latitude_deg"), x = c(i, "le_longitude_deg");
        const bool known = !y.empty() && !x.empty();
        if (code != open) {
            const auto st = stations.find(code);
            const bool station = st != stations.end();
            open = code.size() < 3 || code.size() > 4 || (!known && !station) ? "" : code;
            if (open.empty()) continue;
            at[0] = station ? m.number(st->second, "latitude") : std::atof(y.c_str());
            at[1] = station ? m.number(st->second, "longitude") : std::atof(x.c_str());
            out += "1 0 0 0 " + code + (station ? " Wx " : " Field ") + code + "\n";
            if (station) stations.erase(st);
        }
        std::string id;  // the runway number as the reader takes it: three non-blank characters
        for (char ch : c(i, "le_ident") + "xxx") id += ch > ' ' && ch < 127 && id.size() < 3 ? std::string(1, ch) : "";
        const double lat = known ? std::atof(y.c_str()) : at[0], lon = known ? std::atof(x.c_str()) : at[1];
        char line[160];
        std::snprintf(line, sizeof line, "10 %.6f %.6f %s %.2f %.0f 0 0 %.0f 1\n", lat, lon, id.c_str(),
                      c.number(i, "le_heading_degT"), c.number(i, "length_ft"), c.number(i, "width_ft"));
        out += line;
    }
    for (size_t k = 1; k < m.rows.size(); ++k)
        if (stations.count(m(k, "station_id")))
            out += "1 0 0 0 " + m(k, "station_id") + " Wx " + m(k, "station_id") + "\n10 " + m(k, "latitude") + " " +
                   m(k, "longitude") + " 36x 0 5000 0 0 100 1\n";
    return out + "99\n";
}

double gap(int32_t i, double lat, double lon) { return std::hypot(apt_lat(i) - lat, apt_lon(i) - lon); }

}  // namespace

// Every report decodes under the sanitizers, and our decoding agrees with the weather service's
// own as often as measured (docs/sample-world.md lists the deliberate differences).
TEST(RealMetar, DecodedFieldsAgreeWithTheWeatherService) {
    const std::string shared = test_shared_data();
    if (shared.empty()) GTEST_SKIP() << "shared real-world data is absent";
    units_init();
    const Csv m(shared + REPORTS);
    ASSERT_EQ(m.rows.size() - 1, 4909u);  // after the header
    const struct { const char* name; double floor_pct; } fields[6] = {
        {"wind direction", 96.5}, {"wind speed", 96.5}, {"gust", 96.4},
        {"temperature", 99.6},    {"dewpoint", 99.9},   {"altimeter", 99.6}};
    int compared[6] = {}, agreed[6] = {};
    for (size_t k = 1; k < m.rows.size(); ++k) {
        const StationWeather w = reader_decode(m(k, "raw_text"), UNSET);
        const std::string dir = m(k, "wind_dir_degrees"), gusts = m(k, "wind_gust_kt");
        const bool wind = !m(k, "wind_speed_kt").empty();
        const double speed = m.number(k, "wind_speed_kt"), gust = gusts.empty() ? speed : std::atof(gusts.c_str());
        const double temp = m.number(k, "temp_c"), dew = m.number(k, "dewpoint_c"), alt = m.number(k, "altim_in_hg");
        const bool rows[6][2] = {  // compared (a VRB direction is random, 0.00 is no altimeter), agreed
            {wind && !dir.empty() && dir != "VRB", w.wind_dir == float(std::atof(dir.c_str()))},
            {wind, w.wind_speed == float(speed)},
            {wind, w.wind_speed != UNSET && std::fabs(w.wind_speed + w.gust - gust) < 1e-3},
            {!m(k, "temp_c").empty(), std::fabs(w.temperature - temp) <= 0.5001},
            {!m(k, "dewpoint_c").empty(), std::fabs(w.dewpoint - dew) <= 0.5001},
            {alt > 0.0, w.pressure - alt > -0.006 && w.pressure - alt < 0.0105}};  // the service cuts hectopascals
        for (int f = 0; f < 6; ++f) compared[f] += rows[f][0], agreed[f] += rows[f][0] && rows[f][1];
    }
    int all = 0, all_agreed = 0;
    for (int f = 0; f < 6; ++f) {
        const double pct = 100.0 * agreed[f] / compared[f];
        std::printf("%-15s %5d of %5d agree (%.2f %%)\n", fields[f].name, agreed[f], compared[f], pct);
        EXPECT_GE(pct, fields[f].floor_pct) << fields[f].name;
        all += compared[f], all_agreed += agreed[f];
    }
    std::printf("all fields: %d of %d agree (%.2f %%)\n", all_agreed, all, 100.0 * all_agreed / all);
}

// An airport file at full scale from the real runways and stations, the real reports as the
// weather file: the scan keeps every airport, and each paragraph of 300 briefings names the station
// that an independent search picks.
TEST(RealWorld, FullScaleAirportFileAndBriefings) {
    const std::string shared = test_shared_data();
    if (shared.empty()) GTEST_SKIP() << "shared real-world data is absent";
    units_init();
    const Csv m(shared + REPORTS);
    const std::string apt = real_apt_dat(shared, m), dir = test_temp_dir();
    const auto airports = parse_apt_text(apt);
    std::string metar = "2025/01/27\n";
    for (size_t k = 1; k < m.rows.size(); ++k) metar += m(k, "raw_text") + "\n";
    scan_apt_file(test_write_file(dir, "apt.dat", apt));
    test_write_file(dir, "metar.rwx", metar);
    std::vector<int32_t> stations;  // airport index of each report's station
    for (size_t k = 1; k < m.rows.size(); ++k)
        if (int32_t i; apt_find_code(m(k, "station_id").c_str(), 1, &i)) stations.push_back(i);
    int runways = 0;
    for (const auto& a : airports) runways += a.runways;
    std::printf("real-world airport file: %zu airports (%zu reporting), %d runways\n", airports.size(),
                stations.size(), runways);
    ASSERT_GT(airports.size(), 10000u);
    ASSERT_EQ(apt_table.airport_count + 1, int32_t(airports.size()));
    ASSERT_EQ(apt_table.runway_count + 1, runways);
    ASSERT_EQ(stations.size() + 1, m.rows.size());
    for (int32_t i = 0; i < int32_t(airports.size()); ++i)
        ASSERT_TRUE(airports[i].code == apt_table.apt_code[i] && float(airports[i].lat) == apt_lat(i) &&
                    float(airports[i].lon) == apt_lon(i)) << airports[i].code;
    std::mt19937 pick(20250127);
    int midpoint_elsewhere = 0;
    for (int k = 0; k < 300; ++k) {
        const int32_t dep = stations[pick() % stations.size()];
        std::vector<int32_t> near;  // half the routes are regional, within 5 degrees
        for (int32_t i : stations)
            if (k % 2 == 0 || (i != dep && std::hypot(apt_lat(i) - apt_lat(dep), apt_lon(i) - apt_lon(dep)) < 5.0f))
                near.push_back(i);
        const int32_t dest = near.empty() ? dep : near[pick() % near.size()];
        sim_brief_reset(dir);
        brief_req.departure = dep, brief_req.destination = dest;
        brief_compose();
        const struct { const char* text; float lat, lon; } paragraphs[3] = {
            {brief_req.dep_wx, apt_lat(dep), apt_lon(dep)},
            {brief_req.enroute_wx, (apt_lat(dep) + apt_lat(dest)) * 0.5f, (apt_lon(dep) + apt_lon(dest)) * 0.5f},
            {brief_req.dest_wx, apt_lat(dest), apt_lon(dest)}};
        for (const auto& [wx, lat, lon] : paragraphs) {
            const std::string text = wx;  // the station's name: "Wx CODE is reporting"
            const size_t at = text.find(" Wx ") + 4;
            int32_t named = -1;
            ASSERT_TRUE(at > 3 && apt_find_code(text.substr(at, text.find(" is reporting") - at).c_str(), 1, &named))
                << wx;
            // The station an independent search picks, or another at the same distance in single precision.
            const int32_t expect = *std::min_element(stations.begin(), stations.end(), [&](int32_t a, int32_t b) {
                return gap(a, lat, lon) < gap(b, lat, lon);  // the first among equals
            });
            ASSERT_LE(gap(named, lat, lon), gap(expect, lat, lon) * (1.0 + 1e-6) + 1e-6)
                << "expected " << apt_table.apt_name[expect] << ": " << wx;
            midpoint_elsewhere += wx == brief_req.enroute_wx && named != dep && named != dest;
        }
    }
    std::printf("300 routes briefed; %d midpoints named a third station\n", midpoint_elsewhere);
}
