// The composer (introduction, enroute and departure times, openers, order of random draws)
// and the menu commands that write the briefing file.
#include <gmock/gmock.h>

#include <cstring>
#include <ctime>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include "briefing/briefing_file.h"
#include "briefing/composer.h"
#include "briefing/request.h"
#include "base/alert.h"
#include "base/shutdown.h"
#include "tests/support/sim_files.h"
#include "tests/support/test_files.h"
#include "util/random.h"

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

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
    const float rows[][2] = {{68160, 1926}, {85500, 15}, {79200, 2230}, {1800, 100}, {86400, 30}, {3540, 129}};
    for (const auto& r : rows) EXPECT_EQ(brief_departure_hhmm(r[0]), r[1]) << r[0];
    auto now_plus = [](time_t t) { return gmtime(&t)->tm_hour * 100 + gmtime(&t)->tm_min; };
    time_t before = time(nullptr) + 30 * 60;  // no report time: the current UTC time of day plus 30 minutes
    int32_t got = brief_departure_hhmm(0.0f);
    EXPECT_TRUE(got == now_plus(before) || got == now_plus(time(nullptr) + 30 * 60)) << got;

    // Written with four digits, from the departure paragraph's report of the same briefing.
    test_write_file(dir, "metar.rwx", "AAAA 122345Z 27010KT 9999 15/05 Q1013\nBBBB 121200Z 27010KT 9999 Q1013\n");
    brief_compose();
    EXPECT_THAT(brief_req.intro, HasSubstr("will be 0015 zulu, at 5000 feet"));
    EXPECT_THAT(brief_req.dest_wx, HasSubstr("at 1200 zulu, Bravo"));
}

// Three draws choose the openers, then each paragraph draws its lead-in choice: six draws in all.
TEST_F(Composer, OpenersLeadInsAndDrawOrder) {
    const char* const openers[6][3] = {
        {"OK then, for your departure, ", "Enroute, ", "For your destination, ah, "},
        {"All right, for your departure, ", "On the way, ", "For your destination, hmmm, "},
        {"OK, for your departure airport, ", "Enroute lets look look at this one, ",
         "For your destination, let's see what I can find here, "},
        {"Let's see, for your departure area, ", "On the way there we have, ",
         "For your destination, let's see what we've got here, "},
        {"Stand by, for your departure, ", "Enroute let's look at this one... ", "For your destination, hold on, "},
        {"Well, for your departure region, ", "Lemme also give you this one... ", "For your destination, well, "}};
    const char* const leads[5][2] = {{"Ah, ", "Now for the winds... "}, {"Let's see, ", "Let's check the winds... "},
                                     {"Let's see here, ", "OK, "}, {"OK... ", "For the winds... "},
                                     {"Lemme see here... ", "Let's see what the wind is doing... "}};
    for (int r = 0; r < 6; ++r) {
        const int o[3] = {r, 5 - r, (r + 2) % 6}, l[3] = {r % 5, (r + 1) % 5, (r + 3) % 5};
        rand_set_state(sim_seed_for(
            {{6, o[0] + 1}, {6, o[1] + 1}, {6, o[2] + 1}, {5, l[0] + 1}, {5, l[1] + 1}, {5, l[2] + 1}}));
        uint64_t before = rand_count();
        brief_compose();
        EXPECT_EQ(rand_count() - before, 6u);
        const char* got[3] = {brief_req.dep_wx, brief_req.enroute_wx, brief_req.dest_wx};
        for (int k = 0; k < 3; ++k)
            EXPECT_EQ(got[k], std::string(openers[o[k]][k]) + "at 1856 zulu, Alpha is reporting clear skies, "
                                  "visibility 5 miles in haze. " + leads[l[k]][0] + "Temperature 15 C, dewpoint 5 C. " +
                                  leads[l[k]][1] + "Wind 270 at 10, barometric pressure 2991. ");
    }
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

    // A failed write throws its temporary file away and leaves the old file as it was.
    OutFile f;
    out_open(&f, (dir + "Vocalog.txt").c_str(), false);
    out_text(&f, "half a brief");
    f.state |= FS_BAD;
    out_close(&f);
    EXPECT_FALSE(out_good(&f));
    EXPECT_EQ(brief_save((dir + "no folder/Vocalog.txt").c_str()), 0);
    EXPECT_EQ(test_read_file(dir + "Vocalog.txt"), text);
    EXPECT_EQ(files_in_dir(), 2);
}

TEST_F(Composer, OtherCommands) {
    quit_requested = 0;
    for (int32_t command : {1, 99, 101, 103, -1}) brief_write_file(command);
    EXPECT_EQ(quit_requested + alerts.size(), 0u);
    for (int32_t command : {CMD_ABOUT, CMD_QUIT}) brief_write_file(command);
    EXPECT_EQ(quit_requested, 1);
    EXPECT_THAT(alerts, testing::ElementsAre(StartsWith("14|Vocalog")));
    EXPECT_EQ(files_in_dir(), 1);
}
