// Pictures being painted: RGB texels with y up, colour arithmetic and the 24-bit BMP encoder.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace art {

struct Rgb {
    float r = 0, g = 0, b = 0;  // 0..255
};
inline Rgb rgb(float r, float g, float b) { return {r, g, b}; }
inline Rgb mix(Rgb a, Rgb b, float t) { return {a.r + (b.r - a.r) * t, a.g + (b.g - a.g) * t, a.b + (b.b - a.b) * t}; }
inline Rgb scale(Rgb a, float k) { return {a.r * k, a.g * k, a.b * k}; }
inline Rgb add(Rgb a, Rgb b) { return {a.r + b.r, a.g + b.g, a.b + b.b}; }
// Brighter (k > 0) towards white or darker (k < 0) towards black.
inline Rgb shade(Rgb a, float k) { return k >= 0 ? mix(a, rgb(255, 255, 255), k) : mix(a, rgb(0, 0, 0), -k); }

const Rgb MAGENTA = {255, 0, 255};  // transparent wherever a sheet piece has no texel

struct Canvas {
    int w, h;
    std::vector<uint8_t> px;  // R, G, B per texel, row 0 at the bottom
    Canvas(int width, int height, Rgb fill);
    bool inside(int x, int y) const { return x >= 0 && y >= 0 && x < w && y < h; }
    Rgb get(int x, int y) const;
    void set(int x, int y, Rgb c);           // rounded and clamped; outside the canvas: ignored
    void blend(int x, int y, Rgb c, float a);  // c over the texel with coverage a (0..1)
    bool is_magenta(int x, int y) const;
    // Halves both sides by averaging 2 x 2 blocks (pictures drawn at twice their size).
    Canvas half() const;
    std::string bmp() const;  // uncompressed 24-bit BMP, rows bottom first, padded to 4 bytes
};

// Small deterministic noise in -1..1 for texel (x, y) and a seed.
float hash_noise(int x, int y, uint32_t seed);

}  // namespace art
