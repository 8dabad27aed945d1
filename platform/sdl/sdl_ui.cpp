// The SDL layer's beep, system message box and the system pointer.
#include <SDL.h>

#include <cstdio>
#include <unistd.h>

#include "platform/platform.h"
#include "platform/sdl/sdl_video.h"

// SDL has no system beep; a terminal's bell is the nearest thing.
void plat_beep() {
    if (isatty(STDERR_FILENO)) {
        fputc('\a', stderr);
        fflush(stderr);
    }
}

// Where no dialog can be shown (no display, no dialog helper) SDL fails at once, and the
// text goes to standard error instead, so a headless run never waits.
void plat_message_box(const char* title, const char* text) {
    if (SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_INFORMATION, title, text, sdl_window()) == 0) return;
    fprintf(stderr, "%s\n", text);
    fflush(stderr);
}

void plat_show_pointer(bool shown) {
    if (sdl_video_up()) SDL_ShowCursor(shown ? SDL_ENABLE : SDL_DISABLE);
}

bool plat_pointer_shown() { return sdl_video_up() && SDL_ShowCursor(SDL_QUERY) == SDL_ENABLE; }
