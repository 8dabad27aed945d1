// The bundled sample world: the generators remake it from its seed, and the program's own readers
// read every file back as the generators meant it.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"  // GCC 12 warns falsely inside <regex>
#include <gtest/gtest.h>

#include <regex>
#include <sstream>

#include "briefing/sim_prefs.h"
#include "briefing/aircraft.h"
#include "briefing/request.h"
#include "tests/tools/tools_support.h"
#include "util/prefs.h"

// A file of the bundled sample world (the test entry sets VOCALOG_SOURCE_DIR).
static std::string sim(const std::string& file) { return std::getenv("VOCALOG_SOURCE_DIR") + ("/data/sim/" + file); }
static const std::string APT = "Resources/Earth nav data/apt.dat";

TEST(SampleWorld, AirportFileReadsBackAndRegeneratesFromItsSeed) {
    const std::string text = test_read_file(sim(APT)), tmp = test_temp_dir();
    const auto rows = parse_apt_text(text);
    scan_apt_file(sim(APT));
    ASSERT_EQ(apt_table.airport_count + 1, int32_t(rows.size()));
    ASSERT_EQ(apt_table.runway_count + 1, int32_t(rows.size()));  // one runway each
    std::string tsv;  // the generator's input, as far as the file keeps it
    for (int32_t i = 0; i < int32_t(rows.size()); ++i) {
        const AptRow& a = rows[i];
        const int32_t r = apt_table.apt_first_rwy[i];
        ASSERT_TRUE(a.code == apt_table.apt_code[i] && a.name == apt_table.apt_name[i] &&
                    a.elev == apt_table.apt_elev[i] && float(a.lat) == apt_lat(i) && float(a.lon) == apt_lon(i) &&
                    a.number == apt_table.rwy_num[r] && a.hdg == apt_table.rwy_hdg[r])
            << "airport " << i << ": " << a.code;
        tsv += a.code + (a.tower ? "\tlarge_airport\t" : "\tmedium_airport\t") + a.name + "\t" + std::to_string(a.lat) +
               "\t" + std::to_string(a.lon) + "\t" + std::to_string(int(a.elev)) + "\n";  // 6 decimals, as printed
    }
    for (int32_t i; const char* code : {"KSFO", "KLAX"}) EXPECT_EQ(apt_find_code(code, 1, &i), 1) << code;  // make run
    const std::string in = test_write_file(tmp, "in.tsv", tsv);
    ASSERT_EQ(run_tool("vocalog-gen-apt", {"--in", in, "--out", tmp + "apt.dat", "--seed", "20250127"}), 0);
    EXPECT_TRUE(test_read_file(tmp + "apt.dat") == text);
    // A longer name is cut to the 39 characters that the airport table holds.
    test_write_file(tmp, "in.tsv", "KAAA\tlarge_airport\t" + std::string(60, 'N') + "\t10.5\t-20.25\t100\n");
    ASSERT_EQ(run_tool("vocalog-gen-apt", {"--in", in, "--out", tmp + "long.dat"}), 0);
    EXPECT_EQ(parse_apt_text(test_read_file(tmp + "long.dat")).at(0).name, std::string(39, 'N'));
}

TEST(SampleWorld, WeatherAndPreferenceFilesDecodeAsGeneratedAndRegenerate) {
    units_init();
    const std::string metar = test_read_file(sim("metar.rwx")), tmp = test_temp_dir();
    for (const char* seed : {"20250127", "7"}) {  // the bundled seed, and another
        ASSERT_EQ(run_tool("vocalog-gen-metar", {"--apt", sim(APT), "--out", tmp + seed, "--seed", seed, "--date",
                                                 "2025-01-27", "--hour", "21"}), 0);
        EXPECT_EQ(test_read_file(tmp + seed) == metar, seed[0] == '2') << seed;
    }
    // Every form of group that the reader reads or must skip.
    for (const char* form : {"^[0-9]{4}/[0-9]{2}/[0-9]{2}\n", "\nMETAR ", "\nSPECI ", "[0-9]{5}G[0-9]{2}KT ",
                             " VRB[0-9]{2}KT ", " [0-9]{3}V[0-9]{3} ", "KT [1-9]/[0-9]SM ", " [0-9] [0-9]/[0-9]SM ",
                             " M1/4SM ", "KT [0-9]{4} ", " CAVOK ", " [-+][A-Z]{2,4} ", "[0-9]{3}CB ", "[0-9]{3}TCU ",
                             "( (FEW|SCT|BKN|OVC)[0-9]{3}(CB|TCU)?){4} ", " VV[0-9]{3} ", " A[0-9]{4} ",
                             " Q[0-9]{4} ", " M[0-9]{2}/M[0-9]{2} ", " RMK ", "\n\n"})
        EXPECT_TRUE(std::regex_search(metar, std::regex(form))) << form;
    // Each report names an airport, in airport order, once, and sets every field a report carries.
    scan_apt_file(sim(APT));
    int32_t last = -1, reports = 0, i = -1;
    std::istringstream lines(metar);
    for (std::string line; std::getline(lines, line);) {
        if (line.size() < 11) continue;
        const size_t at = line.starts_with("METAR ") || line.starts_with("SPECI ") ? 6 : 0;
        ASSERT_TRUE(apt_find_code(line.substr(at, 4).c_str(), 1, &i) == 1 && i > last) << line;
        last = i, ++reports;
        const StationWeather w = reader_decode(line, -9999.0f);  // every report has these groups
        for (float v : {w.time, w.wind_dir, w.wind_speed, w.temperature, w.dewpoint, w.pressure})
            ASSERT_NE(v, -9999.0f) << line;
    }
    const int32_t n = apt_table.airport_count + 1;  // most report, not all: the nearest-station search has work
    EXPECT_TRUE(reports > n * 85 / 100 && reports < n) << reports;
    // The simulator's preference file, which stands in for a missing weather file.
    int32_t klax = -1;
    ASSERT_EQ(apt_find_code("KLAX", 1, &klax), 1);
    std::string prf = tmp + "Corvane 6 Zephyra.prf";
    ASSERT_EQ(run_tool("vocalog-gen-prefs",
                       {"--out", prf, "--aircraft-name", "Baron58.acf", "--aircraft-path", "Aircraft:Baron58.acf",
                        "--airport", "KLAX", "--local-time", "14.4", "--pressure", "29.85", "--temperature", "21",
                        "--precip", "1.0", "--visibility", "9260", "--cloud-kinds", "3,4", "--cloud-tops", "2000,5000",
                        "--cloud-bases", "1200,3500", "--wind-dirs", "10,20,250", "--wind-speeds", "1,2,14", "--gusts",
                        "0,0,8", "--size", "4096"}), 0);
    brief_req_reset();
    ASSERT_TRUE(test_read_file(prf).size() == 4096 && brief_read_sim_prefs(prf.data()) == 1);
    EXPECT_EQ(std::string(brief_req.aircraft_name) + brief_req.aircraft_path, "Baron58.acfAircraft:Baron58.acf");
    const StationWeather& w = station_wx;
    const float lower = apt_table.apt_elev[klax] * 0.3048f;  // cloud bases above the airport
    const float read_want[][2] = {
        {float(brief_req.departure), float(klax)}, {float(brief_req.destination), float(klax)},
        {w.pressure, 29.85f}, {w.temperature, 21.0f}, {w.visibility, 9260.0f}, {w.dewpoint, 21.0f - 10.0f},
        {float(w.wx_kind), 1}, {float(w.wx_intensity), 3}, {float(w.cloud_kind[0]), 3}, {float(w.cloud_kind[1]), 4},
        {w.cloud_base[0], 1200.0f - lower}, {w.cloud_base[1], 3500.0f - lower}, {w.cloud_top[1], 5000.0f},
        {w.wind_dir, 250.0f}, {w.wind_speed, 14.0f}, {w.gust, 8.0f},  // the third of each three
        {w.time, 21 * 3600.0f}};  // 14.4 h local time at 118.4 W: 21 h UTC
    for (size_t k = 0; k < std::size(read_want); ++k)
        EXPECT_NEAR(read_want[k][0], read_want[k][1], 1e-2) << "row " << k;
}

TEST(SampleWorld, AircraftFilesReadBackAndRegenerate) {
    const std::string tmp = test_temp_dir();
    ASSERT_EQ(run_tool("vocalog-gen-acf", {"--set", tmp}), 0);
    const struct { const char* file; char marker; int32_t version, engine; const char* intro; float speed; } rows[] = {
        {"C172SP.acf", 'i', 626, 1, "N172SP", 150},  {"Baron58.acf", 'i', 626, 0, "N58BE", 210},  // pistons
        {"KingAir350.acf", 'i', 600, 2, "N350KA", 275}, {"CitationCJ4.acf", 'a', 626, 5, "N525CJ", 300},  // turbines
        {"Singles/PA28-181 Archer.acf", 'i', 600, 0, "N181PA", 125}, {"Singles/M20J Mooney.acf", 'a', 626, 1, "N201MJ", 165},
        {"Twins/PA34-220T Seneca V, turbocharged piston twin.acf", 'i', 626, 1, "N34SV", 185},
        {"Jets/Business/Learjet 45.acf", 'a', 626, 4, "N45LJ", 440}};  // in folders, one two levels down
    EXPECT_EQ(test_read_file(tmp + "Hangar notes.txt"), test_read_file(sim("Aircraft/Hangar notes.txt")));
    for (const auto& r : rows) {
        SCOPED_TRACE(r.file);
        const std::string path = sim("Aircraft/") + r.file, bytes = test_read_file(path);
        EXPECT_TRUE(test_read_file(tmp + r.file) == bytes);
        const int low = r.marker == 'i' ? 1 : 4, high = low == 1 ? 2 : 3;  // the version's two low bytes
        ASSERT_TRUE(bytes[0] == r.marker && uint8_t(bytes[low]) + 256 * uint8_t(bytes[high]) == r.version);
        EXPECT_TRUE(acf_read(0, path.c_str()) == 1 && acf_intro_text() == std::string(r.intro) &&
                    acf_ref_speed() == r.speed && acf_engine_kind() == r.engine);
    }
    // One aircraft written in both byte orders reads back as the same block, texts and opaque
    // numbers alike, but for the byte-order flag (1 high byte first).
    std::vector<unsigned char> blocks[2];
    for (const std::string marker : {"a", "i"}) {
        ASSERT_EQ(run_tool("vocalog-gen-acf", {"--file", tmp + marker, "--marker", marker, "--intro", "N1", "--speed",
                                               "90", "--engine", "3", "--description", "odd text"}), 0);
        ASSERT_EQ(acf_read(0, (tmp + marker).c_str()), 1);
        blocks[marker == "i"].assign(acf_rec.block, acf_rec.block + ACF_BLOCK_SIZE);
    }
    blocks[0][ACF_OFS_BYTE_ORDER] -= 1;
    EXPECT_TRUE(blocks[0] == blocks[1]);
}
