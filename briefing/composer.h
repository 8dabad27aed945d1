// Composes the four paragraphs of a briefing from the pilot's request.
#pragma once
#include <cstdint>

// Writes the introduction and the departure, enroute and destination weather paragraphs
// of `brief_req`. The weather paragraphs are composed first: the introduction's departure
// time is the departure report's time plus 30 minutes.
void brief_compose();

// The estimated time of departure as hours x 100 + minutes: the report time (seconds after
// midnight) plus 30 minutes, past midnight wrapping to the next day. A report time of 0 or
// less (none known) takes the current time of day in UTC instead.
int32_t brief_departure_hhmm(float report_secs);
