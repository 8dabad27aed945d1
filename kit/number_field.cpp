// The boxed-digit field: one box per place; a press above a box's middle adds its step, below
// it takes it away, and the value is held within its range at every pass.
#include <cmath>

#include "base/alert.h"
#include "graphics/palette_names.h"
#include "kit/boxes.h"
#include "kit/font.h"
#include "kit/hit.h"
#include "kit/widgets.h"

// The box under the pointer: each box owns its left edge, the last one its right edge too.
static int32_t box_under(float mouse_x, float x, int32_t digits) {
    int32_t k = 0;
    while (k < digits - 1 && mouse_x >= x + DIGIT_BOX_W * (float)(k + 1)) ++k;
    return k;
}

int32_t BTN_util_draw_boxed_button(int32_t color, float x, float y, float* value, int32_t digits,
                                   int32_t decimals, float min, float max, const char* label,
                                   const char* help) {
    str_check(help);
    if (digits <= 0) MACIBM_fatal("BTN_util_draw_boxed_button called with no boxes!");
    Text left, right;
    BTN_util_split_label(label, left, right);
    const float width = DIGIT_BOX_W * (float)digits;
    const float middle = y + 3.0f;  // the boxes' middle: above adds, below takes away

    int32_t result = 0;
    if (BTN_pointer_in(x, x + width, y - 18.0f, y + 24.0f)) {
        if (BTN_within(ShellInput.mouse_y, y - 2.0f, y + 8.0f)) str_copy(help, ShellInput.help_text);
        if (ShellInput.mouse_clicked) {
            const int32_t k = box_under(ShellInput.mouse_x, x, digits);
            const double step = std::pow(10.0, digits - 1 - k) / std::pow(10.0, decimals);
            *value = (float)((double)*value + (ShellInput.mouse_y >= middle ? step : -step));
            result = 1;
        }
    }
    if (*value < min) *value = min;
    if (*value > max) *value = max;

    BTN_util_draw_bar(BAR_FIELD, x + width / 2.0f - 1.0f, middle, width + 15.0f);
    const SheetBlock& box = BTN_sheet[SHEET_DIGIT_BOX];
    for (int32_t k = 0; k < digits; ++k)  // each box centred on its place's glyph
        BTN_util_draw_sprite(SHEET_DIGIT_BOX, x + DIGIT_BOX_W * (float)k + 6.0f - (float)box.w / 2.0f,
                             middle - (float)box.h / 2.0f, PAL_WHITE);
    BTN_util_draw_label(x - 10.0f, y, LABEL_RIGHT, left);
    BTN_util_draw_label(x + width + 7.0f, y, LABEL_LEFT, right);
    OGL_draw_number(color, x + 3.0f, y, *value, digits, decimals, min < 0.0f ? 1 : 0, FACE_DIGIT_BOX);
    return result;
}

float BTN_number_max(int32_t digits, int32_t decimals) {
    if (digits < 1 || digits > 10) return 0.0f;
    const double nines = 10.0 - std::pow(10.0, 1 - digits);  // 9, 9.9, 9.99, ...
    return (float)(std::pow(10.0, digits - 1) / std::pow(10.0, decimals) * nines);
}

int32_t BTN_number_field(int32_t color, float x, float y, float* value, int32_t digits, int32_t decimals,
                         int32_t allow_negative, const char* label, const char* help) {
    str_check(label);
    str_check(help);
    const float max = BTN_number_max(digits, decimals);
    return BTN_util_draw_boxed_button(color, x, y, value, digits, decimals, allow_negative ? -max : 0.0f, max,
                                      label, help);
}
