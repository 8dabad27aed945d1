// Preference files: the versioned output header, the language-and-resolution record and
// the simulator's record with its conversions.
#include <gmock/gmock.h>

#include <cstring>
#include <tuple>
#include <sys/stat.h>

#include "briefing/sim_prefs.h"
#include "briefing/request.h"
#include "briefing/weather.h"
#include "base/alert.h"
#include "base/shutdown.h"
#include "tests/support/sim_files.h"
#include "tests/support/test_files.h"
#include "util/paths.h"
#include "util/prefs.h"
#include "util/text.h"

using testing::HasSubstr;

// The language-and-resolution file: "i", version, width, height, bits, full screen, language.
static std::string lang_res_bytes(float width, float height, float bits, int32_t full, int32_t lang,
                                  int32_t version = 3) {
    std::string s(25, 'i');
    const void* fields[] = {&version, &width, &height, &bits, &full, &lang};
    for (int k = 0; k < 6; ++k) memcpy(&s[1 + 4 * k], fields[k], 4);
    return s;
}

static std::string shown;

class Prefs : public testing::Test {
  protected:
    void SetUp() override {
        sim_brief_reset(dir);
        shown.clear();
        alert_set_box([](const char* const l[4], int32_t) {
            shown = std::string(l[0]) + "|" + l[1] + "|" + l[2] + "|" + l[3];
        });
        disp_width = 1024.0f, disp_height = 768.0f, disp_bits = 16.0f, full_screen = 1, language = -1;
        path_set_roots(dir.c_str(), "");  // paths below dir are in the suite's form
    }
    void TearDown() override {
        path_set_roots("", "");
        alert_set_box(nullptr);
        shutdown_reset();
    }
    int32_t prefs(int32_t record, int32_t direction, const std::string& path) {
        Text p;
        str_copy(path.c_str(), p);
        return record == PREF_SIM && direction == PREF_READ ? brief_read_sim_prefs(p) : fio_prefs(record, direction, p);
    }
    // fio_save of dir + name: the path it was given back, or "not saved".
    std::string save(const std::string& name, int32_t type, int32_t version) {
        Text p;
        str_copy((dir + name).c_str(), p);
        return fio_save(p, type, version) ? std::string(p) : "not saved";
    }
    // Reads a simulator record over `airports`; the result is the request and the weather as text.
    std::string read_sim(const std::vector<TestAirport>& airports, const TestSimPrefs& p) {
        sim_set_airports(airports);
        if (!prefs(PREF_SIM, PREF_READ, test_write_file(dir, "sim.prf", sim_prefs(p)))) return "not read";
        const StationWeather& w = station_wx;
        char b[1200];
        snprintf(b, sizeof b, "a%d/%d t%.0f x%d/%d p%g T%g/%.3f c%d/%.2f/%g c%d/%.2f/%g w%g/%g/%g v%g %s %s",
                 brief_req.departure, brief_req.destination, w.time, w.wx_kind, w.wx_intensity, w.pressure,
                 w.temperature, w.dewpoint, w.cloud_kind[0], w.cloud_base[0], w.cloud_top[0], w.cloud_kind[1],
                 w.cloud_base[1], w.cloud_top[1], w.wind_dir, w.wind_speed, w.gust, w.visibility,
                 brief_req.aircraft_name, brief_req.aircraft_path);
        return b;
    }
    std::string dir = test_temp_dir();
};

TEST_F(Prefs, SaveWritesTheHeaderOfEachKindOrAlerts) {
    mkdir((dir + "Sub").c_str(), 0755);
    ASSERT_EQ(save("Sub:PREFS.PRF", FILE_TYPE_PREFS, 3), dir + "Sub/PREFS.prf");
    out_close(&fio_out);
    EXPECT_EQ(test_read_file(dir + "Sub/PREFS.prf"), std::string("i\x03\0\0\0", 5));
    ASSERT_EQ(save("data.TXT", FILE_TYPE_TEXT, 600), dir + "data.txt");
    out_text(&fio_out, "1.5 x\n");
    out_float(&fio_out, 2.5f);
    out_close(&fio_out);
    EXPECT_EQ(test_read_file(dir + "data.txt"), "I\r\n600 version\r\n1.5 x\r\n2.500000");
    EXPECT_EQ(shown, "");
    chmod((dir + "data.txt").c_str(), 0444);  // a read-only file is kept, with the alert
    EXPECT_EQ(save("data.TXT", 0, 600), "not saved");
    EXPECT_THAT(shown, HasSubstr(dir + "data.txt|"));
    EXPECT_EQ(test_read_file(dir + "data.txt"), "I\r\n600 version\r\n1.5 x\r\n2.500000");
    EXPECT_EQ(save("no such folder:x.prf", FILE_TYPE_PREFS, 3), "not saved");
    EXPECT_THAT(shown,
                testing::MatchesRegex("I could not save the file! .*[|]" + dir + "no such folder/x.prf[|].+[|].+"));
}

TEST_F(Prefs, LanguageAndResolutionRoundTripAndCutFiles) {
    const struct { float w, h; int32_t version; float saved_w, saved_h, bits; int32_t full, lang; } rows[] = {
        {1280, 1024, 3, 1280, 1024, 32, 0, 2},  {800, 600, 3, 1024, 768, 24, 1, 5},
        {10000, 9999, 3, 1024, 9999, 32, 1, 0}, {1280, 1024, -999, 1024, 768, 16, 1, -1},  // wrong version
        {1280, 1024, 0, 1024, 768, 16, 1, -1},                                               // 0: no file
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(testing::Message() << r.w << "x" << r.h << " version " << r.version);
        SetUp();
        std::string path = test_temp_dir() + "Corvane 6 Language & Res.prf";
        if (r.version) test_write_file("", path, lang_res_bytes(r.w, r.h, r.bits, r.full, r.lang, r.version));
        EXPECT_EQ(prefs(PREF_LANG_RES, PREF_READ, path), r.version == 3 ? 1 : 0);
        EXPECT_EQ(disp_width + disp_height, 1024.0f + 768.0f);
        ASSERT_EQ(prefs(PREF_LANG_RES, PREF_WRITE, path), 1);
        EXPECT_EQ(test_read_file(path), lang_res_bytes(r.saved_w, r.saved_h, r.bits, r.full, r.lang));
    }
    // A file cut short keeps the default of every field whose 4 bytes are not all there: with no
    // language the language chooser still shows.
    const std::string whole = lang_res_bytes(1280, 1024, 32, 0, 2);
    const struct { size_t bytes; float bits; int32_t full, lang; } cut[] = {
        {25, 32, 0, 2}, {24, 32, 0, -1}, {21, 32, 0, -1}, {19, 32, 1, -1}, {13, 16, 1, -1}, {5, 16, 1, -1},
    };
    for (const auto& r : cut) {
        SetUp();
        EXPECT_EQ(prefs(PREF_LANG_RES, PREF_READ, test_write_file(dir, "cut.prf", whole.substr(0, r.bytes))), 1);
        EXPECT_EQ((std::tuple{disp_bits, full_screen, language}), (std::tuple{r.bits, r.full, r.lang})) << r.bytes;
    }
    // The shut-down step writes the record to the path prefs_init was given.
    prefs_init((dir + "lr.prf").c_str());
    saved_disp_width = 1280.0f, saved_disp_height = 1024.0f, saved_disp_bits = 32.0f, language = 3;
    MACIBM_shutdown();
    EXPECT_EQ(test_read_file(dir + "lr.prf"), lang_res_bytes(1280, 1024, 32, 1, 3));
}

TEST_F(Prefs, SimulatorRecordAndItsConversions) {
    TestSimPrefs p{.aircraft_path = "/sim/Aircraft/C172.acf", .precip = 0.8f, .gust = {0, 0, 7}};
    // Time 14.4 - (-122.4 / 15 + 1) = 21.56: 22 h; dewpoint 15 - 10 nm x 2; bases 100 ft lower.
    EXPECT_EQ(read_sim({{"KOAK", "", 37.7f, -122.2f, 9}, {"KSFO", "", 37.6f, -122.4f, 100}, {"KSJC", "", 0, 0}}, p),
              "a1/1 t79200 x1/2 p29.92 T15/-5.000 c2/969.52/1000 c0/-30.48/0 w270/12/7 v18520 C172.acf "
              "/sim/Aircraft/C172.acf");

    const struct { std::vector<TestAirport> apts; std::string code; float hours, precip; const char* want; } rows[] = {
        {{{"KSFO", "", 37.6f, -122.4f}}, "EGLL", 14.4f, 0.3f, "a0/0 t79200 x-99/1 "},  // no match: index 0
        {{{"AAAA", "", 0, 15}, {"KSFO", "", 0, 0}, {"KSFO", "", 0, 0}}, "KSFO", 0, 0, "a2/2 t82800 x-99/0 "},  // last
        {{{"AAAA", "", 0, -150}}, "AAAA", 30, 2, "a0/0 t54000 x1/5 "},  // 39 h: 15 h
        {{{"AAAA", "", 0, -15}}, "AAAA", 24, 0, "a0/0 t86400 x-99/0 "},  // 24 h stays 24
        {{{"AAAA", "", 0, 0}}, "AAAA", 1.5f, 0, "a0/0 t3600 x-99/0 "},   // 0.5 and -0.5 round away from zero
        {{{"AAAA", "", 0, 0}}, "AAAA", 0.5f, 0, "a0/0 t82800 x-99/0 "},
        {{{"AAAA", "", 0, 0}}, "AAAA", 1e9f, 1e9f, "a0/0 t3599999959040 x1/2147483647 "},  // damaged: no overflow
    };
    for (const auto& r : rows) {
        p.start_code = r.code, p.local_hours = r.hours, p.precip = r.precip;
        EXPECT_THAT(read_sim(r.apts, p), testing::StartsWith(r.want)) << r.code << " at " << r.hours;
    }
}

TEST_F(Prefs, SimulatorFileFailures) {
    EXPECT_EQ(prefs(PREF_SIM, PREF_READ, test_write_file(dir, "old.prf", sim_prefs({.version = 6500}))), 0);
    EXPECT_EQ(prefs(PREF_SIM, PREF_READ, dir + "none.prf"), 0);
    EXPECT_STREQ(brief_req.aircraft_name, "untitled.acf");
    EXPECT_EQ(shown, "");
    alert_set_box(nullptr);  // an aircraft name without its zero is fatal, and so are bad arguments
    std::string path = test_write_file(dir, "long.prf", sim_prefs({.aircraft_name = std::string(500, 'x')}));
    EXPECT_EXIT(prefs(PREF_SIM, PREF_READ, path), testing::ExitedWithCode(0), HasSubstr("String too long!"));
    EXPECT_EXIT(prefs(7, PREF_READ, path), testing::ExitedWithCode(0),
                HasSubstr(test_alert_text("Bad pref arg!", "", "", "")));
    EXPECT_EXIT(prefs(PREF_SIM, 9, path), testing::ExitedWithCode(0), HasSubstr("Bad pref arg!"));
}
