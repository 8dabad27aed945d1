// Glyph cells and quads, the string drawer's line breaks and the number drawer's places,
// against the recording GL.
#include <sstream>

#include "graphics/qgl.h"
#include "kit/font.h"
#include "tests/graphics/gfx_fixture.h"

using Text = Gfx;

namespace {

struct Quad {
    float x0, y0, x1, y1, u0, v0, u1, v1;  // units; sheet texels
};
std::vector<Quad> quads(const GlPrim& p) {
    std::vector<Quad> out;
    for (size_t i = 0; i + 3 < p.v.size(); i += 4)
        out.push_back({p.v[i].x, p.v[i].y, p.v[i + 2].x, p.v[i + 2].y, p.v[i].s * 512, p.v[i].t * 512,
                       p.v[i + 2].s * 512, p.v[i + 2].t * 512});
    return out;
}

// The character a quad shows, found by asking the cell look-up which printable character
// owns the quad's cell; the blank for cell 0.
char shown(const Quad& q, int32_t face) {
    const FaceInfo& f = *face_info(face);
    const int32_t cell = (int32_t)((q.u0 - f.u) / f.w + 0.5f) + f.columns * (int32_t)((q.v0 - f.v) / f.h + 0.5f);
    for (int32_t c = ' '; c < 127; ++c)
        if (OGL_glyph_cell(c, face) == cell) return (char)c;
    return '?';
}

// Each drawn quad as "c@dx" (or "c@dx/dy" off the line), relative to the first line's origin.
std::string layout(const GlPrim& p, int32_t face, float x0, float y0) {
    std::ostringstream out;
    for (const Quad& q : quads(p)) {
        out << (out.tellp() ? " " : "") << shown(q, face) << "@" << q.x0 - x0;
        if (q.y0 != y0) out << "/" << q.y0 - y0;
    }
    return out.str();
}

}  // namespace

TEST_F(Text, GlyphCellsAndTextureCoordinatesOfEveryLayout) {
    // Sheet texel of each glyph's lower-left corner, its quad size (faces 117 and 118 draw 5 and
    // 7 wide from 6-texel cells). Unloaded sheets do not matter: the glyph binds nothing.
    const struct { int32_t face, code; float u, v, w, h; } rows[] = {
        {106, 'Q', 271, 311, 6, 11}, {106, 'a', 337, 289, 6, 11},  {106, ' ', 265, 289, 6, 11},
        {106, -23, 265, 289, 6, 11},  // a byte above 127: the empty cell
        {106, '"', 265, 289, 6, 11},  {106, '~', 265, 289, 6, 11}, {103, '0', 6, 175, 6, 11},
        {104, '`', 170, 333, 6, 11},  {105, 'z', 254, 311, 6, 11}, {101, '|', 96, 208, 6, 11},
        {110, ':', 85, 178, 6, 11},   {114, ' ', 79, 158, 6, 11},  {116, 'F', 73, 138, 6, 11},
        {116, 'x', 1, 138, 6, 11},  // not in the layout: cell 0 is the digit 0
        {117, '.', 85.5f, 148, 5, 11}, {118, '9', 79.5f, 130, 7, 11}, {119, 'A', 132, 0, 12, 22},
        {102, 41, 13, 13, 13, 13}};
    for (const auto& r : rows) {
        gl.clear_log();
        qglBegin(GL_QUADS);
        OGL_draw_glyph(40, 50, r.code, r.face);
        qglEnd();
        ASSERT_EQ(gl.prims.size(), 1u);
        const auto q = quads(gl.prims[0]);
        ASSERT_EQ(q.size(), 1u) << r.face << " " << r.code;
        const FaceInfo& f = *face_info(r.face);
        EXPECT_TRUE(q[0].u0 == r.u && q[0].v0 == r.v && q[0].u1 == r.u + (float)f.w && q[0].v1 == r.v + (float)f.h)
            << r.face << " " << r.code << ": " << q[0].u0 << "," << q[0].v0;
        EXPECT_TRUE(q[0].x0 == 40 && q[0].y0 == 50 && q[0].x1 == 40 + r.w && q[0].y1 == 50 + r.h) << r.face;
    }
    gl.clear_log();
    OGL_draw_glyph(0, 0, 'a', 99);  // no such face: nothing
    EXPECT_TRUE(gl.calls.empty());
}

TEST_F(Text, StringIsOneBlockOnTheRoundedPanelPosition) {
    fake_loaded(OGL_TEX_SHEET);
    panel_x = 100.5f, panel_y = -0.5f;
    OGL_draw_string(66, 10, 20.6f, "ab", FONT_NO_WRAP, 106);  // x0 = round(110.5), y0 = round(20.1) - 2
    ASSERT_EQ(gl.prims.size(), 1u);
    const GlPrim& p = gl.prims[0];
    const auto q = quads(p);
    ASSERT_EQ(q.size(), 2u);
    EXPECT_TRUE(q[0].x0 == 111 && q[0].x1 == 117 && q[1].x0 == 117 && q[1].x1 == 123 && q[0].y0 == 18 && q[0].y1 == 29);
    EXPECT_TRUE(p.tex[0] == OGL_TEX_SHEET && p.tex2d[0] && p.caps == std::set<GLenum>{GL_ALPHA_TEST});
    EXPECT_THAT(std::vector<float>({p.v[0].r, p.v[0].g, p.v[0].b, p.v[0].a}), ElementsAre(0.1f, 1, 0.1f, 1));
    EXPECT_TRUE(gl.count("glColor4f") == 0 && gl.count("glBindTexture") == 1 && gl.count("glBegin") == 1);
    gl.clear_log();
    OGL_draw_string(66, 0, 0, "ab", FONT_NO_WRAP, 120);  // a face code outside the table binds nothing
    EXPECT_TRUE(gl.prims.empty() && gl.count("glBindTexture") == 0);
}

TEST_F(Text, WrapBreaksOnlyAfterBreakCharactersAndAtLineFeeds) {
    fake_loaded(OGL_TEX_SHEET);
    fake_loaded(OGL_TEX_KOREAN);
    // Expected lines joined by '|'; every character but a line feed takes one 6-unit place.
    const struct { const char* text; float width; const char* lines; } rows[] = {
        {"one two three", 50, "one two |three"},  // two ends at 42 and stays; three would end at 78
        {"abcdefghijklmnopqrst", 60, "abcdefghijklmnopqrst"},  // a long word runs past
        {"a-b", 17, "a-|b"}, {"a-b", 18, "a-b"},  // b ends at 18: on the line only when 18 fits
        {"ab:cd/ef", 30, "ab:cd/|ef"}, {"ab:cd", 29, "ab:|cd"},
        {" abcdefgh", 12, " |abcdefgh"},  // only a leading break character moves the first word
        {"a\nb", 100, "a|b"}, {"a\n\nb", 100, "a||b"}, {"\nab", 100, "ab"}, {"a\nb", FONT_NO_WRAP, "ab"},
        {"aaa bbb ccc", 24, "aaa |bbb |ccc"}, {"", 50, ""}};
    for (const auto& r : rows) {
        gl.clear_log();
        OGL_draw_string(66, 30, 400, r.text, r.width, 106);
        ASSERT_EQ(gl.prims.size(), 1u) << r.text;
        std::ostringstream want;
        float col = 0, line = 0;
        for (const char* c = r.lines; *c; ++c) {
            if (*c == '|') {
                col = 0, line -= 10;
                continue;
            }
            want << (want.tellp() ? " " : "") << *c << "@" << col;
            if (line != 0) want << "/" << line;
            col += 6;
        }
        EXPECT_EQ(layout(gl.prims[0], 106, 30, 398), want.str()) << r.text << " in " << r.width;
    }
    // Two-byte face: a glyph per byte pair at advance 14; half a pair at the end draws nothing.
    gl.clear_log();
    OGL_draw_string(0, 0, 0, "\x02\x03\x01\x05\x04", FONT_NO_WRAP, 102);
    const auto q = quads(gl.prims.at(0));
    ASSERT_EQ(q.size(), 2u);
    EXPECT_TRUE(q[0].u0 == 117 && q[0].v0 == 39 && q[1].u0 == 52 && q[1].v0 == 0 && q[1].x0 == 14);  // 129 and 4
}

TEST_F(Text, NumbersFillTheirPlacesWithSignPointSeparatorsAndOverflow) {
    fake_loaded(OGL_TEX_SHEET);
    // Quads in drawing order, "character@x" from x0 (a point sits 1 unit lower: "/-1").
    const struct { float value; int32_t digits, decimals, sign, face; const char* drawn; } rows[] = {
        {5000, 5, 0, 0, 105, "0@0 5@10 ,@15 0@20 0@30 0@40"},
        {12.5f, 4, 1, 0, 106, "0@0 1@6 .@15/-1 2@12 5@18"},
        {-3, 3, 0, 1, 106, "-@-5 0@0 0@6 3@12"},
        {-0.005f, 3, 1, 1, 106, " @-5 0@0 .@9/-1 0@6 0@12"},  // 0.05 scaled: no minus
        {0.05f, 3, 1, 0, 106, "0@0 .@9/-1 0@6 1@12"},
        {123456, 5, 0, 0, 106, ".@3/-1 1@0 2@6 3@12 x@18 5@24"},
        {99999, 5, 0, 0, 106, "9@0 9@6 9@12 9@18 9@24"},
        {1e12f, 2, 0, 1, 106, " @-5 .@3/-1 1@0 0@6 0@12 x@18 0@24"},  // power 12 shows as 0; five places
        {1234567, 7, 0, 0, 105, "1@0 ,@5 2@10 3@20 4@30 ,@35 5@40 6@50 7@60"},
        {1234.5f, 6, 1, 0, 105, "0@0 1@10 2@20 ,@15 3@30 .@45/-1 4@40 5@50"},
        {123.45f, 5, 2, 0, 105, "1@0 2@10 .@25/-1 3@20 4@30 5@40"},  // three whole places: no separator
        {8589934592.0f, 11, 0, 0, 106, "0@0 8@6 5@12 8@18 9@24 9@30 3@36 4@42 5@48 9@54 2@60"},
        {7, 1, 0, 0, 105, "7@0"}};
    for (const auto& r : rows) {
        gl.clear_log();
        OGL_draw_number(66, 200, 100, r.value, r.digits, r.decimals, r.sign, r.face);
        ASSERT_EQ(gl.prims.size(), 1u);
        EXPECT_EQ(layout(gl.prims[0], r.face, 200, 98), r.drawn) << r.value << " in " << r.digits;
    }
}
