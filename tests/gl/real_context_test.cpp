// The window, capability checks, primitives and textures on a real Mesa context, the frame read
// back and compared pixel by pixel, and the shut-down that releases it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "shell/event_loop.h"
#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/primitives.h"
#include "graphics/qgl.h"
#include "graphics/textures.h"
#include "platform/platform.h"
#include "window/gl_caps.h"
#include "base/log.h"
#include "base/shutdown.h"
#include "window/window.h"
#include "tests/support/test_files.h"
#include "util/prefs.h"

using Rgb = std::array<int, 3>;

TEST(RealContext, OpensChecksDrawsExactlyItsPixelsAndShutsDown) {
    const std::string dir = test_temp_dir();
    MACIBM_log_open((dir + "Error.out").c_str());
    design_space_reset();
    full_screen = 1, disp_bits = 32.0f;
    window_reset(), plat_reset_messages(), gl_state_reset(), OGL_default_palette(), tex_reset(), gl_caps_reset();
    shutdown_reset();
    ASSERT_EQ(MACIBM_set_fullscreen(1), 1);
    window_set_proc(MACIBM_window_proc);
    ASSERT_EQ(MACIBM_open_window(), 1);
    MACIBM_gl_checks();  // and the default state that all drawing starts from
    MACIBM_gl_multitexture();
    int32_t w, h;
    plat_window_size(&w, &h);
    EXPECT_EQ(std::pair(w, h), std::pair(1024, 768));
    const char* ext = reinterpret_cast<const char*>(qglGetString(GL_EXTENSIONS));
    ASSERT_NE(ext, nullptr);
    EXPECT_GT(strlen(ext), 4999u);  // this driver's list is longer than once assumed, and is kept whole
    EXPECT_THAT(test_read_file(dir + "Error.out"),
                testing::HasSubstr(std::string("OpenGL Extensions:") + ext + "\nfound_opengl_12  :0\n"));
    EXPECT_TRUE(GlCaps.found_mul_tex == 1 && GlCaps.num_tex_units >= 2 && qglActiveTextureARB);
    EXPECT_EQ(sw_cursor, 1);  // llvmpipe or another Mesa renderer

    qglDisable(GL_DITHER);
    OGL_set_projection(OGL_PROJ_DESIGN, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
    qglClearColor(0, 0, 0, 1);
    qglClear(GL_COLOR_BUFFER_BIT);
    panel_x = 40, panel_y = 30;
    OGL_fill_rect(7, 1.0f, 60, 70, 50, 40);
    panel_x = panel_y = 0;
    OGL_fill_rect(COLOR_WHITE, 1.0f, 0, 200, 100, 50);
    OGL_fill_rect(9, 0.5f, 0, 200, 50, 50);
    // Two texture units and back to none, then a quad on unit 1 of an opaque and a transparent texel.
    static const uint8_t px[2 * 4] = {60, 120, 200, 255, 90, 90, 90, 0};
    OGL_load_tex("quad", 400, 0, GL_RGBA, 2, 1, px);
    qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    OGL_set_state(OGL_FOG_OFF, 2, OGL_LIGHT_OFF, OGL_ALPHA_OFF, OGL_BLEND_OFF, OGL_DEPTH_OFF, OGL_DEPTHW_OFF);
    OGL_set_state(OGL_FOG_OFF, 0, OGL_LIGHT_OFF, OGL_ALPHA_OFF, OGL_BLEND_OFF, OGL_DEPTH_OFF, OGL_DEPTHW_OFF);
    OGL_draw_quad(400, COLOR_WHITE, 1.0f, 400, 200, 0, 0, 400, 216, 0, 1, 432, 216, 1, 1, 432, 200, 1, 0, 1,
                  OGL_ALPHA_ON, OGL_BLEND_OFF);

    std::vector<uint8_t> frame(1024 * 768 * 4);
    qglReadPixels(0, 0, 1024, 768, GL_RGBA, GL_UNSIGNED_BYTE, frame.data());
    auto at = [&](int x, int y) {  // y upward, as the design space
        const uint8_t* p = &frame[(y * 1024 + x) * 4];
        return Rgb{p[0], p[1], p[2]};
    };
    auto expect_box = [&](int x0, int y0, int x1, int y1, Rgb c) {  // inclusive; reports the first stray pixel
        for (int y = y0; y <= y1; ++y)
            for (int x = x0; x <= x1; ++x)
                if (at(x, y) != c)
                    return ADD_FAILURE() << "pixel " << x << "," << y << " is " << testing::PrintToString(at(x, y))
                                         << ", not " << testing::PrintToString(c);
    };
    const Rgb black{0, 0, 0}, red{255, 0, 0};
    const struct { int x0, y0, x1, y1; Rgb c; } boxes[] = {  // the rectangle covers design 100..150 x 100..140
        {100, 100, 149, 139, red}, {99, 100, 99, 139, black},   {150, 100, 150, 139, black},
        {100, 99, 149, 99, black}, {100, 140, 149, 140, black}, {75, 225, 75, 225, {255, 255, 255}},
        {400, 200, 415, 215, {60, 120, 200}}, {416, 200, 431, 215, black}};  // texels 16 pixels wide
    for (const auto& b : boxes) expect_box(b.x0, b.y0, b.x1, b.y1, b.c);
    EXPECT_NEAR(at(25, 225)[0], 128, 2);  // blue at half over white
    EXPECT_EQ(at(25, 225)[2], 255);
    MACIBM_shutdown();  // the release step closes the window; the log closes last
    EXPECT_FALSE(plat_window_is_open() || MACIBM_log_is_open());
}
