// vocalog-brief end to end: the built program run on generated simulator folders.
#include <gmock/gmock.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <pty.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include "platform/platform.h"
#include "tests/support/sim_files.h"
#include "tests/support/test_files.h"

using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;

class Brief : public testing::Test {
  protected:
    void SetUp() override {
        folder({{"KABQ", "Albuquerque Intl", 35.04f, -106.61f, 5355}, {"KSAF", "Santa Fe Muni", 35.49f, -106.01f, 6348},
                {"KAEG", "Double Eagle II", 35.15f, -106.80f, 5837}, {"KMID", "Midway Field", 35.45f, -106.30f, 6000}},
               "2025/01/27 21:00\nKABQ 121856Z 28015G25KT 10SM FEW010 SCT200 18/12 A3001\n"
               "KSAF 121853Z 30008KT 10SM BKN050 12/M02 A3004\nKMID 121850Z 18005KT 5SM -RA OVC010 08/06 A2995\n");
    }
    // The simulator folder: apt.dat with one runway per airport, "Aircraft/" and the weather file (none when "").
    void folder(const std::vector<TestAirport>& airports, const std::string& metar) {
        std::filesystem::create_directories(sim + "Resources/Earth nav data");
        std::filesystem::create_directories(sim + "Aircraft");
        std::string apt = "I\n600 version\n";
        for (const TestAirport& a : airports)
            apt += "1 " + std::to_string((int)a.elev) + " 1 0 " + a.code + " " + a.name + "\n10 " +
                   std::to_string(a.lat) + " " + std::to_string(a.lon) + " 08x 80.00 5000 0 0 150 1\n";
        test_write_file(sim + "Resources/Earth nav data/", "apt.dat", apt + "99\n");
        if (metar.empty()) std::filesystem::remove(sim + "metar.rwx");
        else test_write_file(sim, "metar.rwx", metar);
    }
    // Runs the program built beside this test executable, the per-user folder under dir + "xdg",
    // standard output to `to` (a shell redirection; "out" then stays empty), with the environment
    // settings `env` ("NAME=value ..."). The result: the exit code, "|", standard output, "|", standard error.
    std::string run(std::vector<std::string> args, bool base = true, std::string to = "", const std::string& env = "") {
        if (base) args.insert(args.begin(), {"--sim", sim, "--from", "KABQ", "--to", "KSAF"});
        char here[4096];
        if (!plat_program_folder(here, sizeof here)) here[0] = 0;
        auto quote = [](const std::string& s) { return "'" + s + "'"; };  // the paths hold no quote
        std::string cmd = env + " XDG_DATA_HOME=" + quote(dir + "xdg") + " " + quote(std::string(here) + "vocalog-brief");
        for (const std::string& a : args) cmd += " " + quote(a);
        test_write_file(dir, "out", "");
        if (to.empty()) to = ">" + quote(dir + "out");
        int status = std::system((cmd + " " + to + " 2>" + quote(dir + "err")).c_str());
        return std::to_string(WIFEXITED(status) ? WEXITSTATUS(status) : -1) + "|" + test_read_file(dir + "out") + "|" +
               test_read_file(dir + "err");
    }
    // Code and standard output of a run that writes nothing to standard error.
    std::string written(const std::vector<std::string>& args) {
        std::string r = run(args);
        EXPECT_EQ(r.back(), '|');
        return r.substr(0, r.size() - 1);
    }
    std::string dir = test_temp_dir(), sim = dir + "sim/";
};

TEST_F(Brief, ExactBriefingWithSeedOnStandardOutputOrInAFile) {
    // The seed gives the openers 2, 5, 6 and the lead-ins 3, 2, 5: the six draws in order, each
    // choosing its own paragraph's wording.
    std::string seed = std::to_string(sim_seed_for({{6, 2}, {6, 5}, {6, 6}, {5, 3}, {5, 2}, {5, 5}}));
    std::string acf = test_write_file(sim + "Aircraft/", "C172.acf", sim_aircraft({}));
    const std::string briefing =
        "Hello, this is N172SP, a C172, planning a flight from Albuquerque Intl to Santa Fe Muni. Estimated time "
        "of departure will be 1926 zulu, estimating 0.9 hours enroute at 5500 feet, and requesting a standard.\n\n"
        "All right, for your departure, at 1856 zulu, Albuquerque Intl is reporting skies 1000 scattered, "
        "20000visibility 9 miles. Let's see here, Temperature 18 C, dewpoint 12 C. OK, Wind 280 at 15 gust 25, "
        "barometric pressure 3001. \n\nEnroute let's look at this one... at 1850 zulu, Midway Field is reporting "
        "skies 1000 overcast, visibility 4 miles in heavy  rain. Let's see, Temperature 8 C, dewpoint 6 C. Let's check "
        "the winds... Wind 180 at 5, barometric pressure 2995. \n\nFor your destination, well, at 1853 zulu, Santa Fe "
        "Muni is reporting skies 5000 broken, visibility 9 miles. Lemme see here... Temperature 12 C, dewpoint -2 C. "
        "Let's see what the wind is doing... Wind 300 at 8, barometric pressure 3004. \n\n";
    EXPECT_EQ(run({"--aircraft", acf, "--altitude", "5500", "--seed", seed}), "0|" + briefing + "|");
    EXPECT_EQ(run({"--aircraft=" + acf, "--altitude=5500", "--seed", seed, "--out", dir + "b.txt"}), "0||");
    EXPECT_EQ(test_read_file(dir + "b.txt"), briefing);
}

TEST_F(Brief, CoreFailuresExitWith1AndThePreferencesStandInForTheWeather) {
    std::string apt = sim + "Resources/Earth nav data/apt.dat";
    remove(apt.c_str());  // no airport file: the note, then the scan error
    EXPECT_THAT(run({}), MatchesRegex("1\\|\\|I am unable to access a nav or airport data file!\n.*\n" + apt +
                                      "\nMake sure .*\nFile-scanning error!\nfile:\n" + apt + "\n"));
    folder({{"KABQ", "Alpha", 0, 0}, {"KSAF", "Sierra", 1, 1}}, "");  // no weather file, no preferences
    EXPECT_THAT(run({}), MatchesRegex("1\\|\\|I could not find an Zephyra prefs file or a Metar.rwx weather file!\n.*"
                                      "\nI looked for the Zephyra prefs file here: " + dir +
                                      "xdg/Zephyra/Corvane 6 Zephyra.prf\n"));
    // The simulator's preferences in the per-user folder: its aircraft, and its weather for every place.
    std::filesystem::create_directories(dir + "xdg/Zephyra");
    std::string acf = test_write_file(sim + "Aircraft/", "C172.acf", sim_aircraft({}));
    test_write_file(dir + "xdg/Zephyra/", "Corvane 6 Zephyra.prf",
                    sim_prefs({.aircraft_path = acf, .start_code = "KSAF", .local_hours = 10, .cloud_kind = {3, 0}}));
    // 10 - (1 / 15 + 1) = 8.93: 9 h; the clouds 1000 m above the start airport. No report was
    // decoded, so the departure is the time given for now plus 30 minutes.
    EXPECT_THAT(run({"--seed=1", "--now=2350"}),
                MatchesRegex("0\\|Hello, this is N172SP, a C172, planning a flight from Alpha to Sierra[.] Estimated "
                             "time of departure will be 0020 zulu, estimating .*at 900 zulu, Alpha is reporting skies "
                             "3300 broken, visibility 10 miles[.] .*at 900 zulu, Sierra is reporting skies 3300 "
                             "broken, .*\\|"));
}

// The 16-bit samples after a WAV file's 44-byte header, or of a raw file; zeros dropped when asked.
static std::vector<int16_t> samples(const std::string& bytes, size_t from, bool drop_zeros) {
    std::vector<int16_t> s;
    for (size_t k = from; k + 1 < bytes.size(); k += 2) {
        int16_t v = int16_t(uint8_t(bytes[k]) | uint8_t(bytes[k + 1]) << 8);
        if (v || !drop_zeros) s.push_back(v);
    }
    return s;
}

TEST_F(Brief, WavFileAndLoudspeakerAfterTheWrittenBriefing) {
    const std::string briefing = written({"--seed", "1"});
    ASSERT_THAT(briefing, StartsWith("0|Hello, this is , a untitled"));
    const std::string said = run({"--seed", "1", "--say-text", "--wav", dir + "b.wav"});
    EXPECT_THAT(said, StartsWith(briefing));  // the written briefing first, then the spoken text
    EXPECT_THAT(said, HasSubstr("Wind two eight zero at one five gust two five, barometric pressure three zero zero "
                                "one."));
    // The header: PCM, mono, 22050 samples and 44100 bytes a second, 2 bytes a frame, 16 bits.
    const std::string wav = test_read_file(dir + "b.wav");
    ASSERT_GT(wav.size(), 44u);
    EXPECT_EQ(wav.substr(0, 4) + wav.substr(8, 28),
              std::string("RIFFWAVEfmt \x10\0\0\0\x01\0\x01\0\x22\x56\0\0\x44\xac\0\0\x02\0\x10\0data", 32));
    uint32_t sizes[2];
    memcpy(&sizes[0], &wav[4], 4), memcpy(&sizes[1], &wav[40], 4);
    EXPECT_EQ(sizes[0] - sizes[1], 36u);
    EXPECT_EQ(sizes[1], wav.size() - 44);
    const std::vector<int16_t> s = samples(wav, 44, false);
    double power = 0;
    int peak = 0, silent_runs = 0, run_length = 0;
    for (int16_t v : s) {
        power += double(v) * v, peak = std::max(peak, std::abs(int(v)));
        run_length = std::abs(int(v)) < 64 ? run_length + 1 : 0;
        silent_runs += run_length == 22050 / 4;  // a quarter second of quiet: between sentences
    }
    EXPECT_TRUE(s.size() > 30 * 22050 && s.size() < 120 * 22050) << s.size();
    EXPECT_TRUE(std::sqrt(power / double(s.size())) > 1000 && peak > 10000 && silent_runs >= 4) << peak;
    // --speak through SDL's disk driver: the same sound, with silence wherever playing ran ahead of it.
    const std::string play = run({"--seed", "1", "--speak"}, true, "",
                                 "SDL_AUDIODRIVER=disk SDL_DISKAUDIODELAY=0 SDL_DISKAUDIOFILE='" + dir + "played.raw'");
    if (play.find("this build has no audio output") != std::string::npos) GTEST_SKIP() << "built without SDL";
    ASSERT_THAT(play, StartsWith(briefing));
    EXPECT_TRUE(samples(test_read_file(dir + "played.raw"), 0, true) == samples(wav, 44, true));
}

TEST_F(Brief, MissingVoiceDataIsReportedAfterTheWrittenBriefing) {
    const std::string briefing = written({"--seed", "1"}).substr(1);
    for (const std::string& data : {dir + "nowhere", dir}) {  // no folder; a folder without voice data
        for (const char* option : {"--wav", "--speak"}) {
            const std::vector<std::string> args = {"--seed", "1", option, dir + "b.wav"};
            const std::string r = run(std::vector<std::string>(args.begin(), args.end() - (option[2] == 's')), true,
                                      "", "ESPEAK_DATA_PATH='" + data + "'");
            EXPECT_THAT(r, StartsWith("3" + briefing));
            EXPECT_THAT(r, MatchesRegex("(.|\n)*\\|[^|]*no speech voice data[^|]*ESPEAK_DATA_PATH '" + data + "'[^|]*"));
        }
    }
    EXPECT_FALSE(std::filesystem::exists(dir + "b.wav"));
}

// The weather found and decoded in a folder with colons in its name, the aircraft read; a
// weather file without a report of an airport of apt.dat warns.
TEST_F(Brief, FoldersWithColonsAndAWeatherFileOfNoAirport) {
    sim = dir + "Flight: 2025/co:lon/";
    SetUp();
    std::string acf = test_write_file(dir + "Flight: 2025/", "a:b.acf", sim_aircraft({}));
    EXPECT_THAT(run({"--aircraft", acf, "--seed", "1"}),
                MatchesRegex("0\\|Hello, this is N172SP, a a:b, planning a flight from Albuquerque Intl.*"
                             "at 1856 zulu, Albuquerque Intl is reporting skies 1000 scattered.*\\|"));
    test_write_file(sim, "metar.rwx", "ZZZZ 121856Z 28015KT 10SM 18/12 A3001\n");
    EXPECT_THAT(run({"--seed=1"}), MatchesRegex("0\\|Hello, this is .*\\|vocalog-brief: warning: no report in '" +
                                                sim + "metar.rwx' is from an airport of apt.dat[^\n]*\n"));
}


// Every usage error, data failure and output target the options can meet.
TEST_F(Brief, CommandLineEdges) {
    std::string fifo = dir + "fifo", ro = test_write_file(dir, "ro.txt", "kept"), empty = dir + "empty/";
    std::string junk = test_write_file(sim + "Aircraft/", "Junk.acf", "not an aircraft");
    mkfifo(fifo.c_str(), 0644);
    chmod(ro.c_str(), 0444);
    std::filesystem::create_directories(empty + "Resources/Earth nav data");
    test_write_file(empty + "Resources/Earth nav data/", "apt.dat", "I\n600 version\n99\n");
    test_write_file(empty, "metar.rwx", "KABQ 121856Z 28015KT 10SM 18/12 A3001\n");
    int pipe_fds[2];
    ASSERT_EQ(pipe(pipe_fds), 0);
    close(pipe_fds[0]);  // a reader that has gone
    const std::string usage = "2\\|\\|vocalog-brief: ", ok = "0\\|Hello, this is , a untitled, planning a flight ";
    const struct { std::vector<std::string> args; bool base; std::string to, want; } rows[] = {
        {{}, false, "", "2\\|\\|usage: vocalog-brief --sim DIR .*"},
        {{"--help"}, false, "", "0\\|usage: vocalog-brief --sim DIR --from CODE --to CODE.*\\|"},
        {{"--sim", sim, "--to", "KSAF"}, false, "", usage + "missing --from .*"},
        {{"--sim", sim, "--from", "KABQ"}, false, "", usage + "missing --to .*"},
        {{"--bogus", "1"}, true, "", usage + "unknown option .*"},
        {{"--out"}, true, "", usage + "option --out needs a value .*"},
        {{"--from", "KABQX"}, true, "", ok + "from Albuquerque Intl to Santa Fe Muni.*\\|"},
        {{"--from", "kabq"}, true, "", usage + "no airport has the code 'kabq'; codes are case-sensitive: did "
                                             "you mean 'KABQ'[?] [(]see --help[)]\n"},
        {{"--to", "ksafe"}, true, "", usage + "[^\n]*'ksafe'; codes are case-sensitive: did you mean 'KSAF'[?] .*"},
        {{"--to", "KXXX"}, true, "", usage + "no airport has the code 'KXXX' [(]see --help[)]\n"},
        {{"--sim", dir + "no-such-folder"}, true, "", usage + "simulator folder .*"},
        {{"--sim", empty, "--from", "KABQ", "--to", "KSAF"}, false, "",
         "1\\|\\|vocalog-brief: '" + empty + "Resources/Earth nav data/apt.dat' holds no airports\n"},
        {{"--aircraft", dir + "none.acf"}, true, "", usage + "aircraft file .* does not exist .*"},
        {{"--aircraft", sim + "Aircraft"}, true, "", usage + "aircraft '" + sim + "Aircraft' is a folder, not an "
                                                                   "aircraft file [(]see --help[)]\n"},
        // An existing file that is no aircraft: the briefing without aircraft data and one warning line.
        {{"--aircraft", junk}, true, "", "0\\|Hello, this is , a Junk, planning a flight from Albuquerque Intl to "
                                         "Santa Fe Muni[.] Estimated time of departure will be 1926 zulu, at 5000 "
                                         "feet.*\\|[^\n]*Junk.acf[^\n]*\n"},
        {{"--out", fifo}, true, "", "1\\|\\|vocalog-brief: cannot write '" + fifo + "': not a regular file\n"},
        {{"--out", ro}, true, "", "1\\|\\|vocalog-brief: cannot write '" + ro + "': Permission denied\n"},
        {{}, true, ">/dev/full", "1\\|\\|vocalog-brief: cannot write standard output: No space left on device\n"},
        {{}, true, ">&" + std::to_string(pipe_fds[1]), "1\\|\\|"},  // a closed pipe: quietly, not by a signal
        {{"--out", "-", "--altitude", "5500.5"}, true, "", ok + ".* at 5500 feet, .*\\|"},
        {{"--altitude", "99999", "--seed", "4294967295"}, true, "",
         ok + "from Albuquerque Intl to Santa Fe Muni[.] [^\n]* at 99999 feet, and requesting a standard[.]\n\n.*\\|"},
        {{"--sim=" + sim, "--from=KAEG", "--to=KAEG", "--altitude=0", "--seed=0"}, false, "",
         ok + "from Double Eagle II to Double Eagle II[.] Estimated time of departure will be 1926 zulu, at 0 feet.*"},
        {{"--altitude", "100000"}, true, "", usage + "altitude '100000' .*"},
        {{"--altitude", "-1"}, true, "", usage + "altitude '-1' .*"},
        {{"--altitude", "1e3"}, true, "", usage + "altitude '1e3' .*"},  // no form a number reader takes beyond digits
        {{"--altitude", "+5"}, true, "", usage + "altitude .*"},
        {{"--altitude", "0x10"}, true, "", usage + "altitude .*"},
        {{"--altitude", "high"}, true, "", usage + "altitude .*"},
        {{"--altitude", "1.2.3"}, true, "", usage + "altitude .*"},
        {{"--seed", "4294967296"}, true, "", usage + "seed .*"},
        {{"--seed", "+3"}, true, "", usage + "seed .*"},
        {{"--now", "2400"}, true, "", usage + "time .*"},
        {{"--now", "1260"}, true, "", usage + "time .*"},
        {{"--now", "930"}, true, "", usage + "time .*"},
    };
    for (const auto& r : rows) EXPECT_THAT(run(r.args, r.base, r.to), MatchesRegex(r.want)) << r.want;
    close(pipe_fds[1]);
    EXPECT_EQ(test_read_file(ro), "kept");
    EXPECT_FALSE(std::filesystem::exists(dir + "xdg/Zephyra"));  // runs that only read leave no per-user folder
}

// Names and texts of the data files reach a terminal with their control characters shown, and
// a file with its bytes.
TEST_F(Brief, ControlCharactersAreShownOnATerminalOnly) {
    folder({{"KABQ", "Evil\x1b]0;owned\x07 Field", 35.04f, -106.61f}, {"KSAF", "Santa Fe Muni", 35.49f, -106.01f}},
           "KABQ 121856Z 28015KT 10SM 18/12 A3001\n");
    int master = -1, slave = -1;
    ASSERT_EQ(openpty(&master, &slave, nullptr, nullptr, nullptr), 0);
    termios raw{};
    tcgetattr(slave, &raw);
    cfmakeraw(&raw);
    tcsetattr(slave, TCSANOW, &raw);
    EXPECT_THAT(run({"--seed=1"}, true, ">&" + std::to_string(slave)), StartsWith("0||"));
    close(slave);
    char shown[4096];
    ssize_t n = read(master, shown, sizeof shown);
    close(master);
    EXPECT_THAT(std::string(shown, n > 0 ? (size_t)n : 0), HasSubstr("flight from Evil^[]0;owned^G Field to"));
    EXPECT_THAT(run({"--seed=1", "--out", dir + "b.txt"}), StartsWith("0||"));
    EXPECT_THAT(test_read_file(dir + "b.txt"), HasSubstr("flight from Evil\x1b]0;owned\x07 Field to"));
}
