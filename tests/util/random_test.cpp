// The generator's sequence and the nine tables filled before main.
#include <gtest/gtest.h>

#include "util/random.h"

// The C library's classic sequence, written out independently.
static int32_t reference(uint32_t* next) {
    *next = *next * 1103515245u + 12345u;
    return (int32_t)((*next / 65536u) % 32768u);
}

TEST(Random, TablesTookTheFirst9000NumbersSoTheNextIsThe9001st) {
    uint32_t next = 1;
    for (int t = 0; t < RAND_TABLES; ++t)
        for (int i = 0; i < RAND_TABLE_SIZE; ++i)
            ASSERT_EQ(rand_tables[t][i], (float)(reference(&next) * (double)0.9999f / 32767.0)) << t << " " << i;
    ASSERT_EQ(rand_count(), 9000u);  // nothing else drew before main or before this test
    EXPECT_EQ(rand_next(), reference(&next));
    rand_set_state(1);  // the state tests and the command-line tool set
    EXPECT_EQ(rand_next(), 16838);  // the sequence's well-known first number
}
