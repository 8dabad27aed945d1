// Fonts through FreeType: bitmap strikes (PCF) as one-bit glyphs, outline fonts as coverage.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace art {

struct Glyph {
    int w = 0, h = 0;       // bitmap size in pixels
    int left = 0, top = 0;  // pen to the bitmap's left column; baseline to its top row
    int advance = 0;        // pen step in pixels
    std::vector<uint8_t> cov;  // coverage 0..255, row 0 at the top; one-bit fonts give 0 or 255
    bool ink(int x, int y) const { return x >= 0 && y >= 0 && x < w && y < h && cov[y * w + x] >= 128; }
};

class Font {
public:
    // A bitmap font at its first strike (pixels 0), or an outline font at `pixels` em size.
    Font(const std::string& path, int pixels = 0);
    ~Font();
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;
    bool has(uint32_t code) const;
    Glyph glyph(uint32_t code) const;  // a code the font lacks gives an empty glyph
    int ascender() const;              // pixels above the baseline of the font's tallest letters
private:
    void* face_;
    bool bitmap_;
};

std::vector<uint32_t> utf8_decode(const std::string& s);
// The KS X 1001 code (row byte << 8 | cell byte, each 0x21..0x7E) of a Unicode character, 0 if none.
uint32_t ksx1001_code(uint32_t unicode);

}  // namespace art
