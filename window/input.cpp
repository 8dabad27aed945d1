// The input record and the key-down translation: key codes, characters, classes, typed text.
#include "window/input.h"

#include <cstring>

#include "platform/platform.h"
#include "util/prefs.h"

ShellInputRecord ShellInput;

void input_reset() { memset(&ShellInput, 0, sizeof ShellInput); }

struct KeyCode {
    uint32_t vk;
    int32_t code;
};

static const KeyCode key_codes[] = {
    {PLAT_VK_LEFT, KEY_LEFT},         {PLAT_VK_UP, KEY_UP},
    {PLAT_VK_RIGHT, KEY_RIGHT},       {PLAT_VK_DOWN, KEY_DOWN},
    {PLAT_VK_NUMPAD0 + 1, 0x5300},    {PLAT_VK_NUMPAD0 + 2, 0x5400},
    {PLAT_VK_NUMPAD0 + 3, 0x5500},    {PLAT_VK_NUMPAD0 + 4, 0x5600},
    {PLAT_VK_NUMPAD0 + 5, 0x5700},    {PLAT_VK_NUMPAD0 + 6, 0x5800},
    {PLAT_VK_NUMPAD0 + 8, 0x5B00},    {PLAT_VK_RETURN, KEY_RETURN},
    {PLAT_VK_TAB, KEY_TAB},           {PLAT_VK_SHIFT, KEY_SHIFT},
    {PLAT_VK_F1 + 0, 0x7A00},         {PLAT_VK_F1 + 1, 0x7800},
    {PLAT_VK_F1 + 2, 0x6300},         {PLAT_VK_F1 + 3, 0x7600},
    {PLAT_VK_F1 + 4, 0x6000},         {PLAT_VK_F1 + 5, 0x6100},
    {PLAT_VK_F1 + 6, 0x6200},         {PLAT_VK_F1 + 7, 0x6400},
    {PLAT_VK_F1 + 8, 0x6500},         {PLAT_VK_INSERT, KEY_INSERT},
    {PLAT_VK_F1 + 10, 0x6700},        {PLAT_VK_F1 + 11, 0x6F00},
    {PLAT_VK_DELETE, KEY_DELETE},     {PLAT_VK_BACK, KEY_DELETE},
};

int32_t key_code_of(uint32_t virtual_key) {
    for (const KeyCode& k : key_codes)
        if (k.vk == virtual_key) return k.code;
    return KEY_NONE;
}

struct ShiftPair {
    uint32_t vk;
    char plain, shifted;
};

static const ShiftPair punctuation[] = {
    {PLAT_VK_OEM_MINUS, '-', '_'}, {PLAT_VK_OEM_PLUS, '=', '+'},   {PLAT_VK_OEM_4, '[', '{'},
    {PLAT_VK_OEM_6, ']', '}'},     {PLAT_VK_OEM_1, ';', ':'},      {PLAT_VK_OEM_COMMA, ',', '<'},
    {PLAT_VK_OEM_PERIOD, '.', '>'}, {PLAT_VK_OEM_2, '/', '?'},     {PLAT_VK_OEM_3, '`', '~'},
    {PLAT_VK_OEM_5, '\\', '|'},
};

char key_char_of(uint32_t virtual_key, bool shift, int32_t lang) {
    if (virtual_key >= 'A' && virtual_key <= 'Z') return (char)(shift ? virtual_key : virtual_key + 32);
    if (virtual_key == '6' && lang == 1) return shift ? '_' : '-';  // the French keyboard's 6 key
    if (virtual_key >= '0' && virtual_key <= '9') return shift ? ")!@#$%^&*("[virtual_key - '0'] : (char)virtual_key;
    for (const ShiftPair& p : punctuation)
        if (p.vk == virtual_key) return shift ? p.shifted : p.plain;
    return (char)(virtual_key & 0xFF);
}

static bool is_move_key(uint32_t vk) {
    return vk == PLAT_VK_TAB || (vk >= PLAT_VK_LEFT && vk <= PLAT_VK_DOWN) ||
           (vk >= PLAT_VK_NUMPAD0 + 1 && vk <= PLAT_VK_NUMPAD0 + 6) || vk == PLAT_VK_NUMPAD0 + 8;
}

static int32_t shifted_arrow(int32_t code) {
    switch (code) {
    case KEY_UP: return KEY_SHIFT_UP;
    case KEY_LEFT: return KEY_SHIFT_LEFT;
    case KEY_DOWN: return KEY_SHIFT_DOWN;
    case KEY_RIGHT: return KEY_SHIFT_RIGHT;
    default: return code;
    }
}

static bool skips_text(int32_t code, char ch) {
    // Insert's own byte is '-': it still deletes.
    if (code != KEY_INSERT && (ch == '+' || ch == '=' || ch == '-' || ch == '_')) return true;
    if (code == KEY_TAB) return true;
    return code == KEY_LEFT || code == KEY_UP || code == KEY_RIGHT || code == KEY_DOWN ||
           (code >= KEY_SHIFT_UP && code <= KEY_SHIFT_RIGHT);
}

void input_enter_text(int32_t code, char ch) {
    if (skips_text(code, ch)) return;
    char* text = ShellInput.typed_text;
    int n = (int)strnlen(text, STR_SIZE - 1);
    if (n > STR_SIZE - 2) n = STR_SIZE - 2;
    if (code == KEY_INSERT || code == KEY_DELETE) {
        if (n > 0) text[n - 1] = 0;
    } else if (code != KEY_SHIFT && code != KEY_RETURN) {
        text[n] = ch;
        text[n + 1] = 0;
    }
}

KeyDown input_key_down(uint32_t virtual_key) {
    bool shift = plat_key_held(PLAT_VK_SHIFT);
    KeyDown k;
    k.code = key_code_of(virtual_key);
    k.ch = key_char_of(virtual_key, shift, language);
    k.key_class = plat_key_held(PLAT_VK_CONTROL) ? KEY_CLASS_CTRL : KEY_CLASS_PLAIN;
    if (is_move_key(virtual_key)) k.key_class = KEY_CLASS_MOVE;
    if (shift) k.code = shifted_arrow(k.code);
    k.key = k.key_class == KEY_CLASS_MOVE ? k.code : (int32_t)(signed char)k.ch;
    if (k.code == KEY_RETURN) ShellInput.enter_pressed = 1;
    return k;
}
