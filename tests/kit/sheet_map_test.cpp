// The interface sheet's map and the face table: blocks fit the sheet, meet only where they
// share texels on purpose, and every face cell lies in its font block.
#include <gtest/gtest.h>

#include "kit/sheet_map.h"

namespace {

struct Box {
    int x0, y0, x1, y1;
    bool operator==(const Box&) const = default;
};
Box box(int32_t id) {
    const SheetBlock& b = BTN_sheet[id];
    return {b.x, b.y, b.x + b.w, b.y + b.h};
}
Box meet(Box a, Box b) { return {std::max(a.x0, b.x0), std::max(a.y0, b.y0), std::min(a.x1, b.x1), std::min(a.y1, b.y1)}; }
bool empty(Box m) { return m.x0 >= m.x1 || m.y0 >= m.y1; }

// The blocks that share texels: INSIDE, the first lies within the second; EDGE, one texel row
// or column; OVER, any overlap.
enum Share { INSIDE, EDGE, OVER };
const struct { int32_t a, b; Share how; } SHARED[] = {
    {SHEET_PANEL1, SHEET_PANEL0, INSIDE},    {SHEET_BAR4, SHEET_PANEL0, INSIDE},     {SHEET_BAR4, SHEET_PANEL1, INSIDE},
    {SHEET_BG_COLOR, SHEET_PANEL0, INSIDE},  {SHEET_BG_COLOR, SHEET_PANEL1, INSIDE}, {SHEET_PANEL2, SHEET_PANEL3, INSIDE},
    {SHEET_PROGRESS0, SHEET_LAMP_LIT, OVER}, {SHEET_PROGRESS1, SHEET_LAMP_LIT, INSIDE},
    {SHEET_PROGRESS2, SHEET_LAMP_LIT, OVER}, {SHEET_LIST_BOX, SHEET_SCROLL_TRACK, EDGE},
    {SHEET_LIST_BOX, SHEET_FONT_TIP, EDGE},  {SHEET_LIST_BOX, SHEET_FONT_FIELD, EDGE}};

}  // namespace

TEST(SheetMap, BlocksFitTheSheetAndMeetOnlyWhereTheyShare) {
    for (int32_t i = 0; i < SHEET_COUNT; ++i) {
        const SheetBlock& b = BTN_sheet[i];
        EXPECT_TRUE(b.w > 0 && b.h > 0 && b.x >= 0 && b.y >= 0 && b.x + b.w <= 512 && b.y + b.h <= 512) << b.name;
        EXPECT_TRUE((b.left + b.right < b.w || b.left + b.right == 0) && (b.bottom + b.top < b.h || b.bottom + b.top == 0))
            << b.name;
        for (int32_t j = i + 1; j < SHEET_COUNT; ++j) {
            const Box m = meet(box(i), box(j));
            bool ok = empty(m);  // unless the pair shares texels
            for (const auto& r : SHARED)
                if ((r.a == i && r.b == j) || (r.a == j && r.b == i))
                    ok = r.how == INSIDE ? m == box(r.a) : !empty(m) && (r.how == OVER || m.x1 - m.x0 == 1 || m.y1 - m.y0 == 1);
            EXPECT_TRUE(ok) << b.name << " / " << BTN_sheet[j].name;
        }
    }
}

// Each cell of a sheet face, placed as the glyph drawer places it, lies inside the face's blocks.
TEST(SheetMap, EveryCellOfASheetFaceLiesInItsFontBlocks) {
    for (int32_t face = FACE_FIRST; face < FACE_FIRST + FACE_COUNT; ++face) {
        const FaceInfo& f = *face_info(face);
        const int32_t rows = sheet_font_block(face);
        ASSERT_EQ(rows >= 0, f.texture == TEX_SHEET) << face;
        for (int32_t cell = 0; rows >= 0 && cell < layout_cell_count(f.layout); ++cell) {
            const int x = int(f.u) + cell % f.columns * f.w, y = int(f.v) + cell / f.columns * f.h;
            const Box c{x, y, x + f.w, y + f.h};
            EXPECT_TRUE(meet(c, box(rows)) == c || meet(c, box(rows + 1)) == c) << face << " cell " << cell;
        }
    }
    EXPECT_TRUE(face_info(FACE_FIRST - 1) == nullptr && face_info(FACE_FIRST + FACE_COUNT) == nullptr);
}
