// The airport table itself: reset, airport positions and the lookup of an airport by code.
#include "briefing/airports.h"

#include <cstring>

#include "briefing/airport_index.h"

AirportTable apt_table;

void apt_reset() {
    memset(&apt_table, 0, sizeof apt_table);
    apt_table.airport_count = -1;
    apt_table.runway_count = -1;
}

// An airport's first runway index can lie one past the last runway read (an airport
// without runways at the end of the file); that entry is unfilled, so it reads as zero.
static int32_t first_runway(int32_t i) {
    if (i < 0 || i >= APT_MAX) return -1;
    int32_t r = apt_table.apt_first_rwy[i];
    return r >= 0 && r < RWY_MAX ? r : -1;
}

float apt_lat(int32_t i) {
    int32_t r = first_runway(i);
    return r < 0 ? 0.0f : apt_table.rwy_lat[r];
}

float apt_lon(int32_t i) {
    int32_t r = first_runway(i);
    return r < 0 ? 0.0f : apt_table.rwy_lon[r];
}

float apt_distance(int32_t i, float lat, float lon) { return apt_distance_between(apt_lat(i), apt_lon(i), lat, lon); }

int8_t apt_find_code(const char* code, int32_t kind, int32_t* index_out) {
    if (kind == 13) {
        *index_out = 0;
        return 1;
    }
    if (kind != 1) return 0;  // kind 11, and the navigation-aid kinds this program never loads

    // The code given, cut at its fourth and then its third character when that is a blank.
    char key[5] = {0, 0, 0, 0, 0};
    for (int k = 0; k < 4 && code[k]; ++k) key[k] = code[k];
    if (key[3] == ' ') key[3] = 0;
    if (key[2] == ' ') key[2] = 0;

    int8_t found = 0;
    float best = 999.9f;
    apt_index_ensure();
    for (AptMatch m = apt_index_find(apt_code_key(key)); m.airport >= 0; m = apt_index_next(m.airport)) {
        float d = apt_distance_between(m.lat, m.lon, 0.0f, 0.0f);
        if (d < best) {
            *index_out = m.airport;
            found = 1;
            best = d;
        }
    }
    return found;
}
