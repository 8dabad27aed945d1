// The bundled sample world and the generators that write it: every generated file reads back
// through the program's own readers, and the generators reproduce the bundled files byte for byte.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <map>
#include <random>
#include <sstream>
#include <sys/wait.h>

#include "briefing/aircraft.h"
#include "briefing/airports.h"
#include "briefing/request.h"
#include "briefing/weather.h"
#include "tests/support/test_files.h"
#include "tests/tools/real_data.h"
#include "util/prefs.h"
#include "util/text.h"
#include "util/units.h"

namespace {

std::string sim_dir() { return tools_source_dir() + "data/sim/"; }
std::string apt_path() { return sim_dir() + "Resources/Earth nav data/apt.dat"; }

int run(const std::string& tool, const std::string& args) {
    const std::string cmd = "\"" + tools_binary_dir() + tool + "\" " + args + " 2>/dev/null";
    const int rc = std::system(cmd.c_str());
    return WIFEXITED(rc) ? WEXITSTATUS(rc) : -1;
}
std::string q(const std::string& s) { return "\"" + s + "\""; }

// The airport file read independently of the program's reader.
struct TextAirport {
    std::string code, name, rwy_number;
    float elev = 0, lat = 0, lon = 0, hdg = 0;
};
std::vector<TextAirport> parse_apt(const std::string& text) {
    std::vector<TextAirport> out;
    std::istringstream in(text);
    std::string line;
    bool need_rwy = false;
    while (std::getline(in, line)) {
        std::istringstream l(line);
        int code = 0;
        if (!(l >> code)) continue;
        if (code == 1) {
            TextAirport a;
            int tower, bldg;
            l >> a.elev >> tower >> bldg >> a.code;
            std::getline(l, a.name);
            a.name.erase(0, a.name.find_first_not_of(' '));
            out.push_back(a);
            need_rwy = true;
        } else if (code == 10 && need_rwy) {
            l >> out.back().lat >> out.back().lon >> out.back().rwy_number >> out.back().hdg;
            need_rwy = false;
        }
    }
    return out;
}

// Codes of the weather file's report lines, as the lookup takes them.
std::vector<std::string> report_codes(const std::string& text) {
    std::vector<std::string> out;
    std::istringstream in(text);
    std::string line;
    while (std::getline(in, line)) {
        if (line.size() < 11) continue;
        out.push_back(line.rfind("METAR", 0) == 0 || line.rfind("SPECI", 0) == 0 ? line.substr(6, 4) : line.substr(0, 4));
    }
    return out;
}

}  // namespace

TEST(SampleWorld, AirportFileScansAsTheGeneratorWroteIt) {
    const auto expected = parse_apt(test_read_file(apt_path()));
    ASSERT_GT(expected.size(), 4000u);
    scan_apt_file(apt_path());
    ASSERT_EQ(apt_table.airport_count + 1, int32_t(expected.size()));
    for (size_t i = 0; i < expected.size(); ++i) {
        const auto& e = expected[i];
        SCOPED_TRACE(e.code);
        ASSERT_EQ(e.code, apt_table.apt_code[i]);
        ASSERT_LE(e.name.size(), 39u);
        ASSERT_EQ(e.name, apt_table.apt_name[i]);
        ASSERT_EQ(e.elev, apt_table.apt_elev[i]);
        ASSERT_EQ(e.lat, apt_lat(int32_t(i)));
        ASSERT_EQ(e.lon, apt_lon(int32_t(i)));
        const int32_t r = apt_table.apt_first_rwy[i];
        ASSERT_EQ(e.rwy_number, std::string(apt_table.rwy_num[r], 3));
        ASSERT_EQ(e.hdg, apt_table.rwy_hdg[r]);
    }
    int32_t idx = -1;
    for (const char* code : {"KSFO", "KLAX"}) {
        ASSERT_EQ(apt_find_code(code, 1, &idx), 1) << code;
        EXPECT_STREQ(apt_table.apt_code[idx], code);
    }
}

TEST(SampleWorld, GeneratorsRegenerateTheBundledFilesByteForByte) {
    const std::string tmp = test_temp_dir();
    ASSERT_EQ(run("vocalog-gen-metar", "--apt " + q(apt_path()) + " --out " + q(tmp + "metar.rwx") +
                                           " --seed 20250127 --date 2025-01-27 --hour 21"), 0);
    EXPECT_TRUE(test_read_file(tmp + "metar.rwx") == test_read_file(sim_dir() + "metar.rwx"));
    ASSERT_EQ(run("vocalog-gen-metar", "--apt " + q(apt_path()) + " --out " + q(tmp + "other.rwx") + " --seed 7"), 0);
    EXPECT_FALSE(test_read_file(tmp + "other.rwx") == test_read_file(sim_dir() + "metar.rwx"));

    ASSERT_EQ(run("vocalog-gen-acf", "--set " + q(tmp)), 0);
    for (const char* f : {"C172SP.acf", "Baron58.acf", "KingAir350.acf", "CitationCJ4.acf"})
        EXPECT_TRUE(test_read_file(tmp + f) == test_read_file(sim_dir() + "Aircraft/" + f)) << f;

    // The airport generator: same input, same bytes; names cut at 39 characters; bad codes refused.
    const std::string long_name(60, 'N');
    test_write_file(tmp, "a.tsv", "KAAA\tlarge_airport\t" + long_name + "\t10.5\t-20.25\t100\nKBBB\tmedium_airport\tB\t-1\t2\t\n");
    ASSERT_EQ(run("vocalog-gen-apt", "--in " + q(tmp + "a.tsv") + " --out " + q(tmp + "a1.dat")), 0);
    ASSERT_EQ(run("vocalog-gen-apt", "--in " + q(tmp + "a.tsv") + " --out " + q(tmp + "a2.dat")), 0);
    EXPECT_TRUE(test_read_file(tmp + "a1.dat") == test_read_file(tmp + "a2.dat"));
    scan_apt_file(tmp + "a1.dat");
    ASSERT_EQ(apt_table.airport_count, 1);
    EXPECT_EQ(std::string(apt_table.apt_name[0]), long_name.substr(0, 39));
    EXPECT_FLOAT_EQ(apt_lat(0), 10.5f);
    EXPECT_FLOAT_EQ(apt_lon(0), -20.25f);
    test_write_file(tmp, "b.tsv", "K1AA\tlarge_airport\tX\t1\t2\t3\n");
    EXPECT_NE(run("vocalog-gen-apt", "--in " + q(tmp + "b.tsv") + " --out " + q(tmp + "b.dat")), 0);
}

TEST(SampleWorld, WeatherLookupPicksTheReportingStationNearestEachAirport) {
    units_init();
    scan_apt_file(apt_path());
    const std::string metar = test_read_file(sim_dir() + "metar.rwx");
    std::map<std::string, int> reporting;
    for (const auto& c : report_codes(metar)) reporting[c]++;
    const int32_t n = apt_table.airport_count + 1;
    ASSERT_GT(int(reporting.size()), n * 85 / 100);  // most airports report
    ASSERT_LT(int(reporting.size()), n);              // some do not
    for (const auto& [code, count] : reporting) ASSERT_EQ(count, 1) << code;

    str_copy(sim_dir().append("metar.rwx").c_str(), wx_file_path);
    std::mt19937 pick(42);
    int with_report = 0, without = 0;
    for (int k = 0; k < 60; ++k) {
        const int32_t i = int32_t(pick() % uint32_t(n));
        const float lat = apt_lat(i), lon = apt_lon(i);
        int32_t best = -1;
        double best_d = 99999.0;
        for (int32_t j = 0; j < n; ++j) {
            if (!reporting.count(apt_table.apt_code[j])) continue;
            const double d = std::hypot(double(apt_lat(j)) - lat, double(apt_lon(j)) - lon);
            if (d < best_d) best_d = d, best = j;
        }
        StationWeather w{};
        w.temperature = -999.0f;
        const int32_t got = wx_lookup(lat, lon, &w.time, w.cloud_kind, w.cloud_base, w.cloud_top, &w.visibility,
                                      &w.wx_kind, &w.wx_intensity, &w.temperature, &w.dewpoint, &w.wind_dir,
                                      &w.wind_speed, &w.gust, &w.pressure);
        ASSERT_EQ(got, best) << apt_table.apt_code[i];
        (got == i ? with_report : without)++;
        // Every generated report carries a time, a temperature group and an altimeter.
        EXPECT_GT(w.time, 0.0f);
        EXPECT_GT(w.temperature, -80.0f);
        EXPECT_LE(w.dewpoint, w.temperature);
        EXPECT_GT(w.pressure, 27.5f);
        EXPECT_LT(w.pressure, 31.5f);
    }
    EXPECT_GT(with_report, 0);
    EXPECT_GT(without, 0);
}

TEST(SampleWorld, AircraftFilesReadWithTheirTextsSpeedsAndEngines) {
    struct Row {
        const char* file;
        const char* intro;
        float ref_speed;
        int32_t engine;
        float estimate;
    } rows[] = {
        {"C172SP.acf", "N172SP", 150.0f, 1, 123.75f},
        {"Baron58.acf", "N58BE", 210.0f, 0, 173.25f},
        {"KingAir350.acf", "N350KA", 275.0f, 2, 309.375f},
        {"CitationCJ4.acf", "N525CJ", 300.0f, 5, 450.0f},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.file);
        acf_reset();
        Text path;
        str_copy((sim_dir() + "Aircraft/" + r.file).c_str(), path);
        ASSERT_EQ(acf_read(0, path), 1);
        EXPECT_STREQ(acf_intro_text(), r.intro);
        EXPECT_EQ(acf_ref_speed(), r.ref_speed);
        EXPECT_EQ(acf_engine_kind(), r.engine);
        EXPECT_FLOAT_EQ(speed_from_aircraft(), r.estimate);
    }
    // The version-600 file fills only the first 433688 bytes of the block.
    Text path;
    str_copy((sim_dir() + "Aircraft/KingAir350.acf").c_str(), path);
    ASSERT_EQ(acf_read(0, path), 1);
    for (int32_t i = ACF_BLOCK_SIZE_600; i < ACF_BLOCK_SIZE; ++i) ASSERT_EQ(acf_rec.block[i], 0) << i;

    // One aircraft written in both byte orders reads back as the same block, texts and numbers alike.
    const std::string tmp = test_temp_dir();
    const std::string common = " --intro N525CJ --speed 300 --engine 5 --description \"odd-length text\"";
    ASSERT_EQ(run("vocalog-gen-acf", "--file " + q(tmp + "hi.acf") + " --marker a" + common), 0);
    ASSERT_EQ(run("vocalog-gen-acf", "--file " + q(tmp + "lo.acf") + " --marker i" + common), 0);
    std::vector<unsigned char> lo(ACF_BLOCK_SIZE);
    str_copy((tmp + "lo.acf").c_str(), path);
    ASSERT_EQ(acf_read(0, path), 1);
    std::memcpy(lo.data(), acf_rec.block, lo.size());
    str_copy((tmp + "hi.acf").c_str(), path);
    ASSERT_EQ(acf_read(0, path), 1);
    // The byte-order flag itself differs (0 and 1); everything else is identical.
    int32_t flag;
    std::memcpy(&flag, acf_rec.block + ACF_OFS_BYTE_ORDER, 4);
    EXPECT_EQ(flag, 1);
    std::memset(acf_rec.block + ACF_OFS_BYTE_ORDER, 0, 4);
    EXPECT_EQ(std::memcmp(lo.data(), acf_rec.block, lo.size()), 0);
    EXPECT_STREQ(reinterpret_cast<const char*>(acf_rec.block + 40), "odd-length text");
}

TEST(SampleWorld, SimulatorPreferenceFileStandsInForTheWeather) {
    units_init();
    scan_apt_file(apt_path());
    int32_t klax = -1;
    ASSERT_EQ(apt_find_code("KLAX", 1, &klax), 1);
    const std::string tmp = test_temp_dir();
    const std::string prf = tmp + "Corvane 6 Zephyra.prf";
    ASSERT_EQ(run("vocalog-gen-prefs", "--out " + q(prf) +
                                           " --aircraft-name Baron58.acf --aircraft-path Aircraft:Baron58.acf"
                                           " --airport KLAX --local-time 14.4 --pressure 29.85 --temperature 21"
                                           " --precip 1.0 --visibility 9260 --cloud-kinds 3,4"
                                           " --cloud-tops 2000,5000 --cloud-bases 1200,3500"
                                           " --wind-dirs 10,20,250 --wind-speeds 1,2,14 --gusts 0,0,8 --size 4096"),
              0);
    ASSERT_EQ(test_read_file(prf).size(), 4096u);
    brief_req_reset();
    station_wx = StationWeather{};
    Text path;
    str_copy(prf.c_str(), path);
    ASSERT_EQ(fio_prefs(PREF_SIM, PREF_READ, path), 1);
    EXPECT_STREQ(brief_req.aircraft_name, "Baron58.acf");
    EXPECT_STREQ(brief_req.aircraft_path, "Aircraft:Baron58.acf");
    EXPECT_EQ(brief_req.departure, klax);
    EXPECT_EQ(brief_req.destination, klax);
    const StationWeather& w = station_wx;
    EXPECT_FLOAT_EQ(w.pressure, 29.85f);
    EXPECT_FLOAT_EQ(w.temperature, 21.0f);
    EXPECT_FLOAT_EQ(w.visibility, 9260.0f);
    EXPECT_NEAR(w.dewpoint, 21.0f - 9260.0f / 1852.0f * 2.0f, 1e-3);  // visibility 5 nm
    EXPECT_EQ(w.wx_kind, 1);        // (1.0 - 0.1) x 2.22 + 1 = 3
    EXPECT_EQ(w.wx_intensity, 3);
    EXPECT_EQ(w.cloud_kind[0], 3);
    EXPECT_EQ(w.cloud_kind[1], 4);
    const float lower = apt_table.apt_elev[klax] * 0.3048f;
    EXPECT_NEAR(w.cloud_base[0], 1200.0f - lower, 1e-2);
    EXPECT_NEAR(w.cloud_base[1], 3500.0f - lower, 1e-2);
    EXPECT_FLOAT_EQ(w.wind_dir, 250.0f);  // the third of each triple
    EXPECT_FLOAT_EQ(w.wind_speed, 14.0f);
    EXPECT_FLOAT_EQ(w.gust, 8.0f);
    // 14.4 h local at the airport's longitude, whole hours, in seconds.
    const double t = 14.4 - (double(apt_lon(klax)) / 15.0 + 1.0);
    const int n = int(t < 0 ? t - 0.5 : t + 0.5);
    EXPECT_FLOAT_EQ(w.time, float(((n < 0) ? n + 24 : (n > 24 ? n - 24 : n)) * 3600));

    // A file of another version is refused.
    test_write_file(tmp, "bad.prf", std::string("i\x7f\x19\0\0", 5) + std::string(1145, '\0'));
    str_copy((tmp + "bad.prf").c_str(), path);
    EXPECT_EQ(fio_prefs(PREF_SIM, PREF_READ, path), 0);
}
