// The airport table itself: reset, airport positions and the lookup of an airport by code.
#include "briefing/airports.h"

#include <cstring>

#include "briefing/airport_index.h"
#include "platform/platform.h"

alignas(PLAT_LARGE_PAGE) AirportTable apt_table;  // aligned for large pages (apt_scan)

// Entries at or past these may have been written since the last reset; all later ones are zero.
static int32_t used_airports = 0, used_runways = 0;

void apt_note_used() {
    if (apt_table.airport_count + 1 > used_airports) used_airports = apt_table.airport_count + 1;
    if (apt_table.runway_count + 1 > used_runways) used_runways = apt_table.runway_count + 1;
}

// Zero-fills entries [0, n) of one table column.
template <typename T, size_t N>
static void clear(T (&column)[N], int32_t n) {
    memset(column, 0, sizeof(T) * (size_t)(n < (int32_t)N ? n : (int32_t)N));
}

void apt_reset() {
    apt_note_used();
    AirportTable& t = apt_table;
    const int32_t a = used_airports, r = used_runways;
    clear(t.apt_elev, a), clear(t.apt_tower, a), clear(t.apt_bldg, a), clear(t.apt_code, a), clear(t.apt_name, a);
    clear(t.apt_first_rwy, a), clear(t.apt_last_rwy, a), clear(t.twr_lat, a), clear(t.twr_lon, a);
    clear(t.twr_hgt, a), clear(t.start_lat, a), clear(t.start_lon, a), clear(t.start_hdg, a);
    clear(t.rwy_lat, r), clear(t.rwy_lon, r), clear(t.rwy_num, r), clear(t.rwy_hdg, r), clear(t.rwy_len, r);
    clear(t.rwy_ovr1, r), clear(t.rwy_ovr2, r), clear(t.rwy_width, r), clear(t.rwy_code, r);
    used_airports = used_runways = 0;
    t.airport_count = -1;
    t.runway_count = -1;
    apt_index_invalidate();
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
