// The art generator's parts: the interface sheet, the intro pictures, the Korean glyphs and menus.
#pragma once
#include <string>

#include "tools/art/canvas.h"

namespace art {

// Fonts read through FreeType, all from Debian packages (scripts/install-deps.sh).
constexpr const char* FONT_FIXED = "/usr/share/fonts/X11/misc/6x10.pcf.gz";            // xfonts-base
constexpr const char* FONT_HANGUL_BITMAP = "/usr/share/fonts/X11/75dpi/gulim12.pcf.gz"; // xfonts-baekmuk
constexpr const char* FONT_TITLE = "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf";  // fonts-dejavu-core
constexpr const char* FONT_LINE = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
constexpr const char* FONT_HANGUL = "/usr/share/fonts/truetype/nanum/NanumGothic.ttf";     // fonts-nanum

[[noreturn]] void fail(const std::string& what);

// The 512 x 512 interface sheet, every block of the sheet map at its place.
Canvas paint_sheet();
// The 1024 x 768 intro picture of language 0..5.
Canvas paint_intro(int language);
// The intro pictures' names under the bitmaps folder, by language ("intro/english.bmp").
const char* intro_file(int language);

// The Korean menus: `source` is the menu file with UTF-8 names; the result is the same file
// with every name written as glyph numbers, and `sheet` receives the 512 x 512 glyph sheet.
std::string korean_menus(const std::string& source, Canvas& sheet);

}  // namespace art
