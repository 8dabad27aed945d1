// Screens: panels and their placement, the background image's tiles, the progress screen.
#include <algorithm>
#include <cstring>
#include <filesystem>

#include "tests/shell/shell_fixture.h"
#include "tests/support/bmp_file.h"

TEST_F(Screens, PanelsAreCentredRoundedAndOpeningResetsInput) {
    const struct { int32_t id; float disp_w, disp_h, x, y, w, h; const char* title; } rows[] = {
        {SCREEN_FILE_OPEN, 1024, 768, 337, 156, 350, 457, "Files"},  // 155.5 rounds away from zero
        {SCREEN_MAIN, 1280, 1024, 0, 0, 1280, 1024, ""},  // a bigger window: never off the low edge
        {5, 800, 600, 112, 84, 800, 600, ""}};
    for (const auto& r : rows) {
        disp_width = r.disp_w, disp_height = r.disp_h;
        strcpy(ShellInput.typed_text, "typed"), open_menu = 2, ShellInput.mouse_clicked = ShellInput.mouse_down = 1;
        MACIBM_open_screen(r.id);
        EXPECT_EQ(std::vector<float>({panel_x, panel_y, panel_w, panel_h}), std::vector<float>({r.x, r.y, r.w, r.h})) << r.id;
        EXPECT_STREQ(panel_title, r.title);
        EXPECT_EQ(std::vector<int>({cur_screen, open_menu, ShellInput.typed_text[0], ShellInput.mouse_clicked,
                                    ShellInput.mouse_down}),
                  std::vector<int>({r.id, -1, 0, 0, 0}));
    }
}

// The intro picture (magenta lets the screen colour through) composed over the screen colour,
// cut into twelve nearest-filtered tiles: tile (i, j) texel (u, v) is image pixel (256 i + u, 256 j + v).
TEST_F(Screens, BackgroundImageIsComposedAndCutIntoTwelveTiles) {
    const S intro = dir + "Resources/bitmaps/intro/";
    std::filesystem::create_directories(intro);
    auto pixel = [](int32_t x, int32_t y) {  // magenta down the right edge
        return x == 299 ? 0xFF00FFu : (uint32_t)((x % 256) << 16 | (y % 256) << 8 | (x / 256 + 2 * (y / 256)));
    };
    bmp_write(intro, "german.bmp", {.width = 300, .height = 300, .pixel = pixel});
    bg_color[0] = 200.9f, bg_color[1] = 100, bg_color[2] = 50;
    for (auto [id, lang, pictured] : {std::tuple(SCREEN_INTRO, 2, true), {SCREEN_MAIN, 2, false}, {SCREEN_INTRO, 6, false}}) {
        gl.clear_log(), language = lang;
        MACIBM_open_screen(id);
        ASSERT_EQ(gl.uploads.size(), 12u);
        for (const GlUpload& up : gl.uploads) {
            const int tile = (int)up.tex - 311, i = tile % 4, j = tile / 4;
            ASSERT_TRUE(tile >= 0 && tile < 12 && up.width == 256 && up.height == 256 && up.format == GL_RGBA);
            auto& params = gl.tex_params[up.tex];
            EXPECT_EQ(std::pair(params[GL_TEXTURE_MIN_FILTER], params[GL_TEXTURE_MAG_FILTER]), std::pair(GL_NEAREST, GL_NEAREST));
            for (auto [u, v] : {std::pair(0, 0), {255, 255}, {43, 17}, {299 - 256, 5}}) {
                const int x = 256 * i + u, y = 256 * j + v;
                const bool in_picture = pictured && x < 299 && y < 300;
                const std::vector<int> want = in_picture ? std::vector<int>{x % 256, y % 256, x / 256 + 2 * (y / 256), 255}
                                                         : std::vector<int>{200, 100, 50, 255};
                const uint8_t* p = &up.pixels[(size_t)(v * 256 + u) * 4];
                EXPECT_EQ(std::vector<int>(p, p + 4), want) << "tile " << tile << " texel " << u << "," << v;
            }
        }
    }
}

// The lamps' centres in drawing order, and the lamps under a pair of glows with the glows' alphas.
struct LampRow {
    std::vector<float> lamps;
    std::vector<int> lit;
    std::vector<std::vector<float>> fades;  // glows 0, 1, 2 (-1: not drawn)
};
static LampRow lamp_row(const GlRecorder& gl) {
    LampRow row;
    for (const GlPrim& p : gl.prims) {
        if (p.v.size() != 4) continue;
        const float u = p.v[0].s * 512, v = p.v[0].t * 512, cx = (p.v[0].x + p.v[2].x) / 2;
        if (u == 488 && v == 291) row.lamps.push_back(cx);
        const int glow = v != 314 ? -1 : u == 487 ? 0 : u == 495 ? 1 : u == 503 ? 2 : -1;
        if (glow < 0) continue;
        const int lamp = (int)(std::find(row.lamps.begin(), row.lamps.end(), cx) - row.lamps.begin());
        if (row.lit.empty() || row.lit.back() != lamp) row.lit.push_back(lamp), row.fades.push_back({-1, -1, -1});
        row.fades.back()[(size_t)glow] = p.v[0].a;
    }
    return row;
}

TEST_F(Screens, ProgressLampMovesOneStepPerCallUntilAllAreLit) {
    screens_reset(), gl.clear_log(), frames.clear();
    MACIBM_progress("too early");  // no screen yet: nothing at all
    EXPECT_EQ(gl.prims.size() + frames.size(), 0u);
    MACIBM_open_screen(SCREEN_ALERT);  // positions are absolute whatever the panel
    post_key('A');
    for (int call = 0; call <= 102; ++call) {
        gl.clear_log(), frames.clear();
        MACIBM_progress("Scanning airports.");
        const LampRow row = lamp_row(gl);
        ASSERT_EQ(std::pair(frames.size(), row.lamps.size()), std::pair((size_t)1, (size_t)101));  // one frame a call
        EXPECT_EQ(row.lamps.front(), 12);
        EXPECT_EQ(row.lit.size() == 1 ? row.lit[0] : (int)row.lit.size() + 100, call <= 100 ? call : 201) << call;
    }
    const LampRow all = lamp_row(gl);  // the cross-fade: glow 0 to 1 over the left half, 1 to 2 over the right
    for (auto [lamp, fade] : {std::pair(0, std::vector<float>{1, 0, -1}), {25, {0.5f, 0.5f, -1}}, {50, {-1, 1, 0}},
                              {75, {-1, 0.5f, 0.5f}}, {100, {-1, 0, 1}}})
        EXPECT_EQ(all.fades[(size_t)lamp], fade) << lamp;
    PlatMessage m;
    EXPECT_TRUE(plat_peek_message(&m) && ShellInput.key_pressed == 0) << "the progress screen pumps no messages";
    ShellInput.elapsed_secs = 0.25f, gl.clear_log();  // a pause between calls starts the row again
    MACIBM_progress("Reading the aircraft.");
    EXPECT_EQ(lamp_row(gl).lit, std::vector<int>({0}));
}
