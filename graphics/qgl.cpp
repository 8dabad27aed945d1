// The GL entry-point table and its loader.
#include "graphics/qgl.h"

#define QGL_DEFINE(ret, name, params, args) ret(APIENTRY* q##name) params = nullptr;
QGL_FUNCS(QGL_DEFINE)
#undef QGL_DEFINE

void(APIENTRY* qglActiveTextureARB)(GLenum unit) = nullptr;

#define QGL_COUNT_ONE(ret, name, params, args) +1
static constexpr int QGL_N = 0 QGL_FUNCS(QGL_COUNT_ONE);
#undef QGL_COUNT_ONE

static const char* missing[QGL_N];
static int missing_count = 0;

const char* qgl_missing(int i) { return i >= 0 && i < missing_count ? missing[i] : nullptr; }

int qgl_load(QglGetProc get) {
    missing_count = 0;
#define QGL_FILL(ret, name, params, args)                                 \
    q##name = reinterpret_cast<ret(APIENTRY*) params>(get(#name));        \
    if (!q##name) missing[missing_count++] = #name;
    QGL_FUNCS(QGL_FILL)
#undef QGL_FILL
    return missing_count;
}

void qgl_load_multitexture(QglGetProc get) {
    qglActiveTextureARB = reinterpret_cast<void(APIENTRY*)(GLenum)>(get("glActiveTextureARB"));
}

void qgl_reset() {
#define QGL_CLEAR(ret, name, params, args) q##name = nullptr;
    QGL_FUNCS(QGL_CLEAR)
#undef QGL_CLEAR
    qglActiveTextureARB = nullptr;
    missing_count = 0;
}
