// The bind cache, the upload checks and wrap rule, mipmap reduction and alpha bleeding.
#include "tests/graphics/gfx_fixture.h"

#include <cstring>

#include "util/random.h"

using Textures = Gfx;

TEST_F(Textures, BindCacheIsPerUnitAndReturnsToTheFirstUnit) {
    fake_loaded(300);
    fake_loaded(5);
    OGL_bind_tex(300, 1);
    OGL_bind_tex(300, 1);
    EXPECT_EQ(gl.count("glBindTexture"), 1);
    EXPECT_EQ(gl.bound[0], 300u);

    gl_tex_units = 2;
    gl.clear_log();
    OGL_bind_tex(5, 2);
    OGL_bind_tex(5, 2);
    EXPECT_EQ(gl.count("glBindTexture"), 1);
    EXPECT_EQ(gl.bound[1], 5u);
    EXPECT_EQ(gl.bound[0], 300u);
    EXPECT_EQ(gl.active_unit, 0);
    OGL_bind_tex(300, 1);  // unit 1 still holds it
    EXPECT_EQ(gl.count("glBindTexture"), 1);
    OGL_bind_tex(5, 1);
    EXPECT_EQ(gl.bound[0], 5u);
    EXPECT_EQ(gl.count("glActiveTextureARB"), 2);  // only the bind on unit 2 selected a unit
}

TEST_F(Textures, BadBindsEndTheProgram) {
    fake_loaded(7);
    EXPECT_EXIT(OGL_bind_tex(7, 0), testing::ExitedWithCode(0), fatal_text("Too many texture units requested!"));
    EXPECT_EXIT(OGL_bind_tex(7, 5), testing::ExitedWithCode(0), fatal_text("Too many texture units requested!"));
    EXPECT_EXIT(OGL_bind_tex(-1, 1), testing::ExitedWithCode(0), fatal_text("Too many textures requested!"));
    EXPECT_EXIT(OGL_bind_tex(4894, 1), testing::ExitedWithCode(0), fatal_text("Too many textures requested!"));
    EXPECT_EXIT(OGL_bind_tex(8, 1), testing::ExitedWithCode(0), fatal_text("Trying to bind an un-inited tex!"));
}

TEST_F(Textures, UploadChecksEndTheProgram) {
    static uint8_t px[4 * 2048];
    const std::string dim3 =
        "ZERO-dim textures are invalid for OpenGL, and textures greater than 1024 are invalid for Zephyra!";
    const std::string dim1 = "OGL_load_tex: Trying to create a texture either less than 1 or greater than 1024 in dimension!";
    const struct {
        int32_t index, w, h;
        testing::Matcher<const std::string&> text;
    } rows[] = {
        {10, 300, 4, fatal_text("OGL_load_tex: Trying to read a texture that is not a power of 2!", "pic")},
        {10, 4, 12, fatal_text("OGL_load_tex: Trying to read a texture that is not a power of 2!", "pic")},
        {10, 0, 4, fatal_text(dim1, "I cannot do this!", dim3, "pic")},
        {10, 4, 2048, fatal_text(dim1, "I cannot do this!", dim3, "pic")},
        {-1, 4, 4, fatal_text("OGL_load_tex: Trying to bind too low  a texture index!", "pic")},
        {4894, 4, 4, fatal_text("OGL_load_tex: Trying to bind too high a texture index!", "pic")},
    };
    for (const auto& r : rows)
        EXPECT_EXIT(OGL_load_tex("pic", r.index, 0, GL_RGBA, r.w, r.h, px), testing::ExitedWithCode(0), r.text)
            << r.index << " " << r.w << "x" << r.h;
}

TEST_F(Textures, UploadBooksMemoryAndChoosesWrap) {
    static uint8_t px[4 * 1024];
    OGL_load_tex("a", 12, 0, GL_RGBA, 1024, 1, px);
    OGL_load_tex("a", 12, 1, GL_RGBA, 512, 1, px);
    EXPECT_EQ(OGL_tex_bytes[12], 4096 + 2048);
    OGL_load_tex("b", 12, 0, GL_ALPHA, 1, 1, px);  // a new level 0 starts the count again
    EXPECT_EQ(OGL_tex_bytes[12], 1);
    const GlUpload* up = gl.upload(12, 1);
    ASSERT_NE(up, nullptr);
    EXPECT_EQ(up->width, 512);
    EXPECT_EQ(up->internal_format, GL_RGBA);

    const struct {
        int32_t index;
        bool repeat;
    } rows[] = {{0, true},   {48, true},  {49, false},  {54, true},   {197, true}, {198, false}, {206, true},
                {218, false}, {219, true}, {235, true}, {300, false}, {309, true}, {350, true},  {999, true},
                {1000, false}, {4893, false}};
    for (int32_t clamp : {0, 1}) {
        clamp_ok = clamp;
        for (const auto& r : rows) {
            OGL_load_tex("w", r.index, 0, GL_RGB, 2, 2, px);
            GLint expect = r.repeat ? GL_REPEAT : clamp ? GL_CLAMP_TO_EDGE : GL_CLAMP;
            EXPECT_EQ(gl.tex_params[r.index][GL_TEXTURE_WRAP_S], expect) << r.index;
            EXPECT_EQ(gl.tex_params[r.index][GL_TEXTURE_WRAP_T], expect) << r.index;
        }
    }
}

TEST_F(Textures, MipmapsOfNonSquareTexturesHalveToOne) {
    const struct {
        int32_t w, h;
        std::vector<std::pair<int, int>> levels;
    } rows[] = {{4, 1, {{2, 1}, {1, 1}}}, {8, 2, {{4, 1}, {2, 1}, {1, 1}}}, {1, 4, {{1, 2}, {1, 1}}}, {1, 1, {}}};
    for (const auto& r : rows) {
        gl.clear_log();
        for (int i = 0; i < r.w * r.h * 4; ++i) OGL_pixbuf[i] = (uint8_t)(i + 1);
        OGL_load_tex("m", 300, 0, GL_RGBA, r.w, r.h, OGL_pixbuf);
        OGL_mini_me("m", 300, -108, GL_RGBA, r.w, r.h, OGL_pixbuf);
        ASSERT_EQ(gl.uploads.size(), r.levels.size() + 1);
        for (size_t l = 0; l < r.levels.size(); ++l) {
            EXPECT_EQ(gl.uploads[l + 1].level, (GLint)l + 1);
            EXPECT_EQ(gl.uploads[l + 1].width, r.levels[l].first);
            EXPECT_EQ(gl.uploads[l + 1].height, r.levels[l].second);
        }
        if (!r.levels.empty()) {
            EXPECT_EQ(gl.tex_params[300][GL_TEXTURE_MIN_FILTER], GL_LINEAR_MIPMAP_LINEAR);
        }
    }
}

TEST_F(Textures, RandomReductionCopiesOneSourceTexelPerDraw) {
    // 4 x 2 RGBA texels, each texel's bytes all equal to its number 1..8.
    for (int t = 0; t < 8; ++t) memset(OGL_pixbuf + t * 4, t + 1, 4);
    OGL_load_tex("r", 300, 0, GL_RGBA, 4, 2, OGL_pixbuf);
    uint64_t before = rand_count();
    OGL_mini_me("r", 300, -106, GL_RGBA, 4, 2, OGL_pixbuf);
    EXPECT_EQ(rand_count() - before, 3u);  // 2 texels of level 1, 1 of level 2
    const GlUpload* l1 = gl.upload(300, 1);
    ASSERT_NE(l1, nullptr);
    EXPECT_THAT((int)l1->pixels[0], testing::AnyOf(1, 2, 5, 6));
    EXPECT_THAT((int)l1->pixels[4], testing::AnyOf(3, 4, 7, 8));
    for (int b = 1; b < 4; ++b) EXPECT_EQ(l1->pixels[b], l1->pixels[0]);  // whole texels are copied
    const GlUpload* l2 = gl.upload(300, 2);
    EXPECT_THAT((int)l2->pixels[0], testing::AnyOf((int)l1->pixels[0], (int)l1->pixels[4]));
}

TEST_F(Textures, AveragingRoundsHalvesUp) {
    // Index 40 averages; RGB texels 0, 1, 1, 1 | 10, 10, 10, 11 | 255 x 4 in the three channels.
    const uint8_t src[2][2][3] = {{{0, 10, 255}, {1, 10, 255}}, {{1, 10, 255}, {1, 11, 255}}};
    memcpy(OGL_pixbuf, src, sizeof src);
    OGL_load_tex("a", 40, 0, GL_RGB, 2, 2, OGL_pixbuf);
    uint64_t before = rand_count();
    OGL_mini_me("a", 40, -105, GL_RGB, 2, 2, OGL_pixbuf);
    EXPECT_EQ(rand_count(), before);
    const GlUpload* l1 = gl.upload(40, 1);
    ASSERT_NE(l1, nullptr);
    EXPECT_THAT(l1->pixels, testing::ElementsAre(1, 10, 255));  // 0.75 -> 1, 10.25 -> 10
}

TEST_F(Textures, BleedGivesTransparentTexelsTheirNeighboursColour) {
    // 3 x 2 RGBA: the middle of the bottom row is transparent, two opaque neighbours on each side.
    const uint8_t img[6][4] = {{10, 20, 30, 255}, {0, 0, 0, 0}, {21, 41, 61, 255},
                               {0, 0, 0, 0},      {0, 0, 0, 0}, {0, 0, 0, 0}};
    const struct {
        int32_t index, filter;
        bool bleeds;
    } rows[] = {{300, -106, true}, {300, -109, true}, {300, -104, false}, {301, -106, false},
                {126, -106, false}, {251, -106, false}, {299, -108, false}, {250, -107, true}};
    for (const auto& r : rows) {
        memcpy(OGL_pixbuf, img, sizeof img);
        OGL_bleed_alpha(r.index, r.filter, 3, 2, 4, 3);
        const uint8_t* mid = OGL_pixbuf + 4;
        if (r.bleeds) {
            EXPECT_THAT(std::vector<int>(mid, mid + 4), testing::ElementsAre(16, 31, 46, 0)) << r.index;
            // A top-row texel sees the same two opaque texels (and itself stays transparent).
            EXPECT_THAT(std::vector<int>(OGL_pixbuf + 16, OGL_pixbuf + 20), testing::ElementsAre(16, 31, 46, 0));
        } else {
            EXPECT_THAT(std::vector<int>(mid, mid + 4), testing::ElementsAre(0, 0, 0, 0)) << r.index;
        }
    }
}
