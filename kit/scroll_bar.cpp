// The scroll bar: track slices, thumb position, step ends and dragging.
#include "graphics/palette_names.h"
#include "kit/boxes.h"
#include "kit/hit.h"
#include "kit/scroll_bar.h"

// The track strip stretched over y_bottom .. y_top: a cap at each end and middle pieces of the
// strip's middle rows repeated between them, the last one cut at the top cap.
static void draw_track(float x, float y_bottom, float y_top) {
    const SheetBlock& s = BTN_sheet[SHEET_SCROLL_TRACK];
    const float len = y_top - y_bottom, mid = (float)s.h - 2.0f * SCROLL_CAP;  // 201 rows between caps
    const float mid_rows = (float)(s.h - s.top - s.bottom);                   // 200 of them are drawn
    const int32_t n = (int32_t)((len - 2.0f * SCROLL_CAP) / mid);
    const float u0 = (float)s.x, u1 = (float)(s.x + s.w);
    auto piece = [&](float p0, float p1, float r0, float r1) {
        BTN_util_draw_piece(x - 14.0f, y_bottom + p0, x + 14.0f, y_bottom + p1, u0, (float)s.y + r0, u1,
                            (float)s.y + r1, PAL_WHITE, 1.0f, 0);
    };
    piece(0.0f, SCROLL_CAP, 0.0f, (float)s.bottom - 1.0f);
    for (int32_t i = 0; i <= n; ++i) {
        float p0 = SCROLL_CAP + mid * (float)i, p1 = SCROLL_CAP + mid * (float)(i + 1);
        float r1 = (float)s.bottom + mid_rows;
        if (p1 > len - SCROLL_CAP) {
            p1 = len - SCROLL_CAP;
            r1 = (float)s.bottom + (p1 - p0) * mid_rows / (mid + SCROLL_CAP);
            if (r1 < (float)s.bottom) r1 = (float)s.bottom;
            if (r1 > (float)s.bottom + mid_rows) r1 = (float)s.bottom + mid_rows;
        }
        piece(p0, p1, (float)s.bottom, r1);
    }
    piece(len - SCROLL_CAP, len, (float)(s.h - s.top), (float)s.h);
}

float BTN_scroll_thumb_y(float y_bottom, float y_top, int32_t first, int32_t last, int32_t value) {
    const float top = y_top - SCROLL_THUMB_INSET, bottom = y_bottom + SCROLL_THUMB_INSET;
    if (last == first) return (top + bottom) / 2.0f;
    float ty = top + (float)(value - first) * (bottom - top) / (float)(last - first);
    const float lo = bottom < top ? bottom : top, hi = bottom < top ? top : bottom;
    return ty < lo ? lo : ty > hi ? hi : ty;
}

int32_t BTN_scroll_bar(float x, float y_bottom, float y_top, int32_t first, int32_t last, int32_t* value) {
    draw_track(x, y_bottom, y_top);
    const float ty = BTN_scroll_thumb_y(y_bottom, y_top, first, last, *value);
    const float top = y_top - SCROLL_THUMB_INSET, bottom = y_bottom + SCROLL_THUMB_INSET;

    int32_t dragged = 0;
    if (BTN_within(ShellInput.mouse_x, x - SCROLL_HALF_W, x + SCROLL_HALF_W)) {
        const float my = ShellInput.mouse_y;
        if (ShellInput.mouse_clicked && BTN_within(my, y_top - SCROLL_STEP_END, y_top)) *value -= 1;
        if (ShellInput.mouse_clicked && BTN_within(my, y_bottom, y_bottom + SCROLL_STEP_END)) *value += 1;
        if (ShellInput.mouse_down && BTN_within(my, y_bottom + SCROLL_STEP_END, y_top - SCROLL_STEP_END)) {
            if (top == bottom) {
                *value = (first + last) / 2;
            } else {
                float v = (float)first + (my - top) * (float)(last - first) / (bottom - top);
                if (v < (float)first) v = (float)first;
                if (v > (float)last) v = (float)last;
                *value = (int32_t)v;
            }
            dragged = 1;
        }
    }
    if (*value < first) *value = first;
    if (*value > last) *value = last;

    const SheetBlock& thumb = BTN_sheet[SHEET_THUMB];
    const float tx = x - (float)thumb.w / 2.0f, tb = ty - (float)thumb.h / 2.0f;
    BTN_util_draw_sprite(SHEET_THUMB, tx, tb, PAL_WHITE);
    if (dragged) BTN_util_draw_sprite(SHEET_THUMB_LIT, tx, tb, PAL_LIT);
    return dragged;
}
