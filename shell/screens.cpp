// Screens: the panel table, opening a screen, and the background image and its tiles.
#include "shell/screens.h"

#include <cstring>

#include "graphics/bitmap.h"
#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/primitives.h"
#include "graphics/qgl.h"
#include "graphics/textures.h"
#include "shell/menus.h"
#include "shell/shell_text.h"
#include "util/prefs.h"
#include "window/input.h"

int32_t cur_screen = SCREEN_INTRO;
Text panel_title;
float bg_color[3];
int32_t screen_opened = 0;

// The tile buffer follows the background image in the staging buffer.
static uint8_t* const bg_image = OGL_pixbuf;
static uint8_t* const bg_tile = OGL_pixbuf + COMPOSE_W * COMPOSE_H * 4;

void screens_reset() {
    cur_screen = SCREEN_INTRO;
    screen_opened = 0;
    panel_title[0] = 0;
    bg_color[0] = bg_color[1] = bg_color[2] = 0.0f;
}

ScreenPanel screen_panel(int32_t id) {
    switch (id) {
    case SCREEN_ALERT: return {400.0f, 220.0f, TEXT_ALERT_TITLE};
    case SCREEN_DIALOG: return {300.0f, 125.0f, TEXT_DIALOG_TITLE};
    case SCREEN_FILE_OPEN: return {350.0f, 457.0f, TEXT_DIALOG_TITLE};
    case SCREEN_FILE_SAVE: return {353.0f, 457.0f, TEXT_DIALOG_TITLE};
    default: return {disp_width, disp_height, -1};  // the intro, main and application screens
    }
}

const char* screen_intro_picture(int32_t lang) {
    // Named with their extension: the generated files are lower case, and file names are
    // not case-blind everywhere.
    static const char* const pictures[6] = {"intro:english.bmp", "intro:french.bmp",  "intro:german.bmp",
                                            "intro:italian.bmp", "intro:spanish.bmp", "intro:korean.bmp"};
    return lang >= 0 && lang < 6 ? pictures[lang] : nullptr;
}

// The panel's corner along one axis: centred, rounded, and never off the low edge.
static float centred(float design, float size) {
    float v = (float)ogl_round((design - size) / 2.0f);
    return v < 0.0f ? 0.0f : v > 99999.9f ? 99999.9f : v;
}

static void compose_background(int32_t id) {
    bg_compose = 1;
    uint8_t px[4] = {(uint8_t)bg_color[0], (uint8_t)bg_color[1], (uint8_t)bg_color[2], 255};
    for (int32_t i = 0; i < COMPOSE_W * COMPOSE_H; ++i) memcpy(bg_image + 4 * i, px, 4);
    const char* intro = id == SCREEN_INTRO ? screen_intro_picture(language) : nullptr;
    int32_t w = 0, h = 0;
    if (intro) OGL_texbmp(BMP_COMPOSE, 0, BMP_RGB, intro, &w, &h);
    bg_compose = 0;
}

void MACIBM_open_screen(int32_t id) {
    screen_opened = 1;
    OGL_set_projection(2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
    const ScreenPanel p = screen_panel(id);
    panel_w = p.w;
    panel_h = p.h;
    str_copy(p.title >= 0 ? shell_text(p.title) : "", panel_title);
    ShellInput.typed_text[0] = 0;
    open_menu = -1;
    cur_screen = id;
    panel_x = centred(DESIGN_W, panel_w);
    panel_y = centred(DESIGN_H, panel_h);
    ShellInput.mouse_clicked = 0;
    ShellInput.mouse_down = 0;
    compose_background(id);
    MACIBM_cut_background();
}

void MACIBM_cut_background() {
    for (int32_t i = 0; i < BG_TILES_X; ++i)
        for (int32_t j = 0; j < BG_TILES_Y; ++j) {
            for (int32_t v = 0; v < BG_TILE; ++v)
                memcpy(bg_tile + v * BG_TILE * 4, bg_image + ((BG_TILE * j + v) * COMPOSE_W + BG_TILE * i) * 4,
                       BG_TILE * 4);
            OGL_load_tex("background texture", BG_TILE_FIRST + 4 * j + i, 0, GL_RGBA, BG_TILE, BG_TILE, bg_tile);
            qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
            qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
        }
}
