// Texel storage, blending, 2x reduction and the BMP encoder.
#include "tools/art/canvas.h"

#include <cmath>

namespace art {

static uint8_t to_byte(float v) { return (uint8_t)(v <= 0 ? 0 : v >= 255 ? 255 : std::lround(v)); }

Canvas::Canvas(int width, int height, Rgb fill) : w(width), h(height), px((size_t)width * height * 3) {
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) set(x, y, fill);
}

Rgb Canvas::get(int x, int y) const {
    const uint8_t* p = &px[((size_t)y * w + x) * 3];
    return {float(p[0]), float(p[1]), float(p[2])};
}

void Canvas::set(int x, int y, Rgb c) {
    if (!inside(x, y)) return;
    uint8_t* p = &px[((size_t)y * w + x) * 3];
    p[0] = to_byte(c.r), p[1] = to_byte(c.g), p[2] = to_byte(c.b);
}

void Canvas::blend(int x, int y, Rgb c, float a) {
    if (!inside(x, y) || a <= 0) return;
    set(x, y, mix(get(x, y), c, a > 1 ? 1 : a));
}

bool Canvas::is_magenta(int x, int y) const {
    const uint8_t* p = &px[((size_t)y * w + x) * 3];
    return p[0] == 255 && p[1] == 0 && p[2] == 255;
}

Canvas Canvas::half() const {
    Canvas out(w / 2, h / 2, {});
    for (int y = 0; y < out.h; ++y)
        for (int x = 0; x < out.w; ++x) {
            Rgb s = add(add(get(2 * x, 2 * y), get(2 * x + 1, 2 * y)), add(get(2 * x, 2 * y + 1), get(2 * x + 1, 2 * y + 1)));
            out.set(x, y, scale(s, 0.25f));
        }
    return out;
}

std::string Canvas::bmp() const {
    const uint32_t row = ((uint32_t)w * 3 + 3) / 4 * 4, size = row * (uint32_t)h;
    const uint32_t fields[][2] = {{19778, 2}, {54 + size, 4}, {0, 2}, {0, 2}, {54, 4}, {40, 4}, {(uint32_t)w, 4},
                                  {(uint32_t)h, 4}, {1, 2}, {24, 2}, {0, 4}, {size, 4}, {2835, 4}, {2835, 4},
                                  {0, 4}, {0, 4}};  // (value, bytes): 72 dpi, no palette
    std::string s;
    for (const auto& f : fields)
        for (uint32_t i = 0; i < f[1]; ++i) s.push_back((char)(f[0] >> (8 * i)));
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            const uint8_t* p = &px[((size_t)y * w + x) * 3];
            s += {(char)p[2], (char)p[1], (char)p[0]};
        }
        s.append(row - (uint32_t)w * 3, '\0');
    }
    return s;
}

float hash_noise(int x, int y, uint32_t seed) {
    uint32_t v = (uint32_t)x * 0x8DA6B343u ^ (uint32_t)y * 0xD8163841u ^ seed * 0xCB1AB31Fu;
    v ^= v >> 15, v *= 0x2C1B3C6Du, v ^= v >> 12, v *= 0x297A2D39u, v ^= v >> 15;
    return float(v & 0xFFFF) / 32767.5f - 1.0f;
}

}  // namespace art
