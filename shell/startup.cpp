// Start-up: everything the program takes for granted before it loads its data.
#include "shell/startup.h"

#include "base/alert.h"
#include "base/log.h"
#include "base/shutdown.h"
#include "graphics/bitmap.h"
#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/textures.h"
#include "kit/faces.h"
#include "shell/alert_window.h"
#include "shell/event_loop.h"
#include "shell/app_hooks.h"
#include "shell/language.h"
#include "shell/menus.h"
#include "shell/text_table.h"
#include "shell/file_chooser.h"
#include "shell/screens.h"
#include "util/file_reader.h"
#include "util/folders.h"
#include "util/prefs.h"
#include "util/random.h"
#include "util/text.h"
#include "util/units.h"
#include "window/gl_caps.h"
#include "window/input.h"
#include "window/window.h"

int32_t startup_skip_random(double t) {
    int32_t drawn = 0;
    for (; t > 32000.0; t *= 0.5, ++drawn) rand_next();
    for (int32_t n = (int32_t)t % 100; n > 0; --n, ++drawn) rand_next();
    return drawn;
}

// The interface sheet's own background texel, as its reading left it in the staging buffer
// (row 371, column 14 of the 512-wide sheet at 4 bytes a texel).
static void take_bg_color() {
    constexpr int32_t BG_TEXEL_OFFSET = (371 * 512 + 14) * 4;
    for (int i = 0; i < 3; ++i) bg_color[i] = (float)OGL_pixbuf[BG_TEXEL_OFFSET + i];
}

static void clear_tables() {
    input_reset();
    screens_reset();
    text_table_reset();
    tex_reset();
    fio_reset();
}

void MACIBM_init() {
    clear_tables();
    startup_skip_random(clock_secs());
    MACIBM_log_open("Error.out");
    folders_init();
    units_init();
    OGL_default_palette();
    OGL_tint[0] = OGL_tint[1] = OGL_tint[2] = 1.0f;

    prefs_init(folders.path[FOLDER_LANG_RES_PREFS]);
    Text path;
    str_copy(folders.path[FOLDER_LANG_RES_PREFS], path);
    fio_prefs(PREF_LANG_RES, PREF_READ, path);
    design_space_fit();
    app_start_work();

    window_set_proc(MACIBM_window_proc);
    file_chooser_install();
    if (MACIBM_set_fullscreen(1) == 0 || MACIBM_open_window() == 0) MACIBM_graphics_failure();
    MACIBM_gl_checks();
    alert_window_install();
    gl_ready = 1;
    OGL_set_projection(2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
    MACIBM_gl_multitexture();
    OGL_texbmp(BMP_TEXTURE, TEX_SHEET, BMP_MAGENTA_CLEAR, "general_interface", nullptr, nullptr);
    take_bg_color();
    MACIBM_open_screen(SCREEN_INTRO);
    quit_requested = 0;
    if (language < 0) {  // a first start: English until the pilot picks another
        language = LANG_ENGLISH;
        MACIBM_alert(SCREEN_INTRO, "", "", "", "", ALERT_LANGUAGE);
    }
    MACIBM_load_text();
}
