// Texture indices, the per-unit bind cache, uploads with their checks, mipmaps and alpha bleeding.
#pragma once
#include <GL/gl.h>

#include <cstdint>

constexpr int32_t OGL_TEX_COUNT = 4894;  // indices 0..4893 are the GL texture names themselves

// Texture indices the program loads or draws with.
enum : int32_t {
    TEX_SHEET = 300,           // the interface sheet "general_interface", addressed as 512 x 512 texels
    TEX_GLYPHS = 301,          // the two-byte glyph sheet of the Korean menus
    TEX_FONT_SHEET = 302,      // the suite's font sheet
    TEX_SHEET_EXTRA = 303,
    TEX_DIGITS = 304,          // the suite's digits sheet (faces 117, 118); not loaded here     // the suite's further sheet; the three sheets are drawn texel for texel
    TEX_BACKGROUND = 311,      // the twelve 256 x 256 background tiles, 311 + 4 row + column,
    TEX_BACKGROUND_LAST = 322, // row 0 at the bottom
};

// Filter types of a bitmap: texel format, alpha treatment and mipmaps.
enum : int32_t {
    BMP_RGB = -104,             // RGB, no mipmaps
    BMP_RGB_MIP = -105,         // RGB, mipmaps
    BMP_MAGENTA_CLEAR = -106,   // RGBA, magenta transparent
    BMP_GREY_ALPHA = -107,      // RGBA, alpha = (R + G + B) / 3
    BMP_MAGENTA_CLEAR_MIP = -108,
    BMP_GREY_ALPHA_MIP = -109,
};
constexpr int32_t OGL_PIXBUF_SIZE = 4 * 1024 * 1024;

// The one staging buffer for every bitmap and the background image (1024 x 1024 RGBA texels).
extern uint8_t OGL_pixbuf[OGL_PIXBUF_SIZE];
// Texture memory per index in bytes, summed over mipmap levels; 0 = never loaded.
extern int32_t OGL_tex_bytes[OGL_TEX_COUNT];
// 1 when the driver can clamp textures to the edge (set by the capability checks).
extern int32_t clamp_ok;

// Binds `index` on texture unit `unit` (1..4) unless the unit already holds it.
void OGL_bind_tex(int32_t index, int32_t unit);
// Uploads one mipmap level; `format` is GL_ALPHA, GL_RGB or GL_RGBA.
void OGL_load_tex(const char* name, int32_t index, int32_t level, GLenum format, int32_t width,
                  int32_t height, const uint8_t* pixels);
// Builds and uploads levels 1, 2, ... from level 0 in `pixels`, reducing the picture in place.
void OGL_mini_me(const char* name, int32_t index, int32_t filter, GLenum format, int32_t width,
                 int32_t height, uint8_t* pixels);
// Gives transparent texels of OGL_pixbuf the average colour of their opaque neighbours.
void OGL_bleed_alpha(int32_t index, int32_t filter, int32_t width, int32_t height,
                     int32_t bytes_per_texel, int32_t row_length);

int32_t ogl_texel_bytes(GLenum format);  // GL_ALPHA 1, GL_RGB 3, GL_RGBA 4
// Every index back to never loaded, the bind cache empty, edge clamping off.
void tex_reset();
// Forgets what the bind cache holds (for a fresh GL context); the next bind always binds.
void tex_forget_binds();
