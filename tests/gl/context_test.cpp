// The shell's window, capability checks and event pass on a real Mesa context.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

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

using testing::HasSubstr;

namespace {

class RealContext : public testing::Test {
  protected:
    void SetUp() override {
        dir = test_temp_dir();
        MACIBM_log_open((dir + "Error.out").c_str());
        design_space_reset();
        full_screen = 1;
        disp_bits = 16.0f;
        window_reset();
        plat_reset_messages();
        gl_state_reset();
        tex_reset();
        gl_caps_reset();
        event_loop_reset();
        input_reset();
        shutdown_reset();
        ASSERT_EQ(MACIBM_set_fullscreen(1), 1);
        ASSERT_EQ(MACIBM_open_window(), 1);
    }
    void TearDown() override {
        app_set_hooks(nullptr, nullptr, nullptr);
        MACIBM_shutdown();  // the release step closes the window; the log closes last
    }
    std::string log() { return test_read_file(dir + "Error.out"); }
    std::string dir;
};

TEST_F(RealContext, WindowIsUpWithTheTableFilled) {
    EXPECT_EQ(window_created, 1);
    int32_t w, h;
    plat_window_size(&w, &h);
    EXPECT_EQ(w, 1024);
    EXPECT_EQ(h, 768);
    EXPECT_NE(qglGetString, nullptr);
    EXPECT_NE(qglGetString(GL_VERSION), nullptr);
    MACIBM_gl_multitexture();
    EXPECT_NE(qglActiveTextureARB, nullptr);
}

TEST_F(RealContext, ChecksReportMesaWholeAndSetTheDefaultState) {
    MACIBM_gl_checks();
    const char* ext = reinterpret_cast<const char*>(qglGetString(GL_EXTENSIONS));
    ASSERT_NE(ext, nullptr);
    std::string report = log();
    EXPECT_THAT(report, HasSubstr("OpenGL Situation:\nOpenGL Vendor    :"));
    EXPECT_THAT(report, HasSubstr(std::string("OpenGL Extensions:") + ext + "\nfound_opengl_12  :0\n"));
    EXPECT_GT(strlen(ext), 4999u);  // this driver's list is longer than once assumed
    EXPECT_EQ(GlCaps.found_mul_tex, 1);
    EXPECT_EQ(clamp_ok, GlCaps.found_clamp_SGI || GlCaps.found_clamp_ARB);
    EXPECT_GE(GlCaps.num_tex_units, 2);
    EXPECT_EQ(sw_cursor, 1);  // llvmpipe or another Mesa renderer
    EXPECT_EQ(strlen(GlCaps.renderer), 4u);
    EXPECT_TRUE(qglIsEnabled(GL_CULL_FACE));
    EXPECT_TRUE(qglIsEnabled(GL_COLOR_MATERIAL));
    EXPECT_FALSE(qglIsEnabled(GL_SCISSOR_TEST));
    GLint front = 0, unpack = 0;
    qglGetIntegerv(GL_FRONT_FACE, &front);
    qglGetIntegerv(GL_UNPACK_ALIGNMENT, &unpack);
    EXPECT_EQ(front, GL_CW);
    EXPECT_EQ(unpack, 1);
}

// A pass draws what the application draws, in design units, and presents it.
uint8_t seen[4];
void draw_and_read() {
    OGL_set_palette(20, 1.0f, 0.0f, 0.0f);
    OGL_fill_rect(20, 1.0f, 100, 100, 200, 100);
    qglReadPixels(200, 150, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, seen);
}

// The twelve background tiles, as the screens leave them, all one colour.
void load_background(uint8_t grey) {
    static uint8_t tile[256 * 256 * 4];
    memset(tile, grey, sizeof tile);
    for (int32_t id = 311; id <= 322; ++id) {
        OGL_load_tex("background texture", id, 0, GL_RGBA, 256, 256, tile);
        qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    }
    // The interface sheet the software pointer is cut from: fully transparent here.
    static uint8_t sheet[512 * 512 * 4];
    OGL_load_tex("general_interface", 300, 0, GL_RGBA, 512, 512, sheet);
    qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
}

TEST_F(RealContext, PassDrawsTheApplicationInDesignUnits) {
    MACIBM_gl_checks();
    load_background(255);
    OGL_set_projection(2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
    app_set_hooks(draw_and_read, nullptr, nullptr);
    cur_screen = SCREEN_MAIN;
    memset(seen, 0, sizeof seen);
    for (int i = 0; i < 5 && !event_loop_painted(); ++i) MACIBM_event_pass();  // the paint message arrives
    MACIBM_event_pass();
    EXPECT_EQ(seen[0], 255);
    EXPECT_EQ(seen[1], 0);
    EXPECT_EQ(seen[2], 0);
}

TEST_F(RealContext, ShutDownReleasesTheWindow) {
    MACIBM_shutdown();
    EXPECT_FALSE(plat_window_is_open());
    EXPECT_FALSE(MACIBM_log_is_open());
}

}  // namespace
