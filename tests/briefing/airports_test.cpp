// The airport scan, its limits and failures, and the lookup of an airport by code.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "briefing/airports.h"
#include "shell/alert.h"
#include "tests/support/test_files.h"
#include "util/file_reader.h"

using testing::HasSubstr;

static int progress_calls = 0;

class AirportScan : public testing::Test {
  protected:
    void SetUp() override {
        fio_reset();
        apt_reset();
        dir = test_temp_dir();
        progress_calls = 0;
        progress_set([](const char* m) {
            if (strcmp(m, "Scanning airports.") == 0) ++progress_calls;
        });
    }
    void TearDown() override {
        progress_set(nullptr);
        fio_reset();
    }
    // Writes the header and `records`, opens the file and scans it, as the program's start does.
    void scan(const std::string& records) {
        std::string p = test_write_file(dir, "apt.dat", "I\n600 Version - generated\n" + records);
        strcpy(path, p.c_str());
        ASSERT_EQ(fio_open(path, 0, 600, 1), 1);
        apt_scan(path);
        fio_close();
    }
    std::string dir;
    char path[500];
};

static std::string rwy(const char* lat_lon, const char* number, const char* heading) {
    return std::string("10 ") + lat_lon + " " + number + " " + heading + " 11870 0 1000 150 252231\n";
}

TEST_F(AirportScan, OneAirportWithTwoRunways) {
    scan("1 5355 1 0 KABQ Albuquerque Intl\n" + rwy("35.043 -106.612", "08x", "89.9") +
         rwy("35.044 -106.590", "26R", "269.9") + "99\n");
    const AirportTable& t = apt_table;
    EXPECT_EQ(t.airport_count, 0);
    EXPECT_EQ(t.runway_count, 1);
    EXPECT_EQ(t.apt_first_rwy[0], 0);
    EXPECT_EQ(t.apt_last_rwy[0], 1);
    EXPECT_FLOAT_EQ(t.apt_elev[0], 5355.f);
    EXPECT_EQ(t.apt_tower[0], 1);
    EXPECT_EQ(t.apt_bldg[0], 0);
    EXPECT_STREQ(t.apt_code[0], "KABQ");
    EXPECT_STREQ(t.apt_name[0], "Albuquerque Intl");
    EXPECT_STREQ(t.rwy_num[0], "08x");
    EXPECT_STREQ(t.rwy_num[1], "26R");
    EXPECT_FLOAT_EQ(t.rwy_hdg[1], 269.9f);
    EXPECT_FLOAT_EQ(t.rwy_len[1], 11870.f);
    EXPECT_FLOAT_EQ(t.rwy_ovr1[1], 0.f);
    EXPECT_FLOAT_EQ(t.rwy_ovr2[1], 1000.f);
    EXPECT_FLOAT_EQ(t.rwy_width[1], 150.f);
    EXPECT_EQ(t.rwy_code[1], 252231);
    EXPECT_FLOAT_EQ(apt_lat(0), 35.043f);
    EXPECT_FLOAT_EQ(apt_lon(0), -106.612f);
}

TEST_F(AirportScan, HeadingsAreCorrectedOnce) {
    struct Row { const char* in; float want; } rows[] = {
        {"-10", 350}, {"370", 10}, {"360", 360}, {"0", 0}, {"-400", -40}, {"725", 365}, {"359.5", 359.5f}};
    for (const Row& r : rows) {
        apt_reset();
        scan("1 0 0 0 TEST Test\n" + rwy("1 2", "01L", r.in) + std::string("15 1.5 2.5 ") + r.in + " Gate 1\n99\n");
        EXPECT_FLOAT_EQ(apt_table.rwy_hdg[0], r.want) << r.in;
        EXPECT_FLOAT_EQ(apt_table.start_hdg[0], r.want) << r.in;
    }
}

TEST_F(AirportScan, CodesAndNamesAreCut) {
    std::string long_name(60, 'n');
    long_name[0] = 'N';
    scan("1 10 0 1 ABCDEFG " + long_name + "\n1 20 0 0   XY    Spaced  name  \n99\n");
    EXPECT_STREQ(apt_table.apt_code[0], "ABCD");
    EXPECT_EQ(std::string(apt_table.apt_name[0]), long_name.substr(0, 39));
    EXPECT_STREQ(apt_table.apt_code[1], "XY");
    EXPECT_STREQ(apt_table.apt_name[1], "Spaced  name  ");
}

TEST_F(AirportScan, TowerAndStartLinesFillTheCurrentAirport) {
    scan("1 0 0 0 AAAA First\n14 35.5 -106.5 42 Tower Viewpoint 1 10 99\n15 35.25 -106.25 95 Ramp 10 99\n"
         "1 0 0 0 BBBB Second\n15 1 2 3\n99\n");
    const AirportTable& t = apt_table;
    EXPECT_FLOAT_EQ(t.twr_lat[0], 35.5f);
    EXPECT_FLOAT_EQ(t.twr_lon[0], -106.5f);
    EXPECT_FLOAT_EQ(t.twr_hgt[0], 42.f);
    EXPECT_FLOAT_EQ(t.start_lat[0], 35.25f);
    EXPECT_FLOAT_EQ(t.start_hdg[0], 95.f);
    EXPECT_EQ(t.airport_count, 1);  // the numbers in the dropped rest were not read as codes
    EXPECT_FLOAT_EQ(t.start_lat[1], 1.f);
    EXPECT_FLOAT_EQ(t.start_hdg[1], 3.f);
}

TEST_F(AirportScan, LinesBeforeTheFirstAirportAreDropped) {
    scan(rwy("9 9", "09L", "90") + "14 8 8 8 Tower\n15 7 7 7 Ramp\n1 0 0 0 KAAA Alpha\n" + rwy("1 2", "18C", "180") +
         "99\n");
    const AirportTable& t = apt_table;
    EXPECT_EQ(t.airport_count, 0);
    EXPECT_EQ(t.runway_count, 0);
    EXPECT_STREQ(t.apt_code[0], "KAAA");
    EXPECT_EQ(t.apt_first_rwy[0], 0);
    EXPECT_STREQ(t.rwy_num[0], "18C");
    EXPECT_FLOAT_EQ(apt_lat(0), 1.f);
    EXPECT_FLOAT_EQ(t.twr_lat[0], 0.f);
    EXPECT_FLOAT_EQ(t.start_lat[0], 0.f);
}

TEST_F(AirportScan, TokenWiseScanOfRunwayLineTails) {
    // After a runway's code the scan reads the same line's numbers as line codes: 2 and 0
    // do nothing, 1 starts an airport record in the middle of the line.
    scan("1 0 0 0 KAAA Alpha\n10 1 2 04L 40 100 0 0 50 3 2 0\n"
         "10 3 4 22R 220 100 0 0 50 3 1 7 0 0 KBBB Bravo on a runway line\n"
         "1 0 0 0 KCCC Charlie\n" + rwy("5 6", "36x", "0") + "99\n");
    const AirportTable& t = apt_table;
    EXPECT_EQ(t.airport_count, 2);
    EXPECT_STREQ(t.apt_code[1], "KBBB");
    EXPECT_STREQ(t.apt_name[1], "Bravo on a runway line");
    EXPECT_FLOAT_EQ(t.apt_elev[1], 7.f);
    // KBBB has no runway: its first runway is the next one read, which belongs to KCCC.
    EXPECT_EQ(t.apt_first_rwy[1], 2);
    EXPECT_EQ(t.apt_first_rwy[2], 2);
    EXPECT_EQ(t.apt_last_rwy[0], 1);
    EXPECT_FLOAT_EQ(apt_lat(1), 5.f);
    EXPECT_FLOAT_EQ(apt_lon(1), 6.f);
}

TEST_F(AirportScan, AirportWithoutRunwaysAtTheEndSitsAtZero) {
    scan("1 0 0 0 KAAA Alpha\n" + rwy("5 6", "36x", "0") + "1 0 0 0 KZZZ Last\n99\n");
    EXPECT_EQ(apt_table.apt_first_rwy[1], 1);
    EXPECT_FLOAT_EQ(apt_lat(1), 0.f);
    EXPECT_FLOAT_EQ(apt_lon(1), 0.f);
}

TEST_F(AirportScan, ProgressEvery400Records) {
    struct Row { int airports; int want; } rows[] = {{1, 0}, {2, 2}, {401, 2}, {402, 4}, {802, 6}};
    for (const Row& r : rows) {
        std::string s;
        for (int i = 0; i < r.airports; ++i) s += "1 0 0 0 K" + std::to_string(i % 1000) + " A\n" + rwy("1 1", "01x", "10");
        apt_reset();
        progress_calls = 0;
        scan(s + "99\n");
        EXPECT_EQ(progress_calls, r.want) << r.airports << " airports";
    }
}

// n airports of one runway each, with distinct codes.
static std::string many_airports(int n) {
    std::string s;
    s.reserve((size_t)n * 80);
    char line[160];
    for (int i = 0; i < n; ++i) {
        snprintf(line, sizeof line, "1 %d 0 0 %c%c%c%c Airport %d\n10 %d.5 %d.25 09x 90 5000 0 0 100 1\n", i % 900,
                 'A' + i / 17576 % 26, 'A' + i / 676 % 26, 'A' + i / 26 % 26, 'A' + i % 26, i, i % 80, i % 170);
        s += line;
    }
    return s;
}

TEST_F(AirportScan, TwentyTwoThousandAirportsLoad) {
    scan(many_airports(APT_MAX) + "99\n");
    EXPECT_EQ(apt_table.airport_count, APT_MAX - 1);
    EXPECT_EQ(apt_table.runway_count, APT_MAX - 1);
    EXPECT_STREQ(apt_table.apt_code[APT_MAX - 1], "BGOD");  // 21999 in base 26
    EXPECT_STREQ(apt_table.apt_name[APT_MAX - 1], "Airport 21999");
    int32_t found = -1;
    EXPECT_EQ(apt_find_code("BGOD", 1, &found), 1);
    EXPECT_EQ(found, APT_MAX - 1);
}

TEST_F(AirportScan, LimitsAreFatal) {
    std::string airports = many_airports(APT_MAX + 1) + "99\n";
    EXPECT_EXIT(scan(airports), testing::ExitedWithCode(0),
                HasSubstr(test_alert_text("Too many airports in apt.dat file!", "", "", "")));
    std::string runways = "1 0 0 0 KAAA Alpha\n";
    for (int i = 0; i <= RWY_MAX; ++i) runways += "10 0 0 01x 0 0 0 0 0 0\n";
    EXPECT_EXIT(scan(runways + "99\n"), testing::ExitedWithCode(0),
                HasSubstr(test_alert_text("Too many runways in apt.dat file!", "", "", "")));
}

TEST_F(AirportScan, DamagedFilesEndInAScanningError) {
    struct Row { std::string records; bool path_label; const char* label; } rows[] = {
        {"1 0 0 0 KAAA Alpha\n" + rwy("1 2", "01x", "10"), true, ""},            // no code 99
        {"1 0 0 0 KAAA Alpha\n10 1 2 01x 10 100 0 0 50 3.5\n99\n", true, ""},     // fraction where a code is read
        {"1 0 0 0 KAAA Alpha\nGarbage here\n99\n", true, ""},                    // a word where a code is read
        {"1 0 0 0 KAAA Alpha\n10 1 2 01x east 100 0 0 50 3\n99\n", false, "scan rwy rwy_hdng"},
        {"1 high 0 0 KAAA Alpha\n99\n", false, "scan apt apt_h"},
        {"1 0 0 0 KAAA Alpha\n14 1 2\n", false, "fio_tower_line dy "},
    };
    for (const Row& r : rows) {
        std::string p = dir + "apt.dat";
        std::string label = r.path_label ? p : r.label;
        EXPECT_EXIT(scan(r.records), testing::ExitedWithCode(0),
                    HasSubstr(test_alert_text("File-scanning error!", "", "file:", label)))
            << r.records;
    }
}

class FindCode : public testing::Test {
  protected:
    void SetUp() override { apt_reset(); }
    void add(const char* code, float lat, float lon) {
        AirportTable& t = apt_table;
        int32_t i = ++t.airport_count, r = ++t.runway_count;
        for (int k = 0; k < 4 && code[k]; ++k) t.apt_code[i][k] = code[k];
        t.apt_first_rwy[i] = t.apt_last_rwy[i] = r;
        t.rwy_lat[r] = lat;
        t.rwy_lon[r] = lon;
    }
};

TEST_F(FindCode, KindsAndCodes) {
    add("KSFO", 37, -122);
    add("KSF", 40, 40);
    add("KSFO", 10, 10);   // nearer to (0, 0) than the first KSFO
    add("EGLL", 51, 0);
    add("EGLL", -51, 0);   // as near as the first EGLL: the earlier one stays
    add("FAR", 800, 800);  // farther than 999.9 from (0, 0): never found
    struct Row { const char* code; int32_t kind; int8_t found; int32_t index; } rows[] = {
        {"KSFO", 1, 1, 2},  {"KSF ", 1, 1, 1},   {"KSF", 1, 1, 1},   {"KS  ", 1, 0, 99}, {"EGLL", 1, 1, 3},
        {"egll", 1, 0, 99}, {"KSFOX", 1, 1, 2},  {"FAR", 1, 0, 99},  {"KSFO", 13, 1, 0}, {"KSFO", 11, 0, 99},
        {"KSFO", 0, 0, 99}, {"KSFO", 2, 0, 99},  {"", 1, 0, 99},
    };
    for (const Row& r : rows) {
        int32_t index = 99;
        EXPECT_EQ(apt_find_code(r.code, r.kind, &index), r.found) << r.code << " kind " << r.kind;
        EXPECT_EQ(index, r.index) << r.code << " kind " << r.kind;
    }
}

TEST_F(FindCode, FollowsTablesChangedByHand) {
    add("KAAA", 1, 1);
    int32_t index = -1;
    ASSERT_EQ(apt_find_code("KAAA", 1, &index), 1);
    strcpy(apt_table.apt_code[0], "KBBB");  // same count, new code
    EXPECT_EQ(apt_find_code("KAAA", 1, &index), 0);
    EXPECT_EQ(apt_find_code("KBBB", 1, &index), 1);
    add("KAAA", 2, 2);
    EXPECT_EQ(apt_find_code("KAAA", 1, &index), 1);
    EXPECT_EQ(index, 1);
}
