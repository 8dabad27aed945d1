// The file button: a field showing the file's name, and the button at its left end that runs
// the file chooser the shell installed.
#include "graphics/palette_names.h"
#include "kit/boxes.h"
#include "kit/font.h"
#include "kit/hit.h"
#include "kit/widgets.h"
#include "window/screen_ids.h"

static FileChooserFn chooser = nullptr;

void BTN_set_file_chooser(FileChooserFn fn) { chooser = fn; }
void widgets_reset() { chooser = nullptr; }

int32_t BTN_file_button(float x, float y, char* name, char* path, int32_t file_type, const char* help) {
    str_check(name);
    str_check(path);
    BTN_util_draw_sprite(SHEET_FILE_FIELD, x - 27.0f, y - 10.0f, PAL_WHITE);
    int32_t clicked = 0;
    if (BTN_pointer_in(x - 28.0f, x - 6.0f, y - 8.0f, y + 12.0f)) {
        str_copy(help, ShellInput.help_text);
        clicked = ShellInput.mouse_clicked ? 1 : 0;
    }
    // The chooser's own result is not passed on: the caller reloads from path either way.
    if (clicked && chooser) chooser(SCREEN_FILE_OPEN, file_type, name, path);
    OGL_draw_string(PAL_GREEN, x, y, name, FONT_NO_WRAP, FACE_FIELD);
    return clicked;
}
