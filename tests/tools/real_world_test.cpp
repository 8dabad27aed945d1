// The weather reader and the briefing against the real world: one hour of the weather service's
// reports and the OurAirports runways, from the shared data folder (skipped when it is absent).
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <random>

#include "briefing/composer.h"
#include "briefing/request.h"
#include "tests/tools/tools_support.h"
#include "util/random.h"

namespace {

constexpr float UNSET = -9999.0f;

// A CSV file from its header line on (`first` names the first column); quoted fields may hold commas.
struct Csv {
    std::vector<std::vector<std::string>> rows{1};
    std::map<std::string, size_t> col;  // the first of repeated names
    Csv(const std::string& text, const std::string& first) {
        std::string f;
        bool quoted_field = false;
        for (char c : text) {
            if (c == '"') quoted_field = !quoted_field;
            else if (quoted_field || (c != ',' && c != '\n' && c != '\r')) f += c;
            else if (c != '\r') rows.back().push_back(f), f.clear();
            if (!quoted_field && c == '\n') rows.emplace_back();
        }
        while (!rows.empty() && (rows[0].empty() || rows[0][0] != first)) rows.erase(rows.begin());
        std::erase_if(rows, [](const std::vector<std::string>& r) { return r.size() < 2; });
        for (size_t i = 0; !rows.empty() && i < rows[0].size(); ++i) col.emplace(rows[0][i], i);
    }
    std::string operator()(size_t row, const char* name) const { return rows[row].at(col.at(name)); }
    double number(size_t row, const char* name) const { return std::atof((*this)(row, name).c_str()); }
};

// The reports of one real hour (row i + 1 is report i), with the weather service's own decoding.
Csv real_reports(const std::string& shared) {
    return Csv(test_read_file(shared + "metar/metars-2025-01-27.csv"), "raw_text");
}

// The real world's airport file: the airports of runways.csv with a 3- or 4-character code and a
// runway position, named "Wx CODE" for a reporting station and "Field CODE" for the others, then
// the stations that have no runway there, each with one runway at its reported position. A runway
// without a position lies at the station, or else at the airport's first runway.
std::string real_apt_dat(const std::string& shared, const Csv& m) {
    const Csv c(test_read_file(shared + "ourairports/runways.csv"), "id");
    std::map<std::string, size_t> stations;  // report row of each station
    for (size_t k = 1; k < m.rows.size(); ++k) stations.emplace(m(k, "station_id"), k);
    std::string out = "I\n600 Version - real-world test airports\n", lines;
    double at[2] = {0, 0};
    for (size_t i = 1; i < c.rows.size(); ++i) {  // runways.csv lists each airport's runways together
        const std::string code = c(i, "airport_ident"), y = c(i, "le_latitude_deg"), x = c(i, "le_longitude_deg");
        const auto st = stations.find(code);
        const bool station = st != stations.end(), known = !y.empty() && !x.empty();
        if (station && lines.empty())
            at[0] = m.number(st->second, "latitude"), at[1] = m.number(st->second, "longitude");
        if (code.size() < 3 || code.size() > 4 || (!known && !station && lines.empty())) continue;
        if (!station && lines.empty()) at[0] = std::atof(y.c_str()), at[1] = std::atof(x.c_str());
        std::string id;  // the runway number as the reader takes it: three non-blank characters
        for (char ch : c(i, "le_ident") + "xxx") id += ch > ' ' && ch < 127 && id.size() < 3 ? std::string(1, ch) : "";
        char line[160];
        std::snprintf(line, sizeof line, "10 %.6f %.6f %s %.2f %.0f 0 0 %.0f 1\n", known ? std::atof(y.c_str()) : at[0],
                      known ? std::atof(x.c_str()) : at[1], id.c_str(), c.number(i, "le_heading_degT"),
                      c.number(i, "length_ft"), c.number(i, "width_ft"));
        lines += line;
        if (i + 1 < c.rows.size() && c(i + 1, "airport_ident") == code) continue;
        out += "1 0 0 0 " + code + (station ? " Wx " : " Field ") + code + "\n" + lines;
        lines.clear();
        if (station) stations.erase(st);
    }
    for (size_t k = 1; k < m.rows.size(); ++k)
        if (stations.count(m(k, "station_id")))
            out += "1 0 0 0 " + m(k, "station_id") + " Wx " + m(k, "station_id") + "\n10 " + m(k, "latitude") + " " +
                   m(k, "longitude") + " 36x 0 5000 0 0 100 1\n";
    return out + "99\n";
}

// The station of `stations` nearest to (lat, lon), the first among equals; its distance in `dist`.
int32_t nearest_of(const std::vector<int32_t>& stations, float lat, float lon, double* dist) {
    int32_t best = -1;
    *dist = 1e30;
    for (int32_t i : stations) {
        const double d = std::hypot(double(apt_lat(i)) - lat, double(apt_lon(i)) - lon);
        if (d < *dist) *dist = d, best = i;
    }
    return best;
}

}  // namespace

// Every report decodes under the sanitizers as the reference decoding says; where the weather
// service's decoding differs, one of our deliberate rules must explain it.
TEST(RealMetar, DecodedFieldsAgreeWithTheWeatherService) {
    const std::string shared = test_shared_data();
    if (shared.empty()) GTEST_SKIP() << "shared real-world data is absent";
    units_init();
    const Csv m = real_reports(shared);
    ASSERT_EQ(m.rows.size() - 1, 4909u);  // after the header
    const char* names[6] = {"wind direction", "wind speed", "gust", "temperature", "dewpoint", "altimeter"};
    int compared[6] = {}, agreed[6] = {}, by_rule[6][8] = {}, reader_faults = 0;
    for (size_t k = 1; k < m.rows.size(); ++k) {
        const std::string raw = m(k, "raw_text"), dir = m(k, "wind_dir_degrees"), gusts = m(k, "wind_gust_kt");
        const RefReport ref = ref_decode(raw);
        const StationWeather w = reader_decode(raw, UNSET);
        const std::string bad = ref_mismatch(ref, w, UNSET);
        if (!bad.empty() && ++reader_faults <= 8) ADD_FAILURE() << "reader differs in" << bad << ": " << raw;
        // The rule of ours that explains a difference, numbered as in docs/sample-world.md (0: none).
        const int wind_rule = ref.kt_groups == 0 ? (ref.mps ? 1 : 4) : ref.kt_groups > 1 ? 2 : ref.wind ? 0 : 3;
        auto temp_rule = [&](float tenths, double theirs) {
            return !ref.temp ? 5 : std::fabs(tenths - theirs) < 0.05 ? 6 : 0;
        };
        const double speed = m.number(k, "wind_speed_kt"), gust = gusts.empty() ? speed : std::atof(gusts.c_str());
        const double temp = m.number(k, "temp_c"), dew = m.number(k, "dewpoint_c"), alt = m.number(k, "altim_in_hg");
        const double alt_diff = w.pressure - alt;  // the service cuts its conversion of hectopascals
        const bool wind = !m(k, "wind_speed_kt").empty();
        const int fields[6][3] = {  // compared (0.00 is no altimeter), agreed, rule
            {wind && !dir.empty() && dir != "VRB", w.wind_dir == float(std::atof(dir.c_str())), wind_rule},
            {wind, w.wind_speed == float(speed), wind_rule},
            {wind, w.wind_speed != UNSET && std::fabs(w.wind_speed + w.gust - gust) < 1e-3, wind_rule},
            {!m(k, "temp_c").empty(), std::fabs(w.temperature - temp) <= 0.5001, temp_rule(ref.rmk_t, temp)},
            {!m(k, "dewpoint_c").empty(), std::fabs(w.dewpoint - dew) <= 0.5001, temp_rule(ref.rmk_d, dew)},
            {alt > 0.0, alt_diff > -0.006 && alt_diff < 0.0105,
             ref.altimeters > 1 && std::fabs(ref.q_pressure - alt) < 0.011 ? 7 : 0}};
        for (int f = 0; f < 6; ++f) {
            if (!fields[f][0]) continue;
            ++compared[f];
            if (fields[f][1]) {
                ++agreed[f];
                continue;
            }
            ++by_rule[f][fields[f][2]];
            if (fields[f][2] == 0) ADD_FAILURE() << names[f] << " differs for no rule of ours: " << raw;
        }
    }
    int all = 0, all_agreed = 0;
    for (int f = 0; f < 6; ++f) {
        std::printf("%-15s %5d of %5d agree (%.2f %%); differences by rule:", names[f], agreed[f], compared[f],
                    100.0 * agreed[f] / compared[f]);
        for (int k = 0; k < 8; ++k)
            if (by_rule[f][k]) std::printf(" %d: %d", k, by_rule[f][k]);
        std::printf("\n");
        all += compared[f], all_agreed += agreed[f];
    }
    std::printf("all fields: %d of %d agree (%.2f %%); %d reports decode otherwise than the reference\n", all_agreed,
                all, 100.0 * all_agreed / all, reader_faults);
    EXPECT_EQ(reader_faults, 0);
    EXPECT_GT(all_agreed, all * 95 / 100);
}

// An airport file at full scale from the real runways and stations, the real reports as the
// weather file: the scan keeps every airport, the lookup at a station decodes that station's line,
// and each paragraph of 300 briefings names the station that an independent search picks.
TEST(RealWorld, FullScaleAirportFileLookupsAndBriefings) {
    const std::string shared = test_shared_data();
    if (shared.empty()) GTEST_SKIP() << "shared real-world data is absent";
    units_init();
    const Csv m = real_reports(shared);
    const std::string apt = real_apt_dat(shared, m), dir = test_temp_dir();
    const auto airports = parse_apt_text(apt);
    std::string metar = "2025/01/27\n";
    std::vector<int32_t> stations;  // airport index of each report's station
    for (size_t k = 1; k < m.rows.size(); ++k) metar += m(k, "raw_text") + "\n";
    scan_apt_file(test_write_file(dir, "apt.dat", apt));
    str_copy(test_write_file(dir, "metar.rwx", metar).c_str(), wx_file_path);
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
    for (int32_t i = 0; i < int32_t(airports.size()); ++i) {
        ASSERT_EQ(airports[i].code, apt_table.apt_code[i]);
        ASSERT_EQ(float(airports[i].lat), apt_lat(i)) << airports[i].code;
        ASSERT_EQ(float(airports[i].lon), apt_lon(i)) << airports[i].code;
    }
    for (size_t k = 0; k < stations.size(); k += 7) {
        const float lat = apt_lat(stations[k]), lon = apt_lon(stations[k]);
        double d;
        const int32_t expect = nearest_of(stations, lat, lon, &d);
        StationWeather a{};
        rand_set_state(99);
        ASSERT_EQ(wx_lookup(lat, lon, &a.time, a.cloud_kind, a.cloud_base, a.cloud_top, &a.visibility, &a.wx_kind,
                            &a.wx_intensity, &a.temperature, &a.dewpoint, &a.wind_dir, &a.wind_speed, &a.gust,
                            &a.pressure), expect) << m(k + 1, "raw_text");
        const size_t row = 1 + size_t(std::find(stations.begin(), stations.end(), expect) - stations.begin());
        const std::string line = m(row, "raw_text");
        rand_set_state(99);
        const StationWeather b = reader_decode(line.substr(0, 499), 0.0f);
        ASSERT_EQ(std::memcmp(&a, &b, sizeof a), 0) << line;
    }

    std::mt19937 pick(20250127);
    int midpoint_elsewhere = 0;
    for (int k = 0; k < 300; ++k) {
        const int32_t dep = stations[pick() % stations.size()];
        std::vector<int32_t> near;  // half the routes are regional, within 5 degrees
        for (int32_t i : stations)
            if (k % 2 == 0 || (i != dep && std::hypot(apt_lat(i) - apt_lat(dep), apt_lon(i) - apt_lon(dep)) < 5.0f))
                near.push_back(i);
        const int32_t dest = near.empty() ? dep : near[pick() % near.size()];
        brief_req_reset();
        str_copy("untitled.acf", brief_req.aircraft_name);
        brief_req.altitude = 5000.0f, brief_req.departure = dep, brief_req.destination = dest;
        brief_compose();
        const float places[3][2] = {{apt_lat(dep), apt_lon(dep)},
                                    {(apt_lat(dep) + apt_lat(dest)) * 0.5f, (apt_lon(dep) + apt_lon(dest)) * 0.5f},
                                    {apt_lat(dest), apt_lon(dest)}};
        const std::string paragraphs[3] = {brief_req.dep_wx, brief_req.enroute_wx, brief_req.dest_wx};
        for (int p = 0; p < 3; ++p) {
            const std::string& text = paragraphs[p];
            const size_t end = text.find(" is reporting"), start = text.rfind(" Wx ", end);
            int32_t named = -1;
            ASSERT_TRUE(end != std::string::npos && start != std::string::npos &&
                        apt_find_code(text.substr(start + 4, end - start - 4).c_str(), 1, &named)) << text;
            // The station an independent search picks, or another at the same distance in single precision.
            double best;
            const int32_t expect = nearest_of(stations, places[p][0], places[p][1], &best);
            const double d = std::hypot(double(apt_lat(named)) - places[p][0], double(apt_lon(named)) - places[p][1]);
            ASSERT_LE(d, best * (1.0 + 1e-6) + 1e-6) << "expected " << apt_table.apt_name[expect] << ": " << text;
            midpoint_elsewhere += p == 1 && named != dep && named != dest;
        }
    }
    std::printf("300 routes briefed; %d midpoints named a third station\n", midpoint_elsewhere);
}
