// Index from a 4-character airport code to the airports that carry it, in table order.
#pragma once
#include <cmath>
#include <cstdint>

// The code's first 4 bytes as one number; bytes after the first zero byte count as zero,
// so two codes have the same key exactly when their first 4 characters compare equal.
uint32_t apt_code_key(const char* code);

// Straight-line distance in degrees between two positions, in single precision; the one
// formula behind apt_distance and the index's cached positions.
inline float apt_distance_between(float apt_lat, float apt_lon, float lat, float lon) {
    float dlat = lat - apt_lat;
    float dlon = lon - apt_lon;
    return std::sqrt(dlat * dlat + dlon * dlon);
}

// Builds the index over airports 0 to airport count of apt_table, keeping each airport's
// position. The scan calls it at its end; apt_index_ensure rebuilds it when the table was
// reset (or filled by hand after a reset) or its airport count changed since. A table changed
// by hand in place (a code or a position) needs apt_index_invalidate first.
void apt_build_index();
void apt_index_ensure();
void apt_index_invalidate();

// A visit of the airports with one code, lowest index first; the index must be current.
struct AptMatch {
    int32_t airport;  // -1: no more
    float lat, lon;   // its position when the index was built
};
AptMatch apt_index_find(uint32_t key);
AptMatch apt_index_next(int32_t airport);

// apt_index_ensure, then the first airport whose code equals `code` over 4 characters, or -1.
int32_t apt_index_first(const char* code);
