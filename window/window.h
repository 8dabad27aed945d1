// The display mode, the borderless window with its OpenGL context, and their release.
#pragma once
#include <cstdint>

extern int32_t window_created;  // set by the window's creation message

struct PlatDisplayMode;
// 1 when the mode names its width, height and depth and they equal disp_width, disp_height
// and disp_bits exactly.
int32_t window_mode_fits(const PlatDisplayMode* mode);

// on 1: switch the display into a mode of exactly disp_width x disp_height x disp_bits
// (when full_screen is 1 and the display lists one); on 0: back to the normal mode.
// 0 only when a matching mode was refused.
int32_t MACIBM_set_fullscreen(int32_t on);

// The handler of the window's messages (the shell's), called for the messages that arrive
// while the window is being made.
using WindowProcFn = intptr_t (*)(void* window, uint32_t message, uintptr_t wparam, intptr_t lparam);
void window_set_proc(WindowProcFn proc);

// The window at (0, 0) of disp_width x disp_height pixels, a current double-buffered
// context with the GL table filled, vsync asked for, and the frame swap installed.
// 1 when all of it exists.
int32_t MACIBM_open_window();

// The failure of either call above: the language-and-resolution file is rewritten as a bare
// header of version -999 (so the next start keeps the defaults), then the fatal alert.
[[noreturn]] void MACIBM_graphics_failure();

// The shut-down steps: the normal display mode back; the context and the window destroyed.
void display_release();
void window_release();

void window_reset();  // window_created back to 0
