// What the SDL layer's files share among themselves (internal to platform/sdl).
#pragma once
#include <SDL.h>

bool sdl_video_up();  // starts SDL's video subsystem once; false when it cannot
SDL_Window* sdl_window();
