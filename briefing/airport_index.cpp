// Index from a 4-character airport code to the airports that carry it, in table order.
// Open addressing over fixed arrays, one 16-byte slot per distinct code holding its first
// airport and that airport's position, so that a weather report costs one slot visit;
// further airports of the same code are linked in table order.
#include "briefing/airport_index.h"

#include <cstring>

#include "briefing/airports.h"

constexpr uint32_t IDX_BITS = 15;
constexpr uint32_t IDX_SLOTS = 1u << IDX_BITS;  // at most two thirds full at the table's limit
constexpr uint32_t IDX_MASK = IDX_SLOTS - 1;

struct Slot {
    uint32_t key;
    int32_t head;  // first airport of the code; -1: slot empty
    float lat, lon;
};

static Slot slots[IDX_SLOTS];
static int32_t slot_tail[IDX_SLOTS];  // last airport linked so far, while building
static uint32_t air_key[APT_MAX];     // each airport's key and position at the last build
static float air_lat[APT_MAX], air_lon[APT_MAX];
static int32_t air_next[APT_MAX];
static int32_t indexed_count = -2;    // airport count at the last build; -2: never built

uint32_t apt_code_key(const char* code) {
    unsigned char b[4];
    memcpy(b, code, 4);
    if (!b[0]) b[1] = 0;
    if (!b[1]) b[2] = 0;
    if (!b[2]) b[3] = 0;
    return (uint32_t)b[0] | (uint32_t)b[1] << 8 | (uint32_t)b[2] << 16 | (uint32_t)b[3] << 24;
}

static uint32_t slot_of(uint32_t key) {
    uint32_t s = (key * 2654435761u) >> (32 - IDX_BITS);
    while (slots[s].head >= 0 && slots[s].key != key) s = (s + 1) & IDX_MASK;
    return s;
}

static int32_t table_last() {
    int32_t n = apt_table.airport_count;
    return n < APT_MAX ? n : APT_MAX - 1;
}

void apt_build_index() {
    for (Slot& s : slots) s.head = -1;
    int32_t last = table_last();
    for (int32_t i = 0; i <= last; ++i) {
        uint32_t key = apt_code_key(apt_table.apt_code[i]);
        air_key[i] = key;
        air_lat[i] = apt_lat(i);
        air_lon[i] = apt_lon(i);
        air_next[i] = -1;
        uint32_t s = slot_of(key);
        if (slots[s].head < 0) slots[s] = Slot{key, i, air_lat[i], air_lon[i]};
        else air_next[slot_tail[s]] = i;
        slot_tail[s] = i;
    }
    indexed_count = apt_table.airport_count;
}

static uint32_t bits(float f) {
    uint32_t u;
    memcpy(&u, &f, 4);
    return u;
}

void apt_index_ensure() {
    bool stale = indexed_count != apt_table.airport_count;
    if (!stale) {
        int32_t last = table_last();
        uint32_t differ = 0;
        for (int32_t i = 0; i <= last; ++i)
            differ |= (apt_code_key(apt_table.apt_code[i]) ^ air_key[i]) | (bits(apt_lat(i)) ^ bits(air_lat[i])) |
                      (bits(apt_lon(i)) ^ bits(air_lon[i]));
        stale = differ != 0;
    }
    if (stale) apt_build_index();
}

AptMatch apt_index_find(uint32_t key) {
    const Slot& s = slots[slot_of(key)];
    return AptMatch{s.head, s.lat, s.lon};
}

AptMatch apt_index_next(int32_t airport) {
    int32_t n = air_next[airport];
    return n < 0 ? AptMatch{-1, 0, 0} : AptMatch{n, air_lat[n], air_lon[n]};
}

int32_t apt_index_first(const char* code) {
    apt_index_ensure();
    return apt_index_find(apt_code_key(code)).airport;
}
