// CPU time on the main thread of one briefing frame's text: four wrapped paragraphs of 499
// characters in the field face, drawn on a real context under the software GL renderer.
#include <benchmark/benchmark.h>

#include <cstring>

#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/palette_names.h"
#include "graphics/qgl.h"
#include "graphics/textures.h"
#include "kit/font.h"
#include "platform/platform.h"

namespace {

char paragraphs[4][500];

// Four different texts of 499 characters with the briefing's mix of words and punctuation.
void make_paragraphs() {
    const char* words[] = {"Hello,", "this", "is", "Cessna", "N1234/A", "from", "KSEA", "to", "KPDX:", "broken",
                           "at", "2,500", "feet,", "visibility", "10", "statute", "miles;", "wind", "220",
                           "gusting", "light-rain", "showers.", "altimeter", "29.92", "temperature", "12"};
    const int n = sizeof words / sizeof *words;
    for (int p = 0; p < 4; ++p) {
        char* t = paragraphs[p];
        int len = 0;
        for (int w = p; len < 499; w += 3) {
            for (const char* c = words[w % n]; *c && len < 499; ++c) t[len++] = *c;
            if (len < 499) t[len++] = ' ';
        }
        t[499] = 0;
    }
}

bool open_context() {
    if (!plat_window_open(1024, 768, 24) || qgl_load(plat_gl_proc) != 0) return false;
    qgl_load_multitexture(plat_gl_proc);
    design_space_reset();
    gl_state_reset();
    OGL_default_palette();
    tex_reset();
    qglPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    qglAlphaFunc(GL_GREATER, 0.0f);
    OGL_set_projection(2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
    static uint8_t sheet[512 * 512 * 4];  // glyph-like texels: every third transparent
    for (int i = 0; i < 512 * 512; ++i) memset(&sheet[i * 4], i % 3 ? 255 : 0, 4);
    OGL_load_tex("general_interface", OGL_TEX_SHEET, 0, GL_RGBA, 512, 512, sheet);
    qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    return true;
}

// One frame: the four paragraphs as the briefing screen lays them out, wrapped at 640 units,
// then glFinish so the frame is complete. The CPU column is this thread's CPU time.
void BM_BriefingTextFrame(benchmark::State& state) {
    if (!open_context()) {
        state.SkipWithError("no GL context");
        return;
    }
    make_paragraphs();
    state.SetLabel(reinterpret_cast<const char*>(qglGetString(GL_RENDERER)));
    for (auto _ : state) {
        for (int p = 0; p < 4; ++p)
            OGL_draw_string(PAL_GREEN, 40, 690 - 150 * (float)p, paragraphs[p], 640, FACE_FIELD);
        qglFinish();
    }
    state.SetItemsProcessed(state.iterations() * 4 * 499);
    plat_window_close();
    qgl_reset();
}

}  // namespace

BENCHMARK(BM_BriefingTextFrame)->Unit(benchmark::kMicrosecond);
