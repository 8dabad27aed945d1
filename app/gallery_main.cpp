// vocalog-gallery: draws every face, bar, panel, lamp, knob and number form of the interface
// kit from the program folder's own bitmaps on a real context, and writes the frame as a PPM.
//   vocalog-gallery [program folder] [output.ppm]
#include <cstdio>
#include <cstring>
#include <string>

#include "base/shutdown.h"
#include "graphics/bitmap.h"
#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/palette_names.h"
#include "graphics/qgl.h"
#include "graphics/textures.h"
#include "kit/boxes.h"
#include "kit/font.h"
#include "platform/platform.h"
#include "shell/event_loop.h"
#include "util/folders.h"
#include "util/prefs.h"
#include "window/gl_caps.h"
#include "window/window.h"

namespace {

constexpr int W = 1024, H = 768;
uint8_t frame[W * H * 3];

// A 499-character paragraph in the manner of the briefing.
const char* paragraph() {
    static char text[500];
    const char* words =
        "Hello, this is a pilot in a Cessna 172 (N1234/A), flying from KSEA to KPDX: departure time 1400Z, "
        "time enroute 1:05, at 5,500 feet, and requesting a standard. At the departure airport the sky is "
        "broken at 2,500 feet, visibility 10 statute miles, temperature 12, dewpoint 8; wind 220 at 12 "
        "knots, gusting to 20, altimeter 29.92 - light rain showers to the south-west. ";
    for (int i = 0; i < 499; ++i) text[i] = words[i % strlen(words)];
    text[499] = 0;
    return text;
}

void faces() {
    static const int32_t sheet_faces[] = {FACE_PLAIN, FACE_MENU, FACE_LABEL, FACE_TIP, FACE_DIGIT_BOX, FACE_FIELD};
    const char* all = FACE_LAYOUT_CELLS[LAYOUT_TEXT];
    float y = 700;
    for (int32_t face : sheet_faces) {
        char name[8];
        snprintf(name, sizeof name, "%d", face);
        OGL_draw_string(PAL_WHITE, 20, y, name, FONT_NO_WRAP, FACE_LABEL);
        OGL_draw_string(face == FACE_FIELD || face == FACE_TIP ? PAL_GREEN : PAL_WHITE, 60, y, all, FONT_NO_WRAP, face);
        y -= 16;
    }
    if (OGL_tex_bytes[OGL_TEX_KOREAN]) {  // the two-byte face: its first glyphs, pair by pair
        char pairs[2 * 60 + 1] = {};
        for (int g = 0; g < 60; ++g) pairs[2 * g] = (char)(1 + g / 127), pairs[2 * g + 1] = (char)(1 + g % 127);
        OGL_draw_string(PAL_WHITE, 20, y, "102", FONT_NO_WRAP, FACE_LABEL);
        OGL_draw_string(PAL_WHITE, 60, y, pairs, FONT_NO_WRAP, FACE_KOREAN);
    }
}

void bars() {
    static const char* names[BAR_KINDS] = {"button", "lit", "spare", "field", "menu"};
    static const float rows[BAR_KINDS] = {570, 540, 510, 470, 425};
    for (int32_t kind = 0; kind < BAR_KINDS; ++kind) {
        BTN_util_draw_label(75, rows[kind], LABEL_RIGHT, names[kind]);
        const float widths[] = {40, 100, 220};
        float x = 85;
        for (float w : widths) {
            BTN_util_draw_bar(kind, x + w / 2, rows[kind], w);
            x += w + 12;
        }
    }
}

void panels() {
    static const char* titles[PANEL_STYLES] = {"Screen", "Knobs", "Inner", "Alert", "Plain", "List", ""};  // a tip's title sits at x 0
    for (int32_t style = 0; style < PANEL_STYLES; ++style) {
        const float x = 520 + (float)(style % 4) * 124, y = style < 4 ? 440 : 320;
        BTN_util_draw_panel(style, x, y, 110, 90, titles[style]);
        if (style == PANEL_TIP) OGL_draw_string(PAL_GREEN, x + 8, y + 60, "translucent tooltip box", 90, FACE_TIP);
    }
    // Knobs of a window-sized panel, lit; style 1 above drew the screen's own, unlit.
    panel_x = 892, panel_y = 320, panel_w = 110, panel_h = 90;
    BTN_util_draw_panel(PANEL_SCREEN, 0, 0, 110, 90, "Lit knobs");
    BTN_util_draw_corner_knobs(1);
    panel_x = panel_y = 0, panel_w = W, panel_h = H;
}

void numbers_lamps_labels() {
    const SheetBlock& lamp = BTN_sheet[SHEET_LAMP];
    const float lu = lamp.x + lamp.w / 2.0f, lv = lamp.y + lamp.h / 2.0f;
    for (int i = 0; i < 6; ++i) BTN_util_draw_lamp(540 + 24 * (float)i, 280, lu, lv, i % 2);
    BTN_util_draw_label(700, 280, LABEL_LEFT, "lamps off and lit");
    const struct { float value; int32_t digits, decimals, sign, face; const char* what; } rows[] = {
        {5000, 5, 0, 0, FACE_DIGIT_BOX, "5000 in 5"}, {12.5f, 4, 1, 0, FACE_FIELD, "12.5 in 4.1"},
        {123456, 5, 0, 0, FACE_FIELD, "123456 in 5"}, {-3, 3, 0, 1, FACE_FIELD, "-3 signed"},
        {1234567, 7, 0, 0, FACE_DIGIT_BOX, "1234567 in 7"}};
    float y = 245;
    for (const auto& r : rows) {
        OGL_draw_number(PAL_GREEN, 560, y, r.value, r.digits, r.decimals, r.sign, r.face);
        OGL_draw_string(PAL_WHITE, 700, y, r.what, FONT_NO_WRAP, FACE_LABEL);
        y -= 18;
    }
    BTN_util_draw_label(640, 130, LABEL_RIGHT, "Cruise altitude");
    BTN_util_draw_label(650, 130, LABEL_LEFT, "Departure airport/code");
    BTN_util_draw_label(560, 100, LABEL_LINE, "one line label");
}

void paragraph_box() {
    BTN_util_draw_panel(PANEL_INNER, 20, 60, 470, 320, "Briefing, wrapped at 440");
    OGL_draw_string(PAL_GREEN, 30, 345, paragraph(), 440, FACE_FIELD);
    OGL_draw_string(PAL_WHITE, 30, 150, "Line feeds:\nsecond line\n\nafter an empty one", 440, FACE_FIELD);
}

bool write_ppm(const char* path) {
    FILE* f = fopen(path, "wb");
    if (!f) return false;
    fprintf(f, "P6\n%d %d\n255\n", W, H);
    for (int row = H - 1; row >= 0; --row) fwrite(&frame[row * W * 3], 3, W, f);  // top row first
    return fclose(f) == 0;
}

int32_t load(const char* name, int32_t index) {
    int32_t w = 0, h = 0;
    return OGL_texbmp(-100, index, -106, name, &w, &h);
}

}  // namespace

int main(int argc, char** argv) {
    std::string folder = argc > 1 ? argv[1] : ".";
    if (folder.back() != '/') folder += '/';
    const char* out = argc > 2 ? argv[2] : "gallery.ppm";
    folders_fill(folder.c_str(), folder.c_str());
    OGL_default_palette();
    design_space_reset();
    full_screen = 0, disp_bits = 32.0f;
    window_set_proc(MACIBM_window_proc);
    if (MACIBM_open_window() == 0) {
        fprintf(stderr, "vocalog-gallery: no window or OpenGL context\n");
        return 1;
    }
    MACIBM_gl_checks();
    OGL_set_projection(2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
    if (!load("general_interface.bmp", OGL_TEX_SHEET)) {
        fprintf(stderr, "vocalog-gallery: no general_interface bitmap under %sResources/bitmaps/\n", folder.c_str());
        MACIBM_shutdown();
        return 1;
    }
    const std::string korean = std::string(folders.path[FOLDER_MENUS]) + "korean:menu_text.bmp";
    load(korean.c_str(), OGL_TEX_KOREAN);

    qglClearColor(0, 0, 0, 1);
    qglClear(GL_COLOR_BUFFER_BIT);
    BTN_util_draw_panel(PANEL_SCREEN_KNOBS, 0, 0, W, H, "Interface kit gallery");
    faces();
    bars();
    panels();
    numbers_lamps_labels();
    paragraph_box();
    qglFinish();
    qglReadBuffer(GL_BACK);
    qglReadPixels(0, 0, W, H, GL_RGB, GL_UNSIGNED_BYTE, frame);
    const bool ok = write_ppm(out);
    printf("%s %s\n", ok ? "gallery written to" : "cannot write", out);
    MACIBM_shutdown();
    return ok ? 0 : 1;
}
