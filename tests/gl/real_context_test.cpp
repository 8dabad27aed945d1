// The window, capability checks, primitives, textures and the kit's text and panels on a real
// Mesa context: the frame read back and compared pixel by pixel, and the shut-down that releases it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "base/log.h"
#include "base/shutdown.h"
#include "graphics/bitmap.h"
#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/primitives.h"
#include "graphics/qgl.h"
#include "kit/boxes.h"
#include "kit/font.h"
#include "platform/platform.h"
#include "shell/event_loop.h"
#include "tests/support/test_files.h"
#include "util/folders.h"
#include "util/prefs.h"
#include "window/gl_caps.h"
#include "window/window.h"

using Rgb = std::array<int, 3>;

TEST(RealContext, OpensChecksDrawsExactlyItsPixelsAndShutsDown) {
    const std::string dir = test_temp_dir(), folder = std::string(getenv("VOCALOG_BINARY_DIR")) + "/";
    folders_fill(folder.c_str(), folder.c_str());  // the generated interface sheet lies there
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

    const Rgb clear{3, 5, 7};  // shows through the sheet's transparent (magenta) texels
    qglDisable(GL_DITHER);
    OGL_set_projection(OGL_PROJ_DESIGN, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
    qglClearColor(clear[0] / 255.0f, clear[1] / 255.0f, clear[2] / 255.0f, 1);
    qglClear(GL_COLOR_BUFFER_BIT);
    panel_x = 40, panel_y = 30;
    OGL_fill_rect(7, 1.0f, 60, 70, 50, 40);  // red over design 100..150 x 100..140
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
    // The field face's whole character set on one line (character k at x 20 + 6 k, glyphs from
    // y 600), and a style 3 panel asked at (300, 300) 300 x 200: it covers 300..608 x 292..500.
    int32_t sw, sh;
    ASSERT_EQ(OGL_texbmp(BMP_TEXTURE, TEX_SHEET, BMP_MAGENTA_CLEAR, "general_interface.bmp", &sw, &sh), 1);
    const char* chars = FACE_LAYOUT_CELLS[LAYOUT_TEXT];
    OGL_draw_string(COLOR_LIT, 20, 602, chars, FONT_NO_WRAP, FACE_FIELD);
    BTN_util_draw_panel(PANEL_DIALOG, 300, 300, 300, 200, "");

    std::vector<uint8_t> frame(1024 * 768 * 4);
    qglReadPixels(0, 0, 1024, 768, GL_RGBA, GL_UNSIGNED_BYTE, frame.data());
    auto at = [&](int x, int y) {  // y upward, as the design space
        const uint8_t* p = &frame[(y * 1024 + x) * 4];
        return Rgb{p[0], p[1], p[2]};
    };
    // The generator's sheet read here directly: 54 header bytes, then unpadded BGR rows from the bottom.
    const std::string bmp = test_read_file(folder + "Resources/bitmaps/general_interface.bmp");
    ASSERT_EQ(bmp.size(), 54u + 512 * 512 * 3) << "the art generator's sheet";
    auto texel = [&](int u, int v) {
        const uint8_t* p = reinterpret_cast<const uint8_t*>(bmp.data()) + 54 + (v * 512 + u) * 3;
        return p[0] == 255 && p[1] == 0 && p[2] == 255 ? clear : Rgb{p[2], p[1], p[0]};
    };
    // The first pixel of a w x h box at (x, y) that is not `c` (or, with c empty, texel (u, v) on).
    auto stray = [&](int x, int y, int w, int h, std::optional<Rgb> c, int u = 0, int v = 0) {
        for (int j = 0; j < h; ++j)
            for (int i = 0; i < w; ++i)
                if (at(x + i, y + j) != (c ? *c : texel(u + i, v + j)))
                    return std::to_string(x + i) + "," + std::to_string(y + j);
        return std::string();
    };
    const Rgb red{255, 0, 0};
    const struct { int x, y, w, h; Rgb c; } boxes[] = {  // the red rectangle and its edges, white, the quad's texels
        {100, 100, 50, 40, red}, {99, 100, 1, 40, clear}, {150, 100, 1, 40, clear}, {100, 99, 50, 1, clear},
        {100, 140, 50, 1, clear}, {75, 225, 1, 1, {255, 255, 255}}, {400, 200, 16, 16, {60, 120, 200}},
        {416, 200, 16, 16, clear}};  // texels 16 pixels wide
    for (const auto& b : boxes) EXPECT_EQ(stray(b.x, b.y, b.w, b.h, b.c), "");
    EXPECT_NEAR(at(25, 225)[0], 128, 2);  // blue at half over white
    EXPECT_EQ(at(25, 225)[2], 255);
    const FaceInfo& f = *face_info(FACE_FIELD);
    for (int k = 0; chars[k]; ++k) {
        const int cell = OGL_glyph_cell(chars[k], FACE_FIELD);
        const int u = (int)f.u + cell % f.columns * f.w, v = (int)f.v + cell / f.columns * f.h;
        EXPECT_EQ(stray(20 + 6 * k, 600, f.w, f.h, {}, u, v), "") << "character " << chars[k];
    }
    const SheetBlock& b = BTN_sheet[SHEET_PANEL3];  // side and bottom edges 30, top edge 48
    const int right = b.x + b.w - 30, top = b.y + b.h - 48;
    EXPECT_EQ(stray(300, 292, 30, 30, {}, b.x, b.y) + stray(578, 292, 30, 30, {}, right, b.y) +
                  stray(300, 452, 30, 48, {}, b.x, top) + stray(578, 452, 30, 48, {}, right, top), "");
    for (auto [x, y] : {std::pair(299, 400), {608, 400}, {400, 500}, {400, 291}})
        EXPECT_EQ(at(x, y), clear) << x << "," << y;  // nothing outside the panel
    MACIBM_shutdown();  // the release step closes the window; the log closes last
    EXPECT_FALSE(plat_window_is_open() || MACIBM_log_is_open());
}
