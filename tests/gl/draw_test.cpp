// The primitives and textures drawn by a real Mesa context and read back pixel by pixel.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/primitives.h"
#include "graphics/qgl.h"
#include "graphics/textures.h"
#include "platform/platform.h"

namespace {

struct Rgb {
    int r, g, b;
    bool operator==(const Rgb&) const = default;
};
std::ostream& operator<<(std::ostream& os, const Rgb& c) { return os << c.r << "," << c.g << "," << c.b; }

class Drawn : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(plat_window_open(1024, 768, 16));
        ASSERT_EQ(qgl_load(plat_gl_proc), 0) << qgl_missing(0);
        qgl_load_multitexture(plat_gl_proc);
        design_space_reset();
        gl_state_reset();
        OGL_default_palette();
        tex_reset();
        clamp_ok = 1;
        gl_tex_units = 1;
        // The fixed state drawing starts from: packed pixel rows, alpha blending and test,
        // clockwise front faces with back faces culled (the primitives wind clockwise).
        qglPixelStorei(GL_UNPACK_ALIGNMENT, 1);
        qglPixelStorei(GL_PACK_ALIGNMENT, 1);
        qglAlphaFunc(GL_GREATER, 0.0f);
        qglBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        qglFrontFace(GL_CW);
        qglEnable(GL_CULL_FACE);
        qglDisable(GL_DITHER);
        OGL_set_projection(2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
        qglClearColor(0, 0, 0, 1);
        qglClear(GL_COLOR_BUFFER_BIT);
    }
    void TearDown() override {
        plat_window_close();
        qgl_reset();
    }
    // Reads the frame once; pixel (x, y) with y upward, as the design space.
    void grab() {
        frame.assign(1024 * 768 * 4, 0);
        qglFinish();
        qglReadPixels(0, 0, 1024, 768, GL_RGBA, GL_UNSIGNED_BYTE, frame.data());
    }
    Rgb at(int x, int y) const {
        const uint8_t* p = frame.data() + (y * 1024 + x) * 4;
        return {p[0], p[1], p[2]};
    }
    // Every pixel of the inclusive box has colour c.
    void expect_box(int x0, int y0, int x1, int y1, Rgb c) const {
        int bad = 0;
        for (int y = y0; y <= y1; ++y)
            for (int x = x0; x <= x1; ++x)
                if (!(at(x, y) == c) && bad++ < 3) ADD_FAILURE() << "pixel " << x << "," << y << " is " << at(x, y);
        EXPECT_EQ(bad, 0) << "box " << x0 << "," << y0 << " .. " << x1 << "," << y1;
    }
    std::vector<uint8_t> frame;
};

const Rgb black{0, 0, 0}, red{255, 0, 0}, white{255, 255, 255};

TEST_F(Drawn, FilledRectangleCoversExactlyItsPixels) {
    panel_x = 40;
    panel_y = 30;
    OGL_fill_rect(7, 1.0f, 60, 70, 50, 40);  // design 100..150 x 100..140
    grab();
    expect_box(100, 100, 149, 139, red);
    for (Rgb c : {at(99, 120), at(150, 120), at(120, 99), at(120, 140)}) EXPECT_EQ(c, black);
}

TEST_F(Drawn, HalfAlphaRectangleBlends) {
    OGL_fill_rect(0, 1.0f, 0, 0, 100, 100);
    OGL_fill_rect(9, 0.5f, 0, 0, 50, 100);  // blue at half over white
    grab();
    Rgb c = at(25, 50);
    EXPECT_NEAR(c.r, 128, 2);
    EXPECT_NEAR(c.b, 255, 1);
    EXPECT_EQ(at(75, 50), white);
}

TEST_F(Drawn, LinesAndFramesSitOnPixelCentres) {
    OGL_draw_line(0, 1.0f, 10, 300, 60, 300);
    OGL_frame_rect(7, 1.0f, 200, 200, 20, 10);
    grab();
    expect_box(11, 300, 59, 300, white);
    expect_box(11, 299, 59, 299, black);
    expect_box(11, 301, 59, 301, black);
    // The outline's sides run through columns 200 and 220, rows 200 and 210.
    expect_box(202, 200, 218, 200, red);
    expect_box(202, 210, 218, 210, red);
    expect_box(200, 202, 200, 208, red);
    expect_box(220, 202, 220, 208, red);
    expect_box(202, 202, 218, 208, black);
}

TEST_F(Drawn, TexturedQuadShowsEveryTexelAndDropsTransparentOnes) {
    // 4 x 4 RGBA: texel (x, y) = (60 x, 60 y, 200); texel (3, 3) transparent.
    static uint8_t px[4 * 4 * 4];
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x) {
            uint8_t* t = px + (y * 4 + x) * 4;
            t[0] = (uint8_t)(60 * x), t[1] = (uint8_t)(60 * y), t[2] = 200, t[3] = (x == 3 && y == 3) ? 0 : 255;
        }
    OGL_load_tex("quad", 400, 0, GL_RGBA, 4, 4, px);
    qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    qglTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    OGL_draw_quad(400, 0, 1.0f, 200, 200, 0, 0, 200, 264, 0, 1, 264, 264, 1, 1, 264, 200, 1, 0, 1, 6, 9);
    grab();
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x) {
            Rgb want = (x == 3 && y == 3) ? black : Rgb{60 * x, 60 * y, 200};
            expect_box(200 + 16 * x + 1, 200 + 16 * y + 1, 200 + 16 * x + 14, 200 + 16 * y + 14, want);
        }
}

TEST_F(Drawn, ComposedImageComesBackThroughTheBackgroundTiles) {
    // Compose an image in the staging buffer, cut it into the twelve tiles as the screens do
    // (nearest filtering), draw the background and compare the frame with the image.
    bg_compose = 1;
    OGL_fill_rect(9, 1.0f, 0, 0, 1024, 768);
    OGL_fill_rect(7, 1.0f, 300.4f, 200.6f, 100, 50);
    OGL_draw_line(0, 1.0f, 0, 700, 1023, 640);
    bg_compose = 0;
    static uint8_t tile[256 * 256 * 4];
    for (int j = 0; j < 3; ++j)
        for (int i = 0; i < 4; ++i) {
            for (int v = 0; v < 256; ++v)
                memcpy(tile + v * 256 * 4, OGL_pixbuf + ((256 * j + v) * 1024 + 256 * i) * 4, 256 * 4);
            OGL_load_tex("background texture", 311 + 4 * j + i, 0, GL_RGBA, 256, 256, tile);
            qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
            qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
        }
    panel_x = 312;  // ignored by the background
    panel_y = 274;
    OGL_draw_background();
    grab();
    int bad = 0;
    for (int y = 0; y < 768; ++y)
        for (int x = 0; x < 1024; ++x) {
            const uint8_t* p = OGL_pixbuf + (y * 1024 + x) * 4;
            if (!(at(x, y) == Rgb{p[0], p[1], p[2]}) && bad++ < 3)
                ADD_FAILURE() << "pixel " << x << "," << y << " is " << at(x, y);
        }
    EXPECT_EQ(bad, 0);
    EXPECT_EQ(at(350, 225), red);
    EXPECT_EQ(at(0, 700), white);
    EXPECT_EQ(at(500, 500), (Rgb{0, 0, 255}));
}

TEST_F(Drawn, TwoTextureUnitsAndBackLeaveUnitOneWorking) {
    ASSERT_NE(qglActiveTextureARB, nullptr);
    static uint8_t green_px[4] = {0, 255, 0, 255};
    OGL_load_tex("g", 401, 0, GL_RGBA, 1, 1, green_px);
    OGL_set_state(3, 2, 5, 7, 9, 11, 13);
    OGL_set_state(3, 0, 5, 7, 9, 11, 13);
    GLboolean unit2 = GL_TRUE;
    qglActiveTextureARB(0x84C1);
    unit2 = qglIsEnabled(GL_TEXTURE_2D);
    qglActiveTextureARB(0x84C0);
    EXPECT_EQ(unit2, GL_FALSE);
    OGL_draw_quad(401, 0, 1.0f, 0, 0, 0, 0, 0, 10, 0, 1, 10, 10, 1, 1, 10, 0, 1, 0, 1, 6, 9);
    grab();
    expect_box(0, 0, 9, 9, Rgb{0, 255, 0});
}

}  // namespace
