// Rounded-rectangle plates with lit rims, and pixel-art stamps.
#include "tools/art/shapes.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace art {

void Area::fill(int x0, int y0, int x1, int y1, Rgb v) const {
    for (int yy = y0; yy < y1; ++yy)
        for (int xx = x0; xx < x1; ++xx) set(xx, yy, v);
}

float RRect::sd(float px, float py) const {
    const float cx = (x0 + x1) / 2, cy = (y0 + y1) / 2;
    const float qx = std::fabs(px - cx) - ((x1 - x0) / 2 - r), qy = std::fabs(py - cy) - ((y1 - y0) / 2 - r);
    const float ox = std::max(qx, 0.0f), oy = std::max(qy, 0.0f);
    return std::sqrt(ox * ox + oy * oy) + std::min(std::max(qx, qy), 0.0f) - r;
}

void plate(const Area& a, const RRect& s, const Plate& p) {
    const float lx = -0.7071f, ly = 0.7071f;  // light from the upper left
    for (int y = 0; y < a.h; ++y)
        for (int x = 0; x < a.w; ++x) {
            const float px = x + 0.5f, py = y + 0.5f, d = -s.sd(px, py);
            if (d <= 0) continue;
            if (d < 1) {
                a.set(x, y, p.outline);
                continue;
            }
            const float t = std::clamp((py - s.y0) / (s.y1 - s.y0), 0.0f, 1.0f);
            Rgb c = mix(p.bottom, p.top, t);
            if (d < 1 + p.bevel) {  // outward normal from the distance field
                const float nx = s.sd(px + 0.5f, py) - s.sd(px - 0.5f, py);
                const float ny = s.sd(px, py + 0.5f) - s.sd(px, py - 0.5f);
                const float n = std::sqrt(nx * nx + ny * ny);
                if (n > 0) c = shade(c, p.light * (nx * lx + ny * ly) / n);
            } else if (p.grain > 0) {
                c = add(c, scale(rgb(1, 1, 1), p.grain * hash_noise(a.x + x, a.y + y, p.seed)));
            }
            a.set(x, y, c);
        }
}

void stamp(const Area& a, int x, int y, const char* const* rows, int n_rows, const char* keys, const Rgb* colors) {
    for (int r = 0; r < n_rows; ++r)
        for (int i = 0; rows[r][i]; ++i) {
            const char* k = strchr(keys, rows[r][i]);
            if (k && rows[r][i] != '.') a.set(x + i, y + n_rows - 1 - r, colors[k - keys]);
        }
}

}  // namespace art
