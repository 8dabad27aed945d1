// The list picker and its scroll bar: row presses, the thumb's travel and drag, the step ends,
// both searches, the rows drawn and the final clamp.
#include <algorithm>
#include <cmath>
#include <cstring>

#include "tests/kit/widget_fixture.h"

constexpr float X = 300, Y = 400;  // the picker's reference point in every test

class Picker : public Widgets {
protected:
    std::vector<char> names, tags;
    Text search = {};
    int32_t field = -1;  // no search field active
    void table(int n) {  // "Field 100000", "Field 100001", ... tagged K0, K1, ...
        names.assign((size_t)n * LIST_NAME_SIZE, 0), tags.assign((size_t)n * LIST_TAG_SIZE, 0);
        for (int i = 0; i < n; ++i) set(i, "Field " + std::to_string(100000 + i), "K" + std::to_string(i % 1000));
    }
    void set(int i, const std::string& name, const std::string& tag) {
        strncpy(&names[(size_t)i * LIST_NAME_SIZE], name.c_str(), LIST_NAME_SIZE - 1);
        strncpy(&tags[(size_t)i * LIST_TAG_SIZE], tag.c_str(), LIST_TAG_SIZE - 1);
    }
    int run(int32_t& index, int32_t mode = 0, int32_t first = 0, int32_t last = 300) {
        return BTN_list_picker(X, Y, names.data(), tags.data(), &index, first, last, mode, search, &field);
    }
    float thumb_y() const {  // the thumb's centre
        const auto t = quads(465, 291);
        return t.size() == 1 ? (t[0].y0 + t[0].y1) / 2 : -1;
    }
    void SetUp() override { Widgets::SetUp(), table(301); }
};

// Rows are 10 apart around the selected one at y: a press selects the row drawn under it.
TEST_F(Picker, PressSelectsTheRowUnderThePointer) {
    const struct { int32_t index; float mx, dy; int32_t after; } rows[] = {
        {100, X, 4.9f, 100}, {100, X, 5, 99}, {100, X, -5.1f, 101}, {100, X, 105, 90}, {100, X, -105, 110},
        {100, X, 105.1f, 100}, {100, X + 270, 0, 100}, {100, X + 271, 20, 100}, {100, X - 1, 20, 100},
        {0, X, 30, 0}, {300, X, -30, 300}};  // past the ends: held at first and last
    for (const auto& r : rows) {
        int32_t index = r.index;
        point(r.mx, Y + r.dy, true);
        const bool inside = r.mx >= X && r.mx <= X + 270 && r.dy >= -105 && r.dy <= 105;
        EXPECT_EQ(run(index, 998), inside) << r.mx << "," << r.dy;
        EXPECT_EQ(index, r.after) << r.index << " at " << r.mx << "," << r.dy;
    }
}

// The bar at x + 302 runs from y - 130 to y + 130: the thumb from y + 102 (first) to y - 102 (last).
TEST_F(Picker, ThumbTravelDragAndStepEnds) {
    for (auto [index, last, thumb] : {std::tuple(0, 300, Y + 102), {300, 300, Y - 102}, {150, 300, Y}, {0, 0, Y}}) {
        gl.clear_log(), point(0, 0);
        run(index, 998, 0, last);
        EXPECT_EQ(thumb_y(), thumb) << index << " of " << last;
    }
    const struct { float my; bool click, down; int32_t before, after; bool lit; } rows[] = {
        {Y + 102, false, true, 150, 0, true},    {Y + 115, false, true, 150, 0, true},
        {Y - 102, false, true, 150, 300, true},  {Y + 51, false, true, 7, 75, true},
        {Y + 116, false, true, 150, 150, false}, {Y + 130, true, false, 150, 149, false},  // the step ends
        {Y - 130, true, false, 150, 151, false}, {Y + 130, true, false, 0, 0, false}};
    for (const auto& r : rows) {
        int32_t index = r.before, still = r.before;
        gl.clear_log(), point(0, 0), run(still, 998);
        const float entry_thumb = thumb_y();
        gl.clear_log(), point(X + 302, r.my, r.click, r.down);
        run(index, 998);
        EXPECT_EQ(index, r.after) << r.my << " from " << r.before;
        EXPECT_EQ(quads(465, 314).size(), r.lit ? 1u : 0u) << r.my;
        EXPECT_EQ(thumb_y(), entry_thumb) << "the thumb shows the index as it was on entry";
    }
}

TEST_F(Picker, NameSearchIsCaseBlindOverWholeNamesInTableOrder) {
    const char* order[] = {"Alpha Centauri Regional", "Mojave", "kabul", "Kansas", "Kab", "Zulu"};  // not sorted
    for (int i = 0; i < 6; ++i) set(i, order[i], "X");
    int32_t index = 3;
    point(X + 100, Y - 147, true), strcpy(search, "old");  // the name field: active, emptied
    EXPECT_EQ(run(index, 0, 0, 5), 1);
    EXPECT_EQ(std::pair(field, std::string(search)), std::pair(SEARCH_NAME, std::string()));
    for (auto [typed, want] : {std::pair("k", 1), {"ALPHA", 0}, {"alpha z", 1}, {"alpha centauri regionaa", 0},
                               {"zz", 5}, {"", 0}}) {
        strcpy(search, typed), index = 4, point(0, 0), ShellInput.key_pressed = 1;
        run(index, 0, 0, 5);
        EXPECT_EQ(index, want) << typed;
    }
    strcpy(search, "zz"), index = 2;  // the file chooser's modes have no search fields
    run(index, 998, 0, 5);
    EXPECT_EQ(index, 2);
}

static int32_t searched_kind = -1;

TEST_F(Picker, CodeFieldCutsUpperCasesAndSearchesAirports) {
    BTN_set_code_search([](const char* code, int32_t kind, int32_t* out) -> int8_t {
        searched_kind = kind;
        return strcmp(code, "KABQ") == 0 ? (*out = 42, 1) : 0;
    });
    int32_t index = 7;
    point(X + 255, Y - 137, true);
    EXPECT_EQ(run(index), 1);
    EXPECT_EQ(field, SEARCH_CODE);
    for (auto [typed, key, shown, want] : {std::tuple("kabqx", 1, "KABQ", 42), {"kab", 1, "KAB", 0},  // not found: first
                                           {"zzzz", 0, "ZZZZ", 7}}) {
        strcpy(search, typed), index = 7, searched_kind = -1, point(0, 0), ShellInput.key_pressed = key;
        run(index);
        EXPECT_EQ(std::tuple(std::string(search), index, searched_kind), std::tuple(std::string(shown), want, key ? 1 : -1));
    }
    point(X + 232.5f, Y - 147, true), strcpy(search, "KS");  // between the fields
    EXPECT_EQ(run(index), 0);
    EXPECT_STREQ(search, "KS");
}

TEST_F(Picker, RowsTagsFolderColourFrameAndCursor) {
    set(99, "Aircraft", "fold"), set(100, "C172SP.acf", "file");
    int32_t index = 100;
    point(0, 0), field = SEARCH_NAME, strcpy(search, "MO");
    run(index);
    int names_drawn = 0, tags_drawn = 0;  // first glyphs of the rows' strings and of their tags
    for (const GlPrim& p : gl.prims) {
        if (p.mode != GL_QUADS || p.v[2].x - p.v[0].x != 6 || std::abs(p.v[0].y - Y) > 110) continue;  // rows only
        names_drawn += p.v[0].x == X + 8, tags_drawn += p.v[0].x == X + 242;
        const bool folder_row = p.v[0].y == Y + 10 - 5;
        EXPECT_TRUE(!folder_row || (p.v[0].r == 1.0f && p.v[0].b == 0.2f)) << "folder rows in colour 85";
    }
    EXPECT_EQ(std::pair(names_drawn, tags_drawn), std::pair(21, 19));  // no tag for the folder and the file
    const GlPrim& frame = gl.prims.back();  // the file row is selected: a green frame
    EXPECT_EQ(std::pair(frame.v[0].r, frame.v[0].g), std::pair(0.1f, 1.0f));
    // The cursor stands after the typed text and tells the loop it pulses.
    const auto cursor = std::find_if(gl.prims.begin(), gl.prims.end(), [](const GlPrim& p) { return p.mode == GL_LINES; });
    ASSERT_NE(cursor, gl.prims.end());
    EXPECT_EQ(std::pair(cursor->v[0].x - 0.5f, OGL_pulse_drawn), std::pair(X + 8 + 12, (int32_t)OGL_SMALL_PULSE));
    // Pressed above the first entry: no row at the index, a black frame, then held at first;
    // last < first: the box alone.
    index = 1, gl.clear_log(), point(X, Y + 30, true);
    run(index, 998);
    EXPECT_EQ(std::tuple(gl.prims.back().v[0].r, gl.prims.back().v[0].g, index), std::tuple(0.0f, 0.0f, 0));
    gl.clear_log();
    EXPECT_EQ(run(index, 998, 6, 5), 0);
    EXPECT_EQ(gl.prims.size(), 1u);
}
