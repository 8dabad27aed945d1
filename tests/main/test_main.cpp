// Test entry: points HOME and XDG_DATA_HOME into the build folder, then runs GoogleTest.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

// A fatal alert ends the process with code 0. Outside a death test that would stop the run
// halfway and still look like a pass, so an exit while a test is running fails instead.
static void exit_inside_a_test() {
    const testing::TestInfo* t = testing::UnitTest::GetInstance()->current_test_info();
    if (!t || testing::internal::InDeathTestChild()) return;
    fprintf(stderr, "\n%s.%s ended the process before it finished\n", t->test_suite_name(), t->name());
    _exit(1);
}

int main(int argc, char** argv) {
    // Tests never touch the real user's folders; programs they start inherit this too.
    setenv("HOME", VOCALOG_TEST_HOME, 1);
    setenv("XDG_DATA_HOME", VOCALOG_TEST_HOME "/data", 1);
    setenv("VOCALOG_SOURCE_DIR", VOCALOG_SOURCE_DIR, 0);
    setenv("VOCALOG_BINARY_DIR", VOCALOG_BINARY_DIR, 0);
    setenv("VOCALOG_SHARED_DATA", VOCALOG_SHARED_DATA, 0);
    testing::InitGoogleTest(&argc, argv);
    atexit(exit_inside_a_test);
    return RUN_ALL_TESTS();
}
