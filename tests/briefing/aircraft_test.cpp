// Aircraft files: versions, both byte orders, the introduction text and the speed estimate.
#include "tests/briefing/briefing_tests.h"

static int32_t read(const std::string& bytes) {
    fio_reset();  // a read starts from a zero block: the rows that fail follow rows that filled it
    return acf_read(0, test_write_file(test_temp_dir(), "test.acf", bytes).c_str());
}

TEST(Aircraft, VersionsByteOrdersAndSpeedEstimate) {
    const struct { char marker; int32_t version; bool swapped; int32_t kind; float speed; } rows[] = {
        {'i', 626, false, 0, 132}, {'a', 626, false, 1, 132}, {'i', 626, true, 2, 180}, {'a', 626, true, 3, 120},
        {'i', 600, false, 4, 240}, {'a', 600, true, 5, 240},  {'i', 626, false, 6, 120}, {'i', 626, true, -1, 120},
        {'i', 700, false, 0, 0},   {'a', 599, false, 0, 0},   {'x', 626, false, 0, 0},   // not read: zero block
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(testing::Message() << r.marker << r.version << " swapped " << r.swapped << " kind " << r.kind);
        TestAircraft a{.marker = r.marker, .version = r.version, .engine_kind = r.kind, .swapped_block = r.swapped};
        EXPECT_EQ(read(sim_aircraft(a)), r.speed > 0 ? 1 : 0);
        EXPECT_STREQ(acf_intro_text(), r.speed > 0 ? "N172SP" : "");  // texts are not reversed
        EXPECT_EQ(acf_engine_kind(), r.speed > 0 ? r.kind : 0);
        EXPECT_FLOAT_EQ(speed_from_aircraft(), r.speed);
        EXPECT_EQ(r.speed == 0, memcmp(acf_rec.block, acf_rec.block + 1, ACF_BLOCK_SIZE - 1) == 0);
    }
    EXPECT_EQ(acf_read(0, (test_temp_dir() + "none.acf").c_str()), 0);
}

TEST(Aircraft, BlockSizesAndRestoredTexts) {
    // Bytes beyond the 600 block are never read; a short file ends right after the reference speed.
    ASSERT_EQ(read(sim_aircraft({.version = 600}) + std::string(100, '\x7f')), 1);
    for (int32_t o = ACF_BLOCK_SIZE_600; o < ACF_BLOCK_SIZE; ++o) ASSERT_EQ(acf_rec.block[o], 0) << o;
    ASSERT_EQ(read(sim_aircraft({.block_bytes = 1108})), 1);
    EXPECT_EQ(acf_ref_speed(), 160.0f);

    // Texts in the fields exempt from reversal survive it; a number beside them is reversed.
    std::string bytes = sim_aircraft({.swapped_block = true});
    const int32_t texts[] = {32, 40, 532, 540, 7584 + 40 * 56, 14424, 433688 + 23 * 500 + 492};
    for (int32_t o : texts) memcpy(&bytes[5 + o], "ABCD", 4);
    const int32_t numbers[] = {36, 536, 2000, 7584 + 36};
    for (int32_t o : numbers) memcpy(&bytes[5 + o], "\x01\x02\x03\x04", 4);
    ASSERT_EQ(read(bytes), 1);
    for (int32_t o : texts) EXPECT_EQ(memcmp(acf_rec.block + o, "ABCD", 4), 0) << o;
    for (int32_t o : numbers) EXPECT_EQ(memcmp(acf_rec.block + o, "\x04\x03\x02\x01", 4), 0) << o;
}
