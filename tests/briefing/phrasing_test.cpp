// Weather phrasing: the worked San Francisco paragraph, every wording rule and the
// rounding edges.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "briefing/phrasing.h"
#include "briefing/request.h"
#include "briefing/weather.h"
#include "tests/support/sim_files.h"
#include "tests/support/test_files.h"
#include "util/random.h"
#include "util/text.h"

using testing::HasSubstr;
using testing::StartsWith;

TEST(RoundHalfAway, Edges) {
    const double rows[][2] = {{0.0, 0.0}, {0.5, 1.0},   {-0.5, -1.0}, {0.49999, 0.0}, {-0.49999, 0.0},
                              {2.5, 3.0}, {-2.5, -3.0}, {-2.6, -3.0}, {1e10 + 0.5, 1e10 + 1}};
    for (const auto& r : rows) EXPECT_EQ(round_half_away(r[0]), r[1]) << r[0];
}

class Phrasing : public testing::Test {
  protected:
    void SetUp() override {
        sim_brief_reset(dir);
        sim_set_airports({{"KSFO", "San Francisco Intl", 37.62f, -122.37f},
                          {"KOAK", "Oakland Intl", 37.72f, -122.22f},
                          {"KSJC", "San Jose Intl", 37.36f, -121.93f}});
        brief_req.departure = 1;
        brief_req.destination = 2;
        StationWeather& w = station_wx;  // as a report without a station would leave it
        w.visibility = 18520.0f, w.temperature = 5.0f, w.wind_dir = 200.0f, w.wind_speed = 10.0f, w.pressure = 29.92f;
    }
    // The paragraph for `place` after `opener`, with the lead-in choice r (1..5).
    std::string phrase(int32_t r, int32_t place = PLACE_DEPARTURE, const char* opener = "") {
        rand_set_state(sim_seed_for({{5, r}}));
        Text p;
        str_copy(opener, p);
        wx_phrase_place(37.6f, -122.4f, p, place);
        return p;
    }
    std::string dir = test_temp_dir();
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
    // A later paragraph whose lookup finds nothing names the same time, and the requested airport.
    test_write_file(dir, "metar.rwx", "");
    EXPECT_THAT(phrase(1, PLACE_MIDPOINT), StartsWith("at 1856 zulu, San Jose Intl is reporting"));
    station_wx.time = 0;
    EXPECT_THAT(phrase(1, PLACE_DEPARTURE), StartsWith("Oakland Intl is reporting skies 1000 scattered, 20000visib"));
}

TEST_F(Phrasing, LeadInsByChoice) {
    const char* const expect[5][2] = {{"Ah, ", "Now for the winds... "}, {"Let's see, ", "Let's check the winds... "},
                                      {"Let's see here, ", "OK, "}, {"OK... ", "For the winds... "},
                                      {"Lemme see here... ", "Let's see what the wind is doing... "}};
    for (int32_t r = 1; r <= 5; ++r)
        EXPECT_THAT(phrase(r), HasSubstr(std::string("miles. ") + expect[r - 1][0] + "Temperature 5 C, dewpoint 0 C. " +
                                         expect[r - 1][1] + "Wind 200 at 10, barometric pressure 2992. "));
}

TEST_F(Phrasing, SkyVisibilityAndWeather) {
    const float sm = 1609.344f, nm = 1852.0f;  // metres per mile; 6.5 nm rounds up to 7 and is still haze
    const struct { float vis; int32_t kind, intensity; float temp; const char* expect; } rows[] = {
        {0.5f * sm, 0, 0, 5, "about a half-mile in haze. Ah, "}, {sm, 0, 0, 5, "one mile in haze. "},
        {0.25f * sm, 0, 0, 5, "only one-quarter mile in haze. "},  {9999, 0, 0, 5, "5 miles in haze. "},
        {0.75f * nm, 0, 0, 5, "three-quarters in haze. "},         {1.1f * nm, 0, 0, 5, "1 miles in haze. "},
        {6.5f * nm, 0, 0, 5, "7 miles in haze. "},                 {7.0f * nm + 1, 0, 0, 5, "7 miles. Ah, "},
        {0, 2, 3, 5, "not reported. Ah, "},                        {18520, 1, 3, 0, "10 miles in heavy  snow. "},
        {18520, 1, 3, 1, "10 miles in heavy  rain. "},             {18520, 1, 2, 1, "10 miles in moderate  rain. "},
        {18520, 1, 1, -3, "10 miles in light  snow. "},            {18520, 1, 0, 1, "10 miles rain. "},
        {18520, 2, 1, 5, "10 miles in light thunderstorms. "},     {18520, 2, 2, 5, "10 miles in thunderstorms. "},
        {18520, 2, 3, 5, "10 miles in severe thunderstorms. "},    {3000, -99, 0, 5, "2 miles in haze. "},
    };
    for (const auto& r : rows) {
        station_wx.visibility = r.vis, station_wx.wx_kind = r.kind;
        station_wx.wx_intensity = r.intensity, station_wx.temperature = r.temp;
        EXPECT_THAT(phrase(1), HasSubstr(std::string(" is reporting clear skies, visibility ") + r.expect)) << r.expect;
    }
    const struct { int32_t k0; float b0; int32_t k1; float b1; const char* expect; } skies[] = {
        {3, 1524, 4, 3048, "5000 broken, 10000 overcast, "},    {0, 0, 2, 600, "2000 scattered, "},  // 1968.5 ft
        {1, 30479.7f, 0, 0, "100000"},                  {4, 0.3048f * 149, 0, 0, "100 overcast, "},
        {4, 0.3048f * 151, 0, 0, "200 overcast, "},             {2, -500, 0, 0, "0 scattered, "},
        {2, NAN, 0, 0, "0 scattered, "},                        {2, 1e10f, 0, 0, "9900000000 scattered, "},
    };
    for (const auto& r : skies) {
        station_wx.cloud_kind[0] = r.k0, station_wx.cloud_base[0] = r.b0;
        station_wx.cloud_kind[1] = r.k1, station_wx.cloud_base[1] = r.b1;
        EXPECT_THAT(phrase(1), HasSubstr(std::string(" is reporting skies ") + r.expect + "visib")) << r.expect;
    }
}

TEST_F(Phrasing, TimeTemperatureWindAndPressure) {
    const struct { float time, temp, dew, dir, speed, gust, pressure; const char* expect; } rows[] = {
        {0, -5, -12, 200, 10, 0, 29.92f, "Temperature -5 C, dewpoint -12 C. "},
        {0, -5.7f, 3.9f, 200, 10, 0, 29.92f, "Temperature -5 C, dewpoint 3 C. "},
        {0, 5, 0, 200, 1, 0, 29.92f, "winds... Wind calm, barometric pressure 2992. "},
        {0, 5, 0, 200, 4, 0, 29.92f, "winds... Wind light and variable, barometric"},
        {0, 5, 0, 355, 10, 0, 29.92f, "winds... Wind 360 at 10, barometric"},
        {0, 5, 0, 4, 10, 0, 29.92f, "winds... Wind 0 at 10, barometric"},
        {0, 5, 0, 5, 10, 0, 29.92f, "winds... Wind 10 at 10, barometric"},  // 0.5 rounds up
        {0, 5, 0, 244.9f, 12.9f, 7.5f, 29.92f, "winds... Wind 240 at 12 gust 20, barometric"},
        {0, 5, 0, -1, 10, 0, 29.92f, "winds... barometric pressure 2992. "},  // no wind
        {0, 5, 0, 200, -1, 0, 29.92f, "winds... barometric pressure 2992. "},
        {0, 5, 0, 200, 10, 0, 0, "Wind 200 at 10, barometric pressure not reported."},
        {0, 5, 0, 200, 10, 0, 30.005f, "barometric pressure 3001. "},
        {86399, 5, 0, 200, 10, 0, 29.92f, "at 2359 zulu, Oakland Intl"}, {59, 5, 0, 200, 10, 0, 29.92f, "at 0 zulu, "},
    };
    for (const auto& r : rows) {
        StationWeather& w = station_wx;
        w.time = r.time, w.temperature = r.temp, w.dewpoint = r.dew, w.wind_dir = r.dir;
        w.wind_speed = r.speed, w.gust = r.gust, w.pressure = r.pressure;
        std::string p = phrase(1);
        EXPECT_THAT(p, HasSubstr(r.expect)) << r.expect;
        EXPECT_EQ(p.rfind("at ", 0) == 0, r.time > 0) << r.expect;
    }
}

TEST_F(Phrasing, AParagraphPast499CharactersIsFatal) {
    std::string opener(430, 'x');
    std::string text = opener + "Oakland Intl is reporting clear skies, visibility 10 miles. Ah, Temperature ";
    EXPECT_EXIT(phrase(1, PLACE_DEPARTURE, opener.c_str()), testing::ExitedWithCode(0),
                HasSubstr(test_alert_text("String too long!",
                                          "I can not repeat this entire string or I will overflow the alert procedure!",
                                          "Here is the first part of the string, though:", text.substr(0, 499))));
}
