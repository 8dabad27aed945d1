// Quads, texture coordinates and the background against the recording GL; compose-mode pixels.
#include "tests/graphics/gfx_fixture.h"

#include <cstring>
#include <set>
#include <utility>

#include "graphics/primitives.h"

using Primitives = Gfx;

static std::vector<std::pair<float, float>> xy(const GlPrim& p) {
    std::vector<std::pair<float, float>> out;
    for (const auto& v : p.v) out.emplace_back(v.x, v.y);
    return out;
}

using P = std::pair<float, float>;

TEST_F(Primitives, ShapesAddThePanelOriginAndTheirOffsets) {
    panel_x = 312;
    panel_y = 274;
    OGL_fill_rect(66, 1.0f, 10, 20, 30, 40);
    OGL_frame_rect(66, 1.0f, 10, 20, 30, 40);
    OGL_draw_line(66, 1.0f, 1, 2, 3, 4);
    ASSERT_EQ(gl.prims.size(), 3u);
    EXPECT_EQ(gl.prims[0].mode, (GLenum)GL_QUADS);
    EXPECT_THAT(xy(gl.prims[0]), testing::ElementsAre(P(322, 294), P(322, 334), P(352, 334), P(352, 294)));
    EXPECT_TRUE(gl.prims[0].caps.count(GL_BLEND));  // filled rectangles always blend
    EXPECT_EQ(gl.prims[1].mode, (GLenum)GL_LINE_STRIP);
    EXPECT_THAT(xy(gl.prims[1]), testing::ElementsAre(P(322.5f, 294.5f), P(322.5f, 334.5f), P(352.5f, 334.5f),
                                                      P(352.5f, 294.5f), P(322.5f, 294.5f)));
    EXPECT_EQ(gl.prims[2].mode, (GLenum)GL_LINES);
    EXPECT_THAT(xy(gl.prims[2]), testing::ElementsAre(P(313.5f, 276.5f), P(315.5f, 278.5f)));
    for (const auto& p : gl.prims) {
        EXPECT_FALSE(p.tex2d[0]);  // untextured
        EXPECT_FLOAT_EQ(p.v[0].g, 1.0f);
        EXPECT_FLOAT_EQ(p.v[0].r, 0.1f);
        EXPECT_FALSE(p.depth_mask);
    }
}

TEST_F(Primitives, QuadCarriesTexCoordsAndBindsItsTexture) {
    fake_loaded(300);
    panel_x = 100;
    OGL_draw_quad(300, 0, 1.0f, 0, 0, 0.0f, 0.5f, 0, 16, 0.0f, 0.53125f, 32, 16, 0.0625f, 0.53125f, 32, 0, 0.0625f,
                  0.5f, 1, 6, 9);
    ASSERT_EQ(gl.prims.size(), 1u);
    const GlPrim& q = gl.prims[0];
    EXPECT_EQ(q.tex[0], 300u);
    EXPECT_TRUE(q.tex2d[0]);
    EXPECT_TRUE(q.caps.count(GL_ALPHA_TEST));
    EXPECT_FALSE(q.caps.count(GL_BLEND));
    EXPECT_THAT(xy(q), testing::ElementsAre(P(100, 0), P(100, 16), P(132, 16), P(132, 0)));
    const float st[4][2] = {{0, 0.5f}, {0, 0.53125f}, {0.0625f, 0.53125f}, {0.0625f, 0.5f}};
    for (int i = 0; i < 4; ++i) {
        EXPECT_FLOAT_EQ(q.v[i].s, st[i][0]);
        EXPECT_FLOAT_EQ(q.v[i].t, st[i][1]);
    }
    // Texture 0 keeps whatever is bound.
    gl.clear_log();
    OGL_draw_quad(0, 0, 1.0f, 0, 0, 0, 0, 0, 1, 0, 1, 1, 1, 1, 1, 1, 0, 1, 0, 1, 6, 9);
    EXPECT_EQ(gl.count("glBindTexture"), 0);
    EXPECT_EQ(gl.prims[0].tex[0], 300u);
}

TEST_F(Primitives, BackgroundTilesIgnoreThePanelOrigin) {
    for (int i = 311; i <= 322; ++i) fake_loaded(i);
    panel_x = 312;
    panel_y = 274;
    OGL_draw_background();
    ASSERT_EQ(gl.prims.size(), 12u);
    std::set<GLuint> seen;
    for (const GlPrim& p : gl.prims) {
        ASSERT_EQ(p.v.size(), 4u);
        int i = (int)(p.v[0].x / 256), j = (int)(p.v[0].y / 256);
        EXPECT_EQ(p.tex[0], (GLuint)(311 + 4 * j + i));  // tile 311 + 4 j + i at column i, row j
        EXPECT_THAT(xy(p), testing::ElementsAre(P(256.f * i, 256.f * j), P(256.f * i, 256.f * (j + 1)),
                                                P(256.f * (i + 1), 256.f * (j + 1)), P(256.f * (i + 1), 256.f * j)));
        const float st[4][2] = {{0, 0}, {0, 1}, {1, 1}, {1, 0}};
        for (int k = 0; k < 4; ++k) {
            EXPECT_EQ(p.v[k].s, st[k][0]);
            EXPECT_EQ(p.v[k].t, st[k][1]);
        }
        EXPECT_TRUE(p.caps.count(GL_ALPHA_TEST));
        seen.insert(p.tex[0]);
    }
    EXPECT_EQ(seen.size(), 12u);
}

// ---- compose mode: lines and rectangles into the background image ----

class Compose : public Gfx {
protected:
    void SetUp() override {
        Gfx::SetUp();
        memset(OGL_pixbuf, 0, COMPOSE_W * COMPOSE_H * 4);
        bg_compose = 1;
    }
    static const uint8_t* px(int x, int y) { return OGL_pixbuf + (y * COMPOSE_W + x) * 4; }
    // Every written pixel of the image (alpha 255).
    static std::set<P> written() {
        std::set<P> out;
        for (int y = 0; y < COMPOSE_H; ++y)
            for (int x = 0; x < COMPOSE_W; ++x)
                if (px(x, y)[3] == 255) out.insert(P((float)x, (float)y));
        return out;
    }
};

TEST_F(Compose, LineWritesRoundedUnitSteps) {
    OGL_draw_line(2, 1.0f, 0, 0, 3, 4);  // 1, 0.2, 0.2
    EXPECT_EQ(written(), (std::set<P>{{0, 0}, {1, 1}, {1, 2}, {2, 2}, {2, 3}, {3, 4}}));
    EXPECT_THAT(std::vector<int>(px(2, 3), px(2, 3) + 4), testing::ElementsAre(255, 51, 51, 255));
    EXPECT_TRUE(gl.prims.empty());  // nothing drawn to GL
}

TEST_F(Compose, LinesFollowThePanelAndClipAtTheImageEdge) {
    const struct {
        float px, py, x1, y1, x2, y2;
        std::set<P> expect;
    } rows[] = {
        {100, 50, 0, 0, 2, 0, {{100, 50}, {101, 50}, {102, 50}}},
        {0, 0, 5, 5, 5, 5, {{5, 5}}},                        // zero length: the start pixel
        {0, 0, 1022, 767, 1026, 767, {{1022, 767}, {1023, 767}}},  // right edge
        {0, 0, 0, 766, 0, 770, {{0, 766}, {0, 767}}},              // top edge
        {0, 0, -1.6f, 0, -2.4f, 0, {}},                            // left of the image
    };
    for (const auto& r : rows) {
        memset(OGL_pixbuf, 0, COMPOSE_W * COMPOSE_H * 4);
        panel_x = r.px, panel_y = r.py;
        OGL_draw_line(0, 1.0f, r.x1, r.y1, r.x2, r.y2);
        EXPECT_EQ(written(), r.expect) << r.x1 << "," << r.y1;
    }
}

TEST_F(Compose, RectangleFillsRoundedSpan) {
    const struct {
        float x, y, w, h;
        int c0, c1, r0, r1;  // inclusive
    } rows[] = {{10.4f, 20.6f, 5, 5, 10, 14, 21, 25}, {0, 0, 1, 1, 0, 0, 0, 0}, {1020.5f, 766, 10, 10, 1021, 1023, 766, 767}};
    for (const auto& r : rows) {
        memset(OGL_pixbuf, 0, COMPOSE_W * COMPOSE_H * 4);
        OGL_fill_rect(7, 0.2f, r.x, r.y, r.w, r.h);  // red; alpha plays no part in the image
        std::set<P> expect;
        for (int y = r.r0; y <= r.r1; ++y)
            for (int x = r.c0; x <= r.c1; ++x) expect.insert(P((float)x, (float)y));
        EXPECT_EQ(written(), expect) << r.x << "," << r.y;
        EXPECT_THAT(std::vector<int>(px(r.c0, r.r0), px(r.c0, r.r0) + 4), testing::ElementsAre(255, 0, 0, 255));
    }
    EXPECT_TRUE(gl.prims.empty());
}

TEST_F(Compose, FrameStillGoesToGlButRecordsTheColour) {
    OGL_frame_rect(8, 1.0f, 0, 0, 10, 10);
    EXPECT_TRUE(written().empty());
    ASSERT_EQ(gl.prims.size(), 1u);
    EXPECT_EQ(compose_rgb[0], 255);
    EXPECT_EQ(compose_rgb[2], 0);
}
