// Texture binding through the per-unit cache, uploads with their checks, mipmaps and alpha bleeding.
#include "graphics/textures.h"

#include <cstring>

#include "graphics/gl_state.h"
#include "graphics/qgl.h"
#include "base/alert.h"
#include "util/random.h"

#ifndef GL_TEXTURE0_ARB
#define GL_TEXTURE0_ARB 0x84C0
#endif
#ifndef GL_CLAMP_TO_EDGE
#define GL_CLAMP_TO_EDGE 0x812F
#endif

alignas(16) uint8_t OGL_pixbuf[OGL_PIXBUF_SIZE];
int32_t OGL_tex_bytes[OGL_TEX_COUNT];
int32_t clamp_ok = 0;

static int32_t bound_cache[4] = {-1, -1, -1, -1};  // index last bound on units 1..4

static const char* const DIM_LINE2 = "I cannot do this!";
static const char* const DIM_LINE3 =
    "ZERO-dim textures are invalid for OpenGL, and textures greater than 1024 are invalid for Zephyra!";

void tex_forget_binds() {
    for (auto& b : bound_cache) b = -1;
}

void tex_reset() {
    memset(OGL_tex_bytes, 0, sizeof OGL_tex_bytes);
    tex_forget_binds();
    clamp_ok = 0;
}

int32_t ogl_texel_bytes(GLenum format) {
    return format == GL_ALPHA ? 1 : format == GL_RGB ? 3 : 4;
}

void OGL_bind_tex(int32_t index, int32_t unit) {
    if (unit < 1 || unit > 4) MACIBM_fatal("Too many texture units requested!", "", "", "");
    if (index < 0 || index >= OGL_TEX_COUNT) MACIBM_fatal("Too many textures requested!", "", "", "");
    if (OGL_tex_bytes[index] == 0) MACIBM_fatal("Trying to bind an un-inited tex!", "", "", "");
    if (bound_cache[unit - 1] == index) return;
    bound_cache[unit - 1] = index;
    if (gl_tex_units == 1 || !qglActiveTextureARB) {
        qglBindTexture(GL_TEXTURE_2D, (GLuint)index);
        return;
    }
    // Unit 1 is the active unit already; any other is selected for the bind and left again.
    if (unit > 1) qglActiveTextureARB(GL_TEXTURE0_ARB + (GLenum)(unit - 1));
    qglBindTexture(GL_TEXTURE_2D, (GLuint)index);
    qglActiveTextureARB(GL_TEXTURE0_ARB);
}

// Halves an integer and a floating copy together; a power of two ends with both equal.
static bool power_of_two(int32_t size) {
    int32_t i = size;
    double f = size;
    while (i > 1) {
        i /= 2;
        f /= 2.0;
    }
    double d = f - i;
    return d <= 0.0001 && d >= -0.0001;
}

// The dimension and index checks shared by the upload and the mipmap builder.
static void check_dims_and_index(const char* who_dim, const char* who_low, const char* who_high,
                                 const char* name, int32_t index, int32_t width, int32_t height) {
    if (width < 1 || width > 1024) MACIBM_fatal(who_dim, DIM_LINE2, DIM_LINE3, name);
    if (height < 1 || height > 1024) MACIBM_fatal(who_dim, DIM_LINE2, DIM_LINE3, name);
    if (index < 0) MACIBM_fatal(who_low, name, "", "");
    if (index >= OGL_TEX_COUNT) MACIBM_fatal(who_high, name, "", "");
}

// Indices whose textures repeat; every other index clamps.
static bool repeats(int32_t i) {
    return (i >= 0 && i <= 48) || (i >= 54 && i <= 197) || (i >= 199 && i <= 206) ||
           (i >= 219 && i <= 229) || i == 235 || i == 309 || (i >= 350 && i <= 999);
}

void OGL_load_tex(const char* name, int32_t index, int32_t level, GLenum format, int32_t width,
                  int32_t height, const uint8_t* pixels) {
    if (!power_of_two(width) || !power_of_two(height))
        MACIBM_fatal("OGL_load_tex: Trying to read a texture that is not a power of 2!", name, "", "");
    check_dims_and_index("OGL_load_tex: Trying to create a texture either less than 1 or greater than 1024 in dimension!",
                         "OGL_load_tex: Trying to bind too low  a texture index!",
                         "OGL_load_tex: Trying to bind too high a texture index!", name, index, width, height);
    int32_t bytes = width * height * ogl_texel_bytes(format);
    if (level == 0)
        OGL_tex_bytes[index] = bytes;
    else
        OGL_tex_bytes[index] += bytes;
    OGL_bind_tex(index, 1);
    qglTexImage2D(GL_TEXTURE_2D, level, (GLint)format, width, height, 0, format, GL_UNSIGNED_BYTE, pixels);
    GLint wrap = repeats(index) ? GL_REPEAT : clamp_ok ? GL_CLAMP_TO_EDGE : GL_CLAMP;
    qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, wrap);
    qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, wrap);
}

static bool averages(int32_t index, int32_t bpt) {
    return bpt < 4 || index == 140 || (index >= 186 && index <= 191) || index < 50 || index > 3999;
}

void OGL_mini_me(const char* name, int32_t index, int32_t filter, GLenum format, int32_t width,
                 int32_t height, uint8_t* pixels) {
    check_dims_and_index("OGL_mini_me: Trying to create a texture either less than 1 or greater than 1024 in dimension!",
                         "OGL_mini_me: Trying to bind too low  a texture index!",
                         "OGL_mini_me: Trying to bind too high a texture index!", name, index, width, height);
    const int32_t bpt = ogl_texel_bytes(format);
    const bool avg = averages(index, bpt);
    int32_t level = 0;
    while (width > 1 || height > 1) {
        ++level;
        int32_t nw = width / 2, nh = height / 2;
        if (nw < 1) nw = 1;
        if (nh < 1) nh = 1;
        for (int32_t r = 0; r < nh; ++r) {
            // A single row or column is repeated in place of the missing second one.
            int32_t r0 = 2 * r, r1 = 2 * r + 1 < height ? 2 * r + 1 : height - 1;
            for (int32_t c = 0; c < nw; ++c) {
                int32_t c0 = 2 * c, c1 = 2 * c + 1 < width ? 2 * c + 1 : width - 1;
                const int32_t src[4] = {(r0 * width + c0) * bpt, (r0 * width + c1) * bpt,
                                        (r1 * width + c0) * bpt, (r1 * width + c1) * bpt};
                uint8_t out[4];
                if (avg) {
                    for (int32_t b = 0; b < bpt; ++b) {
                        int32_t sum = pixels[src[0] + b] + pixels[src[1] + b] + pixels[src[2] + b] + pixels[src[3] + b];
                        out[b] = (uint8_t)ogl_round((float)sum * 0.25f);
                    }
                } else {
                    int32_t k = (rand_next() * 4) / 32768;
                    memcpy(out, pixels + src[k], (size_t)bpt);
                }
                memcpy(pixels + (r * nw + c) * bpt, out, (size_t)bpt);
            }
        }
        width = nw;
        height = nh;
        OGL_bleed_alpha(index, filter, width, height, bpt, width);
        OGL_load_tex(name, index, level, format, width, height, pixels);
        qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
        qglTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    }
}

void OGL_bleed_alpha(int32_t index, int32_t filter, int32_t width, int32_t height,
                     int32_t bytes_per_texel, int32_t row_length) {
    if (filter < BMP_GREY_ALPHA_MIP || filter > BMP_MAGENTA_CLEAR) return;  // the RGBA filters only
    if (index == 126 || index == TEX_GLYPHS || (index >= 251 && index <= 299)) return;
    if (bytes_per_texel < 4) return;  // no alpha to look at
    const int32_t bpt = bytes_per_texel;
    for (int32_t y = 0; y < height; ++y)
        for (int32_t x = 0; x < width; ++x) {
            uint8_t* t = OGL_pixbuf + (y * row_length + x) * bpt;
            if (t[3] != 0) continue;
            int32_t sum[3] = {0, 0, 0}, n = 0;
            for (int32_t ny = y - 1; ny <= y + 1; ++ny)
                for (int32_t nx = x - 1; nx <= x + 1; ++nx) {
                    if (ny < 0 || ny >= height || nx < 0 || nx >= width) continue;
                    const uint8_t* s = OGL_pixbuf + (ny * row_length + nx) * bpt;
                    if (s[3] == 0) continue;
                    for (int i = 0; i < 3; ++i) sum[i] += s[i];
                    ++n;
                }
            if (n == 0) continue;
            for (int i = 0; i < 3; ++i) t[i] = (uint8_t)ogl_round((float)sum[i] / (float)n);
        }
}
