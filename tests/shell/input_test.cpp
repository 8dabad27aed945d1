// Key-downs: key codes, characters with Shift, key classes with Ctrl, typed text and Return.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/platform.h"
#include "shell/app_hooks.h"
#include "shell/event_loop.h"
#include "shell/input.h"
#include "shell/pending_parts.h"
#include "util/prefs.h"

namespace {

struct KeyCall {
    int32_t key_class, key;
};
std::vector<KeyCall> key_calls;
void record_key(int32_t key_class, int32_t key) { key_calls.push_back({key_class, key}); }

// One key-down as the window delivers it: through the queue, so the held keys are those
// of the message.
void press(uint32_t vk, uint32_t held = 0) {
    plat_post_message(PlatMessage{PLAT_MSG_KEYDOWN, vk, 0, held});
    PlatMessage m;
    ASSERT_TRUE(plat_peek_message(&m));
    MACIBM_window_proc(nullptr, m.message, m.wparam, m.lparam);
}

class Keys : public testing::Test {
  protected:
    void SetUp() override {
        input_reset();
        plat_reset_messages();
        key_calls.clear();
        app_set_hooks(nullptr, record_key, nullptr);
        cur_screen = SCREEN_MAIN;
        language = 0;
    }
    void TearDown() override { app_set_hooks(nullptr, nullptr, nullptr); }
};

TEST_F(Keys, CharactersWithAndWithoutShift) {
    struct Row {
        uint32_t vk;
        char plain, shifted;
    } rows[] = {
        {'A', 'a', 'A'}, {'Z', 'z', 'Z'}, {'1', '1', '!'}, {'2', '2', '@'}, {'6', '6', '^'},
        {'9', '9', '('}, {'0', '0', ')'}, {PLAT_VK_OEM_MINUS, '-', '_'}, {PLAT_VK_OEM_PLUS, '=', '+'},
        {PLAT_VK_OEM_4, '[', '{'}, {PLAT_VK_OEM_6, ']', '}'}, {PLAT_VK_OEM_1, ';', ':'},
        {PLAT_VK_OEM_COMMA, ',', '<'}, {PLAT_VK_OEM_PERIOD, '.', '>'}, {PLAT_VK_OEM_2, '/', '?'},
        {PLAT_VK_OEM_3, '`', '~'}, {PLAT_VK_OEM_5, '\\', '|'},
        {PLAT_VK_SPACE, ' ', ' '}, {PLAT_VK_F1, 'p', 'p'}, {PLAT_VK_NUMPAD0 + 1, 'a', 'a'},
        {PLAT_VK_CONTROL, 17, 17}, {PLAT_VK_OEM_7, (char)0xDE, (char)0xDE},
    };
    for (const Row& r : rows) {
        EXPECT_EQ(key_char_of(r.vk, false, 0), r.plain) << "vk " << r.vk;
        EXPECT_EQ(key_char_of(r.vk, true, 0), r.shifted) << "vk " << r.vk;
    }
    EXPECT_EQ(key_char_of('6', false, 1), '-');  // French
    EXPECT_EQ(key_char_of('6', true, 1), '_');
    EXPECT_EQ(key_char_of('7', true, 1), '&');
}

TEST_F(Keys, KeyCodesOfTheNamedKeys) {
    struct Row {
        uint32_t vk;
        int32_t code;
    } rows[] = {
        {PLAT_VK_LEFT, 0x7B00}, {PLAT_VK_UP, 0x7E00}, {PLAT_VK_RIGHT, 0x7C00}, {PLAT_VK_DOWN, 0x7D00},
        {PLAT_VK_NUMPAD0 + 1, 0x5300}, {PLAT_VK_NUMPAD0 + 6, 0x5800}, {PLAT_VK_NUMPAD0 + 8, 0x5B00},
        {PLAT_VK_NUMPAD0 + 0, KEY_NONE}, {PLAT_VK_NUMPAD0 + 7, KEY_NONE}, {PLAT_VK_NUMPAD0 + 9, KEY_NONE},
        {PLAT_VK_F1, 0x7A00}, {PLAT_VK_F1 + 2, 0x6300}, {PLAT_VK_F1 + 8, 0x6500},
        {PLAT_VK_F1 + 9, KEY_NONE}, {PLAT_VK_F1 + 10, 0x6700}, {PLAT_VK_F1 + 11, 0x6F00},
        {PLAT_VK_RETURN, 0x2400}, {PLAT_VK_TAB, 0x3000}, {PLAT_VK_SHIFT, -999},
        {PLAT_VK_INSERT, 0x6D00}, {PLAT_VK_DELETE, 0x752F}, {PLAT_VK_BACK, 0x752F}, {'A', KEY_NONE},
    };
    for (const Row& r : rows) EXPECT_EQ(key_code_of(r.vk), r.code) << "vk " << r.vk;
}

TEST_F(Keys, ClassesAndWhatAppKeyReceives) {
    struct Row {
        uint32_t vk, held;
        int32_t key_class, key;
    } rows[] = {
        {'A', 0, 0, 'a'},
        {'A', PLAT_HELD_SHIFT, 0, 'A'},
        {'A', PLAT_HELD_CTRL, 3, 'a'},
        {PLAT_VK_CONTROL, PLAT_HELD_CTRL, 3, 17},
        {PLAT_VK_OEM_MINUS, 0, 0, '-'},
        {PLAT_VK_OEM_7, 0, 0, (int32_t)(signed char)0xDE},  // a high byte arrives negative
        {PLAT_VK_TAB, PLAT_HELD_CTRL, 1, 0x3000},          // the moving class wins over Ctrl
        {PLAT_VK_LEFT, 0, 1, 0x7B00},
        {PLAT_VK_UP, PLAT_HELD_SHIFT, 1, 50000},
        {PLAT_VK_LEFT, PLAT_HELD_SHIFT, 1, 50001},
        {PLAT_VK_DOWN, PLAT_HELD_SHIFT | PLAT_HELD_CTRL, 1, 50002},
        {PLAT_VK_RIGHT, PLAT_HELD_SHIFT, 1, 50003},
        {PLAT_VK_NUMPAD0 + 8, 0, 1, 0x5B00},
        {PLAT_VK_NUMPAD0 + 7, 0, 0, 'g'},
    };
    for (const Row& r : rows) {
        key_calls.clear();
        press(r.vk, r.held);
        ASSERT_EQ(key_calls.size(), 1u) << "vk " << r.vk;
        EXPECT_EQ(key_calls[0].key_class, r.key_class) << "vk " << r.vk;
        EXPECT_EQ(key_calls[0].key, r.key) << "vk " << r.vk;
        EXPECT_EQ(ShellInput.key_pressed, 1);
    }
}

TEST_F(Keys, TypedTextFollowsTheKeys) {
    struct Row {
        std::vector<std::pair<uint32_t, uint32_t>> keys;  // virtual key, held
        std::string text;
    } rows[] = {
        {{{'A', 0}}, "a"},
        {{{'A', 0}, {'1', PLAT_HELD_SHIFT}}, "a!"},
        {{{'A', 0}, {'1', PLAT_HELD_SHIFT}, {PLAT_VK_BACK, 0}}, "a"},
        {{{'A', 0}, {'B', 0}, {PLAT_VK_INSERT, 0}}, "a"},
        {{{'A', 0}, {PLAT_VK_DELETE, 0}, {PLAT_VK_DELETE, 0}}, ""},
        {{{PLAT_VK_OEM_MINUS, 0}, {PLAT_VK_OEM_MINUS, PLAT_HELD_SHIFT}, {PLAT_VK_OEM_PLUS, 0},
          {PLAT_VK_OEM_PLUS, PLAT_HELD_SHIFT}}, ""},
        {{{'6', 0}}, "6"},
        {{{PLAT_VK_LEFT, 0}, {PLAT_VK_UP, PLAT_HELD_SHIFT}, {PLAT_VK_TAB, 0}, {PLAT_VK_SHIFT, PLAT_HELD_SHIFT},
          {PLAT_VK_RETURN, 0}}, ""},
        {{{PLAT_VK_F1, 0}, {PLAT_VK_NUMPAD0 + 1, 0}, {PLAT_VK_CONTROL, PLAT_HELD_CTRL}}, "pa\x11"},
        {{{PLAT_VK_SPACE, 0}, {'X', PLAT_HELD_SHIFT}}, " X"},
    };
    for (const Row& r : rows) {
        input_reset();
        for (auto [vk, held] : r.keys) press(vk, held);
        EXPECT_EQ(std::string(ShellInput.typed_text), r.text);
    }
}

TEST_F(Keys, FrenchSixKeyIsSkippedLikeMinus) {
    language = 1;
    press('6');
    EXPECT_STREQ(ShellInput.typed_text, "");
    ASSERT_EQ(key_calls.size(), 1u);
    EXPECT_EQ(key_calls[0].key, '-');
}

TEST_F(Keys, FullTextReplacesItsLastCharacter) {
    std::string full(499, 'x');
    memcpy(ShellInput.typed_text, full.c_str(), 500);
    press('B');
    EXPECT_EQ(std::string(ShellInput.typed_text), std::string(498, 'x') + "b");
    press(PLAT_VK_BACK);  // the character before position 498 goes, and the text ends there
    EXPECT_EQ(std::string(ShellInput.typed_text), std::string(497, 'x'));
}

TEST_F(Keys, ReturnSetsEnterButTypesNothing) {
    press(PLAT_VK_RETURN);
    EXPECT_EQ(ShellInput.enter_pressed, 1);
    EXPECT_STREQ(ShellInput.typed_text, "");
    ShellInput.enter_pressed = 0;
    press('Q');
    EXPECT_EQ(ShellInput.enter_pressed, 0);
}

TEST_F(Keys, DialogScreen999TypesButSkipsAppKey) {
    cur_screen = 999;
    press('K');
    EXPECT_STREQ(ShellInput.typed_text, "k");
    EXPECT_TRUE(key_calls.empty());
    cur_screen = 998;
    press('K');
    EXPECT_EQ(key_calls.size(), 1u);
}

}  // namespace
