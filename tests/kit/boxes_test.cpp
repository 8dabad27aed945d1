// Label split and placement, bar pieces, panel tiles, lamps and knobs against the recording GL.
#include <cmath>
#include <cstring>

#include "kit/boxes.h"
#include "kit/font.h"
#include "tests/graphics/gfx_fixture.h"
#include "util/text.h"

using Boxes = Gfx;

namespace {

struct Piece {
    float x0, y0, x1, y1, u0, v0, u1, v1;  // units; sheet texels
    float alpha;
    bool blend;
    bool operator==(const Piece& o) const {  // texels of cut pieces are fractions
        const float a[] = {x0, y0, x1, y1, u0, v0, u1, v1, alpha}, b[] = {o.x0, o.y0, o.x1, o.y1, o.u0, o.v0, o.u1, o.v1, o.alpha};
        for (int i = 0; i < 9; ++i)
            if (std::abs(a[i] - b[i]) > 1e-3f) return false;
        return blend == o.blend;
    }
};
Piece piece(const GlPrim& p) {
    return {p.v[0].x, p.v[0].y, p.v[2].x, p.v[2].y, p.v[0].s * 512, p.v[0].t * 512, p.v[2].s * 512,
            p.v[2].t * 512, p.v[0].a, p.caps.count(GL_BLEND) > 0};
}
std::ostream& operator<<(std::ostream& o, const Piece& p) {
    return o << "[" << p.x0 << "," << p.y0 << ".." << p.x1 << "," << p.y1 << " texels " << p.u0 << "," << p.v0
             << ".." << p.u1 << "," << p.v1 << "]";
}
struct Rect {
    float x0, y0, x1, y1;
    bool operator==(const Rect&) const = default;
};
std::ostream& operator<<(std::ostream& o, const Rect& r) { return o << r.x0 << "," << r.y0 << ".." << r.x1 << "," << r.y1; }
Rect texels(const Piece& p) { return {p.u0, p.v0, p.u1, p.v1}; }
// A drawn string: where its first glyph sits, its glyph count and face texture.
struct Line {
    float x, y;
    size_t chars;
    bool operator==(const Line&) const = default;
};
std::ostream& operator<<(std::ostream& o, const Line& l) { return o << l.chars << " at " << l.x << "," << l.y; }

}  // namespace

TEST_F(Boxes, SplitLabelAtTheFirstBar) {
    const struct { const char* label; const char* left; const char* right; } rows[] = {
        {"|English", "", "English"}, {"a|b|c", "a", "bc"}, {"plain", "plain", ""},
        {"a||b", "a", "|b"}, {"x|y||z|", "x", "y|z"}, {"", "", ""}};
    ::Text left, right;
    for (const auto& r : rows) {
        memset(left, 'q', sizeof left), memset(right, 'q', sizeof right);
        BTN_util_split_label(r.label, left, right);
        EXPECT_TRUE(!strcmp(left, r.left) && !strcmp(right, r.right)) << r.label << ": " << left << " / " << right;
        EXPECT_EQ(left[STR_SIZE - 1] | right[STR_SIZE - 1], 0);  // whole buffers cleared
    }
}

TEST_F(Boxes, LabelsSplitNearTheMiddleAndAlign) {
    fake_loaded(OGL_TEX_SHEET);
    // Lines as drawn: glyph x, line y (the glyphs start 2 lower) and length.
    const struct { const char* text; int32_t align; std::vector<Line> lines; } rows[] = {
        {"Cruise altitude", LABEL_RIGHT, {{64, 55, 6}, {52, 45, 8}}},
        {"Cruise altitude", LABEL_LEFT, {{100, 55, 6}, {100, 45, 8}}},
        {"Cruise altitude", LABEL_LINE, {{100, 50, 15}}},
        {"-Cruise altitude", LABEL_RIGHT, {{10, 50, 15}}},  // the - dropped, never split
        {"abcdefghijkl", LABEL_RIGHT, {{28, 50, 12}}},       // 12: never split
        {"abcdefghijklm", LABEL_RIGHT, {{22, 50, 13}}},      // nowhere to split
        {"aaaaaa-b/cccccc", LABEL_LEFT, {{100, 55, 7}, {100, 45, 8}}},  // equally near: the first, - kept
        {"abcdefghijklm ", LABEL_LEFT, {{100, 50, 14}}},  // the only candidate is the last character
        {"", LABEL_LEFT, {}}};
    for (const auto& r : rows) {
        gl.clear_log();
        BTN_util_draw_label(100, 50, r.align, r.text);
        std::vector<Line> drawn;
        for (const GlPrim& p : gl.prims) {
            drawn.push_back({p.v.empty() ? 0 : p.v[0].x, p.v.empty() ? 0 : p.v[0].y + 2, p.v.size() / 4});
            EXPECT_THAT(std::vector<float>({p.v[0].r, p.v[0].g, p.v[0].b}), ElementsAre(1, 1, 1));
        }
        EXPECT_EQ(drawn, r.lines) << r.text << " align " << r.align;
    }
}

TEST_F(Boxes, BarsRepeatTheMiddleAndCutTheLastPiece) {
    fake_loaded(OGL_TEX_SHEET);
    OGL_tint[2] = 0.5f;
    const struct { int32_t kind; float x, y, width; std::vector<Piece> pieces; } rows[] = {
        // 57 is drawn 58 wide: cap 11, a middle of 23, a middle cut to 13 (13 x 23 / 34 texels), cap 11.
        {BAR_BUTTON, 200, 100, 57, {{171, 89, 182, 111, 420, 291, 431, 313, 1, false},
                                    {182, 89, 205, 111, 431, 291, 454, 313, 1, false},
                                    {205, 89, 218, 111, 431, 291, 431 + 13.0f * 23 / 34, 313, 1, false},
                                    {218, 89, 229, 111, 454, 291, 465, 313, 1, false}}},
        // Narrower than both caps: a middle piece turned inside out, then the right cap over it.
        {BAR_BUTTON_LIT, 200, 100, 10, {{195, 89, 206, 111, 420, 314, 431, 336, 1, false},
                                        {206, 89, 194, 111, 431, 314, 431, 336, 1, false},
                                        {194, 89, 205, 111, 454, 314, 465, 336, 1, false}}},
        {BAR_FIELD, 50, 60, 29, {{35, 37, 42, 83, 443, 336, 450, 382, 1, false},  // 29 is drawn 30 wide
                                 {42, 37, 50, 83, 450, 336, 458, 382, 1, false},
                                 {50, 37, 58, 83, 450, 336, 458, 382, 1, false},
                                 {58, 37, 58, 83, 450, 336, 450, 382, 1, false},
                                 {58, 37, 65, 83, 458, 336, 465, 382, 1, false}}},
        {7, 50, 60, 100, {}}};
    for (const auto& r : rows) {
        gl.clear_log();
        BTN_util_draw_bar(r.kind, r.x, r.y, r.width);
        std::vector<Piece> drawn;
        for (const GlPrim& p : gl.prims) drawn.push_back(piece(p));
        EXPECT_EQ(drawn, r.pieces) << "kind " << r.kind << " width " << r.width;
        for (const GlPrim& p : gl.prims)  // the lit overlay in the untinted white
            EXPECT_EQ(p.v[0].b, r.kind == BAR_BUTTON_LIT ? 1.0f : 0.5f) << "kind " << r.kind;
    }
    gl.clear_log();
    BTN_util_draw_bar(BAR_MENU, 512, 759, 1024);  // 14 middles of 68 fit, the 15th is cut to 12
    ASSERT_EQ(gl.prims.size(), 17u);
    EXPECT_EQ(piece(gl.prims[15]), (Piece{982, 750, 994, 768, 30, 494, 30 + 12.0f * 68 / 98, 512, 1, false}));
}

TEST_F(Boxes, PanelTilesCoverTheBoxOneTexelPerUnit) {
    fake_loaded(OGL_TEX_SHEET);
    panel_w = 400, panel_h = 220;
    // The box covered, the corner texels of its lower-left and upper-right tiles, the title's
    // glyph position and colour.
    const struct {
        int32_t style;
        float x, y, w, h;
        Rect box, low_corner, high_corner;  // units; texels; texels
        float title_x, title_y, title_green;
    } rows[] = {
        {2, 26, 36, 700, 600, {26, 28, 734, 636}, {128, 366, 158, 396}, {226, 464, 256, 494},
         32, 624, 1},
        {0, 0, 0, 1024, 768, {0, 0, 1024, 768}, {0, 366, 30, 396}, {98, 464, 128, 512},
         500, 756, 1},
        {3, 0, 0, 400, 220, {0, -8, 408, 220}, {128, 366, 158, 396}, {226, 464, 256, 512},
         188, 208, 1},
        {4, 5, 5, 61, 61, {5, 5, 66, 66}, {256, 384, 286, 414}, {354, 482, 384, 512},
         11, 54, 1},
        {5, 10, 20, 200, 100, {10, 12, 218, 120}, {384, 384, 414, 414}, {482, 482, 512, 512},
         16, 108, 0.1f},
        {6, 40, 50, 100, 60, {40, 50, 140, 110}, {0, 238, 30, 268}, {98, 336, 128, 366},
         0, 98, 1},
        {9, 40, 50, 100, 60, {40, 50, 140, 110}, {0, 0, 30, 30}, {98, 98, 128, 128}, 0, 98, 1}};
    for (const auto& r : rows) {
        gl.clear_log();
        BTN_util_draw_panel(r.style, r.x, r.y, r.w, r.h, "Note");
        ASSERT_GT(gl.prims.size(), 9u);
        const GlPrim& title = gl.prims.back();
        float area = 0, x0 = 1e9, y0 = 1e9, x1 = -1e9, y1 = -1e9;
        for (size_t i = 0; i + 1 < gl.prims.size(); ++i) {
            const Piece t = piece(gl.prims[i]);
            EXPECT_TRUE(t.x1 - t.x0 == t.u1 - t.u0 && t.y1 - t.y0 == t.v1 - t.v0) << "style " << r.style << " " << t;
            EXPECT_TRUE(t.alpha == (r.style == 6 ? 0.9f : 1.0f) && t.blend == (r.style == 6)) << r.style;
            area += (t.x1 - t.x0) * (t.y1 - t.y0);
            x0 = std::min(x0, t.x0), y0 = std::min(y0, t.y0), x1 = std::max(x1, t.x1), y1 = std::max(y1, t.y1);
        }
        // Tiles fill the box exactly: no gap, no overlap.
        EXPECT_EQ((Rect{x0, y0, x1, y1}), r.box) << "style " << r.style;
        EXPECT_EQ(area, (r.box.x1 - r.box.x0) * (r.box.y1 - r.box.y0)) << "style " << r.style;
        const Piece first = piece(gl.prims[0]), last = piece(gl.prims[gl.prims.size() - 2]);
        EXPECT_EQ(texels(first), r.low_corner) << "style " << r.style;
        EXPECT_EQ(texels(last), r.high_corner) << "style " << r.style;
        EXPECT_TRUE(title.v.size() == 16 && title.v[0].x == r.title_x && title.v[0].y + 2 == r.title_y &&
                    title.v[0].r == r.title_green) << "style " << r.style << " title at " << title.v[0].x << ","
                                                   << title.v[0].y;
    }
    gl.clear_log();
    BTN_util_draw_panel(1, 0, 0, 400, 220, "");  // then the unlit knobs at the panel's top corners
    ASSERT_GE(gl.prims.size(), 2u);
    const Piece k = {4, 200, 26, 222, 396, 291, 418, 313, 1, false};
    EXPECT_EQ(piece(gl.prims[gl.prims.size() - 2]), k);
    EXPECT_EQ(piece(gl.prims.back()), (Piece{374, 200, 396, 222, 396, 291, 418, 313, 1, false}));
}

TEST_F(Boxes, LampsAndKnobsLightWithTheBlockAbove) {
    fake_loaded(OGL_TEX_SHEET);
    panel_w = 624, panel_h = 300;
    BTN_util_draw_lamp(100, 200, 499, 302, 1);
    BTN_util_draw_lamp(130, 200, 499, 302, 0);
    BTN_util_draw_corner_knobs(1);
    std::vector<Piece> drawn;
    for (const GlPrim& p : gl.prims) drawn.push_back(piece(p));
    EXPECT_EQ(drawn, (std::vector<Piece>{{89, 189, 111, 211, 488, 291, 510, 313, 1, false},
                                         {89, 189, 111, 211, 488, 314, 510, 336, 1, false},
                                         {119, 189, 141, 211, 488, 291, 510, 313, 1, false},
                                         {4, 280, 26, 302, 396, 314, 418, 336, 1, false},
                                         {598, 280, 620, 302, 396, 314, 418, 336, 1, false}}));
}
