// The event pass: messages into the input record, the clock, drawing, and the frame.
#pragma once
#include <cstdint>

// Passes are kept to at most about 120 a second where the swap does not wait for the display.
constexpr uint32_t PASS_MIN_INTERVAL_US = 8333;

// One pass of the main loop (and of every modal loop).
void MACIBM_event_pass();

// The window's message handler: messages of platform.h (PLAT_MSG_*). Returns the default
// handler's result (0).
intptr_t MACIBM_window_proc(void* window, uint32_t message, uintptr_t wparam, intptr_t lparam);

// The tooltip's text area for `text` with the pointer at (mouse_x, mouse_y), in panel units.
struct TooltipBox {
    float x, y, w, h;
};
TooltipBox tooltip_box(const char* text, float mouse_x, float mouse_y);

// The loop's own state back to program start: not painted, no time base, pointer at 999.
void event_loop_reset();
int32_t event_loop_painted();
