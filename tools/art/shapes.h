// Shapes for the sheet's pieces: rounded rectangles with bevelled rims, and pixel-art stamps.
#pragma once
#include "tools/art/canvas.h"

namespace art {

// A region of a canvas with its own origin: a sheet block, painted in block texels.
struct Area {
    Canvas& c;
    int x, y, w, h;
    void set(int lx, int ly, Rgb v) const {
        if (lx >= 0 && ly >= 0 && lx < w && ly < h) c.set(x + lx, y + ly, v);
    }
    Rgb get(int lx, int ly) const { return c.get(x + lx, y + ly); }
    void fill(int x0, int y0, int x1, int y1, Rgb v) const;  // texels x0..x1-1, y0..y1-1
    void clear() const { fill(0, 0, w, h, MAGENTA); }
};

// Rounded rectangle in texel units (edges on texel boundaries); sd < 0 inside.
struct RRect {
    float x0, y0, x1, y1, r;
    float sd(float px, float py) const;
};

// How a plate is painted: a face gradient from bottom to top, a one-texel outline, and a rim
// of `bevel` texels lit from the upper left (light > 0 raised, < 0 sunken).
struct Plate {
    Rgb top, bottom, outline;
    float bevel = 2, light = 0.3f;
    float grain = 0;  // amplitude of a fine texel noise on the face
    uint32_t seed = 1;
};
// Paints the texels of `a` whose centres lie inside `s`; the others are left as they are.
void plate(const Area& a, const RRect& s, const Plate& p);

// Pixel art: `rows` top row first; each character is looked up in `keys` and painted with the
// matching colour of `colors`; characters not in `keys` (such as '.') leave the texel alone.
// (x, y) is the block texel of the art's lower-left corner.
void stamp(const Area& a, int x, int y, const char* const* rows, int n_rows, const char* keys, const Rgb* colors);

}  // namespace art
