// CPU time of one interface frame of 500 textured quads under the software GL renderer.
#include <benchmark/benchmark.h>

#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/primitives.h"
#include "graphics/qgl.h"
#include "graphics/textures.h"
#include "platform/platform.h"

static void BM_Frame500TexturedQuads(benchmark::State& state) {
    if (!plat_window_open(1024, 768, 24) || qgl_load(plat_gl_proc) != 0) {
        state.SkipWithError("no GL context");
        return;
    }
    qgl_load_multitexture(plat_gl_proc);
    design_space_reset();
    gl_state_reset();
    OGL_default_palette();
    tex_reset();
    qglPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    qglAlphaFunc(GL_GREATER, 0.0f);
    OGL_set_projection(OGL_PROJ_DESIGN, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
    // An interface sheet of 512 x 512 texels, as the widgets draw from.
    static uint8_t sheet[512 * 512 * 4];
    for (int i = 0; i < 512 * 512; ++i) {
        sheet[i * 4] = (uint8_t)i, sheet[i * 4 + 1] = (uint8_t)(i >> 3), sheet[i * 4 + 2] = 128;
        sheet[i * 4 + 3] = (i % 7) ? 255 : 0;
    }
    OGL_load_tex("sheet", TEX_SHEET, 0, GL_RGBA, 512, 512, sheet);
    qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);

    for (auto _ : state) {
        // 500 button-sized pieces (32 x 16 units) in a grid over the design space.
        for (int k = 0; k < 500; ++k) {
            float x = (float)(k % 25) * 40.0f, y = (float)(k / 25) * 36.0f;
            float s = (float)(k % 16) / 16.0f, t = (float)(k % 32) / 32.0f;
            OGL_draw_quad(TEX_SHEET, COLOR_WHITE, 1.0f, x, y, s, t, x, y + 16, s, t + 0.03125f, x + 32, y + 16,
                          s + 0.0625f, t + 0.03125f, x + 32, y, s + 0.0625f, t, 1, OGL_ALPHA_ON, OGL_BLEND_OFF);
        }
        qglFinish();  // the frame's rasterisation is done before the time is taken
    }
    state.SetItemsProcessed(state.iterations() * 500);
    plat_window_close();
    qgl_reset();
}
BENCHMARK(BM_Frame500TexturedQuads)->Unit(benchmark::kMillisecond)->UseRealTime();

// The same frame's calls into a GL that discards everything: the cost of the drawing code itself.
static void BM_Frame500QuadsCallsOnly(benchmark::State& state) {
    if (!plat_window_open(1024, 768, 24) || qgl_load(plat_gl_proc) != 0) {
        state.SkipWithError("no GL context");
        return;
    }
    qgl_load_multitexture(plat_gl_proc);
    gl_state_reset();
    OGL_default_palette();
    tex_reset();
    static uint8_t px[4] = {255, 255, 255, 255};
    OGL_load_tex("one", TEX_SHEET, 0, GL_RGBA, 1, 1, px);
    OGL_set_projection(OGL_PROJ_DESIGN, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
    qglEnable(GL_SCISSOR_TEST);
    qglScissor(0, 0, 0, 0);  // nothing reaches the frame: only the calls are measured
    for (auto _ : state) {
        for (int k = 0; k < 500; ++k) {
            float x = (float)(k % 25) * 40.0f, y = (float)(k / 25) * 36.0f;
            OGL_draw_quad(TEX_SHEET, COLOR_WHITE, 1.0f, x, y, 0, 0, x, y + 16, 0, 1, x + 32, y + 16, 1, 1, x + 32, y,
                          1, 0, 1, OGL_ALPHA_ON, OGL_BLEND_OFF);
        }
        qglFinish();
    }
    state.SetItemsProcessed(state.iterations() * 500);
    plat_window_close();
    qgl_reset();
}
BENCHMARK(BM_Frame500QuadsCallsOnly)->Unit(benchmark::kMillisecond)->UseRealTime();
