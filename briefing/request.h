// The pilot's request and the four paragraphs of the briefing, shared by the screen,
// the composer and the briefing file.
#pragma once
#include <cstdint>

#include "util/text.h"

struct BriefingRequest {
    Text aircraft_name;      // file name of the chosen aircraft ("untitled.acf" at start)
    Text aircraft_path;      // full path of the aircraft file; empty when none was chosen
    int32_t departure;       // airport index
    int32_t destination;     // airport index
    float altitude;          // cruise altitude, feet
    float speed;             // cruise speed estimate, knots
    char start_code[5];      // the simulator's start airport (simulator preferences only)
    Text intro;              // the four paragraphs
    Text dep_wx;
    Text enroute_wx;
    Text dest_wx;
    int32_t picker_focus;    // 0 departure picker, 1 destination picker
    int32_t search_field[2]; // each picker's active search field: 0 name, 1 code
    Text search_text[2];     // each picker's search text
};

extern BriefingRequest brief_req;

void brief_req_reset();  // every byte zero
