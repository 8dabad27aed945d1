// The list picker: the box, the scroll bar on the index, presses on rows, the name and code
// searches with their pulsing cursor, the 21 visible rows and the selection frame.
#include "kit/list_picker.h"

#include <cmath>
#include <cstring>

#include "graphics/gl_state.h"
#include "graphics/palette_names.h"
#include "graphics/primitives.h"
#include "kit/boxes.h"
#include "kit/font.h"
#include "kit/hit.h"
#include "kit/scroll_bar.h"
#include "window/screen_ids.h"

static CodeSearchFn code_search = nullptr;
int32_t BTN_search_kind = 1;

void BTN_set_code_search(CodeSearchFn fn) { code_search = fn; }
void list_picker_reset() {
    code_search = nullptr;
    BTN_search_kind = 1;
}

static const char* name_at(const char* names, int32_t i) { return names + (size_t)LIST_NAME_SIZE * (size_t)i; }

static unsigned char lower(unsigned char c) { return c >= 'A' && c <= 'Z' ? (unsigned char)(c + 32) : c; }

// The order of str_same_nocase (bytes compared unsigned after A..Z are lowered) without its
// two 500-byte copies: one key walks thousands of names. `a` is read up to a_max bytes.
static int32_t order_nocase(const char* a, int32_t a_max, const char* b) {
    for (int32_t i = 0;; ++i) {
        const unsigned char ca = i < a_max ? lower((unsigned char)a[i]) : 0, cb = lower((unsigned char)b[i]);
        if (ca != cb) return ca < cb ? -1 : 1;
        if (ca == 0) return 0;
    }
}

int32_t BTN_list_find_name(const char* names, int32_t first, int32_t last, const char* text) {
    str_check(text);
    int32_t i = 0;
    while (first <= i && i < last && order_nocase(name_at(names, i), LIST_NAME_SIZE - 1, text) < 0) ++i;
    return i;
}

// Rows above the selected one at the pointer's height dy = mouse_y - y: row 0 is the band
// y - 5 .. y + 5 around the selected row's line, each row above 10 units higher.
static int32_t rows_above(float dy) {
    int32_t r = (int32_t)std::floor((dy + LIST_ROW_H / 2.0f) / LIST_ROW_H);
    return r < -LIST_ROWS_HALF ? -LIST_ROWS_HALF : r > LIST_ROWS_HALF ? LIST_ROWS_HALF : r;
}

static void code_field_form(char* search) {
    if (strnlen(search, SEARCH_CODE_LEN + 1) > (size_t)SEARCH_CODE_LEN) search[SEARCH_CODE_LEN] = 0;
    for (int32_t k = 0; k < SEARCH_CODE_LEN && search[k]; ++k) char_upper(&search[k]);
}

// The two search fields below the list: presses choose the active field; a key down in the
// pass moves the index to what the active field's search finds.
static int32_t search_fields(float x, float y, const char* names, int32_t* index, int32_t first, int32_t last,
                             char* search, int32_t* field) {
    BTN_util_draw_bar(BAR_FIELD, x + 118.0f, y - 147.0f, 232.0f);
    BTN_util_draw_bar(BAR_FIELD, x + 255.0f, y - 147.0f, 40.0f);
    int32_t result = 0;
    if (ShellInput.mouse_clicked && BTN_within(ShellInput.mouse_y, y - 157.0f, y - 137.0f)) {
        const float mx = ShellInput.mouse_x;
        const int32_t pick = BTN_within(mx, x, x + 232.0f) ? SEARCH_NAME
                           : BTN_within(mx, x + 235.0f, x + 275.0f) ? SEARCH_CODE : -1;
        if (pick >= 0) {
            *field = pick;
            search[0] = 0;
            result = 1;
        }
    }
    if (*field != SEARCH_NAME && *field != SEARCH_CODE) return result;
    str_check(search);
    if (*field == SEARCH_CODE) code_field_form(search);
    if (ShellInput.key_pressed) {
        *index = 0;  // also what a code that is not found leaves
        if (*field == SEARCH_CODE) {
            if (code_search) code_search(search, BTN_search_kind, index);
        } else {
            *index = BTN_list_find_name(names, first, last, search);
        }
    }
    const float tx = x + 8.0f + (*field == SEARCH_CODE ? 234.0f : 0.0f);
    OGL_draw_string(PAL_GREEN, tx, y - 150.0f, search, FONT_NO_WRAP, FACE_FIELD);
    const float cx = tx + (float)(OGL_face_advance(FACE_FIELD) * (int32_t)strlen(search));
    const float alpha = 0.5f + 0.4f * sinf(10.0f * ShellInput.elapsed_secs);
    OGL_draw_line(PAL_GREEN, alpha, cx, y - 144.0f, cx, y - 151.0f);
    OGL_mark_pulse(OGL_SMALL_PULSE);  // the cursor keeps pulsing while nothing else happens
    return result;
}

// One row: the name, and the tag beside it unless the tag marks a folder or a file. Returns
// the row's colour.
static int32_t draw_row(float x, float line_y, const char* name, const char* tag) {
    char n[LIST_NAME_SIZE] = {}, t[8] = {};
    memcpy(n, name, strnlen(name, LIST_NAME_SIZE - 1));
    memcpy(t, tag, strnlen(tag, LIST_TAG_SIZE - 1));
    const bool folder = strncmp(t, "fold", 4) == 0, file = strncmp(t, "file", 4) == 0;
    const int32_t color = folder ? PAL_YELLOW : PAL_GREEN;
    OGL_draw_string(color, x + 8.0f, line_y, n, FONT_NO_WRAP, FACE_FIELD);
    if (!folder && !file) OGL_draw_string(color, x + 242.0f, line_y, t, FONT_NO_WRAP, FACE_FIELD);
    return color;
}

int32_t BTN_list_picker(float x, float y, const char* names, const char* tags, int32_t* index, int32_t first,
                        int32_t last, int32_t mode, char* search, int32_t* search_field) {
    const SheetBlock& box = BTN_sheet[SHEET_LIST_BOX];
    BTN_util_draw_piece(x - 16.0f, y - 132.0f, x + 288.0f, y + 132.0f, box.x, box.y, box.x + box.w, box.y + box.h,
                        PAL_WHITE, 1.0f, 0);
    if (last < first) return 0;
    BTN_scroll_bar(x + 302.0f, y - 130.0f, y + 130.0f, first, last, index);

    int32_t result = 0;
    if (ShellInput.mouse_clicked && BTN_pointer_in(x, x + 270.0f, y - 105.0f, y + 105.0f)) {
        *index -= rows_above(ShellInput.mouse_y - y);
        result = 1;
    }
    if (mode != SCREEN_FILE_OPEN && mode != SCREEN_FILE_SAVE)
        result |= search_fields(x, y, names, index, first, last, search, search_field);

    int32_t frame = PAL_BLACK;  // stays black when the selected index has no row
    for (int32_t k = -LIST_ROWS_HALF; k <= LIST_ROWS_HALF; ++k) {
        const int32_t i = *index + k;
        if (i < first || i > last) continue;
        const int32_t color =
            draw_row(x, y - LIST_ROW_H * (float)k - 3.0f, name_at(names, i), tags + (size_t)LIST_TAG_SIZE * (size_t)i);
        if (k == 0) frame = color;
    }
    OGL_frame_rect(frame, 1.0f, x + 5.0f, y - 5.0f, 261.0f, LIST_ROW_H);
    if (*index < first) *index = first;
    if (*index > last) *index = last;
    return result;
}
