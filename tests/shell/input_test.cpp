// Key-downs: the key and character table, classes with Shift and Ctrl, app_key, typed text, Return.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "shell/app_hooks.h"
#include "shell/event_loop.h"
#include "shell/input.h"
#include "shell/pending_parts.h"
#include "util/prefs.h"

using Call = std::pair<int32_t, int32_t>;  // key class, key
using Calls = std::vector<Call>;
static Calls calls;
static const uint32_t S = PLAT_HELD_SHIFT, C = PLAT_HELD_CTRL, F = PLAT_VK_F1, K = PLAT_VK_NUMPAD0;

// One key-down as the window delivers it: through the queue, so Shift and Ctrl are the message's.
static void press(uint32_t vk, uint32_t held = 0) {
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
        app_set_hooks(nullptr, [](int32_t key_class, int32_t key) { calls.push_back({key_class, key}); }, nullptr);
        cur_screen = SCREEN_MAIN, language = 0;
    }
    void TearDown() override { app_set_hooks(nullptr, nullptr, nullptr); }
};

// Every virtual key: its key code, and its character without and with Shift.
TEST_F(Keys, TheWholeKeyAndCharacterTable) {
    std::map<uint32_t, int32_t> codes = {
        {PLAT_VK_LEFT, 0x7B00}, {PLAT_VK_UP, 0x7E00}, {PLAT_VK_RIGHT, 0x7C00}, {PLAT_VK_DOWN, 0x7D00}, {K + 1, 0x5300},
        {K + 2, 0x5400}, {K + 3, 0x5500}, {K + 4, 0x5600}, {K + 5, 0x5700}, {K + 6, 0x5800}, {K + 8, 0x5B00},
        {PLAT_VK_RETURN, 0x2400}, {PLAT_VK_TAB, 0x3000}, {PLAT_VK_SHIFT, -999}, {F, 0x7A00}, {F + 1, 0x7800},
        {F + 2, 0x6300}, {F + 3, 0x7600}, {F + 4, 0x6000}, {F + 5, 0x6100}, {F + 6, 0x6200}, {F + 7, 0x6400},
        {F + 8, 0x6500}, {PLAT_VK_INSERT, 0x6D00}, {F + 10, 0x6700}, {F + 11, 0x6F00}, {PLAT_VK_DELETE, 0x752F},
        {PLAT_VK_BACK, 0x752F}};  // keypad 0, 7, 9 and F10 have none
    std::map<uint32_t, std::pair<char, char>> chars;
    const std::string keys = "1234567890\xBD\xBB\xDB\xDD\xBA\xBC\xBE\xBF\xC0\xDC", plain = "1234567890-=[];,./`\\",
                      shifted = "!@#$%^&*()_+{}:<>?~|";
    for (size_t i = 0; i < keys.size(); ++i) chars[(uint8_t)keys[i]] = {plain[i], shifted[i]};
    for (char c = 'A'; c <= 'Z'; ++c) chars[(uint32_t)c] = {(char)(c + 32), c};
    for (uint32_t vk = 1; vk < 256; ++vk) {
        EXPECT_EQ(key_code_of(vk), codes.count(vk) ? codes[vk] : KEY_NONE) << "vk " << vk;
        auto want = chars.count(vk) ? chars[vk] : std::pair((char)vk, (char)vk);  // others: the key's own byte
        EXPECT_EQ(std::pair(key_char_of(vk, false, 0), key_char_of(vk, true, 0)), want) << "vk " << vk;
    }
    EXPECT_EQ(std::pair(key_char_of('6', false, 1), key_char_of('6', true, 1)), std::pair('-', '_'));  // French
}

TEST_F(Keys, ClassesAndWhatAppKeyReceives) {
    struct { uint32_t vk, held; Call call; } rows[] = {
        {'A', 0, {0, 'a'}}, {'A', S, {0, 'A'}}, {'A', C, {3, 'a'}}, {PLAT_VK_CONTROL, C, {3, 17}},
        {PLAT_VK_OEM_MINUS, 0, {0, '-'}}, {PLAT_VK_OEM_7, 0, {0, (int32_t)(signed char)0xDE}},  // high bytes: negative
        {PLAT_VK_TAB, C, {1, 0x3000}}, {K + 1, C, {1, 0x5300}},  // the moving class wins over Ctrl
        {PLAT_VK_LEFT, 0, {1, 0x7B00}}, {PLAT_VK_UP, S, {1, 50000}}, {PLAT_VK_LEFT, S, {1, 50001}},
        {PLAT_VK_DOWN, S | C, {1, 50002}}, {PLAT_VK_RIGHT, S, {1, 50003}}, {K + 8, 0, {1, 0x5B00}},
        {K + 7, 0, {0, 'g'}}};
    for (auto& r : rows) {
        calls.clear(), ShellInput.key_pressed = 0;
        press(r.vk, r.held);
        EXPECT_EQ(calls, Calls{r.call}) << "vk " << r.vk << " held " << r.held;
        EXPECT_EQ(ShellInput.key_pressed, 1);
    }
}

TEST_F(Keys, TypedTextFollowsTheKeys) {
    struct { std::vector<std::pair<uint32_t, uint32_t>> keys; std::string text; } rows[] = {
        {{{'A', 0}, {'1', S}}, "a!"}, {{{'A', 0}, {'1', S}, {PLAT_VK_BACK, 0}}, "a"},
        {{{'A', 0}, {'B', 0}, {PLAT_VK_INSERT, 0}}, "a"}, {{{'A', 0}, {PLAT_VK_DELETE, 0}, {PLAT_VK_DELETE, 0}}, ""},
        {{{PLAT_VK_OEM_MINUS, 0}, {PLAT_VK_OEM_MINUS, S}, {PLAT_VK_OEM_PLUS, 0}, {PLAT_VK_OEM_PLUS, S}}, ""},
        {{{PLAT_VK_LEFT, 0}, {PLAT_VK_UP, S}, {PLAT_VK_TAB, 0}, {PLAT_VK_SHIFT, S}, {PLAT_VK_RETURN, 0}}, ""},
        {{{F, 0}, {K + 1, 0}, {PLAT_VK_CONTROL, C}, {'6', 0}, {PLAT_VK_SPACE, 0}, {'X', S}}, "pa\x11" "6 X"}};
    for (auto& r : rows) {
        input_reset();
        for (auto [vk, held] : r.keys) press(vk, held);
        EXPECT_EQ(std::string(ShellInput.typed_text), r.text);
        EXPECT_EQ(ShellInput.enter_pressed, r.keys.back().first == PLAT_VK_RETURN);
    }
    calls.clear(), language = 1;  // the French 6 key gives "-": nothing typed, but app_key hears it
    press('6');
    cur_screen = 999;  // a dialog's keys reach the text but not app_key
    press('K');
    cur_screen = 998;
    press('L');
    EXPECT_EQ(std::string(ShellInput.typed_text), "pa\x11" "6 Xkl");
    EXPECT_EQ(calls, (Calls{{0, '-'}, {0, 'l'}}));
    memset(ShellInput.typed_text, 'x', 499);  // full: a new character replaces the last one
    press('B');
    EXPECT_EQ(std::string(ShellInput.typed_text), std::string(498, 'x') + "b");
    press(PLAT_VK_BACK);  // the character before position 498 goes, and the text ends there
    EXPECT_EQ(std::string(ShellInput.typed_text), std::string(497, 'x'));
}
