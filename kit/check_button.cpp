// The check button and the choice button built on it.
#include "graphics/palette_names.h"
#include "kit/boxes.h"
#include "kit/hit.h"
#include "kit/widgets.h"

int32_t BTN_check_button(float x, float y, int32_t* state, const char* label, const char* help) {
    str_check(help);
    Text left, right;
    BTN_util_split_label(label, left, right);
    BTN_util_draw_sprite(SHEET_CHECK, x - 11.0f, y - 7.0f, PAL_WHITE);
    if (*state) BTN_util_draw_sprite(SHEET_CHECK_TICK, x - 11.0f, y - 7.0f, PAL_LIT);
    BTN_util_draw_label(x - 12.0f, y, LABEL_RIGHT, left);
    BTN_util_draw_label(x + 12.0f, y, LABEL_LEFT, right);
    if (!BTN_pointer_in(x - 8.0f, x + 8.0f, y - 4.0f, y + 12.0f)) return 0;
    str_copy(help, ShellInput.help_text);
    if (!ShellInput.mouse_clicked) return 0;
    *state = *state == 0 ? 1 : 0;
    return 1;
}

int32_t BTN_choice_button(float x, float y, int32_t* selection, int32_t value, const char* label,
                          const char* help) {
    str_check(help);
    int32_t on = *selection == value ? 1 : 0;
    const int32_t result = BTN_check_button(x, y, &on, label, help);
    if (on == 1) *selection = value;  // a press on the chosen one leaves it chosen
    return result;
}
