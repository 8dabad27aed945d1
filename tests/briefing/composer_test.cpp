// The composer's introduction (enroute and departure times; the openers' draws are pinned by
// the command-line briefer's exact briefing), the menu commands that write the briefing file,
// and the speak command without an audio output.
#include "tests/briefing/briefing_tests.h"

#include <ctime>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include "briefing/briefing_file.h"
#include "briefing/speaker.h"
#include "base/shutdown.h"

using testing::AllOf;

static std::vector<std::string> alerts;

class Composer : public testing::Test {
  protected:
    void SetUp() override {
        sim_brief_reset(dir);
        airports(20.0f, 21.0f);
        alerts.clear();
        alert_set_box([](const char* const l[4], int32_t kind) {
            alerts.push_back(std::to_string(kind) + "|" + l[0] + "|" + l[1] + "|" + l[2] + "|" + l[3]);
        });
    }
    void TearDown() override { alert_set_box(nullptr); }
    // Alpha and Bravo at the given longitudes, Alpha's report at 18:56Z.
    void airports(float dep_lon, float dest_lon) {
        sim_set_airports({{"AAAA", "Alpha", 10.0f, dep_lon}, {"BBBB", "Bravo", 10.0f, dest_lon}});
        brief_req.destination = 1;
        test_write_file(dir, "metar.rwx", "AAAA 121856Z 27010KT 9999 15/05 Q1013\n");
    }
    long files_in_dir() { return std::distance(std::filesystem::directory_iterator(dir), {}); }
    std::string dir = test_temp_dir();
};

// The worked Albuquerque introduction is pinned word for word by the command-line briefer's test.
TEST_F(Composer, IntroductionRules) {
    const struct { float dep_lon, dest_lon, speed; const char *name, *named, *timed; } rows[] = {
        {20, 23.95f, 100, "C172.acf", "C172", "1926 zulu, estimating 3.0 hours enroute at 5000 feet"},  // t = 2.97
        {20, 23.9f, 100, "untitled.acf", "untitled", "1926 zulu, estimating 2.9 hours enroute at"},   // t = 2.94
        {20, 20, 132, ".acf", "", "1926 zulu, estimating 0.6 hours enroute at"},                      // same place
        {20, 21, 1.0f, "ab", "", "1926 zulu, at 5000 feet, and requesting a standard."},  // no estimate at 1.0
        {20, 21, 1.01f, "", "", "1926 zulu, estimating 60.0 hours enroute at"},            // t = 60.006
        // A damaged position: t just under 2^31 carries its tenths into an hour that stays in range.
        {-0.6f, -2147483648.0f, 60, "x.acf", "x", "zulu, estimating 2147483647.0 hours enroute at"},
    };
    for (const auto& r : rows) {
        airports(r.dep_lon, r.dest_lon);
        str_copy(r.name, brief_req.aircraft_name);
        brief_req.speed = r.speed;
        brief_compose();
        EXPECT_THAT(brief_req.intro, AllOf(StartsWith(std::string("Hello, this is , a ") + r.named +
                                                      ", planning a flight from Alpha to Bravo. Estimated time"),
                                           HasSubstr(r.timed)));
        EXPECT_STREQ(brief_req.aircraft_name, r.name);  // the request keeps the full name
    }
}

TEST_F(Composer, DepartureTimeIsTheDepartureReportPlus30Minutes) {
    const float rows[][2] = {{68160, 1926}, {85500, 15}, {79200, 2230}, {1800, 100}, {86400, 30}, {0, 30}};
    for (const auto& r : rows) EXPECT_EQ(brief_departure_hhmm(r[0]), r[1]) << r[0];
    auto now_plus = [](time_t t) { return gmtime(&t)->tm_hour * 100 + gmtime(&t)->tm_min; };
    time_t before = time(nullptr) + 30 * 60;  // no report time: the current UTC time of day plus 30 minutes
    int32_t got = brief_departure_hhmm(NAN);
    EXPECT_TRUE(got == now_plus(before) || got == now_plus(time(nullptr) + 30 * 60)) << got;

    // Only this briefing's departure report counts: a report without a time group, or none at
    // all, takes the clock (set here), never the time an earlier report left.
    brief_set_clock(2345);
    const struct { const char *weather, *departs; } briefings[] = {
        {"AAAA 122345Z 27010KT 9999 15/05 Q1013\nBBBB 121200Z 27010KT 9999 Q1013\n", "0015"},
        {"AAAA 27010KT 9999 15/05 Q1013\nBBBB 121200Z 27010KT 9999 Q1013\n", "0015"},
        {"BBBB 121200Z 27010KT 9999 Q1013\n", "1230"},   // Bravo's report stands for Alpha's place: its time
        {"CCCC 121200Z 27010KT 9999 Q1013\n", "0015"},   // no station at all
        {"AAAA 120000Z 27010KT 9999 15/05 Q1013\n", "0030"},  // midnight is a time
    };
    for (const auto& b : briefings) {
        test_write_file(dir, "metar.rwx", b.weather);
        brief_compose();
        brief_compose();  // the second briefing starts with the destination's time of the first
        EXPECT_THAT(brief_req.intro, HasSubstr(std::string("will be ") + b.departs + " zulu, at 5000 feet")) << b.weather;
    }
    brief_set_clock(-1);
}

TEST_F(Composer, WriteComposesFreshAndReplacesTheFileSafely) {
    ASSERT_EQ(chdir(dir.c_str()), 0);
    test_write_file(dir, "Vocalog.txt", "old briefing\n");
    brief_write_file(CMD_WRITE_BRIEFING);
    EXPECT_EQ(alerts, std::vector<std::string>{"15|I will now create a file called 'Vocalog.txt' with this briefing "
                                               "in it.|You may print it for reference during your flight.|This is "
                                               "common practice in real aviation.|"});
    std::string text = test_read_file(dir + "Vocalog.txt");
    EXPECT_EQ(text, std::string(brief_req.intro) + "\n\n" + brief_req.dep_wx + "\n\n" + brief_req.enroute_wx +
                        "\n\n" + brief_req.dest_wx + "\n\n");
    EXPECT_EQ(files_in_dir(), 2);  // metar.rwx and Vocalog.txt: no temporary file stays

    // A folder that cannot be written keeps the old file and says which path failed; the
    // briefing on screen is the new one all the same. Permissions do not bind the superuser.
    ASSERT_EQ(chmod(dir.c_str(), 0555), 0);
    const bool root = geteuid() == 0;
    ASSERT_TRUE(!root || seteuid(65534) == 0);
    strcpy(brief_req.intro, "");
    brief_write_file(CMD_WRITE_BRIEFING);
    ASSERT_TRUE(!root || seteuid(0) == 0);
    chmod(dir.c_str(), 0755);
    EXPECT_EQ(test_read_file(dir + "Vocalog.txt"), text);
    ASSERT_EQ(alerts.size(), 3u);
    EXPECT_THAT(alerts[2], testing::HasSubstr("|" + dir + "Vocalog.txt|"));
    EXPECT_THAT(brief_req.intro, StartsWith("Hello, this is "));

}

TEST_F(Composer, OtherCommands) {
    quit_requested = 0;
    for (int32_t command : {1, 99, 101, 104, -1}) brief_write_file(command);
    EXPECT_EQ(quit_requested + alerts.size(), 0u);
    for (int32_t command : {CMD_ABOUT, CMD_QUIT}) brief_write_file(command);
    EXPECT_EQ(quit_requested, 1);
    EXPECT_THAT(alerts, testing::ElementsAre(StartsWith("14|Vocalog")));
    EXPECT_EQ(files_in_dir(), 1);
}

// The speak command without an audio output composes a briefing when none is shown, then says
// in a note that it cannot play.
TEST_F(Composer, SpeakWithoutAudioComposesWhenNothingIsShownAndSaysSo) {
    static int composed = 0;
    for (int k = 0; k < 2; ++k) EXPECT_EQ(brief_speak_toggle([] { ++composed, brief_compose(); }), SPEAK_FAILED);
    EXPECT_EQ(composed, 1);  // the second time a briefing is shown
    EXPECT_FALSE(brief_speak_busy());
    const std::string note =
        std::to_string(ALERT_NOTE) + "|I cannot play the briefing:|this build has no audio output||";
    EXPECT_EQ(alerts, std::vector<std::string>({note, note}));
}
