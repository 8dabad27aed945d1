// The one random generator (the classic C library sequence) and the static tables it feeds.
#pragma once
#include <cstdint>

constexpr int RAND_TABLES = 9;
constexpr int RAND_TABLE_SIZE = 1000;
constexpr int32_t RAND_TOP = 32767;  // largest number rand_next gives

// next = next * 1103515245 + 12345 (mod 2^32); returns (next / 65536) mod 32768.
int32_t rand_next();
uint32_t rand_get_state();
void rand_set_state(uint32_t state);
uint64_t rand_count();  // numbers drawn since the program started

// Filled before main from the first 9000 numbers; never read afterwards.
extern float rand_tables[RAND_TABLES][RAND_TABLE_SIZE];
