// Text and panels drawn from the generated interface sheet on a real Mesa context: at one
// unit per texel every glyph and panel corner shows its sheet texels exactly.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
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
#include "util/folders.h"
#include "util/prefs.h"
#include "window/gl_caps.h"
#include "window/window.h"

namespace {

using Rgb = std::array<int, 3>;
const Rgb CLEAR = {3, 5, 7};  // shows where the sheet is transparent

// The sheet's texels straight from the bitmap file: 24-bit rows, bottom row first, BGR.
struct Sheet {
    std::vector<uint8_t> bgr;
    int w = 0, h = 0;
    bool read(const std::string& path) {
        FILE* f = fopen(path.c_str(), "rb");
        if (!f) return false;
        uint8_t head[54];
        bool ok = fread(head, 1, 54, f) == 54;
        w = head[18] | head[19] << 8, h = head[22] | head[23] << 8;
        bgr.resize((size_t)w * h * 3);
        ok = ok && fread(bgr.data(), 1, bgr.size(), f) == bgr.size() && w * 3 % 4 == 0;
        fclose(f);
        return ok;
    }
    Rgb seen(int u, int v) const {  // as drawn over CLEAR: magenta is transparent
        const uint8_t* p = &bgr[((size_t)v * w + u) * 3];
        if (p[2] == 255 && p[1] == 0 && p[0] == 255) return CLEAR;
        return {p[2], p[1], p[0]};
    }
};

class KitPixels : public testing::Test {
protected:
    Sheet sheet;
    std::vector<uint8_t> frame = std::vector<uint8_t>(1024 * 768 * 4);

    void SetUp() override {
        const std::string folder = std::string(getenv("VOCALOG_BINARY_DIR")) + "/";
        ASSERT_TRUE(sheet.read(folder + "Resources/bitmaps/general_interface.bmp")) << "the art generator's sheet";
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
        qglClearColor(CLEAR[0] / 255.0f, CLEAR[1] / 255.0f, CLEAR[2] / 255.0f, 1);
        qglClear(GL_COLOR_BUFFER_BIT);
    }
    void TearDown() override { MACIBM_shutdown(); }

    void read_frame() { qglReadPixels(0, 0, 1024, 768, GL_RGBA, GL_UNSIGNED_BYTE, frame.data()); }
    Rgb at(int x, int y) const {
        const uint8_t* p = &frame[((size_t)y * 1024 + x) * 4];
        return {p[0], p[1], p[2]};
    }
    // Pixels x..x+w, y..y+h against texels u.., v..; the first difference, or "".
    std::string differs(int x, int y, int u, int v, int w, int h) const {
        for (int j = 0; j < h; ++j)
            for (int i = 0; i < w; ++i)
                if (at(x + i, y + j) != sheet.seen(u + i, v + j))
                    return "pixel " + std::to_string(x + i) + "," + std::to_string(y + j) + " vs texel " +
                           std::to_string(u + i) + "," + std::to_string(v + j);
        return "";
    }
};

}  // namespace

TEST_F(KitPixels, EveryGlyphOfTheFieldFaceShowsItsCell) {
    // The whole character set in one line: character k at x0 + 6 k. Its cell is found from
    // the sheet's own look-up, the pixels compared with the texels of the bitmap file.
    const char* chars = FACE_LAYOUT_CELLS[LAYOUT_TEXT];
    OGL_draw_string(PAL_LIT, 20, 102, chars, FONT_NO_WRAP, FACE_FIELD);
    read_frame();
    const FaceInfo& f = *face_info(FACE_FIELD);
    for (int k = 0; chars[k]; ++k) {
        const int cell = OGL_glyph_cell(chars[k], FACE_FIELD);
        const int u = (int)f.u + cell % f.columns * f.w, v = (int)f.v + cell / f.columns * f.h;
        EXPECT_EQ(differs(20 + 6 * k, 100, u, v, f.w, f.h), "") << "character " << chars[k];
    }
}

TEST_F(KitPixels, PanelCornersShowTheBlockCorners) {
    // Style 3 asked at (300, 300) 300 x 200 covers 300..608 x 292..500; its block has side and
    // bottom edges of 30 and a top edge of 48.
    BTN_util_draw_panel(PANEL_DIALOG, 300, 300, 300, 200, "");
    read_frame();
    const SheetBlock& b = BTN_sheet[SHEET_PANEL3];
    const struct { int x, y, u, v, w, h; } corners[] = {
        {300, 292, b.x, b.y, 30, 30}, {578, 292, b.x + b.w - 30, b.y, 30, 30},
        {300, 452, b.x, b.y + b.h - 48, 30, 48}, {578, 452, b.x + b.w - 30, b.y + b.h - 48, 30, 48}};
    for (const auto& c : corners) EXPECT_EQ(differs(c.x, c.y, c.u, c.v, c.w, c.h), "") << c.x << "," << c.y;
    EXPECT_EQ(at(299, 400), CLEAR);  // nothing outside the box
    EXPECT_EQ(at(608, 400), CLEAR);
    EXPECT_EQ(at(400, 500), CLEAR);
}
