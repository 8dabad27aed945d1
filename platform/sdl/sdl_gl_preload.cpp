// Loads the GL driver's libraries on a worker while SDL connects to the display.
//
// The first GL window loads libGL, Mesa's GLX vendor library and its DRI driver: 25 MB that
// link LLVM, whose mapping and relocation take 12 to 15 ms of the window's 30 ms set-up here.
// Loaded on a worker while the main thread is in SDL's display connection and keyboard set-up,
// that work overlaps it, and the window later finds the libraries in place. Nothing depends on
// it: when a library is missing or another vendor's, SDL loads what the system has, as it would
// anyway. The handles stay open for the life of the process.
#include <dlfcn.h>
#include <link.h>
#include <unistd.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>

#include "platform/sdl/sdl_video.h"

// Mesa builds its gallium DRI drivers as one library linked under every driver's name, and the
// loader identifies a library by its file, so loading the software driver's name loads whichever
// driver the display will pick. Where the names are separate files, this is the software
// renderer, the one a machine without a GPU driver uses.
static void load_driver(void* vendor) {
    char dir[PATH_MAX] = "";
    const char* listed = getenv("LIBGL_DRIVERS_PATH");  // the loader's own override, first entry
    if (listed && *listed) {
        snprintf(dir, sizeof dir, "%.*s", (int)strcspn(listed, ":"), listed);
    } else {
        char origin[PATH_MAX];
        if (dlinfo(vendor, RTLD_DI_ORIGIN, origin) != 0) return;
        snprintf(dir, sizeof dir, "%.*s/dri", PATH_MAX - 8, origin);
    }
    char path[PATH_MAX + 32];
    snprintf(path, sizeof path, "%s/swrast_dri.so", dir);
    dlopen(path, RTLD_NOW | RTLD_LOCAL);
}

// Whether Mesa will draw: not where GLVND's vendor override names another vendor, nor where
// NVIDIA's kernel driver is loaded (NVIDIA's own GL library draws there). Otherwise only libGL
// is loaded ahead.
static bool mesa_draws() {
    const char* vendor = getenv("__GLX_VENDOR_LIBRARY_NAME");
    if (vendor && *vendor && strcmp(vendor, "mesa") != 0) return false;
    return access("/proc/driver/nvidia/version", F_OK) != 0;
}

static void preload() {
    const char* gl = getenv("SDL_OPENGL_LIBRARY");  // SDL's own choice of GL library
    if (!dlopen(gl && *gl ? gl : "libGL.so.1", RTLD_NOW | RTLD_LOCAL) || !mesa_draws()) return;
    if (void* vendor = dlopen("libGLX_mesa.so.0", RTLD_NOW | RTLD_LOCAL)) load_driver(vendor);
}

// Only for an X11 display, where the window's GL comes through GLX.
void sdl_gl_preload_start() {
    const char* display = getenv("DISPLAY");
    const char* driver = getenv("SDL_VIDEODRIVER");
    if (!display || !*display || (driver && *driver && strcmp(driver, "x11") != 0)) return;
    std::thread(preload).detach();  // the process may end before it does: exit waits for the loader
}
