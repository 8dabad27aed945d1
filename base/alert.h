// The one call through which every part reports to the user, and the progress call.
#pragma once
#include <cstdint>

enum : int32_t {
    ALERT_LANGUAGE = 12,  // the language chooser
    ALERT_ABOUT = 14,     // product lines replace lines 1-3; not logged
    ALERT_NOTE = 15,      // ordinary alert
    ALERT_FATAL = 16,     // the program ends after it; never returns
};

extern int32_t gl_ready;  // 1 once the window and GL are up: alerts are drawn in the window

// Shows four lines modally (logging them to "Error.out" first) and returns once dismissed.
// An ALERT_FATAL alert ends the program and never returns.
void MACIBM_alert(int32_t return_screen, const char* line1, const char* line2, const char* line3,
                  const char* line4, int32_t kind);

// Draws and presents one frame of the progress screen; nothing before a screen exists.
void MACIBM_progress(const char* message);

// The one fatal call: the fatal alert with these lines, then the ordered shut-down and the
// end of the program. Never returns.
[[noreturn]] void MACIBM_fatal(const char* line1, const char* line2 = "", const char* line3 = "",
                               const char* line4 = "");

// ---- front ends ----
// Shows the lines while gl_ready is 0. Default: the joined text in a system message box.
using AlertBoxFn = void (*)(const char* const lines[4], int32_t kind);
// Shows the lines in the window while gl_ready is 1 (installed by the screens).
using AlertWindowFn = void (*)(int32_t return_screen, const char* const lines[4], int32_t kind);
using AlertEndFn = void (*)();           // must not return
using ProgressFn = void (*)(const char* message);

void alert_set_box(AlertBoxFn fn);        // null restores the default
void alert_set_window(AlertWindowFn fn);
void alert_set_fatal_end(AlertEndFn fn);  // null restores the default
void progress_set(ProgressFn fn);

// ---- alerts of a worker thread ----
// A thread that turns deferring on records its alerts instead of showing them (in order, up to
// ALERT_DEFERRED_MAX; a later fatal one takes the last place); its progress calls do nothing.
// A fatal alert ends the recording and calls `end` on that thread, which must not return (a
// jump back to the work's start). The main thread shows them later with alert_replay, at the
// point where the work would have raised them.
constexpr int ALERT_DEFERRED_MAX = 4;
struct DeferredAlerts {
    int32_t count;
    int32_t kind[ALERT_DEFERRED_MAX];
    char lines[ALERT_DEFERRED_MAX][4][500];
};
void alert_defer_on(DeferredAlerts* into, AlertEndFn end);  // for the calling thread only
void alert_defer_off();
void alert_replay(const DeferredAlerts& alerts);  // each in order; a fatal one ends the program

// The default box front end, for tests: the text it shows for four lines.
void alert_box_text(const char* const lines[4], char* out, int out_size);
