// Test entry: points HOME and XDG_DATA_HOME into the build folder, then runs GoogleTest.
#include <gtest/gtest.h>

#include <cstdlib>

int main(int argc, char** argv) {
    // Tests never touch the real user's folders; programs they start inherit this too.
    setenv("HOME", VOCALOG_TEST_HOME, 1);
    setenv("XDG_DATA_HOME", VOCALOG_TEST_HOME "/data", 1);
    setenv("VOCALOG_SOURCE_DIR", VOCALOG_SOURCE_DIR, 0);
    setenv("VOCALOG_BINARY_DIR", VOCALOG_BINARY_DIR, 0);
    setenv("VOCALOG_SHARED_DATA", VOCALOG_SHARED_DATA, 0);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
