// The recording stand-in for OpenGL: state, primitives and uploads kept for assertions.
#include "tests/support/gl_recorder.h"

#include <cmath>
#include <cstring>
#include <type_traits>

#include "graphics/qgl.h"

static GlRecorder rec;

GlRecorder& gl_rec() { return rec; }

// ---- call log ----

static double to_d(double v) { return v; }
static double to_d(const void*) { return 0.0; }

template <class... A>
static void log_call(const char* name, A... args) {
    rec.calls.push_back(GlCall{name, {to_d(args)...}});
}

template <class T>
static T zero() {
    if constexpr (!std::is_void_v<T>) return T{};
}

// Every entry by default only records the call.
#define REC_DEFAULT(ret, name, params, args) \
    static ret APIENTRY def_##name params {  \
        log_call(#name QGL_COMMA_ARGS args); \
        return zero<ret>();                  \
    }
#define QGL_COMMA_ARGS(...) __VA_OPT__(, ) __VA_ARGS__
QGL_FUNCS(REC_DEFAULT)
#undef REC_DEFAULT

// ---- matrices ----

static void mat_identity(double* m) {
    for (int i = 0; i < 16; ++i) m[i] = (i % 5 == 0) ? 1.0 : 0.0;
}

static double* cur_matrix() { return rec.matrix_mode == GL_PROJECTION ? rec.projection : rec.modelview; }

static void mat_mult(const double* n) {  // current = current * n
    double* m = cur_matrix();
    double r[16];
    for (int c = 0; c < 4; ++c)
        for (int row = 0; row < 4; ++row) {
            double s = 0;
            for (int k = 0; k < 4; ++k) s += m[k * 4 + row] * n[c * 4 + k];
            r[c * 4 + row] = s;
        }
    memcpy(m, r, sizeof r);
}

static std::vector<std::vector<double>> stack_proj, stack_model;

// ---- overrides ----

static void APIENTRY r_glBegin(GLenum mode) {
    log_call("glBegin", mode);
    GlPrim p{};
    p.mode = mode;
    for (int u = 0; u < GLREC_UNITS; ++u) {
        p.tex[u] = rec.bound[u];
        p.tex2d[u] = rec.tex2d[u];
    }
    p.caps = rec.caps;
    p.depth_mask = rec.depth_mask;
    rec.prims.push_back(p);
    rec.in_begin = true;
}
static void APIENTRY r_glEnd() {
    log_call("glEnd");
    rec.in_begin = false;
}
static void vertex(float x, float y, float z) {
    if (!rec.in_begin || rec.prims.empty()) return;
    rec.prims.back().v.push_back(GlVertex{x, y, z, rec.texcoord[0], rec.texcoord[1], rec.color[0],
                                          rec.color[1], rec.color[2], rec.color[3]});
}
static void APIENTRY r_glVertex2f(GLfloat x, GLfloat y) { vertex(x, y, 0); }
static void APIENTRY r_glVertex2i(GLint x, GLint y) { vertex((float)x, (float)y, 0); }
static void APIENTRY r_glVertex2fv(const GLfloat* v) { vertex(v[0], v[1], 0); }
static void APIENTRY r_glVertex3f(GLfloat x, GLfloat y, GLfloat z) { vertex(x, y, z); }
static void APIENTRY r_glVertex3fv(const GLfloat* v) { vertex(v[0], v[1], v[2]); }
static void APIENTRY r_glTexCoord2f(GLfloat s, GLfloat t) {
    rec.texcoord[0] = s;
    rec.texcoord[1] = t;
}
static void APIENTRY r_glTexCoord2fv(const GLfloat* v) { r_glTexCoord2f(v[0], v[1]); }
static void set_color(const char* name, float r, float g, float b, float a) {
    log_call(name, r, g, b, a);
    rec.color[0] = r, rec.color[1] = g, rec.color[2] = b, rec.color[3] = a;
}
static void APIENTRY r_glColor3f(GLfloat r, GLfloat g, GLfloat b) { set_color("glColor3f", r, g, b, 1); }
static void APIENTRY r_glColor3fv(const GLfloat* v) { set_color("glColor3fv", v[0], v[1], v[2], 1); }
static void APIENTRY r_glColor4f(GLfloat r, GLfloat g, GLfloat b, GLfloat a) {
    set_color("glColor4f", r, g, b, a);
}
static void APIENTRY r_glColor4fv(const GLfloat* v) { set_color("glColor4fv", v[0], v[1], v[2], v[3]); }
static void APIENTRY r_glColor3ub(GLubyte r, GLubyte g, GLubyte b) {
    set_color("glColor3ub", r / 255.0f, g / 255.0f, b / 255.0f, 1);
}
static void APIENTRY r_glColor4ub(GLubyte r, GLubyte g, GLubyte b, GLubyte a) {
    set_color("glColor4ub", r / 255.0f, g / 255.0f, b / 255.0f, a / 255.0f);
}

static void APIENTRY r_glMatrixMode(GLenum mode) {
    log_call("glMatrixMode", mode);
    rec.matrix_mode = mode;
}
static void APIENTRY r_glLoadIdentity() {
    log_call("glLoadIdentity");
    mat_identity(cur_matrix());
}
static void APIENTRY r_glLoadMatrixf(const GLfloat* m) {
    log_call("glLoadMatrixf");
    for (int i = 0; i < 16; ++i) cur_matrix()[i] = m[i];
}
static void APIENTRY r_glMultMatrixf(const GLfloat* m) {
    log_call("glMultMatrixf");
    double n[16];
    for (int i = 0; i < 16; ++i) n[i] = m[i];
    mat_mult(n);
}
static void APIENTRY r_glOrtho(GLdouble l, GLdouble r, GLdouble b, GLdouble t, GLdouble n, GLdouble f) {
    log_call("glOrtho", l, r, b, t, n, f);
    double m[16] = {};
    m[0] = 2 / (r - l), m[5] = 2 / (t - b), m[10] = -2 / (f - n), m[15] = 1;
    m[12] = -(r + l) / (r - l), m[13] = -(t + b) / (t - b), m[14] = -(f + n) / (f - n);
    mat_mult(m);
}
static void APIENTRY r_glFrustum(GLdouble l, GLdouble r, GLdouble b, GLdouble t, GLdouble n, GLdouble f) {
    log_call("glFrustum", l, r, b, t, n, f);
    double m[16] = {};
    m[0] = 2 * n / (r - l), m[5] = 2 * n / (t - b);
    m[8] = (r + l) / (r - l), m[9] = (t + b) / (t - b), m[10] = -(f + n) / (f - n), m[11] = -1;
    m[14] = -2 * f * n / (f - n);
    mat_mult(m);
}
static void APIENTRY r_glTranslatef(GLfloat x, GLfloat y, GLfloat z) {
    log_call("glTranslatef", x, y, z);
    double m[16];
    mat_identity(m);
    m[12] = x, m[13] = y, m[14] = z;
    mat_mult(m);
}
static void APIENTRY r_glScalef(GLfloat x, GLfloat y, GLfloat z) {
    log_call("glScalef", x, y, z);
    double m[16];
    mat_identity(m);
    m[0] = x, m[5] = y, m[10] = z;
    mat_mult(m);
}
static void APIENTRY r_glPushMatrix() {
    log_call("glPushMatrix");
    auto& st = rec.matrix_mode == GL_PROJECTION ? stack_proj : stack_model;
    st.emplace_back(cur_matrix(), cur_matrix() + 16);
}
static void APIENTRY r_glPopMatrix() {
    log_call("glPopMatrix");
    auto& st = rec.matrix_mode == GL_PROJECTION ? stack_proj : stack_model;
    if (st.empty()) return;
    memcpy(cur_matrix(), st.back().data(), 16 * sizeof(double));
    st.pop_back();
}
static void APIENTRY r_glViewport(GLint x, GLint y, GLsizei w, GLsizei h) {
    log_call("glViewport", x, y, w, h);
    rec.viewport[0] = x, rec.viewport[1] = y, rec.viewport[2] = w, rec.viewport[3] = h;
}

static void APIENTRY r_glEnable(GLenum cap) {
    log_call("glEnable", cap);
    if (cap == GL_TEXTURE_2D)
        rec.tex2d[rec.active_unit] = true;
    else
        rec.caps.insert(cap);
}
static void APIENTRY r_glDisable(GLenum cap) {
    log_call("glDisable", cap);
    if (cap == GL_TEXTURE_2D)
        rec.tex2d[rec.active_unit] = false;
    else
        rec.caps.erase(cap);
}
static GLboolean APIENTRY r_glIsEnabled(GLenum cap) {
    log_call("glIsEnabled", cap);
    if (cap == GL_TEXTURE_2D) return rec.tex2d[rec.active_unit] ? GL_TRUE : GL_FALSE;
    return rec.caps.count(cap) ? GL_TRUE : GL_FALSE;
}
static void APIENTRY r_glDepthMask(GLboolean flag) {
    log_call("glDepthMask", flag);
    rec.depth_mask = flag != 0;
}

static void APIENTRY r_glBindTexture(GLenum target, GLuint name) {
    log_call("glBindTexture", target, name);
    rec.bound[rec.active_unit] = name;
}
static void APIENTRY r_glTexParameteri(GLenum target, GLenum p, GLint v) {
    log_call("glTexParameteri", target, p, v);
    rec.tex_params[rec.bound[rec.active_unit]][p] = v;
}
static void APIENTRY r_glPixelStorei(GLenum p, GLint v) {
    log_call("glPixelStorei", p, v);
    rec.pixel_store[p] = v;
}
static int texel_bytes(GLenum format) {
    switch (format) {
        case GL_ALPHA: case GL_LUMINANCE: return 1;
        case GL_LUMINANCE_ALPHA: return 2;
        case GL_RGB: return 3;
        default: return 4;
    }
}
static void APIENTRY r_glTexImage2D(GLenum target, GLint level, GLint internal, GLsizei w, GLsizei h,
                                    GLint border, GLenum format, GLenum type, const GLvoid* pixels) {
    log_call("glTexImage2D", target, level, internal, w, h, border, format, type);
    GlUpload up{rec.bound[rec.active_unit], level, internal, w, h, format, {}};
    if (pixels && w > 0 && h > 0) {
        auto it = rec.pixel_store.find(GL_UNPACK_ALIGNMENT);
        int align = it == rec.pixel_store.end() ? 4 : it->second;
        int row = w * texel_bytes(format);
        int stride = (row + align - 1) / align * align;
        const uint8_t* src = static_cast<const uint8_t*>(pixels);
        for (int y = 0; y < h; ++y) up.pixels.insert(up.pixels.end(), src + y * stride, src + y * stride + row);
    }
    rec.uploads.push_back(std::move(up));
}
static void APIENTRY r_glActiveTextureARB(GLenum unit) {
    log_call("glActiveTextureARB", unit);
    rec.active_unit = (int)(unit - GL_TEXTURE0_ARB);
}

static const GLubyte* APIENTRY r_glGetString(GLenum name) {
    log_call("glGetString", name);
    const std::string* s = name == GL_VENDOR     ? &rec.vendor
                           : name == GL_RENDERER ? &rec.renderer
                           : name == GL_VERSION  ? &rec.version
                           : name == GL_EXTENSIONS ? &rec.extensions
                                                   : nullptr;
    return s ? reinterpret_cast<const GLubyte*>(s->c_str()) : nullptr;
}
static void APIENTRY r_glGetIntegerv(GLenum p, GLint* v) {
    log_call("glGetIntegerv", p);
    if (p == GL_VIEWPORT) {
        for (int i = 0; i < 4; ++i) v[i] = rec.viewport[i];
        return;
    }
    if (p == GL_TEXTURE_BINDING_2D) {
        *v = (GLint)rec.bound[rec.active_unit];
        return;
    }
    auto it = rec.integers.find(p);
    if (it != rec.integers.end()) *v = it->second;  // unknown queries leave the value untouched
}

struct ProcEntry {
    const char* name;
    void* fn;
};

#define R(name) {#name, reinterpret_cast<void*>(r_##name)}
static const ProcEntry overrides[] = {
    R(glBegin),        R(glEnd),           R(glVertex2f),      R(glVertex2i),      R(glVertex2fv),
    R(glVertex3f),     R(glVertex3fv),     R(glTexCoord2f),    R(glTexCoord2fv),   R(glColor3f),
    R(glColor3fv),     R(glColor4f),       R(glColor4fv),      R(glColor3ub),      R(glColor4ub),
    R(glMatrixMode),   R(glLoadIdentity),  R(glLoadMatrixf),   R(glMultMatrixf),   R(glOrtho),
    R(glFrustum),      R(glTranslatef),    R(glScalef),        R(glPushMatrix),    R(glPopMatrix),
    R(glViewport),     R(glEnable),        R(glDisable),       R(glIsEnabled),     R(glDepthMask),
    R(glBindTexture),  R(glTexParameteri), R(glPixelStorei),   R(glTexImage2D),    R(glGetString),
    R(glGetIntegerv),  R(glActiveTextureARB),
};
#undef R

#define D(ret, name, params, args) {#name, reinterpret_cast<void*>(def_##name)},
static const ProcEntry defaults[] = {QGL_FUNCS(D)};
#undef D

void* gl_recorder_proc(const char* name) {
    for (const auto& e : overrides)
        if (strcmp(e.name, name) == 0) return e.fn;
    for (const auto& e : defaults)
        if (strcmp(e.name, name) == 0) return e.fn;
    return nullptr;
}

GlRecorder& gl_recorder_install() {
    rec = GlRecorder{};
    mat_identity(rec.projection);
    mat_identity(rec.modelview);
    stack_proj.clear();
    stack_model.clear();
    qgl_load(gl_recorder_proc);
    qgl_load_multitexture(gl_recorder_proc);
    return rec;
}

// ---- assertion helpers ----

int GlRecorder::count(const std::string& name) const {
    int n = 0;
    for (const auto& c : calls) n += c.name == name;
    return n;
}

int GlRecorder::count(const std::string& name, double arg0) const {
    int n = 0;
    for (const auto& c : calls) n += c.name == name && !c.args.empty() && c.args[0] == arg0;
    return n;
}

const GlUpload* GlRecorder::upload(GLuint tex, GLint level) const {
    for (auto it = uploads.rbegin(); it != uploads.rend(); ++it)
        if (it->tex == tex && it->level == level) return &*it;
    return nullptr;
}

void GlRecorder::project(double x, double y, double* nx, double* ny) const {
    double mx = modelview[0] * x + modelview[4] * y + modelview[12];
    double my = modelview[1] * x + modelview[5] * y + modelview[13];
    double mw = modelview[3] * x + modelview[7] * y + modelview[15];
    double px = projection[0] * mx + projection[4] * my + projection[12] * mw;
    double py = projection[1] * mx + projection[5] * my + projection[13] * mw;
    double pw = projection[3] * mx + projection[7] * my + projection[15] * mw;
    *nx = px / pw;
    *ny = py / pw;
}
