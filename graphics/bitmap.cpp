// The 24-bit BMP reader: header checks, scaling to the driver's limit, alpha filters, upload.
#include "graphics/bitmap.h"

#include <cstdio>
#include <cstring>

#include "graphics/gl_state.h"
#include "graphics/qgl.h"
#include "graphics/textures.h"
#include "base/alert.h"
#include "util/folders.h"
#include "util/paths.h"
#include "util/text.h"

namespace {

bool is_magenta(const uint8_t* t) { return t[0] == 255 && t[1] == 0 && t[2] == 255; }

// Little-endian header fields; a short read marks the header as failed.
struct HeaderReader {
    FILE* f;
    bool failed = false;
    int32_t read(int bytes) {
        uint8_t b[4] = {0, 0, 0, 0};
        if (fread(b, 1, (size_t)bytes, f) != (size_t)bytes) failed = true;
        uint32_t v = b[0] | (uint32_t)b[1] << 8 | (uint32_t)b[2] << 16 | (uint32_t)b[3] << 24;
        return (int32_t)v;
    }
};

struct BmpHeader {
    int32_t magic, width, height, bits, compression;
    bool failed;
};

BmpHeader read_header(FILE* f) {
    HeaderReader r{f};
    BmpHeader h{};
    h.magic = r.read(2);
    r.read(4);  // file size
    r.read(2);  // reserved
    r.read(2);
    r.read(4);  // pixel data offset: the pixels always follow the 54 header bytes
    r.read(4);  // info header size
    h.width = r.read(4);
    h.height = r.read(4);
    r.read(2);  // planes
    h.bits = r.read(2);
    h.compression = r.read(4);
    for (int i = 0; i < 5; ++i) r.read(4);  // image size, resolutions, colour counts
    h.failed = r.failed;
    return h;
}

void check_header(const BmpHeader& h, const char* path) {
    if (h.magic != 19778) MACIBM_fatal("Trying to read a texture bitmap that is not a bitmap", "", "", path);
    if (h.width > 1024) MACIBM_fatal("Bitmap too wide! (max is 1024)", "", "", path);
    if (h.height > 1024) MACIBM_fatal("Bitmap too tall! (max is 1024)", "", "", path);
    if (h.bits != 24) MACIBM_fatal("Wrong bitmap color depth for texture!", "We need 24-bit color.", "", path);
    if (h.compression != 0) MACIBM_fatal("Bitmap is compressed!", "", "", path);
    if (h.failed) MACIBM_fatal("File-scanning error!", "grf_inf.fail", "file:", path);
    if (h.width > 1024 || h.height > 1024) MACIBM_fatal("Too big a bitmap to read!", "", "", path);
}

// The texel of a missing bitmap: a 16 x 16 grey checkerboard.
void checkerboard(int32_t bpt) {
    for (int32_t y = 0; y < 16; ++y)
        for (int32_t x = 0; x < 16; ++x) {
            uint8_t* t = OGL_pixbuf + (y * 16 + x) * bpt;
            uint8_t g = (x + y) % 2 == 0 ? 100 : 200;
            t[0] = t[1] = t[2] = g;
            if (bpt == 4) t[3] = 255;
        }
}

// File rows (blue, green, red, padded to 4 bytes) into packed texels, in place. Four-byte
// texels grow the data, so they are converted from the end backwards.
void convert_in_place(int32_t w, int32_t h, int32_t row_len, int32_t bpt) {
    if (bpt == 3) {
        for (int32_t y = 0; y < h; ++y)
            for (int32_t x = 0; x < w; ++x) {
                const uint8_t* s = OGL_pixbuf + y * row_len + x * 3;
                uint8_t b = s[0], g = s[1], r = s[2];
                uint8_t* d = OGL_pixbuf + (y * w + x) * 3;
                d[0] = r, d[1] = g, d[2] = b;
            }
        return;
    }
    for (int32_t y = h - 1; y >= 0; --y)
        for (int32_t x = w - 1; x >= 0; --x) {
            const uint8_t* s = OGL_pixbuf + y * row_len + x * 3;
            uint8_t b = s[0], g = s[1], r = s[2];
            uint8_t* d = OGL_pixbuf + (y * w + x) * 4;
            d[0] = r, d[1] = g, d[2] = b, d[3] = 255;
        }
}

// Each step x step block becomes one texel: the average of its texels that are not magenta,
// or magenta when fewer than half of them are. Blocks lie at or after their result, so the
// reduction works in place.
void reduce_blocks(int32_t w, int32_t h, int32_t step, int32_t bpt) {
    const int32_t nw = w / step, nh = h / step, need = (step * step + 1) / 2;
    for (int32_t by = 0; by < nh; ++by)
        for (int32_t bx = 0; bx < nw; ++bx) {
            int32_t sum[4] = {0, 0, 0, 0}, n = 0;
            for (int32_t y = by * step; y < (by + 1) * step; ++y)
                for (int32_t x = bx * step; x < (bx + 1) * step; ++x) {
                    const uint8_t* t = OGL_pixbuf + (y * w + x) * bpt;
                    if (is_magenta(t)) continue;
                    for (int32_t i = 0; i < bpt; ++i) sum[i] += t[i];
                    ++n;
                }
            uint8_t* d = OGL_pixbuf + (by * nw + bx) * bpt;
            if (n < need) {
                d[0] = 255, d[1] = 0, d[2] = 255;
                if (bpt == 4) d[3] = 255;
            } else {
                for (int32_t i = 0; i < bpt; ++i) d[i] = (uint8_t)(sum[i] / n);
            }
        }
}

// Row group by row group: of every `step` file rows the last is kept, and of it every
// step-th pixel, placed at (x + c * scale, y + r * scale). Compose mode skips magenta pixels.
void read_rows(FILE* f, const char* path, bool compose, int32_t px, int32_t py, int32_t w, int32_t h,
               int32_t row_len, float scale, int32_t step, int32_t bpt, int32_t buf_row) {
    static uint8_t row[1024 * 3 + 4];
    for (int32_t r = 0; r < h; r += step) {
        int32_t rows = step < h - r ? step : h - r;
        for (int32_t k = 0; k < rows; ++k)
            if (fread(row, 1, (size_t)row_len, f) != (size_t)row_len) memset(row, 0, sizeof row);
        int32_t by = ogl_round((float)py + (float)r * scale);
        for (int32_t c = 0; c < w; c += step) {
            const uint8_t* s = row + c * 3;
            if (compose && s[0] == 255 && s[1] == 0 && s[2] == 255) continue;
            int32_t bx = ogl_round((float)px + (float)c * scale);
            int64_t off = ((int64_t)by * buf_row + bx) * bpt;
            if (off < 0 || off + bpt > OGL_PIXBUF_SIZE)
                MACIBM_fatal("OGL_texbmp data out of bounds!", path,
                      "This may be a custom cockpit with an instrument too far off the edge... fix the panel in Hullwright!",
                      "");
            uint8_t* d = OGL_pixbuf + off;
            d[0] = s[2], d[1] = s[1], d[2] = s[0];
            if (bpt == 4) d[3] = 255;
        }
    }
}

void apply_alpha(int32_t filter, int32_t w, int32_t h, int32_t bpt, int32_t buf_row) {
    if (bpt < 4) return;
    for (int32_t y = 0; y < h; ++y)
        for (int32_t x = 0; x < w; ++x) {
            uint8_t* t = OGL_pixbuf + (y * buf_row + x) * 4;
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

bool ends_with_bmp(const char* p) {
    size_t n = strlen(p);
    return n >= 4 && str_same_nocase(p + n - 4, ".bmp") == 0;
}

}  // namespace

int32_t OGL_texbmp(int32_t mode, int32_t where, int32_t filter, const char* name,
                   int32_t* width_out, int32_t* height_out) {
    const bool compose = mode == BMP_COMPOSE;
    const char* app = folders.path[FOLDER_PROGRAM];
    const size_t app_len = strlen(app);
    const bool has_app = app_len > 0 && strncmp(name, app, app_len) == 0;

    char path[STR_SIZE];
    if (has_app)
        str_copy(name, path);
    else
        str_join(folders.path[FOLDER_BITMAPS], name, path);
    path_to_platform(path);
    if (!ends_with_bmp(path)) str_append(path, ".BMP");
    path_find_case_blind(path);

    if (!compose) {
        char line[STR_SIZE];
        str_join("Loading bitmap ", has_app ? name + app_len : name, line);
        str_append(line, ".");
        MACIBM_progress(line);
    }
    if (filter < -109 || filter > -104) MACIBM_fatal("Bad filter type!", "", "", name);

    const int32_t px = compose ? where / 10000 : 0;
    const int32_t py = compose ? where % 10000 : 0;
    const bool rgba = compose || filter <= BMP_MAGENTA_CLEAR;
    const int32_t bpt = rgba ? 4 : 3;
    const GLenum format = rgba ? GL_RGBA : GL_RGB;
    const int32_t index = where;

    int32_t width = 16, height = 16;
    FILE* f = fopen(path, "rb");
    if (!f) {
        if (compose) MACIBM_fatal("Can't open bitmap!", path, "", "");
        checkerboard(bpt);
    } else {
        BmpHeader h = read_header(f);
        check_header(h, path);
        width = h.width;
        height = h.height;
        const int32_t row_len = (width * 3 + 3) / 4 * 4;

        float scale = 1.0f;
        if (!compose) {
            GLint max_size = 1024;
            qglGetIntegerv(GL_MAX_TEXTURE_SIZE, &max_size);
            if (max_size < 1) max_size = 1024;
            while ((float)max_size < (float)width * scale || (float)max_size < (float)height * scale) scale *= 0.5f;
        }
        int32_t step = ogl_round(1.0f / scale);
        if (step < 1) step = 1;

        const float sw = (float)width * scale, sh = (float)height * scale;
        const bool whole = sw == (float)(int32_t)sw && sh == (float)(int32_t)sh;
        if (width > 0 && height > 0) {
            if (!compose && whole) {
                size_t total = (size_t)row_len * (size_t)height;
                size_t got = fread(OGL_pixbuf, 1, total, f);
                if (got < total) memset(OGL_pixbuf + got, 0, total - got);
                convert_in_place(width, height, row_len, bpt);
                if (scale < 1.0f) reduce_blocks(width, height, step, bpt);
            } else {
                int32_t buf_row = compose ? 1024 : ogl_round(sw);
                read_rows(f, path, compose, px, py, width, height, row_len, scale, step, bpt, buf_row);
            }
        }
        width = ogl_round((float)width * scale);
        height = ogl_round((float)height * scale);
        if (width < 1 || width > 1024 || height < 1 || height > 1024)
            MACIBM_fatal("OGL_mini_me: Trying to create a texture either less than 1 or greater than 1024 in dimension!",
                  "I cannot do this!",
                  "ZERO-dim textures are invalid for OpenGL, and textures greater than 1024 are invalid for Zephyra!",
                  path);
        apply_alpha(filter, width, height, bpt, compose ? 1024 : width);
    }
    if (width_out) *width_out = width;
    if (height_out) *height_out = height;

    if (!compose) {
        OGL_bleed_alpha(index, filter, width, height, bpt, width);
        OGL_load_tex(path, index, 0, format, width, height, OGL_pixbuf);
        if (filter == BMP_RGB_MIP || filter == BMP_MAGENTA_CLEAR_MIP || filter == BMP_GREY_ALPHA_MIP) {
            OGL_mini_me(path, index, filter, format, width, height, OGL_pixbuf);
        } else {
            GLint nearest = index == 300 || index == 302 || index == 303;
            qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, nearest ? GL_NEAREST : GL_LINEAR);
            qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, nearest ? GL_NEAREST : GL_LINEAR);
        }
    }
    const int32_t opened = f ? 1 : 0;
    if (f) fclose(f);
    return opened;
}
