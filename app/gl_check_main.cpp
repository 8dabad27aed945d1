// vocalog-gl-check: opens the window with its real context, draws a test frame through the
// event pass, writes the "OpenGL Situation" report to Error.out and a screenshot, and exits.
// With --input SECONDS it then echoes what the window's input becomes (keys as app_key sees
// them, clicks in design units, the typed text) until a "." is typed or the time is up.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/primitives.h"
#include "graphics/qgl.h"
#include "graphics/textures.h"
#include "platform/platform.h"
#include "base/alert.h"
#include "shell/app_hooks.h"
#include "shell/event_loop.h"
#include "window/gl_caps.h"
#include "window/input.h"
#include "base/log.h"
#include "kit/boxes.h"
#include "kit/font.h"
#include "shell/menus.h"
#include "shell/screens.h"
#include "base/shutdown.h"
#include "window/window.h"
#include "util/prefs.h"

constexpr int SHOT_W = 1024, SHOT_H = 768;
static uint8_t shot[SHOT_W * SHOT_H * 3];
static bool shot_taken = false;
static uint8_t sheet[512 * 512 * 4];

// Palette entries of this program's own test colours.
enum : int32_t { C_RED = 100, C_GREEN, C_BLUE, C_YELLOW, C_WHITE };

static void put(uint8_t* px, uint8_t r, uint8_t g, uint8_t b, uint8_t a) {
    px[0] = r;
    px[1] = g;
    px[2] = b;
    px[3] = a;
}

// A 512 x 512 interface sheet of its own: colour squares with a grid, and the pointer arrow
// where the event pass cuts it (pixels 327..349 across, 337..359 down), transparent around it.
static void make_sheet() {
    for (int row = 0; row < 512; ++row)      // row 0 is the bottom of the texture
        for (int col = 0; col < 512; ++col) {
            uint8_t* px = &sheet[(row * 512 + col) * 4];
            int down = 511 - row;
            if (col >= 327 && col <= 349 && down >= 337 && down <= 359) {
                int x = col - 327, y = down - 337;  // the arrow's tip at the top left
                bool inside = x <= y * 2 / 3 && y <= 18 && x <= 12;
                bool edge = inside && (x == 0 || x == y * 2 / 3 || y == 18 || x == 12);
                if (edge)
                    put(px, 0, 0, 0, 255);
                else if (inside)
                    put(px, 255, 255, 255, 255);
                else
                    put(px, 0, 0, 0, 0);
                continue;
            }
            bool grid = col % 64 == 0 || row % 64 == 0;
            put(px, grid ? 30 : (uint8_t)(col / 2), grid ? 30 : (uint8_t)(row / 2),
                grid ? 30 : (uint8_t)(255 - col / 4 - row / 4), 255);
        }
}

static void load_nearest(const char* name, int32_t id, int32_t w, int32_t h, const uint8_t* px) {
    OGL_load_tex(name, id, 0, GL_RGBA, w, h, px);
    qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
}

static void draw_test_frame() {
    OGL_fill_rect(C_RED, 1.0f, 40, 520, 200, 120);
    OGL_fill_rect(C_GREEN, 0.5f, 140, 460, 200, 120);  // half transparent over the red
    OGL_frame_rect(C_YELLOW, 1.0f, 40, 300, 300, 120);
    for (int i = 0; i <= 10; ++i) OGL_draw_line(C_WHITE, 1.0f, 40 + 30 * i, 60, 340 - 30 * i, 260);
    OGL_draw_quad(TEX_SHEET, C_WHITE, 1.0f, 420, 140, 0, 0, 420, 652, 0, 1, 932, 652, 1, 1, 932, 140, 1, 0, 1,
                  OGL_ALPHA_ON, OGL_BLEND_OFF);
}

// The frame swap with a read-back of the finished back buffer first.
static int32_t capture_and_swap() {
    if (!shot_taken && event_loop_painted()) {
        qglReadBuffer(GL_BACK);
        qglReadPixels(0, 0, SHOT_W, SHOT_H, GL_RGB, GL_UNSIGNED_BYTE, shot);
        shot_taken = true;
    }
    plat_gl_swap();
    return 1;
}

static bool write_ppm(const char* path) {
    FILE* f = fopen(path, "wb");
    if (!f) return false;
    fprintf(f, "P6\n%d %d\n255\n", SHOT_W, SHOT_H);
    for (int row = SHOT_H - 1; row >= 0; --row) fwrite(&shot[row * SHOT_W * 3], 3, SHOT_W, f);  // top row first
    return fclose(f) == 0;
}

static void echo_key(int32_t key_class, int32_t key) {
    printf("key %d %d\n", key_class, key);
    fflush(stdout);
}

static void echo_clicks() {
    draw_test_frame();
    if (ShellInput.mouse_clicked) {
        printf("click %.0f %.0f\n", ShellInput.mouse_x, ShellInput.mouse_y);
        fflush(stdout);
    }
}

static void echo_input(float seconds) {
    app_set_hooks(echo_clicks, echo_key, nullptr);
    ShellInput.typed_text[0] = 0;
    printf("ready\n");
    fflush(stdout);
    uint32_t start = plat_ticks_ms();
    while (!strchr(ShellInput.typed_text, '.') && !quit_requested && plat_ticks_ms() - start < seconds * 1000.0f)
        MACIBM_event_pass();
    printf("typed \"%s\"\n", ShellInput.typed_text);
}

int main(int argc, char** argv) {
    float input_seconds = 0;
    if (argc > 2 && strcmp(argv[1], "--input") == 0) {
        input_seconds = (float)atof(argv[2]);
        argc -= 2, argv += 2;
    }
    const char* shot_path = argc > 1 ? argv[1] : "gl-check.ppm";
    MACIBM_log_open("Error.out");
    OGL_default_palette();
    OGL_set_palette(C_RED, 0.9f, 0.1f, 0.1f);
    OGL_set_palette(C_GREEN, 0.1f, 0.9f, 0.2f);
    OGL_set_palette(C_BLUE, 0.1f, 0.2f, 0.9f);
    OGL_set_palette(C_YELLOW, 1.0f, 0.9f, 0.1f);
    OGL_set_palette(C_WHITE, 1.0f, 1.0f, 1.0f);
    design_space_fit();
    window_set_proc(MACIBM_window_proc);
    if (MACIBM_set_fullscreen(1) == 0 || MACIBM_open_window() == 0) {
        fprintf(stderr, "vocalog-gl-check: the window or its OpenGL context could not be set up\n");
        MACIBM_shutdown();
        return 1;
    }
    MACIBM_gl_checks();
    OGL_set_projection(OGL_PROJ_DESIGN, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
    MACIBM_gl_multitexture();
    make_sheet();
    load_nearest("general_interface", TEX_SHEET, 512, 512, sheet);
    bg_color[0] = 50, bg_color[1] = 80, bg_color[2] = 120;  // the paint message opens the screen on it

    OGL_set_swap(capture_and_swap);
    app_set_hooks(draw_test_frame, nullptr, nullptr);
    cur_screen = SCREEN_MAIN;
    // The pointer over the textured quad, as the window would report it.
    plat_post_message(PlatMessage{PLAT_MSG_MOUSEMOVE, 0, (intptr_t)((300u << 16) | 600u), 0});
    for (int pass = 0; pass < 100 && !shot_taken; ++pass) MACIBM_event_pass();

    int32_t w, h, colour, depth;
    plat_window_size(&w, &h);
    plat_gl_buffer_bits(&colour, &depth);
    printf("window %dx%d, colour bits %d, depth bits %d, renderer %s, software pointer %d\n", w, h, colour, depth,
           reinterpret_cast<const char*>(qglGetString(GL_RENDERER)), sw_cursor);
    bool ok = shot_taken && write_ppm(shot_path);
    printf("%s %s\n", ok ? "screenshot written to" : "no screenshot in", shot_path);
    fflush(stdout);
    if (input_seconds > 0) echo_input(input_seconds);
    MACIBM_shutdown();
    return ok ? 0 : 1;
}
