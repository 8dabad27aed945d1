// Index from a 4-character airport code to the airports that carry it, in table order.
// Open addressing over fixed arrays, one 16-byte slot per distinct code holding its first
// airport and that airport's position, so that a weather report costs one slot visit;
// further airports of the same code are linked in table order. The scan builds it once;
// lookups only check that the table has not been reset or grown since.
#include "briefing/airport_index.h"

#include <cstring>

#include "briefing/airports.h"
#include "platform/platform.h"

constexpr uint32_t IDX_MAX_BITS = 15;  // at most two thirds full at the table's limit
constexpr uint32_t IDX_MIN_BITS = 8;

struct Slot {
    uint32_t key;
    int32_t head;  // first airport of the code; -1: slot empty
    float lat, lon;
};

// Only the first 2^idx_bits slots are in use: about one and a half per airport, so a small
// list touches a small part of the tables; a big one has them on one large page.
struct alignas(PLAT_LARGE_PAGE) IndexTables {
    Slot slots[1u << IDX_MAX_BITS];
    int32_t slot_tail[1u << IDX_MAX_BITS];  // last airport linked so far, while building
    float air_lat[APT_MAX], air_lon[APT_MAX];  // each airport's position at the build
    int32_t air_next[APT_MAX];
};
static IndexTables idx;
static Slot (&slots)[1u << IDX_MAX_BITS] = idx.slots;
static int32_t (&slot_tail)[1u << IDX_MAX_BITS] = idx.slot_tail;
static float (&air_lat)[APT_MAX] = idx.air_lat;
static float (&air_lon)[APT_MAX] = idx.air_lon;
static int32_t (&air_next)[APT_MAX] = idx.air_next;
constexpr int32_t IDX_LARGE = 8192;  // airports from which the large page pays
static uint32_t idx_bits = IDX_MIN_BITS;
static bool built = false;          // the index answers for the table as it stands
static int32_t indexed_count = -2;  // airport count at the last build

uint32_t apt_code_key(const char* code) {
    unsigned char b[4];
    memcpy(b, code, 4);
    if (!b[0]) b[1] = 0;
    if (!b[1]) b[2] = 0;
    if (!b[2]) b[3] = 0;
    return (uint32_t)b[0] | (uint32_t)b[1] << 8 | (uint32_t)b[2] << 16 | (uint32_t)b[3] << 24;
}

static uint32_t slot_of(uint32_t key) {
    const uint32_t mask = (1u << idx_bits) - 1;
    uint32_t s = (key * 2654435761u) >> (32 - idx_bits);
    while (slots[s].head >= 0 && slots[s].key != key) s = (s + 1) & mask;
    return s;
}

void apt_build_index() {
    int32_t n = apt_table.airport_count;
    int32_t last = n < APT_MAX ? n : APT_MAX - 1;
    idx_bits = IDX_MIN_BITS;
    while (idx_bits < IDX_MAX_BITS && (1 << idx_bits) < (last + 1) * 3 / 2) ++idx_bits;
    if (last + 1 >= IDX_LARGE) plat_large_pages(&idx, sizeof idx);
    for (uint32_t s = 0; s < 1u << idx_bits; ++s) slots[s].head = -1;
    for (int32_t i = 0; i <= last; ++i) {
        uint32_t key = apt_code_key(apt_table.apt_code[i]);
        air_lat[i] = apt_lat(i);
        air_lon[i] = apt_lon(i);
        air_next[i] = -1;
        uint32_t s = slot_of(key);
        if (slots[s].head < 0) slots[s] = Slot{key, i, air_lat[i], air_lon[i]};
        else air_next[slot_tail[s]] = i;
        slot_tail[s] = i;
    }
    indexed_count = n;
    built = true;
}

void apt_index_invalidate() { built = false; }

void apt_index_ensure() {
    if (!built || indexed_count != apt_table.airport_count) apt_build_index();
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
