// The Korean menus: names become glyph numbers, and each glyph is drawn into the glyph sheet
// "Korean:menu_text" (13 x 13 cells, 40 to a row, glyph g in cell g, rows from the bottom).
#include <map>
#include <sstream>
#include <vector>

#include "kit/faces.h"
#include "tools/art/art.h"
#include "tools/art/type.h"

namespace art {
namespace {

// What one glyph shows: a Hangul syllable, or up to two Latin characters side by side, which
// keeps Latin words at their natural spacing under the face's fixed advance.
using Token = std::vector<uint32_t>;

std::vector<Token> tokens(const std::string& name) {
    std::vector<Token> out;
    for (uint32_t cp : utf8_decode(name)) {
        const bool latin = cp > ' ' && cp < 0x80;
        if (latin && !out.empty() && out.back().size() == 1 && out.back()[0] > ' ' && out.back()[0] < 0x80)
            out.back().push_back(cp);
        else
            out.push_back({cp});
    }
    return out;
}

class Glyphs {
public:
    Glyphs() : hangul_(FONT_HANGUL_BITMAP), latin_(FONT_FIXED) {}
    // The glyph number of a token, drawing it into the sheet the first time; a blank is 0.
    int number(const Token& t, Canvas& sheet) {
        if (t.size() == 1 && t[0] == ' ') return 0;
        auto it = numbers_.find(t);
        if (it != numbers_.end()) return it->second;
        const FaceInfo& f = *face_info(FACE_KOREAN);
        do ++next_;
        while ((next_ % f.columns + 1) * f.w > SHEET_TEXELS);  // the last column runs off the sheet
        if (next_ >= FACE_GLYPHS) fail("too many Korean glyphs");
        const int u = next_ % f.columns * f.w, v = next_ / f.columns * f.h;
        if (t[0] >= 0x80) {
            const uint32_t code = ksx1001_code(t[0]);
            if (!code || !hangul_.has(code)) fail("no Korean glyph for a character of the menu source");
            draw(hangul_.glyph(code), u, v, 0, sheet);
        } else {
            for (size_t k = 0; k < t.size(); ++k) draw(latin_.glyph(t[k]), u, v, 6 * int(k), sheet);
        }
        return numbers_[t] = next_;
    }

private:
    // Into the cell at (u, v), `dx` texels in; baseline 3 rows above the cell's bottom; ink keeps
    // off the cell's right column and bottom row.
    void draw(const Glyph& g, int u, int v, int dx, Canvas& sheet) {
        const FaceInfo& f = *face_info(FACE_KOREAN);
        for (int y = 0; y < g.h; ++y)
            for (int x = 0; x < g.w; ++x) {
                if (!g.ink(x, y)) continue;
                const int gx = dx + g.left + x, gy = 3 + g.top - 1 - y;
                if (gx < 0 || gx >= f.w - 1 || gy < 1 || gy >= f.h) fail("a Korean glyph does not fit its cell");
                sheet.set(u + gx, v + gy, rgb(255, 255, 255));
            }
    }
    Font hangul_, latin_;
    std::map<Token, int> numbers_;
    int next_ = 0;
};

}  // namespace

std::string korean_menus(const std::string& source, Canvas& sheet) {
    Glyphs glyphs;
    std::string out = "I\n1 Vocalog menus (Korean): every name is a line of glyph numbers of Korean:menu_text\n"
                      "Made by vocalog-gen-art from tools/art/korean_menu.txt; edit that file, not this one.\n";
    std::istringstream in(source);
    for (std::string line; std::getline(in, line);) {
        const size_t blank = line.find(' ');
        if (line.empty() || blank == std::string::npos) {
            out += line + "\n";
            continue;
        }
        const std::string name = line.substr(line.find_first_not_of(' ', blank));
        out += line.substr(0, blank) + " ";
        if (name[0] == '-' || name[0] == '=') {
            out += name + "\n";
            continue;
        }
        std::string numbers;
        for (const Token& t : tokens(name)) numbers += (numbers.empty() ? "" : " ") + std::to_string(glyphs.number(t, sheet));
        out += numbers + "\n";
    }
    return out;
}

}  // namespace art
