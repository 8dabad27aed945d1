// Speech synthesis through libespeak-ng, loaded at run time so the program runs without it.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/stat.h>

#include "platform/platform.h"

static char error_text[1024] = "";
static int32_t sample_rate = 0;

#if __has_include(<espeak-ng/speak_lib.h>)
#include <dlfcn.h>
#include <espeak-ng/espeak_ng.h>
#include <espeak-ng/speak_lib.h>

#ifndef VOCALOG_ESPEAK_LIBRARY
#define VOCALOG_ESPEAK_LIBRARY "libespeak-ng.so.1"
#endif

static const char* const voice_name = "en-us";
static const int32_t words_a_minute = 165;
static const int32_t buffer_ms = 50;  // sound handed out at a time while synthesising

// The entry points, looked up by name.
static struct {
    decltype(&espeak_ng_InitializePath) initialize_path;
    decltype(&espeak_ng_Initialize) initialize;
    decltype(&espeak_ng_InitializeOutput) initialize_output;
    decltype(&espeak_ng_GetSampleRate) get_sample_rate;
    decltype(&espeak_ng_SetVoiceByName) set_voice;
    decltype(&espeak_ng_SetParameter) set_parameter;
    decltype(&espeak_ng_GetStatusCodeMessage) status_message;
    decltype(&espeak_ng_ClearErrorContext) clear_error_context;
    decltype(&espeak_SetSynthCallback) set_callback;
    decltype(&espeak_ng_Synthesize) synthesize;
} es;

static const struct { const char* name; void** slot; } entries[] = {
    {"espeak_ng_InitializePath", (void**)&es.initialize_path},
    {"espeak_ng_Initialize", (void**)&es.initialize},
    {"espeak_ng_InitializeOutput", (void**)&es.initialize_output},
    {"espeak_ng_GetSampleRate", (void**)&es.get_sample_rate},
    {"espeak_ng_SetVoiceByName", (void**)&es.set_voice},
    {"espeak_ng_SetParameter", (void**)&es.set_parameter},
    {"espeak_ng_GetStatusCodeMessage", (void**)&es.status_message},
    {"espeak_ng_ClearErrorContext", (void**)&es.clear_error_context},
    {"espeak_SetSynthCallback", (void**)&es.set_callback},
    {"espeak_ng_Synthesize", (void**)&es.synthesize},
};

static PlatSpeechSinkFn sink_fn = nullptr;
static void* sink_ctx = nullptr;

static int on_samples(short* samples, int count, espeak_EVENT* events) {
    (void)events;
    if (!samples || count <= 0) return 0;
    return sink_fn(samples, count, sink_ctx) ? 0 : 1;  // 1 stops the synthesis
}

static bool is_folder(const char* path) {
    struct stat st{};
    return stat(path, &st) == 0 && S_ISDIR(st.st_mode);
}

static bool fail_status(const char* what, espeak_ng_STATUS status) {
    char message[200];
    es.status_message(status, message, sizeof message);
    snprintf(error_text, sizeof error_text, "%s: %s", what, message);
    return false;
}

// A data path the user named that holds no voice data is reported, not passed over for
// the library's built-in one.
static bool check_data_path(const char* path) {
    char data[1024];
    snprintf(data, sizeof data, "%s/espeak-ng-data", path);
    if (is_folder(data) || is_folder(path)) return true;
    snprintf(error_text, sizeof error_text, "no speech voice data: ESPEAK_DATA_PATH '%s' is not a folder", path);
    return false;
}

static bool open_engine() {
    void* lib = dlopen(VOCALOG_ESPEAK_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    if (!lib) {
        snprintf(error_text, sizeof error_text, "the speech library %s is not installed (Debian: libespeak-ng1)",
                 VOCALOG_ESPEAK_LIBRARY);
        return false;
    }
    for (const auto& e : entries) {
        *e.slot = dlsym(lib, e.name);
        if (!*e.slot) {
            snprintf(error_text, sizeof error_text, "the speech library %s lacks %s", VOCALOG_ESPEAK_LIBRARY, e.name);
            return false;
        }
    }
    const char* path = getenv("ESPEAK_DATA_PATH");
    if (path && !path[0]) path = nullptr;
    if (path && !check_data_path(path)) return false;
    es.initialize_path(path);
    espeak_ng_ERROR_CONTEXT context = nullptr;
    espeak_ng_STATUS status = es.initialize(&context);
    es.clear_error_context(&context);
    if (status != ENS_OK) {
        char what[700];
        snprintf(what, sizeof what, path ? "no speech voice data in ESPEAK_DATA_PATH '%s'" : "no speech voice data%s",
                 path ? path : " (Debian: espeak-ng-data)");
        return fail_status(what, status);
    }
    status = es.initialize_output(ENOUTPUT_MODE_SYNCHRONOUS, buffer_ms, nullptr);
    if (status != ENS_OK) return fail_status("the speech engine cannot start", status);
    status = es.set_voice(voice_name);
    if (status != ENS_OK) return fail_status("no English speech voice (Debian: espeak-ng-data)", status);
    es.set_parameter(espeakRATE, words_a_minute, 0);
    es.set_callback(on_samples);
    sample_rate = es.get_sample_rate();
    return sample_rate > 0;
}

bool plat_speech_open() {
    static int state = 0;  // 0 not tried, 1 open, -1 failed
    if (state == 0) state = open_engine() ? 1 : -1;
    return state == 1;
}

bool plat_speech_say(const char* text, PlatSpeechSinkFn sink, void* ctx) {
    if (!plat_speech_open()) return false;
    sink_fn = sink;
    sink_ctx = ctx;
    espeak_ng_STATUS status = es.synthesize(text, strlen(text) + 1, 0, POS_CHARACTER, 0,
                                            espeakCHARS_AUTO | espeakENDPAUSE, nullptr, nullptr);
    sink_fn = nullptr;
    if (status != ENS_OK && status != ENS_SPEECH_STOPPED) fail_status("speech synthesis failed", status);
    return status == ENS_OK;
}

#else  // built without the speech library's header

bool plat_speech_open() {
    snprintf(error_text, sizeof error_text, "this build has no speech (Debian: libespeak-ng-dev)");
    return false;
}

bool plat_speech_say(const char*, PlatSpeechSinkFn, void*) { return plat_speech_open(); }

#endif

const char* plat_speech_error() { return error_text; }
int32_t plat_speech_rate() { return sample_rate; }
