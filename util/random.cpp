// The one random generator (the classic C library sequence) and the static tables it feeds.
#include "util/random.h"

static uint32_t rand_state = 1;  // never seeded: every run starts the same sequence
static uint64_t rand_drawn = 0;

int32_t rand_next() {
    rand_state = rand_state * 1103515245u + 12345u;
    ++rand_drawn;
    return (int32_t)((rand_state / 65536u) % 32768u);
}

uint32_t rand_get_state() { return rand_state; }
void rand_set_state(uint32_t state) { rand_state = state; }
uint64_t rand_count() { return rand_drawn; }

float rand_tables[RAND_TABLES][RAND_TABLE_SIZE];

// The tables live beside the generator so that any program using it links them, and
// so fills them (9000 draws) before main.
static const bool tables_filled = [] {
    const double scale = (double)0.9999f;
    for (auto& table : rand_tables)
        for (float& entry : table) entry = (float)((double)rand_next() * scale / 32767.0) + 0.0f;
    return true;
}();
