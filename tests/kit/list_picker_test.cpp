// The list picker and its scroll bar: row presses, the thumb's place and drag, the step ends,
// both searches, the rows drawn and the final clamp.
#include <cmath>
#include <cstring>
#include <string>

#include "graphics/gl_state.h"
#include "tests/kit/widget_fixture.h"

namespace {

// A table of names and tags laid out as the picker reads them.
struct Table {
    std::vector<char> names, tags;
    explicit Table(int n) : names((size_t)n * LIST_NAME_SIZE), tags((size_t)n * LIST_TAG_SIZE) {}
    void set(int i, const std::string& name, const std::string& tag) {
        strncpy(&names[(size_t)i * LIST_NAME_SIZE], name.c_str(), LIST_NAME_SIZE - 1);
        strncpy(&tags[(size_t)i * LIST_TAG_SIZE], tag.c_str(), LIST_TAG_SIZE - 1);
    }
    int size() const { return (int)(tags.size() / LIST_TAG_SIZE); }
};

Table numbered(int n) {
    Table t(n);
    for (int i = 0; i < n; ++i) t.set(i, "Field " + std::to_string(100000 + i), "K" + std::to_string(i % 1000));
    return t;
}

constexpr float X = 300, Y = 400;  // the picker's reference point in every test

}  // namespace

class Picker : public Widgets {
protected:
    Table table = numbered(301);
    Text search = {};
    int32_t field = -1;  // no search field active
    int run(int32_t& index, int32_t mode = 0, int32_t first = 0, int32_t last = 300) {
        return BTN_list_picker(X, Y, table.names.data(), table.tags.data(), &index, first, last, mode, search, &field);
    }
    // The glyph strings drawn, as (first glyph's lower-left corner, colour red and blue).
    struct Str { float x, y, r, b; };
    std::vector<Str> strings() const {
        std::vector<Str> out;
        for (const GlPrim& p : gl.prims)
            if (p.mode == GL_QUADS && p.v.size() >= 4 && p.v.size() % 4 == 0 && p.v[0].s * 512 >= 265 &&
                p.v[0].t * 512 >= 289 && p.v[2].x - p.v[0].x == 6 && p.v[2].y - p.v[0].y == 11)  // field face glyphs
                out.push_back({p.v[0].x, p.v[0].y, p.v[0].r, p.v[0].b});
        return out;
    }
    // The thumb's centre, or NAN.
    float thumb_y() const {
        const auto t = quads_from(465, 291);
        return t.size() == 1 ? (t[0].y0 + t[0].y1) / 2 : NAN;
    }
};

// Rows are 10 units apart around the selected one at y; row presses land on the row drawn there.
TEST_F(Picker, PressSelectsTheRowUnderThePointer) {
    const struct { int32_t index; float mx, dy; int result; int32_t after; } rows[] = {
        {100, X, 10, 1, 99},       {100, X, 0, 1, 100},       {100, X, -10, 1, 101},
        {100, X, 4.9f, 1, 100},    {100, X, 5, 1, 99},        {100, X, -5, 1, 100},     {100, X, -5.1f, 1, 101},
        {100, X, 105, 1, 90},      {100, X, -105, 1, 110},    {100, X, 105.1f, 0, 100}, {100, X, -105.1f, 0, 100},
        {100, X + 270, 0, 1, 100}, {100, X - 1, 20, 0, 100},  {100, X + 271, 20, 0, 100},
        {0, X, 30, 1, 0},          {300, X, -30, 1, 300}};  // past the ends: held at first and last
    for (const auto& r : rows) {
        int32_t index = r.index;
        point(r.mx, Y + r.dy, true);
        EXPECT_EQ(run(index, 998), r.result) << r.index << " at " << r.mx << "," << r.dy;
        EXPECT_EQ(index, r.after) << r.index << " at " << r.mx << "," << r.dy;
    }
}

// The bar runs from y - 130 to y + 130 at x + 302: the thumb from y + 102 (first) to y - 102 (last).
TEST_F(Picker, ScrollBarThumbTravelDragAndStepEnds) {
    const struct { int32_t index, last; float thumb; } places[] = {{0, 300, Y + 102}, {300, 300, Y - 102},
                                                                  {150, 300, Y}, {0, 0, Y}};
    for (const auto& r : places) {
        gl.clear_log(), point(0, 0);
        int32_t index = r.index;
        run(index, 998, 0, r.last);
        EXPECT_EQ(thumb_y(), r.thumb) << r.index << " of " << r.last;
    }
    const struct { float my; bool click, down; int32_t before, after; bool lit; } rows[] = {
        {Y + 102, false, true, 150, 0, true},   {Y + 115, false, true, 150, 0, true},  // top of the travel
        {Y - 102, false, true, 150, 300, true}, {Y, false, true, 7, 150, true},
        {Y + 51, false, true, 7, 75, true},     {Y + 116, false, true, 150, 150, false},  // the track's ends are steps
        {Y + 130, true, false, 150, 149, false}, {Y + 115.5f, true, false, 150, 149, false},
        {Y - 130, true, false, 150, 151, false}, {Y + 130, true, false, 0, 0, false},  // held at first
        {Y - 130, true, false, 300, 300, false}, {Y, false, false, 150, 150, false}};
    for (const auto& r : rows) {
        gl.clear_log();
        int32_t index = r.before, still = r.before;
        point(0, 0);
        run(still, 998);
        const float entry_thumb = thumb_y();
        gl.clear_log();
        point(X + 302, r.my, r.click, r.down);
        run(index, 998);
        EXPECT_EQ(index, r.after) << r.my << " from " << r.before;
        EXPECT_EQ(quads_from(465, 314).size(), r.lit ? 1u : 0u) << r.my;
        EXPECT_EQ(thumb_y(), entry_thumb) << "the thumb shows the index as it was on entry";
    }
    for (float mx : {X + 302 - 11.1f, X + 302 + 11.1f}) {  // beside the bar nothing moves
        int32_t index = 150;
        point(mx, Y, false, true);
        run(index, 998);
        EXPECT_EQ(index, 150) << mx;
    }
    // The track: two caps of 30 units and middle pieces that fill the 200 between them.
    gl.clear_log();
    int32_t index = 0;
    run(index, 998);
    float covered = 0;
    for (const DrawnQuad& q : quads())
        if (q.u0 == 484 && q.u1 == 512) {
            covered += q.y1 - q.y0;
            EXPECT_EQ(q.x1 - q.x0, 28);
        }
    EXPECT_EQ(covered, 260);
}

TEST_F(Picker, NameSearchCaseBlindOverWholeNamesFromTheFirstEntry) {
    Table t(6);
    const char* names[] = {"Alpha", "Mojave", "kabul", "Kansas", "Kab", "Zulu"};  // table order, not sorted
    for (int i = 0; i < 6; ++i) t.set(i, names[i], "X");
    table = t;
    int32_t index = 3;
    point(X + 100, Y - 147, true);  // the name field: it becomes active and its text empties
    strcpy(search, "old");
    EXPECT_EQ(run(index, 0, 0, 5), 1);
    EXPECT_EQ(std::pair(field, std::string(search)), std::pair(0, std::string()));
    const struct { const char* typed; int32_t index; } rows[] = {
        {"k", 1}, {"ALPHA", 0}, {"alpha z", 1}, {"mojavf", 5}, {"zz", 5}, {"", 0}};  // zz: above every name
    for (const auto& r : rows) {
        strcpy(search, r.typed), index = 4;
        point(0, 0), ShellInput.key_pressed = 1;
        run(index, 0, 0, 5);
        EXPECT_EQ(index, r.index) << r.typed;
    }
    // Without a key down this pass, the selection stays; with mode 998 there are no fields at all.
    for (int32_t mode : {0, 998}) {
        strcpy(search, "zz"), index = 2, ShellInput.key_pressed = mode == 998;
        run(index, mode, 0, 5);
        EXPECT_EQ(index, 2) << mode;
    }
}

TEST_F(Picker, NameSearchLandsOnTheAirportInAFullSizeTable) {
    table = numbered(22000);
    const int target = 16385;
    table.set(target, "Field 116385 Zephyra Intl", "KZPH");  // just above its neighbours' names
    int32_t index = 0;
    field = SEARCH_NAME;
    strcpy(search, "field 116385 z"), ShellInput.key_pressed = 1;
    run(index, 0, 0, 21999);
    EXPECT_EQ(index, target);
    strcpy(search, "field 116385 zephyra intl!");  // above it: the next entry
    run(index, 0, 0, 21999);
    EXPECT_EQ(index, target + 1);
}

static int32_t searched_kind = -1;

TEST_F(Picker, CodeFieldCutsUpperCasesAndSearchesAirports) {
    BTN_set_code_search([](const char* code, int32_t kind, int32_t* out) -> int8_t {
        searched_kind = kind;
        if (strcmp(code, "KABQ") != 0) return 0;
        *out = 42;
        return 1;
    });
    int32_t index = 7;
    point(X + 255, Y - 137, true);
    EXPECT_EQ(run(index), 1);
    EXPECT_EQ(field, SEARCH_CODE);
    const struct { const char* typed; bool key; const char* shown; int32_t index; } rows[] = {
        {"kabqx", true, "KABQ", 42}, {"kab", true, "KAB", 0}, {"zzzz", false, "ZZZZ", 7}};
    for (const auto& r : rows) {
        strcpy(search, r.typed), index = 7, searched_kind = -1;
        point(0, 0), ShellInput.key_pressed = r.key;
        run(index);
        EXPECT_EQ(std::string(search), r.shown);
        EXPECT_EQ(index, r.index) << r.typed;
        EXPECT_EQ(searched_kind, r.key ? 1 : -1);
    }
    for (float mx : {X + 232.5f, X + 275.5f}) {  // between and beside the fields nothing happens
        point(mx, Y - 147, true), field = SEARCH_CODE, strcpy(search, "KS");
        EXPECT_EQ(run(index), 0);
        EXPECT_EQ(std::string(search), "KS");
    }
}

TEST_F(Picker, RowsFolderColourTagsFrameAndCursor) {
    table.set(99, "Aircraft", "fold"), table.set(100, "C172SP.acf", "file"), table.set(101, "Mojave", "KMHV");
    int32_t index = 100;
    point(0, 0);
    run(index);
    int names = 0, tags = 0;
    for (const Str& s : strings()) {
        names += s.x == X + 8, tags += s.x == X + 242;
        if (s.y == Y + 10 - 3 - 2) {
            EXPECT_EQ(std::pair(s.r, s.b), std::pair(1.0f, 0.2f)) << "folder rows are yellow";
        } else if (s.y == Y - 3 - 2) {
            EXPECT_EQ(std::pair(s.r, s.b), std::pair(0.1f, 0.1f)) << "file rows are green";
        }
    }
    EXPECT_EQ(names, 21);  // only the visible rows, however long the table
    EXPECT_EQ(tags, 19);   // neither the folder's nor the file's tag
    // The frame takes the selected row's colour, black when the index has no row; last < first
    // draws the box alone.
    const struct { int32_t index, first, last; float press_dy, r, g; size_t prims; int32_t after; } frames[] = {
        {99, 0, 300, NAN, 1, 1, 0, 99}, {100, 0, 300, NAN, 0.1f, 1, 0, 100},
        {1, 0, 300, 30, 0, 0, 0, 0},  // pressed above the first entry: no row at the index
        {5, 6, 5, NAN, 0, 0, 1, 5}};
    for (const auto& f : frames) {
        gl.clear_log();
        index = f.index;
        point(X + 100, Y + f.press_dy, !std::isnan(f.press_dy));
        EXPECT_EQ(run(index, 998, f.first, f.last), !std::isnan(f.press_dy) && f.first <= f.last);
        if (f.prims) {
            EXPECT_EQ(gl.prims.size(), f.prims);
            continue;
        }
        const GlPrim& frame = gl.prims.back();
        ASSERT_EQ(frame.mode, (GLenum)GL_LINE_STRIP);
        EXPECT_EQ(std::pair(frame.v[0].r, frame.v[0].g), std::pair(f.r, f.g)) << f.index;
        EXPECT_EQ(std::pair(frame.v[2].x - frame.v[0].x, frame.v[2].y - frame.v[0].y), std::pair(261.0f, 10.0f));
        EXPECT_EQ(index, f.after);
    }
    point(0, 0);
    // The cursor stands after the typed text and pulses with the clock; the frame says it moves.
    for (auto [t, alpha] : {std::pair(0.0f, 0.5f), {(float)M_PI / 20, 0.9f}, {(float)M_PI / 60, 0.7f},
                            {3 * (float)M_PI / 20, 0.1f}}) {
        gl.clear_log(), OGL_pulse_drawn = OGL_STILL;
        field = SEARCH_NAME, strcpy(search, "MO"), ShellInput.elapsed_secs = t;
        run(index);
        float text_right = 0;
        for (const DrawnQuad& q : quads())
            if (q.y0 == Y - 150 - 2) text_right = std::max(text_right, q.x1);
        const GlPrim* cursor = nullptr;
        for (const GlPrim& p : gl.prims)
            if (p.mode == GL_LINES) cursor = &p;
        ASSERT_TRUE(cursor);
        EXPECT_EQ(cursor->v[0].x - 0.5f, text_right);
        EXPECT_EQ(OGL_pulse_drawn, OGL_SMALL_PULSE);
        EXPECT_NEAR(cursor->v[0].a, alpha, 1e-5) << t;
    }
}
