// The bind cache, the upload checks and wrap rule, mipmap reduction and alpha bleeding.
#include <cstring>

#include "tests/graphics/gfx_fixture.h"
#include "util/random.h"

using Textures = Gfx;
using testing::ExitedWithCode;

TEST_F(Textures, BindCacheIsPerUnitAndLeavesTheFirstUnitActive) {
    fake_loaded(5);
    const struct { int32_t units, index, unit, binds, selects; } steps[] = {
        {1, TEX_SHEET, 1, 1, 0}, {1, TEX_SHEET, 1, 0, 0}, {2, 5, 2, 1, 2},  // unit 2 selected, then unit 1 again
        {2, 5, 2, 0, 0},   {2, TEX_SHEET, 1, 0, 0}, {2, 5, 1, 1, 1}};
    for (const auto& s : steps) {
        gl_tex_units = s.units, gl.clear_log();
        OGL_bind_tex(s.index, s.unit);
        EXPECT_EQ(std::tuple(gl.count("glBindTexture"), gl.count("glActiveTextureARB"), gl.bound[s.unit - 1], gl.active_unit),
                  std::tuple(s.binds, s.selects, (GLuint)s.index, 0)) << s.index << " on unit " << s.unit;
    }
}

TEST_F(Textures, BadBindsAndUploadsEndTheProgram) {
    fake_loaded(7);
    const struct { int32_t index, unit; const char* text; } binds[] = {
        {7, 0, "Too many texture units requested!"}, {7, 5, "Too many texture units requested!"},
        {-1, 1, "Too many textures requested!"}, {4894, 1, "Too many textures requested!"},
        {8, 1, "Trying to bind an un-inited tex!"}};
    for (const auto& b : binds) EXPECT_EXIT(OGL_bind_tex(b.index, b.unit), ExitedWithCode(0), fatal_text(b.text)) << b.index;
    // Each check ends the program before the pixels are read; 0 passes the power-of-two test.
    static uint8_t px[4 * 16];
    const auto pow2 = fatal_text("OGL_load_tex: Trying to read a texture that is not a power of 2!", "pic");
    const auto dim = testing::HasSubstr("OGL_load_tex: Trying to create a texture either less than 1 or greater than 1024");
    const struct { int32_t index, w, h; testing::Matcher<const std::string&> text; } uploads[] = {
        {10, 300, 4, pow2}, {10, 4, 12, pow2}, {10, 0, 4, dim}, {10, 2048, 4, dim}, {10, 4, 2048, dim},
        {-1, 4, 4, fatal_text("OGL_load_tex: Trying to bind too low  a texture index!", "pic")},
        {4894, 4, 4, fatal_text("OGL_load_tex: Trying to bind too high a texture index!", "pic")}};
    for (const auto& u : uploads)
        EXPECT_EXIT(OGL_load_tex("pic", u.index, 0, GL_RGBA, u.w, u.h, px), ExitedWithCode(0), u.text) << u.w << "x" << u.h;
    EXPECT_EXIT(OGL_mini_me("pic", 5000, BMP_MAGENTA_CLEAR_MIP, GL_RGBA, 4, 4, px), ExitedWithCode(0),
                fatal_text("OGL_mini_me: Trying to bind too high a texture index!", "pic"));
}

TEST_F(Textures, UploadBooksMemoryAndChoosesWrap) {
    static uint8_t px[4 * 1024];
    OGL_load_tex("a", 12, 0, GL_RGBA, 1024, 1, px);
    OGL_load_tex("a", 12, 1, GL_RGBA, 512, 1, px);
    EXPECT_EQ(OGL_tex_bytes[12], 4096 + 2048);
    OGL_load_tex("b", 12, 0, GL_ALPHA, 1, 1, px);  // a new level 0 starts the count again
    EXPECT_EQ(OGL_tex_bytes[12], 1);
    // The sheet clamps; index 999 is the last of the wide run that repeats.
    for (int32_t clamp : {0, 1})
        for (auto [index, repeat] : {std::pair(0, true), {TEX_SHEET, false}, {309, true}, {999, true}, {1000, false}}) {
            clamp_ok = clamp;
            OGL_load_tex("w", index, 0, GL_RGB, 2, 2, px);
            const GLint want = repeat ? GL_REPEAT : clamp ? GL_CLAMP_TO_EDGE : GL_CLAMP;
            EXPECT_EQ(std::pair(gl.tex_params[index][GL_TEXTURE_WRAP_S], gl.tex_params[index][GL_TEXTURE_WRAP_T]),
                      std::pair(want, want)) << index;
        }
}

TEST_F(Textures, MipmapsHalveNonSquareTexturesToOneAndPickOrAverageByIndex) {
    const struct { int32_t w, h; std::vector<std::tuple<int, int, int>> levels; } rows[] = {
        {4, 1, {{1, 2, 1}, {2, 1, 1}}}, {8, 2, {{1, 4, 1}, {2, 2, 1}, {3, 1, 1}}}, {1, 4, {{1, 1, 2}, {2, 1, 1}}},
        {1, 1, {}}};
    for (const auto& r : rows) {
        gl.clear_log();
        OGL_mini_me("m", TEX_SHEET, BMP_MAGENTA_CLEAR_MIP, GL_RGBA, r.w, r.h, OGL_pixbuf);
        std::vector<std::tuple<int, int, int>> got;  // level, width, height
        for (const GlUpload& u : gl.uploads) got.emplace_back(u.level, u.width, u.height);
        EXPECT_EQ(got, r.levels) << r.w << "x" << r.h;
    }
    EXPECT_EQ(gl.tex_params[TEX_SHEET][GL_TEXTURE_MIN_FILTER], GL_LINEAR_MIPMAP_LINEAR);

    // 4 x 2 RGBA texels, each texel's bytes all equal to its number 1..8: the sheet picks.
    for (int t = 0; t < 8; ++t) memset(OGL_pixbuf + t * 4, t + 1, 4);
    uint64_t before = rand_count();
    OGL_mini_me("r", TEX_SHEET, BMP_MAGENTA_CLEAR, GL_RGBA, 4, 2, OGL_pixbuf);
    EXPECT_EQ(rand_count() - before, 3u);  // 2 texels of level 1, 1 of level 2
    const std::vector<uint8_t>& l1 = gl.upload(TEX_SHEET, 1)->pixels;
    EXPECT_THAT(l1, ElementsAre(testing::AnyOf(1, 2, 5, 6), l1[0], l1[0], l1[0],  // whole texels are copied
                                testing::AnyOf(3, 4, 7, 8), l1[4], l1[4], l1[4]));
    EXPECT_THAT((int)gl.upload(TEX_SHEET, 2)->pixels[0], testing::AnyOf((int)l1[0], (int)l1[4]));

    // Index 40 averages, rounding halves up: 0.75 -> 1, 10.25 -> 10.
    const uint8_t src[2][2][3] = {{{0, 10, 255}, {1, 10, 255}}, {{1, 10, 255}, {1, 11, 255}}};
    memcpy(OGL_pixbuf, src, sizeof src);
    before = rand_count();
    OGL_mini_me("a", 40, BMP_RGB_MIP, GL_RGB, 2, 2, OGL_pixbuf);
    EXPECT_EQ(rand_count(), before);
    EXPECT_THAT(gl.upload(40, 1)->pixels, ElementsAre(1, 10, 255));
}

TEST_F(Textures, BleedGivesTransparentTexelsTheirNeighboursColour) {
    // 3 x 2 RGBA: the middle of the bottom row is transparent, with an opaque texel on each side.
    const uint8_t img[6][4] = {{10, 20, 30, 255}, {}, {21, 41, 61, 255}, {}, {}, {}};
    // The RGBA filters bleed, except on the glyph sheets and the indices up to 299 from 251.
    const struct { int32_t index, filter; bool bleeds; } rows[] = {
        {TEX_SHEET, BMP_MAGENTA_CLEAR, true}, {250, BMP_GREY_ALPHA_MIP, true}, {TEX_SHEET, BMP_RGB, false},
        {TEX_GLYPHS, BMP_MAGENTA_CLEAR, false}, {251, BMP_MAGENTA_CLEAR, false}, {299, BMP_MAGENTA_CLEAR_MIP, false}};
    for (const auto& r : rows) {
        memcpy(OGL_pixbuf, img, sizeof img);
        OGL_bleed_alpha(r.index, r.filter, 3, 2, 4, 3);
        const std::vector<int> want = r.bleeds ? std::vector<int>{16, 31, 46, 0} : std::vector<int>{0, 0, 0, 0};
        EXPECT_EQ(std::vector<int>(OGL_pixbuf + 4, OGL_pixbuf + 8), want) << r.index << " " << r.filter;
        // A top-row texel sees the same two opaque texels; bled texels never count as sources.
        EXPECT_EQ(std::vector<int>(OGL_pixbuf + 16, OGL_pixbuf + 20), want) << r.index;
    }
}
