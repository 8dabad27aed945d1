// The services Vocalog asks of the machine it runs on; every platform layer implements these.
#pragma once
#include <cstddef>
#include <cstdint>

// ---- system services (platform/posix) ----

// Milliseconds since the system started; wraps like a 32-bit tick counter.
uint32_t plat_ticks_ms();

// The folder of the running executable, with its trailing separator. False when unknown.
bool plat_program_folder(char* out, size_t size);

// The per-user data folder the suite's programs share, with its trailing separator,
// created when missing: $XDG_DATA_HOME/Zephyra/ or ~/.local/share/Zephyra/.
bool plat_user_folder(char* out, size_t size);

// Calls `each` for every entry of `folder` (platform form, with or without a trailing
// separator) in the order the system returns them. Returns the number of entries seen,
// or -1 when the folder cannot be searched.
using PlatListFn = void (*)(const char* name, bool is_folder, void* ctx);
int plat_list_folder(const char* folder, PlatListFn each, void* ctx);

// ---- user-facing services (platform/sdl or platform/null) ----

// Sounds the system's default alert beep (where there is one).
void plat_beep();

// Shows `text` modally with `title`, an information icon and a single OK button, and
// returns when the user dismisses it. Without a display it writes the text to standard
// error and returns at once; it never blocks a headless run.
void plat_message_box(const char* title, const char* text);
