// The table of every OpenGL 1.1 entry point the program calls; all GL calls go through it.
#pragma once
#include <GL/gl.h>

#ifndef APIENTRY
#define APIENTRY
#endif

// X(return type, name, (parameters), (arguments)). The list is the whole GL 1.1 surface the
// program may use; loaders and test fakes walk it, so an entry added here is filled everywhere.
#define QGL_FUNCS(X)                                                                              \
    /* primitives and vertex data */                                                             \
    X(void, glBegin, (GLenum mode), (mode))                                                      \
    X(void, glEnd, (void), ())                                                                   \
    X(void, glVertex2f, (GLfloat x, GLfloat y), (x, y))                                          \
    X(void, glVertex2i, (GLint x, GLint y), (x, y))                                              \
    X(void, glVertex2fv, (const GLfloat* v), (v))                                                \
    X(void, glVertex3f, (GLfloat x, GLfloat y, GLfloat z), (x, y, z))                            \
    X(void, glVertex3fv, (const GLfloat* v), (v))                                                \
    X(void, glTexCoord2f, (GLfloat s, GLfloat t), (s, t))                                        \
    X(void, glTexCoord2fv, (const GLfloat* v), (v))                                              \
    X(void, glNormal3f, (GLfloat x, GLfloat y, GLfloat z), (x, y, z))                            \
    X(void, glColor3f, (GLfloat r, GLfloat g, GLfloat b), (r, g, b))                             \
    X(void, glColor3fv, (const GLfloat* v), (v))                                                 \
    X(void, glColor4f, (GLfloat r, GLfloat g, GLfloat b, GLfloat a), (r, g, b, a))               \
    X(void, glColor4fv, (const GLfloat* v), (v))                                                 \
    X(void, glColor3ub, (GLubyte r, GLubyte g, GLubyte b), (r, g, b))                            \
    X(void, glColor4ub, (GLubyte r, GLubyte g, GLubyte b, GLubyte a), (r, g, b, a))              \
    /* matrices and projection */                                                                \
    X(void, glMatrixMode, (GLenum mode), (mode))                                                 \
    X(void, glLoadIdentity, (void), ())                                                          \
    X(void, glLoadMatrixf, (const GLfloat* m), (m))                                              \
    X(void, glMultMatrixf, (const GLfloat* m), (m))                                              \
    X(void, glOrtho, (GLdouble l, GLdouble r, GLdouble b, GLdouble t, GLdouble n, GLdouble f),   \
      (l, r, b, t, n, f))                                                                        \
    X(void, glFrustum, (GLdouble l, GLdouble r, GLdouble b, GLdouble t, GLdouble n, GLdouble f), \
      (l, r, b, t, n, f))                                                                        \
    X(void, glPushMatrix, (void), ())                                                            \
    X(void, glPopMatrix, (void), ())                                                             \
    X(void, glTranslatef, (GLfloat x, GLfloat y, GLfloat z), (x, y, z))                          \
    X(void, glScalef, (GLfloat x, GLfloat y, GLfloat z), (x, y, z))                              \
    X(void, glRotatef, (GLfloat a, GLfloat x, GLfloat y, GLfloat z), (a, x, y, z))               \
    X(void, glViewport, (GLint x, GLint y, GLsizei w, GLsizei h), (x, y, w, h))                  \
    X(void, glScissor, (GLint x, GLint y, GLsizei w, GLsizei h), (x, y, w, h))                   \
    X(void, glDepthRange, (GLclampd n, GLclampd f), (n, f))                                      \
    /* capabilities and fixed-function state */                                                  \
    X(void, glEnable, (GLenum cap), (cap))                                                       \
    X(void, glDisable, (GLenum cap), (cap))                                                      \
    X(GLboolean, glIsEnabled, (GLenum cap), (cap))                                               \
    X(void, glBlendFunc, (GLenum s, GLenum d), (s, d))                                           \
    X(void, glAlphaFunc, (GLenum func, GLclampf ref), (func, ref))                               \
    X(void, glDepthFunc, (GLenum func), (func))                                                  \
    X(void, glDepthMask, (GLboolean flag), (flag))                                               \
    X(void, glClearDepth, (GLclampd d), (d))                                                     \
    X(void, glFogi, (GLenum p, GLint v), (p, v))                                                 \
    X(void, glFogf, (GLenum p, GLfloat v), (p, v))                                               \
    X(void, glFogfv, (GLenum p, const GLfloat* v), (p, v))                                       \
    X(void, glLightfv, (GLenum light, GLenum p, const GLfloat* v), (light, p, v))                \
    X(void, glLightModelfv, (GLenum p, const GLfloat* v), (p, v))                                \
    X(void, glLightModeli, (GLenum p, GLint v), (p, v))                                          \
    X(void, glMaterialfv, (GLenum face, GLenum p, const GLfloat* v), (face, p, v))               \
    X(void, glColorMaterial, (GLenum face, GLenum mode), (face, mode))                           \
    X(void, glShadeModel, (GLenum mode), (mode))                                                 \
    X(void, glFrontFace, (GLenum mode), (mode))                                                  \
    X(void, glCullFace, (GLenum mode), (mode))                                                   \
    X(void, glPolygonMode, (GLenum face, GLenum mode), (face, mode))                             \
    X(void, glPolygonOffset, (GLfloat factor, GLfloat units), (factor, units))                   \
    X(void, glLineWidth, (GLfloat w), (w))                                                       \
    X(void, glPointSize, (GLfloat s), (s))                                                       \
    X(void, glColorMask, (GLboolean r, GLboolean g, GLboolean b, GLboolean a), (r, g, b, a))     \
    X(void, glLogicOp, (GLenum op), (op))                                                        \
    X(void, glStencilFunc, (GLenum func, GLint ref, GLuint mask), (func, ref, mask))             \
    X(void, glStencilOp, (GLenum fail, GLenum zfail, GLenum zpass), (fail, zfail, zpass))        \
    X(void, glStencilMask, (GLuint mask), (mask))                                                \
    X(void, glHint, (GLenum target, GLenum mode), (target, mode))                                \
    X(void, glPushAttrib, (GLbitfield mask), (mask))                                             \
    X(void, glPopAttrib, (void), ())                                                             \
    /* textures */                                                                               \
    X(void, glGenTextures, (GLsizei n, GLuint * names), (n, names))                              \
    X(void, glDeleteTextures, (GLsizei n, const GLuint* names), (n, names))                      \
    X(void, glBindTexture, (GLenum target, GLuint name), (target, name))                         \
    X(GLboolean, glIsTexture, (GLuint name), (name))                                             \
    X(void, glTexParameteri, (GLenum target, GLenum p, GLint v), (target, p, v))                 \
    X(void, glTexParameterf, (GLenum target, GLenum p, GLfloat v), (target, p, v))               \
    X(void, glTexEnvi, (GLenum target, GLenum p, GLint v), (target, p, v))                       \
    X(void, glTexEnvf, (GLenum target, GLenum p, GLfloat v), (target, p, v))                     \
    X(void, glTexEnvfv, (GLenum target, GLenum p, const GLfloat* v), (target, p, v))             \
    X(void, glTexGeni, (GLenum coord, GLenum p, GLint v), (coord, p, v))                         \
    X(void, glTexGenfv, (GLenum coord, GLenum p, const GLfloat* v), (coord, p, v))               \
    X(void, glTexImage2D,                                                                        \
      (GLenum target, GLint level, GLint internal, GLsizei w, GLsizei h, GLint border,           \
       GLenum format, GLenum type, const GLvoid* pixels),                                        \
      (target, level, internal, w, h, border, format, type, pixels))                             \
    X(void, glTexSubImage2D,                                                                     \
      (GLenum target, GLint level, GLint x, GLint y, GLsizei w, GLsizei h, GLenum format,        \
       GLenum type, const GLvoid* pixels),                                                       \
      (target, level, x, y, w, h, format, type, pixels))                                         \
    X(void, glCopyTexImage2D,                                                                    \
      (GLenum target, GLint level, GLenum internal, GLint x, GLint y, GLsizei w, GLsizei h,      \
       GLint border),                                                                            \
      (target, level, internal, x, y, w, h, border))                                             \
    X(void, glCopyTexSubImage2D,                                                                 \
      (GLenum target, GLint level, GLint xo, GLint yo, GLint x, GLint y, GLsizei w, GLsizei h),  \
      (target, level, xo, yo, x, y, w, h))                                                       \
    X(void, glGetTexLevelParameteriv, (GLenum target, GLint level, GLenum p, GLint * v),         \
      (target, level, p, v))                                                                     \
    /* pixels and the frame */                                                                   \
    X(void, glPixelStorei, (GLenum p, GLint v), (p, v))                                          \
    X(void, glPixelZoom, (GLfloat x, GLfloat y), (x, y))                                         \
    X(void, glReadPixels,                                                                        \
      (GLint x, GLint y, GLsizei w, GLsizei h, GLenum format, GLenum type, GLvoid * pixels),     \
      (x, y, w, h, format, type, pixels))                                                        \
    X(void, glDrawPixels, (GLsizei w, GLsizei h, GLenum format, GLenum type, const GLvoid* p),   \
      (w, h, format, type, p))                                                                   \
    X(void, glRasterPos2f, (GLfloat x, GLfloat y), (x, y))                                       \
    X(void, glRasterPos2i, (GLint x, GLint y), (x, y))                                           \
    X(void, glReadBuffer, (GLenum mode), (mode))                                                 \
    X(void, glDrawBuffer, (GLenum mode), (mode))                                                 \
    X(void, glClear, (GLbitfield mask), (mask))                                                  \
    X(void, glClearColor, (GLclampf r, GLclampf g, GLclampf b, GLclampf a), (r, g, b, a))        \
    X(void, glClearStencil, (GLint s), (s))                                                      \
    /* queries and synchronisation */                                                            \
    X(const GLubyte*, glGetString, (GLenum name), (name))                                        \
    X(void, glGetIntegerv, (GLenum p, GLint * v), (p, v))                                        \
    X(void, glGetFloatv, (GLenum p, GLfloat * v), (p, v))                                        \
    X(void, glGetBooleanv, (GLenum p, GLboolean * v), (p, v))                                    \
    X(GLenum, glGetError, (void), ())                                                            \
    X(void, glFlush, (void), ())                                                                 \
    X(void, glFinish, (void), ())

// The table: one pointer per entry, named q + the GL name (qglBegin, qglTexImage2D, ...).
#define QGL_DECLARE(ret, name, params, args) extern ret(APIENTRY* q##name) params;
QGL_FUNCS(QGL_DECLARE)
#undef QGL_DECLARE

// The multitexture extension's unit selector; looked up on its own, may stay null.
extern void(APIENTRY* qglActiveTextureARB)(GLenum unit);

using QglGetProc = void* (*)(const char* name);

// Fills every entry of the table from `get` (for instance the platform's GL address look-up).
// Returns the number of entries `get` could not supply; those stay null and are listed by
// qgl_missing.
int qgl_load(QglGetProc get);
// The i-th entry missing at the last qgl_load (0-based), or null past the end.
const char* qgl_missing(int i);
// Looks up glActiveTextureARB with `get`; the result is kept as it comes, null included.
void qgl_load_multitexture(QglGetProc get);
// Empties the table (every entry null, the multitexture entry too).
void qgl_reset();
