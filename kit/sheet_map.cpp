// The interface sheet's blocks: positions, sizes and slice edges of every piece.
#include "kit/sheet_map.h"

namespace {

// A face's cells as two blocks: the rows it fills, then the cells of its last row.
constexpr SheetBlock font_rows(int32_t face, const char* name) {
    const FaceInfo& f = BTN_faces[face - FACE_FIRST];
    const int32_t rows = layout_cell_count(f.layout) / f.columns;
    return {int16_t(f.u), int16_t(f.v), int16_t(f.columns * f.w), int16_t(rows * f.h), 0, 0, 0, 0, name};
}
constexpr SheetBlock font_tail(int32_t face, const char* name) {
    const FaceInfo& f = BTN_faces[face - FACE_FIRST];
    const int32_t n = layout_cell_count(f.layout), rows = n / f.columns;
    return {int16_t(f.u), int16_t(f.v + rows * f.h), int16_t(n % f.columns * f.w), int16_t(f.h), 0, 0, 0, 0, name};
}

}  // namespace

const SheetBlock BTN_sheet[SHEET_COUNT] = {
    {0, 366, 128, 146, 30, 30, 30, 48, "panel style 0"},
    {0, 366, 128, 146, 30, 30, 30, 48, "panel style 1"},
    {128, 366, 128, 128, 30, 30, 30, 30, "panel style 2"},
    {128, 366, 128, 146, 30, 30, 30, 48, "panel style 3"},
    {256, 384, 128, 128, 30, 30, 30, 30, "panel style 4"},
    {384, 384, 128, 128, 30, 30, 30, 30, "panel style 5"},
    {0, 238, 128, 128, 30, 30, 30, 30, "panel style 6"},
    {420, 291, 45, 22, 11, 11, 0, 0, "push-button bar"},
    {420, 314, 45, 22, 11, 11, 0, 0, "lit push-button bar"},
    {327, 360, 45, 22, 11, 11, 0, 0, "spare bar"},
    {443, 336, 22, 46, 7, 7, 0, 0, "tall field bar"},
    {0, 494, 128, 18, 30, 30, 0, 0, "menu bar"},
    {396, 291, 22, 22, 0, 0, 0, 0, "corner knob"},
    {396, 314, 22, 22, 0, 0, 0, 0, "lit corner knob"},
    {488, 291, 22, 22, 0, 0, 0, 0, "lamp"},
    {488, 314, 22, 22, 0, 0, 0, 0, "lit lamp"},
    {487, 314, 8, 22, 0, 0, 0, 0, "progress glow 0"},
    {495, 314, 8, 22, 0, 0, 0, 0, "progress glow 1"},
    {503, 314, 8, 22, 0, 0, 0, 0, "progress glow 2"},
    {488, 337, 22, 22, 0, 0, 0, 0, "check box"},
    {488, 360, 22, 22, 0, 0, 0, 0, "check tick"},
    {419, 336, 22, 46, 0, 0, 0, 0, "digit box"},
    {181, 0, 329, 25, 0, 0, 0, 0, "file field"},
    {181, 25, 304, 265, 0, 0, 0, 0, "list box"},
    {484, 27, 28, 261, 0, 0, 30, 31, "scroll track"},
    {465, 291, 22, 22, 0, 0, 0, 0, "scroll thumb"},
    {465, 314, 22, 22, 0, 0, 0, 0, "lit scroll thumb"},
    {327, 337, 22, 22, 0, 0, 0, 0, "pointer"},
    {350, 337, 22, 22, 0, 0, 0, 0, "menu arrow"},
    {14, 371, 1, 1, 0, 0, 0, 0, "background colour"},
    font_rows(FACE_LABEL, "label font"),
    font_tail(FACE_LABEL, "label font, last row"),
    font_rows(FACE_TIP, "tooltip font"),
    font_tail(FACE_TIP, "tooltip font, last row"),
    font_rows(FACE_FIELD, "field font"),
    font_tail(FACE_FIELD, "field font, last row"),
};

int32_t sheet_font_block(int32_t face) {
    const FaceInfo* f = face_info(face);
    if (!f || f->texture != OGL_TEX_SHEET) return -1;
    for (int32_t b = SHEET_FONT_LABEL; b < SHEET_COUNT; b += 2)  // the rows blocks; each tail follows
        if (BTN_sheet[b].x == int16_t(f->u) && BTN_sheet[b].y == int16_t(f->v)) return b;
    return -1;
}
