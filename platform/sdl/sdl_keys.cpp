// Translation of SDL key codes into Windows virtual-key codes.
#include "platform/sdl/sdl_keys.h"

#include <SDL.h>

#include "platform/platform.h"

struct KeyPair {
    SDL_Keycode key;
    uint32_t vk;
};

static const KeyPair named_keys[] = {
    {SDLK_BACKSPACE, PLAT_VK_BACK},   {SDLK_TAB, PLAT_VK_TAB},
    {SDLK_RETURN, PLAT_VK_RETURN},    {SDLK_KP_ENTER, PLAT_VK_RETURN},
    {SDLK_LSHIFT, PLAT_VK_SHIFT},     {SDLK_RSHIFT, PLAT_VK_SHIFT},
    {SDLK_LCTRL, PLAT_VK_CONTROL},    {SDLK_RCTRL, PLAT_VK_CONTROL},
    {SDLK_PAUSE, PLAT_VK_PAUSE},      {SDLK_CAPSLOCK, PLAT_VK_CAPITAL},
    {SDLK_ESCAPE, PLAT_VK_ESCAPE},    {SDLK_SPACE, PLAT_VK_SPACE},
    {SDLK_PAGEUP, PLAT_VK_PRIOR},     {SDLK_PAGEDOWN, PLAT_VK_NEXT},
    {SDLK_END, PLAT_VK_END},          {SDLK_HOME, PLAT_VK_HOME},
    {SDLK_LEFT, PLAT_VK_LEFT},        {SDLK_UP, PLAT_VK_UP},
    {SDLK_RIGHT, PLAT_VK_RIGHT},      {SDLK_DOWN, PLAT_VK_DOWN},
    {SDLK_INSERT, PLAT_VK_INSERT},    {SDLK_DELETE, PLAT_VK_DELETE},
    {SDLK_KP_0, PLAT_VK_NUMPAD0 + 0}, {SDLK_KP_1, PLAT_VK_NUMPAD0 + 1},
    {SDLK_KP_2, PLAT_VK_NUMPAD0 + 2}, {SDLK_KP_3, PLAT_VK_NUMPAD0 + 3},
    {SDLK_KP_4, PLAT_VK_NUMPAD0 + 4}, {SDLK_KP_5, PLAT_VK_NUMPAD0 + 5},
    {SDLK_KP_6, PLAT_VK_NUMPAD0 + 6}, {SDLK_KP_7, PLAT_VK_NUMPAD0 + 7},
    {SDLK_KP_8, PLAT_VK_NUMPAD0 + 8}, {SDLK_KP_9, PLAT_VK_NUMPAD0 + 9},
    {SDLK_KP_MULTIPLY, PLAT_VK_MULTIPLY}, {SDLK_KP_PLUS, PLAT_VK_ADD},
    {SDLK_KP_MINUS, PLAT_VK_SUBTRACT},    {SDLK_KP_PERIOD, PLAT_VK_DECIMAL},
    {SDLK_KP_DIVIDE, PLAT_VK_DIVIDE},
    {SDLK_F1, PLAT_VK_F1 + 0},  {SDLK_F2, PLAT_VK_F1 + 1},  {SDLK_F3, PLAT_VK_F1 + 2},
    {SDLK_F4, PLAT_VK_F1 + 3},  {SDLK_F5, PLAT_VK_F1 + 4},  {SDLK_F6, PLAT_VK_F1 + 5},
    {SDLK_F7, PLAT_VK_F1 + 6},  {SDLK_F8, PLAT_VK_F1 + 7},  {SDLK_F9, PLAT_VK_F1 + 8},
    {SDLK_F10, PLAT_VK_F1 + 9}, {SDLK_F11, PLAT_VK_F1 + 10}, {SDLK_F12, PLAT_VK_F1 + 11},
    {SDLK_SEMICOLON, PLAT_VK_OEM_1}, {SDLK_EQUALS, PLAT_VK_OEM_PLUS},
    {SDLK_COMMA, PLAT_VK_OEM_COMMA}, {SDLK_MINUS, PLAT_VK_OEM_MINUS},
    {SDLK_PERIOD, PLAT_VK_OEM_PERIOD}, {SDLK_SLASH, PLAT_VK_OEM_2},
    {SDLK_BACKQUOTE, PLAT_VK_OEM_3}, {SDLK_LEFTBRACKET, PLAT_VK_OEM_4},
    {SDLK_BACKSLASH, PLAT_VK_OEM_5}, {SDLK_RIGHTBRACKET, PLAT_VK_OEM_6},
    {SDLK_QUOTE, PLAT_VK_OEM_7},
};

static uint32_t by_keycode(SDL_Keycode key) {
    if (key >= SDLK_a && key <= SDLK_z) return (uint32_t)('A' + (key - SDLK_a));
    if (key >= SDLK_0 && key <= SDLK_9) return (uint32_t)('0' + (key - SDLK_0));
    for (const KeyPair& p : named_keys)
        if (p.key == key) return p.vk;
    return 0;
}

// US positions of the punctuation keys, for layouts whose key codes are other characters.
static const KeyPair punctuation_scancodes[] = {
    {SDL_SCANCODE_SEMICOLON, PLAT_VK_OEM_1},    {SDL_SCANCODE_EQUALS, PLAT_VK_OEM_PLUS},
    {SDL_SCANCODE_COMMA, PLAT_VK_OEM_COMMA},    {SDL_SCANCODE_MINUS, PLAT_VK_OEM_MINUS},
    {SDL_SCANCODE_PERIOD, PLAT_VK_OEM_PERIOD},  {SDL_SCANCODE_SLASH, PLAT_VK_OEM_2},
    {SDL_SCANCODE_GRAVE, PLAT_VK_OEM_3},        {SDL_SCANCODE_LEFTBRACKET, PLAT_VK_OEM_4},
    {SDL_SCANCODE_BACKSLASH, PLAT_VK_OEM_5},    {SDL_SCANCODE_RIGHTBRACKET, PLAT_VK_OEM_6},
    {SDL_SCANCODE_APOSTROPHE, PLAT_VK_OEM_7},
};

uint32_t sdl_virtual_key(int32_t keycode, int32_t scancode) {
    uint32_t vk = by_keycode((SDL_Keycode)keycode);
    if (vk != 0) return vk;
    if (scancode >= SDL_SCANCODE_A && scancode <= SDL_SCANCODE_Z)
        return (uint32_t)('A' + (scancode - SDL_SCANCODE_A));
    if (scancode >= SDL_SCANCODE_1 && scancode <= SDL_SCANCODE_9)
        return (uint32_t)('1' + (scancode - SDL_SCANCODE_1));
    if (scancode == SDL_SCANCODE_0) return '0';
    for (const KeyPair& p : punctuation_scancodes)
        if (p.key == scancode) return p.vk;
    return 0;
}
