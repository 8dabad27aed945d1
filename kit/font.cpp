// Bitmap-font text drawing: glyph cells, the wrapping string drawer and the number drawer.
#include "kit/font.h"

#include <array>
#include <cfloat>
#include <cmath>
#include <cstdint>

#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/qgl.h"
#include "graphics/textures.h"

namespace {

// Cell of every byte in each character layout, built from the layouts' cell strings; a byte
// not in the string takes cell 0.
using CellMap = std::array<uint8_t, 256>;
constexpr CellMap cell_map(const char* cells) {
    CellMap m{};
    for (int32_t i = 0; cells && cells[i]; ++i)
        if (m[(uint8_t)cells[i]] == 0) m[(uint8_t)cells[i]] = (uint8_t)i;
    return m;
}
constexpr CellMap CELL_MAPS[LAYOUT_COUNT] = {
    cell_map(FACE_LAYOUT_CELLS[LAYOUT_TEXT]),     cell_map(FACE_LAYOUT_CELLS[LAYOUT_CLOCK]),
    cell_map(FACE_LAYOUT_CELLS[LAYOUT_TEMPERATURE]), cell_map(FACE_LAYOUT_CELLS[LAYOUT_DIGITS]),
    cell_map(nullptr),
};

constexpr float SHEET_F = (float)SHEET_TEXELS;
constexpr int32_t TEXT_FIRST = 33, TEXT_LAST = 124;  // text faces show codes 33..124 only
constexpr int32_t PAIR_BASE = 127;                   // glyph number = (b0 - 1) * 127 + (b1 - 1)
constexpr float BASELINE_DROP = 2.0f;                // a line's glyphs start 2 units below y
constexpr float POINT_DROP = 1.0f;                   // the number drawer's point sits 1 lower ...
constexpr float POINT_STEP = 1.5f;                   // ... and 1.5 advances right of the pen
constexpr float COMMA_SHIFT = 5.0f;                  // a separator sits 5 units right of the pen
constexpr int32_t DIGIT_FACE_COMMA = FACE_DIGIT_BOX;  // the only face with thousands separators

bool is_break(char c) { return c == 0 || c == ' ' || c == '-' || c == '/' || c == ':'; }

// Start of a text: panel origin added, rounded, the state switch, colour and the face's texture.
// Returns the face or nullptr (no texture: nothing to draw).
const FaceInfo* begin_text(int32_t color, float x, float y, int32_t face, float* x0, float* y0) {
    *x0 = (float)ogl_round(x + panel_x);
    *y0 = (float)ogl_round(y + panel_y) - BASELINE_DROP;
    OGL_set_state(OGL_FOG_OFF, 1, OGL_LIGHT_OFF, OGL_ALPHA_ON, OGL_BLEND_OFF, OGL_DEPTH_OFF, OGL_DEPTHW_OFF);
    OGL_set_color(color, 1.0f);  // opaque: glColor3fv, or compose_rgb only
    const FaceInfo* f = face_info(face);
    if (f) OGL_bind_tex(f->texture, 1);
    return f;
}

}  // namespace

int32_t OGL_face_advance(int32_t face) {
    const FaceInfo* f = face_info(face);
    return f ? f->advance : 0;
}

int32_t OGL_glyph_cell(int32_t code, int32_t face) {
    const FaceInfo* f = face_info(face);
    if (!f) return 0;
    if (f->layout == LAYOUT_TWO_BYTE) return code < 0 || code >= FACE_GLYPHS ? 0 : code;
    if (f->layout == LAYOUT_TEXT && (code < TEXT_FIRST || code > TEXT_LAST)) return 0;
    return code < 0 || code > 255 ? 0 : CELL_MAPS[f->layout][code];
}

void OGL_draw_glyph(float x, float y, int32_t code, int32_t face) {
    const FaceInfo* f = face_info(face);
    if (!f) return;
    const int32_t cell = OGL_glyph_cell(code, face);
    const float u = (float)(cell % f->columns * f->w) + f->u, v = (float)(cell / f->columns * f->h) + f->v;
    const float s0 = u / SHEET_F, t0 = v / SHEET_F;
    const float s1 = (u + (float)f->w) / SHEET_F, t1 = (v + (float)f->h) / SHEET_F;
    const float r = x + (float)(f->w + f->extra), top = y + (float)f->h;
    qglTexCoord2f(s0, t0);
    qglVertex2f(x, y);
    qglTexCoord2f(s0, t1);
    qglVertex2f(x, top);
    qglTexCoord2f(s1, t1);
    qglVertex2f(r, top);
    qglTexCoord2f(s1, t0);
    qglVertex2f(r, y);
}

// Lines break only after a blank, -, / or : once the next word would end past x0 + width, and
// at line feeds; the break character stays on the line it ends, and a longer word runs past.
// The two-byte face takes its glyph number from each byte pair.
void OGL_draw_string(int32_t color, float x, float y, const char* text, float width, int32_t face) {
    float x0, y0;
    const FaceInfo* f = begin_text(color, x, y, face, &x0, &y0);
    if (!f || !text) return;
    const float adv = (float)f->advance;
    const bool pairs = f->layout == LAYOUT_TWO_BYTE, wrapping = width < FONT_NO_WRAP;
    const int32_t step = pairs ? 2 : 1;
    float px = x0, py = y0;
    qglBegin(GL_QUADS);
    for (int32_t i = 0; text[i];) {
        if (text[i] != '\n') {
            int32_t code = (signed char)text[i];
            if (pairs) {
                if (!text[i + 1]) break;  // half a pair: never read past the end
                code = (code - 1) * PAIR_BASE + ((signed char)text[i + 1] - 1);
            }
            OGL_draw_glyph(px, py, code, face);
            px += adv;
        }
        i += step;
        if (!wrapping) continue;
        float word_end = px;
        for (int32_t k = i; !is_break(text[k]); ++k) word_end += adv;
        if (is_break(text[i - 1]) && x0 + width < word_end) px = x0, py -= FONT_LINE_STEP;
        if (text[i] == '\n') px = x0, py -= FONT_LINE_STEP;
    }
    qglEnd();
}

// Exactly `digits` places, zero-padded, the point after the units place of the whole part; a
// value needing more places shows in five: three digits, x and the power of ten (1.23x5).
void OGL_draw_number(int32_t color, float x, float y, float value, int32_t digits, int32_t decimals,
                     int32_t show_sign, int32_t face) {
    float x0, y0;
    const FaceInfo* f = begin_text(color, x, y, face, &x0, &y0);
    if (!f) return;
    const float a = (float)f->advance;
    const bool negative = value < 0.0f;
    float v = std::fabs(value), scale = 1.0f;
    for (int32_t d = 0; d < decimals && d < FONT_NUMBER_PLACES; ++d) scale *= 10.0f;
    const float s = v * scale;
    static const float MORE_PLACES[] = {9.0f, 99.0f, 999.0f, 9999.0f, 99999.0f, 999999.0f, 9999999.0f, 1e8f, 1e9f};
    int32_t needed = 1;
    for (float limit : MORE_PLACES) needed += s > limit ? 1 : 0;

    qglBegin(GL_QUADS);
    if (show_sign) OGL_draw_glyph(x0 - a + 1.0f, y0, negative && (double)s > 0.1 ? '-' : ' ', face);
    float p = x0 - a;
    auto place = [&](int32_t code) { p += a, OGL_draw_glyph(p, y0, code, face); };
    if (digits < needed) {
        int32_t power = 2;
        if (!(v <= FLT_MAX)) v = FLT_MAX;  // infinity and not-a-number show as the largest float
        for (; v >= 999.0f; v /= 10.0f) ++power;
        const int32_t m = ogl_round(v);
        OGL_draw_glyph(p + POINT_STEP * a, y0 - POINT_DROP, '.', face);
        place('0' + m / 100 % 10);
        place('0' + m / 10 % 10);
        place('0' + m % 10);
        place('x');
        place(power >= 1 && power <= 9 ? '0' + power : '0');
    } else {
        // Each place shows its own digit of the rounded value, however large (0 for not-a-number).
        const double r = (double)s + 0.5;
        auto digit = [&](double p10) {
            const double d = std::fmod(std::floor(r / p10), 10.0);
            return d >= 0.0 && d < 10.0 ? (int32_t)d : 0;
        };
        double p10 = 1e10;
        for (int32_t k = FONT_NUMBER_PLACES - 1; k >= 0; --k, p10 /= 10.0) {
            if (decimals == k && k >= 1) OGL_draw_glyph(p + POINT_STEP * a, y0 - POINT_DROP, '.', face);
            if (digits > k) place('0' + digit(p10));
            if (face == DIGIT_FACE_COMMA && k % 3 == 0 && k > 0 && digits - decimals > k)
                OGL_draw_glyph(p + COMMA_SHIFT - (float)decimals * a, y0, ',', face);
        }
    }
    qglEnd();
}
