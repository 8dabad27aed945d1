// The push button: a bar as wide as its label, the lit overlay, and the pressed look at once.
#include <cstring>

#include "graphics/gl_state.h"
#include "kit/boxes.h"
#include "kit/hit.h"
#include "kit/widgets.h"

int32_t BTN_push_button(float x, float y, int32_t lit, int32_t show_press, const char* label) {
    str_check(label);
    const int32_t n = (int32_t)strlen(label);
    const float w = (float)(PUSH_ADVANCE * n + PUSH_PAD);
    const float lx = x - (float)(PUSH_ADVANCE * n) / 2.0f, ly = y - 4.0f;  // the label centred on x
    BTN_util_draw_bar(BAR_BUTTON, x, y, w);
    if (lit) BTN_util_draw_bar(BAR_BUTTON_LIT, x, y, w);
    BTN_util_draw_label(lx, ly, LABEL_LINE, label);
    if (!ShellInput.mouse_clicked || !BTN_pointer_in(x - w / 2, x + w / 2, y - PUSH_HALF_H, y + PUSH_HALF_H))
        return 0;
    if (!lit && show_press) {
        // The pressed look goes on screen now: the caller's work may take a while.
        BTN_util_draw_bar(BAR_BUTTON_LIT, x, y, w);
        BTN_util_draw_label(lx, ly, LABEL_LINE, label);
        OGL_swap_buffers();
    }
    return 1;
}
