// The window, capability checks, primitives, textures and event pass on a real Mesa context,
// the frame read back and compared pixel by pixel.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/primitives.h"
#include "graphics/qgl.h"
#include "graphics/textures.h"
#include "platform/platform.h"
#include "shell/app_hooks.h"
#include "shell/event_loop.h"
#include "shell/gl_caps.h"
#include "shell/input.h"
#include "shell/log.h"
#include "shell/pending_parts.h"
#include "shell/shutdown.h"
#include "shell/window.h"
#include "tests/support/test_files.h"
#include "util/prefs.h"

namespace {

using Rgb = std::array<int, 3>;
const Rgb black{0, 0, 0}, red{255, 0, 0}, white{255, 255, 255};

class RealContext : public testing::Test {
protected:
    void SetUp() override {
        MACIBM_log_open((dir + "Error.out").c_str());
        design_space_reset();
        full_screen = 1;
        disp_bits = 32.0f;
        window_reset(), plat_reset_messages(), gl_state_reset(), OGL_default_palette(), tex_reset(), gl_caps_reset();
        event_loop_reset(), input_reset(), shutdown_reset();
        ASSERT_EQ(MACIBM_set_fullscreen(1), 1);
        ASSERT_EQ(MACIBM_open_window(), 1);
        MACIBM_gl_checks();  // and the default state that all drawing starts from
        MACIBM_gl_multitexture();
        qglDisable(GL_DITHER);
        OGL_set_projection(2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
        qglClearColor(0, 0, 0, 1);
        qglClear(GL_COLOR_BUFFER_BIT);
    }
    void TearDown() override {
        app_set_hooks(nullptr, nullptr, nullptr);
        MACIBM_shutdown();  // the release step closes the window; the log closes last
    }
    void grab() {
        frame.assign(1024 * 768 * 4, 0);
        qglReadPixels(0, 0, 1024, 768, GL_RGBA, GL_UNSIGNED_BYTE, frame.data());
    }
    Rgb at(int x, int y) const {  // y upward, as the design space
        const uint8_t* p = frame.data() + (y * 1024 + x) * 4;
        return {p[0], p[1], p[2]};
    }
    void expect_box(int x0, int y0, int x1, int y1, Rgb c) const {  // inclusive; reports the first stray pixel
        for (int y = y0; y <= y1; ++y)
            for (int x = x0; x <= x1; ++x)
                if (at(x, y) != c)
                    return ADD_FAILURE() << "pixel " << x << "," << y << " is " << testing::PrintToString(at(x, y))
                                         << ", not " << testing::PrintToString(c);
    }
    std::string dir = test_temp_dir();
    std::vector<uint8_t> frame;
};

TEST_F(RealContext, ChecksReportMesaWholeAndShutDownReleasesTheWindow) {
    int32_t w, h;
    plat_window_size(&w, &h);
    EXPECT_EQ(std::pair(w, h), std::pair(1024, 768));
    const char* ext = reinterpret_cast<const char*>(qglGetString(GL_EXTENSIONS));
    ASSERT_NE(ext, nullptr);
    EXPECT_GT(strlen(ext), 4999u);  // this driver's list is longer than once assumed, and is kept whole
    const std::string report = test_read_file(dir + "Error.out");
    EXPECT_THAT(report, testing::HasSubstr("OpenGL Situation:\nOpenGL Vendor    :"));
    EXPECT_THAT(report, testing::HasSubstr(std::string("OpenGL Extensions:") + ext + "\nfound_opengl_12  :0\n"));
    EXPECT_TRUE(GlCaps.found_mul_tex == 1 && GlCaps.num_tex_units >= 2 && qglActiveTextureARB);
    EXPECT_EQ(sw_cursor, 1);  // llvmpipe or another Mesa renderer
    MACIBM_shutdown();
    EXPECT_FALSE(plat_window_is_open() || MACIBM_log_is_open());
}

TEST_F(RealContext, PrimitivesCoverExactlyTheirPixels) {
    panel_x = 40, panel_y = 30;
    OGL_fill_rect(7, 1.0f, 60, 70, 50, 40);  // design 100..150 x 100..140
    panel_x = panel_y = 0;
    OGL_fill_rect(0, 1.0f, 0, 200, 100, 50);
    OGL_fill_rect(9, 0.5f, 0, 200, 50, 50);  // blue at half over white
    OGL_draw_line(0, 1.0f, 10, 300, 60, 300);
    OGL_frame_rect(7, 1.0f, 200, 200, 20, 10);
    // Two texture units and back to none, then a quad on unit 1: 4 x 4 RGBA texels
    // (60 x, 60 y, 200), texel (3, 3) transparent, drawn 16 pixels each.
    static uint8_t px[4 * 4 * 4];
    for (int t = 0; t < 16; ++t) {
        uint8_t* p = px + t * 4;
        p[0] = (uint8_t)(60 * (t % 4)), p[1] = (uint8_t)(60 * (t / 4)), p[2] = 200, p[3] = t == 15 ? 0 : 255;
    }
    OGL_load_tex("quad", 400, 0, GL_RGBA, 4, 4, px);
    qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    OGL_set_state(3, 2, 5, 7, 9, 11, 13);
    OGL_set_state(3, 0, 5, 7, 9, 11, 13);
    OGL_draw_quad(400, 0, 1.0f, 400, 200, 0, 0, 400, 264, 0, 1, 464, 264, 1, 1, 464, 200, 1, 0, 1, 6, 9);
    grab();

    expect_box(100, 100, 149, 139, red);
    for (Rgb c : {at(99, 120), at(150, 120), at(120, 99), at(120, 140)}) EXPECT_EQ(c, black);
    EXPECT_NEAR(at(25, 225)[0], 128, 2);
    EXPECT_EQ(at(25, 225)[2], 255);
    EXPECT_EQ(at(75, 225), white);
    expect_box(11, 300, 59, 300, white);  // lines and outlines sit on pixel centres
    expect_box(11, 299, 59, 299, black);
    expect_box(11, 301, 59, 301, black);
    expect_box(202, 200, 218, 200, red);  // the outline runs through columns 200 and 220, rows 200 and 210
    expect_box(202, 210, 218, 210, red);
    expect_box(200, 202, 200, 208, red);
    expect_box(220, 202, 220, 208, red);
    expect_box(202, 202, 218, 208, black);
    for (int t = 0; t < 16; ++t) {
        const int x = t % 4, y = t / 4, l = 400 + 16 * x + 1, b = 200 + 16 * y + 1;
        expect_box(l, b, l + 13, b + 13, t == 15 ? black : Rgb{60 * x, 60 * y, 200});
    }
}

// A pass draws what the application draws, in design units, and presents it.
uint8_t seen[4];
void draw_and_read() {
    OGL_set_palette(20, 1.0f, 0.0f, 0.0f);
    OGL_fill_rect(20, 1.0f, 100, 100, 200, 100);
    qglReadPixels(200, 150, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, seen);
}

TEST_F(RealContext, PassDrawsTheApplicationInDesignUnits) {
    static uint8_t tile[256 * 256 * 4], sheet[512 * 512 * 4];  // white background, clear pointer sheet
    memset(tile, 255, sizeof tile);
    for (int32_t id = 311; id <= 322; ++id) OGL_load_tex("background texture", id, 0, GL_RGBA, 256, 256, tile);
    OGL_load_tex("general_interface", 300, 0, GL_RGBA, 512, 512, sheet);
    app_set_hooks(draw_and_read, nullptr, nullptr);
    cur_screen = SCREEN_MAIN;
    for (int i = 0; i < 5 && !event_loop_painted(); ++i) MACIBM_event_pass();  // the paint message arrives
    MACIBM_event_pass();
    EXPECT_THAT(seen, testing::ElementsAre(255, 0, 0, testing::_));
}

}  // namespace
