// A recording stand-in for OpenGL: fills the qgl table with functions that keep the resulting
// state, the emitted primitives and the texture uploads, so tests can assert on what was drawn.
#pragma once
#include <GL/gl.h>

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#ifndef GL_TEXTURE0_ARB
#define GL_TEXTURE0_ARB 0x84C0
#endif
#ifndef GL_MAX_TEXTURE_UNITS_ARB
#define GL_MAX_TEXTURE_UNITS_ARB 0x84E2
#endif

constexpr int GLREC_UNITS = 4;

struct GlVertex {
    float x, y, z;
    float s, t;           // texture coordinate current when the vertex was given
    float r, g, b, a;     // colour current when the vertex was given
};

// One glBegin/glEnd block with the state it was drawn under.
struct GlPrim {
    GLenum mode;
    std::vector<GlVertex> v;
    GLuint tex[GLREC_UNITS];        // texture bound on each unit at glBegin
    bool tex2d[GLREC_UNITS];        // GL_TEXTURE_2D enabled on each unit at glBegin
    std::set<GLenum> caps;          // other capabilities enabled at glBegin
    bool depth_mask;
};

// One glTexImage2D.
struct GlUpload {
    GLuint tex;  // texture bound on the active unit
    GLint level;
    GLint internal_format;
    GLsizei width, height;
    GLenum format;
    std::vector<uint8_t> pixels;  // width x height texels, packed (unpack alignment 1 assumed)
};

// One call, for tests that count state changes: the name and its numeric arguments.
struct GlCall {
    std::string name;
    std::vector<double> args;
};

struct GlRecorder {
    // ---- resulting state ----
    std::set<GLenum> caps;                   // enabled capabilities other than GL_TEXTURE_2D
    bool tex2d[GLREC_UNITS] = {};            // GL_TEXTURE_2D per unit
    GLuint bound[GLREC_UNITS] = {};          // texture bound per unit
    int active_unit = 0;                     // 0-based
    float color[4] = {1, 1, 1, 1};
    float texcoord[2] = {0, 0};
    bool depth_mask = true;
    GLenum matrix_mode = GL_MODELVIEW;
    double projection[16];                   // column-major, as OpenGL keeps them
    double modelview[16];
    GLint viewport[4] = {0, 0, 0, 0};
    std::map<GLuint, std::map<GLenum, GLint>> tex_params;  // per texture name
    std::map<GLenum, GLint> pixel_store;

    // ---- what was emitted ----
    std::vector<GlPrim> prims;
    std::vector<GlUpload> uploads;
    std::vector<GlCall> calls;
    bool in_begin = false;

    // ---- answers to queries ----
    std::string vendor = "Recorder", renderer = "Recorder", version = "1.1.0", extensions = "";
    std::map<GLenum, GLint> integers = {{GL_MAX_TEXTURE_SIZE, 1024}, {GL_MAX_TEXTURE_UNITS_ARB, 4}};

    // Helpers for assertions.
    int count(const std::string& name) const;               // calls with that name
    int count(const std::string& name, double arg0) const;  // ... whose first argument is arg0
    void clear_log() { calls.clear(); prims.clear(); uploads.clear(); }
    const GlUpload* upload(GLuint tex, GLint level) const;  // last upload of that level
    // Maps design coordinates through projection to normalised device coordinates.
    void project(double x, double y, double* ndc_x, double* ndc_y) const;
};

// Resets the recorder to a fresh context and points the qgl table (and the multitexture entry)
// at it. Returns the recorder.
GlRecorder& gl_recorder_install();
GlRecorder& gl_rec();
// The recorder's look-up function, for tests of loaders.
void* gl_recorder_proc(const char* name);
