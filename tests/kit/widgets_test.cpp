// Push, check, choice and file buttons and the boxed-digit field, walked zone by zone with
// synthetic passes against the recording GL.
#include <cmath>
#include <string>

#include "graphics/gl_state.h"
#include "tests/kit/widget_fixture.h"

static int swaps = 0;
static bool lit_on_screen = false;  // the lit body was drawn before the last swap

class Buttons : public Widgets {
protected:
    void SetUp() override {
        Widgets::SetUp();
        swaps = 0;
        OGL_set_swap([]() -> int32_t {
            lit_on_screen = false;
            for (const GlPrim& p : gl_rec().prims)  // the lit push-button strip starts at sheet row 314
                lit_on_screen |= !p.v.empty() && p.v[0].t * 512 == 314 && p.v[0].s * 512 >= 420;
            return ++swaps;
        });
    }
    void TearDown() override { OGL_set_swap(nullptr); }
};

// A 5-letter label makes the button 51 wide; its zone is closed at x +- 25.5 and y +- 10.
TEST_F(Buttons, PushButtonZoneEdgesAndTheFrameItsPressShows) {
    const struct { float mx, my; bool click; int32_t lit, show; int hit, frames; } rows[] = {
        {716, 694, true, 0, 0, 1, 0},  {717, 684, true, 0, 0, 0, 0},  {666, 674, true, 0, 0, 1, 0},
        {665, 684, true, 0, 0, 0, 0},  {691, 673, true, 0, 0, 0, 0},  {691, 695, true, 0, 0, 0, 0},
        {691, 684, false, 0, 1, 0, 0},  // hovering is not pressing
        {691, 684, true, 0, 1, 1, 1},   // unlit with show_press: the lit look goes on screen at once
        {691, 684, true, 1, 1, 1, 0},   // already lit: nothing extra to show
        {720, 684, true, 0, 1, 0, 0}};
    for (const auto& r : rows) {
        gl.clear_log(), swaps = 0, lit_on_screen = false;
        point(r.mx, r.my, r.click);
        EXPECT_EQ(BTN_push_button(691, 684, r.lit, r.show, "Brief"), r.hit) << r.mx << "," << r.my;
        EXPECT_EQ(swaps, r.frames) << r.mx << "," << r.my;
        EXPECT_EQ(lit_on_screen, r.frames == 1);
    }
    // The body spans the label's width plus its caps and 22 units of height; the label is centred.
    gl.clear_log();
    BTN_push_button(691, 684, 1, 0, "Brief");
    float left = 1e9f, right = -1e9f, bottom = 1e9f, top = -1e9f, glyph_left = 1e9f, glyph_right = -1e9f;
    for (const DrawnQuad& q : quads())
        if (q.v0 >= 291 && q.v1 <= 336 && q.u0 >= 420)
            left = std::min(left, q.x0), right = std::max(right, q.x1), bottom = std::min(bottom, q.y0),
            top = std::max(top, q.y1);
        else
            glyph_left = std::min(glyph_left, q.x0), glyph_right = std::max(glyph_right, q.x1);
    EXPECT_EQ(right - left, 52);  // 51 made even
    EXPECT_EQ(top - bottom, 22);
    EXPECT_EQ((glyph_left + glyph_right) / 2, 691);
}

// A check button at (100, 100) answers presses from (92, 96) to (108, 112), help included.
TEST_F(Buttons, CheckButtonZoneFlipsAndHelp) {
    const struct { float mx, my; bool click; int result, flag; bool help; } rows[] = {
        {92, 96, true, 1, 1, true},    {108, 112, true, 1, 1, true}, {100, 100, false, 0, 0, true},
        {91, 100, true, 0, 0, false},  {109, 100, true, 0, 0, false}, {100, 95, true, 0, 0, false},
        {100, 113, true, 0, 0, false}};
    for (const auto& r : rows) {
        int32_t flag = 0;
        point(r.mx, r.my, r.click);
        ShellInput.help_text[0] = 0;
        EXPECT_EQ(BTN_check_button(100, 100, &flag, "Left|Right", "tick me"), r.result) << r.mx << "," << r.my;
        EXPECT_EQ(flag, r.flag);
        EXPECT_EQ(std::string(ShellInput.help_text), r.help ? "tick me" : "") << r.mx << "," << r.my;
    }
    int32_t flag = 7;  // any non-zero flag is on, and a press turns it off
    point(100, 100, true);
    BTN_check_button(100, 100, &flag, "", "");
    EXPECT_EQ(flag, 0);
    // The box, and over it the tick while on (drawn from the flag as it was on entry).
    for (int32_t on : {0, 1}) {
        gl.clear_log(), flag = on, point(0, 0);
        BTN_check_button(100, 100, &flag, "", "");
        const auto box = quads_from(488, 337), tick = quads_from(488, 360);
        ASSERT_EQ(box.size(), 1u);
        EXPECT_EQ(std::vector<float>({box[0].x0, box[0].y0, box[0].x1, box[0].y1}),
                  std::vector<float>({89, 93, 111, 115}));
        EXPECT_EQ(tick.size(), (size_t)on);
    }
}

TEST_F(Buttons, ChoiceButtonsShareOneSelection) {
    const struct { int pressed; int32_t selection_before, selection_after; int results; } rows[] = {
        {0, 1, 0, 1}, {1, 1, 1, 1},  // pressing the chosen one keeps it and still reports the press
        {2, 1, 2, 1}, {-1, 1, 1, 0}};
    for (const auto& r : rows) {
        int32_t selection = r.selection_before, results = 0;
        for (int32_t v = 0; v < 3; ++v) {
            point(200, 300 - 20 * r.pressed, true);  // over button `pressed` only
            results += BTN_choice_button(200, 300 - 20.0f * (float)v, &selection, v, "|Choice", "");
        }
        EXPECT_EQ(selection, r.selection_after) << r.pressed;
        EXPECT_EQ(results, r.results) << r.pressed;
    }
}

static int chooser_calls = 0;
static int32_t chooser_screen = 0, chooser_type = 0;

TEST_F(Buttons, FileButtonHotSpotRunsTheInstalledChooser) {
    char name[500] = "C172SP.acf", path[500] = "Aircraft:C172SP.acf";
    // No chooser yet: a press still reports, and nothing changes.
    point(400 - 17, 300, true);
    EXPECT_EQ(BTN_file_button(400, 300, name, path, 3, "aircraft"), 1);
    EXPECT_EQ(std::string(name) + std::string(path), "C172SP.acfAircraft:C172SP.acf");
    BTN_set_file_chooser([](int32_t screen, int32_t type, char* n, char* p) -> int32_t {
        ++chooser_calls, chooser_screen = screen, chooser_type = type;
        strcpy(n, "Baron58.acf"), strcpy(p, "Aircraft:Baron58.acf");
        return 0;  // cancelled or not, the button reports the press
    });
    const struct { float dx, dy; bool click; int result; bool help; } rows[] = {
        {10, 0, true, 0, false},  // the name's text is not the button
        {-17, 0, true, 1, true},  {-28, -8, true, 1, true}, {-6, 12, true, 1, true}, {-29, 0, true, 0, false},
        {-5, 0, true, 0, false},  {-17, -9, true, 0, false}, {-17, 13, true, 0, false}, {-17, 0, false, 0, true}};
    for (const auto& r : rows) {
        chooser_calls = 0, ShellInput.help_text[0] = 0;
        point(400 + r.dx, 300 + r.dy, r.click);
        EXPECT_EQ(BTN_file_button(400, 300, name, path, 3, "aircraft"), r.result) << r.dx << "," << r.dy;
        EXPECT_EQ(chooser_calls, r.result) << r.dx << "," << r.dy;
        EXPECT_EQ(std::string(ShellInput.help_text), r.help ? "aircraft" : "") << r.dx << "," << r.dy;
    }
    EXPECT_EQ(std::pair(chooser_screen, chooser_type), std::pair(998, 3));
    EXPECT_EQ(std::string(path), "Aircraft:Baron58.acf");
}

// The cruise-altitude field: 5 boxes from x = 485, no decimals, no sign, its line at y = 300.
TEST_F(Buttons, NumberFieldBoxUnderThePointerAndItsClamps) {
    const struct { float start, mx, my; bool click; float value; int result; } rows[] = {
        {5000, 507, 310, true, 5100, 1},   {5000, 507, 295, true, 4900, 1},   // box 2, upper and lower half
        {5000, 505, 310, true, 5100, 1},   {5000, 504.9f, 310, true, 6000, 1},  // x + 20 is box 2's
        {5000, 485, 310, true, 15000, 1},  {5000, 535, 310, true, 5001, 1},   // the ends: boxes 0 and 4
        {5000, 484.9f, 310, true, 5000, 0}, {5000, 535.1f, 310, true, 5000, 0},
        {5000, 507, 303, true, 5100, 1},   {5000, 507, 302.9f, true, 4900, 1},  // the middle line adds
        {5000, 507, 324, true, 5100, 1},   {5000, 507, 324.1f, true, 5000, 0},
        {5000, 507, 282, true, 4900, 1},   {5000, 507, 281.9f, true, 5000, 0},
        {5000, 507, 310, false, 5000, 0},
        {0, 507, 295, true, 0, 1},         {99950, 507, 310, true, 99999, 1},  // clamped at both ends
        {123456, 0, 0, false, 99999, 0},   {-5, 0, 0, false, 0, 0}};           // held in range every pass
    for (const auto& r : rows) {
        float value = r.start;
        point(r.mx, r.my, r.click);
        EXPECT_EQ(BTN_number_field(66, 485, 300, &value, 5, 0, 0, "Cruise altitude|feet", ""), r.result)
            << r.start << " at " << r.mx << "," << r.my;
        EXPECT_EQ(value, r.value) << r.start << " at " << r.mx << "," << r.my;
    }
    // Two places with one decimal: 0 .. 9.9 in steps of 1 and 0.1; with a sign, down to -9.9.
    const struct { float start; int box; bool up; int32_t negative; float value; } tenths[] = {
        {9.5f, 0, true, 0, 9.9f}, {0, 1, true, 0, 0.1f}, {0.05f, 1, false, 0, 0}, {-9.5f, 0, false, 1, -9.9f},
        {0, 1, false, 1, -0.1f}};
    for (const auto& r : tenths) {
        float value = r.start;
        point(100 + 10.0f * (float)r.box + 5, r.up ? 110 : 95, true);
        BTN_number_field(66, 100, 100, &value, 2, 1, r.negative, "", "");
        EXPECT_FLOAT_EQ(value, r.value) << r.start << " box " << r.box;
    }
}

TEST_F(Buttons, NumberFieldHelpBandAndDigitsInTheirBoxes) {
    for (auto [my, help] : {std::pair(298.0f, true), {308.0f, true}, {297.9f, false}, {308.1f, false}}) {
        float value = 1;
        ShellInput.help_text[0] = 0, point(507, my);
        BTN_number_field(66, 485, 300, &value, 5, 0, 0, "", "altitude");
        EXPECT_EQ(ShellInput.help_text[0] != 0, help) << my;
    }
    // Each place's glyph lies inside its box; the separator sits between boxes 1 and 2.
    gl.clear_log(), point(0, 0);
    float value = 12345;
    BTN_number_field(66, 485, 300, &value, 5, 0, 0, "", "");
    std::vector<DrawnQuad> glyphs;
    for (const DrawnQuad& q : quads())
        if (q.x1 - q.x0 == 6 && q.y1 - q.y0 == 11) glyphs.push_back(q);
    ASSERT_EQ(glyphs.size(), 6u);  // five digits and one separator
    int in_boxes = 0;
    for (int k = 0; k < 5; ++k)
        for (const DrawnQuad& q : glyphs) in_boxes += q.x0 >= 485 + 10 * k && q.x1 <= 485 + 10 * (k + 1);
    EXPECT_EQ(in_boxes, 5);
    EXPECT_EQ(quads_from(419, 336).size(), 5u);  // the five digit boxes
}

TEST(ButtonsDeath, NoBoxesIsFatal) {
    float value = 0;
    EXPECT_EXIT(BTN_util_draw_boxed_button(66, 0, 0, &value, 0, 0, 0, 9, "", ""), testing::ExitedWithCode(0),
                fatal_text("BTN_util_draw_boxed_button called with no boxes!"));
}
