// The airport scan, its limits and failures, and the lookup of an airport by code.
#include "tests/briefing/briefing_tests.h"

static int progress_calls = 0;
static char path[500];

// Writes the header and `records` to a fresh apt.dat, opens and scans it as the program's start does.
static void scan(const std::string& records) {
    fio_reset();
    apt_reset();
    progress_calls = 0;
    progress_set([](const char* m) { progress_calls += strcmp(m, "Scanning airports.") == 0; });
    strcpy(path, test_write_file(test_temp_dir(), "apt.dat", "I\n600 Version - generated\n" + records).c_str());
    ASSERT_EQ(fio_open(path, FILE_TYPE_TEXT, 600, 1), 1);
    apt_scan(path);
    fio_close();
}

static std::string rwy(const char* lat_lon, const char* number, const std::string& heading) {
    return std::string("10 ") + lat_lon + " " + number + " " + heading + " 11870 0 1000 150 252231\n";
}

// Airport i and its first runway as text, every field in table order.
static std::string entry(int i) {
    const AirportTable& t = apt_table;
    int r = t.apt_first_rwy[i];
    char b[400];
    snprintf(b, sizeof b, "%s|%s|%g %d %d|%d-%d|twr %g %g %g|start %g %g %g|%g %g %s %g %g %g %g %g %d", t.apt_code[i],
             t.apt_name[i], t.apt_elev[i], t.apt_tower[i], t.apt_bldg[i], r, t.apt_last_rwy[i], t.twr_lat[i],
             t.twr_lon[i], t.twr_hgt[i], t.start_lat[i], t.start_lon[i], t.start_hdg[i], t.rwy_lat[r], t.rwy_lon[r],
             t.rwy_num[r], t.rwy_hdg[r], t.rwy_len[r], t.rwy_ovr1[r], t.rwy_ovr2[r], t.rwy_width[r], t.rwy_code[r]);
    return b;
}

TEST(AirportScan, RecordsFillTheTablesInFileOrder) {
    scan(rwy("9 9", "09L", "90") + "14 8 8 8 Tower\n15 7 7 7 Ramp\n"  // before any airport: dropped
         "1 5355 1 0 KABQ Albuquerque Intl\n" + rwy("35.043 -106.612", "08x", "89.9") + rwy("3 4", "26R", "-10") +
         "1 10 0 1 ABCDEFG " + std::string(60, 'n') + "\n14 35.5 -106.5 42 Tower Viewpoint 1 10 99\n"
         "15 35.25 -106.25 370 Ramp 10 99\n1 20 0 0   XY    Spaced  name  \n"
         // After a runway's code, 2 and 0 do nothing and 1 starts an airport in mid-line.
         "10 1 2 04L 725 100 0 0 50 3 2 0 1 7 0 0 KBBB Bravo on a runway line\n1 0 0 0 KCCC Charlie\n" +
         rwy("5 6", "36x", "360") + "1 0 0 0 KZZZ Last\n99\n");
    EXPECT_EQ(apt_table.airport_count, 5);  // the numbers in the dropped rests were not read as codes
    EXPECT_EQ(apt_table.runway_count, 3);
    EXPECT_EQ(entry(0), "KABQ|Albuquerque Intl|5355 1 0|0-1|twr 0 0 0|start 0 0 0|"
                        "35.043 -106.612 08x 89.9 11870 0 1000 150 252231");
    EXPECT_EQ(apt_table.rwy_hdg[1], 350);  // headings are corrected once: -10, 725, 370 and 360
    EXPECT_EQ(entry(1), "ABCD|" + std::string(39, 'n') + "|10 0 1|2-0|twr 35.5 -106.5 42|start 35.25 -106.25 10|"
                        "1 2 04L 365 100 0 0 50 3");  // no runway: the next one read gives its position
    EXPECT_EQ(entry(2), "XY|Spaced  name  |20 0 0|2-2|twr 0 0 0|start 0 0 0|1 2 04L 365 100 0 0 50 3");
    EXPECT_EQ(entry(3), "KBBB|Bravo on a runway line|7 0 0|3-0|twr 0 0 0|start 0 0 0|"
                        "5 6 36x 360 11870 0 1000 150 252231");
    EXPECT_EQ(apt_table.apt_first_rwy[5], 4);  // the last airport has no runway: its position is zero
    EXPECT_EQ(apt_lat(5) + apt_lon(5), 0.0f);
    EXPECT_EQ(apt_lat(1), 1.0f);  // an airport's position is its first runway's
}

TEST(AirportScan, ProgressEvery400Records) {
    const int rows[][2] = {{1, 0}, {2, 2}, {401, 2}, {402, 4}, {802, 6}};  // airports, progress screens
    for (const auto& r : rows) {
        std::string s;
        for (int i = 0; i < r[0]; ++i) s += "1 0 0 0 K" + std::to_string(i) + " A\n" + rwy("1 1", "01x", "1");
        scan(s + "99\n");
        EXPECT_EQ(progress_calls, r[1]) << r[0] << " airports";
    }
}

TEST(AirportScan, LimitsLoadAndThenAreFatal) {
    std::string s;
    char line[100];
    for (int i = 0; i < APT_MAX; ++i) {  // distinct codes: i in hexadecimal
        snprintf(line, sizeof line, "1 %d 0 0 %04X Airport %d\n10 %d.5 %d.25 09x 90 5000 0 0 100 1\n", i % 900, i, i,
                 i % 80, i % 170);
        s += line;
    }
    scan(s + "99\n");
    EXPECT_EQ(apt_table.airport_count, APT_MAX - 1);
    EXPECT_STREQ(apt_table.apt_name[APT_MAX - 1], "Airport 21999");
    int32_t found = -1;
    EXPECT_EQ(apt_find_code("55EF", 1, &found), 1);
    EXPECT_EQ(found, APT_MAX - 1);
    EXPECT_EXIT(scan(s + "1 0 0 0 OVER One too many\n99\n"), testing::ExitedWithCode(0),
                testing::HasSubstr(test_alert_text("Too many airports in apt.dat file!", "", "", "")));
    s = "1 0 0 0 KAAA Alpha\n";
    for (int i = 0; i <= RWY_MAX; ++i) s += "10 0 0 01x 0 0 0 0 0 0\n";
    EXPECT_EXIT(scan(s + "99\n"), testing::ExitedWithCode(0),
                testing::HasSubstr(test_alert_text("Too many runways in apt.dat file!", "", "", "")));
}

TEST(AirportScan, DamagedFilesEndInAScanningError) {
    const std::string rows[][2] = {  // the records and the label of the failed read
        {"1 0 0 0 KAAA Alpha\n" + rwy("1 2", "01x", "10"), "/.*/apt.dat"},  // no code 99: the file's path
        {"1 0 0 0 KAAA Alpha\n10 1 2 01x east 100 0 0 50 3\n99\n", "scan rwy rwy_hdng"},
        {"1 high 0 0 KAAA Alpha\n99\n", "scan apt apt_h"},
        {"1 0 0 0 KAAA Alpha\n14 1 2\n", "fio_tower_line dy "},
    };
    for (const auto& r : rows)
        EXPECT_EXIT(scan(r[0]), testing::ExitedWithCode(0),
                    testing::ContainsRegex("File-scanning error!\n\n\n\nfile:\n\n" + r[1] + "\n")) << r[0];
}

TEST(FindCode, KindsCodesAndTies) {
    sim_set_airports({{"KSFO", "", 37, -122}, {"KSF", "", 1, 1}, {"KSFO", "", 10, 10}, {"EGLL", "", 51, 0},
                      {"EGLL", "", -51, 0}, {"FAR", "", 800, 800}, {"KS", "", 2, 2}});  // FAR: beyond 999.9 of (0, 0)
    const struct { const char* code; int32_t kind; int8_t found; int32_t index; } rows[] = {
        {"KSFO", 1, 1, 2},  {"KSF ", 1, 1, 1}, {"KSF", 1, 1, 1},   {"KS  ", 1, 1, 6}, {"EGLL", 1, 1, 3},
        {"egll", 1, 0, 99}, {"KSFOX", 1, 1, 2}, {"FAR", 1, 0, 99}, {"KSFO", 13, 1, 0}, {"KSFO", 11, 0, 99},
        {"KSFO", 0, 0, 99}, {"KSFO", 2, 0, 99}, {"", 1, 0, 99},
    };
    for (const auto& r : rows) {
        int32_t index = 99;
        EXPECT_EQ(apt_find_code(r.code, r.kind, &index), r.found) << r.code << " kind " << r.kind;
        EXPECT_EQ(index, r.index) << r.code << " kind " << r.kind;
    }
}

// The reset clears only the entries written since the last one, which must be all of them:
// also those of a longer scan that a shorter one followed without a reset.
TEST(AirportScan, ResetLeavesEveryEntryZero) {
    static AirportTable zero;
    std::string many;
    for (int i = 0; i < 50; ++i) many += "1 1 1 1 K" + std::to_string(100 + i) + " N\n" + rwy("1 2", "09L", "90") +
                                         "14 1 1 1 T\n15 1 1 1 S\n";
    scan(many + "99\n");
    strcpy(path, test_write_file(test_temp_dir(), "apt.dat", "I\n600 x\n1 1 1 1 KONE One\n99\n").c_str());
    ASSERT_EQ(fio_open(path, 0, 600, 1), 1);
    apt_scan(path);
    fio_close();
    zero.airport_count = zero.runway_count = -1;
    apt_reset();
    EXPECT_EQ(memcmp(&apt_table, &zero, sizeof zero), 0);
}
