// The BMP reader: header checks and alerts, padding, filters, scaling, compose mode, the checkerboard.
#include "tests/graphics/gfx_fixture.h"

#include <cstring>
#include <filesystem>

#include "graphics/bitmap.h"
#include "shell/folders.h"
#include "tests/support/bmp_writer.h"

static std::string last_progress;

class Bitmap : public Gfx {
protected:
    std::string root = test_temp_dir();
    std::string dir = root + "Resources/bitmaps/";
    void SetUp() override {
        Gfx::SetUp();
        std::filesystem::create_directories(dir);
        folders_fill(root.c_str(), root.c_str());
        last_progress.clear();
        progress_set([](const char* m) { last_progress = m; });
    }
    void TearDown() override { progress_set(nullptr); }
    std::string write(const std::string& name, const BmpSpec& spec) { return bmp_write(dir, name, spec); }
    static std::vector<int> texel(const GlUpload* up, int x, int y, int bpt) {
        const uint8_t* p = up->pixels.data() + (y * up->width + x) * bpt;
        return std::vector<int>(p, p + bpt);
    }
};

// A picture whose every pixel tells its place: red = x, green = y, blue = 7.
static uint32_t place_colour(int32_t x, int32_t y) { return (uint32_t)x << 16 | (uint32_t)y << 8 | 7u; }

TEST_F(Bitmap, HeaderChecksEndTheProgramWithThePath) {
    const std::string path = dir + "bad.BMP";
    const struct {
        BmpSpec spec;
        std::string l1, l2, l3;
    } rows[] = {
        {{.magic = 0x4142}, "Trying to read a texture bitmap that is not a bitmap", "", ""},
        {{.width = 1025}, "Bitmap too wide! (max is 1024)", "", ""},
        {{.height = 2000}, "Bitmap too tall! (max is 1024)", "", ""},
        {{.bits = 32}, "Wrong bitmap color depth for texture!", "We need 24-bit color.", ""},
        {{.bits = 8}, "Wrong bitmap color depth for texture!", "We need 24-bit color.", ""},
        {{.compression = 1}, "Bitmap is compressed!", "", ""},
        {{.truncate_to = 40}, "File-scanning error!", "grf_inf.fail", "file:"},
    };
    for (const auto& r : rows) {
        write("bad.BMP", r.spec);
        EXPECT_EXIT(OGL_texbmp(BMP_TEXTURE, 300, -106, "bad", nullptr, nullptr), testing::ExitedWithCode(0),
                    fatal_text(r.l1, r.l2, r.l3, path))
            << r.l1;
    }
    EXPECT_EXIT(OGL_texbmp(BMP_TEXTURE, 300, -103, "bad", nullptr, nullptr), testing::ExitedWithCode(0),
                fatal_text("Bad filter type!", "", "", "bad"));
    EXPECT_EXIT(OGL_texbmp(BMP_TEXTURE, 300, -110, "bad", nullptr, nullptr), testing::ExitedWithCode(0),
                fatal_text("Bad filter type!", "", "", "bad"));
}

TEST_F(Bitmap, MissingFileGivesACheckerboardInTextureMode) {
    int32_t w = 0, h = 0;
    EXPECT_EQ(OGL_texbmp(BMP_TEXTURE, 300, -106, "general_interface", &w, &h), 0);
    EXPECT_EQ(w, 16);
    EXPECT_EQ(h, 16);
    const GlUpload* up = gl.upload(300, 0);
    ASSERT_NE(up, nullptr);
    ASSERT_EQ(up->width, 16);
    EXPECT_EQ(up->format, (GLenum)GL_RGBA);
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x) {
            int g = (x + y) % 2 ? 200 : 100;
            ASSERT_EQ(texel(up, x, y, 4), (std::vector<int>{g, g, g, 255})) << x << "," << y;
        }
    EXPECT_EQ(gl.tex_params[300][GL_TEXTURE_MIN_FILTER], GL_NEAREST);
    EXPECT_EQ(last_progress, "Loading bitmap general_interface.");

    EXPECT_EQ(OGL_texbmp(BMP_TEXTURE, 400, -104, "gone", &w, &h), 0);  // RGB checkerboard
    EXPECT_EQ(gl.upload(400, 0)->pixels.size(), 16u * 16u * 3u);
    EXPECT_EXIT(OGL_texbmp(BMP_COMPOSE, 0, -104, "intro:english", &w, &h), testing::ExitedWithCode(0),
                fatal_text("Can't open bitmap!", dir + "intro/english.BMP"));
}

TEST_F(Bitmap, RowsArePaddedToFourBytes) {
    for (int32_t w : {1, 2, 4, 8, 16}) {
        write("pad.BMP", {.width = w, .height = 4, .pixel = place_colour});
        for (int32_t filter : {-104, -106}) {
            int32_t ow = 0, oh = 0;
            ASSERT_EQ(OGL_texbmp(BMP_TEXTURE, 400, filter, "pad", &ow, &oh), 1);
            EXPECT_EQ(ow, w);
            EXPECT_EQ(oh, 4);
            const GlUpload* up = gl.upload(400, 0);
            int bpt = filter == -104 ? 3 : 4;
            ASSERT_EQ(up->pixels.size(), (size_t)(w * 4 * bpt));
            for (int y = 0; y < 4; ++y)
                for (int x = 0; x < w; ++x) {
                    std::vector<int> want = {x, y, 7};
                    if (bpt == 4) want.push_back(255);
                    ASSERT_EQ(texel(up, x, y, bpt), want) << "width " << w << " at " << x << "," << y;
                }
            EXPECT_EQ(gl.tex_params[400][GL_TEXTURE_MAG_FILTER], GL_LINEAR);
        }
    }
}

TEST_F(Bitmap, OddWidthComposesWithOnePaddingByte) {
    write("odd.BMP", {.width = 101, .height = 3, .pixel = place_colour});
    int32_t w, h;
    ASSERT_EQ(OGL_texbmp(BMP_COMPOSE, 0, -104, "odd", &w, &h), 1);
    EXPECT_EQ(w, 101);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 101; ++x) {
            const uint8_t* p = OGL_pixbuf + (y * 1024 + x) * 4;
            ASSERT_EQ(std::vector<int>(p, p + 4), (std::vector<int>{x, y, 7, 255})) << x << "," << y;
        }
    EXPECT_TRUE(gl.uploads.empty());
}

TEST_F(Bitmap, ComposeLaysThePictureOverTheBufferAtItsPlace) {
    memset(OGL_pixbuf, 9, 1024 * 64 * 4);
    write("over.BMP", {.width = 4, .height = 2, .pixel = [](int32_t x, int32_t y) {
                           return x == 1 && y == 0 ? BMP_MAGENTA : place_colour(x, y);
                       }});
    ASSERT_EQ(OGL_texbmp(BMP_COMPOSE, 10 * 10000 + 20, -104, "over", nullptr, nullptr), 1);
    auto at = [](int x, int y) {
        const uint8_t* p = OGL_pixbuf + (y * 1024 + x) * 4;
        return std::vector<int>(p, p + 4);
    };
    EXPECT_EQ(at(10, 20), (std::vector<int>{0, 0, 7, 255}));  // picture row 0 is the bottom
    EXPECT_EQ(at(13, 21), (std::vector<int>{3, 1, 7, 255}));
    EXPECT_EQ(at(11, 20), (std::vector<int>{9, 9, 9, 9}));    // magenta leaves what was there
    EXPECT_EQ(at(9, 20), (std::vector<int>{9, 9, 9, 9}));
    EXPECT_EQ(at(10, 22), (std::vector<int>{9, 9, 9, 9}));

    write("edge.BMP", {.width = 4, .height = 4});
    EXPECT_EXIT(OGL_texbmp(BMP_COMPOSE, 1022, -104, "edge", nullptr, nullptr), testing::ExitedWithCode(0),
                fatal_text("OGL_texbmp data out of bounds!", dir + "edge.BMP",
                           "This may be a custom cockpit with an instrument too far off the edge... fix the panel in "
                           "Hullwright!",
                           ""));
}

TEST_F(Bitmap, AlphaFilters) {
    // Row 0: magenta, (30, 60, 91), white, magenta.
    const uint32_t row[4] = {BMP_MAGENTA, 0x1E3C5B, 0xFFFFFF, BMP_MAGENTA};
    write("a.BMP", {.width = 4, .height = 1, .pixel = [&](int32_t x, int32_t) { return row[x]; }});
    // Index 260 is not bled: transparent texels keep the grey.
    OGL_texbmp(BMP_TEXTURE, 260, -106, "a", nullptr, nullptr);
    const GlUpload* up = gl.upload(260, 0);
    EXPECT_EQ(texel(up, 0, 0, 4), (std::vector<int>{128, 128, 128, 0}));
    EXPECT_EQ(texel(up, 1, 0, 4), (std::vector<int>{30, 60, 91, 255}));
    EXPECT_EQ(texel(up, 3, 0, 4), (std::vector<int>{128, 128, 128, 0}));
    // Index 400 is bled: transparent texels take their opaque neighbours' colour.
    OGL_texbmp(BMP_TEXTURE, 400, -106, "a", nullptr, nullptr);
    up = gl.upload(400, 0);
    EXPECT_EQ(texel(up, 0, 0, 4), (std::vector<int>{30, 60, 91, 0}));
    EXPECT_EQ(texel(up, 3, 0, 4), (std::vector<int>{255, 255, 255, 0}));
    // Grey alpha: (R + G + B) / 3, cut.
    OGL_texbmp(BMP_TEXTURE, 401, -107, "a", nullptr, nullptr);
    up = gl.upload(401, 0);
    EXPECT_EQ(texel(up, 1, 0, 4), (std::vector<int>{30, 60, 91, 60}));
    EXPECT_EQ(texel(up, 0, 0, 4), (std::vector<int>{255, 0, 255, 170}));
    // Mipmapped filters upload every level.
    OGL_texbmp(BMP_TEXTURE, 402, -109, "a", nullptr, nullptr);
    EXPECT_NE(gl.upload(402, 2), nullptr);
    EXPECT_EQ(gl.upload(402, 3), nullptr);
    EXPECT_EQ(gl.tex_params[402][GL_TEXTURE_MIN_FILTER], GL_LINEAR_MIPMAP_LINEAR);
}

TEST_F(Bitmap, ScalesDownToTheDriversMaximum) {
    gl.integers[GL_MAX_TEXTURE_SIZE] = 4;
    // 8 x 8: each 2 x 2 block averages; the block at (1, 1) has three magenta pixels.
    write("big.BMP", {.width = 8, .height = 8, .pixel = [](int32_t x, int32_t y) -> uint32_t {
                          if (x / 2 == 1 && y / 2 == 1 && !(x == 3 && y == 3)) return BMP_MAGENTA;
                          return (uint32_t)(x * 10 + y) << 16 | 0x0000FFu;
                      }});
    int32_t w, h;
    ASSERT_EQ(OGL_texbmp(BMP_TEXTURE, 400, -104, "big", &w, &h), 1);
    EXPECT_EQ(w, 4);
    EXPECT_EQ(h, 4);
    const GlUpload* up = gl.upload(400, 0);
    ASSERT_EQ(up->width, 4);
    ASSERT_EQ(up->height, 4);
    // Block (0, 0): red 0, 10, 1, 11 -> 5 (cut); block (2, 0): 40, 50, 41, 51 -> 45.
    EXPECT_EQ(texel(up, 0, 0, 3), (std::vector<int>{5, 0, 255}));
    EXPECT_EQ(texel(up, 2, 0, 3), (std::vector<int>{45, 0, 255}));
    EXPECT_EQ(texel(up, 1, 1, 3), (std::vector<int>{255, 0, 255}));  // too few plain pixels

    // 3 x 1 with a maximum of 2: not a whole number of texels, so every second pixel is taken.
    gl.integers[GL_MAX_TEXTURE_SIZE] = 2;
    write("odd.BMP", {.width = 3, .height = 1, .pixel = place_colour});
    ASSERT_EQ(OGL_texbmp(BMP_TEXTURE, 401, -104, "odd", &w, &h), 1);
    EXPECT_EQ(w, 2);
    EXPECT_EQ(h, 1);
    up = gl.upload(401, 0);
    EXPECT_EQ(texel(up, 0, 0, 3), (std::vector<int>{0, 0, 7}));
    EXPECT_EQ(texel(up, 1, 0, 3), (std::vector<int>{2, 0, 7}));
}

TEST_F(Bitmap, PathsUnderTheProgramFolderAndExplicitExtensions) {
    write("pic.bmp", {.width = 2, .height = 2});
    EXPECT_EQ(OGL_texbmp(BMP_TEXTURE, 400, -104, "pic.bmp", nullptr, nullptr), 1);
    EXPECT_EQ(last_progress, "Loading bitmap pic.bmp.");
    std::string full = root + "Resources:bitmaps:pic.bmp";
    EXPECT_EQ(OGL_texbmp(BMP_TEXTURE, 401, -104, full.c_str(), nullptr, nullptr), 1);
    EXPECT_EQ(last_progress, "Loading bitmap Resources:bitmaps:pic.bmp.");
    EXPECT_EQ(OGL_texbmp(BMP_TEXTURE, 402, -104, "pic", nullptr, nullptr), 0);  // looks for pic.BMP
}
