// Speaking the briefing aloud: synthesised ahead on a worker thread, played as it is made.
#pragma once
#include <cstdint>

enum : int32_t { SPEAK_STOPPED = 0, SPEAK_STARTED = 1, SPEAK_FAILED = 2 };

// Composes the briefing the way the screen's button does (installed by the program).
using BriefComposeFn = void (*)();

// The "speak the briefing" command. While the briefing is being spoken it stops it
// (SPEAK_STOPPED). Otherwise, when no briefing is shown yet (the introduction is empty), it
// composes one through `compose` (may be null), then starts speaking the four paragraphs
// shown and returns at once (SPEAK_STARTED), or shows a note alert and returns SPEAK_FAILED.
int32_t brief_speak_toggle(BriefComposeFn compose);

// Starts speaking the four paragraphs of brief_req, stopping any speech first. False, after
// a note alert, when there is no speech engine or no audio output.
bool brief_speak_start();
bool brief_speak_busy();        // synthesising or playing
int32_t brief_speak_position(); // samples played so far
void brief_speak_wait();        // returns once the whole briefing has been played
void brief_speak_stop();        // stops at once; nothing when silent (also a shut-down step)
