// The windowless layer's user-facing services: messages go to standard error, the pointer
// choice is only kept.
#include "platform/platform.h"

#include <cstdio>

void plat_beep() {}

void plat_message_box(const char* title, const char* text) {
    (void)title;
    fprintf(stderr, "%s\n", text);
    fflush(stderr);
}

static bool pointer_shown = true;  // kept only, so that callers' choices can be seen

void plat_show_pointer(bool shown) { pointer_shown = shown; }
bool plat_pointer_shown() { return pointer_shown; }
