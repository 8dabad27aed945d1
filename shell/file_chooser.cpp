// The file chooser: start folder by type, the per-frame listing in a list picker, the path's
// staircase, the name field, the up and cancel buttons, and walking into folders.
#include "shell/file_chooser.h"

#include <cstring>

#include "graphics/design_space.h"
#include "graphics/palette_names.h"
#include "graphics/primitives.h"
#include "kit/boxes.h"
#include "kit/font.h"
#include "kit/list_picker.h"
#include "kit/widgets.h"
#include "shell/event_loop.h"
#include "shell/screens.h"
#include "shell/shell_text.h"
#include "util/file_types.h"
#include "util/folder_list.h"
#include "util/paths.h"
#include "window/input.h"

static_assert(LISTING_NAME_SIZE == LIST_NAME_SIZE && LISTING_KIND_SIZE == LIST_TAG_SIZE,
              "the list picker reads the listing's tables as they are");

FileChooserState chooser;

void chooser_reset() { memset(&chooser, 0, sizeof chooser); }

// Layout, panel units.
constexpr float LIST_X = 28.0f, LIST_Y = 168.0f;
constexpr float UP_X = 163.0f, UP_Y = 287.0f, CANCEL_X = 163.0f, CANCEL_Y = 52.0f;
constexpr float PATH_BOX_X = 12.0f, PATH_BOX_Y = 308.0f, PATH_BOX_W = 302.0f, PATH_BOX_H = 120.0f;
constexpr float STAIR_X = 15.0f, STAIR_Y = 420.0f, STAIR_STEP = 10.0f;
constexpr float NAME_BAR_X = 164.0f, NAME_BAR_Y = 20.0f, NAME_BAR_W = 305.0f;
constexpr float NAME_X = 20.0f, NAME_Y = 17.0f, NAME_WRAP = 510.0f;
constexpr float CURSOR_Y = 16.0f, CURSOR_ADVANCE = 6.0f, CURSOR_W = 26.0f;
constexpr int32_t NAME_MAX = 30;  // characters of a typed name

// Type codes 1..12 start in the folder table's entries for them, in the same order; 13 and 14
// under the custom scenery base, which this program leaves empty.
static const char custom_scenery_base[] = "";

void chooser_start(int32_t type, char* limit) {
    const char* program = folders.path[FOLDER_PROGRAM];
    char* work = work_folder();
    if (type >= FILE_TYPE_AIRFOIL && type <= FILE_TYPE_REGION) {
        str_copy(folders.path[FOLDER_AIRFOILS + type - FILE_TYPE_AIRFOIL], work);
        str_copy(type == FILE_TYPE_AIRFOIL || type == FILE_TYPE_AIRCRAFT ? program : work, limit);
    } else if (type == FILE_TYPE_OBJECT || type == FILE_TYPE_TERRAIN) {
        str_join(custom_scenery_base, type == FILE_TYPE_OBJECT ? "custom objects:" : "custom terrain textures:", work);
        str_copy(work, limit);
    } else {
        str_copy(program, limit);
    }
}

// The up button is shown while the work folder lies more than two characters below the limit.
static bool can_go_up(const char* folder, const char* limit) { return strlen(folder) > strlen(limit) + 2; }

// Cuts the last folder off `folder`, keeping its final separator, never above `limit`. The work
// folder is in the platform's form here, where a ":" belongs to a name.
static void go_up(char* folder, const char* limit) {
    const int32_t floor = (int32_t)strlen(limit) - 1;  // the limit's own final separator
    int32_t i = (int32_t)strlen(folder) - 2;
    while (i > floor && i > 0 && folder[i] != PATH_SEP) --i;
    if (i >= 0 && folder[i] == PATH_SEP) folder[i + 1] = 0;
}

// The folders of the work folder one below the other, each a step further right; an empty
// text (before a leading separator) takes no step.
static void draw_staircase(const char* folder) {
    char part[STR_SIZE];
    int32_t k = 0, n = 0;
    for (const char* p = folder; *p; ++p) {
        if (*p != PATH_SEP) {
            part[n++] = *p;
            continue;
        }
        part[n] = 0;
        if (n > 0) {
            ++k;
            OGL_draw_string(COLOR_FOLDER, STAIR_X + STAIR_STEP * (float)k, STAIR_Y - STAIR_STEP * (float)k, part,
                            FONT_NO_WRAP, FACE_FIELD);
        }
        n = 0;
    }
}

// The typed name (save) with its cursor, or the selected entry's name (open).
static void draw_name_field(int32_t screen) {
    BTN_util_draw_bar(BAR_FIELD, NAME_BAR_X, NAME_BAR_Y, NAME_BAR_W);
    if (screen == SCREEN_FILE_SAVE) {
        char* typed = ShellInput.typed_text;
        if (strlen(typed) > (size_t)NAME_MAX) typed[NAME_MAX] = 0;
        OGL_draw_string(COLOR_TEXT, NAME_X, NAME_Y, typed, NAME_WRAP, FACE_FIELD);
        const float len = (float)strlen(typed);
        OGL_draw_line(COLOR_CURSOR, 1.0f, CURSOR_ADVANCE * len, CURSOR_Y, CURSOR_ADVANCE * len + CURSOR_W, CURSOR_Y);
    } else if (chooser.selection >= 0 && chooser.selection < chooser.count) {
        OGL_draw_string(COLOR_TEXT, NAME_X, NAME_Y, listing.name[chooser.selection], NAME_WRAP, FACE_FIELD);
    }
}

// A new folder: listed at once, the middle entry selected.
static void list_anew(int32_t type) {
    chooser.count = list_folder(type);
    chooser.selection = chooser.count / 2;
}

// Leaves the dialog for the screen it was opened from.
static int32_t close_dialog(int32_t back_to, int32_t result) {
    MACIBM_open_screen(back_to);
    return result;
}

int32_t opensave(int32_t screen, int32_t type, char* name, char* path) {
    const int32_t remembered = cur_screen;
    chooser_start(type, chooser.limit);
    path_to_platform(work_folder());
    path_to_platform(chooser.limit);
    list_anew(type);
    MACIBM_open_screen(screen);
    str_copy(name, ShellInput.typed_text);
    Text search = "";
    int32_t search_field = -1;

    while (cur_screen == screen) {
        OGL_draw_background();
        BTN_util_draw_panel(PANEL_DIALOG, 0.0f, 0.0f, panel_w, panel_h, panel_title);
        BTN_util_draw_panel(PANEL_BOX, PATH_BOX_X, PATH_BOX_Y, PATH_BOX_W, PATH_BOX_H, "");
        chooser.count = list_folder(type);
        const int32_t picked = BTN_list_picker(LIST_X, LIST_Y, listing.name[0], listing.kind[0], &chooser.selection, 0,
                                               chooser.count - 1, screen, search, &search_field);
        draw_name_field(screen);
        draw_staircase(work_folder());

        if (can_go_up(work_folder(), chooser.limit) &&
            BTN_push_button(UP_X, UP_Y, 0, 0, shell_text(TEXT_CHOOSER_UP))) {
            go_up(work_folder(), chooser.limit);
            list_anew(type);
        }
        if (BTN_push_button(CANCEL_X, CANCEL_Y, 0, 0, shell_text(TEXT_CHOOSER_CANCEL))) return close_dialog(remembered, 0);

        const bool enter = ShellInput.enter_pressed != 0;
        ShellInput.enter_pressed = 0;
        if (screen == SCREEN_FILE_SAVE && enter) {
            str_copy(ShellInput.typed_text, name);
            str_join(work_folder(), ShellInput.typed_text, path);
            return close_dialog(remembered, 1);
        }
        const int32_t i = chooser.selection;
        if ((picked || (enter && screen == SCREEN_FILE_OPEN)) && i >= 0 && i < chooser.count) {
            if (listing.is_folder[i]) {
                str_copy(listing.path[i], work_folder());
                list_anew(type);
            } else if (screen == SCREEN_FILE_OPEN) {
                // The whole name, which the listing may show cut: the path past the work folder.
                str_copy(listing.path[i] + strlen(work_folder()), name);
                str_copy(listing.path[i], path);
                return close_dialog(remembered, 1);
            }
        }
        MACIBM_event_pass();
    }
    return 0;
}

void file_chooser_install() { BTN_set_file_chooser(opensave); }
