// Display modes, the borderless window and its OpenGL context with SDL2.
#include <SDL.h>

#include <cstdio>

#include "platform/platform.h"
#include "platform/sdl/sdl_video.h"

static SDL_Window* window = nullptr;
static SDL_GLContext context = nullptr;
static bool mode_pending = false;  // a switch was asked for and is made with the window
static SDL_DisplayMode pending_mode{};
static int depth_asked = 32;  // the depth buffer the window was created for

bool sdl_video_up() {
    if (SDL_WasInit(SDL_INIT_VIDEO)) return true;
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) {
        fprintf(stderr, "SDL video: %s\n", SDL_GetError());
        return false;
    }
    return true;
}

SDL_Window* sdl_window() { return window; }

bool plat_display_present() {
    if (!sdl_video_up()) return false;
    const char* driver = SDL_GetCurrentVideoDriver();
    bool offscreen = !driver || SDL_strcmp(driver, "offscreen") == 0 || SDL_strcmp(driver, "dummy") == 0;
    const char* asked = SDL_getenv("VOCALOG_OFFSCREEN");
    return !offscreen || (asked && SDL_strcmp(asked, "1") == 0);
}

int32_t sdl_mode_bits(uint32_t format) {
    int32_t bytes = SDL_BYTESPERPIXEL(format);
    return SDL_ISPIXELFORMAT_FOURCC(format) || bytes == 0 ? (int32_t)SDL_BITSPERPIXEL(format) : bytes * 8;
}

bool plat_display_mode(int32_t index, PlatDisplayMode* mode) {
    if (!sdl_video_up() || index < 0 || index >= SDL_GetNumDisplayModes(0)) return false;
    SDL_DisplayMode m{};
    if (SDL_GetDisplayMode(0, index, &m) != 0) return false;
    int bits = sdl_mode_bits(m.format);
    mode->fields = (m.w > 0 ? PLAT_MODE_WIDTH : 0u) | (m.h > 0 ? PLAT_MODE_HEIGHT : 0u) |
                   (bits > 0 ? PLAT_MODE_BITS : 0u);
    mode->width = m.w;
    mode->height = m.h;
    mode->bits = bits;
    mode->refresh_hz = m.refresh_rate;
    return true;
}

// SDL changes the display mode only for a full-screen window, so the switch is kept and
// made when the window exists.
bool plat_display_switch(const PlatDisplayMode* mode) {
    if (!sdl_video_up()) return false;
    for (int i = 0, n = SDL_GetNumDisplayModes(0); i < n; ++i) {
        SDL_DisplayMode m{};
        if (SDL_GetDisplayMode(0, i, &m) != 0) continue;
        if (m.w == mode->width && m.h == mode->height && sdl_mode_bits(m.format) == mode->bits &&
            (mode->refresh_hz == 0 || m.refresh_rate == mode->refresh_hz)) {
            pending_mode = m;
            mode_pending = true;
            if (window) {
                if (SDL_SetWindowDisplayMode(window, &pending_mode) != 0 ||
                    SDL_SetWindowFullscreen(window, SDL_WINDOW_FULLSCREEN) != 0)
                    return false;
            }
            return true;
        }
    }
    return false;
}

void plat_display_restore() {
    if (window && mode_pending) SDL_SetWindowFullscreen(window, 0);
    mode_pending = false;
}

static void queue_message(uint32_t message) {
    PlatMessage msg{message, 0, 0, 0};
    plat_post_message(msg);
}

bool plat_window_create(int32_t width, int32_t height, int32_t colour_bits) {
    if (window || !sdl_video_up()) return window != nullptr;
    if (width <= 0 || height <= 0) return false;
    int channel = colour_bits >= 24 ? 8 : 5;
    SDL_GL_ResetAttributes();
    SDL_GL_SetAttribute(SDL_GL_RED_SIZE, channel);
    SDL_GL_SetAttribute(SDL_GL_GREEN_SIZE, colour_bits >= 24 ? 8 : 6);
    SDL_GL_SetAttribute(SDL_GL_BLUE_SIZE, channel);
    SDL_GL_SetAttribute(SDL_GL_ALPHA_SIZE, 0);
    SDL_GL_SetAttribute(SDL_GL_STENCIL_SIZE, 0);
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_COMPATIBILITY);
    // 32 depth bits asked for first; the nearest smaller depth the system accepts is taken.
    static const int depths[] = {32, 24, 16};
    for (int depth : depths) {
        SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, depth);
        window = SDL_CreateWindow("Corvane", 0, 0, width, height,
                                  SDL_WINDOW_OPENGL | SDL_WINDOW_BORDERLESS | SDL_WINDOW_HIDDEN);
        depth_asked = depth;
        if (window) break;
    }
    if (!window) {
        fprintf(stderr, "SDL window: %s\n", SDL_GetError());
        return false;
    }
    if (mode_pending && (SDL_SetWindowDisplayMode(window, &pending_mode) != 0 ||
                         SDL_SetWindowFullscreen(window, SDL_WINDOW_FULLSCREEN) != 0)) {
        fprintf(stderr, "SDL display mode: %s\n", SDL_GetError());
        SDL_DestroyWindow(window);
        window = nullptr;
        return false;
    }
    queue_message(PLAT_MSG_CREATE);
    return true;
}

void plat_window_show() {
    if (!window) return;
    SDL_ShowWindow(window);
    queue_message(PLAT_MSG_PAINT);  // a newly shown window must be drawn, exposed or not
}

bool plat_gl_create_context() {
    if (!window) return false;
    if (context) return plat_gl_make_current();
    for (int d = depth_asked; !context && d >= 16; d -= 8) {
        SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, d);
        context = SDL_GL_CreateContext(window);  // also makes it current
    }
    if (!context) {
        fprintf(stderr, "SDL GL context: %s\n", SDL_GetError());
        return false;
    }
    return plat_gl_make_current();
}

bool plat_gl_make_current() { return window && context && SDL_GL_MakeCurrent(window, context) == 0; }

bool plat_window_open(int32_t width, int32_t height, int32_t colour_bits) {
    if (!plat_window_create(width, height, colour_bits)) return false;
    plat_window_show();
    if (plat_gl_create_context()) return true;
    plat_window_close();
    return false;
}

void plat_window_close() {
    if (context) {
        SDL_GL_MakeCurrent(window, nullptr);
        SDL_GL_DeleteContext(context);
        context = nullptr;
    }
    if (window) {
        SDL_DestroyWindow(window);
        window = nullptr;
    }
    mode_pending = false;
}

bool plat_window_is_open() { return window != nullptr; }
void* plat_window_handle() { return window; }

void plat_window_size(int32_t* width, int32_t* height) {
    int w = 0, h = 0;
    if (window) SDL_GL_GetDrawableSize(window, &w, &h);
    *width = w;
    *height = h;
}

void* plat_gl_proc(const char* name) { return context ? SDL_GL_GetProcAddress(name) : nullptr; }

void plat_gl_swap() {
    if (window) SDL_GL_SwapWindow(window);
}

bool plat_gl_swap_interval(int32_t interval) { return context && SDL_GL_SetSwapInterval(interval) == 0; }

void plat_gl_buffer_bits(int32_t* colour_bits, int32_t* depth_bits) {
    int r = 0, g = 0, b = 0, d = 0;
    if (context) {
        SDL_GL_GetAttribute(SDL_GL_RED_SIZE, &r);
        SDL_GL_GetAttribute(SDL_GL_GREEN_SIZE, &g);
        SDL_GL_GetAttribute(SDL_GL_BLUE_SIZE, &b);
        SDL_GL_GetAttribute(SDL_GL_DEPTH_SIZE, &d);
    }
    *colour_bits = r + g + b;
    *depth_bits = d;
}
