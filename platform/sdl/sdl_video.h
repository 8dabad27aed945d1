// What the SDL layer's files share among themselves (internal to platform/sdl).
#pragma once
#include <SDL.h>

bool sdl_video_up();  // starts SDL's video subsystem once; false when it cannot
SDL_Window* sdl_window();

// The colour depth of a display mode's pixel format as the system's own display settings
// count it: the bits each pixel takes, so a 32-bit mode (8 bits of it unused) is 32, not 24.
int32_t sdl_mode_bits(uint32_t format);
