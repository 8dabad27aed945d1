// Composes the four paragraphs of a briefing from the pilot's request.
#pragma once
#include <cstdint>

// Writes the introduction and the departure, enroute and destination weather paragraphs
// of `brief_req`. The weather paragraphs are composed first: the introduction's departure
// time comes from this briefing's departure report (brief_departure_hhmm).
void brief_compose();

// The estimated time of departure as hours x 100 + minutes: the departure report's time
// (seconds after midnight) plus 30 minutes, past midnight wrapping to the next day. A report
// without a time (NaN) takes the current time of day in UTC instead, plus the same 30 minutes.
int32_t brief_departure_hhmm(float report_secs);
// The UTC time of day (hours x 100 + minutes) that stands for the current time from now on,
// so that a briefing can be repeated exactly; -1 goes back to the system clock.
void brief_set_clock(int32_t hhmm);
