// Text and panels drawn from the generated interface sheet on a real Mesa context: at one
// unit per texel every glyph of the field face and every panel corner shows its sheet texels.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "base/shutdown.h"
#include "graphics/bitmap.h"
#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/palette_names.h"
#include "graphics/qgl.h"
#include "graphics/textures.h"
#include "kit/boxes.h"
#include "kit/font.h"
#include "shell/event_loop.h"
#include "tests/support/test_files.h"
#include "util/folders.h"
#include "util/prefs.h"
#include "window/gl_caps.h"
#include "window/window.h"

TEST(KitPixels, GlyphsAndPanelCornersShowTheirSheetTexels) {
    const std::string folder = std::string(getenv("VOCALOG_BINARY_DIR")) + "/";
    // The generator's bitmap read here directly: 54 header bytes, then unpadded BGR rows from the bottom.
    const std::string bmp = test_read_file(folder + "Resources/bitmaps/general_interface.bmp");
    ASSERT_EQ(bmp.size(), 54u + 512 * 512 * 3) << "the art generator's sheet";
    const int clear[3] = {3, 5, 7};  // shows through transparent (magenta) texels
    auto texel = [&](int u, int v) {
        const uint8_t* p = reinterpret_cast<const uint8_t*>(bmp.data()) + 54 + (v * 512 + u) * 3;
        return p[0] == 255 && p[1] == 0 && p[2] == 255 ? std::vector<int>(clear, clear + 3)
                                                       : std::vector<int>{p[2], p[1], p[0]};
    };
    folders_fill(folder.c_str(), folder.c_str());
    design_space_reset();
    full_screen = 0, disp_bits = 32.0f;
    window_reset(), gl_state_reset(), OGL_default_palette(), tex_reset(), gl_caps_reset(), shutdown_reset();
    window_set_proc(MACIBM_window_proc);
    ASSERT_EQ(MACIBM_open_window(), 1);
    MACIBM_gl_checks();
    qglDisable(GL_DITHER);
    OGL_set_projection(2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
    int32_t w, h;
    ASSERT_EQ(OGL_texbmp(-100, OGL_TEX_SHEET, -106, "general_interface.bmp", &w, &h), 1);
    qglClearColor(clear[0] / 255.0f, clear[1] / 255.0f, clear[2] / 255.0f, 1);
    qglClear(GL_COLOR_BUFFER_BIT);

    // The field face's whole character set on one line (character k at x 20 + 6 k, glyphs from
    // y 100), and a style 3 panel asked at (300, 300) 300 x 200: it covers 300..608 x 292..500.
    const char* chars = FACE_LAYOUT_CELLS[LAYOUT_TEXT];
    OGL_draw_string(PAL_LIT, 20, 102, chars, FONT_NO_WRAP, FACE_FIELD);
    BTN_util_draw_panel(PANEL_DIALOG, 300, 300, 300, 200, "");
    std::vector<uint8_t> frame(1024 * 768 * 4);
    qglReadPixels(0, 0, 1024, 768, GL_RGBA, GL_UNSIGNED_BYTE, frame.data());
    auto pixel = [&](int x, int y) { return std::vector<int>(&frame[(y * 1024 + x) * 4], &frame[(y * 1024 + x) * 4 + 3]); };
    auto same = [&](int x, int y, int u, int v, int w, int h) {  // the first differing pixel, or ""
        for (int j = 0; j < h; ++j)
            for (int i = 0; i < w; ++i)
                if (pixel(x + i, y + j) != texel(u + i, v + j))
                    return std::to_string(x + i) + "," + std::to_string(y + j);
        return std::string();
    };
    const FaceInfo& f = *face_info(FACE_FIELD);
    for (int k = 0; chars[k]; ++k) {
        const int cell = OGL_glyph_cell(chars[k], FACE_FIELD);
        EXPECT_EQ(same(20 + 6 * k, 100, (int)f.u + cell % f.columns * f.w, (int)f.v + cell / f.columns * f.h, f.w, f.h), "")
            << "character " << chars[k];
    }
    const SheetBlock& b = BTN_sheet[SHEET_PANEL3];  // side and bottom edges 30, top edge 48
    const int right = b.x + b.w - 30, top = b.y + b.h - 48;
    EXPECT_EQ(same(300, 292, b.x, b.y, 30, 30) + same(578, 292, right, b.y, 30, 30) +
                  same(300, 452, b.x, top, 30, 48) + same(578, 452, right, top, 30, 48), "");
    for (auto [x, y] : {std::pair(299, 400), std::pair(608, 400), std::pair(400, 500), std::pair(400, 291)})
        EXPECT_EQ(pixel(x, y), std::vector<int>(clear, clear + 3)) << x << "," << y;  // nothing outside
    MACIBM_shutdown();
}
