// Audio output with SDL2: the default device pulls mono 16-bit samples from a callback.
// Built twice: linked to SDL (the windowed program), or with VOCALOG_SDL_AUDIO_LOADED opening
// SDL only when a sound is first played (vocalog-brief, which then starts without loading
// SDL and the fifty libraries behind it).
#include <SDL.h>

#include <cstdio>

#include "platform/platform.h"

#ifdef VOCALOG_SDL_AUDIO_LOADED
#include <dlfcn.h>
#endif

// The SDL calls this file makes.
#define SDL_AUDIO_CALLS(X) \
    X(SDL_WasInit)         \
    X(SDL_InitSubSystem)   \
    X(SDL_QuitSubSystem)   \
    X(SDL_GetError)        \
    X(SDL_OpenAudioDevice) \
    X(SDL_PauseAudioDevice) \
    X(SDL_CloseAudioDevice)

struct SdlCalls {
#define SLOT(name) decltype(&::name) name;
    SDL_AUDIO_CALLS(SLOT)
#undef SLOT
};
#ifdef VOCALOG_SDL_AUDIO_LOADED
static SdlCalls sdl;  // filled when a sound is first played
#else
#define ADDRESS(name) &::name,
static const SdlCalls sdl = {SDL_AUDIO_CALLS(ADDRESS)};
#undef ADDRESS
#endif

static const int device_samples = 512;  // samples per pull: about 23 ms at 22050 a second

static SDL_AudioDeviceID device = 0;
static PlatAudioPullFn pull_fn = nullptr;
static void* pull_ctx = nullptr;
static char error_text[300] = "";

#ifdef VOCALOG_SDL_AUDIO_LOADED
static constexpr const char* SDL_LIBRARY = "libSDL2-2.0.so.0";

// Opens the library once; a failure is remembered in error_text and tried again next time.
static bool sdl_ready() {
    if (sdl.SDL_CloseAudioDevice) return true;
    void* lib = dlopen(SDL_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    if (!lib) {
        snprintf(error_text, sizeof error_text, "no audio output: %s is not installed (Debian: libsdl2-2.0-0)",
                 SDL_LIBRARY);
        return false;
    }
    SdlCalls found{};
#define FIND(name)                                                                                       \
    if (!(found.name = (decltype(&name))dlsym(lib, #name))) {                                            \
        snprintf(error_text, sizeof error_text, "no audio output: %s lacks %s", SDL_LIBRARY, #name);     \
        return false;                                                                                    \
    }
    SDL_AUDIO_CALLS(FIND)
#undef FIND
    sdl = found;
    return true;
}
#else
static bool sdl_ready() { return true; }
#endif

static void SDLCALL feed(void* userdata, Uint8* stream, int bytes) {
    (void)userdata;
    pull_fn((int16_t*)stream, bytes / 2, pull_ctx);
}

// The subsystem stays up once an output opened: the next open is quicker.
bool plat_audio_open(int32_t rate, PlatAudioPullFn pull, void* ctx) {
    plat_audio_close();
    if (!sdl_ready()) return false;
    if (!sdl.SDL_WasInit(SDL_INIT_AUDIO) && sdl.SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
        snprintf(error_text, sizeof error_text, "no audio output: %s", sdl.SDL_GetError());
        return false;
    }
    pull_fn = pull;
    pull_ctx = ctx;
    SDL_AudioSpec want{};
    want.freq = rate;
    want.format = AUDIO_S16SYS;
    want.channels = 1;
    want.samples = device_samples;
    want.callback = feed;
    device = sdl.SDL_OpenAudioDevice(nullptr, 0, &want, nullptr, 0);  // SDL converts to the device's own format
    if (!device) {
        snprintf(error_text, sizeof error_text, "no audio output: %s", sdl.SDL_GetError());
        sdl.SDL_QuitSubSystem(SDL_INIT_AUDIO);  // a later open looks for an output afresh
        return false;
    }
    sdl.SDL_PauseAudioDevice(device, 0);
    return true;
}

const char* plat_audio_error() { return error_text; }

void plat_audio_close() {
    if (device) sdl.SDL_CloseAudioDevice(device);
    device = 0;
}
