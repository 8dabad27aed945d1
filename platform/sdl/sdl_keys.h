// Translation of SDL key events into the virtual-key codes of the window messages.
#pragma once
#include <cstdint>

// The virtual key (PLAT_VK_*, 'A'..'Z', '0'..'9') of an SDL key code, falling back to the
// US position of the scancode for keys whose code is not in the table; 0 when unknown.
// Plain integers so that callers outside this folder need no SDL header.
uint32_t sdl_virtual_key(int32_t keycode, int32_t scancode);
