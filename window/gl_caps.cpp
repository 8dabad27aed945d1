// The OpenGL capability checks, their report, the software pointer and the default state.
#include "window/gl_caps.h"

#include <cstring>

#include "graphics/qgl.h"
#include "graphics/textures.h"
#include "platform/platform.h"
#include "base/alert.h"
#include "base/log.h"

#ifndef GL_MAX_TEXTURE_UNITS_ARB
#define GL_MAX_TEXTURE_UNITS_ARB 0x84E2
#endif

GlCapsRecord GlCaps;
int32_t sw_cursor = 0;

void gl_caps_reset() {
    memset(&GlCaps, 0, sizeof GlCaps);
    clamp_ok = 0;
    sw_cursor = 0;
}

static const char* gl_text(GLenum name) {
    const GLubyte* s = qglGetString(name);
    return s ? reinterpret_cast<const char*>(s) : "";
}

static int32_t has(const char* list, const char* name) { return strstr(list, name) != nullptr; }

static void log_flag(const char* label, int32_t value) {
    Text line, number;
    int_to_str(value, number, 1);
    str_join(label, number, line);
    MACIBM_log_line(line);
}

static void write_report(const char* extensions) {
    MACIBM_log_text("OpenGL Situation:\n");
    MACIBM_log_text("OpenGL Vendor    :");
    MACIBM_log_line(GlCaps.vendor);
    MACIBM_log_text("OpenGL Render    :");
    MACIBM_log_line(GlCaps.renderer);
    MACIBM_log_text("OpenGL Version   :");
    MACIBM_log_line(GlCaps.version);
    MACIBM_log_text("OpenGL Extensions:");
    MACIBM_log_line(extensions);  // the driver's whole list, however long
    log_flag("found_opengl_12  :", GlCaps.found_opengl_12);
    log_flag("found_clamp_SGI  :", GlCaps.found_clamp_SGI);
    log_flag("found_clamp_ARB  :", GlCaps.found_clamp_ARB);
    log_flag("found_mul_tex    :", GlCaps.found_mul_tex);
    log_flag("found_env_add    :", GlCaps.found_env_add);
    log_flag("num_tex_units    :", GlCaps.num_tex_units);
    MACIBM_log_text("\n\n");
}

// Renderers without a usable hardware pointer: 3Dfx boards and Mesa, whose software
// renderers (llvmpipe, softpipe) name themselves without the "Mesa" prefix.
static int32_t needs_sw_cursor(const char* renderer) {
    static const char* const prefixes[] = {"3Dfx", "3dfx", "Mesa", "llvmpipe", "softpipe"};
    for (const char* p : prefixes)
        if (strncmp(renderer, p, strlen(p)) == 0) return 1;
    return 0;
}

static void default_state() {
    static const GLfloat no_ambient[4] = {0, 0, 0, 0};
    qglLightModelfv(GL_LIGHT_MODEL_AMBIENT, no_ambient);
    qglPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    qglPixelStorei(GL_PACK_ALIGNMENT, 1);
    qglAlphaFunc(GL_GREATER, 0.0f);
    qglBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    qglDepthFunc(GL_LEQUAL);
    qglFogi(GL_FOG_MODE, GL_LINEAR);
    qglHint(GL_FOG_HINT, GL_FASTEST);
    qglFrontFace(GL_CW);
    qglEnable(GL_CULL_FACE);
    qglCullFace(GL_BACK);
    qglShadeModel(GL_SMOOTH);
    qglEnable(GL_DITHER);
    qglDisable(GL_LOGIC_OP);
    qglDisable(GL_STENCIL_TEST);
    qglDisable(GL_TEXTURE_1D);
    qglDisable(GL_NORMALIZE);
    qglDisable(GL_SCISSOR_TEST);
    qglEnable(GL_COLOR_MATERIAL);
    qglColorMaterial(GL_FRONT, GL_AMBIENT_AND_DIFFUSE);
}

void MACIBM_gl_checks() {
    str_copy(gl_text(GL_VENDOR), GlCaps.vendor);
    str_copy(gl_text(GL_RENDERER), GlCaps.renderer);
    str_copy(gl_text(GL_VERSION), GlCaps.version);
    const char* ext = gl_text(GL_EXTENSIONS);
    size_t n = strnlen(ext, GL_EXTENSIONS_KEEP - 1);
    memcpy(GlCaps.extensions, ext, n);
    GlCaps.extensions[n] = 0;

    GlCaps.found_opengl_12 = strncmp(GlCaps.version, "1.2", 3) == 0;
    GlCaps.found_clamp_SGI = has(ext, "GL_SGI_texture_edge_clamp") || has(ext, "GL_SGIS_texture_edge_clamp");
    GlCaps.found_clamp_ARB = has(ext, "GL_ARB_texture_edge_clamp");
    GlCaps.found_mul_tex = has(ext, "GL_ARB_multitexture");
    GlCaps.found_env_add = has(ext, "GL_ARB_texture_env_add") || has(ext, "GL_EXT_texture_env_add");
    clamp_ok = GlCaps.found_opengl_12 || GlCaps.found_clamp_SGI || GlCaps.found_clamp_ARB;
    GLint units = 0;
    qglGetIntegerv(GL_MAX_TEXTURE_UNITS_ARB, &units);
    GlCaps.num_tex_units = units;

    write_report(ext);

    if (strcmp(GlCaps.renderer, "GENERIC") == 0)
        MACIBM_alert(0,
                     "I can not find a 3-D accelerator card that can handle OpenGL that has correctly installed "
                     "drivers.",
                     "I will still let you run the simulator, but the frame rate will NOT allow for a good simulation.",
                     "Use the earlier edition of Zephyra that does not need OpenGL, or get a 3-D accelerator card with "
                     "OpenGL drivers.",
                     "The list of cards known to work with Zephyra is on the Zephyra home page.", ALERT_NOTE);

    sw_cursor = needs_sw_cursor(GlCaps.renderer);
    plat_show_pointer(sw_cursor == 0);  // never two pointers: the drawn one replaces the system's
    GlCaps.renderer[4 < strlen(GlCaps.renderer) ? 4 : strlen(GlCaps.renderer)] = 0;  // kept cut, as checked
    default_state();
}

void MACIBM_gl_multitexture() { qgl_load_multitexture(plat_gl_proc); }
