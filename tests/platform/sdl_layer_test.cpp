// The SDL layer: key translation, display modes, the window with its context, messages and
// the message box, on whatever video driver SDL finds (offscreen when there is no display).
#include <gtest/gtest.h>

#include <string>

#include "platform/platform.h"
#include "platform/sdl/sdl_keys.h"

namespace {

constexpr int32_t SDL_KEY_OF_SCANCODE = 1 << 30;  // SDL's code for keys without a character

TEST(SdlKeys, KeyCodesBecomeVirtualKeys) {
    struct Row {
        int32_t keycode, scancode;
        uint32_t vk;
    } rows[] = {
        {'a', 4, 'A'}, {'z', 29, 'Z'}, {'0', 39, '0'}, {'7', 36, '7'},
        {'-', 45, PLAT_VK_OEM_MINUS}, {'=', 46, PLAT_VK_OEM_PLUS}, {'[', 47, PLAT_VK_OEM_4},
        {']', 48, PLAT_VK_OEM_6}, {'\\', 49, PLAT_VK_OEM_5}, {';', 51, PLAT_VK_OEM_1},
        {'\'', 52, PLAT_VK_OEM_7}, {'`', 53, PLAT_VK_OEM_3}, {',', 54, PLAT_VK_OEM_COMMA},
        {'.', 55, PLAT_VK_OEM_PERIOD}, {'/', 56, PLAT_VK_OEM_2}, {' ', 44, PLAT_VK_SPACE},
        {'\r', 40, PLAT_VK_RETURN}, {'\t', 43, PLAT_VK_TAB}, {'\b', 42, PLAT_VK_BACK},
        {0x7F, 76, PLAT_VK_DELETE}, {0x1B, 41, PLAT_VK_ESCAPE},
        {SDL_KEY_OF_SCANCODE | 58, 58, PLAT_VK_F1}, {SDL_KEY_OF_SCANCODE | 69, 69, PLAT_VK_F1 + 11},
        {SDL_KEY_OF_SCANCODE | 73, 73, PLAT_VK_INSERT},
        {SDL_KEY_OF_SCANCODE | 79, 79, PLAT_VK_RIGHT}, {SDL_KEY_OF_SCANCODE | 80, 80, PLAT_VK_LEFT},
        {SDL_KEY_OF_SCANCODE | 81, 81, PLAT_VK_DOWN}, {SDL_KEY_OF_SCANCODE | 82, 82, PLAT_VK_UP},
        {SDL_KEY_OF_SCANCODE | 89, 89, PLAT_VK_NUMPAD0 + 1}, {SDL_KEY_OF_SCANCODE | 98, 98, PLAT_VK_NUMPAD0},
        {SDL_KEY_OF_SCANCODE | 88, 88, PLAT_VK_RETURN},  // keypad Enter
        {SDL_KEY_OF_SCANCODE | 225, 225, PLAT_VK_SHIFT}, {SDL_KEY_OF_SCANCODE | 229, 229, PLAT_VK_SHIFT},
        {SDL_KEY_OF_SCANCODE | 224, 224, PLAT_VK_CONTROL},
        // Other layouts: a character key that is not in the table keeps its US position.
        {0xE9, 31, '2'}, {0xF6, 51, PLAT_VK_OEM_1}, {0xFC, 26, 'W'},
        {SDL_KEY_OF_SCANCODE | 226, 226, 0},  // Alt is never a key-down
    };
    for (const Row& r : rows) EXPECT_EQ(sdl_virtual_key(r.keycode, r.scancode), r.vk) << std::hex << r.keycode;
}

TEST(SdlDisplay, ModesHaveTheirFieldsWhenKnown) {
    PlatDisplayMode mode{};
    int count = 0;
    while (plat_display_mode(count, &mode)) {
        // The offscreen driver lists one 0 x 0 mode: width and height are then not named.
        EXPECT_EQ((mode.fields & PLAT_MODE_WIDTH) != 0, mode.width > 0);
        EXPECT_EQ((mode.fields & PLAT_MODE_HEIGHT) != 0, mode.height > 0);
        ++count;
    }
    EXPECT_GE(count, 1);
    PlatDisplayMode odd{PLAT_MODE_WIDTH | PLAT_MODE_HEIGHT | PLAT_MODE_BITS, 1000, 700, 16, 0};
    EXPECT_FALSE(plat_display_switch(&odd));
}

class SdlWindow : public testing::Test {
  protected:
    void SetUp() override { plat_reset_messages(); }
    void TearDown() override { plat_window_close(); }
};

TEST_F(SdlWindow, OpensWithAContextAndAnnouncesItself) {
    ASSERT_TRUE(plat_window_create(640, 480, 16));
    plat_window_show();
    ASSERT_TRUE(plat_gl_create_context());
    EXPECT_TRUE(plat_window_is_open());
    EXPECT_NE(plat_window_handle(), nullptr);
    int32_t w = 0, h = 0;
    plat_window_size(&w, &h);
    EXPECT_EQ(w, 640);
    EXPECT_EQ(h, 480);
    int32_t colour = 0, depth = 0;
    plat_gl_buffer_bits(&colour, &depth);
    EXPECT_GE(colour, 16);
    EXPECT_GE(depth, 16);
    EXPECT_NE(plat_gl_proc("glGetString"), nullptr);
    EXPECT_NE(plat_gl_proc("glActiveTextureARB"), nullptr);
    PlatMessage m;
    ASSERT_TRUE(plat_peek_message(&m));
    EXPECT_EQ(m.message, PLAT_MSG_CREATE);  // creation comes first
    bool painted = false;
    while (plat_peek_message(&m)) painted |= m.message == PLAT_MSG_PAINT;
    EXPECT_TRUE(painted);
}

TEST_F(SdlWindow, ClosesAndOpensAgain) {
    ASSERT_TRUE(plat_window_open(320, 200, 32));
    plat_window_close();
    EXPECT_FALSE(plat_window_is_open());
    EXPECT_EQ(plat_gl_proc("glGetString"), nullptr);  // no context, no entry points
    plat_window_close();                               // twice is harmless
    ASSERT_TRUE(plat_window_open(320, 200, 16));
}

TEST_F(SdlWindow, AnEmptyWindowIsRefused) {
    EXPECT_FALSE(plat_window_open(0, 768, 16));
    EXPECT_FALSE(plat_window_is_open());
}

TEST(SdlMessages, PostedMessagesComeBackInOrderWithTheirKeys) {
    plat_reset_messages();
    plat_post_message(PlatMessage{PLAT_MSG_KEYDOWN, 'A', 0, PLAT_HELD_SHIFT});
    plat_post_message(PlatMessage{PLAT_MSG_MOUSEMOVE, 0, 1, 0});
    plat_post_message(PlatMessage{PLAT_MSG_MOUSEMOVE, 0, 2, 0});  // merged with the move before
    plat_post_message(PlatMessage{PLAT_MSG_KEYDOWN, 'B', 0, PLAT_HELD_CTRL});
    PlatMessage m;
    ASSERT_TRUE(plat_peek_message(&m));
    EXPECT_EQ(m.wparam, 'A');
    EXPECT_TRUE(plat_key_held(PLAT_VK_SHIFT));
    EXPECT_FALSE(plat_key_held(PLAT_VK_CONTROL));
    ASSERT_TRUE(plat_peek_message(&m));
    EXPECT_EQ(m.lparam, 2);
    EXPECT_FALSE(plat_key_held(PLAT_VK_SHIFT));
    ASSERT_TRUE(plat_peek_message(&m));
    EXPECT_TRUE(plat_key_held(PLAT_VK_CONTROL));
    EXPECT_FALSE(plat_peek_message(&m));
}

TEST(SdlMessageBox, WithoutADialogTheTextGoesToStandardError) {
    if (getenv("DISPLAY") && getenv("DISPLAY")[0]) GTEST_SKIP() << "a real display would show the box";
    testing::internal::CaptureStderr();
    plat_message_box("Corvane Message", "line one\n\nline two");
    std::string err = testing::internal::GetCapturedStderr();
    EXPECT_NE(err.find("line one\n\nline two\n"), std::string::npos);
}

}  // namespace
