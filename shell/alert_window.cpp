// The in-window alert: panel, four wrapped lines or the language chooser, and its button.
#include "shell/alert_window.h"

#include "base/alert.h"
#include "graphics/design_space.h"
#include "graphics/palette_names.h"
#include "graphics/primitives.h"
#include "kit/boxes.h"
#include "kit/font.h"
#include "kit/widgets.h"
#include "shell/event_loop.h"
#include "shell/language.h"
#include "shell/screens.h"
#include "shell/shell_text.h"
#include "util/prefs.h"
#include "window/input.h"

void alert_window_install() {
    alert_set_window(MACIBM_alert_window);
    progress_set(MACIBM_progress_screen);
}

static void draw_language_choice() {
    static const char* const labels[LANG_COUNT] = {"|English", "|French", "|German", "|Italian", "|Spanish", "|Korean"};
    for (int32_t k = 0; k < LANG_COUNT; ++k)
        BTN_choice_button(panel_w / 2.0f - 25.0f, 170.0f - 20.0f * (float)k, &language, k, labels[k], "");
}

static void draw_lines(const char* const lines[4]) {
    for (int32_t k = 0; k < 4; ++k)
        OGL_draw_string(COLOR_WHITE, 10.0f, 180.0f - 40.0f * (float)k, lines[k], panel_w - 20.0f, FACE_FIELD);
}

void MACIBM_alert_window(int32_t return_screen, const char* const lines[4], int32_t kind) {
    const float mouse_x = ShellInput.mouse_x, mouse_y = ShellInput.mouse_y;
    MACIBM_open_screen(SCREEN_ALERT);
    const bool choose_language = kind == ALERT_LANGUAGE;
    if (choose_language) str_copy("Language:", panel_title);
    const char* button = choose_language ? "Accept" : shell_text(TEXT_ALERT_BUTTON);
    while (cur_screen == SCREEN_ALERT) {
        OGL_draw_background();
        BTN_util_draw_panel(PANEL_DIALOG, 0.0f, 0.0f, panel_w, panel_h, panel_title);
        if (choose_language)
            draw_language_choice();
        else
            draw_lines(lines);
        if (BTN_push_button(panel_w / 2.0f, 25.0f, 0, 0, button) || ShellInput.enter_pressed) {
            ShellInput.enter_pressed = 0;
            if (kind == ALERT_FATAL) return;  // the alert call ends the program from here
            MACIBM_open_screen(return_screen);
            ShellInput.mouse_x = mouse_x;
            ShellInput.mouse_y = mouse_y;
        }
        if (cur_screen == SCREEN_ALERT) MACIBM_event_pass();
    }
}
