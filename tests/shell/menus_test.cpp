// Menus: the menu file reader and its limits, the column layout, picks by click and Return,
// following the pointer along the bar, the open menu's drawing, and the six shipped languages.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/textures.h"
#include "kit/faces.h"
#include "shell/app_hooks.h"
#include "shell/language.h"
#include "shell/menu_table.h"
#include "shell/menus.h"
#include "shell/screens.h"
#include "shell/text_table.h"
#include "tests/support/gl_recorder.h"
#include "tests/support/test_files.h"
#include "util/file_reader.h"
#include "util/folders.h"
#include "window/input.h"

using testing::ExitedWithCode;
using testing::HasSubstr;
using S = std::string;
using Ints = std::vector<int32_t>;

static Ints picks;
static int swaps = 0;

static S num(float v) {
    char b[32];
    snprintf(b, sizeof b, "%g", v);
    return b;
}
static S rect(const MenuRect& r) { return num(r.left) + ".." + num(r.right) + " x " + num(r.bottom) + ".." + num(r.top); }
static S shown(const char* s) {  // glyph bytes as \xNN
    S out;
    for (; *s; ++s) {
        char b[8];
        const unsigned char c = (unsigned char)*s;
        snprintf(b, sizeof b, c < 32 || c > 126 ? "\\x%02x" : "%c", c);
        out += b;
    }
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
            if (it.label[0])
                out += " | " + std::to_string(it.command) + (it.korean ? " k " : " ") + shown(it.label) + " " + rect(it.rect);
        out += "\n";
    }
    return out;
}

class Menus : public testing::Test {
  protected:
    void SetUp() override {
        gl_recorder_install();
        gl_state_reset(), tex_reset(), design_space_reset(), input_reset(), fio_reset();
        OGL_tex_bytes[OGL_TEX_SHEET] = OGL_tex_bytes[OGL_TEX_KOREAN] = 1;  // the sheets count as loaded
        menus_reset(), text_table_reset();
        language = LANG_ENGLISH, cur_screen = SCREEN_MAIN, swaps = 0;
        picks.clear();
        app_set_hooks(nullptr, nullptr, [](int32_t c) { picks.push_back(c); });
        OGL_set_swap([]() -> int32_t { return ++swaps; });
        folders_fill(dir.c_str(), dir.c_str());
    }
    void TearDown() override { app_set_hooks(nullptr, nullptr, nullptr), OGL_set_swap(nullptr); }
    // The menu file of the current language under the temporary program folder.
    void write_menus(const S& body) {
        S folder = dir + "Resources/menus/" + language_folder_word(language);
        folder.back() = '/';
        std::filesystem::create_directories(folder);
        test_write_file(folder, "Vocalog.txt", body);
    }
    struct Item {
        S label;
        int32_t command = 0, plain = 0;
    };
    struct Build {
        int32_t index, parent_code;
        S title;
        std::vector<Item> items;
    };
    static void build(const std::vector<Build>& menus) {
        for (const Build& b : menus) {
            MACIBM_create_menu(b.index, b.parent_code, b.title.c_str());
            for (size_t k = 0; k < b.items.size(); ++k)
                append_menu(b.index, (int32_t)k, b.items[k].command, b.items[k].label.c_str(), b.items[k].plain);
        }
    }
    static void point(float x, float y) { ShellInput.mouse_x = x, ShellInput.mouse_y = y; }
    // Opens menu `m` the way the user does: its parent's title first, then its own.
    static void open_by_clicks(int32_t m) {
        if (menu_table[m].parent >= 0) open_by_clicks(menu_table[m].parent);
        point(menu_table[m].rect.left, menu_table[m].rect.bottom);
        MACIBM_handleclick(0);
    }
    S dir = test_temp_dir();
};
using MenusDeathTest = Menus;

TEST_F(Menus, ColumnLayout) {
    std::vector<Item> many(64, Item{"Item"});
    const S k3 = "\x01\x02\x01\x03\x01\x04", k20(40, '\x02');  // three and twenty two-byte glyphs
    struct Row {
        int32_t lang;
        float margin_y;
        std::vector<Build> menus;
        S want;  // a part of the dump
    } rows[] = {
        // Titles 7 a character with 12 between; the column as wide as the longest label x 7 + 35,
        // rows 12 high, a separator 2.
        {LANG_ENGLISH, 0, {{0, 0, "File", {{"Open", 1}, {"-"}, {"Quit", 2}}}, {1, 0, "Help", {{"About Vocalog"}}}},
         "0 -1 File: 12..40 x 750..768 | 1 Open 12..75 x 738..750 | 0 - 12..75 x 736..738 | 2 Quit 12..75 x 724..736\n"
         "1 -1 Help: 52..80 x 750..768 | 0 About Vocalog 52..178 x 738..750\n"},
        {LANG_ENGLISH, 51.2f, {{0, 0, "File", {{"Open"}, {"=hidden"}, {"Quit"}}}},
         "0 -1 File: 12..40 x 801.2..819.2 | 0 Open 12..96 x 789.2..801.2 | 0 =hidden 12..96 x 789.2..789.2"
         " | 0 Quit 12..96 x 777.2..789.2\n"},
        // Item 62 would reach below 15: it and the rest start a column to the right, level with item 0.
        {LANG_ENGLISH, 0, {{0, 0, "Long", many}},
         "0 Item 12..75 x 6..18 | 0 Item 75..138 x 738..750 | 0 Item 75..138 x 726..738\n"},
        // A hanging menu starts level with the item it hangs off.
        {LANG_ENGLISH, 0, {{0, 0, "File", {{"Open"}, {"Recent"}, {"Quit"}}}, {1, 1, "Recent", {{"a.acf"}, {"b.acf"}}}},
         "1 0 Recent: 12..89 x 726..738 | 0 a.acf 12..82 x 726..738 | 0 b.acf 12..82 x 714..726\n"},
        // Korean: titles 14 a glyph; items 13 high and 13 a byte, unless appended plain, whose
        // measures then apply to the whole column.
        {LANG_KOREAN, 0, {{0, 0, k3, {{k3.substr(0, 4)}}}, {1, 0, k20, {}}},
         "0 -1 \\x01\\x02\\x01\\x03\\x01\\x04: 12..54 x 750..768 | 0 k \\x01\\x02\\x01\\x03 12..99 x 737..750\n"
         "1 -1 " + shown(k20.c_str()) + ": 66..346 x 750..768\n"},
        {LANG_KOREAN, 0, {{0, 0, k3, {{k3.substr(0, 4)}, {"OK", 0, 1}}}},
         "| 0 k \\x01\\x02\\x01\\x03 12..75 x 738..750 | 0 OK 12..75 x 726..738\n"},
    };
    for (const Row& r : rows) {
        menus_reset();
        language = r.lang, ui_margin_y = r.margin_y;
        build(r.menus);
        EXPECT_THAT(dump(), HasSubstr(r.want));
    }
}

TEST_F(MenusDeathTest, TableLimitsEndTheProgram) {
    const S k40(40, '\x03');
    struct Row {
        int32_t lang;
        std::vector<Build> menus;
        S l1, l4;
    } rows[] = {
        {LANG_ENGLISH, {{0, 0, S(40, 'T'), {}}}, "menu name too long in MACIBM_create_menu!", S(40, 'T')},
        {LANG_KOREAN, {{0, 0, S(80, '\x03'), {}}}, "menu name too long in MACIBM_create_menu!", S(80, '\x03')},
        {LANG_KOREAN, {{0, 0, k40, {{k40}}}}, "Menu name too long in append_menu!", k40},  // bytes count for labels
        {LANG_ENGLISH, {{0, 0, "File", std::vector<Item>(101, Item{"x"})}}, "Item index out of range in append_menu!", "x"},
        {LANG_ENGLISH, {{420, 0, "Far", {}}}, "Menu index out of range in MACIBM_create_menu!", "Far"},
        {LANG_ENGLISH, {{1, 42000, "Orphan", {}}}, "Parent code out of range in MACIBM_create_menu!", "Orphan"},
    };
    for (const Row& r : rows) {
        language = r.lang;
        EXPECT_EXIT(build(r.menus), ExitedWithCode(0), HasSubstr(test_alert_text(r.l1, "", "", r.l4))) << r.l1;
    }
    EXPECT_EXIT(append_menu(420, 0, 0, "x", 0), ExitedWithCode(0),
                HasSubstr(test_alert_text("Menu index out of range in append_menu!", "", "", "x")));
}

TEST_F(Menus, FileReader) {
    struct Row {
        int32_t lang;
        S body, want;
    } rows[] = {
        // Blanks after the number are skipped; the third line is a comment; an empty line ends a block.
        {LANG_ENGLISH, "I\n1 version\n0 comment\n0   File\n100  Write it\n0 -\n102 Quit\n\n0 Help\n0 About\n\n",
         "0 -1 File: 12..40 x 750..768 | 100 Write it 12..103 x 738..750 | 0 - 12..103 x 736..738"
         " | 102 Quit 12..103 x 724..736\n1 -1 Help: 52..80 x 750..768 | 0 About 52..122 x 738..750\n"},
        // The data may end without an empty line; a line with no blank is a number and no name
        // (no item, but it takes its index); a parent code hangs the menu off that item.
        {LANG_ENGLISH, "A\n1\n\n0 File\n7\n5 Recent\n\n1 Recent\n201 a.acf",
         "0 -1 File: 12..40 x 750..768 | 5 Recent 12..89 x 738..750\n"
         "1 0 Recent: 12..89 x 738..750 | 201 a.acf 12..82 x 738..750\n"},
        // Nothing after the first empty header line is read.
        {LANG_ENGLISH, "I\n1\nx\n0 File\n1 a\n\n\n0 Never\n1 b\n", "0 -1 File: 12..40 x 750..768 | 1 a 12..54 x 738..750\n"},
        // Korean names are glyph numbers; separators and hidden entries stay as they are.
        {LANG_KOREAN, "I\n1\nx\n0 1 2 126\n100 10  200\n5 =hidden\n6 -\n\n",
         "0 -1 \\x01\\x02\\x01\\x03\\x01\\x7f: 12..54 x 750..768 | 100 k \\x01\\x0b\\x02J 12..138 x 737..750"
         " | 5 k =hidden 12..138 x 737..737 | 6 k - 12..138 x 735..737\n"},
    };
    for (const Row& r : rows) {
        language = r.lang;
        write_menus(r.body);
        MACIBM_load_menus("Vocalog.txt");
        EXPECT_EQ(dump(), r.want);
    }
}

TEST_F(MenusDeathTest, FileLimitsEndTheProgram) {
    const S menus_path = dir + "Resources/menus/english/Vocalog.txt";
    EXPECT_EXIT(MACIBM_load_menus("Vocalog.txt"), ExitedWithCode(0),
                HasSubstr(test_alert_text("Cannot open file!", menus_path, "Trash this copy and re-install Zephyra.", "")));
    write_menus("I\n2\nx\n0 File\n");
    EXPECT_EXIT(MACIBM_load_menus("Vocalog.txt"), ExitedWithCode(0),
                HasSubstr("The following file is the wrong version for this version of Zephyra:\n\n" + menus_path));
    S body = "I\n1\nx\n0 File\n";
    for (int i = 0; i <= MENU_ITEMS; ++i) body += std::to_string(i) + " item " + std::to_string(i) + "\n";
    write_menus(body);
    EXPECT_EXIT(MACIBM_load_menus("Vocalog.txt"), ExitedWithCode(0),
                HasSubstr(test_alert_text("Item index out of range in append_menu!", "", "", "item 100")));
}

// File: Write 100, Recent (menu 2 hangs off it), a separator, Quit 102; Help: About 0.
//   File 12..40 x 750..768, its items 12..89: Write 738..750, Recent 726..738, - 724..726, Quit 712..724
//   Help 52..80 x 750..768, About 52..122 x 738..750; Recent's a.acf 12..82 x 726..738
class Picks : public Menus {
  protected:
    void SetUp() override {
        Menus::SetUp();
        build({{0, 0, "File", {{"Write", 100}, {"Recent", 5}, {"-", 7}, {"Quit", 102}}},
               {1, 0, "Help", {{"About", 0}}},
               {2, 1, "Recent", {{"a.acf", 201}}}});
    }
};

TEST_F(Picks, ClicksAndReturn) {
    enum : int32_t { WINDOW = 5 };
    struct Row {
        int32_t screen, open;
        float x, y;
        int32_t from_return;
        int32_t open_after, screen_after;
        Ints picks;
        int swaps;
    } rows[] = {
        {SCREEN_MAIN, -1, 26, 759, 0, 0, SCREEN_MAIN, {}, 0},    // a title opens its menu
        {SCREEN_MAIN, 0, 26, 759, 0, -1, SCREEN_MAIN, {}, 0},    // ... and closes it again
        {SCREEN_MAIN, 0, 80, 768, 0, 1, SCREEN_MAIN, {}, 0},     // another title, edges included
        {SCREEN_MAIN, 0, 40, 744, 0, -1, SCREEN_MAIN, {100}, 0},
        {SCREEN_MAIN, 0, 89, 712, 0, -1, SCREEN_MAIN, {102}, 0},  // corner of Quit
        {SCREEN_MAIN, 1, 122, 738, 0, -1, SCREEN_MAIN, {0}, 0},
        {SCREEN_MAIN, 0, 50, 725, 0, -1, SCREEN_MAIN, {}, 0},    // a separator only closes
        {SCREEN_MAIN, 0, 500, 400, 0, -1, SCREEN_MAIN, {}, 0},   // so does a click elsewhere
        {SCREEN_MAIN, 0, 50, 732, 0, 2, SCREEN_MAIN, {}, 0},     // the item a menu hangs off opens it
        {SCREEN_MAIN, 2, 50, 732, 0, -1, SCREEN_MAIN, {201}, 0},
        {SCREEN_MAIN, 2, 26, 759, 0, 0, SCREEN_MAIN, {}, 0},
        {SCREEN_MAIN, -1, 50, 732, 0, -1, SCREEN_MAIN, {}, 0},   // its title is dead while File is closed
        {SCREEN_MAIN, -1, 40, 744, 0, -1, SCREEN_MAIN, {}, 0},   // items of a closed menu
        {SCREEN_MAIN, 0, 40, 744, 1, -1, SCREEN_MAIN, {100}, 0},  // Return picks at the pointer
        {WINDOW, -1, 500, 400, 1, -1, SCREEN_MAIN, {}, 1},       // Return closes a window screen
        {WINDOW, -1, 15, 758, 0, -1, SCREEN_MAIN, {}, 1},        // so do its corner knobs
        {WINDOW, -1, 1014, 748, 0, -1, SCREEN_MAIN, {}, 1},
        {WINDOW, -1, 500, 758, 0, -1, WINDOW, {}, 0},
        {WINDOW, -1, 998, 760, 0, -1, WINDOW, {}, 0},            // just beside the knobs' boxes
        {WINDOW, -1, 1020, 760, 0, -1, WINDOW, {}, 0},
        {WINDOW, -1, 4, 760, 0, -1, WINDOW, {}, 0},
        {WINDOW, -1, 15, 747.5f, 0, -1, WINDOW, {}, 0},
        {WINDOW, -1, 26, 759, 0, -1, WINDOW, {}, 0},             // no menus on a window screen
        {SCREEN_ALERT, 0, 40, 744, 1, -1, SCREEN_ALERT, {}, 0},  // nor on the modal ones
    };
    for (const Row& r : rows) {
        cur_screen = r.screen, open_menu = r.open, swaps = 0;
        picks.clear();
        cur_screen = SCREEN_MAIN, open_menu = -1;
        if (r.open >= 0) open_by_clicks(r.open);
        cur_screen = r.screen;
        point(r.x, r.y);
        ShellInput.mouse_clicked = ShellInput.mouse_down = 1;
        MACIBM_handleclick(r.from_return);
        const int32_t held = r.picks.empty() && r.screen_after == r.screen ? 1 : 0;  // a pick forgets the press
        EXPECT_EQ(std::make_tuple(open_menu, cur_screen, picks, swaps, ShellInput.mouse_down),
                  std::make_tuple(r.open_after, r.screen_after, r.picks, r.swaps, held))
            << r.screen << " " << r.open << " " << r.x << "," << r.y;
    }
}

TEST_F(Picks, OpenMenuFollowsThePointerAlongTheBar) {
    struct Row {
        int32_t open;
        float x, y;
        int32_t open_after;
    } rows[] = {
        {0, 66, 759, 1}, {2, 52, 750, 1},  // onto another bar title, also from a hanging menu
        {0, 26, 759, 0}, {1, 26, 759, 0},  // the open menu's own title; and back
        {-1, 66, 759, -1},                 // nothing opens while no menu is open
        {0, 50, 732, 0},                   // a hanging menu's title is not on the bar
        {0, 46, 759, 0},                   // the gap between two titles
    };
    for (const Row& r : rows) {
        open_menu = r.open;
        point(r.x, r.y);
        MACIBM_menu_follow_pointer();
        EXPECT_EQ(open_menu, r.open_after) << r.open << " " << r.x;
    }
}

TEST_F(Picks, OpenMenuDrawsItsBoxFrameAndLitItem) {
    for (int32_t i = 0; i < OGL_PALETTE_SIZE; ++i) OGL_set_palette(i, (float)i / 128.0f, 0.5f, 0.25f);
    point(26, 759);
    MACIBM_handleclick(0);
    point(60, 738);  // on the line between Write and Recent: an item's top row is not its own
    gl_rec().clear_log();
    MACIBM_draw_menus();
    // Each shape as "colour kind corners"; text and sprites as "colour text glyphs at first corner".
    std::vector<S> seen;
    for (const GlPrim& p : gl_rec().prims) {
        if (p.v.empty()) continue;
        S s = std::to_string((int)std::lround(p.v[0].r * 128.0f));
        if (p.tex2d[0]) {
            seen.push_back(s + " text " + std::to_string(p.v.size() / 4) + " at " + num(p.v[0].x) + "," + num(p.v[0].y));
            continue;
        }
        s += p.mode == GL_QUADS ? " quad" : " line";
        for (const GlVertex& v : p.v) s += " " + num(v.x) + "," + num(v.y);
        seen.push_back(s);
    }
    const std::vector<S> want = {
        "5 text 4 at 12,753", "5 text 4 at 52,753",  // the titles, over the bar drawn first
        "38 quad 12,712 12,750 89,750 89,712",      // the items' bounding box
        "36 quad 12,738 12,750 89,750 89,738",      // Write, under the pointer
        "37 line 12.5,711.5 12.5,750.5",            // the frame: light left and top,
        "37 line 12.5,750.5 89.5,750.5",            // shaded right and bottom
        "39 line 89.5,750.5 89.5,711.5",
        "39 line 12.5,711.5 89.5,711.5",
        "0 text 5 at 30,738",                       // Write lit; the separator's two lines
        "5 text 6 at 30,726",
        "39 line 12.5,725.5 88.5,725.5",
        "37 line 12.5,724.5 88.5,724.5",
        "5 text 4 at 30,712",
        "0 text 1 at 70,721",  // the arrow of the menu hanging off Recent
    };
    ASSERT_GE(seen.size(), want.size());
    EXPECT_EQ(std::vector<S>(seen.end() - (long)want.size(), seen.end()), want);
}

// The shipped files: every language's File menu holds write, a separator, quit and speak,
// and its Help menu about, so a click at the same place sends the same command everywhere.
TEST_F(Menus, ShippedLanguagesPickTheSameCommands) {
    const char* bin = getenv("VOCALOG_BINARY_DIR");
    ASSERT_TRUE(bin);
    folders_fill((S(bin) + "/").c_str(), dir.c_str());
    struct Pos {
        int32_t menu, item, command;  // -1: nothing is sent
    } positions[] = {{0, 0, 100}, {0, 1, -1}, {0, 2, 102}, {0, 3, 103}, {1, 0, 0}};
    for (int32_t lang = 0; lang < LANG_COUNT; ++lang) {
        language = lang;
        MACIBM_load_text();
        for (int32_t i : {TEXT_ALTITUDE, TEXT_BRIEF_BUTTON, TEXT_ALERT_TITLE, TEXT_DIALOG_TITLE, TEXT_ALERT_BUTTON,
                          TEXT_CHOOSER_A, TEXT_CHOOSER_B})
            EXPECT_NE(text_table[i][0], 0) << "text " << i << " of " << language_folder_word(lang);
        for (const Pos& p : positions) {
            const Menu& m = menu_table[p.menu];
            const MenuRect& r = m.items[p.item].rect;
            picks.clear();
            point((m.rect.left + m.rect.right) / 2, (m.rect.bottom + m.rect.top) / 2);
            MACIBM_handleclick(0);
            ASSERT_EQ(open_menu, p.menu) << language_folder_word(lang);
            point((r.left + r.right) / 2, (r.bottom + r.top) / 2);
            MACIBM_handleclick(0);
            EXPECT_EQ(picks, p.command < 0 ? Ints{} : Ints{p.command}) << language_folder_word(lang) << " " << p.item;
        }
        EXPECT_EQ(menu_table[2].title[0], 0) << "only File and Help";
        EXPECT_EQ(menu_table[0].items[4].label[0], 0) << "four File items";
    }
}
