// The windowless layer's audio output: there is none.
#include "platform/platform.h"

bool plat_audio_open(int32_t, PlatAudioPullFn, void*) { return false; }
const char* plat_audio_error() { return "this build has no audio output"; }
void plat_audio_close() {}
