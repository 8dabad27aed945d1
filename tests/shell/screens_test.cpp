// Screens: panels and their placement, the background image's tiles, and the progress screen.
#include <cmath>
#include <cstring>
#include <filesystem>

#include "graphics/gl_state.h"
#include "graphics/textures.h"
#include "tests/shell/shell_fixture.h"
#include "tests/support/bmp_file.h"
#include "util/folders.h"

TEST_F(Screens, PanelsAreCentredRoundedAndOpeningResetsInput) {
    const struct { int32_t id; float disp_w, disp_h, x, y, w, h; const char* title; } rows[] = {
        {SCREEN_ALERT, 1024, 768, 312, 274, 400, 220, "Alert"},
        {SCREEN_FILE_OPEN, 1024, 768, 337, 156, 350, 457, "Files"},  // 155.5 rounds away from zero
        {SCREEN_FILE_SAVE, 1024, 768, 336, 156, 353, 457, "Files"},
        {SCREEN_DIALOG, 1024, 768, 362, 322, 300, 125, "Files"},
        {SCREEN_MAIN, 1024, 768, 0, 0, 1024, 768, ""},
        {SCREEN_INTRO, 1280, 1024, 0, 0, 1280, 1024, ""},  // a bigger window: never off the low edge
        {5, 800, 600, 112, 84, 800, 600, ""}};
    language = 9;  // no intro picture for this language
    for (const auto& r : rows) {
        disp_width = r.disp_w, disp_height = r.disp_h;
        strcpy(ShellInput.typed_text, "typed"), open_menu = 2, ShellInput.mouse_clicked = ShellInput.mouse_down = 1;
        MACIBM_open_screen(r.id);
        EXPECT_EQ(std::vector<float>({panel_x, panel_y, panel_w, panel_h}), std::vector<float>({r.x, r.y, r.w, r.h}))
            << r.id;
        EXPECT_STREQ(panel_title, r.title);
        EXPECT_EQ(std::vector<int>({cur_screen, open_menu, ShellInput.typed_text[0], ShellInput.mouse_clicked,
                                    ShellInput.mouse_down}),
                  std::vector<int>({r.id, -1, 0, 0, 0}));
    }
    disp_width = 1024, disp_height = 768;
}

// Every pixel of a place-coded image tells where it came from: red and green the x, blue the y.
static void place_code_image() {
    for (int y = 0; y < 768; ++y)
        for (int x = 0; x < 1024; ++x) {
            uint8_t* p = OGL_pixbuf + (y * 1024 + x) * 4;
            p[0] = (uint8_t)(x >> 8), p[1] = (uint8_t)x, p[2] = (uint8_t)(y >> 2), p[3] = (uint8_t)(y & 3);
        }
}

TEST_F(Screens, BackgroundIsCutIntoTwelveNearestFilteredTiles) {
    place_code_image();
    MACIBM_cut_background();
    ASSERT_EQ(gl.uploads.size(), 12u);
    for (const GlUpload& up : gl.uploads) {
        const int tile = (int)up.tex - 311, i = tile % 4, j = tile / 4;
        ASSERT_TRUE(tile >= 0 && tile < 12 && up.width == 256 && up.height == 256 && up.format == GL_RGBA);
        EXPECT_EQ(gl.tex_params[up.tex][GL_TEXTURE_MIN_FILTER], GL_NEAREST);
        EXPECT_EQ(gl.tex_params[up.tex][GL_TEXTURE_MAG_FILTER], GL_NEAREST);
        for (auto [u, v] : {std::pair(0, 0), {255, 0}, {0, 255}, {255, 255}, {17, 200}}) {
            const uint8_t* p = &up.pixels[(size_t)(v * 256 + u) * 4];
            EXPECT_EQ(std::pair(p[0] * 256 + p[1], p[2] * 4 + p[3]), std::pair(256 * i + u, 256 * j + v))
                << "tile " << tile << " texel " << u << "," << v;
        }
    }
}

TEST_F(Screens, OpeningComposesTheScreenColourAndTheIntroPicture) {
    const std::string root = test_temp_dir(), dir = root + "Resources/bitmaps/intro/";
    std::filesystem::create_directories(dir);
    folders_fill(root.c_str(), root.c_str());
    bmp_write(dir, "german.bmp", {.width = 300, .height = 2, .pixel = [](int32_t x, int32_t) {
                                      return x < 280 ? 0x102030u : 0xFF00FFu;  // magenta lets the colour through
                                  }});
    bg_color[0] = 200.9f, bg_color[1] = 100, bg_color[2] = 50;
    const struct { int32_t id, language; std::vector<int> at_0_0, at_290_1, at_0_2; } rows[] = {
        {SCREEN_INTRO, 2, {0x10, 0x20, 0x30, 255}, {200, 100, 50, 255}, {200, 100, 50, 255}},
        {SCREEN_MAIN, 2, {200, 100, 50, 255}, {200, 100, 50, 255}, {200, 100, 50, 255}},
        {SCREEN_INTRO, 6, {200, 100, 50, 255}, {200, 100, 50, 255}, {200, 100, 50, 255}}};
    for (const auto& r : rows) {
        gl.clear_log(), language = r.language;
        MACIBM_open_screen(r.id);
        EXPECT_EQ(bg_compose, 0);
        auto texel = [&](int tex, int u, int v) {
            const GlUpload* up = gl.upload(tex, 0);
            return up ? std::vector<int>(&up->pixels[(size_t)(v * 256 + u) * 4], &up->pixels[(size_t)(v * 256 + u) * 4 + 4])
                      : std::vector<int>{};
        };
        EXPECT_EQ(texel(311, 0, 0), r.at_0_0) << r.id << " " << r.language;
        EXPECT_EQ(texel(312, 290 - 256, 1), r.at_290_1) << r.id << " " << r.language;
        EXPECT_EQ(texel(311, 0, 2), r.at_0_2) << r.id << " " << r.language;
        EXPECT_EQ(texel(322, 255, 255), std::vector<int>({200, 100, 50, 255}));
    }
}

// The lamps' centres in drawing order, and which of them carry the two glows.
struct LampRow {
    std::vector<float> lamps;
    std::vector<int> lit;                  // lamp numbers under a glow pair
    std::vector<std::vector<float>> fades;  // per lit lamp: alpha of glows 0, 1, 2 (-1: not drawn)
};
static LampRow lamp_row(const GlRecorder& gl) {
    LampRow row;
    for (const GlPrim& p : gl.prims) {
        if (p.mode != GL_QUADS || p.v.size() != 4) continue;
        const float u = p.v[0].s * 512, v = p.v[0].t * 512, cx = (p.v[0].x + p.v[2].x) / 2;
        if (u == 488 && v == 291) row.lamps.push_back(cx);
        const int glow = u == 487 ? 0 : u == 495 ? 1 : u == 503 ? 2 : -1;
        if (v != 314 || glow < 0) continue;
        const int lamp = (int)(std::find(row.lamps.begin(), row.lamps.end(), cx) - row.lamps.begin());
        if (row.lit.empty() || row.lit.back() != lamp) row.lit.push_back(lamp), row.fades.push_back({-1, -1, -1});
        row.fades.back()[glow] = p.v[0].a;
    }
    return row;
}

TEST_F(Screens, ProgressLampMovesOneStepPerCallUntilAllAreLit) {
    MACIBM_progress("too early");  // no screen yet: nothing at all
    EXPECT_EQ(std::pair(gl.prims.size(), frames.size()), std::pair((size_t)0, (size_t)0));
    MACIBM_open_screen(SCREEN_ALERT);  // positions are absolute whatever the panel
    post(PLAT_MSG_KEYDOWN, 0, 0, 'A');
    std::vector<int> seen;
    for (int call = 0; call <= 102; ++call) {
        gl.clear_log(), frames.clear();
        MACIBM_progress("Scanning airports.");
        ASSERT_EQ(frames.size(), 1u);  // one presented frame a call
        const LampRow row = lamp_row(gl);
        ASSERT_EQ(row.lamps.size(), 101u);
        EXPECT_EQ(row.lamps.front(), 12) << "lamps are placed in absolute units";
        if (call <= 100) {
            EXPECT_EQ(row.lit, std::vector<int>({call})) << call;
        } else {
            EXPECT_EQ(row.lit.size(), 101u) << call;
        }
        if (call != 102) continue;  // the cross-fade: glow 0 to 1 over the left half, 1 to 2 over the right
        for (auto [lamp, fade] : {std::pair(0, std::vector<float>{1, 0, -1}), {25, {0.5f, 0.5f, -1}},
                                  {50, {-1, 1, 0}}, {75, {-1, 0.5f, 0.5f}}, {100, {-1, 0, 1}}})
            EXPECT_EQ(row.fades[(size_t)lamp], fade) << lamp;
    }
    EXPECT_EQ(ShellInput.key_pressed, 0);
    PlatMessage m;
    EXPECT_TRUE(plat_peek_message(&m)) << "the progress screen pumps no messages";
    ShellInput.elapsed_secs = 0.25f;  // a pause between calls starts the row again
    gl.clear_log();
    MACIBM_progress("Reading the aircraft.");
    EXPECT_EQ(lamp_row(gl).lit, std::vector<int>({0}));
}
