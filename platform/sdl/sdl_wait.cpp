// Waiting for the system's next event without taking it.
#include <SDL.h>

#include "platform/posix/message_queue.h"

// SDL's own timed wait polls every millisecond where the video driver cannot block (as the
// offscreen one cannot), which costs more than the idle pass it stands in for; looking
// every 10 ms costs next to nothing and delays the first input by less than a frame.
constexpr int64_t WAIT_SLICE_US = 10000;

bool plat_wait_events(int64_t us) {
    for (;;) {
        if (SDL_WasInit(SDL_INIT_VIDEO)) {
            SDL_PumpEvents();
            if (SDL_HasEvents(SDL_FIRSTEVENT, SDL_LASTEVENT)) return true;
        }
        if (us <= 0) return false;
        int64_t slice = us < WAIT_SLICE_US ? us : WAIT_SLICE_US;
        plat_sleep_us(slice);
        us -= slice;
    }
}
