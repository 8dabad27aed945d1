// SDL events turned into the window messages of the message handler.
#include <SDL.h>

#include "platform/platform.h"
#include "platform/posix/message_queue.h"
#include "platform/sdl/sdl_keys.h"
#include "platform/sdl/sdl_video.h"

static uint32_t held_of(uint16_t mod) {
    return ((mod & KMOD_SHIFT) ? PLAT_HELD_SHIFT : 0u) | ((mod & KMOD_CTRL) ? PLAT_HELD_CTRL : 0u);
}

// Window pixels packed as the low and high 16-bit words, as the handler unpacks them.
static intptr_t pack_xy(int x, int y) {
    return (intptr_t)(((uint32_t)(uint16_t)y << 16) | (uint32_t)(uint16_t)x);
}

static void post(uint32_t message, uintptr_t wparam, intptr_t lparam, uint32_t held) {
    PlatMessage msg{message, wparam, lparam, held};
    plat_post_message(msg);
}

static void translate(const SDL_Event& e) {
    switch (e.type) {
    case SDL_QUIT:
        post(PLAT_MSG_CLOSE, 0, 0, 0);
        break;
    case SDL_WINDOWEVENT:
        if (e.window.event == SDL_WINDOWEVENT_EXPOSED) post(PLAT_MSG_PAINT, 0, 0, 0);
        break;
    case SDL_KEYDOWN: {
        // Keys pressed with Alt (and Alt, F10 themselves) are system keys, not key-downs.
        const SDL_Keysym& k = e.key.keysym;
        if ((k.mod & KMOD_ALT) || k.sym == SDLK_LALT || k.sym == SDLK_RALT || k.sym == SDLK_F10) break;
        uint32_t vk = sdl_virtual_key(k.sym, k.scancode);
        if (vk) post(PLAT_MSG_KEYDOWN, vk, 0, held_of(k.mod));
        break;
    }
    case SDL_MOUSEMOTION:
        post(PLAT_MSG_MOUSEMOVE, 0, pack_xy(e.motion.x, e.motion.y), held_of((uint16_t)SDL_GetModState()));
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP: {
        bool down = e.type == SDL_MOUSEBUTTONDOWN;
        uint32_t msg;
        if (e.button.button == SDL_BUTTON_LEFT)
            msg = down ? PLAT_MSG_LBUTTONDOWN : PLAT_MSG_LBUTTONUP;
        else if (e.button.button == SDL_BUTTON_RIGHT)
            msg = down ? PLAT_MSG_RBUTTONDOWN : PLAT_MSG_RBUTTONUP;
        else
            break;
        post(msg, 0, pack_xy(e.button.x, e.button.y), held_of((uint16_t)SDL_GetModState()));
        break;
    }
    default:
        break;
    }
}

void plat_gather_events() {
    if (!SDL_WasInit(SDL_INIT_VIDEO)) return;
    SDL_Event e;
    while (SDL_PollEvent(&e)) translate(e);
}
