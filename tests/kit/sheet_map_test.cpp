// The interface sheet's map and the face table: blocks fit the sheet, meet only where they
// share texels on purpose, and every face cell lies in its font block.
#include <gtest/gtest.h>

#include <cstring>

#include "kit/sheet_map.h"

namespace {

struct Box {
    int x0, y0, x1, y1;
};
Box box(int32_t id) {
    const SheetBlock& b = BTN_sheet[id];
    return {b.x, b.y, b.x + b.w, b.y + b.h};
}
Box meet(Box a, Box b) {
    return {std::max(a.x0, b.x0), std::max(a.y0, b.y0), std::min(a.x1, b.x1), std::min(a.y1, b.y1)};
}
bool empty(Box m) { return m.x0 >= m.x1 || m.y0 >= m.y1; }
bool same(Box a, Box b) { return a.x0 == b.x0 && a.y0 == b.y0 && a.x1 == b.x1 && a.y1 == b.y1; }

// INSIDE: the first lies within the second; EDGE: they share one texel row or column; OVER: any overlap.
enum Share { INSIDE, EDGE, OVER };
struct Allowed {
    int32_t a, b;
    Share how;
};
const Allowed ALLOWED[] = {
    {SHEET_PANEL1, SHEET_PANEL0, INSIDE},      {SHEET_BAR4, SHEET_PANEL0, INSIDE},
    {SHEET_BAR4, SHEET_PANEL1, INSIDE},        {SHEET_BG_COLOR, SHEET_PANEL0, INSIDE},
    {SHEET_BG_COLOR, SHEET_PANEL1, INSIDE},    {SHEET_PANEL2, SHEET_PANEL3, INSIDE},
    {SHEET_PROGRESS0, SHEET_LAMP_LIT, OVER},   {SHEET_PROGRESS1, SHEET_LAMP_LIT, INSIDE},
    {SHEET_PROGRESS2, SHEET_LAMP_LIT, OVER},   {SHEET_LIST_BOX, SHEET_SCROLL_TRACK, EDGE},
    {SHEET_LIST_BOX, SHEET_FONT_TIP, EDGE},    {SHEET_LIST_BOX, SHEET_FONT_FIELD, EDGE},
};

}  // namespace

TEST(SheetMap, BlocksFitTheSheetAndMeetOnlyWhereTheyShare) {
    for (int32_t i = 0; i < SHEET_COUNT; ++i) {
        const SheetBlock& b = BTN_sheet[i];
        EXPECT_TRUE(b.w > 0 && b.h > 0 && b.x >= 0 && b.y >= 0 && b.x + b.w <= 512 && b.y + b.h <= 512) << b.name;
        EXPECT_TRUE(b.left + b.right < b.w || b.left + b.right == 0) << b.name;
        EXPECT_TRUE(b.bottom + b.top < b.h || b.bottom + b.top == 0) << b.name;
        for (int32_t j = i + 1; j < SHEET_COUNT; ++j) {
            const Box m = meet(box(i), box(j));
            const Allowed* rule = nullptr;
            for (const Allowed& r : ALLOWED)
                if ((r.a == i && r.b == j) || (r.a == j && r.b == i)) rule = &r;
            if (!rule) {
                EXPECT_TRUE(empty(m)) << b.name << " overlaps " << BTN_sheet[j].name;
            } else if (rule->how == INSIDE) {
                EXPECT_TRUE(same(m, box(rule->a))) << BTN_sheet[rule->a].name << " not inside " << BTN_sheet[rule->b].name;
            } else {
                EXPECT_TRUE(!empty(m) && (rule->how == OVER || m.x1 - m.x0 == 1 || m.y1 - m.y0 == 1)) << b.name << " / " << BTN_sheet[j].name;
            }
        }
    }
}

// Each cell of a sheet face, placed as the glyph drawer places it, lies inside the face's blocks.
TEST(SheetMap, EveryCellOfASheetFaceLiesInItsFontBlocks) {
    int32_t on_sheet = 0;
    for (int32_t face = FACE_FIRST; face < FACE_FIRST + FACE_COUNT; ++face) {
        const FaceInfo& f = *face_info(face);
        const int32_t rows = sheet_font_block(face);
        ASSERT_EQ(rows >= 0, f.texture == OGL_TEX_SHEET) << face;
        if (rows < 0) continue;
        ++on_sheet;
        for (int32_t cell = 0; cell < layout_cell_count(f.layout); ++cell) {
            const int x = int(f.u) + cell % f.columns * f.w, y = int(f.v) + cell / f.columns * f.h;
            const Box c{x, y, x + f.w, y + f.h};
            EXPECT_TRUE(same(meet(c, box(rows)), c) || same(meet(c, box(rows + 1)), c)) << face << " cell " << cell;
        }
    }
    EXPECT_EQ(on_sheet, 6);  // 100, 101, 103 .. 106
    EXPECT_EQ(face_info(99), nullptr);
    EXPECT_EQ(face_info(120), nullptr);
}

TEST(SheetMap, LayoutsPutEachCharacterInItsCell) {
    struct Row {
        int32_t layout;
        char c;
        int32_t cell;
    } rows[] = {{LAYOUT_TEXT, ' ', 0},  {LAYOUT_TEXT, '0', 1},  {LAYOUT_TEXT, '9', 10},  {LAYOUT_TEXT, 'A', 11},
                {LAYOUT_TEXT, 'a', 12}, {LAYOUT_TEXT, 'Q', 43}, {LAYOUT_TEXT, 'z', 62},  {LAYOUT_TEXT, '!', 63},
                {LAYOUT_TEXT, '@', 64}, {LAYOUT_TEXT, '-', 73}, {LAYOUT_TEXT, '\\', 80}, {LAYOUT_TEXT, ':', 82},
                {LAYOUT_TEXT, '<', 84}, {LAYOUT_TEXT, ',', 87}, {LAYOUT_TEXT, '`', 90},  {LAYOUT_TEXT, '"', -1},
                {LAYOUT_TEXT, '~', -1}, {LAYOUT_CLOCK, ' ', 13}, {LAYOUT_CLOCK, ':', 14}, {LAYOUT_TEMPERATURE, 'F', 12},
                {LAYOUT_TEMPERATURE, '-', 13}, {LAYOUT_DIGITS, '.', 10}};
    for (const Row& r : rows) {
        const char* s = FACE_LAYOUT_CELLS[r.layout];
        const char* at = strchr(s, r.c);
        EXPECT_EQ(at ? int32_t(at - s) : -1, r.cell) << r.layout << " '" << r.c << "'";
    }
    EXPECT_EQ(layout_cell_count(LAYOUT_TWO_BYTE), 1000);
    // Face 106's Q: column 1, row 2 of its cells.
    const FaceInfo& f = *face_info(FACE_FIELD);
    EXPECT_EQ(f.u + 43 % f.columns * f.w, 271);
    EXPECT_EQ(f.v + 43 / f.columns * f.h, 311);
}
