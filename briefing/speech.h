// The briefing's sound: the four paragraphs' spoken text synthesised into one track.
#pragma once
#include <atomic>
#include <cstdint>

#include "briefing/speech_text.h"

constexpr int32_t SPEECH_SAMPLES_MAX = 8 * 1024 * 1024;  // six minutes at 22050 a second
constexpr int32_t SPEECH_GAP_MS = 400;                   // silence after each paragraph

struct SpeechTrack {
    char script[4][SPEECH_TEXT_SIZE];  // what is said: the spoken text of the four paragraphs
    int16_t samples[SPEECH_SAMPLES_MAX];
    std::atomic<int32_t> made;    // samples synthesised; they are written before the count grows
    std::atomic<int32_t> played;  // samples handed to the audio output
    std::atomic<bool> stop;       // asks a running synthesis to end
    int32_t rate;                 // samples a second; 0 until synthesised
    bool cut;                     // the briefing was longer than the track holds
};
extern SpeechTrack brief_track;

// Empties the track and writes its script from the four paragraphs of brief_req (the
// synthesis reads only the script, so the paragraphs may change while it runs).
void brief_track_reset();
// Synthesises the script into the track, each paragraph followed by a gap; may run on any
// thread. False when the speech engine is missing (plat_speech_error() says why), failed, or
// was stopped; the samples made so far stay.
bool brief_synthesise();
