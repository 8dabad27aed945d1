// Preference files: the versioned output header, the language-and-resolution record and
// the simulator's record with its conversions.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>

#include "briefing/request.h"
#include "briefing/weather.h"
#include "shell/alert.h"
#include "shell/shutdown.h"
#include "tests/support/sim_files.h"
#include "tests/support/test_files.h"
#include "util/prefs.h"
#include "util/text.h"

using testing::HasSubstr;

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
    }
    void TearDown() override {
        alert_set_box(nullptr);
        shutdown_reset();
    }
    int32_t prefs(int32_t record, int32_t direction, const std::string& path) {
        Text p;
        str_copy(path.c_str(), p);
        return fio_prefs(record, direction, p);
    }
    std::string dir = test_temp_dir();
};

TEST_F(Prefs, SaveWritesTheHeaderOfEachKindOrAlerts) {
    const struct { std::string path, saved; int32_t type, version; std::string bytes; } rows[] = {
        {"Sub:PREFS.PRF", "Sub/PREFS.prf", 20, 3, std::string("i\x03\0\0\0", 5)},
        {"neg.prf", "neg.prf", 3, -999, "i\x19\xfc\xff\xff"},
        {"data.TXT", "data.txt", 0, 600, "I\r\n600 version\r\n1.5 x\r\n2.500000"},
    };
    mkdir((dir + "Sub").c_str(), 0755);
    for (const auto& r : rows) {
        Text p;
        str_copy((dir + r.path).c_str(), p);
        ASSERT_EQ(fio_save(p, r.type, r.version), 1);
        EXPECT_EQ(std::string(p), dir + r.saved);
        if (r.type == 0) {
            out_text(&fio_out, "1.5 x\n");
            out_float(&fio_out, 2.5f);
        }
        out_close(&fio_out);
        EXPECT_EQ(test_read_file(dir + r.saved), r.bytes);
    }
    EXPECT_EQ(shown, "");
    Text p;
    str_copy((dir + "no such folder:x.prf").c_str(), p);
    EXPECT_EQ(fio_save(p, 20, 3), 0);
    EXPECT_EQ(shown, "I could not save the file! Could the directory that the file sits in be missing? Or flagged as "
                     "READ-ONLY by the operating system? (Windows machines typically do this).|" + dir +
                     "no such folder/x.prf|Could the file be flagged as read-only? This happens in Windows if you copy "
                     "it from a CD!|Try putting this app in the background and then flag the file as NOT read-only, "
                     "or creating the folder listed in the path above.");
}

TEST_F(Prefs, LanguageAndResolutionRoundTrip) {
    const struct { float w, h; int32_t version; float saved_w, saved_h, bits; int32_t full, lang; } rows[] = {
        {1280, 1024, 3, 1280, 1024, 32, 0, 2},  {800, 600, 3, 1024, 768, 24, 1, 5},
        {10000, 9999, 3, 1024, 9999, 32, 1, 0}, {1280, 1024, -999, 1024, 768, 16, 1, -1},  // wrong version
        {1280, 1024, 0, 1024, 768, 16, 1, -1},                                               // 0: no file
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(testing::Message() << r.w << "x" << r.h << " version " << r.version);
        SetUp();
        std::string path = test_temp_dir() + "Corvane 6 Language & Res.prf";
        if (r.version) test_write_file("", path, sim_lang_res(r.w, r.h, r.bits, r.full, r.lang, r.version));
        EXPECT_EQ(prefs(PREF_LANG_RES, PREF_READ, path), r.version == 3 ? 1 : 0);
        EXPECT_EQ(disp_width + disp_height, 1024.0f + 768.0f);
        ASSERT_EQ(prefs(PREF_LANG_RES, PREF_WRITE, path), 1);
        EXPECT_EQ(test_read_file(path), sim_lang_res(r.saved_w, r.saved_h, r.bits, r.full, r.lang));
    }
    // The shut-down step writes the record to the path prefs_init was given.
    prefs_init((dir + "lr.prf").c_str());
    saved_disp_width = 1280.0f, saved_disp_height = 1024.0f, saved_disp_bits = 32.0f, language = 3;
    MACIBM_shutdown();
    EXPECT_EQ(test_read_file(dir + "lr.prf"), sim_lang_res(1280, 1024, 32, 1, 3));
}

// Reads a simulator record over `airports`; the result is the request and the weather as text.
static std::string read_sim(const std::vector<TestAirport>& airports, const TestSimPrefs& p) {
    sim_set_airports(airports);
    Text path;
    str_copy(test_write_file(test_temp_dir(), "sim.prf", sim_prefs(p)).c_str(), path);
    if (!fio_prefs(PREF_SIM, PREF_READ, path)) return "not read";
    const StationWeather& w = station_wx;
    char b[300];
    snprintf(b, sizeof b, "a%d/%d t%.0f x%d/%d p%g T%g/%.3f c%d/%.2f/%g c%d/%.2f/%g w%g/%g/%g v%g", brief_req.departure,
             brief_req.destination, w.time, w.wx_kind, w.wx_intensity, w.pressure, w.temperature, w.dewpoint,
             w.cloud_kind[0], w.cloud_base[0], w.cloud_top[0], w.cloud_kind[1], w.cloud_base[1], w.cloud_top[1],
             w.wind_dir, w.wind_speed, w.gust, w.visibility);
    return b;
}

TEST_F(Prefs, SimulatorRecordAndItsConversions) {
    TestSimPrefs p;
    p.aircraft_path = "/sim/Aircraft/C172.acf";
    p.precip = 0.8f;
    p.gust[2] = 7.0f;
    // Time 14.4 - (-122.4 / 15 + 1) = 21.56: 22 h; dewpoint 15 - 10 nm x 2; bases 100 ft lower.
    EXPECT_EQ(read_sim({{"KOAK", "", 37.7f, -122.2f, 9}, {"KSFO", "", 37.6f, -122.4f, 100}, {"KSJC", "", 0, 0}}, p),
              "a1/1 t79200 x1/2 p29.92 T15/-5.000 c2/969.52/1000 c0/-30.48/0 w270/12/7 v18520");
    EXPECT_STREQ(brief_req.aircraft_name, "C172.acf");
    EXPECT_STREQ(brief_req.aircraft_path, "/sim/Aircraft/C172.acf");

    const struct { std::vector<TestAirport> apts; std::string code; float hours, precip; const char* want; } rows[] = {
        {{{"KSFO", "", 37.6f, -122.4f}}, "EGLL", 14.4f, 0.3f, "a0/0 t79200 x-99/1 "},  // no match: index 0
        {{{"AAAA", "", 0, 15}, {"KSFO", "", 0, 0}, {"KSFO", "", 0, 0}}, "KSFO", 0, 0, "a2/2 t82800 x-99/0 "},  // last
        {{{"AAAA", "", 0, -150}}, "AAAA", 30, 2, "a0/0 t54000 x1/5 "},  // 39 h: 15 h
        {{{"AAAA", "", 0, -15}}, "AAAA", 24, 0, "a0/0 t86400 x-99/0 "},  // 24 h stays 24
        {{{"AAAA", "", 0, 0}}, "AAAA", 1.5f, 0, "a0/0 t3600 x-99/0 "},   // 0.5 rounds away from zero
        {{{"AAAA", "", 0, 0}}, "AAAA", 1e9f, 1e9f, "a0/0 t3599999959040 x1/2147483647 "},  // damaged: no overflow
    };
    for (const auto& r : rows) {
        p.start_code = r.code, p.local_hours = r.hours, p.precip = r.precip;
        EXPECT_THAT(read_sim(r.apts, p), testing::StartsWith(r.want)) << r.code << " at " << r.hours;
    }
}

TEST_F(Prefs, SimulatorFileFailures) {
    TestSimPrefs p;
    p.version = 6500;
    EXPECT_EQ(prefs(PREF_SIM, PREF_READ, test_write_file(dir, "old.prf", sim_prefs(p))), 0);
    EXPECT_EQ(prefs(PREF_SIM, PREF_READ, dir + "none.prf"), 0);
    EXPECT_STREQ(brief_req.aircraft_name, "untitled.acf");
    EXPECT_EQ(shown, "");
    alert_set_box(nullptr);
    p.version = 6510;
    p.aircraft_name = std::string(500, 'x');  // a text without its zero
    std::string path = test_write_file(dir, "long.prf", sim_prefs(p));
    EXPECT_EXIT(prefs(PREF_SIM, PREF_READ, path), testing::ExitedWithCode(0),
                HasSubstr(test_alert_text("String too long!",
                                          "I can not repeat this entire string or I will overflow the alert procedure!",
                                          "Here is the first part of the string, though:", std::string(499, 'x'))));
    EXPECT_EXIT(prefs(7, PREF_READ, path), testing::ExitedWithCode(0),
                HasSubstr(test_alert_text("Bad pref arg!", "", "", "")));
    EXPECT_EXIT(prefs(PREF_SIM, 9, path), testing::ExitedWithCode(0), HasSubstr("Bad pref arg!"));
}
