// What the OpenGL driver is and can do, its report in the log, and the default GL state.
#pragma once
#include <cstdint>

#include "util/text.h"

// Drivers list far more extensions than the 4999 characters once assumed; the checks search
// the driver's whole list, and this copy keeps up to GL_EXTENSIONS_KEEP - 1 characters of it.
constexpr int GL_EXTENSIONS_KEEP = 32768;

struct GlCapsRecord {
    Text vendor, renderer, version;
    char extensions[GL_EXTENSIONS_KEEP];
    int32_t found_opengl_12;  // the version begins with "1.2"
    int32_t found_clamp_SGI;
    int32_t found_clamp_ARB;
    int32_t found_mul_tex;
    int32_t found_env_add;
    int32_t num_tex_units;  // 0 when the query does not answer
};

extern GlCapsRecord GlCaps;  // clamp_ok, the verdict on edge clamping, lives with the textures
extern int32_t sw_cursor;  // the event pass draws the pointer itself

// The checks, the "OpenGL Situation" report, the software-renderer warning, sw_cursor and
// the default state, on the current context through the GL table.
void MACIBM_gl_checks();
// The multitexture entry point from the platform's look-up, kept as it comes.
void MACIBM_gl_multitexture();

void gl_caps_reset();
