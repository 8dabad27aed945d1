// The state switch, colour rule, projection and primitives against the recording GL, and
// lines and rectangles composed into the background image.
#include "tests/graphics/gfx_fixture.h"

#include <array>
#include <cstring>
#include <set>
#include <tuple>

#include "graphics/primitives.h"

using P = std::pair<float, float>;
using Drawing = Gfx;

static std::vector<P> xy(const GlPrim& p, bool tex = false) {  // vertices, or their texture coordinates
    std::vector<P> out;
    for (const auto& v : p.v) out.emplace_back(tex ? v.s : v.x, tex ? v.t : v.y);
    return out;
}

TEST_F(Drawing, StateSwitchTouchesOnlyCapabilitiesWhoseCodeDiffers) {
    using Codes = std::array<int32_t, 6>;  // fog, lighting, alpha test, blending, depth test, depth writes
    const Codes on = {OGL_FOG_ON, OGL_LIGHT_ON, OGL_ALPHA_ON, OGL_BLEND_ON, OGL_DEPTH_ON, OGL_DEPTHW_ON},
                off = {OGL_FOG_OFF, OGL_LIGHT_OFF, OGL_ALPHA_OFF, OGL_BLEND_OFF, OGL_DEPTH_OFF, OGL_DEPTHW_OFF},
                mix = {OGL_FOG_ON, OGL_LIGHT_OFF, OGL_ALPHA_ON, OGL_BLEND_OFF, OGL_DEPTH_ON, OGL_DEPTHW_OFF},
                odd = {99, 0, -1, OGL_BLEND_ON, 99, OGL_DEPTHW_ON};  // anything but an on code is off
    const struct { Codes from, to; int switches; std::set<GLenum> caps; } rows[] = {
        {off, off, 0, {}}, {off, on, 6, {GL_FOG, GL_LIGHTING, GL_LIGHT0, GL_ALPHA_TEST, GL_BLEND, GL_DEPTH_TEST}},
        {on, off, 6, {}}, {on, mix, 3, {GL_FOG, GL_ALPHA_TEST, GL_DEPTH_TEST}},  // lighting takes GL_LIGHT0 along
        {mix, odd, 6, {GL_BLEND}},  // a code that is neither on nor off always differs: lighting goes off again
        {odd, off, 1, {}}};
    for (const auto& r : rows) {
        const Codes &f = r.from, &t = r.to;
        OGL_set_state(f[0], 1, f[1], f[2], f[3], f[4], f[5]);
        OGL_set_rgba(0, 0, 0, 0, 1);  // for the switch to put back
        gl.clear_log();
        OGL_set_state(t[0], 1, t[1], t[2], t[3], t[4], t[5]);
        EXPECT_EQ(gl.caps, r.caps) << r.switches;
        EXPECT_EQ(std::tuple(gl.count("glEnable") + gl.count("glDisable"), gl.count("glDepthMask"), gl.depth_mask),
                  std::tuple(r.switches, 1, t[5] == OGL_DEPTHW_ON)) << r.switches;  // the mask every time
        EXPECT_THAT(gl.color, ElementsAre(1, 1, 1, 1));  // left opaque white
    }
}

TEST_F(Drawing, TextureUnitsSwitchEachUnitAndLeaveTheFirstActive) {
    const struct { int32_t from, to, enables, disables, selects; } rows[] = {
        {2, 0, 0, 3, 3},  // the active unit, then units 1 and 2, then unit 1 again
        {1, 0, 0, 1, 0}, {0, 0, 0, 0, 0}, {1, 1, 0, 0, 0}, {0, 2, 3, 0, 3}, {2, 1, 2, 1, 3}, {1, 3, 4, 0, 4}};
    for (const auto& r : rows) {
        OGL_set_state(OGL_FOG_OFF, r.from, OGL_LIGHT_OFF, OGL_ALPHA_OFF, OGL_BLEND_OFF, OGL_DEPTH_OFF, OGL_DEPTHW_OFF);
        gl.clear_log();
        OGL_set_state(OGL_FOG_OFF, r.to, OGL_LIGHT_OFF, OGL_ALPHA_OFF, OGL_BLEND_OFF, OGL_DEPTH_OFF, OGL_DEPTHW_OFF);
        EXPECT_EQ(std::tuple(gl.count("glEnable"), gl.count("glDisable"), gl.count("glActiveTextureARB"),
                             gl.active_unit, gl_tex_units),  // of GL_TEXTURE_2D only: the rest stays off
                  std::tuple(r.enables, r.disables, r.selects, 0, r.to)) << r.from << " to " << r.to;
        for (int k = 0; k < GLREC_UNITS; ++k) EXPECT_EQ(gl.tex2d[k], k < r.to) << r.from << " to " << r.to;
    }
}

TEST_F(Drawing, ColourRuleTintAlphaComposeAndSwap) {
    OGL_tint[0] = 0.5f, OGL_tint[1] = 0.25f, OGL_tint[2] = 0.5f;
    EXPECT_THAT(OGL_palette[111], ElementsAre(1, 0.3f, 0));  // the defaults reach the last entry
    EXPECT_THAT(OGL_palette[93], ElementsAre(0, 0, 0));       // and leave the unused ones black
    OGL_set_palette(49, 1, 1, 1);
    const struct { int32_t index; float alpha; const char* call; float r, g, b, a; } rows[] = {
        {48, 1.0f, "glColor3fv", 0, 0, 0.4f, 1}, {49, 1.0f, "glColor3fv", 1, 1, 1, 1},
        {COLOR_TEXT, 0.99f, "glColor3fv", 0.1f, 1, 0.1f, 1}, {COLOR_TEXT, 0.5f, "glColor4f", 0.1f, 1, 0.1f, 0.5f},
        {2, 0.0f, "glColor4f", 0.5f, 0.05f, 0.1f, 0}};
    for (const auto& r : rows) {
        gl.clear_log();
        OGL_set_color(r.index, r.alpha);
        EXPECT_EQ(gl.count(r.call), 1) << r.index << " " << r.alpha;
        EXPECT_THAT(gl.color, ElementsAre(r.r, r.g, r.b, r.a)) << r.index << " " << r.alpha;
    }
    OGL_set_swap([]() -> int32_t { return 7; });
    EXPECT_EQ(OGL_swap_buffers(), 7);
    EXPECT_THAT(gl.color, ElementsAre(1, 1, 1, 1));  // COLOR_LIT, never tinted
    OGL_set_swap(nullptr);
    EXPECT_EQ(OGL_swap_buffers(), 0);

    bg_compose = 1;  // bytes recorded untinted, nothing sent
    gl.clear_log();
    OGL_set_color(21, 0.3f);
    EXPECT_TRUE(gl.calls.empty());
    EXPECT_THAT(compose_rgb, ElementsAre(26, 26, 26));  // 25.5 rounded
    OGL_set_rgba(1, 1, 1, 0.5f, 0);  // the direct colour is tinted and sent in any mode
    EXPECT_THAT(gl.color, ElementsAre(0.5f, 0.25f, 0.5f, 0.5f));
    OGL_set_rgba(1, 1, 1, 1, 1);
    EXPECT_THAT(gl.color, ElementsAre(1, 1, 1, 1));
}

TEST_F(Drawing, ProjectionSpansTheWindowWithItsMargins) {
    // Mode 2 adds the design space and margins to the sides given. Mode 3 (scale 4/3, margin 88):
    // sides times near, bottom and top times h / w of the viewport, which moves right by the
    // margin and grows with the scale.
    const struct { int32_t mode; float w, h; std::string calls; } rows[] = {
        {OGL_PROJ_DESIGN, 1024, 768, "glOrtho(-1,1025,-1,769,-1,1)\nglViewport(0,0,1024,768)"},
        {OGL_PROJ_DESIGN, 1280, 1024, "glOrtho(-1,1025,-1,820.2,-1,1)\nglViewport(0,0,1280,1024)"},
        {OGL_PROJ_DESIGN, 1600, 1024, "glOrtho(-89,1113,-1,769,-1,1)\nglViewport(0,0,1600,1024)"},
        {OGL_PROJ_PERSPECTIVE, 1600, 1024, "glFrustum(-2,2,-1,1,2,100)\nglViewport(117,0,400,200)"}};
    for (const auto& r : rows) {
        disp_width = r.w, disp_height = r.h;
        design_space_fit();
        gl.clear_log();
        OGL_set_projection(r.mode, -1, -1, 1, 1, 0, 0, 300, 150, 2, 100, 1);
        EXPECT_EQ(gl.text(), "glMatrixMode(5889)\nglLoadIdentity()\n" + r.calls +  // projection, then modelview
                                 "\nglMatrixMode(5888)\nglLoadIdentity()\n");
    }
}

TEST_F(Drawing, ShapesAddThePanelOriginAndChooseBlending) {
    panel_x = 312, panel_y = 274;
    const std::vector<P> box = {{322, 294}, {322, 334}, {352, 334}, {352, 294}};
    const std::vector<P> line = {{322.5f, 294.5f}, {352.5f, 334.5f}},
                         outline = {{322.5f, 294.5f}, {322.5f, 334.5f}, {352.5f, 334.5f}, {352.5f, 294.5f}, line[0]};
    using Draw = void (*)(int32_t, float, float, float, float, float);
    const struct { Draw draw; float alpha, drawn_alpha; GLenum mode; bool blend; const std::vector<P>& v; } rows[] = {
        {OGL_fill_rect, 1.0f, 1.0f, GL_QUADS, true, box},  // filled rectangles always blend
        {OGL_fill_rect, 0.5f, 0.5f, GL_QUADS, true, box}, {OGL_frame_rect, 1.0f, 1.0f, GL_LINE_STRIP, false, outline},
        {OGL_frame_rect, 0.5f, 0.5f, GL_LINE_STRIP, true, outline}, {OGL_draw_line, 0.5f, 0.5f, GL_LINES, true, line},
        {OGL_draw_line, 0.99f, 1.0f, GL_LINES, false, line}};
    for (const auto& r : rows) {
        gl.clear_log();
        r.draw(COLOR_TEXT, r.alpha, 10, 20, r.mode == GL_LINES ? 40 : 30, r.mode == GL_LINES ? 60 : 40);
        ASSERT_EQ(gl.prims.size(), 1u);
        const GlPrim& p = gl.prims[0];
        EXPECT_TRUE(p.mode == r.mode && xy(p) == r.v && !p.tex2d[0] && !p.depth_mask) << p.mode << " " << r.alpha;
        EXPECT_EQ(p.caps, r.blend ? std::set<GLenum>{GL_BLEND} : std::set<GLenum>{}) << p.mode << " " << r.alpha;
        EXPECT_THAT(std::vector<float>({p.v[0].r, p.v[0].g, p.v[0].a}), ElementsAre(0.1f, 1, r.drawn_alpha));
    }
}

TEST_F(Drawing, QuadsAndBackgroundTilesCarryTexCoordsAndBindTheirTextures) {
    for (int i = TEX_BACKGROUND; i <= TEX_BACKGROUND_LAST; ++i) fake_loaded(i);
    fake_loaded(TEX_SHEET);
    panel_x = 100, panel_y = 50;
    OGL_draw_quad(TEX_SHEET, COLOR_WHITE, 1.0f, 0, 0, 0, 0.5f, 0, 16, 0, 0.53125f, 32, 16, 0.0625f, 0.53125f, 32, 0,
                  0.0625f, 0.5f, 1, OGL_ALPHA_ON, OGL_BLEND_OFF);
    OGL_draw_quad(0, COLOR_WHITE, 1.0f, 0, 0, 0, 0, 0, 1, 0, 1, 1, 1, 1, 1, 1, 0, 1, 0, 2, OGL_ALPHA_OFF,
                  OGL_BLEND_ON);  // 0 keeps the bound texture
    ASSERT_EQ(gl.prims.size(), 2u);
    const GlPrim &q = gl.prims[0], &q2 = gl.prims[1];
    EXPECT_EQ(xy(q), (std::vector<P>{{100, 50}, {100, 66}, {132, 66}, {132, 50}}));
    EXPECT_EQ(xy(q, true), (std::vector<P>{{0, 0.5f}, {0, 0.53125f}, {0.0625f, 0.53125f}, {0.0625f, 0.5f}}));
    EXPECT_TRUE(q.tex[0] == TEX_SHEET && q.tex2d[0] && !q.tex2d[1] && q.caps == std::set<GLenum>{GL_ALPHA_TEST});
    EXPECT_TRUE(q2.tex[0] == TEX_SHEET && q2.tex2d[1] && q2.caps == std::set<GLenum>{GL_BLEND});

    gl.clear_log();
    OGL_draw_background();  // the panel origin plays no part: tile TEX_BACKGROUND + 4 j + i at column i, row j
    std::map<GLuint, P> tiles, want;
    for (int i = 0; i < 12; ++i) want[TEX_BACKGROUND + i] = P(256 * (i % 4), 256 * (i / 4));
    for (const GlPrim& p : gl.prims) {
        const float l = p.v[0].x, b = p.v[0].y;
        tiles[p.tex[0]] = P(l, b);
        EXPECT_EQ(xy(p), (std::vector<P>{{l, b}, {l, b + 256}, {l + 256, b + 256}, {l + 256, b}}));
        EXPECT_EQ(xy(p, true), (std::vector<P>{{0, 0}, {0, 1}, {1, 1}, {1, 0}}));
        EXPECT_TRUE(p.tex2d[0] && !p.tex2d[1] && p.caps == std::set<GLenum>{GL_ALPHA_TEST});
    }
    EXPECT_EQ(gl.prims.size(), 12u);
    EXPECT_EQ(tiles, want);
}

TEST_F(Drawing, ComposeWritesLinesAndRectanglesIntoTheImage) {
    bg_compose = 1;
    // A rectangle's x2, y2 are its width and height.
    const struct { bool rect; float px, py, x1, y1, x2, y2; std::set<P> expect; } rows[] = {
        {false, 0, 0, 0, 0, 3, 4, {{0, 0}, {1, 1}, {1, 2}, {2, 2}, {2, 3}, {3, 4}}},  // 0.6 i, 0.8 i rounded
        {false, 100, 50, 0, 0, 2, 0, {{100, 50}, {101, 50}, {102, 50}}}, {false, 0, 0, -1.6f, 0, -2.4f, 0, {}},
        {false, 0, 0, 5, 5, 5, 5, {{5, 5}}},  // zero length: the start pixel
        {false, 0, 0, 1022, 767, 1026, 767, {{1022, 767}, {1023, 767}}},  // cut at the image's edges
        {false, 0, 0, 0, 766, 0, 770, {{0, 766}, {0, 767}}},
        {true, 0, 0, 10.4f, 20.6f, 2, 2, {{10, 21}, {11, 21}, {10, 22}, {11, 22}}},
        {true, 1, 2, 1020.5f, 765, 10, 10, {{1022, 767}, {1023, 767}}}};
    for (const auto& r : rows) {
        memset(OGL_pixbuf, 0, OGL_PIXBUF_SIZE);
        panel_x = r.px, panel_y = r.py;
        if (r.rect)
            OGL_fill_rect(7, 0.2f, r.x1, r.y1, r.x2, r.y2);  // red; alpha plays no part in the image
        else
            OGL_draw_line(7, 1.0f, r.x1, r.y1, r.x2, r.y2);
        std::set<P> written;
        for (int i = 0; i < OGL_PIXBUF_SIZE / 4; ++i)  // the whole buffer: nothing past the image either
            if (OGL_pixbuf[i * 4 + 3] == 255) {
                written.insert(P((float)(i % COMPOSE_W), (float)(i / COMPOSE_W)));
                EXPECT_THAT(std::vector<int>(OGL_pixbuf + i * 4, OGL_pixbuf + i * 4 + 3), ElementsAre(255, 0, 0));
            }
        EXPECT_EQ(written, r.expect) << r.rect << " " << r.x1 << "," << r.y1;
    }
    EXPECT_TRUE(gl.prims.empty());
    OGL_frame_rect(8, 1.0f, 0, 0, 10, 10);  // outlines still go to GL, in the compose colour
    EXPECT_EQ(gl.prims.size(), 1u);
    EXPECT_THAT(compose_rgb, ElementsAre(255, 255, 0));
}

TEST(Qgl, LoadListsTheMissingEntriesAndResetEmptiesTheTable) {
    EXPECT_EQ(qgl_load([](const char* n) { return strcmp(n, "glFrustum") ? gl_recorder_proc(n) : nullptr; }), 1);
    EXPECT_STREQ(qgl_missing(0), "glFrustum");
    EXPECT_TRUE(qgl_missing(1) == nullptr && qglFrustum == nullptr && qglOrtho != nullptr);
    qgl_load_multitexture(gl_recorder_proc);
    qgl_reset();
    EXPECT_TRUE(qglOrtho == nullptr && qglActiveTextureARB == nullptr);
}
