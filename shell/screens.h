// Screens: the current screen, its panel and background picture, and the opening of a screen.
#pragma once
#include <cstdint>

#include "util/text.h"
#include "window/screen_ids.h"

extern int32_t cur_screen;
extern Text panel_title;       // the current screen's panel title
extern float bg_color[3];      // the colour behind every screen: red, green, blue 0..255
extern int32_t screen_opened;  // 1 once any screen has been opened

// A screen's panel size (design units) and title entry (-1: no title).
struct ScreenPanel {
    float w, h;
    int32_t title;
};
ScreenPanel screen_panel(int32_t id);

// Makes `id` current: projection, panel centred in the design space (halves rounded away
// from zero), typed text emptied, menus closed, clicks forgotten, and the background image
// rebuilt (the intro picture on the intro screen) and cut into its tiles.
void MACIBM_open_screen(int32_t id);
// Cuts the 1024 x 768 background image into the twelve 256 x 256 tile textures 311..322.
void MACIBM_cut_background();

// The background image's tiles: tile (i across, j up) is texture BG_TILE_FIRST + 4 j + i.
constexpr int32_t BG_TILE_FIRST = 311;
constexpr int32_t BG_TILE = 256;
constexpr int32_t BG_TILES_X = 4, BG_TILES_Y = 3;

// The intro picture of a language (0..5), or null for any other value.
const char* screen_intro_picture(int32_t language);

void screens_reset();  // the intro screen, never opened, the default screen colour
