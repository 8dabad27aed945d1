// The display-mode switch, the window and its context, the graphics failure and the release.
#include "window/window.h"

#include <cstdio>

#include "graphics/gl_state.h"
#include "graphics/qgl.h"
#include "platform/platform.h"
#include "base/alert.h"
#include "util/folders.h"
#include "base/shutdown.h"
#include "util/prefs.h"
#include "util/text.h"

int32_t window_created = 0;

void window_reset() { window_created = 0; }

int32_t window_mode_fits(const PlatDisplayMode* mode) {
    const uint32_t needed = PLAT_MODE_WIDTH | PLAT_MODE_HEIGHT | PLAT_MODE_BITS;
    return (mode->fields & needed) == needed && (float)mode->width == disp_width &&
           (float)mode->height == disp_height && (float)mode->bits == disp_bits;
}

int32_t MACIBM_set_fullscreen(int32_t on) {
    if (full_screen == 0) return 1;
    if (on == 0) {
        plat_display_restore();
        return 1;
    }
    shutdown_set_step(SHUTDOWN_DISPLAY, display_release);
    PlatDisplayMode mode{};
    for (int32_t i = 0; plat_display_mode(i, &mode); ++i)
        if (window_mode_fits(&mode)) return plat_display_switch(&mode) ? 1 : 0;  // the first one only
    return 1;
}

static int32_t swap_frame() {
    plat_gl_swap();
    return 1;
}

static WindowProcFn window_proc = nullptr;

void window_set_proc(WindowProcFn proc) { window_proc = proc; }

int32_t MACIBM_open_window() {
    if (!plat_window_create((int32_t)disp_width, (int32_t)disp_height, (int32_t)disp_bits & 0xFF)) return 0;
    shutdown_set_step(SHUTDOWN_DISPLAY, display_release);
    shutdown_set_step(SHUTDOWN_WINDOW, window_release);
    PlatMessage msg;
    while (window_created == 0 && plat_peek_message(&msg))
        if (window_proc) window_proc(plat_window_handle(), msg.message, msg.wparam, msg.lparam);
    if (window_created == 0) return 0;
    plat_window_show();
    if (!plat_gl_create_context()) return 0;
    if (qgl_load(plat_gl_proc) != 0) {
        for (int i = 0; qgl_missing(i); ++i) fprintf(stderr, "OpenGL entry point missing: %s\n", qgl_missing(i));
        return 0;
    }
    plat_gl_swap_interval(1);  // where refused, the event pass keeps its own pace
    OGL_set_swap(swap_frame);
    return 1;
}

void display_release() { MACIBM_set_fullscreen(0); }

void window_release() {
    OGL_set_swap(nullptr);
    plat_window_close();
}

void MACIBM_graphics_failure() {
    Text path;
    str_copy(folders.path[FOLDER_LANG_RES_PREFS], path);
    fio_save(path, FILE_TYPE_PREFS, -999);
    out_close(&fio_out);
    // The shut-down must not write the preferences over the reset file: only the display
    // and window releases stay.
    shutdown_set_step(SHUTDOWN_PREFS, nullptr);
    MACIBM_fatal("I could not set up the graphics for Zephyra! I hope your monitor is at 1024x768 or higher! It must "
                 "be!",
                 "You do not meet the system requirements or you do not have OpenGL drivers or you entered a bad "
                 "resolution in Zephyra!",
                 "You need at least 256 meg of RAM, 16 meg of VRAM, and OpenGl drivers for your 3-D accelerator card!",
                 "If you reset the resolution, you can try launching Zephyra again, since I am resetting Zephyra to "
                 "default resolution now.");
}
