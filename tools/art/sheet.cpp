// The interface sheet "general_interface": every block of the sheet map painted at its place.
// Pieces are drawn under white, so they keep their own colours; glyphs are white on magenta.
#include <cstring>

#include "kit/sheet_map.h"
#include "tools/art/art.h"
#include "tools/art/shapes.h"
#include "tools/art/type.h"

namespace art {
namespace {

// The look: dark slate panels, near-black wells for the green field text, blue for lit.
const Rgb BG = rgb(27, 34, 42);  // behind every screen; also the sheet's background-colour texel
const Rgb INK = rgb(8, 10, 13);
const Rgb FACE = rgb(50, 62, 74);     // the screen's backing panel
const Rgb FACE_UP = rgb(60, 74, 88);  // boxes raised on it
const Rgb RIM = rgb(84, 99, 114);     // bezels around lists and frames
const Rgb WELL = rgb(7, 15, 14);
const Rgb STEEL_HI = rgb(150, 164, 178), STEEL_LO = rgb(88, 102, 116);
const Rgb BUTTON_HI = rgb(108, 126, 145), BUTTON_LO = rgb(62, 76, 92);
const Rgb LIT_HI = rgb(98, 180, 252), LIT_LO = rgb(22, 92, 176);
const Rgb AMBER_HI = rgb(255, 196, 84), AMBER_LO = rgb(200, 110, 16);
const Rgb ARROW = rgb(214, 222, 230);
const Rgb WHITE = rgb(255, 255, 255);

Area area(Canvas& c, int32_t id) {
    const SheetBlock& b = BTN_sheet[id];
    return {c, b.x, b.y, b.w, b.h};
}
RRect whole(const Area& a, float r) { return {0, 0, float(a.w), float(a.h), r}; }
Plate flat(Rgb face, float bevel, float light) { return {face, face, INK, bevel, light}; }
Plate ramp(Rgb hi, Rgb lo, float bevel, float light) { return {hi, lo, INK, bevel, light}; }

// --- panels -------------------------------------------------------------------------------

// Style 0: a metal frame inset from the screen's edge, the face sunk into it; the top 18
// rows are the menu bar (painted with the bars).
void panel_screen(Canvas& c) {
    const Area a = area(c, SHEET_PANEL0);
    const int band = BTN_sheet[SHEET_BAR4].h;
    a.fill(0, 0, a.w, a.h - band, BG);
    plate(a, {6, 6, float(a.w - 6), float(a.h - band - 6), 2}, flat(RIM, 3, 0.35f));
    Plate face = flat(FACE, 2, -0.3f);
    face.grain = 1.5f;
    plate(a, {10, 10, float(a.w - 10), float(a.h - band - 10), 1}, face);
    const SheetBlock& t = BTN_sheet[SHEET_BG_COLOR];
    c.set(t.x, t.y, BG);
}

// Style 2: a raised box with square corners, so that style 3 can stack its title band on it.
void panel_box(Canvas& c) {
    const Area a = area(c, SHEET_PANEL2);
    Plate p = flat(FACE_UP, 2, 0.3f);
    p.grain = 1.5f;
    p.seed = 2;
    plate(a, whole(a, 0), p);
}

// Style 3: style 2 under a title band.
void panel_window(Canvas& c) {
    const SheetBlock& b = BTN_sheet[SHEET_PANEL3];
    const int below = BTN_sheet[SHEET_PANEL2].h;
    const Area band{c, b.x, b.y + below, b.w, b.h - below};
    plate(band, {0, -2, float(band.w), float(band.h), 0}, ramp(rgb(64, 104, 150), rgb(34, 62, 98), 1, 0.4f));
}

// Style 4: a riveted steel plate.
void panel_plate(Canvas& c) {
    const Area a = area(c, SHEET_PANEL4);
    Plate p = flat(rgb(78, 92, 106), 2, 0.35f);
    p.grain = 2.0f;
    p.seed = 4;
    plate(a, whole(a, 3), p);
    for (int x : {9, a.w - 12})
        for (int y : {9, a.h - 12}) plate({c, a.x + x, a.y + y, 3, 3}, {0, 0, 3, 3, 1.5f}, ramp(STEEL_HI, STEEL_LO, 1, 0.5f));
}

// Style 5: a sunken display well for green text.
void panel_well(Canvas& c) {
    const Area a = area(c, SHEET_PANEL5);
    Plate p = flat(WELL, 2, -0.55f);
    p.grain = 1.0f;
    p.seed = 5;
    plate(a, whole(a, 3), p);
}

// Style 6: the tooltip and progress box, drawn translucent.
void panel_tip(Canvas& c) {
    const Area a = area(c, SHEET_PANEL6);
    plate(a, whole(a, 4), {rgb(16, 25, 38), rgb(16, 25, 38), rgb(150, 176, 204), 1, 0.25f});
}

// --- bars ---------------------------------------------------------------------------------

void bar(Canvas& c, int32_t id, Rgb hi, Rgb lo) { plate(area(c, id), whole(area(c, id), 6), ramp(hi, lo, 2, 0.35f)); }

// The tall field: a text well 24 texels high in the middle of its 46 rows, which leaves room
// above and below for the digit boxes' steps and for the list box above a search field.
void bar_field(Canvas& c) {
    const Area a = area(c, SHEET_BAR3);
    a.clear();
    plate(a, {0, 11, float(a.w), 35, 5}, flat(WELL, 2, -0.55f));
}

void menu_bar(Canvas& c) {
    const Area a = area(c, SHEET_BAR4);
    for (int y = 0; y < a.h; ++y) a.fill(0, y, a.w, y + 1, mix(rgb(32, 40, 48), rgb(64, 77, 91), y / float(a.h - 1)));
    a.fill(0, 0, a.w, 1, INK);
    a.fill(0, a.h - 1, a.w, a.h, rgb(100, 116, 132));
}

// --- small sprites ------------------------------------------------------------------------

const char* const CROSS[] = {"#...#", ".#.#.", "..#..", ".#.#.", "#...#"};
const char* const UP[] = {"...#...", "..###..", ".#####.", "#######"};
const char* const DOWN[] = {"#######", ".#####.", "..###..", "...#..."};
const char* const UP_SMALL[] = {"..#..", ".###.", "#####"};
const char* const DOWN_SMALL[] = {"#####", ".###.", "..#.."};

void knob(Canvas& c, int32_t id, Rgb hi, Rgb lo, Rgb mark) {
    const Area a = area(c, id);
    a.clear();
    plate(a, {3, 3, 19, 19, 8}, ramp(hi, lo, 2, 0.4f));
    stamp(a, 9, 9, CROSS, 5, "#", &mark);
}

void lamp(Canvas& c) {
    const Area a = area(c, SHEET_LAMP);
    a.clear();
    plate(a, {7, 3, 15, 19, 1}, flat(rgb(26, 34, 42), 1, -0.4f));
}

// The progress row's glows: one lit segment each, blue, cyan, green from left to right.
void glow(Canvas& c, int32_t id, Rgb hi, Rgb lo) {
    const Area a = area(c, id);
    plate(a, {0, 3, float(a.w), 19, 1}, {hi, lo, scale(lo, 0.45f), 1, 0.45f});
}

void check_box(Canvas& c) {
    const Area a = area(c, SHEET_CHECK);
    a.clear();
    plate(a, {3, 3, 19, 19, 2}, flat(WELL, 2, -0.55f));
    const Area t = area(c, SHEET_CHECK_TICK);
    t.clear();
    const char* const tick[] = {
        "..........oo", ".........o##", "........o##o", "oo.....o##o.", "o#o...o##o..", "o##o.o##o...",
        ".o##o##o....", "..o###o.....", "...o#o......", "....o.......",
    };
    const Rgb ink[] = {rgb(120, 240, 130), rgb(16, 70, 26)};
    stamp(t, 5, 6, tick, 10, "#o", ink);
}

// One place of the boxed-digit field: a down step, the digit window, an up step, 10 texels
// wide so that boxes drawn 10 units apart line up like a counter.
void digit_box(Canvas& c) {
    const Area a = area(c, SHEET_DIGIT_BOX);
    a.clear();
    plate(a, {6, 2, 16, 15, 1}, ramp(BUTTON_HI, BUTTON_LO, 1, 0.35f));
    plate(a, {6, 32, 16, 45, 1}, ramp(BUTTON_HI, BUTTON_LO, 1, 0.35f));
    a.fill(6, 15, 16, 32, WELL);
    a.fill(6, 15, 7, 32, INK);
    a.fill(6, 15, 16, 16, INK);
    a.fill(6, 31, 16, 32, INK);
    stamp(a, 9, 7, DOWN_SMALL, 3, "#", &ARROW);
    stamp(a, 9, 37, UP_SMALL, 3, "#", &ARROW);
}

void file_field(Canvas& c) {
    const Area a = area(c, SHEET_FILE_FIELD);
    a.clear();
    plate(a, {0, 1, 22, 24, 3}, ramp(BUTTON_HI, BUTTON_LO, 2, 0.35f));
    plate(a, {24, 1, float(a.w), 24, 3}, flat(WELL, 2, -0.55f));
    const char* const folder[] = {
        "oooo........", "o##yo.......", "o###oooooooo", "o##########o", "o#yyyyyyyyyo",
        "o#yyyyyyyyyo", "o#yyyyyyyyyo", "o#yyyyyyyyyo", "oooooooooooo",
    };
    const Rgb ink[] = {rgb(250, 204, 90), rgb(60, 40, 8), rgb(232, 170, 50)};
    stamp(a, 5, 7, folder, 9, "#oy", ink);
}

void list_box(Canvas& c) {
    const Area a = area(c, SHEET_LIST_BOX);
    a.clear();
    const float top = float(a.h - 1);  // the top row is shared with the first font row: left clear
    plate(a, {0, 0, float(a.w), top, 3}, flat(RIM, 2, 0.3f));
    Plate well = flat(WELL, 2, -0.55f);
    well.grain = 1.0f;
    plate(a, {14, 16, 288, top - 16, 2}, well);
}

void scroll_track(Canvas& c) {
    const Area a = area(c, SHEET_SCROLL_TRACK);
    plate(a, whole(a, 0), flat(RIM, 2, 0.3f));
    plate(a, {9, 17, 19, float(a.h - 17), 3}, flat(WELL, 1, -0.5f));
    plate(a, {3, 2, 25, 15, 2}, ramp(BUTTON_HI, BUTTON_LO, 1, 0.35f));
    plate(a, {3, float(a.h - 15), 25, float(a.h - 2), 2}, ramp(BUTTON_HI, BUTTON_LO, 1, 0.35f));
    stamp(a, 11, 6, DOWN, 4, "#", &ARROW);
    stamp(a, 11, a.h - 11, UP, 4, "#", &ARROW);
}

void thumb(Canvas& c, int32_t id, Rgb hi, Rgb lo) {
    const Area a = area(c, id);
    a.clear();
    plate(a, {2, 2, 20, 20, 3}, ramp(hi, lo, 2, 0.4f));
    for (int y : {7, 10, 13}) {
        a.fill(7, y, 15, y + 1, scale(lo, 0.55f));
        a.fill(7, y + 1, 15, y + 2, shade(hi, 0.4f));
    }
}

void pointer(Canvas& c) {
    const Area a = area(c, SHEET_POINTER);
    a.clear();
    // The tip is the texel below and right of (7, 18): the pointer's hot spot.
    const char* const art[] = {
        "", "", "", "", ".......K", ".......KK", ".......KWK", ".......KWWK", ".......KWWWK",
        ".......KWWWWK", ".......KWWWWWK", ".......KWWWWWWK", ".......KWWWWWWWK", ".......KWWWWWWWWK",
        ".......KWWWWWKKKKK", ".......KWWKWWK", ".......KWK.KWWK", ".......KK..KWWK", ".......K....KWWK",
        "............KWWK", ".............KK", "",
    };
    const Rgb ink[] = {INK, WHITE};
    stamp(a, 0, 0, art, 22, "KW", ink);
}

void menu_arrow(Canvas& c) {
    const Area a = area(c, SHEET_MENU_ARROW);
    a.clear();
    const char* const art[] = {"#....", "##...", "###..", "####.", "#####", "####.", "###..", "##...", "#...."};
    stamp(a, 11, 7, art, 9, "#", &ARROW);
}

// --- fonts --------------------------------------------------------------------------------

// Each cell of a face: the glyph's baseline 3 rows above the cell's bottom; ink must keep off
// the cell's right column and bottom row so that no glyph touches a neighbour.
void font(Canvas& c, const Font& f, int32_t face) {
    const FaceInfo& info = *face_info(face);
    const char* cells = FACE_LAYOUT_CELLS[info.layout];
    for (int cell = 0; cells[cell]; ++cell) {
        const Glyph g = f.glyph((uint8_t)cells[cell]);
        const int cx = int(info.u) + cell % info.columns * info.w, cy = int(info.v) + cell / info.columns * info.h;
        for (int y = 0; y < g.h; ++y)
            for (int x = 0; x < g.w; ++x) {
                if (!g.ink(x, y)) continue;
                const int gx = g.left + x, gy = 3 + g.top - 1 - y;
                if (gx < 0 || gx >= info.w - 1 || gy < 1 || gy >= info.h)
                    fail(std::string("glyph '") + cells[cell] + "' does not fit its cell");
                c.set(cx + gx, cy + gy, WHITE);
            }
    }
}

// The painters in order: a piece painted later wins where blocks share texels.
using Painter = void (*)(Canvas&);
const Painter PIECES[] = {
    panel_screen, panel_box, panel_window, panel_plate, panel_well, panel_tip,
    [](Canvas& c) { bar(c, SHEET_BAR0, BUTTON_HI, BUTTON_LO); },
    [](Canvas& c) { bar(c, SHEET_BAR1, LIT_HI, LIT_LO); },
    [](Canvas& c) { bar(c, SHEET_BAR2, AMBER_HI, AMBER_LO); },
    bar_field, menu_bar,
    [](Canvas& c) { knob(c, SHEET_KNOB, STEEL_HI, STEEL_LO, rgb(40, 48, 56)); },
    [](Canvas& c) { knob(c, SHEET_KNOB_LIT, AMBER_HI, AMBER_LO, rgb(90, 40, 0)); },
    lamp,
    [](Canvas& c) { glow(c, SHEET_PROGRESS0, rgb(120, 176, 255), rgb(36, 96, 226)); },
    [](Canvas& c) { glow(c, SHEET_PROGRESS1, rgb(140, 246, 250), rgb(16, 168, 188)); },
    [](Canvas& c) { glow(c, SHEET_PROGRESS2, rgb(164, 255, 160), rgb(36, 186, 70)); },
    check_box, digit_box, file_field, list_box, scroll_track,
    [](Canvas& c) { thumb(c, SHEET_THUMB, STEEL_HI, STEEL_LO); },
    [](Canvas& c) { thumb(c, SHEET_THUMB_LIT, LIT_HI, LIT_LO); },
    pointer, menu_arrow,
};

}  // namespace

Canvas paint_sheet() {
    Canvas c(SHEET_TEXELS, SHEET_TEXELS, MAGENTA);
    for (Painter p : PIECES) p(c);
    const Font fixed(FONT_FIXED);
    for (int32_t face : {FACE_LABEL, FACE_TIP, FACE_FIELD}) font(c, fixed, face);
    return c;
}

}  // namespace art
