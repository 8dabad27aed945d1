// Preference files: the versioned output header, the language-and-resolution record and
// the simulator's record with its conversions.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <sys/stat.h>

#include "briefing/airports.h"
#include "briefing/request.h"
#include "briefing/weather.h"
#include "shell/alert.h"
#include "shell/shutdown.h"
#include "tests/support/sim_files.h"
#include "tests/support/test_files.h"
#include "util/file_reader.h"
#include "util/prefs.h"
#include "util/text.h"

static std::string shown;
static void record_box(const char* const lines[4], int32_t) {
    shown = std::string(lines[0]) + "|" + lines[1] + "|" + lines[2] + "|" + lines[3];
}

static float f4(const std::string& s, size_t at) {
    float v;
    memcpy(&v, s.data() + at, 4);
    return v;
}
static int32_t i4(const std::string& s, size_t at) {
    int32_t v;
    memcpy(&v, s.data() + at, 4);
    return v;
}

class Prefs : public testing::Test {
  protected:
    void SetUp() override {
        fio_reset();
        dir = test_temp_dir();
        alert_set_box(record_box);
        shown.clear();
        brief_req_reset();
        memset(&station_wx, 0, sizeof station_wx);
        disp_width = 1024.0f;
        disp_height = 768.0f;
        disp_bits = 16.0f;
        full_screen = 1;
        language = -1;
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
    std::string dir;
};

TEST_F(Prefs, SaveWritesTheHeaderOfEachKind) {
    Text bin;
    str_copy((dir + "Sub:PREFS.PRF").c_str(), bin);
    mkdir((dir + "Sub").c_str(), 0755);
    ASSERT_EQ(fio_save(bin, 20, 3), 1);
    EXPECT_EQ(std::string(bin), dir + "Sub/PREFS.prf");
    out_close(&fio_out);
    EXPECT_EQ(test_read_file(dir + "Sub/PREFS.prf"), std::string("i\x03\x00\x00\x00", 5));

    str_copy((dir + "neg.prf").c_str(), bin);
    ASSERT_EQ(fio_save(bin, 20, -999), 1);
    out_close(&fio_out);
    EXPECT_EQ(test_read_file(dir + "neg.prf"), std::string("i\x19\xfc\xff\xff", 5));

    Text txt;
    str_copy((dir + "data.TXT").c_str(), txt);
    ASSERT_EQ(fio_save(txt, 0, 600), 1);
    out_text(&fio_out, "1.5 x\n");
    out_float(&fio_out, 2.5f);
    out_close(&fio_out);
    EXPECT_EQ(test_read_file(dir + "data.txt"), "I\r\n600 version\r\n1.5 x\r\n2.500000");
    EXPECT_EQ(shown, "");
}

TEST_F(Prefs, SaveIntoAMissingFolderAlertsAndFails) {
    Text p;
    str_copy((dir + "no such folder:x.prf").c_str(), p);
    EXPECT_EQ(fio_save(p, 20, 3), 0);
    EXPECT_THAT(shown, testing::StartsWith("I could not save the file! Could the directory"));
    EXPECT_THAT(shown, testing::HasSubstr("|" + dir + "no such folder/x.prf|Could the file be flagged"));
}

TEST_F(Prefs, LanguageAndResolutionRoundTrip) {
    const struct {
        float w, h;
        const char* file;  // nullptr: no file
        float saved_w, saved_h, bits;
        int32_t full, lang;
    } rows[] = {
        {1280, 1024, "ok", 1280, 1024, 32, 0, 2},
        {800, 600, "ok", 1024, 768, 24, 1, 5},
        {10000, 9999, "ok", 1024, 9999, 32, 1, 0},
        {1280, 1024, "v-999", 1024, 768, 16, 1, -1},  // wrong version: defaults stay
        {1280, 1024, nullptr, 1024, 768, 16, 1, -1},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(testing::Message() << r.w << "x" << r.h << " " << (r.file ? r.file : "none"));
        SetUp();
        std::string path = dir + "Corvane 6 Language & Res.prf";
        if (r.file)
            test_write_file(dir, "Corvane 6 Language & Res.prf",
                            sim_lang_res(r.w, r.h, r.bits, r.full, r.lang, strcmp(r.file, "ok") == 0 ? 3 : -999));
        EXPECT_EQ(prefs(PREF_LANG_RES, PREF_READ, path), strcmp(r.file ? r.file : "", "ok") == 0 ? 1 : 0);
        EXPECT_EQ(disp_width, 1024.0f);
        EXPECT_EQ(disp_height, 768.0f);
        EXPECT_EQ(disp_bits, r.bits);
        EXPECT_EQ(full_screen, r.full);
        EXPECT_EQ(language, r.lang);
        EXPECT_EQ(saved_disp_width, r.saved_w);
        EXPECT_EQ(saved_disp_height, r.saved_h);

        ASSERT_EQ(prefs(PREF_LANG_RES, PREF_WRITE, path), 1);
        std::string bytes = test_read_file(path);
        ASSERT_EQ(bytes.size(), 25u);
        EXPECT_EQ(bytes.substr(0, 5), std::string("i\x03\x00\x00\x00", 5));
        EXPECT_EQ(f4(bytes, 5), r.saved_w);
        EXPECT_EQ(f4(bytes, 9), r.saved_h);
        EXPECT_EQ(f4(bytes, 13), r.bits);
        EXPECT_EQ(i4(bytes, 17), r.full);
        EXPECT_EQ(i4(bytes, 21), r.lang);
    }
}

TEST_F(Prefs, ShutdownWritesLanguageAndResolution) {
    std::string path = dir + "lr.prf";
    prefs_init(path.c_str());
    EXPECT_EQ(language, -1);
    EXPECT_EQ(disp_bits, 16.0f);
    saved_disp_width = 1280.0f;
    saved_disp_height = 1024.0f;
    saved_disp_bits = 32.0f;
    language = 3;
    MACIBM_shutdown();
    std::string bytes = test_read_file(path);
    ASSERT_EQ(bytes.size(), 25u);
    EXPECT_EQ(f4(bytes, 5), 1280.0f);
    EXPECT_EQ(i4(bytes, 21), 3);
}

TEST_F(Prefs, SimulatorRecordAndItsConversions) {
    sim_set_airports({{"KOAK", "Oakland Intl", 37.7f, -122.2f, 9.0f},
                  {"KSFO", "San Francisco Intl", 37.6f, -122.4f, 100.0f},
                  {"KSJC", "San Jose Intl", 37.4f, -121.9f, 62.0f}});
    TestSimPrefs p;
    p.aircraft_path = "/sim/Aircraft/C172.acf";
    p.precip = 0.8f;
    p.gust[2] = 7.0f;
    test_write_file(dir, "sim.prf", sim_prefs(p));
    ASSERT_EQ(prefs(PREF_SIM, PREF_READ, dir + "sim.prf"), 1);

    EXPECT_STREQ(brief_req.aircraft_name, "C172.acf");
    EXPECT_STREQ(brief_req.aircraft_path, "/sim/Aircraft/C172.acf");
    EXPECT_EQ(brief_req.departure, 1);
    EXPECT_EQ(brief_req.destination, 1);
    const StationWeather& w = station_wx;
    EXPECT_EQ(w.time, 79200.0f);  // 14.4 - (-122.4 / 15 + 1) = 21.56 -> 22 h
    EXPECT_FLOAT_EQ(w.pressure, 29.92f);
    EXPECT_FLOAT_EQ(w.temperature, 15.0f);
    EXPECT_NEAR(w.dewpoint, -5.0f, 1e-4);  // 15 - 10 nm x 2
    EXPECT_EQ(w.wx_intensity, 2);
    EXPECT_EQ(w.wx_kind, 1);
    EXPECT_EQ(w.cloud_kind[0], 2);
    EXPECT_NEAR(w.cloud_base[0], 1000.0f - 30.48f, 1e-3);  // lowered by 100 ft
    EXPECT_NEAR(w.cloud_base[1], -30.48f, 1e-3);
    EXPECT_FLOAT_EQ(w.cloud_top[0], 1000.0f);
    EXPECT_EQ(w.wind_dir, 270.0f);
    EXPECT_EQ(w.wind_speed, 12.0f);
    EXPECT_EQ(w.gust, 7.0f);
    EXPECT_EQ(w.visibility, 18520.0f);
}

TEST_F(Prefs, SimulatorTimeAirportAndPrecipitationRules) {
    const struct {
        std::vector<TestAirport> airports;
        std::string code;
        float hours, precip;
        int32_t index;
        float time;
        int32_t kind, intensity;
    } rows[] = {
        {{{"KSFO", "A", 37.6f, -122.4f}}, "EGLL", 14.4f, 0.3f, 0, 79200.0f, -99, 1},  // no match: index 0
        {{{"AAAA", "A", 0, 15.0f}, {"KSFO", "B", 0, 0}, {"KSFO", "C", 0, 0.0f}}, "KSFO", 0.0f, 0.0f, 2, 82800.0f, -99, 0},
        {{{"AAAA", "A", 0, -150.0f}}, "AAAA", 30.0f, 2.0f, 0, 54000.0f, 1, 5},  // 39 h -> 15 h
        {{{"AAAA", "A", 0, -15.0f}}, "AAAA", 24.0f, 0.0f, 0, 86400.0f, -99, 0},  // 24 h stays 24
        {{{"AAAA", "A", 0, 0.0f}}, "AAAA", 1.5f, 0.0f, 0, 3600.0f, -99, 0},     // 0.5 rounds away from zero
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.code + " " + std::to_string(r.hours));
        SetUp();
        sim_set_airports(r.airports);
        TestSimPrefs p;
        p.start_code = r.code;
        p.local_hours = r.hours;
        p.precip = r.precip;
        test_write_file(dir, "sim.prf", sim_prefs(p));
        ASSERT_EQ(prefs(PREF_SIM, PREF_READ, dir + "sim.prf"), 1);
        EXPECT_EQ(brief_req.departure, r.index);
        EXPECT_EQ(brief_req.destination, r.index);
        EXPECT_EQ(station_wx.time, r.time);
        EXPECT_EQ(station_wx.wx_kind, r.kind);
        EXPECT_EQ(station_wx.wx_intensity, r.intensity);
    }
}

TEST_F(Prefs, SimulatorFileOfAnotherVersionOrMissingFailsSilently) {
    TestSimPrefs p;
    p.version = 6500;
    test_write_file(dir, "old.prf", sim_prefs(p));
    EXPECT_EQ(prefs(PREF_SIM, PREF_READ, dir + "old.prf"), 0);
    EXPECT_EQ(prefs(PREF_SIM, PREF_READ, dir + "none.prf"), 0);
    EXPECT_STREQ(brief_req.aircraft_name, "");
    EXPECT_EQ(shown, "");
}

TEST_F(Prefs, SimulatorTextWithoutItsZeroIsFatal) {
    TestSimPrefs p;
    p.aircraft_name = std::string(500, 'x');
    test_write_file(dir, "long.prf", sim_prefs(p));
    alert_set_box(nullptr);
    EXPECT_EXIT(prefs(PREF_SIM, PREF_READ, dir + "long.prf"), testing::ExitedWithCode(0),
                testing::HasSubstr("String too long!"));
}

TEST_F(Prefs, BadArgumentIsFatal) {
    alert_set_box(nullptr);
    EXPECT_EXIT(prefs(7, PREF_READ, dir + "x"), testing::ExitedWithCode(0),
                testing::HasSubstr(test_alert_text("Bad pref arg!", "", "", "")));
    EXPECT_EXIT(prefs(PREF_SIM, 9, dir + "x"), testing::ExitedWithCode(0), testing::HasSubstr("Bad pref arg!"));
}
