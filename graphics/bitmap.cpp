// The 24-bit BMP reader: a bitmap file into a texture, or laid over the background image.
#include "graphics/bitmap.h"

#include <cstdio>

#include "base/alert.h"
#include "graphics/bitmap_pixels.h"
#include "graphics/bitmap_read.h"
#include "graphics/gl_state.h"
#include "graphics/primitives.h"
#include "graphics/qgl.h"
#include "graphics/textures.h"

static int32_t max_texture_size() {
    GLint max_size = 1024;
    qglGetIntegerv(GL_MAX_TEXTURE_SIZE, &max_size);
    return max_size < 1 ? 1024 : max_size;
}

// The picture of an open file into OGL_pixbuf, scaled to the driver's limit in texture mode
// and with the filter's alpha; *w and *h receive its final size.
static void read_picture(FILE* f, const char* path, bool compose, int32_t where, int32_t filter, int32_t bpt,
                         int32_t* w, int32_t* h) {
    const BmpHeader hd = bmp_read_header(f);
    bmp_check_header(hd, path);
    const float scale = compose ? 1.0f : bmp_scale(max_texture_size(), hd.width, hd.height);
    int32_t step = ogl_round(1.0f / scale);
    if (step < 1) step = 1;
    const float sw = (float)hd.width * scale, sh = (float)hd.height * scale;
    const bool whole = sw == (float)(int32_t)sw && sh == (float)(int32_t)sh;
    if (hd.width > 0 && hd.height > 0) {
        if (!compose && whole) {  // one read, then packed and reduced in place
            bmp_read_all(f, OGL_pixbuf, hd.width, hd.height);
            bmp_rows_to_texels(OGL_pixbuf, hd.width, hd.height, bmp_row_bytes(hd.width), bpt);
            if (scale < 1.0f) bmp_reduce_blocks(OGL_pixbuf, hd.width, hd.height, step, bpt);
        } else {
            const BmpPlacement at{compose ? where / 10000 : 0, compose ? where % 10000 : 0, step, bpt,
                                  compose ? COMPOSE_W : ogl_round(sw), scale, compose};
            bmp_read_rows(f, path, hd.width, hd.height, at, OGL_pixbuf, OGL_PIXBUF_SIZE);
        }
    }
    *w = ogl_round((float)hd.width * scale);
    *h = ogl_round((float)hd.height * scale);
    if (*w < 1 || *w > 1024 || *h < 1 || *h > 1024)
        MACIBM_fatal("OGL_mini_me: Trying to create a texture either less than 1 or greater than 1024 in dimension!",
                     "I cannot do this!",
                     "ZERO-dim textures are invalid for OpenGL, and textures greater than 1024 are invalid for Zephyra!",
                     path);
    bmp_apply_alpha(OGL_pixbuf, filter, *w, *h, bpt, compose ? COMPOSE_W : *w);
}

// OGL_pixbuf's picture as texture `index`: bled, uploaded, then mipmapped or filtered.
static void upload(const char* path, int32_t index, int32_t filter, int32_t w, int32_t h, int32_t bpt) {
    const GLenum format = bpt == 4 ? GL_RGBA : GL_RGB;
    OGL_bleed_alpha(index, filter, w, h, bpt, w);
    OGL_load_tex(path, index, 0, format, w, h, OGL_pixbuf);
    if (filter == BMP_RGB_MIP || filter == BMP_MAGENTA_CLEAR_MIP || filter == BMP_GREY_ALPHA_MIP) {
        OGL_mini_me(path, index, filter, format, w, h, OGL_pixbuf);
    } else {
        GLint nearest = index == TEX_SHEET || index == TEX_FONT_SHEET || index == TEX_SHEET_EXTRA;
        qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, nearest ? GL_NEAREST : GL_LINEAR);
        qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, nearest ? GL_NEAREST : GL_LINEAR);
    }
}

int32_t OGL_texbmp(int32_t mode, int32_t where, int32_t filter, const char* name,
                   int32_t* width_out, int32_t* height_out) {
    const bool compose = mode == BMP_COMPOSE;
    Text path;
    const char* shown = bmp_path(name, path);
    if (!compose) {
        Text line;
        str_join("Loading bitmap ", shown, line);
        str_append(line, ".");
        MACIBM_progress(line);
    }
    if (filter < BMP_GREY_ALPHA_MIP || filter > BMP_RGB) MACIBM_fatal("Bad filter type!", "", "", name);
    const int32_t bpt = compose || filter <= BMP_MAGENTA_CLEAR ? 4 : 3;

    int32_t width = 16, height = 16;
    FILE* f = fopen(path, "rb");
    if (f) {
        read_picture(f, path, compose, where, filter, bpt, &width, &height);
    } else {
        if (compose) MACIBM_fatal("Can't open bitmap!", path, "", "");
        bmp_checkerboard(OGL_pixbuf, bpt);
    }
    if (width_out) *width_out = width;
    if (height_out) *height_out = height;
    if (!compose) upload(path, where, filter, width, height, bpt);
    if (!f) return 0;
    fclose(f);
    return 1;
}
