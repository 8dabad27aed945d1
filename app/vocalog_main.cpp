// Vocalog, the windowed program: start-up, the world's data, the briefing screen until quit.
#include <cstdio>

#include "base/shutdown.h"
#include "briefing/briefing_file.h"
#include "briefing/briefing_screen.h"
#include "briefing/world.h"
#include "platform/platform.h"
#include "shell/app_hooks.h"
#include "shell/event_loop.h"
#include "shell/startup.h"
#include "shell/text_table.h"

int main() {
    if (!plat_display_present()) {
        fprintf(stderr,
                "vocalog: no display to open a window on (is DISPLAY set?). For the command-line "
                "briefer, run vocalog-brief.\n");
        return 1;
    }
    brief_screen_install();
    startup_set_language_steps(nullptr, MACIBM_load_text);
    MACIBM_init();
    brief_load_world();
    app_set_hooks(brief_draw_screen, nullptr, brief_write_file);
    while (!quit_requested) MACIBM_event_pass();
    MACIBM_shutdown();
    return 0;
}
