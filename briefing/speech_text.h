// The text a speech engine says for a written briefing paragraph.
#pragma once
#include <cstdint>

// Room for the spoken text of any paragraph (at most 499 written characters).
constexpr int32_t SPEECH_TEXT_SIZE = 8192;

// Writes into `out` (size bytes) what a briefer on the telephone says for `paragraph`:
// times, altimeter settings, altitudes, cloud heights, winds, temperatures, registrations
// and every other number in words, the wording's fixed quirks smoothed over. The written
// paragraph is left as it is. False when the text had to be cut to fit.
bool brief_spoken_text(const char* paragraph, char* out, int32_t size);
