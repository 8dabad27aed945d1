// Push, check, choice and file buttons and the boxed-digit field, zone by zone.
#include "tests/kit/widget_fixture.h"

static int swaps = 0;
static size_t lit_pieces_presented = 0;  // lit push-button pieces (sheet row 314) drawn before the last swap

class Buttons : public Widgets {
protected:
    void SetUp() override {
        Widgets::SetUp();
        OGL_set_swap([]() -> int32_t {
            lit_pieces_presented = 0;
            for (const GlPrim& p : gl_rec().prims) lit_pieces_presented += p.v.size() == 4 && p.v[0].t * 512 == 314;
            return ++swaps;
        });
    }
    void TearDown() override { OGL_set_swap(nullptr); }
};

static int32_t chooser_calls = 0;

// Each widget's zone, one unit (or a tenth) inside and outside its closed edges.
TEST_F(Buttons, ZonesAnswerAtTheirClosedEdges) {
    BTN_set_file_chooser([](int32_t screen, int32_t type, char*, char* path) -> int32_t {
        chooser_calls += screen == 998 && type == 3;
        return strcpy(path, "Aircraft:Baron58.acf"), 0;  // picked or cancelled, the button reports
    });
    char name[500] = "C172SP.acf", path[500] = "";
    int32_t flag = 0;
    // "Brief" (5 letters) at (691, 684) is 51 wide; the check button at (100, 100); the file
    // field's text starts at (400, 300) and its button lies left of it.
    const struct { char widget; float mx, my; int hit; } rows[] = {
        {'p', 716, 694, 1}, {'p', 717, 684, 0}, {'p', 666, 674, 1}, {'p', 665, 684, 0}, {'p', 691, 673, 0},
        {'p', 691, 695, 0}, {'c', 92, 96, 1},   {'c', 108, 112, 1}, {'c', 91, 100, 0}, {'c', 109, 100, 0},
        {'c', 100, 95, 0},  {'c', 100, 113, 0}, {'f', 383, 300, 1}, {'f', 372, 292, 1}, {'f', 394, 312, 1},
        {'f', 371, 300, 0}, {'f', 395, 300, 0}, {'f', 383, 291, 0}, {'f', 410, 300, 0}};  // not the name
    for (const auto& r : rows) {
        chooser_calls = 0, flag = 0, ShellInput.help_text[0] = 0;
        point(r.mx, r.my, true);
        const int32_t got = r.widget == 'p'   ? BTN_push_button(691, 684, 0, 0, "Brief")
                            : r.widget == 'c' ? BTN_check_button(100, 100, &flag, "Left|Right", "help")
                                              : BTN_file_button(400, 300, name, path, 3, "help");
        EXPECT_EQ(got, r.hit) << r.widget << " at " << r.mx << "," << r.my;
        EXPECT_EQ(r.widget == 'c' ? flag : r.widget == 'f' ? chooser_calls : r.hit, r.hit);
        EXPECT_EQ(ShellInput.help_text[0] != 0, r.widget != 'p' && r.hit == 1);  // push buttons have no help
    }
    EXPECT_STREQ(path, "Aircraft:Baron58.acf");
    widgets_reset();  // without a chooser a press still reports and changes nothing
    point(383, 300, true);
    EXPECT_EQ(BTN_file_button(400, 300, name, path, 3, ""), 1);
    EXPECT_STREQ(path, "Aircraft:Baron58.acf");
}

TEST_F(Buttons, AnUnlitPressShowsItsLitLookInOneExtraFrame) {
    const struct { int32_t lit, show_press; bool click; int frames; } rows[] = {
        {0, 1, true, 1}, {1, 1, true, 0}, {0, 0, true, 0}, {0, 1, false, 0}};
    for (const auto& r : rows) {
        gl.clear_log(), swaps = 0, lit_pieces_presented = 0;
        point(691, 684, r.click);
        EXPECT_EQ(BTN_push_button(691, 684, r.lit, r.show_press, "Brief"), r.click);
        EXPECT_EQ(swaps, r.frames) << r.lit << r.show_press << r.click;
        EXPECT_EQ(lit_pieces_presented > 0, r.frames == 1) << "the presented frame holds the lit body";
    }
}

TEST_F(Buttons, ChoiceButtonsShareOneSelection) {
    for (auto [pressed, after] : {std::pair(0, 0), {1, 1}, {2, 2}, {-1, 1}}) {  // 1 is chosen before each press
        int32_t selection = 1, results = 0;
        point(200, 300 - 20.0f * (float)pressed, true);
        for (int32_t v = 0; v < 3; ++v) results += BTN_choice_button(200, 300 - 20.0f * (float)v, &selection, v, "|c", "");
        EXPECT_EQ(std::pair(selection, results), std::pair(after, pressed >= 0 ? 1 : 0)) << pressed;
    }
}

// The cruise-altitude field: 5 boxes from x = 485, no decimals, no sign, its line at y = 300.
TEST_F(Buttons, NumberFieldStepsTheBoxUnderThePointerAndClamps) {
    const struct { float start, mx, my; bool click; float value; } rows[] = {
        {5000, 507, 310, true, 5100},   {5000, 507, 295, true, 4900},    {5000, 505, 310, true, 5100},  // x + 20: box 2
        {5000, 504.9f, 310, true, 6000}, {5000, 485, 310, true, 15000},  {5000, 535, 310, true, 5001},  // both ends
        {5000, 484.9f, 310, true, 5000}, {5000, 535.1f, 310, true, 5000}, {5000, 507, 303, true, 5100},
        {5000, 507, 302.9f, true, 4900}, {5000, 507, 324.1f, true, 5000}, {5000, 507, 281.9f, true, 5000},
        {0, 507, 295, true, 0},          {99950, 507, 310, true, 99999},
        {123456, 0, 0, false, 99999}};  // held in range at every pass, pressed or not
    for (const auto& r : rows) {
        float value = r.start;
        point(r.mx, r.my, r.click);
        BTN_number_field(66, 485, 300, &value, 5, 0, 0, "Cruise altitude|feet", "");
        EXPECT_EQ(value, r.value) << r.start << " at " << r.mx << "," << r.my;
    }
    // Two places, one decimal: steps of 1 and 0.1 up to 9.9; with a sign down to -9.9.
    for (auto [start, box, up, sign, want] : {std::tuple(9.5f, 0, true, 0, 9.9f), {0.0f, 1, true, 0, 0.1f},
                                             {-9.5f, 0, false, 1, -9.9f}, {0.05f, 1, false, 0, 0.0f}}) {
        float value = start;
        point(105 + 10.0f * (float)box, up ? 110 : 95, true);
        BTN_number_field(66, 100, 100, &value, 2, 1, sign, "", "");
        EXPECT_FLOAT_EQ(value, want) << start << " box " << box;
    }
    float value = 0;
    EXPECT_EXIT(BTN_util_draw_boxed_button(66, 0, 0, &value, 0, 0, 0, 9, "", ""), testing::ExitedWithCode(0),
                fatal_text("BTN_util_draw_boxed_button called with no boxes!"));
}
