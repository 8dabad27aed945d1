// vocalog-widgets-demo: on the real context, a test screen holding every widget with an airport
// picker over the program folder's apt.dat (a code typed), a note alert, the language chooser
// and the progress screen mid-way, written side by side as one PNG.
//   vocalog-widgets-demo [OUT.png]   (run from anywhere: the program folder is its own)
#include <cstdio>
#include <cstring>
#include <initializer_list>

#include "app/png_file.h"
#include "base/alert.h"
#include "base/log.h"
#include "base/shutdown.h"
#include "briefing/airports.h"
#include "briefing/world.h"
#include "graphics/bitmap.h"
#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/qgl.h"
#include "kit/boxes.h"
#include "kit/list_picker.h"
#include "kit/widgets.h"
#include "platform/platform.h"
#include "shell/alert_window.h"
#include "shell/app_hooks.h"
#include "shell/event_loop.h"
#include "shell/screens.h"
#include "util/folders.h"
#include "util/prefs.h"
#include "window/gl_caps.h"
#include "window/input.h"
#include "window/window.h"

constexpr int W = 1024, H = 768, GAP = 8, SHOTS = 4;
static uint8_t shots[SHOTS][W * H * 3];
static int want_shot = -1;        // the shot the next presented frame is kept as
static bool close_after = false;  // after keeping it, press Return (closes an alert)

static int32_t swap_and_keep() {
    if (want_shot >= 0) {
        qglReadBuffer(GL_BACK);
        qglPixelStorei(GL_PACK_ALIGNMENT, 1);
        qglReadPixels(0, 0, W, H, GL_RGB, GL_UNSIGNED_BYTE, shots[want_shot]);
        want_shot = -1;
        if (close_after) plat_post_message(PlatMessage{PLAT_MSG_KEYDOWN, PLAT_VK_RETURN, 0, 0});
        close_after = false;
    }
    plat_gl_swap();
    return 1;
}

// ---- the test screen ----
static Text search;
static int32_t search_field = SEARCH_CODE, airport = 0, file_row = 3;
static int32_t runways_on = 1, metric_on = 0, flight_rules = 1;
static float altitude = 6500.0f, offset = -2.5f;
static Text aircraft_name = "C172SP.acf", aircraft_path = "Aircraft:C172SP.acf";

struct FileRow {
    const char* name;
    const char* tag;
};
static const FileRow file_rows[] = {{"..", "fold"},          {"Aircraft", "fold"},     {"Airfoils", "fold"},
                                    {"Baron58.acf", "file"}, {"C172SP.acf", "file"},   {"CitationCJ4.acf", "file"},
                                    {"KingAir350.acf", "file"}};
constexpr int32_t FILE_ROWS = (int32_t)(sizeof file_rows / sizeof file_rows[0]);
static char file_names[FILE_ROWS][LIST_NAME_SIZE], file_tags[FILE_ROWS][LIST_TAG_SIZE];

static void draw_test_screen() {
    BTN_util_draw_panel(PANEL_SCREEN, 0, 0, 1024, 748, "Widgets");
    BTN_util_draw_label(24, 525, LABEL_LINE, "Airports: the code KSFO typed");
    str_copy(ShellInput.typed_text, search);  // typing reaches the active picker through the screen
    BTN_list_picker(40, 380, apt_table.apt_name[0], apt_table.apt_code[0], &airport, 0, apt_table.airport_count, 0,
                    search, &search_field);
    str_copy(search, ShellInput.typed_text);
    BTN_util_draw_label(384, 525, LABEL_LINE, "Files: folders and files");
    int32_t no_field = -1;
    Text no_search = "";
    BTN_list_picker(400, 380, file_names[0], file_tags[0], &file_row, 0, FILE_ROWS - 1, SCREEN_FILE_OPEN, no_search,
                    &no_field);

    BTN_push_button(860, 650, 0, 1, "Brief");
    BTN_push_button(960, 650, 1, 0, "Lit button");
    BTN_check_button(770, 600, &metric_on, "|Metric units", "Shows heights in metres and distances in km.");
    BTN_check_button(770, 575, &runways_on, "|Show runways", "");
    static const char* const rules[3] = {"|VFR", "|MVFR", "|IFR"};
    for (int32_t k = 0; k < 3; ++k) BTN_choice_button(770, 520 - 20.0f * (float)k, &flight_rules, k, rules[k], "");
    BTN_number_field(66, 850, 420, &altitude, 5, 0, 0, "Cruise altitude|feet", "The planned cruise altitude.");
    BTN_number_field(66, 850, 360, &offset, 3, 1, 1, "Offset|deg", "");
    BTN_util_draw_label(40, 170, LABEL_LINE, "Aircraft file");
    BTN_file_button(67, 140, aircraft_name, aircraft_path, 3, "Pick the aircraft.");
}

static void pass_for(float seconds) {
    const float until = ShellInput.elapsed_secs + seconds;
    do MACIBM_event_pass();
    while (ShellInput.elapsed_secs < until);
}

static void post_key(uint32_t vk) { plat_post_message(PlatMessage{PLAT_MSG_KEYDOWN, vk, 0, 0}); }
static void post_pointer(float x, float y) {
    plat_post_message(PlatMessage{PLAT_MSG_MOUSEMOVE, 0, (intptr_t)(((uint32_t)(768 - y) << 16) | (uint32_t)x), 0});
}

static bool write_mosaic(const char* path) {
    const int mw = 2 * W + GAP, mh = 2 * H + GAP;
    static uint8_t mosaic[(2 * W + GAP) * (2 * H + GAP) * 3];
    memset(mosaic, 20, sizeof mosaic);
    for (int s = 0; s < SHOTS; ++s) {
        const int ox = (s % 2) * (W + GAP), oy = (s / 2) * (H + GAP);
        for (int y = 0; y < H; ++y)  // GL rows are bottom-up
            memcpy(&mosaic[((oy + y) * mw + ox) * 3], &shots[s][(H - 1 - y) * W * 3], W * 3);
    }
    return png_write_rgb(path, mw, mh, mosaic);
}

int main(int argc, char** argv) {
    const char* out = argc > 1 ? argv[1] : "widgets.png";
    MACIBM_log_open("Error.out");
    OGL_default_palette();
    if (!folders_init()) fprintf(stderr, "vocalog-widgets-demo: the program folder is not known\n");
    disp_width = (float)W, disp_height = (float)H, disp_bits = 32.0f, full_screen = 0, language = 0;
    design_space_fit();
    window_set_proc(MACIBM_window_proc);
    if (MACIBM_open_window() == 0) {
        fprintf(stderr, "vocalog-widgets-demo: no window or OpenGL context\n");
        return 1;
    }
    MACIBM_gl_checks();
    MACIBM_gl_multitexture();
    int32_t sw = 0, sh = 0;
    if (!OGL_texbmp(BMP_TEXTURE, 300, BMP_MAGENTA_CLEAR, "general_interface.bmp", &sw, &sh))
        fprintf(stderr, "vocalog-widgets-demo: no interface sheet in the bitmaps folder (run vocalog-gen-art)\n");
    bg_color[0] = 58, bg_color[1] = 74, bg_color[2] = 82;
    alert_window_install();
    gl_ready = 1;
    OGL_set_swap(swap_and_keep);
    MACIBM_open_screen(SCREEN_MAIN);
    brief_load_world();  // the airport table, with "Scanning airports." on the progress screen
    printf("%d airports\n", apt_table.airport_count + 1);
    for (int32_t i = 0; i < FILE_ROWS; ++i)
        str_copy(file_rows[i].name, file_names[i]), str_copy(file_rows[i].tag, file_tags[i]);

    app_set_hooks(draw_test_screen, nullptr, nullptr);
    post_pointer(400, 400);
    pass_for(0.2f);
    for (uint32_t vk : {'K', 'S', 'F', 'O', 'X'}) post_key(vk);  // cut to four in the code field
    post_pointer(770, 602);  // resting over a check button: its tooltip shows after a second
    pass_for(1.3f);
    want_shot = 0;
    MACIBM_event_pass();
    printf("picker at %s %s, search \"%s\"\n", apt_table.apt_code[airport], apt_table.apt_name[airport], search);

    want_shot = 1, close_after = true;
    MACIBM_alert(SCREEN_MAIN, "The weather file is older than a day.",
                 "Vocalog briefs from the reports it holds; download a fresh metar.rwx for current weather.",
                 "", "Press OK or Return to go on.", ALERT_NOTE);
    want_shot = 2, close_after = true;
    MACIBM_alert(SCREEN_MAIN, "", "", "", "", ALERT_LANGUAGE);

    for (int call = 0; call < 45; ++call) {  // one call per loaded item; no pass in between
        if (call == 44) want_shot = 3;
        MACIBM_progress("Reading the aircraft file Aircraft:C172SP.acf.");
    }
    const bool ok = write_mosaic(out);
    printf("%s %s\n", ok ? "written:" : "could not write", out);
    MACIBM_shutdown();
    return ok ? 0 : 1;
}
