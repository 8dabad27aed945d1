// The windowless layer's user-facing services: messages go to standard error.
#include "platform/platform.h"

#include <cstdio>

void plat_beep() {}

void plat_message_box(const char* title, const char* text) {
    (void)title;
    fprintf(stderr, "%s\n", text);
    fflush(stderr);
}
