// Cost of the event loop on a real context, idle and with the pointer moving, measured as the
// process's CPU time (Mesa's rendering threads included) over wall-clock time.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <ctime>

#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/qgl.h"
#include "graphics/textures.h"
#include "platform/platform.h"
#include "shell/app_hooks.h"
#include "shell/event_loop.h"
#include "kit/list_picker.h"
#include "window/gl_caps.h"
#include "kit/boxes.h"
#include "kit/font.h"
#include "shell/menus.h"
#include "shell/screens.h"
#include "window/window.h"
#include "util/prefs.h"

static double seconds(clockid_t clock) {
    timespec ts{};
    clock_gettime(clock, &ts);
    return (double)ts.tv_sec + (double)ts.tv_nsec * 1e-9;
}

// Window, context, checks, the interface sheet and the background tiles, as after start-up.
static bool open_shell() {
    static bool open = false;
    if (open) return true;
    full_screen = 0;
    disp_bits = 32.0f;
    design_space_reset();
    window_set_proc(MACIBM_window_proc);
    if (MACIBM_open_window() == 0) return false;
    MACIBM_gl_checks();
    OGL_set_projection(OGL_PROJ_DESIGN, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
    static uint8_t pixels[512 * 512 * 4];
    memset(pixels, 128, sizeof pixels);
    OGL_load_tex("general_interface", TEX_SHEET, 0, GL_RGBA, 512, 512, pixels);
    for (int32_t id = TEX_BACKGROUND; id <= TEX_BACKGROUND_LAST; ++id) {
        OGL_load_tex("background texture", id, 0, GL_RGBA, 256, 256, pixels);
        qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    }
    open = true;
    return true;
}

// CPU share of the process (Mesa's rendering threads included) over `passes` passes, with
// `input` called before each pass.
template <class Input>
static void measure_passes(benchmark::State& state, Input input) {
    double cpu0 = seconds(CLOCK_PROCESS_CPUTIME_ID), wall0 = seconds(CLOCK_MONOTONIC);
    int64_t passes = 0;
    for (auto _ : state) {
        input(passes);
        MACIBM_event_pass();
        ++passes;
    }
    double cpu = seconds(CLOCK_PROCESS_CPUTIME_ID) - cpu0, wall = seconds(CLOCK_MONOTONIC) - wall0;
    state.counters["cpu_share_pct"] = 100.0 * cpu / wall;
    state.counters["passes_per_s"] = (double)passes / wall;
}

// Argument: the screen. The main screen draws the whole background each pass; on the
// alert screen (996) the pass skips it and draws only the pointer before the swap.
static bool settle(benchmark::State& state) {
    if (!open_shell()) {
        state.SkipWithError("no window or OpenGL context");
        return false;
    }
    cur_screen = (int32_t)state.range(0);
    for (int i = 0; i < 10; ++i) MACIBM_event_pass();  // the paint message, first frames
    return true;
}

// Nothing to do: no window message for longer than the idle threshold.
static void BM_IdleEventLoop(benchmark::State& state) {
    if (!settle(state)) return;
    double until = seconds(CLOCK_MONOTONIC) + PASS_IDLE_AFTER_SECS + 0.2;
    while (seconds(CLOCK_MONOTONIC) < until) MACIBM_event_pass();
    measure_passes(state, [](int64_t) {});
}
// Thirty seconds of idle passes, so that a rare burst of the renderer's threads counts at its true weight.
BENCHMARK(BM_IdleEventLoop)->Arg(SCREEN_MAIN)->Arg(SCREEN_ALERT)->Iterations(60)->Unit(benchmark::kMillisecond)->UseRealTime();

// The pointer moving: a mouse-move message before every pass keeps the loop at full pace.
static void BM_PointerMovingEventLoop(benchmark::State& state) {
    if (!settle(state)) return;
    measure_passes(state, [](int64_t n) {
        uint32_t x = 200 + (uint32_t)(n % 2) * 10, y = 300;
        plat_post_message(PlatMessage{PLAT_MSG_MOUSEMOVE, 0, (intptr_t)(y << 16 | x), 0});
    });
}
// About two seconds of passes at the loop's full pace.
BENCHMARK(BM_PointerMovingEventLoop)->Arg(SCREEN_MAIN)->Arg(SCREEN_ALERT)->Iterations(240)->Unit(benchmark::kMillisecond)->UseRealTime();

// Idle with a list picker whose search field is active: only its text cursor pulses, so the
// loop keeps a reduced pace instead of the full one or the idle one.
static void draw_picker() {
    static char names[40][LIST_NAME_SIZE], tags[40][LIST_TAG_SIZE];
    static Text search = "KS";
    static int32_t index = 20, field = SEARCH_CODE;
    for (int i = 0; i < 40; ++i) snprintf(names[i], LIST_NAME_SIZE, "Airport %d", i), snprintf(tags[i], LIST_TAG_SIZE, "K%03d", i);
    BTN_list_picker(300, 400, names[0], tags[0], &index, 0, 39, 0, search, &field);
}
static void BM_IdleWithPulsingCursor(benchmark::State& state) {
    if (!settle(state)) return;
    app_set_hooks(draw_picker, nullptr, nullptr);
    double until = seconds(CLOCK_MONOTONIC) + PASS_IDLE_AFTER_SECS + 0.2;
    while (seconds(CLOCK_MONOTONIC) < until) MACIBM_event_pass();
    measure_passes(state, [](int64_t) {});
    app_set_hooks(nullptr, nullptr, nullptr);
}
// About five seconds of idle passes at the cursor's pace.
BENCHMARK(BM_IdleWithPulsingCursor)->Arg(SCREEN_MAIN)->Iterations(90)->Unit(benchmark::kMillisecond)->UseRealTime();
