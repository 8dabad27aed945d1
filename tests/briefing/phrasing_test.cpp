// Weather phrasing: every wording rule, the rounding edges and the report time it keeps.
#include "tests/briefing/briefing_tests.h"

#include "briefing/phrasing.h"

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
        {NAN, 0, 0, 5, "not reported. Ah, "},                      {INFINITY, 0, 0, 5, "not reported. Ah, "},
    };
    for (const auto& r : rows) {
        station_wx.visibility = r.vis, station_wx.wx_kind = r.kind;
        station_wx.wx_intensity = r.intensity, station_wx.temperature = r.temp;
        EXPECT_THAT(phrase(1), HasSubstr(std::string(" is reporting clear skies, visibility ") + r.expect)) << r.expect;
    }
    test_write_file(dir, "metar.rwx", "KOAK 121856Z 20010KT ////SM 15/05 A2992\n");  // visibility missing
    EXPECT_THAT(phrase(1), HasSubstr("Oakland Intl is reporting clear skies, visibility not reported. Ah, "));
    remove((dir + "metar.rwx").c_str());
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
    // A lookup that finds nothing keeps the time and names the requested airport: at the midpoint, the destination.
    EXPECT_THAT(phrase(1, PLACE_MIDPOINT), StartsWith("at 0 zulu, San Jose Intl is reporting"));
}

using PhrasingDeathTest = Phrasing;  // death tests run first, before any test leaves a thread
TEST_F(PhrasingDeathTest, AParagraphPast499CharactersIsFatal) {
    std::string opener(430, 'x');
    EXPECT_EXIT(phrase(1, PLACE_DEPARTURE, opener.c_str()), testing::ExitedWithCode(0),
                HasSubstr("though:\n\n" + opener + "Oakland Intl is reporting clear skies, visibility 10"));
}
