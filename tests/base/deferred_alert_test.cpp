// Alerts raised on a worker thread: recorded there, shown later on the main thread in order.
#include <gtest/gtest.h>

#include <csetjmp>
#include <string>
#include <thread>

#include "base/alert.h"

static std::string seen;
static jmp_buf worker_back;

// Six notes and then a fatal alert on a worker: the worker shows nothing and ends at the
// fatal one; the replay shows the first notes that fit and the fatal one last.
TEST(DeferredAlert, NotesUpToTheLimitThenTheFatalOneLast) {
    static DeferredAlerts d;
    static bool ended_on_worker = false;
    alert_set_box([](const char* const lines[4], int32_t kind) { seen += std::to_string(kind) + lines[0] + " "; });
    progress_set([](const char*) { seen += "progress "; });
    std::thread([] {
        alert_defer_on(&d, [] { longjmp(worker_back, 1); });
        if (setjmp(worker_back) == 0) {
            MACIBM_progress("Scanning airports.");
            for (const char* n : {"a", "b", "c", "d", "e", "f"}) MACIBM_alert(0, n, "", "", "", ALERT_NOTE);
            MACIBM_fatal("end");
        }
        ended_on_worker = true;
        alert_defer_off();
    }).join();
    EXPECT_TRUE(ended_on_worker);
    EXPECT_EQ(seen, "");
    MACIBM_progress("on the main thread");
    alert_set_fatal_end([] { longjmp(worker_back, 2); });
    if (setjmp(worker_back) == 0) alert_replay(d);
    EXPECT_EQ(seen, "progress 15a 15b 15c 16end ");
    alert_set_box(nullptr), alert_set_fatal_end(nullptr), progress_set(nullptr);
}
