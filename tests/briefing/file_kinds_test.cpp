// Data files that are not regular files (a FIFO, an endless device) never block a reader:
// each counts as a file that cannot be opened.
#include <gmock/gmock.h>

#include <functional>
#include <sys/stat.h>
#include <unistd.h>

#include "briefing/aircraft.h"
#include "briefing/sim_prefs.h"
#include "briefing/weather.h"
#include "tests/support/sim_files.h"
#include "tests/support/test_files.h"
#include "util/file_reader.h"
#include "util/prefs.h"
#include "util/text.h"

TEST(FileKinds, AFifoOrAnEndlessDeviceIsAFileThatCannotBeOpened) {
    const std::string dir = test_temp_dir(), fifo = dir + "fifo";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0644), 0);
    auto lookup = [] {
        StationWeather& w = station_wx;
        return wx_lookup(0, 0, &w.time, w.cloud_kind, w.cloud_base, w.cloud_top, &w.visibility, &w.wx_kind,
                         &w.wx_intensity, &w.temperature, &w.dewpoint, &w.wind_dir, &w.wind_speed, &w.gust,
                         &w.pressure);
    };
    auto with_path = [](const std::string& p, int32_t (*fn)(char*)) {
        Text path;
        str_copy(p.c_str(), path);
        return fn(path);
    };
    const struct {
        const char* what;
        std::function<int32_t()> open;  // the reader's result when it cannot open the file
        int32_t refused;
    } rows[] = {
        {"apt.dat", [&] { return with_path(fifo, [](char* p) { return fio_open(p, 0, 600, 1); }); }, 0},
        {"metar.rwx", [&] { return str_copy(fifo.c_str(), wx_file_path), lookup(); }, -1},
        {"an endless metar.rwx", [&] { return str_copy("/dev/zero", wx_file_path), lookup(); }, -1},
        {"an aircraft file", [&] { return acf_read(0, fifo.c_str()); }, 0},
        {"the language-and-resolution file",
         [&] { return with_path(fifo, [](char* p) { return fio_prefs(PREF_LANG_RES, PREF_READ, p); }); }, 0},
        {"the simulator's preferences", [&] { return with_path(fifo, brief_read_sim_prefs); }, 0},
    };
    for (const auto& r : rows) {
        sim_set_airports({{"ZERO", "", 0, 0}});
        sim_brief_reset(dir);
        EXPECT_EXIT(
            {
                alarm(5);  // a reader that waits is killed, and the row fails
                _exit(r.open() == r.refused ? 0 : 1);
            },
            testing::ExitedWithCode(0), "")
            << r.what;
    }
}
