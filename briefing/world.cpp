// Loads what a briefing needs: the airport list, the weather source and the aircraft.
#include "briefing/sim_prefs.h"
#include "briefing/world.h"

#include <atomic>
#include <chrono>
#include <csetjmp>
#include <cstdio>
#include <thread>

#include "briefing/aircraft.h"
#include "briefing/airports.h"
#include "briefing/request.h"
#include "briefing/weather.h"
#include "base/alert.h"
#include "kit/list_picker.h"
#include "util/folders.h"
#include "util/file_reader.h"
#include "util/prefs.h"
#include "util/text.h"

static void scan_airports() {
    Text path;
    str_join(folders.path[FOLDER_EARTH_NAV], "apt.dat", path);
    if (!fio_open(path, FILE_TYPE_TEXT, 600, 1))
        MACIBM_alert(0, "I am unable to access a nav or airport data file!", "The path I am looking at is as follows:",
                     path, "Make sure the file listed above is available in the path listed above!", ALERT_NOTE);
    apt_scan(path);  // from counts of -1; the table is first touched there (large pages for a big file)
    fio_close();
}

// ---- the scan beside the window's set-up ----
// The worker reads apt.dat in file slot 1 (the main thread keeps slot 0 for the menus and
// texts it reads meanwhile) and records its alerts; nothing else touches the airport table
// until the main thread has seen scan_state turn to SCAN_DONE.
enum : int32_t { SCAN_NONE = 0, SCAN_RUNNING = 1, SCAN_DONE = 2 };
static std::atomic<int32_t> scan_state{SCAN_NONE};
static DeferredAlerts scan_alerts;
static jmp_buf scan_abort;

[[noreturn]] static void scan_abort_jump() { longjmp(scan_abort, 1); }

static void scan_worker() {
    fio_cur_slot = 1;
    alert_defer_on(&scan_alerts, scan_abort_jump);
    if (setjmp(scan_abort) == 0) scan_airports();
    alert_defer_off();
    fio_close();  // after a fatal alert the file is still open
    scan_state.store(SCAN_DONE, std::memory_order_release);
}

void brief_scan_start() {
    scan_state.store(SCAN_RUNNING, std::memory_order_relaxed);
    std::thread(scan_worker).detach();  // the process may end (a fatal alert) while it runs
}

// Waits for the worker, with the progress screen while the scan is still going, then shows
// its alerts where the scan would have raised them.
static void scan_finish() {
    constexpr auto POLL = std::chrono::milliseconds(5);
    while (scan_state.load(std::memory_order_acquire) != SCAN_DONE) {
        MACIBM_progress("Scanning airports.");
        std::this_thread::sleep_for(POLL);
    }
    scan_state.store(SCAN_NONE, std::memory_order_relaxed);
    alert_replay(scan_alerts);
}

// Whether the weather file opens as a clean text stream; nothing is read from it.
static bool weather_file_opens() {
    str_join(folders.path[FOLDER_PROGRAM], "metar.rwx", wx_file_path);
    FileStream* s = fio_stream();
    s->state = 0;
    if (s->file) fs_close(s);
    s->state = 0;
    bool ok = wx_file_open(s);  // the very path the lookups open
    if (s->file) fs_close(s);
    s->state = 0;
    return ok;
}

int32_t brief_load_world() {
    brief_req_reset();
    if (scan_state.load(std::memory_order_relaxed) != SCAN_NONE)
        scan_finish();
    else
        scan_airports();
    BTN_set_code_search(apt_find_code);  // the pickers' code field looks airports up here
    bool weather = weather_file_opens();
    str_copy("untitled.acf", brief_req.aircraft_name);
    if (!weather) {
        Text path;
        str_copy(folders.path[FOLDER_SIM_PREFS], path);
        if (!brief_read_sim_prefs(path)) {
            char where[2 * STR_SIZE];  // the alert keeps the first 499 characters
            snprintf(where, sizeof where, "I looked for the Zephyra prefs file here: %s", folders.path[FOLDER_SIM_PREFS]);
            MACIBM_fatal("I could not find an Zephyra prefs file or a Metar.rwx weather file!",
                         "In other words, I have no weather to give you a briefing with!",
                         "Download the current weather file from the Zephyra home page, or at least run Zephyra "
                         "once before you request a briefing!",
                         where);
        }
    }
    brief_req.altitude = 5000.0f;
    acf_read(0, brief_req.aircraft_path);
    brief_req.speed = speed_from_aircraft();
    return weather ? 1 : 0;
}
