// Immediate-mode widgets: push, check and choice buttons, the file button, the boxed-digit field.
// Each is called once per pass from a screen's drawing: it draws itself, reads this pass's
// pointer from ShellInput (panel units, closed ranges), changes the caller's variable and
// returns 1 when the user acted. Nothing is kept between passes.
#pragma once
#include <cstdint>

// ---- push button ----  (x, y) is the centre; n = label length, width w = 6 n + 21
//  zone                                  | input             | effect
//  x - w/2 .. x + w/2, y - 10 .. y + 10  | press             | returns 1 in the pass of the press
//                                        |                   | unlit with show_press: lit look drawn
//                                        |                   | and a frame presented at once
//  anywhere else                         | any               | nothing; returns 0
//  lit non-zero draws the lit overlay every pass, pressed or not.
constexpr int32_t PUSH_ADVANCE = 6;  // label units per character
constexpr int32_t PUSH_PAD = 21;     // body width beyond the label
constexpr float PUSH_HALF_H = 10.0f;
int32_t BTN_push_button(float x, float y, int32_t lit, int32_t show_press, const char* label);

// ---- check button ----  (x, y): centre of the box, 4 units below its middle
//  zone                                  | input    | effect
//  x - 8 .. x + 8, y - 4 .. y + 12       | hover    | help copied into help_text
//                                        | press    | flag flipped (0 -> 1, else -> 0); returns 1
//  anywhere else                         | any      | nothing; returns 0
//  The box shows the flag as it was on entry; the label's parts go left and right of it.
int32_t BTN_check_button(float x, float y, int32_t* state, const char* label, const char* help);

// ---- choice button ----  a check button that is on while *selection == value
//  zone         | input  | effect
//  check zone   | press  | *selection = value (already so: unchanged); returns 1
//  elsewhere    | any    | nothing; returns 0
int32_t BTN_choice_button(float x, float y, int32_t* selection, int32_t value, const char* label,
                          const char* help);

// ---- file button ----  (x, y): where the file name is written; the field's button is left of it
//  zone                                  | input  | effect
//  x - 28 .. x - 6, y - 8 .. y + 12      | hover  | help copied into help_text
//                                        | press  | the file chooser runs (modal) on screen 998;
//                                        |        | returns 1, picked or cancelled
//  the name, anywhere else               | any    | nothing; returns 0
//  Without an installed chooser a press returns 1 and leaves name and path as they were.
int32_t BTN_file_button(float x, float y, char* name, char* path, int32_t file_type, const char* help);

// The modal file chooser the shell installs: picks a file of `file_type` on `screen`, leaving
// the file name in `name` and the full path in `path` (both 500-byte texts).
using FileChooserFn = int32_t (*)(int32_t screen, int32_t file_type, char* name, char* path);
void BTN_set_file_chooser(FileChooserFn fn);

// ---- boxed-digit field ----  x: left edge of box 0; y: the digits' text line; box k spans
// x + 10 k .. x + 10 (k + 1) and is worth 10^(digits - 1 - k) / 10^decimals
//  zone                                      | input  | effect
//  x .. x + 10 digits, y - 2 .. y + 8        | hover  | help copied into help_text
//  x .. x + 10 digits, y + 3 .. y + 24       | press  | box under the pointer adds its step
//  x .. x + 10 digits, y - 18 .. < y + 3     | press  | box under the pointer takes its step
//  (the last box also owns its right edge; a box owns its left edge)   returns 1 on a press
//  anywhere else                             | any    | nothing; returns 0
//  Every pass: the value is held within min .. max, pressed or not. No boxes is fatal.
constexpr float DIGIT_BOX_W = 10.0f;
int32_t BTN_util_draw_boxed_button(int32_t color, float x, float y, float* value, int32_t digits,
                                   int32_t decimals, float min, float max, const char* label,
                                   const char* help);

// The boxed-digit field whose range is every value its places can show: 0 .. 99..9 (with
// `decimals` of the places after the point), or -max .. max with allow_negative.
int32_t BTN_number_field(int32_t color, float x, float y, float* value, int32_t digits, int32_t decimals,
                         int32_t allow_negative, const char* label, const char* help);
// That largest value: all `digits` places 9 (0 for fewer than 1 or more than 10 places).
float BTN_number_max(int32_t digits, int32_t decimals);

void widgets_reset();  // no file chooser installed
