// Glyph cells and quads, the string drawer's line breaks and the number drawer's places,
// against the recording GL.
#include <sstream>

#include "graphics/qgl.h"
#include "kit/font.h"
#include "tests/graphics/gfx_fixture.h"

using Text = Gfx;

namespace {

// Each quad of a block as "c@dx" (or "c@dx/dy" off the first line) from (x0, y0); the
// character is whichever printable one owns the quad's cell in `face`.
std::string layout(const GlPrim& p, int32_t face, float x0, float y0) {
    const FaceInfo& f = *face_info(face);
    std::ostringstream out;
    for (size_t i = 0; i + 3 < p.v.size(); i += 4) {
        const GlVertex& q = p.v[i];
        const int32_t cell = (int32_t)((q.s * 512 - f.u) / f.w + 0.5f) + f.columns * (int32_t)((q.t * 512 - f.v) / f.h + 0.5f);
        char c = ' ';
        while (c < 126 && OGL_glyph_cell(c, face) != cell) ++c;
        out << (i ? " " : "") << c << "@" << q.x - x0;
        if (q.y != y0) out << "/" << q.y - y0;
    }
    return out.str();
}

}  // namespace

TEST_F(Text, GlyphCellsAndQuadsOfEveryLayout) {
    // Sheet texel of the glyph's lower-left corner and its quad's width (faces 117 and 118 draw
    // 5 and 7 units wide from 6-texel cells); the quad is as tall as the cell.
    const struct { int32_t face, code; float u, v, w; } rows[] = {
        {106, 'Q', 271, 311, 6}, {106, -23, 265, 289, 6},  // a byte above 127: the empty cell, as is
        {106, '"', 265, 289, 6}, {104, '`', 170, 333, 6}, {101, '|', 96, 208, 6},  // one not in the layout
        {117, '.', 85.5f, 148, 5}, {118, '9', 79.5f, 130, 7}, {102, 129, 117, 39, 13}};
    for (const auto& r : rows) {
        gl.clear_log();
        qglBegin(GL_QUADS);
        OGL_draw_glyph(40, 50, r.code, r.face);
        qglEnd();
        const auto& v = gl.prims.at(0).v;
        ASSERT_EQ(v.size(), 4u);
        const FaceInfo& f = *face_info(r.face);
        EXPECT_EQ(std::vector<float>({v[0].s, v[0].t, v[2].s, v[2].t, v[0].x, v[0].y, v[2].x, v[2].y}),
                  std::vector<float>({r.u / 512, r.v / 512, (r.u + f.w) / 512, (r.v + f.h) / 512, 40, 50, 40 + r.w,
                                      50.0f + f.h})) << r.face << " " << r.code;
    }
    gl.clear_log();
    OGL_draw_glyph(0, 0, 'a', 99);  // no such face: nothing
    EXPECT_TRUE(gl.calls.empty());
}

TEST_F(Text, StringIsOneOpaqueBlockOnTheRoundedPanelPosition) {
    panel_x = 100.5f, panel_y = -0.5f;
    OGL_draw_string(66, 10, 20.6f, "ab", FONT_NO_WRAP, 106);  // x0 = round(110.5), y0 = round(20.1) - 2
    const GlPrim& p = gl.prims.at(0);
    EXPECT_EQ(layout(p, 106, 111, 18), "a@0 b@6");
    EXPECT_TRUE(p.v[2].y == 29 && p.tex[0] == TEX_SHEET && p.caps == std::set<GLenum>{GL_ALPHA_TEST});
    EXPECT_THAT(std::vector<float>({p.v[0].r, p.v[0].g, p.v[0].a}), ElementsAre(0.1f, 1, 1));
    EXPECT_TRUE(gl.count("glColor4f") == 0 && gl.count("glBindTexture") == 1 && gl.prims.size() == 1);
}

TEST_F(Text, WrapBreaksOnlyAfterBreakCharactersAndAtLineFeeds) {
    // Expected lines joined by '|'; every character but a line feed takes one 6-unit place.
    const struct { const char* text; float width; const char* lines; } rows[] = {
        {"one two three", 50, "one two |three"},  // two ends at 42 and stays; three would end at 78
        {"abcdefghijklmnopqrst", 60, "abcdefghijklmnopqrst"},  // a long word runs past
        {"a-b", 17, "a-|b"}, {"a-b", 18, "a-b"},  // b ends at 18: on the line only when 18 fits
        {"ab:cd/ef", 30, "ab:cd/|ef"}, {"ab:cd", 29, "ab:|cd"},
        {" abcdefgh", 12, " |abcdefgh"},  // only a leading break character moves the first word
        {"a\nb", 100, "a|b"}, {"a\n\nb", 100, "a||b"}, {"\nab", 100, "ab"}, {"a\nb", FONT_NO_WRAP, "ab"}};
    for (const auto& r : rows) {
        gl.clear_log();
        OGL_draw_string(66, 30, 400, r.text, r.width, 106);
        std::ostringstream want;
        int col = 0, line = 0;
        for (const char* c = r.lines; *c; ++c) {
            if (*c == '|') {
                col = 0, line -= 10;
                continue;
            }
            want << (c == r.lines ? "" : " ") << *c << "@" << 6 * col++;
            if (line) want << "/" << line;
        }
        EXPECT_EQ(layout(gl.prims.at(0), 106, 30, 398), want.str()) << r.text << " in " << r.width;
    }
    // Two-byte face: glyph (2 - 1) * 127 + (3 - 1), then 4, at advance 14; half a pair draws nothing.
    gl.clear_log();
    OGL_draw_string(0, 0, 0, "\x02\x03\x01\x05\x04", FONT_NO_WRAP, 102);
    const auto& v = gl.prims.at(0).v;
    ASSERT_EQ(v.size(), 8u);
    EXPECT_THAT(std::vector<float>({v[0].s * 512, v[0].t * 512, v[4].s * 512, v[4].x}), ElementsAre(117, 39, 52, 14));
}

TEST_F(Text, NumbersFillTheirPlacesWithSignPointSeparatorsAndOverflow) {
    // Quads in drawing order from x0 (a point sits 1 unit lower).
    const struct { float value; int32_t digits, decimals, sign, face; const char* drawn; } rows[] = {
        {5000, 5, 0, 0, 105, "0@0 5@10 ,@15 0@20 0@30 0@40"},
        {12.5f, 4, 1, 0, 106, "0@0 1@6 .@15/-1 2@12 5@18"},
        {-3, 3, 0, 1, 106, "-@-5 0@0 0@6 3@12"},
        {-0.005f, 3, 1, 1, 106, " @-5 0@0 .@9/-1 0@6 0@12"},  // 0.05 scaled: no minus
        {0.05f, 3, 1, 0, 106, "0@0 .@9/-1 0@6 1@12"},
        {123456, 5, 0, 0, 106, ".@3/-1 1@0 2@6 3@12 x@18 5@24"}, {99999, 5, 0, 0, 106, "9@0 9@6 9@12 9@18 9@24"},
        {1e12f, 2, 0, 1, 106, " @-5 .@3/-1 1@0 0@6 0@12 x@18 0@24"},  // power 12 shows as 0; five places
        {1234567, 7, 0, 0, 105, "1@0 ,@5 2@10 3@20 4@30 ,@35 5@40 6@50 7@60"},
        {1234.5f, 6, 1, 0, 105, "0@0 1@10 2@20 ,@15 3@30 .@45/-1 4@40 5@50"},
        {123.45f, 5, 2, 0, 105, "1@0 2@10 .@25/-1 3@20 4@30 5@40"},  // three whole places: no separator
        {8589934592.0f, 11, 0, 0, 106, "0@0 8@6 5@12 8@18 9@24 9@30 3@36 4@42 5@48 9@54 2@60"}};
    for (const auto& r : rows) {
        gl.clear_log();
        OGL_draw_number(66, 200, 100, r.value, r.digits, r.decimals, r.sign, r.face);
        ASSERT_EQ(gl.prims.size(), 1u);
        EXPECT_EQ(layout(gl.prims[0], r.face, 200, 98), r.drawn) << r.value << " in " << r.digits;
    }
}
