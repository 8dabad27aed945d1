// vocalog-brief end to end: the built program run on generated simulator folders.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <sys/stat.h>
#include <sys/wait.h>

#include "platform/platform.h"
#include "tests/support/sim_files.h"
#include "tests/support/test_files.h"

using testing::HasSubstr;
using testing::StartsWith;

struct RunResult {
    int code;
    std::string out, err;
};

static std::string quote(const std::string& s) {
    std::string q = "'";
    for (char c : s) q += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return q + "'";
}

class Brief : public testing::Test {
  protected:
    void SetUp() override {
        dir = test_temp_dir();
        sim = dir + "sim/";
        mkdir(sim.c_str(), 0755);
        xdg = dir + "xdg";
        sim_folder(sim, airports, metar);
    }
    // Runs the program with `args` (each quoted), the per-user folder under `xdg`.
    RunResult run(const std::vector<std::string>& args) {
        // The program is built beside this test executable, in the build folder's root.
        char here[4096];
        if (!plat_program_folder(here, sizeof here)) here[0] = 0;
        std::string cmd = "XDG_DATA_HOME=" + quote(xdg) + " " + quote(std::string(here) + "vocalog-brief");
        for (const std::string& a : args) cmd += " " + quote(a);
        cmd += " >" + quote(dir + "stdout") + " 2>" + quote(dir + "stderr");
        int status = std::system(cmd.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, test_read_file(dir + "stdout"),
                test_read_file(dir + "stderr")};
    }
    std::vector<std::string> base() { return {"--sim", sim, "--from", "KABQ", "--to", "KSAF"}; }

    const std::vector<TestAirport> airports = {{"KABQ", "Albuquerque Intl", 35.04f, -106.61f, 5355.0f},
                                               {"KSAF", "Santa Fe Muni", 35.49f, -106.01f, 6348.0f},
                                               {"KAEG", "Double Eagle II", 35.15f, -106.80f, 5837.0f},
                                               {"KMID", "Midway Field", 35.30f, -106.30f, 6000.0f}};
    const std::vector<std::string> metar = {"2025/01/27 21:00", "KABQ 121856Z 28015G25KT 10SM FEW010 SCT200 18/12 A3001",
                                            "KSAF 121853Z 30008KT 10SM BKN050 12/M02 A3004",
                                            "KMID 121850Z 18005KT 5SM -RA OVC010 08/06 A2995"};
    std::string dir, sim, xdg;
};

// With the seed giving openers 1, 1, 1 and lead-ins 1, 1, 1 the whole briefing is known.
TEST_F(Brief, ExactBriefingWithSeed) {
    uint32_t seed = sim_seed_for({{6, 1}, {6, 1}, {6, 1}, {5, 1}, {5, 1}, {5, 1}});
    TestAircraft a;
    std::string acf = test_write_file(sim + "Aircraft/", "C172.acf", sim_aircraft(a));
    std::vector<std::string> args = base();
    for (const char* extra : {"--aircraft", acf.c_str(), "--altitude", "5500", "--seed"}) args.push_back(extra);
    args.push_back(std::to_string(seed));
    RunResult r = run(args);
    EXPECT_EQ(r.code, 0) << r.err;
    EXPECT_EQ(r.err, "");
    const std::string wx_abq =
        "at 1856 zulu, Albuquerque Intl is reporting skies 1000 scattered, 20000visibility 9 miles. Ah, "
        "Temperature 18 C, dewpoint 12 C. Now for the winds... Wind 280 at 15 gust 25, barometric pressure 3001. ";
    EXPECT_EQ(r.out,
              "Hello, this is N172SP, a C172, planning a flight from Albuquerque Intl to Santa Fe Muni. Estimated time "
              "of departure will be 1926 zulu, estimating 0.9 hours enroute at 5500 feet, and requesting a "
              "standard.\n\n"
              "OK then, for your departure, " + wx_abq + "\n\n"
              "Enroute, at 1850 zulu, Midway Field is reporting skies 1000 overcast, visibility 4 miles in heavy  rain. "
              "Ah, Temperature 8 C, dewpoint 6 C. Now for the winds... Wind 180 at 5, barometric pressure 2995. \n\n"
              "For your destination, ah, at 1853 zulu, Santa Fe Muni is reporting skies 5000 broken, visibility 9 "
              "miles. Ah, Temperature 12 C, dewpoint -2 C. Now for the winds... Wind 300 at 8, barometric pressure "
              "3004. \n\n");

    // The same inputs give the same briefing, in a file as on standard output.
    args.push_back("--out");
    args.push_back(dir + "brief.txt");
    RunResult again = run(args);
    EXPECT_EQ(again.code, 0);
    EXPECT_EQ(again.out, "");
    EXPECT_EQ(test_read_file(dir + "brief.txt"), r.out);
}

TEST_F(Brief, UsageErrorsExitWith2) {
    const std::vector<std::vector<std::string>> rows = {
        {"--sim", sim, "--to", "KSAF"},
        {"--sim", sim, "--from", "KABQ"},
        {"--sim", sim, "--from", "KABQ", "--to", "KSAF", "--bogus", "1"},
        {"--sim", sim, "--from", "KABQ", "--to"},
        {"--sim", sim, "--from", "KABQ", "--to", "KSAF", "--altitude", "100000"},
        {"--sim", sim, "--from", "KABQ", "--to", "KSAF", "--altitude", "-1"},
        {"--sim", sim, "--from", "KABQ", "--to", "KSAF", "--altitude", "high"},
        {"--sim", sim, "--from", "KABQ", "--to", "KSAF", "--seed", "4294967296"},
        {"--sim", sim, "--from", "KABQ", "--to", "KSAF", "--seed", "-3"},
        {"--sim", sim, "--from", "KABQ", "--to", "KXXX"},
        {"--sim", sim, "--from", "KABQX", "--to", "KSAF"},
        {"--sim", sim, "--from", "KABQ", "--to", "KSAF", "--aircraft", dir + "none.acf"},
        {"--sim", dir + "no-such-folder", "--from", "KABQ", "--to", "KSAF"},
    };
    for (const auto& args : rows) {
        std::string line;
        for (const auto& a : args) line += a + " ";
        SCOPED_TRACE(line);
        RunResult r = run(args);
        EXPECT_EQ(r.code, 2);
        EXPECT_EQ(r.out, "");
        EXPECT_THAT(r.err, StartsWith("vocalog-brief: "));
        EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1);
    }
}

TEST_F(Brief, HelpAndBoundaryValues) {
    RunResult help = run({"--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_THAT(help.out, StartsWith("usage: vocalog-brief --sim DIR --from CODE --to CODE"));

    std::vector<std::string> args = base();
    for (const char* extra : {"--altitude", "99999", "--seed", "4294967295"}) args.push_back(extra);
    RunResult top = run(args);
    EXPECT_EQ(top.code, 0) << top.err;
    EXPECT_THAT(top.out, HasSubstr(" at 99999 feet, and requesting a standard.\n\n"));
    EXPECT_THAT(top.out, StartsWith("Hello, this is , a untitled, planning a flight from Albuquerque Intl"));

    RunResult zero = run({"--sim=" + sim, "--from=KAEG", "--to=KAEG", "--altitude=0", "--seed=0"});
    EXPECT_EQ(zero.code, 0) << zero.err;
    EXPECT_THAT(zero.out, HasSubstr("from Double Eagle II to Double Eagle II. Estimated time of departure will be "
                                    "1926 zulu, at 0 feet"));
}

TEST_F(Brief, UnreadableAircraftWarnsAndBriefsWithoutIt) {
    std::string acf = test_write_file(sim + "Aircraft/", "Junk.acf", "not an aircraft");
    std::vector<std::string> args = base();
    args.push_back("--aircraft");
    args.push_back(acf);
    RunResult r = run(args);
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1);
    EXPECT_THAT(r.err, HasSubstr("Junk.acf"));
    EXPECT_THAT(r.out, StartsWith("Hello, this is , a Junk, planning a flight from Albuquerque Intl to Santa Fe Muni. "
                                  "Estimated time of departure will be 1926 zulu, at 5000 feet"));
}

TEST_F(Brief, CoreFailuresExitWith1) {
    // A damaged airport file.
    test_write_file(sim + "Resources/Earth nav data/", "apt.dat", "I\n600 version\n1 5355 1 0 KABQ Albuquerque\nxx\n");
    RunResult damaged = run(base());
    EXPECT_EQ(damaged.code, 1);
    EXPECT_EQ(damaged.out, "");
    EXPECT_THAT(damaged.err, HasSubstr("File-scanning error!\nfile:\n"));

    // No airport file at all: the note, then the scan error.
    remove((sim + "Resources/Earth nav data/apt.dat").c_str());
    RunResult missing = run(base());
    EXPECT_EQ(missing.code, 1);
    EXPECT_THAT(missing.err, HasSubstr("I am unable to access a nav or airport data file!"));
    EXPECT_THAT(missing.err, HasSubstr("File-scanning error!"));

    // No weather file and no simulator preferences.
    sim_folder(sim, airports, {});
    remove((sim + "metar.rwx").c_str());
    RunResult no_weather = run(base());
    EXPECT_EQ(no_weather.code, 1);
    EXPECT_THAT(no_weather.err, StartsWith("I could not find an Zephyra prefs file or a Metar.rwx weather file!\n"
                                           "In other words, I have no weather to give you a briefing with!\n"));
    EXPECT_EQ(no_weather.out, "");
}

TEST_F(Brief, SimulatorPreferencesStandInForTheWeatherFile) {
    remove((sim + "metar.rwx").c_str());
    mkdir(xdg.c_str(), 0755);
    mkdir((xdg + "/Zephyra").c_str(), 0755);
    TestSimPrefs p;
    p.start_code = "KSAF";
    p.local_hours = 10.0f;  // 10 - (-106.01 / 15 + 1) = 16.07: 16 h
    p.cloud_kind[0] = 3;
    p.cloud_base[0] = 1524.0f + 6348.0f * 0.3048f;  // 5000 ft above the airport
    TestAircraft a;
    p.aircraft_path = test_write_file(sim + "Aircraft/", "C172.acf", sim_aircraft(a));
    test_write_file(xdg + "/Zephyra/", "Corvane 6 Zephyra.prf", sim_prefs(p));
    std::vector<std::string> args = base();
    args.push_back("--seed=1");
    RunResult r = run(args);
    EXPECT_EQ(r.code, 0) << r.err;
    EXPECT_EQ(r.err, "");
    // The simulator's aircraft, and its weather phrased for every place.
    EXPECT_THAT(r.out, StartsWith("Hello, this is N172SP, a C172, planning a flight from Albuquerque Intl to Santa Fe "
                                  "Muni. Estimated time of departure will be 1630 zulu, estimating "));
    EXPECT_THAT(r.out, HasSubstr("at 1600 zulu, Albuquerque Intl is reporting skies 5000 broken, visibility 10 miles."));
    EXPECT_THAT(r.out, HasSubstr("at 1600 zulu, Santa Fe Muni is reporting skies 5000 broken, "));
}
