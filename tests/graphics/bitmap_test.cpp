// The BMP reader: header checks and alerts, padding, filters, scaling, compose mode, the checkerboard.
#include "tests/graphics/gfx_fixture.h"

#include <cstring>
#include <filesystem>

#include "graphics/bitmap.h"
#include "tests/support/bmp_file.h"
#include "util/folders.h"

using Texel = std::vector<int>;
using testing::ExitedWithCode;
static std::string last_progress;
constexpr uint32_t BMP_MAGENTA = 0xFF00FF;

class Bitmap : public Gfx {
protected:
    std::string root = test_temp_dir(), dir = root + "Resources/bitmaps/";
    void SetUp() override {
        Gfx::SetUp();
        std::filesystem::create_directories(dir);
        folders_fill(root.c_str(), root.c_str());
        progress_set([](const char* m) { last_progress = m; });
    }
    void TearDown() override { progress_set(nullptr); }
    static Texel texel(const uint8_t* pixels, int row, int x, int y, int bpt) {  // rows of `row` texels
        return Texel(pixels + (y * row + x) * bpt, pixels + (y * row + x + 1) * bpt);
    }
    Texel uploaded(GLuint tex, int x, int y, int bpt) {  // of level 0
        const GlUpload* up = gl.upload(tex, 0);
        return up ? texel(up->pixels.data(), up->width, x, y, bpt) : Texel{};
    }
    static Texel composed(int x, int y) { return texel(OGL_pixbuf, 1024, x, y, 4); }
    // Writes `name`.BMP and reads it in `mode` (BMP_TEXTURE or BMP_COMPOSE).
    int32_t load(const std::string& name, const BmpLayout& b, int32_t mode, int32_t where, int32_t filter,
                 int32_t* w = nullptr, int32_t* h = nullptr) {
        bmp_write(dir, name + ".BMP", b);
        return OGL_texbmp(mode, where, filter, name.c_str(), w, h);
    }
};

// A picture whose every pixel tells its place: red = x, green = y, blue = 7.
static uint32_t place_colour(int32_t x, int32_t y) { return (uint32_t)x << 16 | (uint32_t)y << 8 | 7u; }

TEST_F(Bitmap, HeaderChecksEndTheProgramWithThePath) {
    // Each row also spoils the field of the next check: the first check in order speaks.
    const struct { BmpLayout layout; std::string l1, l2, l3; } rows[] = {
        {{.width = 1025, .magic = 0x4142}, "Trying to read a texture bitmap that is not a bitmap", "", ""},
        {{.width = 1025, .height = 2000}, "Bitmap too wide! (max is 1024)", "", ""},
        {{.height = 2000, .bits = 32}, "Bitmap too tall! (max is 1024)", "", ""},
        {{.bits = 8, .compression = 1}, "Wrong bitmap color depth for texture!", "We need 24-bit color.", ""},
        {{.bits = 32}, "Wrong bitmap color depth for texture!", "We need 24-bit color.", ""},
        {{.compression = 1, .truncate_to = 40}, "Bitmap is compressed!", "", ""},
        {{.truncate_to = 40}, "File-scanning error!", "grf_inf.fail", "file:"}};
    for (const auto& r : rows)
        EXPECT_EXIT(load("bad", r.layout, BMP_TEXTURE, TEX_SHEET, BMP_MAGENTA_CLEAR), ExitedWithCode(0),
                    fatal_text(r.l1, r.l2, r.l3, dir + "bad.BMP")) << r.l1;
    for (int32_t filter : {BMP_RGB + 1, BMP_GREY_ALPHA_MIP - 1})
        EXPECT_EXIT(OGL_texbmp(BMP_TEXTURE, TEX_SHEET, filter, "bad", nullptr, nullptr), ExitedWithCode(0),
                    fatal_text("Bad filter type!", "", "", "bad"));
}

TEST_F(Bitmap, PathsProgressAndTheCheckerboardOfAMissingFile) {
    bmp_write(dir, "pic.bmp", {.width = 2, .height = 2});
    const std::string full = root + "Resources:bitmaps:pic.bmp";  // under the program folder already
    EXPECT_EQ(OGL_texbmp(BMP_TEXTURE, 401, BMP_RGB, full.c_str(), nullptr, nullptr), 1);
    EXPECT_EQ(last_progress, "Loading bitmap Resources:bitmaps:pic.bmp.");
    int32_t w = 0, h = 0;  // "pic" looks for pic.BMP and finds pic.bmp; folders too are found case-blind
    EXPECT_EQ(OGL_texbmp(BMP_TEXTURE, 403, BMP_RGB, "pic", &w, &h), 1);
    EXPECT_EQ(std::tuple(w + h, last_progress), std::tuple(4, "Loading bitmap pic."));
    std::filesystem::create_directories(dir + "intro");
    bmp_write(dir + "intro/", "english.bmp", {.width = 2, .height = 2});
    EXPECT_EQ(OGL_texbmp(BMP_COMPOSE, 0, BMP_RGB, "Intro:English", nullptr, nullptr), 1);
    EXPECT_EQ(OGL_texbmp(BMP_TEXTURE, 402, BMP_RGB, "gone", nullptr, nullptr), 0);  // in RGB
    EXPECT_EQ(OGL_texbmp(BMP_TEXTURE, TEX_SHEET, BMP_MAGENTA_CLEAR, "gone", &w, &h), 0);
    const GlUpload* up = gl.upload(TEX_SHEET, 0);
    EXPECT_TRUE(w == 16 && h == 16 && up->width == 16 && up->height == 16 && up->format == GL_RGBA);
    for (auto [x, y, g] : {std::tuple{0, 0, 100}, {1, 0, 200}, {6, 9, 200}}) {
        EXPECT_EQ(uploaded(TEX_SHEET, x, y, 4), (Texel{g, g, g, 255})) << x << "," << y;
        EXPECT_EQ(uploaded(402, x, y, 3), (Texel{g, g, g})) << x << "," << y;
    }
    auto& params = gl.tex_params[TEX_SHEET];  // the sheet is drawn texel for texel
    EXPECT_EQ(std::pair(params[GL_TEXTURE_MIN_FILTER], params[GL_TEXTURE_MAG_FILTER]), std::pair(GL_NEAREST, GL_NEAREST));
    EXPECT_EXIT(OGL_texbmp(BMP_COMPOSE, 0, BMP_RGB, "intro:korean", &w, &h), ExitedWithCode(0),
                fatal_text("Can't open bitmap!", dir + "intro/korean.BMP"));
}

TEST_F(Bitmap, RowsDropTheirPaddingAndTurnIntoTexels) {
    for (int32_t w : {1, 2, 4})  // 1 and 2 pixels: 1 and 2 padding bytes
        for (int32_t bpt : {3, 4}) {
            int32_t ow = 0, oh = 0;
            ASSERT_EQ(load("pad", {.width = w, .height = 4, .pixel = place_colour}, BMP_TEXTURE, 400,
                           bpt == 3 ? BMP_RGB : BMP_MAGENTA_CLEAR, &ow, &oh), 1);
            std::vector<uint8_t> want;  // red x, green y, blue 7 and, in 4-byte texels, alpha 255
            for (int t = 0; t < w * 4; ++t) {
                const uint8_t texel[4] = {(uint8_t)(t % w), (uint8_t)(t / w), 7, 255};
                want.insert(want.end(), texel, texel + bpt);
            }
            EXPECT_EQ(std::tuple(ow, oh, gl.upload(400, 0)->pixels), std::tuple(w, 4, want)) << w << " " << bpt;
            EXPECT_EQ(gl.tex_params[400][GL_TEXTURE_MAG_FILTER], GL_LINEAR);
        }
}

TEST_F(Bitmap, ComposeLaysThePictureOverTheBufferAtItsPlace) {
    ASSERT_EQ(load("odd", {.width = 101, .height = 3, .pixel = place_colour}, BMP_COMPOSE, 0, BMP_RGB), 1);  // 303 + 1
    for (int t = 0; t < 303; ++t) ASSERT_EQ(composed(t % 101, t / 101), (Texel{t % 101, t / 101, 7, 255})) << t;
    EXPECT_TRUE(gl.uploads.empty());

    memset(OGL_pixbuf, 9, 1024 * 64 * 4);
    int32_t w = 0, h = 0;
    ASSERT_EQ(load("over", {.width = 4, .height = 2, .pixel = [](int32_t x, int32_t y) {
                                return x == 1 && y == 0 ? BMP_MAGENTA : place_colour(x, y);
                            }}, BMP_COMPOSE, 10 * 10000 + 20, BMP_RGB, &w, &h), 1);
    EXPECT_EQ(std::pair(w, h), std::pair(4, 2));
    EXPECT_EQ(composed(10, 20), (Texel{0, 0, 7, 255}));  // picture row 0 is the bottom
    EXPECT_EQ(composed(13, 21), (Texel{3, 1, 7, 255}));
    for (auto [x, y] : {std::pair{11, 20}, {9, 20}, {10, 22}})  // magenta leaves what was there
        EXPECT_EQ(composed(x, y), (Texel{9, 9, 9, 9})) << x << "," << y;
    EXPECT_EXIT(load("edge", {}, BMP_COMPOSE, 1022, BMP_RGB), ExitedWithCode(0),
                testing::HasSubstr("OGL_texbmp data out of bounds!\n\n" + dir + "edge.BMP\n\nThis may be a custom"));
}

TEST_F(Bitmap, AlphaFiltersAndMipmaps) {
    const uint32_t row[4] = {BMP_MAGENTA, 0x1E3C5C, 0xFFFFFF, BMP_MAGENTA};  // (30, 60, 92) second
    bmp_write(dir, "a.BMP", {.width = 4, .height = 1, .pixel = [&](int32_t x, int32_t) { return row[x]; }});
    // Magenta turns transparent grey unless bled (index 260 is not) with its opaque neighbour's colour;
    // grey alpha is the mean of the three, cut.
    const struct { int32_t index, filter, x; Texel want; } rows[] = {
        {260, BMP_MAGENTA_CLEAR, 0, {128, 128, 128, 0}}, {260, BMP_MAGENTA_CLEAR, 1, {30, 60, 92, 255}},
        {400, BMP_MAGENTA_CLEAR, 0, {30, 60, 92, 0}}, {401, BMP_GREY_ALPHA, 1, {30, 60, 92, 60}},
        {401, BMP_GREY_ALPHA, 0, {255, 0, 255, 170}}};
    for (const auto& r : rows) {
        OGL_texbmp(BMP_TEXTURE, r.index, r.filter, "a", nullptr, nullptr);
        EXPECT_EQ(uploaded(r.index, r.x, 0, 4), r.want) << r.index << " " << r.filter << " at " << r.x;
    }
    OGL_texbmp(BMP_TEXTURE, 402, BMP_GREY_ALPHA_MIP, "a", nullptr, nullptr);  // mipmapped: every level
    EXPECT_TRUE(gl.upload(402, 2) && !gl.upload(402, 3));
    EXPECT_EQ(gl.tex_params[402][GL_TEXTURE_MIN_FILTER], GL_LINEAR_MIPMAP_LINEAR);
}

TEST_F(Bitmap, ScalesDownToTheDriversMaximum) {
    gl.integers[GL_MAX_TEXTURE_SIZE] = 4;
    // 8 x 8: each 2 x 2 block averages; the block at (1, 1) has three magenta pixels.
    int32_t w, h;
    ASSERT_EQ(load("big", {.width = 8, .height = 8, .pixel = [](int32_t x, int32_t y) -> uint32_t {
                               if (x / 2 == 1 && y / 2 == 1 && !(x == 3 && y == 3)) return BMP_MAGENTA;
                               return (uint32_t)(x * 10 + y) << 16 | 0x0000FFu;
                           }}, BMP_TEXTURE, 400, BMP_RGB, &w, &h), 1);
    EXPECT_EQ(std::tuple(w, h, gl.upload(400, 0)->width, gl.upload(400, 0)->height), std::tuple(4, 4, 4, 4));
    EXPECT_EQ(uploaded(400, 0, 0, 3), (Texel{5, 0, 255}));  // red 0, 10, 1, 11: 5 (cut)
    EXPECT_EQ(uploaded(400, 2, 0, 3), (Texel{45, 0, 255}));
    EXPECT_EQ(uploaded(400, 1, 1, 3), (Texel{255, 0, 255}));  // too few plain pixels
    // 3 x 2 with a maximum of 2: not a whole number of texels, so of every two rows the last
    // is kept, and of it every second pixel.
    gl.integers[GL_MAX_TEXTURE_SIZE] = 2;
    ASSERT_EQ(load("odd", {.width = 3, .height = 2, .pixel = place_colour}, BMP_TEXTURE, 401, BMP_RGB, &w, &h), 1);
    EXPECT_EQ(std::pair(w, h), std::pair(2, 1));
    EXPECT_THAT(gl.upload(401, 0)->pixels, ElementsAre(0, 1, 7, 2, 1, 7));
}
