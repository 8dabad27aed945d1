// A recording stand-in for OpenGL: fills the qgl table with functions that log every call and
// keep the state, primitives and uploads that result, so tests assert on what was drawn.
#pragma once
#include <GL/gl.h>

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

constexpr int GLREC_UNITS = 4;

struct GlCall {  // a call's name and numeric arguments (pointers log as 0)
    std::string name;
    std::vector<double> args;
};
struct GlVertex {
    float x, y, s, t, r, g, b, a;  // position, then the texture coordinate and colour current at it
};
struct GlPrim {  // one glBegin/glEnd block and the state it was drawn under
    GLenum mode;
    std::vector<GlVertex> v;
    GLuint tex[GLREC_UNITS];  // bound on each unit
    bool tex2d[GLREC_UNITS];  // GL_TEXTURE_2D on each unit
    std::set<GLenum> caps;    // other capabilities enabled
    bool depth_mask;
};
struct GlUpload {  // one glTexImage2D of the texture bound on the active unit; rows packed
    GLuint tex;
    GLint level, width, height;
    GLenum format;
    std::vector<uint8_t> pixels;
};

struct GlRecorder {
    std::set<GLenum> caps;  // enabled capabilities other than GL_TEXTURE_2D
    bool tex2d[GLREC_UNITS] = {};
    GLuint bound[GLREC_UNITS] = {};
    int active_unit = 0;  // 0-based
    float color[4] = {1, 1, 1, 1}, texcoord[2] = {0, 0};
    bool depth_mask = true;
    std::map<GLuint, std::map<GLenum, GLint>> tex_params;  // per texture name

    std::vector<GlPrim> prims;
    std::vector<GlUpload> uploads;
    std::vector<GlCall> calls;
    // Answers to queries.
    std::string vendor = "Recorder", renderer = "Recorder", version = "1.1.0", extensions = "";
    std::map<GLenum, GLint> integers = {{GL_MAX_TEXTURE_SIZE, 1024}, {GL_MAX_TEXTURE_UNITS_ARB, 4}};

    int count(const std::string& name) const;  // calls of that entry
    std::string text() const;  // the calls as "name(arg,...)", one a line, numbers to 6 digits
    void clear_log() { calls.clear(), prims.clear(), uploads.clear(); }
    const GlUpload* upload(GLuint tex, GLint level) const;  // last upload of that level
};

// A fresh recorder with the qgl table (and the multitexture entry) pointing at it.
GlRecorder& gl_recorder_install();
GlRecorder& gl_rec();
void* gl_recorder_proc(const char* name);  // the recorder's look-up, for tests of loaders
