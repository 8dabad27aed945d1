// The alert drawn in the window once GL is up, and the progress screen: the front ends that
// the alert and progress calls hand their work to.
#pragma once
#include <cstdint>

// The alert panel, modal, in its own loop of event passes.
//  zone / input                           | effect
//  button (panel_w / 2, 25) press, Return | closes: return_screen opened and the pointer put
//                                         | back where it was; the fatal kind returns at once
//                                         | for the program's end instead
//  language kind: six choice buttons      | a press chooses that language (Return accepts it)
//  anything else                          | nothing; the loop goes on
void MACIBM_alert_window(int32_t return_screen, const char* const lines[4], int32_t kind);

// One frame of the progress screen with `message`, presented at once; no messages pumped.
// Nothing before any screen has been opened.
void MACIBM_progress_screen(const char* message);

// Hands the alert and progress calls to the two front ends above.
void alert_window_install();

// The progress screen's lamp row: lamp position and the time of the last call.
constexpr int32_t PROGRESS_LAMPS = 101;
extern int32_t progress_lamp;
void progress_reset();
