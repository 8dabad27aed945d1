// vocalog-chooser-check: an aircraft file button on a screen of its own, with the file chooser
// behind it, started like the program (its own folder is the program folder) for the X input
// test. It prints what the test checks: "ready", each screen and chooser folder it shows, and
// the button's name and path after every press; with a shot path it writes the chooser's
// first view as a PPM. Ends when "." is typed on its screen or the time is up.
//   vocalog-chooser-check SECONDS [shot.ppm]
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "base/shutdown.h"
#include "graphics/bitmap.h"
#include "graphics/gl_state.h"
#include "graphics/palette_names.h"
#include "graphics/qgl.h"
#include "graphics/textures.h"
#include "kit/boxes.h"
#include "kit/font.h"
#include "kit/widgets.h"
#include "platform/platform.h"
#include "shell/app_hooks.h"
#include "shell/event_loop.h"
#include "shell/screens.h"
#include "shell/startup.h"
#include "util/file_types.h"
#include "util/folder_list.h"
#include "window/input.h"

constexpr int W = 1024, H = 768;
constexpr float BUTTON_X = 300.0f, BUTTON_Y = 400.0f;  // where the aircraft's name is written
constexpr int SHOT_FRAME = 8;                           // frames into the first chooser view

static Text name = "untitled.acf", path = "";
static const char* shot_path = nullptr;
static uint8_t shot[W * H * 3];

static void draw() {
    BTN_util_draw_label(BUTTON_X - 40.0f, BUTTON_Y, LABEL_RIGHT, "Aircraft");
    if (BTN_file_button(BUTTON_X, BUTTON_Y, name, path, FILE_TYPE_AIRCRAFT, "Choose the aircraft file")) {
        printf("button %s|%s\n", name, path);
        fflush(stdout);
    }
}

static void write_shot() {
    qglReadBuffer(GL_BACK);
    qglReadPixels(0, 0, W, H, GL_RGB, GL_UNSIGNED_BYTE, shot);
    FILE* f = fopen(shot_path, "wb");
    if (!f) return;
    fprintf(f, "P6\n%d %d\n255\n", W, H);
    for (int row = H - 1; row >= 0; --row) fwrite(&shot[row * W * 3], 3, W, f);  // top row first
    fclose(f);
    printf("shot %s\n", shot_path);
}

// Every frame: report a new screen or chooser folder, take the shot once, then present.
static int32_t echo_and_swap() {
    static int32_t screen = SCREEN_MAIN, chooser_frames = 0;  // the screen the program starts on
    static Text folder = "";
    if (cur_screen != screen) printf("screen %d\n", screen = cur_screen);
    if (cur_screen == SCREEN_FILE_OPEN && strcmp(folder, work_folder()) != 0)
        printf("folder %s\n", strcpy(folder, work_folder()));
    if (cur_screen == SCREEN_FILE_OPEN && ++chooser_frames == SHOT_FRAME && shot_path) write_shot();
    fflush(stdout);
    plat_gl_swap();
    return 1;
}

int main(int argc, char** argv) {
    const float seconds = argc > 1 ? (float)atof(argv[1]) : 30.0f;
    shot_path = argc > 2 ? argv[2] : nullptr;
    if (!plat_display_present()) {
        fprintf(stderr, "vocalog-chooser-check: no display\n");
        return 1;
    }
    MACIBM_init();
    app_set_hooks(draw, nullptr, nullptr);
    OGL_set_swap(echo_and_swap);
    cur_screen = SCREEN_MAIN;
    while (!event_loop_painted()) MACIBM_event_pass();
    printf("ready %s\n", folders.path[FOLDER_PROGRAM]);
    fflush(stdout);
    const uint32_t start = plat_ticks_ms();
    while (!strchr(ShellInput.typed_text, '.') && !quit_requested && plat_ticks_ms() - start < seconds * 1000.0f)
        MACIBM_event_pass();
    MACIBM_shutdown();
    return 0;
}
