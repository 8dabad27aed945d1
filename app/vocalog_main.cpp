// Vocalog, the windowed program: start-up, the world's data, the briefing screen until quit.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "base/shutdown.h"
#include "briefing/briefing_file.h"
#include "briefing/airports.h"
#include "briefing/briefing_screen.h"
#include "briefing/request.h"
#include "briefing/world.h"
#include "platform/platform.h"
#include "base/alert.h"
#include "shell/alert_window.h"
#include "shell/app_hooks.h"
#include "shell/event_loop.h"
#include "shell/startup.h"

// VOCALOG_TRACE=1: after each pass of the briefing screen whose state changed, one line on
// standard output naming what the screen shows, so whole-program tests can follow it.
static void draw_and_trace() {
    brief_draw_screen();
    static char last[5200];
    char now[5200];  // room for an aircraft name of a whole text
    const BriefingRequest& q = brief_req;
    snprintf(now, sizeof now, "screen departure=%s destination=%s aircraft=%s altitude=%.0f briefed=%d",
             apt_table.apt_code[q.departure], apt_table.apt_code[q.destination], q.aircraft_name, q.altitude,
             q.intro[0] != 0);
    if (strcmp(now, last) == 0) return;
    strcpy(last, now);
    printf("%s\n", now);
    fflush(stdout);
}

// VOCALOG_EXIT_AFTER_FIRST_FRAME=1: the program ends after its first pass of the briefing
// screen (that frame is still presented) and prints when it was presented, so a benchmark can
// time a whole start.
static AppDrawFn screen_draw = brief_draw_screen;
static void draw_then_quit() {
    screen_draw();
    quit_requested = 1;
}

// Loading calls for progress every few hundred lines; on a software renderer a whole frame each
// time would cost more than the loading itself. A new message shows at once; the same message
// at most every PROGRESS_MIN_MS.
constexpr uint32_t PROGRESS_MIN_MS = 50;
static void paced_progress(const char* message) {
    static uint32_t last_ms = 0;
    static char last_message[64] = "";
    const uint32_t now = plat_ticks_ms();
    if (strncmp(message, last_message, sizeof last_message - 1) == 0 && now - last_ms < PROGRESS_MIN_MS) return;
    last_ms = now;
    snprintf(last_message, sizeof last_message, "%s", message);
    MACIBM_progress_screen(message);
}

static bool env_on(const char* name) {
    const char* v = getenv(name);
    return v && strcmp(v, "1") == 0;
}

int main() {
    if (!plat_display_present()) {
        fprintf(stderr,
                "vocalog: no display to open a window on (is DISPLAY set?). For the command-line "
                "briefer, run vocalog-brief.\n");
        return 1;
    }
    brief_screen_install();
    app_set_start_work(brief_scan_start);  // apt.dat is read while the window and GL come up
    MACIBM_init();
    progress_set(paced_progress);
    brief_load_world();
    if (env_on("VOCALOG_TRACE")) screen_draw = draw_and_trace;
    const bool first_frame_only = env_on("VOCALOG_EXIT_AFTER_FIRST_FRAME");
    app_set_hooks(first_frame_only ? draw_then_quit : screen_draw, nullptr, brief_write_file);
    while (!quit_requested) MACIBM_event_pass();
    if (first_frame_only) {  // when it was presented, on the system's monotonic clock
        timespec ts{};
        clock_gettime(CLOCK_MONOTONIC, &ts);
        printf("first frame %.3f ms\n", (double)ts.tv_sec * 1e3 + (double)ts.tv_nsec * 1e-6);
        fflush(stdout);
    }
    MACIBM_shutdown();
    return 0;
}
