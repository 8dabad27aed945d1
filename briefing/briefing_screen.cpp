// The briefing screen: the two airport pickers, the aircraft, the altitude, the briefing button
// and the four paragraphs; the program's draw hook.
#include "briefing/briefing_screen.h"

#include <cstring>

#include "briefing/aircraft.h"
#include "briefing/airports.h"
#include "briefing/composer.h"
#include "briefing/request.h"
#include "graphics/design_space.h"
#include "graphics/palette_names.h"
#include "kit/boxes.h"
#include "kit/faces.h"
#include "kit/font.h"
#include "kit/list_picker.h"
#include "kit/widgets.h"
#include "shell/text_table.h"
#include "util/text.h"
#include "window/input.h"

static const char AIRCRAFT_HELP[] =
    "This is the plane you will take on this flight. It's performance is considered for estimation of time "
    "enroute, which the Vocalog uses to give you your briefing below.";
static const char ALTITUDE_HELP[] =
    "This is the altitude you have planned enroute. This is one of the pieces of information you give the "
    "controller when filing a flight plan or requesting a weather briefing in reality. It is used to correctly "
    "phrase your request for weather below.";

constexpr int32_t FIO_TYPE_AIRCRAFT = 3;  // the file type code of aircraft files

struct PickerPlace {
    float x, y;
};
static const PickerPlace PICKERS[2] = {{54.0f, 524.0f}, {449.0f, 524.0f}};

void brief_screen_install() { BTN_set_code_search(apt_find_code); }

// One airport picker; the picker with the focus works on the shared typed text.
static void airport_picker(int32_t which, int32_t* index) {
    BriefingRequest& q = brief_req;
    if (q.picker_focus == which) str_copy(ShellInput.typed_text, q.search_text[which]);
    if (BTN_list_picker(PICKERS[which].x, PICKERS[which].y, &apt_table.apt_name[0][0], &apt_table.apt_code[0][0],
                        index, 0, apt_table.airport_count, 0, q.search_text[which], &q.search_field[which]))
        q.picker_focus = which;
    if (q.picker_focus == which) str_copy(q.search_text[which], ShellInput.typed_text);
}

static void draw_paragraphs() {
    const BriefingRequest& q = brief_req;
    const struct {
        const char* text;
        float y;
    } rows[] = {{q.intro, 315.0f}, {q.dep_wx, 225.0f}, {q.enroute_wx, 185.0f}, {q.dest_wx, 145.0f}};
    for (const auto& r : rows) OGL_draw_string(COLOR_TEXT, 48.0f, r.y, r.text, 640.0f, FACE_FIELD);
}

void brief_draw_screen() {
    BriefingRequest& q = brief_req;
    BTN_util_draw_panel(PANEL_SCREEN, 0.0f, 0.0f, panel_w, panel_h, "");
    BTN_util_draw_panel(PANEL_INNER, 26.0f, 36.0f, panel_w - 52.0f, panel_h - 90.0f, "");
    BTN_util_draw_panel(PANEL_BOX, 38.0f, 252.0f, 724.0f, 80.0f, "");
    BTN_util_draw_panel(PANEL_BOX, 38.0f, 47.0f, 724.0f, 195.0f, "");

    airport_picker(0, &q.departure);
    airport_picker(1, &q.destination);

    if (BTN_file_button(63.0f, 680.0f, q.aircraft_name, q.aircraft_path, FIO_TYPE_AIRCRAFT, AIRCRAFT_HELP)) {
        acf_read(0, q.aircraft_path);
        q.speed = speed_from_aircraft();
    }
    BTN_number_field(COLOR_TEXT, 485.0f, 680.0f, &q.altitude, 5, 0, 0, text_table[TEXT_ALTITUDE],
                     ALTITUDE_HELP);
    if (BTN_push_button(691.0f, 684.0f, 0, 1, text_table[TEXT_BRIEF_BUTTON])) brief_compose();
    draw_paragraphs();
}
