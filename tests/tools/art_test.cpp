// The art generator: a fresh run gives the staged files byte for byte; the interface sheet
// paints every block of the sheet map and nothing else, glyph cells hold only clean glyphs,
// the intro pictures are whole, and the Korean menus name glyphs that the glyph sheet holds.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <sstream>

#include "kit/sheet_map.h"
#include "tests/tools/tools_support.h"
#include "util/text.h"

namespace {

const char* const FILES[] = {"bitmaps/general_interface.bmp", "bitmaps/intro/english.bmp", "bitmaps/intro/french.bmp",
                             "bitmaps/intro/german.bmp",      "bitmaps/intro/italian.bmp", "bitmaps/intro/spanish.bmp",
                             "bitmaps/intro/korean.bmp",      "menus/korean/menu_text.bmp", "menus/korean/Vocalog.txt"};

std::string staged(const std::string& rel) { return std::getenv("VOCALOG_BINARY_DIR") + ("/Resources/" + rel); }

// A 24-bit bitmap as the program's reader takes it: header fields, then bottom-up padded rows.
struct Bmp {
    int32_t w = 0, h = 0;
    std::string bytes;
    explicit Bmp(const std::string& path) : bytes(test_read_file(path)) {
        auto field = [&](size_t at, int n) {
            uint32_t v = 0;
            for (int i = n - 1; i >= 0; --i) v = v << 8 | (uint8_t)bytes.at(at + i);
            return v;
        };
        EXPECT_TRUE(field(0, 2) == 19778 && field(28, 2) == 24 && field(30, 4) == 0) << path;
        w = (int32_t)field(18, 4), h = (int32_t)field(22, 4);
        EXPECT_EQ(bytes.size(), 54 + size_t((w * 3 + 3) / 4 * 4) * h) << path;
    }
    uint32_t rgb(int x, int y) const {  // 0xRRGGBB, y up
        const uint8_t* p = (const uint8_t*)bytes.data() + 54 + y * ((w * 3 + 3) / 4 * 4) + x * 3;
        return uint32_t(p[2]) << 16 | p[1] << 8 | p[0];
    }
    bool clear(int x, int y) const { return rgb(x, y) == 0xFF00FF; }
};

bool in_block(int x, int y, int32_t id) {
    const SheetBlock& b = BTN_sheet[id];
    return x >= b.x && y >= b.y && x < b.x + b.w && y < b.y + b.h;
}

}  // namespace

TEST(Art, FreshRunMatchesTheStagedFilesByteForByte) {
    const std::string tmp = test_temp_dir();
    ASSERT_EQ(run_tool("vocalog-gen-art", {"--out", tmp, "--menu-source",
                                           std::getenv("VOCALOG_SOURCE_DIR") + std::string("/tools/art/korean_menu.txt")}),
              0);
    for (const char* rel : FILES) EXPECT_TRUE(test_read_file(tmp + "Resources/" + rel) == test_read_file(staged(rel))) << rel;
}

TEST(Art, SheetPaintsEveryBlockAndGlyphCellsHoldOnlyGlyphs) {
    const Bmp s(staged(FILES[0]));
    ASSERT_TRUE(s.w == 512 && s.h == 512);
    std::vector<int> painted(SHEET_COUNT, 0);
    for (int y = 0; y < 512; ++y)
        for (int x = 0; x < 512; ++x) {
            bool any = false;
            for (int32_t id = 0; id < SHEET_COUNT; ++id)
                if (in_block(x, y, id)) any = true, painted[id] += !s.clear(x, y);
            ASSERT_TRUE(any || s.clear(x, y)) << "stray paint at " << x << ", " << y;
        }
    for (int32_t id = 0; id < SHEET_COUNT; ++id) EXPECT_GT(painted[id], 0) << BTN_sheet[id].name;
    // Glyphs are drawn with alpha test and no blending: white ink on clear cells, and a glyph's
    // ink keeps off its cell's right column and bottom row, so no glyph touches a neighbour.
    for (int32_t face : {FACE_LABEL, FACE_TIP, FACE_FIELD}) {
        const FaceInfo& f = *face_info(face);
        const char* cells = FACE_LAYOUT_CELLS[f.layout];
        for (int cell = 0; cells[cell]; ++cell) {
            const int u = int(f.u) + cell % f.columns * f.w, v = int(f.v) + cell / f.columns * f.h;
            int ink = 0;
            for (int y = 0; y < f.h; ++y)
                for (int x = 0; x < f.w; ++x) {
                    const bool clear = s.clear(u + x, v + y), edge = x == f.w - 1 || y == 0;
                    ASSERT_TRUE(clear || (s.rgb(u + x, v + y) == 0xFFFFFF && !edge)) << face << " '" << cells[cell] << "'";
                    ink += !clear;
                }
            EXPECT_EQ(ink > 0, cells[cell] != ' ') << face << " '" << cells[cell] << "'";
        }
    }
}

// Pieces drawn over one another, or side by side closer than their size, fit together.
TEST(Art, OverlaysCoverTheirPiecesAndPitchedPiecesTile) {
    const Bmp s(staged(FILES[0]));
    auto opaque = [&](int32_t id, int x, int y) { return !s.clear(BTN_sheet[id].x + x, BTN_sheet[id].y + y); };
    // A lit overlay has the silhouette of the piece it lights: no unlit rim shows, nothing pokes out.
    const int32_t lit[][2] = {{SHEET_BAR1, SHEET_BAR0}, {SHEET_KNOB_LIT, SHEET_KNOB}, {SHEET_THUMB_LIT, SHEET_THUMB}};
    for (const auto& p : lit)
        for (int y = 0; y < BTN_sheet[p[1]].h; ++y)
            for (int x = 0; x < BTN_sheet[p[1]].w; ++x)
                ASSERT_EQ(opaque(p[0], x, y), opaque(p[1], x, y)) << BTN_sheet[p[0]].name << " at " << x << ", " << y;
    // Each progress glow, drawn 8 wide on a lamp's centre, covers exactly the lamp's segment.
    const SheetBlock& lamp = BTN_sheet[SHEET_LAMP];
    for (int32_t g : {SHEET_PROGRESS0, SHEET_PROGRESS1, SHEET_PROGRESS2})
        for (int y = 0; y < lamp.h; ++y)
            for (int x = 0; x < lamp.w; ++x) {
                const int gx = x - (lamp.w / 2 - BTN_sheet[g].w / 2);
                const bool lit_here = gx >= 0 && gx < BTN_sheet[g].w && opaque(g, gx, y);
                ASSERT_EQ(lit_here, opaque(SHEET_LAMP, x, y)) << BTN_sheet[g].name << " at " << x << ", " << y;
            }
    // Digit boxes are drawn 10 units apart: a box's texels keep to 10 columns around its digit,
    // the 6 columns from 8 into the box.
    int lo = 99, hi = -1;
    for (int y = 0; y < BTN_sheet[SHEET_DIGIT_BOX].h; ++y)
        for (int x = 0; x < BTN_sheet[SHEET_DIGIT_BOX].w; ++x)
            if (opaque(SHEET_DIGIT_BOX, x, y)) lo = std::min(lo, x), hi = std::max(hi, x);
    EXPECT_TRUE(hi - lo + 1 == 10 && lo <= 8 && hi >= 13) << lo << " .. " << hi;
}

TEST(Art, IntroPicturesAreWholeScreensWithoutTransparentTexels) {
    for (int i = 1; i <= 6; ++i) {
        const Bmp p(staged(FILES[i]));
        ASSERT_TRUE(p.w == 1024 && p.h == 768) << FILES[i];
        int clear = 0;
        for (int y = 0; y < p.h; ++y)
            for (int x = 0; x < p.w; ++x) clear += p.clear(x, y);
        EXPECT_EQ(clear, 0) << FILES[i];  // composing skips magenta, which would show the fill through
    }
    EXPECT_FALSE(test_read_file(staged(FILES[1])) == test_read_file(staged(FILES[6])));  // each has its own line
}

// The menu file read as the menu reader reads it: header, then blocks of a parent code and a
// title, item lines of a command and a label, a blank line after each block.
TEST(Art, KoreanMenusNameGlyphsOfTheGlyphSheet) {
    const Bmp sheet(staged(FILES[7]));
    ASSERT_TRUE(sheet.w == 512 && sheet.h == 512);
    std::istringstream in(test_read_file(staged(FILES[8])));
    std::string line;
    std::getline(in, line);
    EXPECT_EQ(line, "I");
    std::getline(in, line);
    EXPECT_EQ(line.substr(0, 2), "1 ");
    std::getline(in, line);
    const FaceInfo& f = *face_info(FACE_KOREAN);
    std::vector<std::vector<int32_t>> menus;  // parent code, then each item's command
    bool in_block = false;
    while (std::getline(in, line)) {
        if (line.empty()) {
            if (!in_block) break;
            in_block = false;
            continue;
        }
        const size_t blank = line.find(' ');
        ASSERT_NE(blank, std::string::npos) << line;
        if (!in_block) menus.emplace_back();
        menus.back().push_back(std::stoi(line.substr(0, blank)));
        in_block = true;
        Text name;
        str_copy(line.substr(blank + 1).c_str(), name);
        if (name[0] == '-') continue;
        str_nums_to_glyphs(name);
        const size_t n = strlen(name);
        ASSERT_TRUE(n > 0 && n % 2 == 0 && n < 40) << line;
        for (size_t k = 0; k < n; k += 2) {
            const int g = (name[k] - 1) * 127 + (name[k + 1] - 1);
            if (g == 0) continue;  // the blank
            const int u = g % f.columns * f.w, v = g / f.columns * f.h;
            ASSERT_TRUE(u + f.w <= 512 && v + f.h <= 512) << "glyph " << g << " off the sheet";
            int ink = 0;
            for (int y = 0; y < f.h; ++y)
                for (int x = 0; x < f.w; ++x) ink += !sheet.clear(u + x, v + y);
            EXPECT_GT(ink, 0) << "glyph " << g << " is empty";
        }
    }
    const std::vector<std::vector<int32_t>> want = {{0, 100, 101, 102, 103}, {0, 0}};
    EXPECT_EQ(menus, want);
}
