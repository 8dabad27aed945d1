// vocalog-menu-shot: one language's menu bar with its File menu open and the pointer on the
// first item, drawn on the real context from the generated art, written as a PPM picture.
//   vocalog-menu-shot [language 0..5] [picture.ppm]
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "base/log.h"
#include "base/shutdown.h"
#include "graphics/bitmap.h"
#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/palette_names.h"
#include "graphics/qgl.h"
#include "kit/boxes.h"
#include "kit/faces.h"
#include "shell/event_loop.h"
#include "shell/language.h"
#include "shell/menu_table.h"
#include "shell/menus.h"
#include "shell/screens.h"
#include "shell/text_table.h"
#include "util/folders.h"
#include "window/gl_caps.h"
#include "window/input.h"
#include "window/window.h"

constexpr int SHOT_W = 1024, SHOT_H = 768;

static bool write_ppm(const char* path, const std::vector<uint8_t>& rgb) {
    FILE* f = fopen(path, "wb");
    if (!f) return false;
    fprintf(f, "P6\n%d %d\n255\n", SHOT_W, SHOT_H);
    for (int row = SHOT_H - 1; row >= 0; --row) fwrite(&rgb[(size_t)row * SHOT_W * 3], 3, SHOT_W, f);  // top first
    return fclose(f) == 0;
}

static void point_at(float x, float y) { ShellInput.mouse_x = x, ShellInput.mouse_y = y; }

int main(int argc, char** argv) {
    language = argc > 1 ? atoi(argv[1]) : LANG_ENGLISH;
    const char* out = argc > 2 ? argv[2] : "menus.ppm";
    MACIBM_log_open("Error.out");
    folders_init();
    OGL_default_palette();
    design_space_fit();
    window_set_proc(MACIBM_window_proc);
    if (MACIBM_set_fullscreen(1) == 0 || MACIBM_open_window() == 0) {
        fprintf(stderr, "vocalog-menu-shot: no window or OpenGL context\n");
        MACIBM_shutdown();
        return 1;
    }
    MACIBM_gl_checks();
    OGL_set_projection(2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
    int32_t w = 0, h = 0;
    if (!OGL_texbmp(BMP_TEXTURE, OGL_TEX_SHEET, BMP_MAGENTA_CLEAR, "general_interface.bmp", &w, &h)) {
        fprintf(stderr, "vocalog-menu-shot: no interface sheet in %s (build the art first)\n",
                folders.path[FOLDER_BITMAPS]);
        MACIBM_shutdown();
        return 1;
    }
    MACIBM_load_text();

    cur_screen = SCREEN_MAIN;
    const Menu& file = menu_table[0];
    point_at(file.rect.left + 1.0f, file.rect.bottom + 1.0f);
    MACIBM_handleclick(0);
    const MenuRect& first = file.items[0].rect;
    const float px = (first.left + first.right) / 2.0f, py = (first.bottom + first.top) / 2.0f;
    point_at(px, py);

    qglClearColor(0.0f, 0.0f, 0.0f, 1.0f);
    qglClear(GL_COLOR_BUFFER_BIT);
    BTN_util_draw_panel(PANEL_SCREEN, 0, 0, DESIGN_W, DESIGN_H - 18.0f, "");
    MACIBM_draw_menus();
    BTN_util_draw_sprite(SHEET_POINTER, px - 7.0f, py - 18.0f, PAL_LIT);  // the tip at the pointer

    std::vector<uint8_t> rgb((size_t)SHOT_W * SHOT_H * 3);
    qglReadBuffer(GL_BACK);
    qglReadPixels(0, 0, SHOT_W, SHOT_H, GL_RGB, GL_UNSIGNED_BYTE, rgb.data());
    const bool ok = write_ppm(out, rgb);
    printf("%s %s: File menu open, %s\n", ok ? "wrote" : "could not write", out, language_folder_word(language));
    MACIBM_shutdown();
    return ok ? 0 : 1;
}
