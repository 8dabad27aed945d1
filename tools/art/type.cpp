// FreeType glyph loading, UTF-8 decoding and the Unicode to KS X 1001 mapping.
#include "tools/art/type.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include <iconv.h>

#include <cstdio>
#include <cstdlib>

namespace art {

static FT_Library library() {
    static FT_Library lib = [] {
        FT_Library l = nullptr;
        if (FT_Init_FreeType(&l)) {
            fprintf(stderr, "FreeType cannot start\n");
            exit(1);
        }
        return l;
    }();
    return lib;
}

Font::Font(const std::string& path, int pixels) : face_(nullptr), bitmap_(pixels == 0) {
    FT_Face f = nullptr;
    if (FT_New_Face(library(), path.c_str(), 0, &f)) {
        fprintf(stderr, "cannot read the font %s (see scripts/install-deps.sh)\n", path.c_str());
        exit(1);
    }
    if (bitmap_ ? (f->num_fixed_sizes < 1 || FT_Select_Size(f, 0)) : FT_Set_Pixel_Sizes(f, 0, pixels)) {
        fprintf(stderr, "the font %s has no usable size\n", path.c_str());
        exit(1);
    }
    if (!f->charmap && f->num_charmaps > 0) FT_Set_Charmap(f, f->charmaps[0]);  // a KS X 1001 bitmap font
    face_ = f;
}

Font::~Font() { FT_Done_Face((FT_Face)face_); }

bool Font::has(uint32_t code) const { return FT_Get_Char_Index((FT_Face)face_, code) != 0; }

int Font::ascender() const { return int(((FT_Face)face_)->size->metrics.ascender >> 6); }

Glyph Font::glyph(uint32_t code) const {
    FT_Face f = (FT_Face)face_;
    Glyph g;
    const FT_UInt index = FT_Get_Char_Index(f, code);
    if (!index || FT_Load_Glyph(f, index, FT_LOAD_RENDER | (bitmap_ ? FT_LOAD_TARGET_MONO : FT_LOAD_TARGET_LIGHT)))
        return g;
    const FT_Bitmap& b = f->glyph->bitmap;
    g.w = int(b.width), g.h = int(b.rows), g.left = f->glyph->bitmap_left, g.top = f->glyph->bitmap_top;
    g.advance = int(f->glyph->advance.x >> 6);
    g.cov.resize((size_t)g.w * g.h);
    for (int y = 0; y < g.h; ++y)
        for (int x = 0; x < g.w; ++x) {
            const uint8_t* row = b.buffer + y * b.pitch;
            g.cov[y * g.w + x] = b.pixel_mode == FT_PIXEL_MODE_MONO ? ((row[x / 8] >> (7 - x % 8)) & 1) * 255 : row[x];
        }
    return g;
}

std::vector<uint32_t> utf8_decode(const std::string& s) {
    std::vector<uint32_t> out;
    for (size_t i = 0; i < s.size();) {
        const uint8_t c = (uint8_t)s[i];
        const int n = c < 0x80 ? 1 : c < 0xE0 ? 2 : c < 0xF0 ? 3 : 4;
        uint32_t v = n == 1 ? c : c & (0x3F >> (n - 1));
        for (int k = 1; k < n && i + k < s.size(); ++k) v = v << 6 | ((uint8_t)s[i + k] & 0x3F);
        out.push_back(v);
        i += n;
    }
    return out;
}

uint32_t ksx1001_code(uint32_t unicode) {
    static iconv_t cd = iconv_open("EUC-KR", "UTF-32LE");
    if (cd == (iconv_t)-1) return 0;
    char in[4] = {(char)unicode, (char)(unicode >> 8), (char)(unicode >> 16), (char)(unicode >> 24)};
    char out[8];
    char *ip = in, *op = out;
    size_t il = 4, ol = sizeof out;
    iconv(cd, nullptr, nullptr, nullptr, nullptr);
    if (iconv(cd, &ip, &il, &op, &ol) == (size_t)-1 || op - out != 2) return 0;
    return ((uint32_t)(uint8_t)out[0] - 0x80) << 8 | ((uint32_t)(uint8_t)out[1] - 0x80);  // EUC-KR bytes are GR
}

}  // namespace art
