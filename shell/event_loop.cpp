// The event pass and the window's message handler.
#include "shell/event_loop.h"

#include <cmath>
#include <cstring>

#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/primitives.h"
#include "graphics/qgl.h"
#include "graphics/textures.h"
#include "platform/platform.h"
#include "shell/app_hooks.h"
#include "window/gl_caps.h"
#include "window/input.h"
#include "graphics/palette_names.h"
#include "kit/boxes.h"
#include "kit/faces.h"
#include "kit/sheet_map.h"
#include "kit/font.h"
#include "shell/keydown.h"
#include "shell/menus.h"
#include "shell/screens.h"
#include "base/shutdown.h"
#include "window/window.h"

static int32_t window_painted = 0;
static bool clock_started = false;
static float clock_t0 = 0.0f;
static float last_mouse_x = 999.0f, last_mouse_y = 999.0f;
static bool had_message = false;       // a message was delivered in this pass
static float last_message_secs = 0.0f;  // elapsed_secs of the last pass that had one
static int32_t paced_motion = OGL_STILL;

void event_loop_reset() {
    window_painted = 0;
    clock_started = false;
    clock_t0 = 0.0f;
    last_mouse_x = last_mouse_y = 999.0f;
    had_message = false;
    last_message_secs = 0.0f;
    paced_motion = OGL_STILL;
}

int32_t event_loop_motion() { return paced_motion; }

uint32_t pass_interval_us(float elapsed_secs, float last_message, int32_t motion) {
    if (elapsed_secs - last_message <= PASS_IDLE_AFTER_SECS || motion >= OGL_PULSING) return PASS_MIN_INTERVAL_US;
    return motion == OGL_SMALL_PULSE ? PASS_PULSE_INTERVAL_US : PASS_IDLE_INTERVAL_US;
}

int32_t event_loop_painted() { return window_painted; }

intptr_t MACIBM_window_proc(void* window, uint32_t message, uintptr_t wparam, intptr_t lparam) {
    (void)window;
    switch (message) {
    case PLAT_MSG_CREATE:
        window_created = 1;
        break;
    case PLAT_MSG_DESTROY:
        MACIBM_open_screen(SCREEN_MAIN);
        break;
    case PLAT_MSG_PAINT:
        MACIBM_open_screen(cur_screen);  // rebuilds the panel and the background
        window_painted = 1;
        break;
    case PLAT_MSG_CLOSE:  // the window manager's close: an orderly end of the main loop
        quit_requested = 1;
        break;
    case PLAT_MSG_KEYDOWN:
        MACIBM_keydown((uint32_t)wparam);
        ShellInput.key_pressed = 1;
        break;
    case PLAT_MSG_MOUSEMOVE: {
        float x = (float)((uint32_t)lparam & 0xFFFF);
        float y = (float)(((uint32_t)lparam >> 16) & 0xFFFF);
        ShellInput.mouse_x = x / ui_scale - panel_x - ui_margin_x;
        ShellInput.mouse_y = (disp_height - y) / ui_scale - panel_y;
        break;
    }
    case PLAT_MSG_LBUTTONDOWN:
    case PLAT_MSG_RBUTTONDOWN:
        ShellInput.mouse_clicked = 1;
        ShellInput.mouse_down = 1;
        ShellInput.last_activity = ShellInput.elapsed_secs;
        MACIBM_handleclick(0);
        break;
    case PLAT_MSG_LBUTTONUP:
    case PLAT_MSG_RBUTTONUP:
        ShellInput.mouse_down = 0;
        break;
    default:
        break;
    }
    return 0;
}

static float clampf(float v, float lo, float hi) {
    if (v < lo) v = lo;
    if (v > hi) v = hi;
    return v;
}

TooltipBox tooltip_box(const char* text, float mouse_x, float mouse_y) {
    TooltipBox b;
    b.w = 400.0f;
    b.h = clampf((float)((int32_t)strlen(text) / 50 * 10 + 20), 60.0f, 200.0f);
    b.x = clampf(mouse_x - b.w, 10.0f - panel_x, 1014.0f - panel_x - b.w);
    b.y = clampf(mouse_y, 10.0f - panel_y, 748.0f - panel_y - b.h);
    return b;
}

bool tooltip_due(const char* help_text, float elapsed_secs, float last_activity) {
    return help_text[0] && elapsed_secs - last_activity > 1.0f;
}

static void pulse_palette(float t) {
    float a = 0.8f + 0.2f * sinf(10.0f * t);
    float b = 0.7f + 0.3f * sinf(25.0f * t);
    float d = 0.6f + 0.4f * sinf(10.0f * t);
    OGL_set_palette(COLOR_PULSE_GREEN, 0.2f * a, a, 0.2f * a);
    OGL_set_palette(COLOR_PULSE_GREEN_FAST, 0.2f * b, b, 0.2f * b);
    OGL_set_palette(COLOR_PULSE_RED, a, 0.2f * a, 0.2f * a);
    OGL_set_palette(COLOR_PULSE_RED_FAST, b, 0.2f * b, 0.2f * b);
    OGL_set_palette(COLOR_PULSE_GREY, d, d, d);
    OGL_set_palette(COLOR_PULSE_AMBER, d, 0.9f * d, 0.5f * d);
}

// The pointer sprite of the interface sheet: pixels 327..349 across, 337..359 down.
static void draw_pointer() {
    const SheetBlock& p = BTN_sheet[SHEET_POINTER];
    const float s1 = p.x / 512.0f, s2 = (p.x + p.w) / 512.0f, t0 = p.y / 512.0f, t1 = (p.y + p.h) / 512.0f;
    // The tip sits 7 texels from the left and 4 from the top of its cell.
    float l = ShellInput.mouse_x - 7.0f, r = l + p.w;
    float t = ShellInput.mouse_y + 4.0f, b = t - p.h;
    OGL_draw_quad(TEX_SHEET, COLOR_LIT, 1.0f, l, b, s1, t0, l, t, s1, t1, r, t, s2, t1, r, b, s2, t0, 1,
                  OGL_ALPHA_ON, OGL_BLEND_OFF);
}

static void draw_tooltip() {
    TooltipBox box = tooltip_box(ShellInput.help_text, ShellInput.mouse_x, ShellInput.mouse_y);
    BTN_util_draw_panel(PANEL_TIP, box.x - 10.0f, box.y - 10.0f, box.w + 20.0f, box.h + 20.0f, "");
    OGL_draw_string(COLOR_TEXT, box.x + 3.0f, box.y + box.h - 10.0f, ShellInput.help_text, box.w - 6.0f, FACE_TIP);
}

static void deliver_messages() {
    PlatMessage msg;
    while (plat_peek_message(&msg)) {
        MACIBM_window_proc(plat_window_handle(), msg.message, msg.wparam, msg.lparam);
        had_message = true;
    }
}

static void run_pass() {
    ShellInput.enter_pressed = 0;
    ShellInput.mouse_clicked = 0;
    ShellInput.key_pressed = 0;
    if (cur_screen == SCREEN_INTRO) cur_screen = SCREEN_MAIN;
    if (open_menu >= 0) MACIBM_menu_follow_pointer();
    deliver_messages();
    if (!window_painted) return;

    if (!clock_started) {
        clock_t0 = clock_secs();
        clock_started = true;
    }
    ShellInput.elapsed_secs = clock_secs() - clock_t0;
    if (had_message) last_message_secs = ShellInput.elapsed_secs;
    had_message = false;

    if (fabsf(ShellInput.mouse_x - last_mouse_x) > 0.5f || fabsf(ShellInput.mouse_y - last_mouse_y) > 0.5f)
        ShellInput.last_activity = ShellInput.elapsed_secs;
    last_mouse_x = ShellInput.mouse_x;
    last_mouse_y = ShellInput.mouse_y;

    ShellInput.help_text[0] = 0;
    pulse_palette(ShellInput.elapsed_secs);

    if (!screen_is_modal(cur_screen)) {  // modal screens draw in their own loops
        OGL_draw_background();
        // The background goes to the renderer at once: a software renderer rasterises it on its
        // own threads while the rest of the frame is drawn, instead of all of it at the swap.
        qglFlush();
        app_draw();
    }
    if (cur_screen == SCREEN_MAIN || open_menu >= 0) MACIBM_draw_menus();
    if (sw_cursor) draw_pointer();
    if (tooltip_due(ShellInput.help_text, ShellInput.elapsed_secs, ShellInput.last_activity)) draw_tooltip();
    OGL_swap_buffers();
}

void MACIBM_event_pass() {
    run_pass();
    // The main loop ends: no wait for a next pass. A modal loop (an alert, a file dialog) goes on
    // until closed, so it keeps its pace.
    if (quit_requested && !screen_is_modal(cur_screen)) return;
    // The motion of everything drawn since the last pace, modal loops' own drawing included.
    uint32_t interval = window_painted ? pass_interval_us(ShellInput.elapsed_secs, last_message_secs, OGL_pulse_drawn)
                                       : PASS_MIN_INTERVAL_US;
    paced_motion = OGL_pulse_drawn;
    OGL_pulse_drawn = OGL_STILL;
    // Until the window is first painted a pass draws nothing: the message that paints it ends
    // the wait, so the first frame follows it at once.
    plat_pace(interval, !window_painted || interval != PASS_MIN_INTERVAL_US);
}
