// The generator's sequence and the tables filled before main.
#include <gtest/gtest.h>

#include "util/random.h"

// The C library's classic sequence from next = 1.
static int32_t reference(uint32_t* next) {
    *next = *next * 1103515245u + 12345u;
    return (int32_t)((*next / 65536u) % 32768u);
}

TEST(Random, TablesTookTheFirst9000Numbers) {
    uint32_t next = 1;
    EXPECT_EQ(reference(&next), 16838);  // the well-known first number
    next = 1;
    for (int t = 0; t < RAND_TABLES; ++t)
        for (int i = 0; i < RAND_TABLE_SIZE; ++i) {
            float want = (float)((double)reference(&next) * (double)0.9999f / 32767.0);
            ASSERT_EQ(rand_tables[t][i], want) << t << " " << i;
        }
    // Nothing else drew before this first test: the next number is the 9001st.
    ASSERT_EQ(rand_count(), 9000u);
    EXPECT_EQ(rand_get_state(), next);
    EXPECT_EQ(rand_next(), reference(&next));
}

TEST(Random, StateCanBeSet) {
    rand_set_state(1);
    uint32_t next = 1;
    for (int i = 0; i < 9001; ++i) ASSERT_EQ(rand_next(), reference(&next));
    rand_set_state(42);
    int32_t a = rand_next();
    rand_set_state(42);
    EXPECT_EQ(rand_next(), a);
}
