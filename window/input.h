// The shared input record and the translation of key-downs into key codes and typed text.
#pragma once
#include <cstdint>

#include "util/text.h"

struct ShellInputRecord {
    float mouse_x, mouse_y;  // design units relative to the panel origin, y upward
    int32_t mouse_clicked;   // a button went down since the start of this pass
    int32_t mouse_down;      // a button is held
    int32_t key_pressed;     // a key went down since the start of this pass
    int32_t enter_pressed;   // Return went down since the start of this pass
    Text typed_text;         // characters typed since the last screen change
    Text help_text;          // tooltip of the widget under the pointer; emptied each pass
    float last_activity;     // elapsed_secs of the last pointer movement or press
    float elapsed_secs;      // seconds since the first drawn pass
};

extern ShellInputRecord ShellInput;

// Key codes of the keys the program names (any other key: KEY_NONE).
enum : int32_t {
    KEY_NONE = -9999,
    KEY_SHIFT = -999,
    KEY_LEFT = 0x7B00, KEY_UP = 0x7E00, KEY_RIGHT = 0x7C00, KEY_DOWN = 0x7D00,
    KEY_SHIFT_UP = 50000, KEY_SHIFT_LEFT = 50001, KEY_SHIFT_DOWN = 50002, KEY_SHIFT_RIGHT = 50003,
    KEY_RETURN = 0x2400, KEY_TAB = 0x3000, KEY_INSERT = 0x6D00, KEY_DELETE = 0x752F,
};
// Key classes handed to app_key.
enum : int32_t { KEY_CLASS_PLAIN = 0, KEY_CLASS_MOVE = 1, KEY_CLASS_CTRL = 3 };

// The key code of a virtual key, before the Shift rule for arrows (KEY_NONE if unlisted).
int32_t key_code_of(uint32_t virtual_key);
// The character of a virtual key with Shift up or down (French changes the 6 key).
char key_char_of(uint32_t virtual_key, bool shift, int32_t language);

// One key-down read: key code (after the Shift rule for arrows), character, class, and the
// key handed to the application (the code for move keys, else the character). Sets
// enter_pressed for Return. Reads Shift and Ctrl as they were at the message.
struct KeyDown {
    int32_t code, key_class, key;
    char ch;
};
KeyDown input_key_down(uint32_t virtual_key);

// The key's effect on typed_text: a character appended, Delete/Backspace/Insert drop the
// last one; keys that are not text leave it alone.
void input_enter_text(int32_t code, char ch);

// Every field back to zero.
void input_reset();
