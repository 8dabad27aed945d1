// Alert and progress calls: log, message box or in-window alert, and the fatal end.
#include "base/alert.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/platform.h"
#include "base/log.h"
#include "base/shutdown.h"

int32_t gl_ready = 0;

static AlertBoxFn box_fn = nullptr;
static AlertWindowFn window_fn = nullptr;
static AlertEndFn end_fn = nullptr;
static ProgressFn progress_fn = nullptr;

void alert_set_box(AlertBoxFn fn) { box_fn = fn; }
void alert_set_window(AlertWindowFn fn) { window_fn = fn; }
void alert_set_fatal_end(AlertEndFn fn) { end_fn = fn; }
void progress_set(ProgressFn fn) { progress_fn = fn; }

static thread_local DeferredAlerts* deferred = nullptr;
static thread_local AlertEndFn deferred_end = nullptr;

void alert_defer_on(DeferredAlerts* into, AlertEndFn end) {
    into->count = 0;
    deferred = into;
    deferred_end = end;
}

void alert_defer_off() { deferred = nullptr; }

static const char* const about_lines[3] = {
    "Vocalog 1.0, the pre-flight weather briefer of the Zephyra suite.",
    "Orders and support: write to the Zephyra team through the suite's home page.",
    "Updates are posted on the suite's home page as they are released.",
};

void alert_box_text(const char* const lines[4], char* out, int out_size) {
    snprintf(out, (size_t)out_size, "%s\n\n%s\n\n%s\n\n%s", lines[0], lines[1], lines[2], lines[3]);
}

static void default_box(const char* const lines[4], int32_t kind) {
    (void)kind;
    char text[4 * 500 + 8];
    alert_box_text(lines, text, sizeof text);
    plat_beep();
    plat_message_box("Corvane Message", text);
}

// Copies at most 499 characters: alert lines are themselves 500-byte texts.
static void copy_line(const char* src, char* dst) {
    size_t n = src ? strnlen(src, 499) : 0;
    memcpy(dst, src ? src : "", n);
    dst[n] = 0;
}

[[noreturn]] static void end_program() {
    if (end_fn) end_fn();
    quit_requested = 1;
    MACIBM_shutdown();
    std::exit(0);
}

// Records an alert of a deferring thread; a fatal one ends the work there.
static void record(const char* const src[4], int32_t kind) {
    DeferredAlerts& d = *deferred;
    if (d.count == ALERT_DEFERRED_MAX && kind != ALERT_FATAL) return;  // full: later notes are dropped
    const int32_t k = d.count < ALERT_DEFERRED_MAX ? d.count++ : ALERT_DEFERRED_MAX - 1;
    d.kind[k] = kind;
    for (int i = 0; i < 4; ++i) copy_line(src[i], d.lines[k][i]);
    if (kind != ALERT_FATAL) return;
    deferred = nullptr;
    deferred_end();
}

void MACIBM_alert(int32_t return_screen, const char* line1, const char* line2, const char* line3,
                  const char* line4, int32_t kind) {
    if (deferred) {
        const char* const src[4] = {line1, line2, line3, line4};
        record(src, kind);
        return;
    }
    static char buf[4][500];  // the alert's own line buffers
    char copy[4][500];
    copy_line(line1, copy[0]);
    copy_line(line2, copy[1]);
    copy_line(line3, copy[2]);
    copy_line(line4, copy[3]);
    memcpy(buf, copy, sizeof buf);
    if (kind == ALERT_ABOUT) {
        for (int i = 0; i < 3; ++i) copy_line(about_lines[i], buf[i]);
    } else {
        for (auto& line : buf) MACIBM_log_line(line);
    }
    const char* const lines[4] = {buf[0], buf[1], buf[2], buf[3]};
    if (gl_ready == 1 && window_fn)
        window_fn(return_screen, lines, kind);
    else
        (box_fn ? box_fn : default_box)(lines, kind);
    if (kind == ALERT_FATAL) end_program();
}

void MACIBM_fatal(const char* line1, const char* line2, const char* line3, const char* line4) {
    MACIBM_alert(0, line1, line2, line3, line4, ALERT_FATAL);
    end_program();  // not reached: the fatal alert itself ends the program
}

void alert_replay(const DeferredAlerts& alerts) {
    for (int32_t k = 0; k < alerts.count; ++k) {
        const auto& l = alerts.lines[k];
        MACIBM_alert(0, l[0], l[1], l[2], l[3], alerts.kind[k]);
    }
}

void MACIBM_progress(const char* message) {
    if (!deferred && progress_fn) progress_fn(message);  // a deferring thread never reads the hook
}
