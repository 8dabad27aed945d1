// The briefing's sound: the four paragraphs' spoken text synthesised into one track.
#include "briefing/speech.h"

#include <cstring>

#include "briefing/request.h"
#include "platform/platform.h"

SpeechTrack brief_track;

void brief_track_reset() {
    SpeechTrack& t = brief_track;
    const char* const paragraphs[4] = {brief_req.intro, brief_req.dep_wx, brief_req.enroute_wx, brief_req.dest_wx};
    for (int k = 0; k < 4; ++k) brief_spoken_text(paragraphs[k], t.script[k], SPEECH_TEXT_SIZE);
    t.made = 0;
    t.played = 0;
    t.stop = false;
    t.rate = 0;
    t.cut = false;
}

// Appends samples; false stops the synthesis (asked to stop, or the track is full).
static bool append(const int16_t* samples, int32_t count, void* ctx) {
    (void)ctx;
    SpeechTrack& t = brief_track;
    if (t.stop.load(std::memory_order_relaxed)) return false;
    int32_t made = t.made.load(std::memory_order_relaxed);
    if (count > SPEECH_SAMPLES_MAX - made) {
        count = SPEECH_SAMPLES_MAX - made;
        t.cut = true;
    }
    if (samples) memcpy(t.samples + made, samples, (size_t)count * sizeof *samples);
    else memset(t.samples + made, 0, (size_t)count * sizeof *samples);
    t.made.store(made + count, std::memory_order_release);
    return !t.cut;
}

bool brief_synthesise() {
    SpeechTrack& t = brief_track;
    if (!plat_speech_open()) return false;
    t.rate = plat_speech_rate();
    for (const char* text : t.script) {
        if (!text[0]) continue;
        if (!plat_speech_say(text, append, nullptr) || !append(nullptr, t.rate * SPEECH_GAP_MS / 1000, nullptr))
            return false;
    }
    return true;
}
