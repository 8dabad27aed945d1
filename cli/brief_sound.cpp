// vocalog-brief's spoken forms of the briefing: its spoken text, a WAV file, the loudspeaker.
#include "cli/brief_sound.h"

#include <cstdio>

#include "briefing/speaker.h"
#include "briefing/speech.h"
#include "platform/platform.h"
#include "util/wav_file.h"

int brief_sound(bool say_text, const char* wav, bool speak) {
    SpeechTrack& t = brief_track;
    brief_track_reset();
    if (say_text)
        for (const char* text : t.script) printf("%s\n\n", text);
    fflush(stdout);
    if (wav) {
        if (!brief_synthesise()) {
            fprintf(stderr, "vocalog-brief: cannot make the briefing into sound: %s\n", plat_speech_error());
            return 3;
        }
        if (t.cut) fprintf(stderr, "vocalog-brief: warning: the sound is cut after %d samples\n", (int)t.made);
        if (!wav_write(wav, t.samples, t.made, t.rate)) {
            fprintf(stderr, "vocalog-brief: cannot write '%s'\n", wav);
            return 3;
        }
    }
    if (speak) {
        if (!brief_speak_start()) return 3;  // the alert has said why
        brief_speak_wait();
    }
    return 0;
}
