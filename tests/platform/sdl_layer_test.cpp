// The SDL layer: key translation, display modes, the window with its context, messages and
// the message box, on whatever video driver SDL finds (offscreen when there is no display).
#include <SDL.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "platform/platform.h"
#include "platform/sdl/sdl_keys.h"
#include "platform/sdl/sdl_video.h"

namespace {

constexpr int32_t K = 1 << 30;  // SDL's mark on the codes of keys without a character

TEST(SdlLayer, KeyCodesBecomeVirtualKeys) {
    const struct { int32_t keycode, scancode; uint32_t vk; } rows[] = {  // letters, digits, a few named keys
        {'a', 4, 'A'}, {'z', 29, 'Z'}, {'0', 39, '0'}, {'9', 38, '9'}, {'\'', 52, PLAT_VK_OEM_7},
        {0x7F, 76, PLAT_VK_DELETE}, {K | 69, 69, PLAT_VK_F1 + 11}, {K | 98, 98, PLAT_VK_NUMPAD0},
        {K | 88, 88, PLAT_VK_RETURN}, {K | 229, 229, PLAT_VK_SHIFT},
        {0xE9, 31, '2'}, {0xE0, 39, '0'}, {0xF6, 51, PLAT_VK_OEM_1}, {0xFC, 26, 'W'},  // other layouts: US positions
        {K | 226, 226, 0}};  // Alt is never a key-down
    for (const auto& r : rows) EXPECT_EQ(sdl_virtual_key(r.keycode, r.scancode), r.vk) << std::hex << r.keycode;
}

TEST(SdlLayer, DisplayModesNameOnlyTheFieldsTheyKnow) {
    PlatDisplayMode mode{};
    int count = 0;
    for (; plat_display_mode(count, &mode); ++count)  // the offscreen driver lists one 0 x 0 mode
        EXPECT_EQ(std::pair((mode.fields & PLAT_MODE_WIDTH) != 0, (mode.fields & PLAT_MODE_HEIGHT) != 0),
                  std::pair(mode.width > 0, mode.height > 0));
    EXPECT_GE(count, 1);
    PlatDisplayMode odd{PLAT_MODE_WIDTH | PLAT_MODE_HEIGHT | PLAT_MODE_BITS, 1000, 700, 16, 0};
    EXPECT_FALSE(plat_display_switch(&odd));
    // Depths as the saved preference means them: a mode of 4 bytes a pixel is 32 bits deep.
    const std::pair<uint32_t, int32_t> depths[] = {
        {SDL_PIXELFORMAT_RGB888, 32}, {SDL_PIXELFORMAT_RGB24, 24}, {SDL_PIXELFORMAT_RGB555, 16}};
    for (auto [format, bits] : depths) EXPECT_EQ(sdl_mode_bits(format), bits) << SDL_GetPixelFormatName(format);
}

TEST(SdlLayer, TheSystemPointerHidesAndShows) {
    for (bool shown : {false, true}) {
        plat_show_pointer(shown);
        EXPECT_EQ(plat_pointer_shown(), shown);
    }
}

TEST(SdlLayer, WindowWithAContextTurnsEventsIntoMessages) {
    plat_reset_messages();
    EXPECT_FALSE(plat_window_open(0, 768, 16) || plat_window_is_open());
    ASSERT_TRUE(plat_window_create(640, 480, 16));
    plat_window_show();
    ASSERT_TRUE(plat_gl_create_context());
    int32_t w = 0, h = 0, colour = 0, depth = 0;
    plat_window_size(&w, &h);
    plat_gl_buffer_bits(&colour, &depth);
    EXPECT_TRUE(w == 640 && h == 480 && colour >= 16 && depth >= 16) << w << "x" << h << " " << colour << " " << depth;
    EXPECT_TRUE(plat_window_handle() && plat_gl_proc("glGetString") && plat_gl_proc("glActiveTextureARB"));
    PlatMessage m;
    ASSERT_TRUE(plat_peek_message(&m));
    EXPECT_EQ(m.message, PLAT_MSG_CREATE);  // creation comes first, a paint after it
    bool painted = false;
    while (plat_peek_message(&m)) painted |= m.message == PLAT_MSG_PAINT;
    EXPECT_TRUE(painted);

    auto key = [](SDL_Keycode sym, SDL_Scancode code, uint16_t mod) {
        SDL_Event e{};
        e.type = SDL_KEYDOWN, e.key.keysym.sym = sym, e.key.keysym.scancode = code, e.key.keysym.mod = mod;
        return e;
    };
    SDL_Event events[8] = {key(SDLK_a, SDL_SCANCODE_A, KMOD_LSHIFT | KMOD_RCTRL),
                           key(SDLK_x, SDL_SCANCODE_X, KMOD_LALT),  // Alt and F10 are system keys
                           key(SDLK_F10, SDL_SCANCODE_F10, 0), key(SDLK_1, SDL_SCANCODE_1, KMOD_RSHIFT)};
    events[4].type = events[5].type = SDL_MOUSEMOTION, events[4].motion.x = 1;  // moves in a row merge
    events[5].motion.x = 10, events[5].motion.y = 700;
    events[6].type = SDL_MOUSEBUTTONDOWN, events[6].button.button = SDL_BUTTON_MIDDLE;  // not a message
    events[7].type = SDL_MOUSEBUTTONUP, events[7].button.button = SDL_BUTTON_RIGHT, events[7].button.x = 3;
    for (SDL_Event& e : events) SDL_PushEvent(&e);
    const PlatMessage want[] = {{PLAT_MSG_KEYDOWN, 'A', 0, PLAT_HELD_SHIFT | PLAT_HELD_CTRL},
                                {PLAT_MSG_KEYDOWN, '1', 0, PLAT_HELD_SHIFT},
                                {PLAT_MSG_MOUSEMOVE, 0, 700 << 16 | 10, 0},  // window pixels, y downward
                                {PLAT_MSG_RBUTTONUP, 0, 3, 0}};
    for (const PlatMessage& e : want) {
        ASSERT_TRUE(plat_peek_message(&m));
        EXPECT_TRUE(m.message == e.message && m.wparam == e.wparam && m.lparam == e.lparam && m.held == e.held)
            << m.message << " " << m.wparam << " " << m.lparam << " " << m.held;
        EXPECT_EQ(plat_key_held(PLAT_VK_SHIFT), (e.held & PLAT_HELD_SHIFT) != 0);  // as at the message taken
    }
    EXPECT_FALSE(plat_peek_message(&m));

    plat_window_close();
    EXPECT_FALSE(plat_window_is_open() || plat_gl_proc("glGetString"));  // no context, no entry points
    plat_window_close();                                                 // twice is harmless
    ASSERT_TRUE(plat_window_open(320, 200, 32));
    plat_window_close();
}

TEST(SdlLayer, WithoutADialogTheMessageBoxTextGoesToStandardError) {
    if (getenv("DISPLAY") && getenv("DISPLAY")[0]) GTEST_SKIP() << "a real display would show the box";
    testing::internal::CaptureStderr();
    plat_message_box("Corvane Message", "line one\n\nline two");
    EXPECT_NE(testing::internal::GetCapturedStderr().find("line one\n\nline two\n"), std::string::npos);
}

}  // namespace
