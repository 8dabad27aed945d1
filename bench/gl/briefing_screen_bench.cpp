// Main-thread CPU of one pass of the briefing screen with a briefing shown, on a real
// context (the software renderer under a plain X server), after the program's own start-up
// on the build folder's sample world.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "base/shutdown.h"
#include "bench/gl/lang_res_file.h"
#include "briefing/airports.h"
#include "briefing/briefing_screen.h"
#include "briefing/composer.h"
#include "briefing/request.h"
#include "briefing/world.h"
#include "platform/platform.h"
#include "shell/app_hooks.h"
#include "shell/event_loop.h"
#include "shell/startup.h"

static double cpu_secs(clockid_t clock) {
    timespec ts{};
    clock_gettime(clock, &ts);
    return (double)ts.tv_sec + (double)ts.tv_nsec * 1e-9;
}

// A per-user folder whose preferences name English and a 1024 x 768 window, so the start
// shows no language chooser; the program folder is this benchmark's own (the build folder).
static void user_folder_with_prefs() {
    namespace fs = std::filesystem;
    static const fs::path home = fs::temp_directory_path() / ("vocalog-pass-bench-" + std::to_string(getpid()));
    bench_write_lang_res(home);
    setenv("XDG_DATA_HOME", home.c_str(), 1);
    static const int removed_at_exit = atexit([] {
        std::error_code ec;
        fs::remove_all(home, ec);
    });
    (void)removed_at_exit;
}

static int32_t airport(const char* code) {
    int32_t i = 0;
    return apt_find_code(code, 1, &i) ? i : 0;
}

static void BM_BriefingScreenPass(benchmark::State& state) {
    if (!plat_display_present()) {
        state.SkipWithError("no display");
        return;
    }
    user_folder_with_prefs();
    brief_screen_install();
    MACIBM_init();
    brief_load_world();
    app_set_hooks(brief_draw_screen, nullptr, nullptr);
    for (int i = 0; i < 30 && !event_loop_painted(); ++i) MACIBM_event_pass();
    brief_req.departure = airport("AYBA");
    brief_req.destination = airport("BGSF");
    brief_compose();
    if (!event_loop_painted() || !brief_req.intro[0] || !brief_req.dep_wx[0]) {
        state.SkipWithError("no briefing on the screen");
        return;
    }
    for (int i = 0; i < 10; ++i) MACIBM_event_pass();  // glyph textures and first frames
    double proc0 = cpu_secs(CLOCK_PROCESS_CPUTIME_ID);
    for (auto _ : state) {
        double t0 = cpu_secs(CLOCK_THREAD_CPUTIME_ID);
        MACIBM_event_pass();
        state.SetIterationTime(cpu_secs(CLOCK_THREAD_CPUTIME_ID) - t0);
    }
    state.counters["process_cpu_ms_per_pass"] =
        1e3 * (cpu_secs(CLOCK_PROCESS_CPUTIME_ID) - proc0) / (double)state.iterations();
    quit_requested = 1;
}
// The pass's time is the main thread's CPU time (the pause after the pass costs none); the
// counter adds the renderer's threads.
BENCHMARK(BM_BriefingScreenPass)->Iterations(300)->UseManualTime()->Unit(benchmark::kMillisecond);
