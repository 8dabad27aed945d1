// The recording stand-in for OpenGL, generated from the qgl table: every entry logs its call;
// the few whose effect tests look at also keep that state.
#include "tests/support/gl_recorder.h"

#include <algorithm>
#include <cstring>
#include <sstream>

#include "graphics/qgl.h"

static GlRecorder rec;
GlRecorder& gl_rec() { return rec; }

namespace {

enum Id {
#define QGL_ID(ret, name, params, args) id_##name,
    QGL_FUNCS(QGL_ID)
#undef QGL_ID
};
template <Id I>
struct Fn {};
struct Zero {  // what an entry without an effect of its own answers, whatever its type
    template <class T>
    operator T() const { return T{}; }
};
template <Id I, class... A>
Zero on(Fn<I>, A...) { return {}; }

// ---- effects, each with the exact parameter types of its entry ----
void on(Fn<id_glBegin>, GLenum mode) {
    rec.prims.push_back(GlPrim{mode, {}, {}, {}, rec.caps, rec.depth_mask});
    memcpy(rec.prims.back().tex, rec.bound, sizeof rec.bound);
    memcpy(rec.prims.back().tex2d, rec.tex2d, sizeof rec.tex2d);
}
void on(Fn<id_glVertex2f>, GLfloat x, GLfloat y) {
    const float *t = rec.texcoord, *c = rec.color;
    if (!rec.prims.empty()) rec.prims.back().v.push_back(GlVertex{x, y, t[0], t[1], c[0], c[1], c[2], c[3]});
}
void on(Fn<id_glTexCoord2f>, GLfloat s, GLfloat t) { rec.texcoord[0] = s, rec.texcoord[1] = t; }
void on(Fn<id_glColor4f>, GLfloat r, GLfloat g, GLfloat b, GLfloat a) {
    rec.color[0] = r, rec.color[1] = g, rec.color[2] = b, rec.color[3] = a;
}
void on(Fn<id_glColor3fv>, const GLfloat* v) { on(Fn<id_glColor4f>{}, v[0], v[1], v[2], 1.0f); }
void set_cap(GLenum cap, bool enabled) {
    if (cap == GL_TEXTURE_2D) return (void)(rec.tex2d[rec.active_unit] = enabled);
    enabled ? (void)rec.caps.insert(cap) : (void)rec.caps.erase(cap);
}
void on(Fn<id_glEnable>, GLenum cap) { set_cap(cap, true); }
void on(Fn<id_glDisable>, GLenum cap) { set_cap(cap, false); }
GLboolean on(Fn<id_glIsEnabled>, GLenum cap) {
    return (cap == GL_TEXTURE_2D ? rec.tex2d[rec.active_unit] : rec.caps.count(cap) > 0) ? GL_TRUE : GL_FALSE;
}
void on(Fn<id_glDepthMask>, GLboolean flag) { rec.depth_mask = flag != 0; }
void on(Fn<id_glBindTexture>, GLenum, GLuint name) { rec.bound[rec.active_unit] = name; }
void on(Fn<id_glTexParameteri>, GLenum, GLenum p, GLint v) { rec.tex_params[rec.bound[rec.active_unit]][p] = v; }
void on(Fn<id_glTexImage2D>, GLenum, GLint level, GLint, GLsizei w, GLsizei h, GLint, GLenum format, GLenum,
        const GLvoid* pixels) {
    const uint8_t* p = static_cast<const uint8_t*>(pixels);
    const size_t n = p ? (size_t)(w * h * (format == GL_ALPHA ? 1 : format == GL_RGB ? 3 : 4)) : 0;
    rec.uploads.push_back(GlUpload{rec.bound[rec.active_unit], level, w, h, format, {p, p + n}});
}
const GLubyte* on(Fn<id_glGetString>, GLenum name) {
    const std::string* s = name == GL_VENDOR ? &rec.vendor : name == GL_RENDERER ? &rec.renderer
                         : name == GL_VERSION ? &rec.version : name == GL_EXTENSIONS ? &rec.extensions : nullptr;
    return s ? reinterpret_cast<const GLubyte*>(s->c_str()) : nullptr;
}
void on(Fn<id_glGetIntegerv>, GLenum p, GLint* v) {
    if (rec.integers.count(p)) *v = rec.integers[p];  // unknown queries leave the value untouched
}

double num(double v) { return v; }
double num(const void*) { return 0; }
template <class... A>
void log_call(const char* name, A... a) { rec.calls.push_back(GlCall{name, {num(a)...}}); }

#define QGL_COMMA_ARGS(...) __VA_OPT__(, ) __VA_ARGS__
#define QGL_REC(ret, name, params, args)                                  \
    ret APIENTRY rec_##name params {                                      \
        log_call(#name QGL_COMMA_ARGS args);                              \
        return static_cast<ret>(on(Fn<id_##name>{} QGL_COMMA_ARGS args)); \
    }
QGL_FUNCS(QGL_REC)
#undef QGL_REC

void APIENTRY rec_glActiveTextureARB(GLenum unit) {
    log_call("glActiveTextureARB", unit);
    rec.active_unit = (int)(unit - GL_TEXTURE0_ARB);
}

}  // namespace

void* gl_recorder_proc(const char* name) {
#define QGL_PROC(ret, fn, params, args) \
    if (strcmp(name, #fn) == 0) return reinterpret_cast<void*>(rec_##fn);
    QGL_FUNCS(QGL_PROC)
#undef QGL_PROC
    return strcmp(name, "glActiveTextureARB") == 0 ? reinterpret_cast<void*>(rec_glActiveTextureARB) : nullptr;
}

GlRecorder& gl_recorder_install() {
    rec = GlRecorder{};
    qgl_load(gl_recorder_proc);
    qgl_load_multitexture(gl_recorder_proc);
    return rec;
}

int GlRecorder::count(const std::string& name) const {
    return (int)std::count_if(calls.begin(), calls.end(), [&](const GlCall& c) { return c.name == name; });
}

std::string GlRecorder::text() const {
    std::ostringstream out;  // default precision: 6 significant digits
    for (const auto& c : calls) {
        out << c.name << '(';
        for (size_t i = 0; i < c.args.size(); ++i) out << (i ? "," : "") << c.args[i];
        out << ")\n";
    }
    return out.str();
}

const GlUpload* GlRecorder::upload(GLuint tex, GLint level) const {
    for (auto it = uploads.rbegin(); it != uploads.rend(); ++it)
        if (it->tex == tex && it->level == level) return &*it;
    return nullptr;
}
