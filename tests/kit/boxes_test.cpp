// Label split and placement, bar pieces, panel tiles, lamps and knobs against the recording GL.
#include <cstring>

#include "kit/boxes.h"
#include "kit/font.h"
#include "tests/graphics/gfx_fixture.h"
#include "util/text.h"

using Boxes = Gfx;
using testing::FloatNear;
using testing::Pointwise;

namespace {

// Every quad as x0, y0, x1, y1 in units, then u0, v0, u1, v1 in sheet texels.
std::vector<float> pieces(const std::vector<GlPrim>& prims) {
    std::vector<float> out;
    for (const GlPrim& p : prims)
        for (float f : {p.v[0].x, p.v[0].y, p.v[2].x, p.v[2].y, p.v[0].s * 512, p.v[0].t * 512, p.v[2].s * 512,
                        p.v[2].t * 512})
            out.push_back(f);
    return out;
}

}  // namespace

TEST_F(Boxes, SplitLabelAtTheFirstBar) {
    const struct { const char* label; const char* left; const char* right; } rows[] = {
        {"|English", "", "English"}, {"a|b|c", "a", "bc"}, {"plain", "plain", ""}, {"x|y||z|", "x", "y|z"}};
    ::Text left, right;
    for (const auto& r : rows) {
        memset(left, 'q', sizeof left), memset(right, 'q', sizeof right);
        BTN_util_split_label(r.label, left, right);
        EXPECT_TRUE(!strcmp(left, r.left) && !strcmp(right, r.right)) << r.label << ": " << left << " / " << right;
        EXPECT_EQ(left[STR_SIZE - 1] | right[STR_SIZE - 1], 0);  // whole buffers cleared
    }
}

TEST_F(Boxes, LabelsSplitNearTheMiddleAndAlign) {
    // Each line drawn at (100, 50): its x, its y (glyphs start 2 lower) and length.
    const struct { const char* text; int32_t align; std::vector<float> lines; } rows[] = {
        {"Cruise altitude", LABEL_RIGHT, {64, 55, 6, 52, 45, 8}}, {"Cruise altitude", LABEL_LEFT, {100, 55, 6, 100, 45, 8}},
        {"Cruise altitude", LABEL_LINE, {100, 50, 15}}, {"-Cruise altitude", LABEL_RIGHT, {10, 50, 15}},
        {"abcdefghijkl", LABEL_RIGHT, {28, 50, 12}},  {"abcdefghijklm", LABEL_RIGHT, {22, 50, 13}},
        {"aaaaaa-b/cccccc", LABEL_LEFT, {100, 55, 7, 100, 45, 8}},  // equally near: the first; - kept
        {"abcdefghijklm ", LABEL_LEFT, {100, 50, 14}}};  // the only candidate is the last character
    for (const auto& r : rows) {
        gl.clear_log();
        BTN_util_draw_label(100, 50, r.align, r.text);
        std::vector<float> drawn;
        for (const GlPrim& p : gl.prims) drawn.insert(drawn.end(), {p.v[0].x, p.v[0].y + 2, p.v.size() / 4.0f});
        EXPECT_EQ(drawn, r.lines) << r.text << " align " << r.align;
    }
}

TEST_F(Boxes, BarsRepeatTheMiddleAndCutTheLastPiece) {
    OGL_tint[2] = 0.5f;  // tells the body's colour 0 from the lit overlay's untinted 61
    const struct { int32_t kind; float x, y, width; std::vector<float> pieces; } rows[] = {
        // 57 is drawn 58 wide: cap 11, a middle of 23, a middle cut to 13 (13 x 23 / 34 texels), cap 11.
        {BAR_BUTTON, 200, 100, 57, {171, 89, 182, 111, 420, 291, 431, 313, 182, 89, 205, 111, 431, 291, 454, 313,
                                    205, 89, 218, 111, 431, 291, 439.794f, 313, 218, 89, 229, 111, 454, 291, 465, 313}},
        // Narrower than both caps: a middle piece turned inside out, then the right cap over it.
        {BAR_BUTTON_LIT, 200, 100, 10, {195, 89, 206, 111, 420, 314, 431, 336, 206, 89, 194, 111, 431, 314, 431, 336,
                                        194, 89, 205, 111, 454, 314, 465, 336}},
        {7, 50, 60, 100, {}}};
    for (const auto& r : rows) {
        gl.clear_log();
        BTN_util_draw_bar(r.kind, r.x, r.y, r.width);
        EXPECT_THAT(pieces(gl.prims), Pointwise(FloatNear(1e-3f), r.pieces)) << "kind " << r.kind;
        for (const GlPrim& p : gl.prims) EXPECT_EQ(p.v[0].b, r.kind == BAR_BUTTON_LIT ? 1.0f : 0.5f);
    }
    gl.clear_log();
    BTN_util_draw_bar(BAR_MENU, 512, 759, 1024);  // 14 middles of 68 fit, the 15th is cut to 12 (12 x 68 / 98)
    ASSERT_EQ(gl.prims.size(), 17u);
    EXPECT_THAT(pieces({gl.prims[15]}), Pointwise(FloatNear(1e-3f), std::vector<float>({982, 750, 994, 768, 30, 494, 38.327f, 512})));
}

TEST_F(Boxes, PanelTilesCoverTheBoxOneTexelPerUnit) {
    // The box covered, the texels of its lower-left and upper-right tiles, the title's place: centred
    // (3), inset (5, in green face 104) or at the left (6, translucent; the first style past the
    // table, drawn from the fallback block).
    const struct { int32_t style; float x, y, w, h; std::vector<float> box, corners; float tx, ty; } rows[] = {
        {3, 0, 0, 400, 220, {0, -8, 408, 220}, {128, 366, 158, 396, 226, 464, 256, 512}, 188, 208},
        {5, 10, 20, 200, 100, {10, 12, 218, 120}, {384, 384, 414, 414, 482, 482, 512, 512}, 16, 108},
        {6, 40, 50, 100, 61, {40, 50, 140, 111}, {0, 238, 30, 268, 98, 336, 128, 366}, 0, 99},
        {PANEL_STYLES, 40, 50, 100, 60, {40, 50, 140, 110}, {0, 0, 30, 30, 98, 98, 128, 128}, 0, 98}};
    for (const auto& r : rows) {
        gl.clear_log();
        BTN_util_draw_panel(r.style, r.x, r.y, r.w, r.h, "Note");
        const GlPrim title = gl.prims.back();
        gl.prims.pop_back();
        const std::vector<float> t = pieces(gl.prims);
        float area = 0, x0 = 1e9, y0 = 1e9, x1 = -1e9, y1 = -1e9;
        for (size_t i = 0; i < t.size(); i += 8) {
            EXPECT_TRUE(t[i + 2] - t[i] == t[i + 6] - t[i + 4] && t[i + 3] - t[i + 1] == t[i + 7] - t[i + 5]) << r.style;
            area += (t[i + 2] - t[i]) * (t[i + 3] - t[i + 1]);
            x0 = std::min(x0, t[i]), y0 = std::min(y0, t[i + 1]), x1 = std::max(x1, t[i + 2]), y1 = std::max(y1, t[i + 3]);
        }
        EXPECT_EQ(std::vector<float>({x0, y0, x1, y1}), r.box) << "style " << r.style;
        EXPECT_EQ(area, (r.box[2] - r.box[0]) * (r.box[3] - r.box[1])) << "style " << r.style;  // no gap, no overlap
        std::vector<float> corners(t.begin() + 4, t.begin() + 8);  // the first tile's texels, the last one's
        corners.insert(corners.end(), t.end() - 4, t.end());
        EXPECT_EQ(corners, r.corners) << "style " << r.style;
        EXPECT_TRUE(gl.prims[0].v[0].a == (r.style == 6 ? 0.9f : 1) && gl.prims[0].caps.count(GL_BLEND) == (r.style == 6));
        EXPECT_EQ(std::vector<float>({title.v[0].x, title.v[0].y + 2, title.v[0].r}),
                  std::vector<float>({r.tx, r.ty, r.style == 5 ? 0.1f : 1}));
    }
}

TEST_F(Boxes, LampsAndKnobsLightWithTheBlockAbove) {
    panel_w = 624, panel_h = 300;
    BTN_util_draw_lamp(100, 200, 499, 302, 1);
    BTN_util_draw_panel(1, 0, 0, 624, 300, "");  // style 1 ends with the unlit knobs
    const std::vector<GlPrim> lamp(gl.prims.begin(), gl.prims.begin() + 2), knobs(gl.prims.end() - 2, gl.prims.end());
    EXPECT_EQ(pieces(lamp), std::vector<float>({89, 189, 111, 211, 488, 291, 510, 313,  //
                                                89, 189, 111, 211, 488, 314, 510, 336}));
    EXPECT_EQ(pieces(knobs), std::vector<float>({4, 280, 26, 302, 396, 291, 418, 313,  //
                                                 598, 280, 620, 302, 396, 291, 418, 313}));
    gl.clear_log();
    BTN_util_draw_corner_knobs(1);
    EXPECT_EQ(pieces(gl.prims)[5], 314);
}
