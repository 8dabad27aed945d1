// Pacing of a polling loop: a minimum interval between two calls.
#include "platform/platform.h"

#include <cerrno>
#include <ctime>

static int64_t now_us() {
    timespec ts{};
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return (int64_t)ts.tv_sec * 1000000 + ts.tv_nsec / 1000;
}

void plat_pace(uint32_t interval_us) {
    static int64_t last_us = -1;
    if (last_us >= 0) {
        int64_t wait = last_us + (int64_t)interval_us - now_us();
        if (wait > 0) {
            timespec ts{(time_t)(wait / 1000000), (long)(wait % 1000000) * 1000};
            while (nanosleep(&ts, &ts) != 0 && errno == EINTR) {
            }
        }
    }
    last_us = now_us();
}
