// The windowless layer's display and window: no modes, and opening a window fails.
#include "platform/platform.h"
#include "platform/posix/message_queue.h"

bool plat_display_mode(int32_t, PlatDisplayMode*) { return false; }
bool plat_display_present() { return false; }
bool plat_display_switch(const PlatDisplayMode*) { return false; }
void plat_display_restore() {}

bool plat_window_create(int32_t, int32_t, int32_t) { return false; }
void plat_window_show() {}
bool plat_gl_create_context() { return false; }
bool plat_gl_make_current() { return false; }
bool plat_window_open(int32_t, int32_t, int32_t) { return false; }
void plat_window_close() {}
bool plat_window_is_open() { return false; }
void* plat_window_handle() { return nullptr; }
void plat_window_size(int32_t* width, int32_t* height) { *width = *height = 0; }

void* plat_gl_proc(const char*) { return nullptr; }
void plat_gl_swap() {}
bool plat_gl_swap_interval(int32_t) { return false; }
void plat_gl_buffer_bits(int32_t* colour_bits, int32_t* depth_bits) { *colour_bits = *depth_bits = 0; }

// Only messages posted by the program itself (tests) are ever pending, never while it sleeps.
void plat_gather_events() {}
bool plat_wait_events(int64_t us) {
    plat_sleep_us(us);
    return false;
}
