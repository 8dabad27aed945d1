// Weather phrasing: the worked San Francisco paragraph, every wording rule and the
// rounding edges.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

#include "briefing/phrasing.h"
#include "briefing/request.h"
#include "briefing/weather.h"
#include "tests/support/sim_files.h"
#include "tests/support/test_files.h"
#include "util/file_reader.h"
#include "util/random.h"
#include "util/text.h"
#include "util/units.h"

TEST(RoundHalfAway, Edges) {
    const struct {
        double in, out;
    } rows[] = {{0.0, 0.0},   {0.5, 1.0},   {-0.5, -1.0}, {0.49999, 0.0}, {-0.49999, 0.0}, {1.5, 2.0},
                {2.5, 3.0},   {-2.5, -3.0}, {2.4, 2.0},   {-2.6, -3.0},   {9.99, 10.0},    {1e10 + 0.5, 1e10 + 1}};
    for (auto r : rows) EXPECT_EQ(round_half_away(r.in), r.out) << r.in;
}

class Phrasing : public testing::Test {
  protected:
    void SetUp() override {
        fio_reset();
        dir = test_temp_dir();
        brief_req_reset();
        memset(&station_wx, 0, sizeof station_wx);
        sim_set_airports({{"KSFO", "San Francisco Intl", 37.62f, -122.37f},
                          {"KOAK", "Oakland Intl", 37.72f, -122.22f},
                          {"KSJC", "San Jose Intl", 37.36f, -121.93f}});
        brief_req.departure = 1;
        brief_req.destination = 2;
        str_copy((dir + "metar.rwx").c_str(), wx_file_path);  // absent unless a test writes it
    }
    // The paragraph for `place` after `opener`, with the lead-in choice r (1..5).
    std::string phrase(int32_t r, int32_t place = PLACE_DEPARTURE, const char* opener = "") {
        rand_set_state(sim_seed_for({{5, r}}));
        Text p;
        str_copy(opener, p);
        wx_phrase_place(37.6f, -122.4f, p, place);
        return p;
    }
    // The weather as a report without a station would leave it.
    static void weather(float vis, int32_t kind, int32_t intensity, float temp) {
        StationWeather& w = station_wx;
        w.visibility = vis;
        w.wx_kind = kind;
        w.wx_intensity = intensity;
        w.temperature = temp;
        w.wind_dir = 200.0f;
        w.wind_speed = 10.0f;
        w.pressure = 29.92f;
    }
    std::string dir;
};

TEST_F(Phrasing, SanFranciscoReport) {
    test_write_file(dir, "metar.rwx",
                    "KOAK 121856Z 00000KT 1/2SM BR OVC002 10/10 A2990\n"
                    "KSFO 121856Z 28015G25KT 10SM FEW010 SCT200 18/12 A3001 RMK AO2\n");
    EXPECT_EQ(phrase(1, PLACE_DEPARTURE, "OK then, for your departure, "),
              "OK then, for your departure, at 1856 zulu, San Francisco Intl is reporting skies 1000 scattered, "
              "20000visibility 9 miles. Ah, Temperature 18 C, dewpoint 12 C. Now for the winds... Wind 280 at 15 "
              "gust 25, barometric pressure 3001. ");
    EXPECT_EQ(station_wx.time, 68160.0f);  // the decoded seconds are kept

    // A later paragraph whose lookup finds nothing names the same time again.
    test_write_file(dir, "metar.rwx", "");
    EXPECT_THAT(phrase(1, PLACE_DESTINATION), testing::StartsWith("at 1856 zulu, San Jose Intl is reporting"));
}

TEST_F(Phrasing, LeadInsByChoice) {
    const char* const expect[5][2] = {
        {"Ah, ", "Now for the winds... "},
        {"Let's see, ", "Let's check the winds... "},
        {"Let's see here, ", "OK, "},
        {"OK... ", "For the winds... "},
        {"Lemme see here... ", "Let's see what the wind is doing... "},
    };
    weather(18520.0f, 0, 0, 5.0f);
    for (int32_t r = 1; r <= 5; ++r) {
        std::string p = phrase(r);
        EXPECT_THAT(p, testing::HasSubstr(std::string(". ") + expect[r - 1][0] + "Temperature 5 C, dewpoint 0 C. " +
                                          expect[r - 1][1] + "Wind 200 at 10, "))
            << r;
    }
}

TEST_F(Phrasing, NoStationNamesTheRequestedAirport) {
    weather(18520.0f, 0, 0, 5.0f);
    EXPECT_THAT(phrase(1, PLACE_DEPARTURE), testing::StartsWith("Oakland Intl is reporting clear skies, "));
    EXPECT_THAT(phrase(1, PLACE_MIDPOINT), testing::StartsWith("San Jose Intl is reporting clear skies, "));
    EXPECT_THAT(phrase(1, PLACE_DESTINATION), testing::StartsWith("San Jose Intl is reporting clear skies, "));
}

TEST_F(Phrasing, VisibilityAndWeather) {
    const float sm = unit_nm_per_sm * unit_nm_to_m;  // metres per statute mile
    const struct {
        float vis;
        int32_t kind, intensity;
        float temp;
        const char* expect;
    } rows[] = {
        {0.5f * sm, 0, 0, 5, "visibility about a half-mile in haze. Ah, "},
        {1.0f * sm, 0, 0, 5, "visibility one mile in haze. Ah, "},
        {9999.0f, 0, 0, 5, "visibility 5 miles in haze. Ah, "},
        {18520.0f, 0, 0, 5, "visibility 10 miles. Ah, "},
        {0.25f * sm, 0, 0, 5, "visibility only one-quarter mile in haze. "},
        {0.75f * 1852.0f, 0, 0, 5, "visibility three-quarters in haze. "},
        {1.1f * 1852.0f, 0, 0, 5, "visibility 1 miles in haze. "},
        {6.5f * 1852.0f, 0, 0, 5, "visibility 7 miles in haze. "},   // 6.5 rounds up, still below 7
        {7.0f * 1852.0f + 1, 0, 0, 5, "visibility 7 miles. "},
        {0.0f, 2, 3, 5, "visibility not reported. Ah, "},            // no weather phrase
        {-5.0f, 1, 1, 5, "visibility not reported. Ah, "},
        {18520.0f, 1, 3, 0, "visibility 10 miles in heavy  snow. "},
        {18520.0f, 1, 3, 1, "visibility 10 miles in heavy  rain. "},
        {18520.0f, 1, 2, 1, "visibility 10 miles in moderate  rain. "},
        {18520.0f, 1, 1, -3, "visibility 10 miles in light  snow. "},
        {18520.0f, 1, 0, 1, "visibility 10 miles rain. "},
        {18520.0f, 2, 1, 5, "visibility 10 miles in light thunderstorms. "},
        {18520.0f, 2, 2, 5, "visibility 10 miles in thunderstorms. "},
        {18520.0f, 2, 3, 5, "visibility 10 miles in severe thunderstorms. "},
        {3000.0f, -99, 0, 5, "visibility 2 miles in haze. "},
    };
    for (auto r : rows) {
        weather(r.vis, r.kind, r.intensity, r.temp);
        EXPECT_THAT(phrase(1), testing::HasSubstr(std::string("clear skies, ") + r.expect)) << r.expect;
    }
}

TEST_F(Phrasing, SkyLayers) {
    const struct {
        int32_t k0;
        float b0;
        int32_t k1;
        float b1;
        const char* expect;
    } rows[] = {
        {0, 0, 0, 0, " is reporting clear skies, visibility"},
        {3, 1524.0f, 4, 3048.0f, " is reporting skies 5000 broken, 10000 overcast, visibility"},
        {0, 0, 2, 600.0f, " is reporting skies 2000 scattered, visibility"},          // 1968.5 ft
        {1, 30479.7f, 0, 0, " is reporting skies 100000visibility"},                    // 99999 ft
        {4, 0.3048f * 149.0f, 0, 0, " is reporting skies 100 overcast, visibility"},
        {4, 0.3048f * 151.0f, 0, 0, " is reporting skies 200 overcast, visibility"},
        {2, -500.0f, 0, 0, " is reporting skies 0 scattered, visibility"},              // kept at 0
        {2, 1e10f, 0, 0, " is reporting skies 9900000000 scattered, visibility"},      // kept at the top
    };
    for (auto r : rows) {
        weather(18520.0f, 0, 0, 5.0f);
        station_wx.cloud_kind[0] = r.k0;
        station_wx.cloud_base[0] = r.b0;
        station_wx.cloud_kind[1] = r.k1;
        station_wx.cloud_base[1] = r.b1;
        EXPECT_THAT(phrase(1), testing::HasSubstr(r.expect)) << r.expect;
    }
}

TEST_F(Phrasing, TemperatureWindAndPressure) {
    const struct {
        float temp, dew, dir, speed, gust, pressure, time;
        const char* expect;
    } rows[] = {
        {-5.0f, -12.0f, 200, 10, 0, 29.92f, 0, "Temperature -5 C, dewpoint -12 C. "},
        {-5.7f, 3.9f, 200, 10, 0, 29.92f, 0, "Temperature -5 C, dewpoint 3 C. "},
        {5, 0, 200, 1, 0, 29.92f, 0, "winds... Wind calm, barometric pressure 2992. "},
        {5, 0, 200, 4, 0, 29.92f, 0, "winds... Wind light and variable, barometric"},
        {5, 0, 355, 10, 0, 29.92f, 0, "winds... Wind 360 at 10, barometric"},
        {5, 0, 4, 10, 0, 29.92f, 0, "winds... Wind 0 at 10, barometric"},
        {5, 0, 5, 10, 0, 29.92f, 0, "winds... Wind 10 at 10, barometric"},            // 0.5 rounds up
        {5, 0, 244.9f, 12.9f, 7.5f, 29.92f, 0, "winds... Wind 240 at 12 gust 20, barometric"},
        {5, 0, -1, 10, 0, 29.92f, 0, "winds... barometric pressure 2992. "},          // no wind
        {5, 0, 200, -1, 0, 29.92f, 0, "winds... barometric pressure 2992. "},
        {5, 0, 200, 10, 0, 0.0f, 0, "Wind 200 at 10, barometric pressure not reported."},
        {5, 0, 200, 10, 0, 30.005f, 0, "barometric pressure 3001. "},
        {5, 0, 200, 10, 0, 29.92f, 86399, "at 2359 zulu, Oakland Intl"},
        {5, 0, 200, 10, 0, 29.92f, 59, "Oakland Intl"},                               // 0 h 0 min
    };
    for (auto r : rows) {
        StationWeather& w = station_wx;
        weather(18520.0f, 0, 0, r.temp);
        w.dewpoint = r.dew;
        w.wind_dir = r.dir;
        w.wind_speed = r.speed;
        w.gust = r.gust;
        w.pressure = r.pressure;
        w.time = r.time;
        std::string p = phrase(1);
        EXPECT_THAT(p, testing::HasSubstr(r.expect)) << r.expect;
        if (r.time == 0) {
            EXPECT_THAT(p, testing::StartsWith("Oakland Intl")) << "no time without a report time";
        }
    }
    // A report time under one minute still names a time: 0 h 0 min is "at 0 zulu, ".
    station_wx.time = 59;
    EXPECT_THAT(phrase(1), testing::StartsWith("at 0 zulu, Oakland Intl"));
}

TEST_F(Phrasing, AParagraphPast499CharactersIsFatal) {
    weather(18520.0f, 0, 0, 5.0f);
    std::string opener(430, 'x');
    EXPECT_EXIT(phrase(1, PLACE_DEPARTURE, opener.c_str()), testing::ExitedWithCode(0),
                testing::HasSubstr("String too long!"));
}
