// The weather lookup: choosing the nearest airport-coded report and decoding its groups.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "briefing/airports.h"
#include "briefing/weather.h"
#include "tests/support/sim_files.h"
#include "tests/support/test_files.h"
#include "util/random.h"

class WeatherLookup : public testing::Test {
  protected:
    void SetUp() override {
        sim_set_airports({});
        sim_brief_reset(dir);
    }
    void write(const std::string& text) { test_write_file(dir, "metar.rwx", text); }
    int32_t lookup(float lat = 0, float lon = 0) {
        StationWeather& w = station_wx;
        return wx_lookup(lat, lon, &w.time, w.cloud_kind, w.cloud_base, w.cloud_top, &w.visibility, &w.wx_kind,
                         &w.wx_intensity, &w.temperature, &w.dewpoint, &w.wind_dir, &w.wind_speed, &w.gust,
                         &w.pressure);
    }
    std::string found(float lat, float lon) {
        int32_t s = lookup(lat, lon);
        return std::to_string(s) + " at " + std::to_string((int)station_wx.time);
    }
    // Decodes one report of the station KSFO; the record keeps what earlier decodings left.
    const StationWeather& decode(const std::string& line) {
        if (apt_table.airport_count < 0) sim_add_airport({"KSFO", "", 37.6f, -122.4f});
        write(line + "\n");
        EXPECT_EQ(lookup(), 0) << line;
        return station_wx;
    }
    std::string dir = test_temp_dir();
};

// The record as text: time, wind, visibility, weather, clouds, temperatures, pressure.
static std::string fields(const StationWeather& w) {
    char b[300];
    snprintf(b, sizeof b, "t%g w%g/%g/%g v%.0f x%d/%d c%d/%.1f/%.1f c%d/%.1f/%.1f T%g/%g p%.4f ", w.time, w.wind_dir,
             w.wind_speed, w.gust, w.visibility, w.wx_kind, w.wx_intensity, w.cloud_kind[0], w.cloud_base[0],
             w.cloud_top[0], w.cloud_kind[1], w.cloud_base[1], w.cloud_top[1], w.temperature, w.dewpoint, w.pressure);
    return b;
}

TEST_F(WeatherLookup, WorkedReportsAndPersistence) {
    EXPECT_EQ(fields(decode("KSFO 121856Z 28015G25KT 10SM FEW010 SCT200 18/12 A3001 RMK AO2")),
              "t68160 w280/15/10 v16093 x0/0 c2/304.8/1304.8 c1/6096.0/7096.0 T18/12 p30.0100 ");
    // Fields a report lacks keep their values; clouds and weather are reset at every decoding.
    EXPECT_EQ(fields(decode("KSFO 121900Z 5SM -RA FEW050")),
              "t68400 w280/15/10 v8047 x1/3 c2/1524.0/2524.0 c0/30479.7/0.0 T18/12 p30.0100 ");
    sim_set_airports({{"EGLL", "", 51.47f, -0.46f}});
    write("METAR EGLL 121850Z 24010KT 9999 FEW030 15/08 Q1013\n");
    ASSERT_EQ(lookup(50, 0), 0);
    EXPECT_EQ(fields(station_wx), "t67800 w240/10/0 v9999 x0/0 c2/914.4/1914.4 c0/30479.7/0.0 T15/8 p29.9126 ");
}

TEST_F(WeatherLookup, GroupRules) {
    std::string groups;  // groups 2 to 38: the next group is the 40th
    for (int g = 2; g < 39; ++g) groups += " G" + std::to_string(g);
    const std::string rows[][2] = {  // the report after its time group, a piece of the record; -1: not set
        {"28015KT 1/2SM", " v805 "},        {"28015KT 3/4SM", " v1207 "},       {"28015KT M1/4SM", " v6437 "},
        {"28015KT 15SM", " v24140 "},       {"28015KT 0800", " v800 "},         {"9999 28015KT", " v18520 "},
        {"28015KT 9999", " v9999 "},        {"28015KT FEW010 0800", " v-1 "},   {"28015KT 12345", " v-1 "},
        {"28015KT 10SM -RA", " x1/3 "},     {"28015KT 10SM TSRA", " x2/3 "},    {"28015KT 10SM BR", " x0/0 "},
        {"28015KT 10SM -DZ", " x1/1 "},     {"28015KT 10SM DZSG", " x1/2 "},    {"28015KT 10SM GS", " x2/2 "},
        {"28015KT 9999 +SHSN", " x1/3 "},   {"28015KT 10SM FEW010 -RA", " x0/0 "}, {"28015KT -RA TSRA", " x0/0 "},
        {"18/12", " T18/12 "},              {"M05/M12", " T-5/-12 "},           {"07/M02", " T7/-2 "},
        {"M01/03", " T-1/3 "},              {"05/", " T-1/-1 "},                {"5/12", " T-1/-1 "},
        {"18/12/", " T-1/-1 "},             {"M5/M12", " T-1/-1 "},             {"0905KT", " w90/5/0 "},
        {"280105G120KT", " w280/105/15 "},  {"28015KT WS020/27045", " w280/15/30 "},
        {"28015KT RMK 09030KT", " w280/15/0 "}, {"A2992", " p29.9200 "},       {"Q0998", " p29.4697 "},
        {"A29X2", " p-1.0000 "},            {"Q101", " p-1.0000 "},
        // A 600-character line is decoded from its first 499: Q1013 straddles the cut or ends at it.
        {"28015KT " + std::string(474, 'X') + " Q1013" + std::string(99, 'Y'), " p-1.0000 "},
        {"28015KT " + std::string(472, 'X') + " Q1013" + std::string(101, 'Y'), " p29.9126 "},
        {groups + "   A2992", " p29.9200 "},  {groups + " G39 A2992", " p-1.0000 "},  // only 40 groups are examined
    };
    for (const auto& r : rows) {
        station_wx.visibility = station_wx.temperature = station_wx.dewpoint = station_wx.pressure = -1;
        EXPECT_THAT(fields(decode("KSFO 121856Z " + r[0])), testing::HasSubstr(r[1])) << r[0].substr(0, 40);
    }
    rand_set_state(12345);
    float want = (float)rand_next() * 360.0f / 32767.0f;
    rand_set_state(12345);
    EXPECT_EQ(decode("KSFO 121856Z VRB03KT").wind_dir, want);
}

TEST_F(WeatherLookup, NearestStationAndTies) {
    sim_set_airports(
        {{"KAAA", "", 10, 10}, {"KBBB", "", 0, 5}, {"KCCC", "", 0, -5}, {"KAAA", "", 1, 1}, {"KDD", "", 0, 0}});
    write("KDD  121000Z\nKAAA 121100Z\nKCCC 121200Z\nKBBB 121300Z\nKAAA 121400Z\nKCCC 121500Z\n");
    EXPECT_EQ(found(0, 0), "3 at 39600");  // the nearest KAAA's first report; a 3-letter code never matches
    EXPECT_EQ(found(0, 3.5f), "1 at 46800");
    apt_table.apt_code[3][0] = 'X';        // the table changed by hand after the index was built
    EXPECT_EQ(found(0, 0), "2 at 43200");  // KCCC met before KBBB at the same distance
}

TEST_F(WeatherLookup, LinesAndFiles) {
    sim_add_airport({"KSFO", "", 0, 0});
    station_wx.time = 7;
    const std::string rows[][2] = {
        {"KSFO A2992\nKSF0 121856Z\n\n1999/03/02\n  KSFO 121856Z\n", "-1 at 7"},  // 10 characters; no airport
        {"KSFO  A2992", "0 at 7"},                                                // 11 characters
        {std::string("KSFO\0 121856Z 09010KT", 21) + "\r\nKSFO 122000Z\r\n", "0 at 72000"},  // a zero ends a text
        {"2024/01/01 00:00\rKSFO 121856Z 28015KT\rKSFO 122000Z", "0 at 68160"},  // CR line ends, no final one
        {"KSFO 120100Z " + std::string(200000, 'Z') + "\nKSFO 120200Z\n", "0 at 3600"},  // longer than a block
        {"KLAX 120100Z " + std::string(200000, 'Z') + "\nKSFO 120200Z\n", "0 at 7200"},  // and the line after it
    };
    for (const auto& r : rows) {
        write(r[0]);
        EXPECT_EQ(found(0, 0), r[1]) << r[0].substr(0, 60);
    }
    strcpy(wx_file_path, (dir + "none.rwx").c_str());
    EXPECT_EQ(found(0, 0), "-1 at 7200");
}

// The lookup's answer must be that of comparing every report with every airport, also when the
// reports carry garbled groups (which must decode without harm).
TEST_F(WeatherLookup, SameStationAsComparingEveryReportWithEveryAirport) {
    std::mt19937 gen(2024);
    auto pick = [&](int n) { return (int)(gen() % (unsigned)n); };
    const char garble[] = "KSFOGTMR/QAWV0123456789  \t-+.\x01\xff";
    for (int round = 0; round < 4; ++round) {
        // Few distinct codes and coarse positions, so that codes repeat and distances tie.
        sim_set_airports({});
        for (int i = 0; i < 600; ++i) {
            std::string code = {'K', "ABC"[pick(3)], "ABC"[pick(3)], "ABCa"[pick(4)]};
            sim_add_airport({pick(10) ? code : code.substr(0, 3), "", (float)(pick(21) - 10), (float)(pick(41) - 20)});
        }
        std::vector<std::string> lines;  // a unique report time per line shows which line was decoded
        std::string file;
        for (int n = 0; n < 400; ++n) {
            char line[80];
            snprintf(line, sizeof line, "%sK%c%c%c 12%02d%02dZ ", pick(4) ? "" : pick(2) ? "METAR " : "SPECI ",
                     "ABC"[pick(3)], "ABC"[pick(3)], "ABCa"[pick(4)], n / 60, n % 60);
            lines.push_back(pick(20) ? line : "KAB 12");
            for (int k = pick(8) ? pick(60) : pick(700); k > 0; --k) lines.back() += garble[pick(sizeof garble - 1)];
            file += lines.back() + (pick(8) ? "\n" : "\r\n");
        }
        write(file);
        for (int q = 0; q < 60; ++q) {
            float lat = (float)(pick(41) - 20) * 0.5f, lon = (float)(pick(81) - 40) * 0.5f, best = 99999.0f;
            int32_t want = -1, want_line = -1;
            for (int32_t n = 0; n < (int32_t)lines.size(); ++n) {
                const std::string& l = lines[n];
                const char* code = l.c_str() + (l.compare(0, 5, "METAR") && l.compare(0, 5, "SPECI") ? 0 : 6);
                for (int32_t i = 0; l.size() >= 11 && i <= apt_table.airport_count; ++i) {
                    if (strncmp(apt_table.apt_code[i], code, 4) != 0 || !(apt_distance(i, lat, lon) < best)) continue;
                    best = apt_distance(i, lat, lon), want = i, want_line = n;
                }
            }
            station_wx.time = -1;
            ASSERT_EQ(lookup(lat, lon), want) << "round " << round << " at " << lat << ", " << lon;
            if (want >= 0) {
                EXPECT_EQ(station_wx.time, (float)(want_line / 60 * 3600 + want_line % 60 * 60));
            }
            EXPECT_TRUE(station_wx.wx_kind >= 0 && station_wx.wx_kind <= 2 && station_wx.cloud_kind[1] <= 4);
        }
    }
}
