// Puts the weather of one place into the spoken sentences of a briefing paragraph.
#pragma once
#include <cstdint>

// Adds 0.5 to a value of 0 or more, subtracts 0.5 from a negative one, then cuts toward
// zero. The result is a whole number (kept as a double: some callers exceed 32 bits).
double round_half_away(double v);

enum : int32_t { PLACE_DEPARTURE = 0, PLACE_MIDPOINT = 1, PLACE_DESTINATION = 2 };

// Looks up the weather nearest to (lat, lon) and appends the paragraph's sentences to
// `paragraph`, which already holds its opening words. The report time is phrased from
// its seconds and left as decoded.
void wx_phrase_place(float lat, float lon, char* paragraph, int32_t place_kind);
