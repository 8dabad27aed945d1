// The briefing against the real world: an airport file at full scale built from the OurAirports
// runways and the reporting stations, the real reports as the weather file, and briefings for
// random routes whose paragraphs must each name the station an independent search picks.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>
#include <set>

#include "briefing/airports.h"
#include "briefing/composer.h"
#include "briefing/metar_decode.h"
#include "briefing/request.h"
#include "briefing/weather.h"
#include "tests/support/test_files.h"
#include "tests/tools/real_data.h"
#include "util/random.h"
#include "util/text.h"
#include "util/units.h"

namespace {

struct RealWorld {
    std::vector<RealReport> reports;
    std::vector<RealAirport> airports;
    std::vector<int32_t> reporting;  // airport indices of the stations, in table order
};

// Writes the airport file and the weather file into a temporary folder, scans the airports and
// points the weather lookup at the reports.
bool load_world(RealWorld& w) {
    const std::string shared = tools_shared_data();
    if (shared.empty()) return false;
    units_init();
    w.reports = real_reports(shared);
    w.airports = real_airports(shared, w.reports, APT_MAX);
    const std::string dir = test_temp_dir();
    test_write_file(dir, "apt.dat", apt_dat_text(w.airports));
    std::string metar = "2025/01/27\n";
    for (const auto& r : w.reports) metar += r.raw + "\n";
    test_write_file(dir, "metar.rwx", metar);
    scan_apt_file(dir + "apt.dat");
    str_copy((dir + "metar.rwx").c_str(), wx_file_path);
    std::set<std::string> stations;
    for (const auto& r : w.reports) stations.insert(r.station);
    for (int32_t i = 0; i <= apt_table.airport_count; ++i)
        if (stations.count(apt_table.apt_code[i])) w.reporting.push_back(i);
    return true;
}

// The reporting airport nearest to (lat, lon), the first in table order among equals, and its distance.
int32_t nearest_station(const RealWorld& w, float lat, float lon, double* dist) {
    int32_t best = -1;
    double best_d = 1e30;
    for (int32_t i : w.reporting) {
        const double d = std::hypot(double(apt_lat(i)) - double(lat), double(apt_lon(i)) - double(lon));
        if (d < best_d) best_d = d, best = i;
    }
    *dist = best_d;
    return best;
}

double distance_to(int32_t i, float lat, float lon) {
    return std::hypot(double(apt_lat(i)) - double(lat), double(apt_lon(i)) - double(lon));
}

int32_t lookup(StationWeather& s, float lat, float lon) {
    return wx_lookup(lat, lon, &s.time, s.cloud_kind, s.cloud_base, s.cloud_top, &s.visibility, &s.wx_kind,
                     &s.wx_intensity, &s.temperature, &s.dewpoint, &s.wind_dir, &s.wind_speed, &s.gust, &s.pressure);
}

// The airport a paragraph names: "Wx CODE" or "Field CODE" before " is reporting".
std::string named_in(const std::string& paragraph) {
    const size_t end = paragraph.find(" is reporting");
    if (end == std::string::npos) return "";
    const size_t start = paragraph.rfind(' ', end - 6);  // the blank before "Wx" or "Field"
    return start == std::string::npos ? "" : paragraph.substr(start + 1, end - start - 1);
}

}  // namespace

TEST(RealWorld, AirportFileAtFullScaleScansCompletely) {
    RealWorld w;
    if (!load_world(w)) GTEST_SKIP() << "shared real-world data is absent";
    size_t runways = 0;
    for (const auto& a : w.airports) runways += a.runway_lines.size();
    std::printf("real-world airport file: %zu airports (%zu reporting), %zu runways\n", w.airports.size(),
                w.reporting.size(), runways);
    ASSERT_EQ(apt_table.airport_count + 1, int32_t(w.airports.size()));
    ASSERT_EQ(apt_table.runway_count + 1, int32_t(runways));
    EXPECT_GT(w.airports.size(), 10000u);  // every airport of the data set with a runway position
    EXPECT_EQ(w.reporting.size(), w.reports.size());
    for (size_t i = 0; i < w.airports.size(); ++i) {
        ASSERT_EQ(w.airports[i].code, apt_table.apt_code[i]);
        ASSERT_EQ(w.airports[i].lat, apt_lat(int32_t(i))) << w.airports[i].code;
        ASSERT_EQ(w.airports[i].lon, apt_lon(int32_t(i))) << w.airports[i].code;
    }
}

TEST(RealWorld, LookupAtAStationDecodesThatStationsReport) {
    RealWorld w;
    if (!load_world(w)) GTEST_SKIP() << "shared real-world data is absent";
    for (size_t k = 0; k < w.reports.size(); k += 7) {
        const RealReport& r = w.reports[k];
        int32_t idx = -1;
        ASSERT_EQ(apt_find_code(r.station.c_str(), 1, &idx), 1) << r.station;
        double d;
        const int32_t expect = nearest_station(w, apt_lat(idx), apt_lon(idx), &d);
        StationWeather a{}, b{};
        rand_set_state(99);
        const int32_t got = lookup(a, apt_lat(idx), apt_lon(idx));
        ASSERT_EQ(got, expect) << r.raw;
        // The lookup decodes exactly what the decoder gives for the station's own line.
        const std::string& raw = w.reports[size_t(std::find_if(w.reports.begin(), w.reports.end(), [&](const RealReport& x) {
                                                     return x.station == apt_table.apt_code[got];
                                                 }) - w.reports.begin())].raw;
        rand_set_state(99);
        wx_decode(raw.substr(0, 499).c_str(), {&b.time, b.cloud_kind, b.cloud_base, b.cloud_top, &b.visibility,
                                               &b.wx_kind, &b.wx_intensity, &b.temperature, &b.dewpoint, &b.wind_dir,
                                               &b.wind_speed, &b.gust, &b.pressure});
        ASSERT_EQ(std::memcmp(&a, &b, sizeof a), 0) << raw;
    }
}

TEST(RealWorld, BriefingParagraphsNameTheNearestReportingStation) {
    RealWorld w;
    if (!load_world(w)) GTEST_SKIP() << "shared real-world data is absent";
    std::mt19937 pick(20250127);
    int routes = 0, midpoint_elsewhere = 0, near_ties = 0;
    for (int k = 0; k < 300; ++k) {
        brief_req_reset();
        str_copy("untitled.acf", brief_req.aircraft_name);
        brief_req.altitude = 5000.0f;
        brief_req.departure = w.reporting[pick() % w.reporting.size()];
        // Half the routes are regional (the destination among nearby stations), half anywhere.
        if (k % 2 == 0) {
            brief_req.destination = w.reporting[pick() % w.reporting.size()];
        } else {
            std::vector<int32_t> near;
            for (int32_t i : w.reporting)
                if (i != brief_req.departure && distance_to(i, apt_lat(brief_req.departure), apt_lon(brief_req.departure)) < 5.0)
                    near.push_back(i);
            brief_req.destination = near.empty() ? brief_req.departure : near[pick() % near.size()];
        }
        const int32_t dep = brief_req.departure, dest = brief_req.destination;
        brief_compose();
        const float places[3][2] = {{apt_lat(dep), apt_lon(dep)},
                                    {(apt_lat(dep) + apt_lat(dest)) * 0.5f, (apt_lon(dep) + apt_lon(dest)) * 0.5f},
                                    {apt_lat(dest), apt_lon(dest)}};
        const char* paragraphs[3] = {brief_req.dep_wx, brief_req.enroute_wx, brief_req.dest_wx};
        for (int p = 0; p < 3; ++p) {
            double best_d;
            const int32_t expect = nearest_station(w, places[p][0], places[p][1], &best_d);
            const std::string named = named_in(paragraphs[p]);
            SCOPED_TRACE(std::string(apt_table.apt_code[dep]) + " to " + apt_table.apt_code[dest] + ", paragraph " +
                         std::to_string(p) + ": " + paragraphs[p]);
            ASSERT_FALSE(named.empty());
            if (named == apt_table.apt_name[expect]) {
                if (p == 1 && expect != dep && expect != dest) ++midpoint_elsewhere;
                continue;
            }
            // Another station at the same distance, within the precision of single floats, is as right.
            int32_t other = -1;
            for (int32_t i : w.reporting)
                if (named == apt_table.apt_name[i]) other = i;
            ASSERT_GE(other, 0) << "named " << named << ", expected " << apt_table.apt_name[expect];
            const double d = distance_to(other, places[p][0], places[p][1]);
            ASSERT_LE(d, best_d * (1.0 + 1e-6) + 1e-6) << "named " << named << ", expected " << apt_table.apt_name[expect];
            ++near_ties;
        }
        ++routes;
    }
    std::printf("%d routes briefed; %d midpoints named a third station; %d near ties\n", routes, midpoint_elsewhere,
                near_ties);
    EXPECT_EQ(routes, 300);
}
