// Aircraft files: versions, both byte orders, the introduction text and the speed estimate.
#include <gtest/gtest.h>

#include <cstring>

#include "briefing/aircraft.h"
#include "tests/support/sim_files.h"
#include "tests/support/test_files.h"
#include "util/file_reader.h"

class Aircraft : public testing::Test {
  protected:
    void SetUp() override {
        fio_reset();
        dir = test_temp_dir();
    }
    int32_t read(const TestAircraft& a) {
        std::string path = test_write_file(dir, "test.acf", sim_aircraft(a));
        return acf_read(0, path.c_str());
    }
    static bool block_is_zero() {
        for (unsigned char b : acf_rec.block)
            if (b) return false;
        return true;
    }
    std::string dir;
};

struct VersionRow {
    char marker;
    int32_t version;
    bool swapped_block;
    int32_t expect;
};

TEST_F(Aircraft, VersionsAndByteOrders) {
    const VersionRow rows[] = {
        {'i', 626, false, 1}, {'a', 626, false, 1}, {'i', 626, true, 1}, {'a', 626, true, 1},
        {'i', 600, false, 1}, {'a', 600, true, 1},  {'i', 700, false, 0}, {'a', 599, false, 0},
        {'x', 626, false, 0},
    };
    for (const VersionRow& r : rows) {
        SCOPED_TRACE(testing::Message() << r.marker << " " << r.version << " swapped " << r.swapped_block);
        memset(acf_rec.block, 0x55, 64);  // a read must start from a zero block
        TestAircraft a;
        a.marker = r.marker;
        a.version = r.version;
        a.swapped_block = r.swapped_block;
        a.intro = "N172SP";
        a.ref_speed = 160.0f;
        a.engine_kind = 2;
        EXPECT_EQ(read(a), r.expect);
        if (r.expect) {
            EXPECT_STREQ(acf_intro_text(), "N172SP");  // texts are not reversed
            EXPECT_EQ(acf_ref_speed(), 160.0f);
            EXPECT_EQ(acf_engine_kind(), 2);
        } else {
            EXPECT_TRUE(block_is_zero());
            EXPECT_EQ(speed_from_aircraft(), 0.0f);
        }
    }
}

TEST_F(Aircraft, SpeedEstimateByEngineKind) {
    const struct {
        int32_t kind;
        float speed;
    } rows[] = {{0, 132.0f}, {1, 132.0f}, {2, 180.0f}, {3, 120.0f}, {4, 240.0f}, {5, 240.0f}, {6, 120.0f}, {-1, 120.0f}};
    for (auto r : rows) {
        SCOPED_TRACE(r.kind);
        TestAircraft a;
        a.engine_kind = r.kind;
        ASSERT_EQ(read(a), 1);
        EXPECT_FLOAT_EQ(speed_from_aircraft(), r.speed);
    }
}

TEST_F(Aircraft, Version600LeavesTheTailZeroAndShortFilesReadWhatIsThere) {
    TestAircraft a;
    a.version = 600;
    std::string bytes = sim_aircraft(a);
    bytes += std::string(100, '\x7f');  // beyond the version-600 block: never read
    std::string path = test_write_file(dir, "long.acf", bytes);
    ASSERT_EQ(acf_read(0, path.c_str()), 1);
    for (int32_t o = ACF_BLOCK_SIZE_600; o < ACF_BLOCK_SIZE; ++o) ASSERT_EQ(acf_rec.block[o], 0) << o;

    a.version = 626;
    a.block_bytes = 1108;  // ends right after the reference speed
    ASSERT_EQ(read(a), 1);
    EXPECT_EQ(acf_ref_speed(), 160.0f);
    EXPECT_EQ(acf_engine_kind(), 0);
}

TEST_F(Aircraft, SwappedBlockRestoresEveryTextField) {
    // Texts in the fields that are exempt from reversal survive it; a number beside them is reversed.
    TestAircraft a;
    a.swapped_block = true;
    std::string bytes = sim_aircraft(a);
    const int32_t text_offsets[] = {40, 540, 7584 + 40 * 56, 14424, 433688 + 23 * 500};
    for (int32_t o : text_offsets) memcpy(&bytes[5 + o], "ABCDEFGH", 8);
    int32_t number = 0x01020304;
    unsigned char be[4] = {1, 2, 3, 4};
    memcpy(&bytes[5 + 2000], be, 4);
    std::string path = test_write_file(dir, "swapped.acf", bytes);
    ASSERT_EQ(acf_read(0, path.c_str()), 1);
    for (int32_t o : text_offsets) EXPECT_EQ(memcmp(acf_rec.block + o, "ABCDEFGH", 8), 0) << o;
    int32_t got;
    memcpy(&got, acf_rec.block + 2000, 4);
    EXPECT_EQ(got, number);
}

TEST_F(Aircraft, MissingFileGivesZero) {
    EXPECT_EQ(acf_read(0, (dir + "none.acf").c_str()), 0);
    EXPECT_EQ(acf_read(0, ""), 0);
    EXPECT_STREQ(acf_intro_text(), "");
}
