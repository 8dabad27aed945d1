// Sanitizer defaults of the tests that open a real GL context: Mesa and SDL keep a few
// allocations for the life of the process, so LeakSanitizer is off in these executables only.
extern "C" const char* __asan_default_options() { return "detect_leaks=0"; }
