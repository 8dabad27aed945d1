// Main-thread CPU of one pass's list picker over a full-size table of 22000 entries on the
// real context (llvmpipe under Mesa): box, scroll bar, both search fields, the pulsing
// cursor and the 21 visible rows, with and without a key typed in that pass.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <ctime>

#include "graphics/bitmap.h"
#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/qgl.h"
#include "graphics/textures.h"
#include "kit/list_picker.h"
#include "platform/platform.h"
#include "util/folders.h"
#include "window/input.h"

constexpr int32_t ENTRIES = 22000;
static char names[ENTRIES][LIST_NAME_SIZE], tags[ENTRIES][LIST_TAG_SIZE];

static double thread_cpu_secs() {
    timespec ts{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &ts);
    return (double)ts.tv_sec + (double)ts.tv_nsec * 1e-9;
}

// The context, the interface sheet of the program folder (a checkerboard when it has none:
// the cost is the same) and a table of airport-like names in no particular order.
static bool open_context() {
    static bool open = false;
    if (open) return true;
    if (!plat_window_open(1024, 768, 24) || qgl_load(plat_gl_proc) != 0) return false;
    qgl_load_multitexture(plat_gl_proc);
    design_space_reset();
    gl_state_reset();
    OGL_default_palette();
    tex_reset();
    folders_init();
    int32_t w = 0, h = 0;
    OGL_texbmp(BMP_TEXTURE, 300, BMP_MAGENTA_CLEAR, "general_interface.bmp", &w, &h);
    qglAlphaFunc(GL_GREATER, 0.0f);
    OGL_set_projection(2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
    static const char* const words[] = {"Dover", "Fairview", "Madison", "Riverside", "Salem", "Springfield"};
    for (int32_t i = 0; i < ENTRIES; ++i) {  // in name order, as a list to search by name is
        snprintf(names[i], LIST_NAME_SIZE, "%s Municipal Airport %05d", words[i * 6 / ENTRIES], i);
        snprintf(tags[i], LIST_TAG_SIZE, "K%03d", i % 1000);
    }
    open = true;
    return true;
}

// Argument: 1 when a key went down in the pass (the name search walks 17500 entries), else 0.
static void BM_ListPickerPass(benchmark::State& state) {
    if (!open_context()) {
        state.SkipWithError("no GL context");
        return;
    }
    input_reset();
    Text search = "salem municipal airport 1750";  // lands on entry 17500 of 22000
    int32_t field = SEARCH_NAME, index = ENTRIES / 2;
    double wall_total = 0;
    for (auto _ : state) {
        ShellInput.key_pressed = (int32_t)state.range(0);
        ShellInput.elapsed_secs += 0.016f;
        timespec w0{}, w1{};
        clock_gettime(CLOCK_MONOTONIC, &w0);
        const double t0 = thread_cpu_secs();
        BTN_list_picker(300, 400, names[0], tags[0], &index, 0, ENTRIES - 1, 0, search, &field);
        state.SetIterationTime(thread_cpu_secs() - t0);
        qglFinish();  // the renderer's threads finish the picker before the next pass
        clock_gettime(CLOCK_MONOTONIC, &w1);
        wall_total += (double)(w1.tv_sec - w0.tv_sec) + (double)(w1.tv_nsec - w0.tv_nsec) * 1e-9;
        plat_gl_swap();
    }
    state.counters["wall_ms_with_finish"] = 1000.0 * wall_total / (double)state.iterations();
    state.counters["selected"] = index;
}
BENCHMARK(BM_ListPickerPass)->Arg(0)->Arg(1)->UseManualTime()->Unit(benchmark::kMillisecond);
