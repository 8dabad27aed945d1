// Audio output with SDL2: the default device pulls mono 16-bit samples from a callback.
#include <SDL.h>

#include <cstdio>

#include "platform/platform.h"

static const int device_samples = 512;  // samples per pull: about 23 ms at 22050 a second

static SDL_AudioDeviceID device = 0;
static PlatAudioPullFn pull_fn = nullptr;
static void* pull_ctx = nullptr;
static char error_text[300] = "";

static void SDLCALL feed(void* userdata, Uint8* stream, int bytes) {
    (void)userdata;
    pull_fn((int16_t*)stream, bytes / 2, pull_ctx);
}

// The subsystem stays up once an output opened: the next open is quicker, and SDL_Quit ends it.
bool plat_audio_open(int32_t rate, PlatAudioPullFn pull, void* ctx) {
    plat_audio_close();
    if (!SDL_WasInit(SDL_INIT_AUDIO) && SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
        snprintf(error_text, sizeof error_text, "no audio output: %s", SDL_GetError());
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
    device = SDL_OpenAudioDevice(nullptr, 0, &want, nullptr, 0);  // SDL converts to the device's own format
    if (!device) {
        snprintf(error_text, sizeof error_text, "no audio output: %s", SDL_GetError());
        SDL_QuitSubSystem(SDL_INIT_AUDIO);  // a later open looks for an output afresh
        return false;
    }
    SDL_PauseAudioDevice(device, 0);
    return true;
}

const char* plat_audio_error() { return error_text; }

void plat_audio_close() {
    if (device) SDL_CloseAudioDevice(device);
    device = 0;
}
