// Interface pieces cut from the interface sheet: labels, lamps, stretchable bars, nine-slice
// panels and the screen panel's corner knobs.
#include "kit/boxes.h"

#include <cstdlib>
#include <cstring>
#include <initializer_list>

#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/palette_names.h"
#include "graphics/primitives.h"
#include "kit/font.h"
#include "util/text.h"

namespace {

constexpr float SHEET_F = (float)SHEET_TEXELS;
constexpr float HALF_LAMP = LAMP_SIZE / 2;
constexpr float LABEL_LINE_GAP = 10.0f;  // a split label's lines: y + 5 and y - 5
constexpr float KNOB_INSET = 15.0f;      // knob centres: this far in from the panel's sides ...
constexpr float KNOB_DROP = 9.0f;        // ... and this far below its top
constexpr float PANEL_GROW = 8.0f;       // styles drawn wider and lower grow by this
constexpr float TITLE_INSET = 6.0f;      // left-placed titles start this far in
constexpr float TITLE_DROP = 12.0f;      // titles sit this far below the panel's top
constexpr float TIP_ALPHA = 0.9f;
constexpr float TITLE_HALF_ADVANCE = 3.0f;  // centred titles: half the label face's advance per character

// How each panel style places its title and whether it grows, blends and which face it titles in.
enum TitlePlace { TITLE_CENTRED, TITLE_INSET_X, TITLE_AT_ZERO };
struct PanelLook {
    TitlePlace title;
    bool grows, translucent;
    int32_t face, color;
};
constexpr PanelLook PANEL_LOOK[PANEL_STYLES] = {
    {TITLE_CENTRED, false, false, FACE_LABEL, PAL_WHITE},  {TITLE_CENTRED, false, false, FACE_LABEL, PAL_WHITE},
    {TITLE_INSET_X, true, false, FACE_LABEL, PAL_WHITE},   {TITLE_CENTRED, true, false, FACE_LABEL, PAL_WHITE},
    {TITLE_INSET_X, false, false, FACE_LABEL, PAL_WHITE},  {TITLE_INSET_X, true, false, FACE_TIP, PAL_GREEN},
    {TITLE_AT_ZERO, false, true, FACE_LABEL, PAL_WHITE},
};
// A style outside the table: a plain 128 x 128 block at the sheet's origin, edges of 30.
constexpr SheetBlock PANEL_FALLBACK = {0, 0, 128, 128, 30, 30, 30, 30, "panel fallback"};
constexpr PanelLook LOOK_FALLBACK = {TITLE_AT_ZERO, false, false, FACE_LABEL, PAL_WHITE};

// One span of a stretched strip: units [p0, p1] from its start, texels [s0, s1] of the block.
struct Span {
    float p0, p1, s0, s1;
};
// Piece i of a strip `len` units long cut from a block `size` texels long with caps `lo` and
// `hi`: i = -1 the low cap, i = last the high cap, else a middle repeat, the one reaching past
// the high cap cut short, its texels cut by `divisor` and kept within the middle slice.
Span strip_span(int32_t i, int32_t last, float len, float size, float lo, float hi, float divisor) {
    if (i < 0) return {0.0f, lo, 0.0f, lo};
    if (i == last) return {len - hi, len, size - hi, size};
    const float sa = lo, sb = size - hi, mid = sb - sa;
    Span s{lo + (float)i * mid, lo + (float)(i + 1) * mid, sa, sb};
    if (s.p1 > len - hi) {
        s.p1 = len - hi;
        s.s1 = divisor == 0.0f ? (sa + sb) / 2.0f : sa + (s.p1 - s.p0) * (sb - sa) / divisor;
        s.s1 = s.s1 < sa ? sa : s.s1 > sb ? sb : s.s1;
    }
    return s;
}

// Repeats of the middle slice that fit: the low end of the last middle piece's index.
int32_t middle_count(float len, float lo, float hi, float mid) {
    return mid == 0.0f ? 0 : cut_to_int((len - lo - hi) / mid);
}

int32_t text_length(const char* s) { return s ? (int32_t)strlen(s) : 0; }

}  // namespace

void BTN_util_draw_piece(float x0, float y0, float x1, float y1, float u0, float v0, float u1, float v1,
                         int32_t color, float alpha, int32_t blend) {
    const float s0 = u0 / SHEET_F, t0 = v0 / SHEET_F, s1 = u1 / SHEET_F, t1 = v1 / SHEET_F;
    OGL_draw_quad(OGL_TEX_SHEET, color, alpha, x0, y0, s0, t0, x0, y1, s0, t1, x1, y1, s1, t1, x1, y0, s1, t0, 1,
                  OGL_ALPHA_ON, blend ? OGL_BLEND_ON : OGL_BLEND_OFF);
}

void BTN_util_draw_sprite(int32_t block, float x, float y, int32_t color) {
    if (block < 0 || block >= SHEET_COUNT) return;
    const SheetBlock& b = BTN_sheet[block];
    BTN_util_draw_piece(x, y, x + b.w, y + b.h, b.x, b.y, b.x + b.w, b.y + b.h, color, 1.0f, 0);
}

// Left of the first bar to `left`, the rest to `right`; later bars are dropped unless one
// directly follows another, so "||" keeps a bar in the right part.
void BTN_util_split_label(const char* label, char* left, char* right) {
    memset(left, 0, STR_SIZE);
    memset(right, 0, STR_SIZE);
    if (!label) return;
    str_check(label);
    int32_t i = 0, n = 0;
    for (; label[i] && label[i] != '|'; ++i) left[i] = label[i];
    if (!label[i]) return;
    for (++i; label[i]; ++i)
        if (label[i] != '|' || label[i - 1] == '|') right[n++] = label[i];
}

// Long labels split at the blank, - or / nearest their middle (the first of equally near ones),
// the two lines centred on y; a leading - is dropped and forbids the split.
void BTN_util_draw_label(float x, float y, int32_t align, const char* text) {
    if (!text) return;
    str_check(text);
    const bool may_split = text[0] != '-';
    if (!may_split) ++text;
    const int32_t n = text_length(text), mid = n / 2;
    Text line1, line2;
    str_copy(text, line1);
    line2[0] = 0;
    if (align != LABEL_LINE && may_split && n > LABEL_SPLIT_AT) {
        int32_t best = 0;
        for (int32_t i = 0; i < n; ++i)
            if ((text[i] == ' ' || text[i] == '-' || text[i] == '/') && abs(i - mid) < abs(best - mid)) best = i;
        if (best > 0 && best < n - 1) {
            line1[text[best] == ' ' ? best : best + 1] = 0;
            str_copy(text + best + 1, line2);
            y += LABEL_LINE_GAP / 2;
        }
    }
    const float adv = (float)OGL_face_advance(FACE_LABEL);
    const char* lines[2] = {line1, line2};
    for (int32_t k = 0; k < 2; ++k) {
        if (!lines[k][0]) continue;
        const float lx = align == LABEL_RIGHT ? x - adv * (float)text_length(lines[k]) : x;
        OGL_draw_string(PAL_WHITE, lx, y - LABEL_LINE_GAP * (float)k, lines[k], FONT_NO_WRAP, FACE_LABEL);
    }
}

void BTN_util_draw_lamp(float x, float y, float u, float v, int32_t lit) {
    const float h = HALF_LAMP;
    BTN_util_draw_piece(x - h, y - h, x + h, y + h, u - h, v - h, u + h, v + h, PAL_WHITE, 1.0f, 0);
    if (lit)
        BTN_util_draw_piece(x - h, y - h, x + h, y + h, u - h, v - h + LAMP_LIT_UP, u + h, v + h + LAMP_LIT_UP,
                            PAL_LIT, 1.0f, 0);
}

// Left cap, as many middle repeats as reach the right cap (the last one cut), right cap on top.
void BTN_util_draw_bar(int32_t kind, float x, float y, float width) {
    if (kind < 0 || kind >= BAR_KINDS) return;  // no strip on the sheet: nothing to draw
    const SheetBlock& b = BTN_sheet[SHEET_BAR0 + kind];
    const int32_t color = kind == BAR_BUTTON_LIT ? PAL_LIT : PAL_WHITE;
    const float w = (float)(ogl_round(width / 2.0f) * 2), e = b.left, bw = b.w, bh = b.h;
    const int32_t n = middle_count(w, e, e, bw - 2.0f * e);
    const float left = x - w / 2.0f, bottom = y - bh / 2.0f;
    for (int32_t i = -1; i <= n + 1; ++i) {
        const Span s = strip_span(i, n + 1, w, bw, e, e, bw - e);
        BTN_util_draw_piece(left + s.p0, bottom, left + s.p1, bottom + bh, b.x + s.s0, b.y, b.x + s.s1, b.y + bh,
                            color, 1.0f, 0);
    }
}

// Nine-slice: fixed corners, edges and centre repeated at one unit per texel, the last repeat
// of each row and column cut short. Styles that grow keep their top edge where it was asked.
void BTN_util_draw_panel(int32_t style, float x, float y, float width, float height, const char* title) {
    if (title) str_check(title);
    const bool known = style >= 0 && style < PANEL_STYLES;
    const SheetBlock& b = known ? BTN_sheet[SHEET_PANEL0 + style] : PANEL_FALLBACK;
    const PanelLook& look = known ? PANEL_LOOK[style] : LOOK_FALLBACK;
    float tx = 0.0f;
    if (look.title == TITLE_CENTRED) tx = x + width / 2.0f - TITLE_HALF_ADVANCE * (float)text_length(title);
    if (look.title == TITLE_INSET_X) tx = x + TITLE_INSET;
    if (look.grows) y -= PANEL_GROW, width += PANEL_GROW, height += PANEL_GROW;

    const float e = b.left, bot = b.bottom, top = b.top, mid_w = b.w - 2.0f * e, mid_h = b.h - top - bot;
    const int32_t nx = middle_count(width, e, e, mid_w), ny = middle_count(height, bot, top, mid_h);
    const float alpha = look.translucent ? TIP_ALPHA : 1.0f;
    for (int32_t i = -1; i <= nx + 1; ++i) {
        const Span c = strip_span(i, nx + 1, width, b.w, e, e, mid_w);
        for (int32_t j = -1; j <= ny + 1; ++j) {
            const Span r = strip_span(j, ny + 1, height, b.h, bot, top, mid_h);
            BTN_util_draw_piece(x + c.p0, y + r.p0, x + c.p1, y + r.p1, b.x + c.s0, b.y + r.s0, b.x + c.s1,
                                b.y + r.s1, PAL_WHITE, alpha, look.translucent);
        }
    }
    if (title && title[0])
        OGL_draw_string(look.color, tx, y + height - TITLE_DROP, title, FONT_NO_WRAP, look.face);
    if (style == PANEL_SCREEN_KNOBS) BTN_util_draw_corner_knobs(0);
}

void BTN_util_draw_corner_knobs(int32_t lit) {
    const SheetBlock& b = BTN_sheet[lit ? SHEET_KNOB_LIT : SHEET_KNOB];
    const float cy = panel_h - KNOB_DROP, h = HALF_LAMP;
    for (float cx : {KNOB_INSET, panel_w - KNOB_INSET})
        BTN_util_draw_piece(cx - h, cy - h, cx + h, cy + h, b.x, b.y, b.x + b.w, b.y + b.h, PAL_WHITE, 1.0f, 0);
}
