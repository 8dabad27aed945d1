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
static void units(int32_t n) {
    OGL_set_state(OGL_FOG_OFF, n, OGL_LIGHT_OFF, OGL_ALPHA_OFF, OGL_BLEND_OFF, OGL_DEPTH_OFF, OGL_DEPTHW_OFF);
}

// Each row switches from the state the row before left: the capabilities then on; the depth mask
// is set every time and the colour left opaque white.
TEST_F(Drawing, StateSwitchTouchesOnlyCapabilitiesWhoseCodeDiffers) {
    const struct { std::array<int32_t, 6> to; std::set<GLenum> caps; } rows[] = {  // fog, light, alpha, blend, depth, mask
        {{OGL_FOG_OFF, OGL_LIGHT_OFF, OGL_ALPHA_OFF, OGL_BLEND_OFF, OGL_DEPTH_OFF, OGL_DEPTHW_OFF}, {}},
        {{OGL_FOG_ON, OGL_LIGHT_ON, OGL_ALPHA_ON, OGL_BLEND_ON, OGL_DEPTH_ON, OGL_DEPTHW_ON},
         {GL_FOG, GL_LIGHTING, GL_LIGHT0, GL_ALPHA_TEST, GL_BLEND, GL_DEPTH_TEST}},
        {{OGL_FOG_ON, OGL_LIGHT_OFF, OGL_ALPHA_ON, OGL_BLEND_OFF, OGL_DEPTH_ON, OGL_DEPTHW_OFF},
         {GL_FOG, GL_ALPHA_TEST, GL_DEPTH_TEST}},                // lighting takes GL_LIGHT0 along
        {{99, 0, -1, OGL_BLEND_ON, 99, OGL_DEPTHW_ON}, {GL_BLEND}}};  // anything but an on code is off
    for (const auto& [t, caps] : rows) {
        OGL_set_rgba(0, 0, 0, 0, 1), gl.clear_log();
        OGL_set_state(t[0], 1, t[1], t[2], t[3], t[4], t[5]);
        EXPECT_EQ(std::tuple(gl.caps, gl.count("glDepthMask"), gl.depth_mask), std::tuple(caps, 1, t[5] == OGL_DEPTHW_ON));
        EXPECT_THAT(gl.color, ElementsAre(1, 1, 1, 1));
    }
}

// From one unit on to each row's count: GL_TEXTURE_2D on exactly the units in use, the first left active.
TEST_F(Drawing, TextureUnitsSwitchEachUnitAndLeaveTheFirstActive) {
    for (int32_t n : {1, 0, 2, 1, 3, 0}) {
        gl.clear_log(), units(n);
        EXPECT_EQ(std::pair(gl.active_unit, gl_tex_units), std::pair(0, n));
        for (int k = 0; k < GLREC_UNITS; ++k) EXPECT_EQ(gl.tex2d[k], k < n) << n << " unit " << k;
    }
    gl.clear_log(), units(0);  // nothing differs: nothing switched
    EXPECT_EQ(gl.count("glEnable") + gl.count("glDisable") + gl.count("glActiveTextureARB"), 0);
}

TEST_F(Drawing, ColourRuleTintAlphaComposeAndSwap) {
    EXPECT_THAT(OGL_palette[111], ElementsAre(1, 0.3f, 0));  // the defaults reach the last entry
    OGL_tint[0] = 0.5f, OGL_tint[1] = 0.25f, OGL_tint[2] = 0.5f;
    OGL_set_palette(OGL_TINTED, 1, 1, 1);
    const struct { int32_t index; float alpha; const char* call; float r, g, b, a; } rows[] = {
        {48, 1.0f, "glColor3fv", 0, 0, 0.4f, 1}, {OGL_TINTED, 1.0f, "glColor3fv", 1, 1, 1, 1},  // the tinted end
        {COLOR_TEXT, 0.99f, "glColor3fv", 0.1f, 1, 0.1f, 1}, {2, 0.5f, "glColor4f", 0.5f, 0.05f, 0.1f, 0.5f}};
    for (const auto& r : rows) {
        gl.clear_log(), OGL_set_color(r.index, r.alpha);
        EXPECT_EQ(gl.count(r.call), 1) << r.index << " " << r.alpha;
        EXPECT_THAT(gl.color, ElementsAre(r.r, r.g, r.b, r.a)) << r.index << " " << r.alpha;
    }
    OGL_set_swap([]() -> int32_t { return 7; });
    EXPECT_EQ(OGL_swap_buffers(), 7);
    EXPECT_THAT(gl.color, ElementsAre(1, 1, 1, 1));  // COLOR_LIT, never tinted
    OGL_set_swap(nullptr);
    EXPECT_EQ(OGL_swap_buffers(), 0);

    bg_compose = 1, gl.clear_log();  // bytes recorded untinted, nothing sent
    OGL_set_color(21, 0.3f);
    EXPECT_TRUE(gl.calls.empty());
    EXPECT_THAT(compose_rgb, ElementsAre(26, 26, 26));  // 25.5 rounded
    OGL_set_rgba(1, 1, 1, 0.5f, 0);  // the direct colour is tinted and sent in any mode
    EXPECT_THAT(gl.color, ElementsAre(0.5f, 0.25f, 0.5f, 0.5f));
    OGL_set_rgba(1, 1, 1, 1, 1);
    EXPECT_THAT(gl.color, ElementsAre(1, 1, 1, 1));
}

// Mode 2 adds the design space and margins to the sides given. Mode 3 (scale 4/3, margin 88):
// sides times near, bottom and top times h / w of the viewport, which moves right by the margin
// and grows with the scale.
TEST_F(Drawing, ProjectionSpansTheWindowWithItsMargins) {
    const struct { int32_t mode; float w, h; std::string calls; } rows[] = {
        {OGL_PROJ_DESIGN, 1280, 1024, "glOrtho(-1,1025,-1,820.2,-1,1)\nglViewport(0,0,1280,1024)"},
        {OGL_PROJ_DESIGN, 1600, 1024, "glOrtho(-89,1113,-1,769,-1,1)\nglViewport(0,0,1600,1024)"},
        {OGL_PROJ_PERSPECTIVE, 1600, 1024, "glFrustum(-2,2,-1,1,2,100)\nglViewport(117,0,400,200)"}};
    for (const auto& r : rows) {
        disp_width = r.w, disp_height = r.h;
        design_space_fit(), gl.clear_log();
        OGL_set_projection(r.mode, -1, -1, 1, 1, 0, 0, 300, 150, 2, 100, 1);
        EXPECT_EQ(gl.text(), "glMatrixMode(5889)\nglLoadIdentity()\n" + r.calls +  // projection, then modelview
                                 "\nglMatrixMode(5888)\nglLoadIdentity()\n");
    }
}

TEST_F(Drawing, ShapesAddThePanelOriginAndChooseBlending) {
    panel_x = 312, panel_y = 274;
    const std::vector<P> box = {{322, 294}, {322, 334}, {352, 334}, {352, 294}},
                         line = {{322.5f, 294.5f}, {352.5f, 334.5f}},
                         outline = {{322.5f, 294.5f}, {322.5f, 334.5f}, {352.5f, 334.5f}, {352.5f, 294.5f}, line[0]};
    using Draw = void (*)(int32_t, float, float, float, float, float);
    const struct { Draw draw; float alpha, drawn_alpha; GLenum mode; bool blend; const std::vector<P>& v; } rows[] = {
        {OGL_fill_rect, 1.0f, 1.0f, GL_QUADS, true, box},  // filled rectangles always blend
        {OGL_frame_rect, 1.0f, 1.0f, GL_LINE_STRIP, false, outline},
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
    ASSERT_EQ(gl.prims.size(), 12u);
    for (const GlPrim& p : gl.prims) {
        const int tile = (int)p.tex[0] - TEX_BACKGROUND;
        const float l = 256.0f * (float)(tile % 4), b = 256.0f * (float)(tile / 4);
        EXPECT_EQ(xy(p), (std::vector<P>{{l, b}, {l, b + 256}, {l + 256, b + 256}, {l + 256, b}})) << p.tex[0];
        EXPECT_EQ(xy(p, true), (std::vector<P>{{0, 0}, {0, 1}, {1, 1}, {1, 0}}));
        EXPECT_TRUE(p.tex2d[0] && !p.tex2d[1] && p.caps == std::set<GLenum>{GL_ALPHA_TEST});
    }
}

TEST_F(Drawing, ComposeWritesLinesAndRectanglesIntoTheImage) {
    bg_compose = 1;
    // A rectangle's x2, y2 are its width and height.
    const struct { bool rect; float px, py, x1, y1, x2, y2; std::set<P> expect; } rows[] = {
        {false, 0, 0, 0, 0, 3, 4, {{0, 0}, {1, 1}, {1, 2}, {2, 2}, {2, 3}, {3, 4}}},  // 0.6 i, 0.8 i rounded
        {false, 100, 50, 0, 0, 2, 0, {{100, 50}, {101, 50}, {102, 50}}}, {false, 0, 0, -1.6f, 0, -2.4f, 0, {}},
        {false, 0, 0, 5, 5, 5, 5, {{5, 5}}},  // zero length: the start pixel
        {false, 0, 0, 1022, 767, 1026, 767, {{1022, 767}, {1023, 767}}},  // cut at the image's edges
        {true, 0, 0, 10.4f, 20.6f, 2, 2, {{10, 21}, {11, 21}, {10, 22}, {11, 22}}},
        {true, 1, 2, 1020.5f, 765, 10, 10, {{1022, 767}, {1023, 767}}}};
    for (const auto& r : rows) {
        memset(OGL_pixbuf, 0, OGL_PIXBUF_SIZE);
        panel_x = r.px, panel_y = r.py;
        if (r.rect) OGL_fill_rect(7, 0.2f, r.x1, r.y1, r.x2, r.y2);  // red; alpha plays no part in the image
        else OGL_draw_line(7, 1.0f, r.x1, r.y1, r.x2, r.y2);
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
