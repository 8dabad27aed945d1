// Pacing of a polling loop: a minimum interval between two calls, cut short by input on request.
#include "platform/platform.h"

#include <cerrno>
#include <ctime>

#include "platform/posix/message_queue.h"

static int64_t now_us() {
    timespec ts{};
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return (int64_t)ts.tv_sec * 1000000 + ts.tv_nsec / 1000;
}

void plat_sleep_us(int64_t us) {
    timespec ts{(time_t)(us / 1000000), (long)(us % 1000000) * 1000};
    while (nanosleep(&ts, &ts) != 0 && errno == EINTR) {
    }
}

void plat_pace(uint32_t interval_us, bool wake_on_input) {
    static int64_t last_us = -1;
    if (last_us >= 0) {
        int64_t wait = last_us + (int64_t)interval_us - now_us();
        if (wait > 0) {
            if (wake_on_input) plat_wait_input(wait);
            else plat_sleep_us(wait);
        }
    }
    last_us = now_us();
}
