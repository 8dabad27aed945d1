// Menus: the menu file reader, its limits and the column layout; picks by click and Return and
// the pointer following the bar; the open menu's drawing; the six shipped languages.
#include <filesystem>
#include <sstream>

#include "kit/faces.h"
#include "tests/shell/shell_fixture.h"

using testing::ExitedWithCode;
using testing::HasSubstr;
using Ints = std::vector<int32_t>;

static Ints picks;
static int swaps = 0;

static S num(float v) { return (std::ostringstream() << v).str(); }
static S rect(const MenuRect& r) { return num(r.left) + ".." + num(r.right) + " x " + num(r.bottom) + ".." + num(r.top); }
static S shown(const char* s) {  // glyph bytes as \xNN
    S out;
    for (char b[8]; *s; ++s, out += b)
        snprintf(b, sizeof b, (unsigned char)*s < 32 || (unsigned char)*s > 126 ? "\\x%02x" : "%c", (unsigned char)*s);
    return out;
}
// Every menu in use, one a line: index, parent, title and its rectangle, then each item.
static S dump() {
    S out;
    for (int32_t i = 0; i < MENU_COUNT; ++i) {
        const Menu& m = menu_table[i];
        if (!m.title[0]) continue;
        out += std::to_string(i) + " " + std::to_string(m.parent) + " " + shown(m.title) + ": " + rect(m.rect);
        for (const MenuItem& it : m.items)
            if (it.label[0]) out += " | " + std::to_string(it.command) + (it.korean ? " k " : " ") + shown(it.label) + " " + rect(it.rect);
        out += "\n";
    }
    return out;
}
static void point(float x, float y) { ShellInput.mouse_x = x, ShellInput.mouse_y = y; }

class Menus : public Shell {
protected:
    void SetUp() override {
        Shell::SetUp();
        swaps = 0, picks.clear();
        app_set_hooks(nullptr, nullptr, [](int32_t c) { picks.push_back(c); });
        OGL_set_swap([]() -> int32_t { return ++swaps; });
    }
    // Writes `body` as the current language's menu file and reads it.
    void load(const S& body) {
        S folder = dir + "Resources/menus/" + language_folder_word(language);
        folder.back() = '/';
        std::filesystem::create_directories(folder);
        test_write_file(folder, "Vocalog.txt", "I\n1 version\ncomment\n" + body);
        MACIBM_load_menus("Vocalog.txt");
    }
};
using MenusDeathTest = Menus;

static S items(int n, const S& label) {  // n lines "index label"
    return n ? items(n - 1, label) + std::to_string(n - 1) + " " + label + "\n" : "";
}

TEST_F(Menus, FileAndColumnLayout) {
    const S k3 = "\\x01\\x02\\x01\\x03\\x01\\x7f", k20 = "0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19";
    struct Row { int32_t lang; float margin_y; S body, want; } rows[] = {  // want: a part of the dump, or all of it
        // Titles 7 a character, 12 apart; the column as wide as the longest label x 7 + 35, rows 12
        // high, a separator 2; a line with no blank is an item without a name that takes its index;
        // an empty line in a title's place ends the file.
        {LANG_ENGLISH, 0, "0   File\n100  Write it\n0 -\n7\n102 Quit\n\n0 Help\n0 About\n\n\n0 Never\n",
         "0 -1 File: 12..40 x 750..768 | 100 Write it 12..103 x 738..750 | 0 - 12..103 x 736..738"
         " | 102 Quit 12..103 x 724..736\n1 -1 Help: 52..80 x 750..768 | 0 About 52..122 x 738..750\n"},
        {LANG_ENGLISH, 51.2f, "0 File\n0 Open\n0 =hidden\n0 Quit",
         "0 -1 File: 12..40 x 801.2..819.2 | 0 Open 12..96 x 789.2..801.2 | 0 =hidden 12..96 x 789.2..789.2"
         " | 0 Quit 12..96 x 777.2..789.2\n"},
        // Item 62 would reach below 15: it and the rest start a column to the right, level with item 0.
        {LANG_ENGLISH, 0, "0 Long\n" + items(64, "Item"),
         "61 Item 12..75 x 6..18 | 62 Item 75..138 x 738..750 | 63 Item 75..138 x 726..738\n"},
        // A hanging menu starts level with the item it hangs off.
        {LANG_ENGLISH, 0, "0 File\n1 Open\n2 Recent\n\n1 Recent\n3 a.acf\n",
         "1 0 Recent: 12..89 x 726..738 | 3 a.acf 12..82 x 726..738\n"},
        // Korean names are glyph numbers; titles 14 a glyph (20 glyphs fit), items 13 high and 13
        // a byte; separators and hidden entries pass unconverted.
        {LANG_KOREAN, 0, "0 1 2 126\n100 10  200\n5 =hidden\n6 -\n\n0 " + k20 + "\n",
         "0 -1 " + k3 + ": 12..54 x 750..768 | 100 k \\x01\\x0b\\x02J 12..138 x 737..750"
         " | 5 k =hidden 12..138 x 737..737 | 6 k - 12..138 x 735..737\n1 -1 \\x01\\x01\\x01\\x02"},
        {LANG_KOREAN, 0, "0 1 2 126\n\n0 " + k20 + "\n", ": 66..346 x 750..768\n"},
    };
    for (const Row& r : rows) {
        language = r.lang, ui_margin_y = r.margin_y;
        load(r.body);
        const S d = dump();
        if (d.rfind(r.want, 0) == 0 && r.want.back() == '\n') {
            EXPECT_EQ(d, r.want);  // nothing else read
        }
        EXPECT_THAT(d, HasSubstr(r.want)) << r.body;
    }
    load("0 1\n100 10  200\n");  // a plain label keeps the Latin face, and its measures lay out the column
    append_menu(0, 1, 9, "OK", 1);
    EXPECT_THAT(dump(), HasSubstr("100 k \\x01\\x0b\\x02J 12..75 x 738..750 | 9 OK 12..75 x 726..738\n"));
}

TEST_F(MenusDeathTest, LimitsEndTheProgram) {
    const S k40 = "0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19";  // 40 bytes once converted
    struct { int32_t lang; S body, l1, l4; } rows[] = {
        {LANG_ENGLISH, "0 " + S(40, 'T') + "\n", "menu name too long in MACIBM_create_menu!", S(40, 'T')},
        {LANG_KOREAN, "0 " + k40 + " " + k40 + "\n", "menu name too long in MACIBM_create_menu!", "\x01\x01\x01\x02"},
        {LANG_KOREAN, "0 1\n5 " + k40 + "\n", "Menu name too long in append_menu!", "\x01\x01\x01\x02"},
        {LANG_ENGLISH, "0 File\n" + items(101, "x"), "Item index out of range in append_menu!", "x"},
        {LANG_ENGLISH, "0 File\n\n42000 Orphan\n", "Parent code out of range in MACIBM_create_menu!", "Orphan"},
    };
    for (const auto& r : rows) {
        language = r.lang;
        EXPECT_EXIT(load(r.body), ExitedWithCode(0), HasSubstr(r.l1 + "\n\n\n\n\n\n" + r.l4)) << r.l1;
    }
    EXPECT_EXIT(MACIBM_load_menus("absent.txt"), ExitedWithCode(0),
                HasSubstr(test_alert_text("Cannot open file!", dir + "Resources/menus/english/absent.txt",
                                          "Trash this copy and re-install Zephyra.", "")));
}

// File 12..40: Write 100 738..750, Recent 726..738 (menu 2 hangs off it), - 724..726, Quit 102
// 712..724, all 12..89 wide; Help 52..80: About 0 52..122 x 738..750; Recent: a.acf 201 12..82.
class Picks : public Menus {
  protected:
    void SetUp() override {
        Menus::SetUp();
        load("0 File\n100 Write\n5 Recent\n7 -\n102 Quit\n\n0 Help\n0 About\n\n1 Recent\n201 a.acf\n");
    }
    static void open_by_clicks(int32_t m) {  // the parent's title first, then its own
        if (menu_table[m].parent >= 0) open_by_clicks(menu_table[m].parent);
        point(menu_table[m].rect.left, menu_table[m].rect.bottom);
        MACIBM_handleclick(0);
    }
};

TEST_F(Picks, ClicksReturnAndFollowingThePointer) {
    enum : int32_t { CLICK, RETURN, FOLLOW, WINDOW = 5, MAIN = SCREEN_MAIN };  // no menus on the modal screens
    struct Row { int32_t screen, open; float x, y; int32_t how, open_after, screen_after; Ints picks; } rows[] = {
        // A title opens its menu and closes it again; another title, edges included; an item.
        {MAIN, -1, 26, 759, CLICK, 0, MAIN, {}}, {MAIN, 0, 26, 759, CLICK, -1, MAIN, {}},
        {MAIN, 0, 80, 768, CLICK, 1, MAIN, {}}, {MAIN, 0, 89, 712, CLICK, -1, MAIN, {102}},
        // A separator only closes; the item a menu hangs off opens it, dead while its parent is closed.
        {MAIN, 0, 50, 725, CLICK, -1, MAIN, {}}, {MAIN, 0, 50, 732, CLICK, 2, MAIN, {}},
        {MAIN, 2, 50, 732, CLICK, -1, MAIN, {201}}, {MAIN, -1, 50, 732, CLICK, -1, MAIN, {}},
        // Return picks at the pointer and closes a window screen, as its corner knobs do (not just below).
        {MAIN, 0, 40, 744, RETURN, -1, MAIN, {100}}, {WINDOW, -1, 500, 400, RETURN, -1, MAIN, {}},
        {WINDOW, -1, 15, 758, CLICK, -1, MAIN, {}}, {WINDOW, -1, 1019, 748, CLICK, -1, MAIN, {}},
        {WINDOW, -1, 15, 747.5f, CLICK, -1, WINDOW, {}}, {SCREEN_ALERT, 0, 40, 744, RETURN, -1, SCREEN_ALERT, {}},
        // Following the pointer onto another bar title; a hanging menu's title is off the bar.
        {MAIN, 2, 52, 750, FOLLOW, 1, MAIN, {}}, {MAIN, -1, 66, 759, FOLLOW, -1, MAIN, {}},
        {MAIN, 0, 50, 732, FOLLOW, 0, MAIN, {}}};
    for (const Row& r : rows) {
        cur_screen = SCREEN_MAIN, open_menu = -1, swaps = 0;
        if (r.open >= 0) open_by_clicks(r.open);
        picks.clear(), cur_screen = r.screen;
        point(r.x, r.y);
        ShellInput.mouse_down = 1;
        if (r.how == FOLLOW) MACIBM_menu_follow_pointer();
        else MACIBM_handleclick(r.how == RETURN);
        const bool closed = r.screen_after != r.screen;  // the lit knobs shown first
        EXPECT_EQ(std::make_tuple(open_menu, cur_screen, picks, swaps, ShellInput.mouse_down),
                  std::make_tuple(r.open_after, r.screen_after, r.picks, closed ? 1 : 0, closed || !r.picks.empty() ? 0 : 1))
            << r.screen << " " << r.open << " " << r.x << "," << r.y;
    }
}

TEST_F(Picks, OpenMenuDrawing) {
    for (int32_t i = 0; i < OGL_PALETTE_SIZE; ++i) OGL_set_palette(i, (float)i / 128.0f, 0.5f, 0.25f);
    open_by_clicks(0);
    point(60, 738);  // on the line between Write and Recent: an item's top row is not its own
    gl_rec().clear_log();
    MACIBM_draw_menus();
    std::vector<S> seen;  // "colour quad|line corners"; text and sprites "colour text glyphs at corner"
    for (const GlPrim& p : gl_rec().prims) {
        if (p.v.empty()) continue;
        S s = std::to_string((int)std::lround(p.v[0].r * 128.0f));
        if (p.tex2d[0]) s += " text " + std::to_string(p.v.size() / 4) + " at " + num(p.v[0].x) + "," + num(p.v[0].y);
        else s += p.mode == GL_QUADS ? " quad" : " line";
        for (size_t k = 0; !p.tex2d[0] && k < p.v.size(); ++k) s += " " + num(p.v[k].x) + "," + num(p.v[k].y);
        seen.push_back(s);
    }
    const std::vector<S> want = {
        "5 text 4 at 12,753", "5 text 4 at 52,753",                                   // titles over the bar
        "38 quad 12,712 12,750 89,750 89,712", "36 quad 12,738 12,750 89,750 89,738",  // box, Write lit
        "37 line 12.5,711.5 12.5,750.5", "37 line 12.5,750.5 89.5,750.5",              // light left, top
        "39 line 89.5,750.5 89.5,711.5", "39 line 12.5,711.5 89.5,711.5",              // shaded right, bottom
        "0 text 5 at 30,738", "5 text 6 at 30,726",                                   // Write lit, Recent
        "39 line 12.5,725.5 88.5,725.5", "37 line 12.5,724.5 88.5,724.5",              // the separator
        "5 text 4 at 30,712", "0 text 1 at 70,721"};                                  // Quit, Recent's arrow
    ASSERT_GE(seen.size(), want.size());
    EXPECT_EQ(std::vector<S>(seen.end() - (long)want.size(), seen.end()), want);
}

// Every shipped language: all the texts the program shows, File with write, a separator, quit
// and speak, Help with about, so a click at the same place sends the same command everywhere.
TEST_F(Menus, ShippedLanguagesPickTheSameCommands) {
    folders_fill((S(getenv("VOCALOG_BINARY_DIR")) + "/").c_str(), dir.c_str());
    const Ints want[2] = {{100, -1, 102, 103}, {0}};  // -1: nothing sent
    for (language = 0; language < LANG_COUNT; ++language) {
        MACIBM_load_text();
        for (int32_t i : {0, 1, 600, 601, 602, 605, 606}) EXPECT_NE(text_table[i][0], 0) << i << " " << language;
        const GlUpload* glyphs = gl_rec().upload(TEX_GLYPHS, 0);  // the generated sheet, not a stand-in
        EXPECT_EQ(glyphs ? glyphs->width : 0, language == LANG_KOREAN ? 512 : 0);
        Ints seen[2];
        for (int32_t m = 0; m < 2; ++m)
            for (const MenuItem& it : menu_table[m].items) {
                if (!it.label[0]) break;
                picks = {-1};
                point(menu_table[m].rect.left, menu_table[m].rect.top);
                MACIBM_handleclick(0);
                point((it.rect.left + it.rect.right) / 2, (it.rect.bottom + it.rect.top) / 2);
                MACIBM_handleclick(0);
                seen[m].push_back(picks.back());
            }
        EXPECT_EQ(std::tuple(seen[0], seen[1], menu_table[2].title[0]), std::tuple(want[0], want[1], 0))
            << language_folder_word(language);
    }
}
