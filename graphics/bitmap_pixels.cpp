// Pixel work on a bitmap's texels in a buffer: packing file rows, the placeholder checkerboard,
// scaling down to the driver's limit and the filters' alpha.
#include "graphics/bitmap_pixels.h"

#include "graphics/textures.h"

static bool is_magenta(const uint8_t* t) { return t[0] == 255 && t[1] == 0 && t[2] == 255; }

float bmp_scale(int32_t max_size, int32_t width, int32_t height) {
    float scale = 1.0f;
    while ((float)max_size < (float)width * scale || (float)max_size < (float)height * scale) scale *= 0.5f;
    return scale;
}

void bmp_checkerboard(uint8_t* buf, int32_t bpt) {
    for (int32_t y = 0; y < 16; ++y)
        for (int32_t x = 0; x < 16; ++x) {
            uint8_t* t = buf + (y * 16 + x) * bpt;
            uint8_t g = (x + y) % 2 == 0 ? 100 : 200;
            t[0] = t[1] = t[2] = g;
            if (bpt == 4) t[3] = 255;
        }
}

// Four-byte texels grow the data, so they are converted from the end backwards.
void bmp_rows_to_texels(uint8_t* buf, int32_t w, int32_t h, int32_t row_len, int32_t bpt) {
    if (bpt == 3) {
        for (int32_t y = 0; y < h; ++y)
            for (int32_t x = 0; x < w; ++x) {
                const uint8_t* s = buf + y * row_len + x * 3;
                uint8_t b = s[0], g = s[1], r = s[2];
                uint8_t* d = buf + (y * w + x) * 3;
                d[0] = r, d[1] = g, d[2] = b;
            }
        return;
    }
    for (int32_t y = h - 1; y >= 0; --y)
        for (int32_t x = w - 1; x >= 0; --x) {
            const uint8_t* s = buf + y * row_len + x * 3;
            uint8_t b = s[0], g = s[1], r = s[2];
            uint8_t* d = buf + (y * w + x) * 4;
            d[0] = r, d[1] = g, d[2] = b, d[3] = 255;
        }
}

// Blocks lie at or after their result, so the reduction works in place.
void bmp_reduce_blocks(uint8_t* buf, int32_t w, int32_t h, int32_t step, int32_t bpt) {
    const int32_t nw = w / step, nh = h / step, need = (step * step + 1) / 2;
    for (int32_t by = 0; by < nh; ++by)
        for (int32_t bx = 0; bx < nw; ++bx) {
            int32_t sum[4] = {0, 0, 0, 0}, n = 0;
            for (int32_t y = by * step; y < (by + 1) * step; ++y)
                for (int32_t x = bx * step; x < (bx + 1) * step; ++x) {
                    const uint8_t* t = buf + (y * w + x) * bpt;
                    if (is_magenta(t)) continue;
                    for (int32_t i = 0; i < bpt; ++i) sum[i] += t[i];
                    ++n;
                }
            uint8_t* d = buf + (by * nw + bx) * bpt;
            if (n < need) {
                d[0] = 255, d[1] = 0, d[2] = 255;
                if (bpt == 4) d[3] = 255;
            } else {
                for (int32_t i = 0; i < bpt; ++i) d[i] = (uint8_t)(sum[i] / n);
            }
        }
}

void bmp_apply_alpha(uint8_t* buf, int32_t filter, int32_t w, int32_t h, int32_t bpt, int32_t buf_row) {
    if (bpt < 4) return;
    for (int32_t y = 0; y < h; ++y)
        for (int32_t x = 0; x < w; ++x) {
            uint8_t* t = buf + (y * buf_row + x) * 4;
            if (filter == BMP_MAGENTA_CLEAR || filter == BMP_MAGENTA_CLEAR_MIP) {
                if (is_magenta(t)) {
                    t[0] = t[1] = t[2] = 128;
                    t[3] = 0;
                } else {
                    t[3] = 255;
                }
            } else if (filter == BMP_GREY_ALPHA || filter == BMP_GREY_ALPHA_MIP) {
                t[3] = (uint8_t)((t[0] + t[1] + t[2]) / 3);
            }
        }
}
