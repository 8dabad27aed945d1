// The intro pictures: dusk over an airfield seen on final approach, the product's name and a
// line in the interface language. The scene is evaluated per pixel and supersampled.
#include <algorithm>
#include <cmath>

#include "tools/art/art.h"
#include "tools/art/type.h"

namespace art {
namespace {

constexpr int W = 1024, H = 768;
constexpr float HORIZON = 300;          // screen row of the horizon, from the bottom
constexpr float FOCAL = 860;            // pixels
constexpr float EYE = 36;               // metres above the ground
constexpr float THRESHOLD = 200;        // metres from the eye to the runway's threshold
constexpr float LENGTH = 2900, HALF_WIDTH = 22.5f;
constexpr float SUN_X = 742;

const char* const FILES[] = {"intro/english.bmp", "intro/french.bmp",  "intro/german.bmp",
                             "intro/italian.bmp", "intro/spanish.bmp", "intro/korean.bmp"};
const char* const LINES[] = {
    "Pre-flight weather briefing",
    "Briefing météo avant le vol",
    "Wetterbriefing vor dem Flug",
    "Briefing meteo prima del volo",
    "Información meteorológica antes del vuelo",
    "비행 전 기상 브리핑",
};

float smooth(float t) { return t * t * (3 - 2 * t); }
float clamp01(float t) { return std::clamp(t, 0.0f, 1.0f); }

// Value noise on a unit lattice, -1..1, and its sum over octaves.
float noise(float x, float y, uint32_t seed) {
    const int ix = int(std::floor(x)), iy = int(std::floor(y));
    const float fx = smooth(x - ix), fy = smooth(y - iy);
    const float a = hash_noise(ix, iy, seed), b = hash_noise(ix + 1, iy, seed);
    const float c = hash_noise(ix, iy + 1, seed), d = hash_noise(ix + 1, iy + 1, seed);
    return (a + (b - a) * fx) + ((c + (d - c) * fx) - (a + (b - a) * fx)) * fy;
}
float fbm(float x, float y, uint32_t seed, int octaves) {
    float sum = 0, amp = 0.5f;
    for (int i = 0; i < octaves; ++i, x *= 2.03f, y *= 2.03f, amp *= 0.5f) sum += amp * noise(x, y, seed + i);
    return sum;
}

Rgb sky(float x, float y, bool sun_disc) {
    const float t = clamp01((y - HORIZON) / (H - HORIZON));
    struct Stop {
        float t;
        Rgb c;
    } stops[] = {{0.0f, rgb(255, 184, 112)}, {0.12f, rgb(236, 142, 112)}, {0.32f, rgb(150, 104, 138)},
                 {0.6f, rgb(54, 62, 118)},   {1.0f, rgb(12, 20, 54)}};
    Rgb c = stops[0].c;
    for (int i = 1; i < 5; ++i)
        if (t >= stops[i - 1].t) c = mix(stops[i - 1].c, stops[i].c, smooth(clamp01((t - stops[i - 1].t) / (stops[i].t - stops[i - 1].t))));
    // The sun's glow, wide and low, and its disc half set behind the hills.
    const float dx = (x - SUN_X) / 1.6f, dy = y - HORIZON - 30, d = std::sqrt(dx * dx + dy * dy);
    c = add(c, scale(rgb(255, 170, 90), 0.55f * std::exp(-d / 150)));
    if (sun_disc && std::hypot(x - SUN_X, y - HORIZON - 44) < 18) c = mix(c, rgb(255, 240, 208), 0.95f);
    // Thin streaks of cloud, lit from below by the sun.
    const float band = smooth(clamp01((t - 0.1f) / 0.12f)) * smooth(clamp01((0.62f - t) / 0.2f));
    const float dense = clamp01((fbm(x / 260, y / 18, 11, 5) + 0.05f) * 2.6f) * band;
    const Rgb lit = mix(rgb(255, 168, 132), rgb(96, 80, 116), clamp01(t * 1.8f));
    c = mix(c, add(lit, scale(rgb(255, 150, 80), 0.25f * std::exp(-std::fabs(x - SUN_X) / 260))), dense * 0.85f);
    // Stars where the sky is dark.
    const float star = hash_noise(int(x), int(y), 7);
    if (star > 0.9985f && t > 0.62f) c = mix(c, rgb(255, 255, 240), clamp01((t - 0.62f) * 3) * (star - 0.9985f) / 0.0015f);
    return c;
}

// Two ridges along the horizon: far mountains in haze and nearer hills.
float ridge(float x, uint32_t seed, float height) { return height * (0.55f + 0.45f * fbm(x / 170, 0.5f, seed, 5)); }

Rgb ground_colour(float gx, float gz, float fog_z) {
    // Fields in parcels with darker hedges, mown grass along the runway, then the airfield's
    // pavements and markings; everything in the dusk's dim light.
    const Rgb crops[] = {rgb(40, 56, 32), rgb(60, 66, 34), rgb(72, 62, 42), rgb(48, 60, 40), rgb(56, 70, 38)};
    const float px = (gx + 40) / 170, pz = gz / 290;
    const int ix = int(std::floor(px)), iz = int(std::floor(pz));
    Rgb c = crops[int((hash_noise(ix, iz, 41) + 1) * 2.499f)];
    const float edge = std::min(std::min(px - ix, 1 - (px - ix)) * 170, std::min(pz - iz, 1 - (pz - iz)) * 290);
    if (edge < 2.5f) c = rgb(30, 40, 26);
    if (std::fabs(gx) < 120) c = rgb(52, 68, 38);
    c = shade(c, 0.08f * fbm(gx / 14, gz / 20, 23, 3));
    const float w = gz - THRESHOLD, u = gx;
    const bool on_runway = std::fabs(u) < HALF_WIDTH && w > 0 && w < LENGTH;
    const bool taxiway = (std::fabs(u - 170) < 11 && w > -60 && w < LENGTH + 40) ||
                         (u > HALF_WIDTH && u < 170 && (std::fabs(w - 700) < 12 || std::fabs(w - 1650) < 12 || std::fabs(w - 2700) < 12));
    if (taxiway) {
        c = rgb(70, 72, 76);
        if (std::fabs(u - 170) < 0.3f || ((std::fabs(w - 700) < 0.3f || std::fabs(w - 1650) < 0.3f || std::fabs(w - 2700) < 0.3f) && u < 164))
            c = rgb(206, 170, 60);
    }
    if (on_runway) {
        const float wear = std::exp(-u * u / 40) * smooth(clamp01((w - 250) / 150)) * smooth(clamp01((900 - w) / 300));
        c = shade(rgb(60, 62, 67), 0.05f * fbm(u / 3, w / 7, 31, 3) - 0.25f * wear);
        const Rgb paint = rgb(232, 232, 224);
        const float au = std::fabs(u);
        bool mark = au > HALF_WIDTH - 0.9f;                                                  // edge lines
        mark = mark || (w > 6 && w < 36 && au > 1.8f && au < 20.1f && std::fmod(au - 1.8f, 3.3f) < 1.8f);  // keys
        mark = mark || (w > 90 && w < LENGTH - 90 && au < 0.45f && std::fmod(w - 90, 50) < 30);  // centre line
        mark = mark || (w > 300 && w < 345 && au > 5 && au < 10);                             // aiming point
        for (float tz : {150.0f, 450.0f, 600.0f})  // touchdown zone bars
            mark = mark || (w > tz && w < tz + 22 && au > 4 && au < 14 && std::fmod(au - 4, 3.5f) < 1.8f);
        if (mark) c = paint;
    }
    const float fog = 1 - std::exp(-fog_z / 2400);
    return mix(c, rgb(172, 122, 116), fog * 0.85f);
}

// The runway number at the threshold end, read from the approach: a glyph image sampled on
// the ground.
struct Number {
    Glyph digits[2];
    int top = 0;
    Number() {
        Font f(FONT_TITLE, 200);
        digits[0] = f.glyph('2'), digits[1] = f.glyph('7');
        top = std::max(digits[0].top, digits[1].top);
    }
    bool ink(float u, float w) const {  // metres across (0 = centre line) and along from the threshold
        if (w < 46 || w > 64 || std::fabs(u) > 9) return false;
        const float px = (u + 9) / 18 * 2, py = (64 - w) / 18;  // px: 0..2 over both digits
        const int k = px < 1 ? 0 : 1;
        const Glyph& g = digits[k];
        const float gx = (px - k) * g.w * 1.3f - g.w * 0.15f, gy = py * top - (top - g.top);
        return g.ink(int(gx), int(gy));
    }
};

Rgb scene(float x, float y, const Number& number) {
    const float far = HORIZON + ridge(x, 3, 58), near = HORIZON + ridge(x + 900, 5, 24);
    if (y >= far) return sky(x, y, true);
    if (y >= near) return mix(rgb(98, 84, 116), sky(x, y, false), 0.32f);
    if (y >= HORIZON) return mix(rgb(46, 44, 62), rgb(120, 96, 112), 0.25f);
    const float z = FOCAL * EYE / (HORIZON - y), gx = (x - W / 2.0f) * z / FOCAL;
    Rgb c = ground_colour(gx, z, z);
    if (number.ink(gx, z - THRESHOLD)) c = mix(c, rgb(232, 232, 224), 1 - (1 - std::exp(-z / 2600)) * 0.85f);
    return c;
}

// A light on the ground at (gx, gz) metres: a glow that shrinks with distance.
void light(Canvas& c, float gx, float gz, Rgb colour, float power) {
    if (gz <= 1) return;
    const float sx = W / 2.0f + gx * FOCAL / gz, sy = HORIZON - EYE * FOCAL / gz;
    const float radius = std::clamp(900 / gz, 0.7f, 4.0f), fade = std::exp(-gz / 5000);
    const int r = int(radius * 3) + 1;
    for (int y = int(sy) - r; y <= int(sy) + r; ++y)
        for (int x = int(sx) - r; x <= int(sx) + r; ++x) {
            if (!c.inside(x, y)) continue;
            const float d2 = ((x + 0.5f - sx) * (x + 0.5f - sx) + (y + 0.5f - sy) * (y + 0.5f - sy)) / (radius * radius);
            const float a = power * fade * (std::exp(-d2 * 2.5f) + 0.35f * std::exp(-d2 * 0.4f));
            c.set(x, y, add(c.get(x, y), scale(colour, a)));
        }
}

void airfield_lights(Canvas& c) {
    for (float w = 0; w <= LENGTH; w += 60)
        for (float s : {-1.0f, 1.0f}) light(c, s * (HALF_WIDTH + 1.5f), THRESHOLD + w, rgb(255, 226, 180), 0.9f);
    for (float u = -HALF_WIDTH; u <= HALF_WIDTH; u += 3) {
        light(c, u, THRESHOLD - 2, rgb(80, 255, 120), 0.9f);
        light(c, u, THRESHOLD + LENGTH + 2, rgb(255, 60, 50), 0.8f);
    }
    for (float w = 30; w < THRESHOLD + 400; w += 30) light(c, 0, THRESHOLD - w, rgb(255, 244, 220), 1.1f);
    for (float u = -15; u <= 15; u += 1.5f) light(c, u, THRESHOLD - 90, rgb(255, 244, 220), 0.8f);
    for (float w = 0; w <= LENGTH + 40; w += 60) light(c, 170 + 12.5f, THRESHOLD + w, rgb(70, 130, 255), 0.7f);
}

// Text centred on x = W / 2 with its baseline at `base`, over a soft shadow.
void text(Canvas& c, const Font& f, const std::string& s, float base, Rgb colour, float spacing) {
    std::vector<Glyph> glyphs;
    float width = 0;
    for (uint32_t cp : utf8_decode(s)) {
        glyphs.push_back(f.glyph(cp));
        width += glyphs.back().advance + spacing;
    }
    width -= spacing;
    for (int pass = 0; pass < 2; ++pass) {
        float pen = std::round(W / 2.0f - width / 2);
        const int off = pass == 0 ? 3 : 0;
        for (const Glyph& g : glyphs) {
            for (int y = 0; y < g.h; ++y)
                for (int x = 0; x < g.w; ++x) {
                    const float a = g.cov[y * g.w + x] / 255.0f;
                    const int px = int(pen) + g.left + x + off, py = int(base) + g.top - 1 - y - off;
                    if (pass == 0)
                        for (int k = -1; k <= 1; ++k) c.blend(px + k, py, rgb(10, 12, 30), a * 0.22f);
                    else
                        c.blend(px, py, colour, a);
                }
            pen += g.advance + spacing;
        }
    }
}

const Canvas& backdrop() {
    static const Canvas picture = [] {
        const Number number;
        Canvas c(W, H, {});
        constexpr int S = 3;  // samples per side
        for (int y = 0; y < H; ++y)
            for (int x = 0; x < W; ++x) {
                Rgb sum;
                for (int j = 0; j < S; ++j)
                    for (int i = 0; i < S; ++i) sum = add(sum, scene(x + (i + 0.5f) / S, y + (j + 0.5f) / S, number));
                c.set(x, y, scale(sum, 1.0f / (S * S)));
            }
        airfield_lights(c);
        return c;
    }();
    return picture;
}

}  // namespace

const char* intro_file(int language) { return FILES[language]; }

Canvas paint_intro(int language) {
    Canvas c = backdrop();
    const Font title(FONT_TITLE, 128);
    text(c, title, "Vocalog", 560, rgb(250, 250, 255), 2);
    const Font line(language == 5 ? FONT_HANGUL : FONT_LINE, 34);
    text(c, line, LINES[language], 505, rgb(236, 240, 250), 1);
    for (int y = 0; y < H; ++y)  // magenta is transparent when the picture is composed: keep clear of it
        for (int x = 0; x < W; ++x)
            if (c.is_magenta(x, y)) c.set(x, y, rgb(254, 0, 255));
    return c;
}

}  // namespace art
