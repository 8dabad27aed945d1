// The scan of apt.dat on a worker thread beside the window's set-up: the same airport table
// and the same alerts, in the same order, as the scan on the main thread.
#include <gmock/gmock.h>

#include <csetjmp>
#include <cstdlib>
#include <string>

#include "base/alert.h"
#include "briefing/airports.h"
#include "briefing/world.h"
#include "tests/support/test_files.h"
#include "util/file_reader.h"
#include "util/folders.h"

static std::string seen;  // each alert shown: its kind and first line
static jmp_buf fatal_back;

// Loads the world of `dir`, scanning on a worker or not; the alerts shown, then the table.
static std::string load(const std::string& dir, bool worker) {
    seen.clear();
    fio_reset();
    apt_reset();
    folders_fill(dir.c_str(), "");
    alert_set_box([](const char* const lines[4], int32_t kind) { seen += std::to_string(kind) + " " + lines[0] + "; "; });
    alert_set_fatal_end([] { longjmp(fatal_back, 1); });
    if (setjmp(fatal_back) == 0) {
        if (worker) brief_scan_start();
        brief_load_world();
    }
    alert_set_box(nullptr), alert_set_fatal_end(nullptr);
    int32_t last = apt_table.airport_count;
    return seen + "| " + std::to_string(last) + " airports, " + std::to_string(apt_table.runway_count) +
           " runways, last " + (last > 0 ? apt_table.apt_code[last] : "-");
}

TEST(ScanWorker, SameTableAndAlertsAsTheScanOnTheMainThread) {
    const std::string sample = std::getenv("VOCALOG_SOURCE_DIR") + std::string("/data/sim/");
    const std::string empty = test_temp_dir();  // no apt.dat: a note, then the scanning error
    for (const std::string& dir : {sample, empty}) {
        const std::string inline_scan = load(dir, false);
        EXPECT_EQ(load(dir, true), inline_scan) << dir;
    }
    EXPECT_THAT(load(sample, true), testing::StartsWith("| "));
    EXPECT_THAT(load(empty, true), testing::StartsWith("15 I am unable to access a nav or airport data file!; "
                                                       "16 File-scanning error!; |"));
}
