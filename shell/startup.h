// Start-up: everything the program takes for granted before it loads its data.
#pragma once
#include <cstdint>

// The steps that belong to higher layers or later pieces, installed before MACIBM_init runs:
// the language chooser (a first start) and the menus and texts of the language.
using StartupStepFn = void (*)();
void startup_set_language_steps(StartupStepFn choose_language, StartupStepFn load_text);

// The random skip of a start at clock time `t` seconds: while t > 32000, t is halved and one
// number drawn; then (int)t mod 100 more. Returns how many were drawn.
int32_t startup_skip_random(double t);

// The whole start-up, in order: cleared tables, the random skip, "Error.out", the folder
// table, units and palette, the language-and-resolution preferences, the display and window
// (their failure ends the program), the GL checks, gl_ready, the projection, the interface
// sheet, bg_color, the intro screen, the language on a first start, menus and texts.
void MACIBM_init();
