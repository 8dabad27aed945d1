// The weather lookup: choosing the nearest airport-coded report and decoding its groups.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "briefing/airports.h"
#include "briefing/weather.h"
#include "tests/support/test_files.h"
#include "util/random.h"

class WeatherLookup : public testing::Test {
  protected:
    void SetUp() override {
        apt_reset();
        dir = test_temp_dir();
        strcpy(wx_file_path, (dir + "metar.rwx").c_str());
        memset(&station_wx, 0, sizeof station_wx);
    }
    void add(const char* code, float lat, float lon) {
        AirportTable& t = apt_table;
        int32_t i = ++t.airport_count, r = ++t.runway_count;
        for (int k = 0; k < 4 && code[k]; ++k) t.apt_code[i][k] = code[k];
        t.apt_first_rwy[i] = t.apt_last_rwy[i] = r;
        t.rwy_lat[r] = lat;
        t.rwy_lon[r] = lon;
    }
    void write(const std::string& text) { test_write_file(dir, "metar.rwx", text); }
    int32_t lookup(float lat = 0, float lon = 0) {
        StationWeather& w = station_wx;
        return wx_lookup(lat, lon, &w.time, w.cloud_kind, w.cloud_base, w.cloud_top, &w.visibility, &w.wx_kind,
                         &w.wx_intensity, &w.temperature, &w.dewpoint, &w.wind_dir, &w.wind_speed, &w.gust,
                         &w.pressure);
    }
    // Decodes one report of the station KSFO and returns the record.
    const StationWeather& decode(const std::string& line) {
        if (apt_table.airport_count < 0) add("KSFO", 37.6f, -122.4f);
        write(line + "\n");
        EXPECT_EQ(lookup(), 0) << line;
        return station_wx;
    }
    std::string dir;
};

constexpr float SM = 1609.344f;  // metres in a statute mile

TEST_F(WeatherLookup, SanFranciscoReport) {
    const StationWeather& w = decode("KSFO 121856Z 28015G25KT 10SM FEW010 SCT200 18/12 A3001 RMK AO2");
    EXPECT_FLOAT_EQ(w.time, 68160);
    EXPECT_FLOAT_EQ(w.wind_dir, 280);
    EXPECT_FLOAT_EQ(w.wind_speed, 15);
    EXPECT_FLOAT_EQ(w.gust, 10);
    EXPECT_NEAR(w.visibility, 10 * SM, 0.5);
    EXPECT_EQ(w.cloud_kind[0], 2);
    EXPECT_NEAR(w.cloud_base[0], 304.8, 0.01);
    EXPECT_NEAR(w.cloud_top[0], 1304.8, 0.01);
    EXPECT_EQ(w.cloud_kind[1], 1);
    EXPECT_NEAR(w.cloud_base[1], 6096, 0.01);
    EXPECT_FLOAT_EQ(w.temperature, 18);
    EXPECT_FLOAT_EQ(w.dewpoint, 12);
    EXPECT_NEAR(w.pressure, 30.01, 1e-5);
    EXPECT_EQ(w.wx_kind, 0);
    EXPECT_EQ(w.wx_intensity, 0);
}

TEST_F(WeatherLookup, HeathrowReportWithMetarPrefix) {
    add("EGLL", 51.47f, -0.46f);
    write("METAR EGLL 121850Z 24010KT 9999 FEW030 15/08 Q1013\n");
    ASSERT_EQ(lookup(50, 0), 0);
    const StationWeather& w = station_wx;
    EXPECT_FLOAT_EQ(w.visibility, 9999);
    EXPECT_NEAR(w.pressure, 29.9126, 1e-4);
    EXPECT_FLOAT_EQ(w.wind_dir, 240);
    EXPECT_FLOAT_EQ(w.wind_speed, 10);
    EXPECT_NEAR(w.cloud_base[0], 914.4, 0.01);
    EXPECT_EQ(w.cloud_kind[0], 2);
    EXPECT_EQ(w.cloud_kind[1], 0);
    EXPECT_NEAR(w.cloud_base[1], 30479.7, 0.01);
    EXPECT_FLOAT_EQ(w.temperature, 15);
    EXPECT_FLOAT_EQ(w.dewpoint, 8);
}

TEST_F(WeatherLookup, Visibility) {
    struct Row { const char* report; float metres; } rows[] = {
        {"KSFO 121856Z 28015KT 1/2SM", 0.5f * SM},  {"KSFO 121856Z 28015KT 3/4SM", 0.75f * SM},
        {"KSFO 121856Z 28015KT M1/4SM", 4 * SM},    {"KSFO 121856Z 28015KT 15SM", 15 * SM},
        {"KSFO 121856Z 28015KT 0800", 800},         {"KSFO 121856Z 9999 28015KT", 18520},
        {"KSFO 121856Z 28015KT 9999", 9999},        {"KSFO 121856Z 28015KT FEW010 0800", -1},
        {"SPECI KSFO 121856Z 28015KT 2SM", 2 * SM}, {"KSFO 121856Z 28015KT 12345", -1},
    };
    for (const Row& r : rows) {
        station_wx.visibility = -1;
        EXPECT_NEAR(decode(r.report).visibility, r.metres, 0.5) << r.report;
    }
}

TEST_F(WeatherLookup, PresentWeatherOnlyRightAfterVisibility) {
    struct Row { const char* report; int32_t kind, intensity; } rows[] = {
        {"KSFO 28015KT 10SM -RA", 1, 3},       {"KSFO 28015KT 10SM TSRA", 2, 3},
        {"KSFO 28015KT 10SM BR", 0, 0},        {"KSFO 28015KT 10SM -DZ", 1, 1},
        {"KSFO 28015KT 10SM SG", 1, 2},        {"KSFO 28015KT 10SM GS", 2, 2},
        {"KSFO 28015KT 10SM DZSG", 1, 2},      {"KSFO 28015KT 9999 +SHSN", 1, 3},
        {"KSFO 28015KT 10SM FEW010 -RA", 0, 0}, {"KSFO 28015KT -RA TSRA", 0, 0},
    };
    for (const Row& r : rows) {
        const StationWeather& w = decode(r.report);
        EXPECT_EQ(w.wx_kind, r.kind) << r.report;
        EXPECT_EQ(w.wx_intensity, r.intensity) << r.report;
    }
}

TEST_F(WeatherLookup, TemperatureShapes) {
    struct Row { const char* group; float temp, dew; } rows[] = {
        {"18/12", 18, 12}, {"M05/M12", -5, -12}, {"07/M02", 7, -2},  {"M01/03", -1, 3},
        {"05/", 99, 99},   {"5/12", 99, 99},      {"18/12/", 99, 99}, {"M5/M12", 99, 99},
    };
    for (const Row& r : rows) {
        station_wx.temperature = station_wx.dewpoint = 99;
        const StationWeather& w = decode(std::string("KSFO 121856Z 28015KT ") + r.group);
        EXPECT_FLOAT_EQ(w.temperature, r.temp) << r.group;
        EXPECT_FLOAT_EQ(w.dewpoint, r.dew) << r.group;
    }
}

TEST_F(WeatherLookup, WindGroups) {
    struct Row { const char* report; float dir, speed, gust; } rows[] = {
        {"KSFO 121856Z 28015G25KT", 280, 15, 10},   {"KSFO 121856Z 0905KT", 90, 5, 0},
        {"KSFO 121856Z 280105G120KT", 280, 105, 15}, {"KSFO 121856Z 28015KT WS020/27045", 280, 15, 30},
        {"KSFO 121856Z 28015KT RMK 09030KT", 280, 15, 0},
    };
    for (const Row& r : rows) {
        const StationWeather& w = decode(r.report);
        EXPECT_FLOAT_EQ(w.wind_dir, r.dir) << r.report;
        EXPECT_FLOAT_EQ(w.wind_speed, r.speed) << r.report;
        EXPECT_FLOAT_EQ(w.gust, r.gust) << r.report;
    }
    rand_set_state(12345);
    float want = (float)rand_next() * 360.0f / 32767.0f;
    rand_set_state(12345);
    EXPECT_FLOAT_EQ(decode("KSFO 121856Z VRB03KT").wind_dir, want);
    EXPECT_FLOAT_EQ(station_wx.wind_speed, 3);
}

TEST_F(WeatherLookup, MissingGroupsKeepThePreviousValues) {
    decode("KSFO 121856Z 28015G25KT 10SM -RA BKN010 OVC020 18/12 A3001");
    const StationWeather& w = decode("KSFO 121900Z FEW050");
    EXPECT_FLOAT_EQ(w.time, 68400);
    EXPECT_FLOAT_EQ(w.wind_dir, 280);  // kept
    EXPECT_FLOAT_EQ(w.wind_speed, 15);
    EXPECT_FLOAT_EQ(w.gust, 10);
    EXPECT_NEAR(w.visibility, 10 * SM, 0.5);
    EXPECT_FLOAT_EQ(w.temperature, 18);
    EXPECT_NEAR(w.pressure, 30.01, 1e-5);
    EXPECT_EQ(w.wx_kind, 0);  // reset at every decoding
    EXPECT_EQ(w.wx_intensity, 0);
    EXPECT_EQ(w.cloud_kind[0], 2);
    EXPECT_EQ(w.cloud_kind[1], 0);
    EXPECT_NEAR(w.cloud_base[1], 30479.7, 0.01);
    EXPECT_FLOAT_EQ(w.cloud_top[1], 0);
}

TEST_F(WeatherLookup, NearestStationAndTies) {
    add("KAAA", 10, 10);
    add("KBBB", 0, 5);
    add("KCCC", 0, -5);  // as near to (0, 0) as KBBB
    add("KAAA", 1, 1);   // the nearest KAAA
    add("KDD", 0, 0);    // a 3-letter code never matches
    write("KDD  121000Z\nKAAA 121100Z\nKCCC 121200Z\nKBBB 121300Z\nKAAA 121400Z\nKCCC 121500Z\n");
    EXPECT_EQ(lookup(0, 0), 3);
    EXPECT_FLOAT_EQ(station_wx.time, 11 * 3600);  // the first report of that station
    EXPECT_EQ(lookup(0, 3.5f), 1);
    EXPECT_FLOAT_EQ(station_wx.time, 13 * 3600);
    apt_table.apt_code[3][0] = 'X';  // the table changed by hand after the index was built
    EXPECT_EQ(lookup(0, 0), 2);     // KCCC met before KBBB at the same distance
    EXPECT_FLOAT_EQ(station_wx.time, 12 * 3600);
}

TEST_F(WeatherLookup, LinesAndFiles) {
    add("KSFO", 0, 0);
    station_wx.time = 7;
    write("KSFO 12345\nKSF0 121856Z\n\n1999/03/02\n");  // 10 characters; no such airport
    EXPECT_EQ(lookup(), -1);
    write("  KSFO 121856Z\n");
    EXPECT_EQ(lookup(), -1);
    EXPECT_FLOAT_EQ(station_wx.time, 7);
    strcpy(wx_file_path, (dir + "none.rwx").c_str());
    EXPECT_EQ(lookup(), -1);
    strcpy(wx_file_path, (dir + "metar.rwx").c_str());
    write(std::string("KSFO\0 121856Z 09010KT", 21) + "\r\nKSFO 122000Z\r\n");  // a zero byte ends a line's text
    EXPECT_EQ(lookup(), 0);
    EXPECT_FLOAT_EQ(station_wx.time, 72000);
    write("2024/01/01 00:00\rKSFO 121856Z 28015KT\rKSFO 122000Z");  // CR line ends, no final line end
    EXPECT_EQ(lookup(), 0);
    EXPECT_FLOAT_EQ(station_wx.time, 68160);
    write("KSFO 121856Z");  // 11 characters
    EXPECT_EQ(lookup(), 0);
}

TEST_F(WeatherLookup, LongLinesAndManyGroups) {
    // A 600-character line is decoded from its first 499: Q1013 straddles the cut.
    auto padded = [](size_t before_group) {
        std::string line = "KSFO 121856Z 28015KT ";
        line += std::string(before_group - line.size(), 'X') + " Q1013";
        return line + std::string(600 - line.size(), 'Y');
    };
    station_wx.pressure = -1;
    EXPECT_FLOAT_EQ(decode(padded(495)).wind_speed, 15);  // the group is cut to Q101
    EXPECT_FLOAT_EQ(station_wx.pressure, -1);
    EXPECT_NEAR(decode(padded(493)).pressure, 29.9126, 1e-4);  // Q1013 ends at the 499th character

    // Only the first 40 groups are examined.
    std::string groups = "KSFO";
    for (int g = 1; g < 39; ++g) groups += " G" + std::to_string(g);
    station_wx.pressure = -1;
    EXPECT_NEAR(decode(groups + "   A2992").pressure, 29.92, 1e-5);  // the 40th group
    station_wx.pressure = -1;
    EXPECT_FLOAT_EQ(decode(groups + " G39 A2992").pressure, -1);  // the 41st

    // A line longer than any read block: its head is used, and the lines after it are read.
    add("KLAX", 5, 5);
    write("KLAX 121856Z 28015KT " + std::string(200000, 'Z') + "\nKSFO 120100Z\n");
    EXPECT_EQ(lookup(5, 5), 1);
    EXPECT_FLOAT_EQ(station_wx.wind_speed, 15);
    EXPECT_EQ(lookup(37, -122), 0);
    EXPECT_FLOAT_EQ(station_wx.time, 3600);
}

TEST_F(WeatherLookup, GarbledLinesDecodeWithoutHarm) {
    add("KSFO", 0, 0);
    std::mt19937 gen(7);
    const char alphabet[] = "KSFOGTMR/ZQAWV0123456789  \r\n\t-+.\x01\xff";
    for (int file = 0; file < 200; ++file) {
        std::string text;
        int lines = 1 + (int)(gen() % 5);
        for (int l = 0; l < lines; ++l) {
            std::string line = gen() % 2 ? "KSFO " : (gen() % 2 ? "METAR KSFO " : "SPECI ");
            size_t n = gen() % (gen() % 8 == 0 ? 700 : 60);
            for (size_t k = 0; k < n; ++k) line += alphabet[gen() % (sizeof alphabet - 1)];
            text += line + "\n";
        }
        write(text);
        int32_t r = lookup();
        EXPECT_TRUE(r == -1 || r == 0) << r;
        EXPECT_GE(station_wx.wx_kind, 0);
        EXPECT_LE(station_wx.wx_kind, 2);
        EXPECT_LE(station_wx.cloud_kind[1], 4);
    }
}

// The lookup's answer must be that of comparing every report with every airport.
static int32_t brute_force(const std::string& file, float lat, float lon, std::string* line_out) {
    float best = 99999.0f;
    int32_t station = -1;
    size_t pos = 0;
    while (pos < file.size()) {
        size_t end = file.find_first_of("\r\n", pos);
        if (end == std::string::npos) end = file.size();
        std::string line = file.substr(pos, std::min<size_t>(end - pos, 499));
        line = line.c_str();  // text ends at a zero byte
        pos = end + 1;
        if (line.size() < 11) continue;
        const char* code = line.c_str();
        if (line.compare(0, 5, "METAR") == 0 || line.compare(0, 5, "SPECI") == 0) code += 6;
        for (int32_t i = 0; i <= apt_table.airport_count; ++i) {
            if (strncmp(apt_table.apt_code[i], code, 4) != 0) continue;
            float dlat = lat - apt_table.rwy_lat[apt_table.apt_first_rwy[i]];
            float dlon = lon - apt_table.rwy_lon[apt_table.apt_first_rwy[i]];
            float d = std::sqrt(dlat * dlat + dlon * dlon);
            if (d < best) {
                best = d;
                station = i;
                *line_out = line;
            }
        }
    }
    return station;
}

TEST_F(WeatherLookup, SameStationAsComparingEveryReportWithEveryAirport) {
    std::mt19937 gen(2024);
    auto pick = [&](int n) { return (int)(gen() % (unsigned)n); };
    for (int round = 0; round < 4; ++round) {
        apt_reset();
        // Few distinct codes and coarse positions, so that codes repeat and distances tie.
        const char* letters = "ABC";
        for (int i = 0; i < 600; ++i) {
            char code[6] = {'K', letters[pick(3)], letters[pick(3)], letters[pick(3)], 0, 0};
            if (pick(10) == 0) code[3] = 0;               // 3-letter codes never match
            if (pick(10) == 0) code[3] = "abc"[pick(3)];  // case counts
            add(code, (float)(pick(21) - 10), (float)(pick(41) - 20));
        }
        std::string file;
        for (int n = 0; n < 400; ++n) {
            char line[80];
            const char* prefix = pick(4) == 0 ? "METAR " : (pick(4) == 0 ? "SPECI " : "");
            // A unique report time per line shows which line was decoded.
            snprintf(line, sizeof line, "%sK%c%c%c 12%02d%02dZ 28015KT%s", prefix, letters[pick(3)],
                     letters[pick(3)], "ABCa"[pick(4)], n / 60, n % 60, pick(8) == 0 ? "\r\n" : "\n");
            file += pick(20) == 0 ? std::string("K") + letters[pick(3)] + "AB 12\n" : line;
        }
        write(file);
        for (int q = 0; q < 60; ++q) {
            float lat = (float)(pick(41) - 20) * 0.5f, lon = (float)(pick(81) - 40) * 0.5f;
            std::string want_line;
            int32_t want = brute_force(file, lat, lon, &want_line);
            station_wx.time = -1;
            ASSERT_EQ(lookup(lat, lon), want) << "round " << round << " at " << lat << ", " << lon;
            if (want < 0) continue;
            int n = std::stoi(want_line.substr(want_line.find("Z 28015KT") - 4, 4));
            EXPECT_FLOAT_EQ(station_wx.time, (float)(n / 100 * 3600 + n % 100 * 60)) << want_line;
        }
    }
}
