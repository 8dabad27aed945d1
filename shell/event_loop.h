// The event pass: messages into the input record, the clock, drawing, and the frame.
#pragma once
#include <cstdint>

// Passes are kept to at most about 120 a second where the swap does not wait for the display.
constexpr uint32_t PASS_MIN_INTERVAL_US = 8333;
// After this long without any window message, and while nothing on the frame moves, the
// loop is idle: passes slow to two a second (a software renderer then costs a few percent of
// a core instead of all of it), and the first message ends the wait at once. A frame with
// pulsing colours keeps the full pace, so its animation stays smooth.
constexpr float PASS_IDLE_AFTER_SECS = 3.0f;
constexpr uint32_t PASS_IDLE_INTERVAL_US = 500000;

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
// Whether the tooltip shows: a help text, and the pointer at rest for more than a second.
bool tooltip_due(const char* help_text, float elapsed_secs, float last_activity);

// Once idle, a frame with only a small pulse (a text cursor) keeps 8 passes a second: enough to
// show the cursor fading in and out, at a tenth of a core under a software renderer.
constexpr uint32_t PASS_PULSE_INTERVAL_US = 125000;

// The pause after a pass: while messages come, the active interval; once the last message is
// more than PASS_IDLE_AFTER_SECS old, the interval the frame's motion (OGL_pulse_drawn) needs.
uint32_t pass_interval_us(float elapsed_secs, float last_message_secs, int32_t motion);

// The motion (OGL_pulse_drawn) the last pass was paced by.
int32_t event_loop_motion();

// The loop's own state back to program start: not painted, no time base, pointer at 999.
void event_loop_reset();
int32_t event_loop_painted();
