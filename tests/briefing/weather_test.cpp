// The weather lookup: choosing the nearest airport-coded report, decoding its groups, and
// files that cannot be opened.
#include "tests/briefing/briefing_tests.h"

#include <sys/stat.h>
#include <unistd.h>

#include "briefing/airport_index.h"

class WeatherLookup : public testing::Test {
  protected:
    void SetUp() override {
        sim_set_airports({});
        sim_brief_reset(dir);
    }
    // The station found for (lat, lon) and the report time then held: "station at seconds".
    std::string lookup(float lat = 0, float lon = 0) {
        StationWeather& w = station_wx;
        int32_t s = wx_lookup(lat, lon, &w.time, w.cloud_kind, w.cloud_base, w.cloud_top, &w.visibility, &w.wx_kind,
                              &w.wx_intensity, &w.temperature, &w.dewpoint, &w.wind_dir, &w.wind_speed, &w.gust,
                              &w.pressure);
        return std::to_string(s) + " at " + std::to_string((int)w.time);
    }
    std::string found(const std::string& file, float lat = 0, float lon = 0) {
        test_write_file(dir, "metar.rwx", file);
        return lookup(lat, lon);
    }
    // Decodes one report of the station KSFO; the record keeps what earlier decodings left.
    const StationWeather& decode(const std::string& line) {
        if (apt_table.airport_count < 0) sim_set_airports({{"KSFO", "", 37.6f, -122.4f}});
        EXPECT_THAT(found(line + "\n"), testing::StartsWith("0 at ")) << line;
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
    rand_set_state(1);  // a variable wind's direction is a draw: 16838 of 32767 is 184.9934 degrees
    EXPECT_NEAR(decode("KSFO 121856Z VRB03KT").wind_dir, 184.9934f, 0.001f);
}

TEST_F(WeatherLookup, NearestStationAndTies) {
    sim_set_airports(
        {{"KAAA", "", 10, 10}, {"KBBB", "", 0, 5}, {"KCCC", "", 0, -5}, {"KAAA", "", 1, 1}, {"KDD", "", 0, 0}});
    const std::string file = "KDD  121000Z\nKAAA 121100Z\nKCCC 121200Z\nKBBB 121300Z\nKAAA 121400Z\nKCCC 121500Z\n";
    EXPECT_EQ(found(file), "3 at 39600");  // the nearest KAAA's first report; a 3-letter code never matches
    EXPECT_EQ(found(file, 0, 3.5f), "1 at 46800");
    // The table changed by hand after the index was built: a code, then a position.
    apt_table.apt_code[3][0] = 'X';
    apt_index_invalidate();
    EXPECT_EQ(found(file), "2 at 43200");  // KCCC met before KBBB at the same distance
    apt_table.rwy_lon[1] = 4.9f;
    apt_index_invalidate();
    EXPECT_EQ(found(file), "1 at 46800");
}

TEST_F(WeatherLookup, LinesAndFiles) {
    sim_set_airports({{"KSFO", "", 0, 0}});
    station_wx.time = 7;
    const std::string rows[][2] = {
        {"KSFO A2992\nKSF0 121856Z\n\n1999/03/02\n  KSFO 121856Z\n", "-1 at 7"},  // 10 characters; no airport
        {"KSFO  A2992", "0 at 7"},                                                // 11 characters
        {std::string("KSFO\0 121856Z 09010KT", 21) + "\r\nKSFO 122000Z\r\n", "0 at 72000"},  // a zero ends a text
        {"2024/01/01 00:00\rKSFO 121856Z 28015KT\rKSFO 122000Z", "0 at 68160"},  // CR line ends, no final one
        {"METAR KSFO 120200Z", "0 at 7200"},  {"SPECI KSFO 120100Z", "0 at 3600"},
        {"KSFO 120100Z " + std::string(200000, 'Z') + "\nKSFO 120200Z\n", "0 at 3600"},  // longer than a block
        // The rest of a line past the reader's 64 KiB block is dropped, also where it looks like a report.
        {"KLAX 120100Z " + std::string(65523, 'Z') + "KSFO 120300Z\nKSFO 120200Z\n", "0 at 7200"},
    };
    for (const auto& r : rows) EXPECT_EQ(found(r[0]), r[1]) << r[0].substr(0, 60);
    strcpy(wx_file_path, (dir + "none.rwx").c_str());
    EXPECT_EQ(found(""), "-1 at 7200");
}

// A FIFO or an endless device never blocks a reader, the data-file reader's slots or the weather
// file's own stream: each is a file that cannot be opened.
using WeatherLookupDeathTest = WeatherLookup;  // death tests run first, before any test leaves a thread
TEST_F(WeatherLookupDeathTest, AFifoOrAnEndlessDeviceIsAFileThatCannotBeOpened) {
    ASSERT_EQ(mkfifo((dir + "fifo").c_str(), 0644), 0);
    for (const std::string& path : {dir + "fifo", std::string("/dev/zero")}) {
        EXPECT_EXIT(
            {
                alarm(5);  // a reader that waits is killed, and the row fails
                Text p;
                str_copy(path.c_str(), p);
                str_copy(path.c_str(), wx_file_path);
                _exit(fio_open(p, FILE_TYPE_TEXT, 0, 1) == 0 && lookup() == "-1 at 0" ? 0 : 1);
            },
            testing::ExitedWithCode(0), "")
            << path;
    }
}
