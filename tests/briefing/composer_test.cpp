// The composer: the introduction's wording, enroute time and departure time, the openers
// and the order of random draws.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <ctime>

#include "briefing/aircraft.h"
#include "briefing/composer.h"
#include "briefing/request.h"
#include "briefing/weather.h"
#include "tests/support/sim_files.h"
#include "tests/support/test_files.h"
#include "util/file_reader.h"
#include "util/random.h"
#include "util/text.h"

class Composer : public testing::Test {
  protected:
    void SetUp() override {
        fio_reset();
        acf_reset();
        dir = test_temp_dir();
        brief_req_reset();
        memset(&station_wx, 0, sizeof station_wx);
        str_copy((dir + "metar.rwx").c_str(), wx_file_path);
        str_copy("untitled.acf", brief_req.aircraft_name);
        brief_req.altitude = 5000.0f;
    }
    // Two airports d degrees apart east-west, the departure's report at 18:56Z.
    void two_airports(float d) {
        sim_set_airports({{"AAAA", "Alpha", 10.0f, 20.0f}, {"BBBB", "Bravo", 10.0f, 20.0f + d}});
        brief_req.departure = 0;
        brief_req.destination = 1;
        test_write_file(dir, "metar.rwx", "AAAA 121856Z 27010KT 9999 15/05 Q1013\n");
    }
    std::string dir;
};

TEST_F(Composer, AlbuquerqueToSantaFe) {
    sim_set_airports({{"KABQ", "Albuquerque Intl", 35.04f, -106.61f}, {"KSAF", "Santa Fe Muni", 35.49f, -106.01f}});
    test_write_file(dir, "metar.rwx",
                    "KABQ 121856Z 28015G25KT 10SM FEW010 SCT200 18/12 A3001\n"
                    "KSAF 121853Z 30008KT 10SM CLR 12/M02 A3004\n");
    TestAircraft a;  // N172SP, 160 knots, engine kind 0: 132 knots
    std::string path = test_write_file(dir, "C172.acf", sim_aircraft(a));
    ASSERT_EQ(acf_read(0, path.c_str()), 1);
    str_copy("C172.acf", brief_req.aircraft_name);
    brief_req.speed = speed_from_aircraft();
    brief_req.departure = 0;
    brief_req.destination = 1;
    brief_req.altitude = 5500.0f;
    brief_compose();
    EXPECT_STREQ(brief_req.intro,
                 "Hello, this is N172SP, a C172, planning a flight from Albuquerque Intl to Santa Fe Muni. Estimated "
                 "time of departure will be 1926 zulu, estimating 0.9 hours enroute at 5500 feet, and requesting a "
                 "standard.");
}

TEST_F(Composer, EnrouteTime) {
    const struct {
        float distance, speed;
        const char* expect;
    } rows[] = {
        {3.95f, 100.0f, "1926 zulu, estimating 3.0 hours enroute at 5000 feet"},  // t = 2.97 carries
        {3.90f, 100.0f, "1926 zulu, estimating 2.9 hours enroute at 5000 feet"},  // t = 2.94
        {0.0f, 132.0f, "1926 zulu, estimating 0.6 hours enroute at 5000 feet"},   // same place
        {1.0f, 1.0f, "1926 zulu, at 5000 feet"},                                   // no estimate at 1.0
        {1.0f, 0.0f, "1926 zulu, at 5000 feet"},
        {1.0f, 1.01f, "1926 zulu, estimating 60.0 hours enroute at 5000 feet"},   // t = 60.006
    };
    for (auto r : rows) {
        SCOPED_TRACE(r.expect);
        two_airports(r.distance);
        brief_req.speed = r.speed;
        brief_compose();
        EXPECT_THAT(brief_req.intro, testing::HasSubstr(r.expect));
    }
}

TEST_F(Composer, AircraftNameWithoutExtension) {
    const struct {
        const char* name;
        const char* expect;
    } rows[] = {
        {"untitled.acf", "Hello, this is , a untitled, planning"},
        {"C172.acf", "Hello, this is , a C172, planning"},
        {".acf", "Hello, this is , a , planning"},
        {"ab", "Hello, this is , a , planning"},
        {"", "Hello, this is , a , planning"},
    };
    two_airports(1.0f);
    for (auto r : rows) {
        str_copy(r.name, brief_req.aircraft_name);
        brief_compose();
        EXPECT_THAT(brief_req.intro, testing::StartsWith(r.expect)) << r.name;
        EXPECT_STREQ(brief_req.aircraft_name, r.name);  // the request keeps the full name
    }
}

TEST_F(Composer, DepartureTimeIsTheDepartureReportPlus30Minutes) {
    const struct {
        float secs;
        int32_t hhmm;
    } rows[] = {{68160, 1926}, {85500, 15}, {79200, 2230}, {1800, 100}, {86400, 30}, {3540, 129}};
    for (auto r : rows) EXPECT_EQ(brief_departure_hhmm(r.secs), r.hhmm) << r.secs;

    // No report time: the current UTC time of day plus 30 minutes.
    auto now_plus = [] {
        time_t t = time(nullptr) + 30 * 60;
        tm u{};
        gmtime_r(&t, &u);
        return u.tm_hour * 100 + u.tm_min;
    };
    int32_t before = now_plus();
    int32_t got = brief_departure_hhmm(0.0f);
    int32_t after = now_plus();
    EXPECT_TRUE(got == before || got == after) << got;

    // Written with four digits, from the departure paragraph's report of the same briefing.
    sim_set_airports({{"AAAA", "Alpha", 0, 0}, {"BBBB", "Bravo", 0, 5}});
    brief_req.destination = 1;
    test_write_file(dir, "metar.rwx", "AAAA 122345Z 27010KT 9999 15/05 Q1013\nBBBB 121200Z 27010KT 9999 15/05 Q1013\n");
    brief_compose();
    EXPECT_THAT(brief_req.intro, testing::HasSubstr("will be 0015 zulu, at 5000 feet"));
    EXPECT_THAT(brief_req.dest_wx, testing::HasSubstr("at 1200 zulu, Bravo"));
}

TEST_F(Composer, OpenersAndDrawOrder) {
    two_airports(2.0f);
    // r1..r3 = 1, 6, 4, then the three lead-in choices 2, 3, 5.
    rand_set_state(sim_seed_for({{6, 1}, {6, 6}, {6, 4}, {5, 2}, {5, 3}, {5, 5}}));
    uint64_t before = rand_count();
    brief_compose();
    EXPECT_EQ(rand_count() - before, 6u);
    EXPECT_THAT(brief_req.dep_wx, testing::StartsWith("OK then, for your departure, at 1856 zulu, Alpha"));
    EXPECT_THAT(brief_req.dep_wx, testing::HasSubstr(" Let's see, Temperature 15 C"));
    EXPECT_THAT(brief_req.enroute_wx, testing::StartsWith("Lemme also give you this one... at 1856 zulu, Alpha"));
    EXPECT_THAT(brief_req.enroute_wx, testing::HasSubstr(" Let's see here, Temperature"));
    EXPECT_THAT(brief_req.dest_wx,
                testing::StartsWith("For your destination, let's see what we've got here, at 1856 zulu, Alpha"));
    EXPECT_THAT(brief_req.dest_wx, testing::HasSubstr(" Lemme see here... Temperature"));
}

