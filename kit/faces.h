// The bitmap font faces 100..119: where each face's cells lie, their size, advance and layout.
#pragma once
#include <cstdint>

// Textures that faces are cut from. Only the first two are ever loaded by this program.
constexpr int32_t OGL_TEX_SHEET = 300;    // the interface sheet "general_interface"
constexpr int32_t OGL_TEX_KOREAN = 301;   // the two-byte glyph sheet "Korean:menu_text"
constexpr int32_t OGL_TEX_SHEET_B = 302;  // a second interface sheet (never loaded)
constexpr int32_t OGL_TEX_DIGITS = 304;   // a digits sheet (never loaded)
constexpr int32_t SHEET_TEXELS = 512;     // every font sheet is addressed as 512 x 512 texels

enum FaceId : int32_t {
    FACE_PLAIN = 100,           // interface sheet, advance 6 (no caller)
    FACE_MENU = 101,            // menu titles and items, advance 7
    FACE_KOREAN = 102,          // two-byte glyphs of the Korean glyph sheet
    FACE_LABEL = 103,           // labels and panel titles
    FACE_TIP = 104,             // tooltips, titles of panel style 5
    FACE_DIGIT_BOX = 105,       // the boxed-digit field: the tooltip cells at advance 10
    FACE_FIELD = 106,           // fields, lists, the briefing, alert lines
    FACE_B_TOP = 107,           // faces 107..119 lie on textures this program never loads
    FACE_B_MIDDLE = 108,
    FACE_B_LOW = 109,
    FACE_CLOCK_WIDE = 110,
    FACE_CLOCK_WIDE_LOW = 111,
    FACE_B_WIDE = 112,
    FACE_CLOCK = 113,
    FACE_CLOCK_LOW = 114,
    FACE_B_NARROW = 115,
    FACE_TEMPERATURE = 116,
    FACE_DIGITS_NARROW = 117,
    FACE_DIGITS_WIDE = 118,
    FACE_LARGE = 119,
};
constexpr int32_t FACE_FIRST = 100;
constexpr int32_t FACE_COUNT = 20;

// How a character code picks its cell.
enum FaceLayout : int32_t {
    LAYOUT_TEXT,         // digits, letters (A a B b ...), punctuation; cell 0 is the blank
    LAYOUT_CLOCK,        // 0..9 . _ - blank :
    LAYOUT_TEMPERATURE,  // 0..9 : C F -
    LAYOUT_DIGITS,       // 0..9 .
    LAYOUT_TWO_BYTE,     // the cell is the glyph number of a byte pair
    LAYOUT_COUNT,
};

// The characters of each layout's cells, in cell order (cell i shows string[i]); a code that
// is not in the string takes cell 0. The two-byte layout has no string: its cells are glyph
// numbers 0 .. FACE_GLYPHS - 1.
inline constexpr const char* FACE_LAYOUT_CELLS[LAYOUT_COUNT] = {
    " 0123456789AaBbCcDdEeFfGgHhIiJjKkLlMmNnOoPpQqRrSsTtUuVvWwXxYyZz!@#$%^&*()-_+=[]|\\':;<.>,?/`",
    "0123456789._- :",
    "0123456789:CF-",
    "0123456789.",
    nullptr,
};
constexpr int32_t FACE_GLYPHS = 1000;  // glyph numbers are at most three digits

struct FaceInfo {
    int32_t layout;      // FaceLayout
    int32_t texture;     // texture index the cells are cut from
    float u, v;          // sheet texel of cell 0's lower-left corner (rows counted from the bottom)
    int32_t w, h;        // cell size in texels, drawn as w x h units
    int32_t columns;     // cells per sheet row
    int32_t extra;       // units added to the drawn quad's width (the texture stays w wide)
    int32_t advance;     // pen step in units
};

// Indexed by face - FACE_FIRST.
inline constexpr FaceInfo BTN_faces[FACE_COUNT] = {
    {LAYOUT_TEXT, OGL_TEX_SHEET, 0, 175, 6, 11, 21, 0, 6},              // 100
    {LAYOUT_TEXT, OGL_TEX_SHEET, 0, 175, 6, 11, 21, 0, 7},              // 101
    {LAYOUT_TWO_BYTE, OGL_TEX_KOREAN, 0, 0, 13, 13, 40, 0, 14},         // 102
    {LAYOUT_TEXT, OGL_TEX_SHEET, 0, 175, 6, 11, 21, 0, 6},              // 103
    {LAYOUT_TEXT, OGL_TEX_SHEET, 134, 289, 6, 11, 21, 0, 6},            // 104
    {LAYOUT_TEXT, OGL_TEX_SHEET, 134, 289, 6, 11, 21, 0, 10},           // 105
    {LAYOUT_TEXT, OGL_TEX_SHEET, 265, 289, 6, 11, 21, 0, 6},            // 106
    {LAYOUT_TEXT, OGL_TEX_SHEET_B, 1, 450, 6, 11, 21, 0, 6},            // 107
    {LAYOUT_TEXT, OGL_TEX_SHEET_B, 1, 387, 6, 11, 21, 0, 6},            // 108
    {LAYOUT_TEXT, OGL_TEX_SHEET_B, 1, 324, 6, 11, 21, 0, 6},            // 109
    {LAYOUT_CLOCK, OGL_TEX_SHEET_B, 1, 178, 6, 11, 21, 0, 10},          // 110
    {LAYOUT_CLOCK, OGL_TEX_SHEET_B, 1, 158, 6, 11, 21, 0, 10},          // 111
    {LAYOUT_TEXT, OGL_TEX_SHEET_B, 1, 261, 6, 11, 21, 0, 10},           // 112
    {LAYOUT_CLOCK, OGL_TEX_SHEET_B, 1, 178, 6, 11, 21, 0, 6},           // 113
    {LAYOUT_CLOCK, OGL_TEX_SHEET_B, 1, 158, 6, 11, 21, 0, 6},           // 114
    {LAYOUT_TEXT, OGL_TEX_SHEET_B, 1, 261, 6, 11, 21, 0, 6},            // 115
    {LAYOUT_TEMPERATURE, OGL_TEX_SHEET_B, 1, 138, 6, 11, 21, 0, 6},     // 116
    {LAYOUT_DIGITS, OGL_TEX_DIGITS, 25.5f, 148, 6, 11, 21, -1, 6},      // 117
    {LAYOUT_DIGITS, OGL_TEX_DIGITS, 25.5f, 130, 6, 11, 21, 1, 6},       // 118
    {LAYOUT_TEXT, OGL_TEX_SHEET_B, 0, 0, 12, 22, 21, 0, 12},            // 119
};

// The face's entry, or nullptr for a code outside 100..119 (such a face draws nothing).
const FaceInfo* face_info(int32_t face);

// Number of cells a layout uses (cells 0 .. count - 1).
constexpr int32_t layout_cell_count(int32_t layout) {
    const char* s = FACE_LAYOUT_CELLS[layout];
    if (!s) return FACE_GLYPHS;
    int32_t n = 0;
    while (s[n]) ++n;
    return n;
}
