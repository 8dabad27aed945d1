// The common start of the shell's tests: a recording GL, program-start state, the sheets and
// background tiles loaded, hooks and swap cleared after; Screens adds GL up (alerts in the
// window) and notes each presented frame.
#pragma once
#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "base/alert.h"
#include "base/shutdown.h"
#include "platform/platform.h"
#include "shell/alert_window.h"
#include "shell/app_hooks.h"
#include "shell/event_loop.h"
#include "shell/language.h"
#include "shell/menu_table.h"
#include "shell/menus.h"
#include "shell/screens.h"
#include "shell/text_table.h"
#include "graphics/primitives.h"
#include "window/gl_caps.h"
#include "tests/graphics/gfx_fixture.h"
#include "util/file_reader.h"
#include "util/folders.h"
#include "util/prefs.h"
#include "window/input.h"

using S = std::string;
using P = std::pair<float, float>;

class Shell : public Gfx {
protected:
    S dir = test_temp_dir();
    void SetUp() override {
        Gfx::SetUp();
        input_reset(), event_loop_reset(), screens_reset(), progress_reset(), menus_reset(), text_table_reset();
        gl_caps_reset(), fio_reset(), plat_reset_messages(), folders_fill(dir.c_str(), dir.c_str());
        language = quit_requested = 0, cur_screen = SCREEN_MAIN;
    }
    void TearDown() override {
        app_set_hooks(nullptr, nullptr, nullptr), OGL_set_swap(nullptr), alert_set_window(nullptr), progress_set(nullptr);
        gl_ready = 0;
    }
    // Window messages for the next pass: a key, or a press at design units (x, y) of the 1024 x 768 window.
    static void post_key(uint32_t vk) { plat_post_message(PlatMessage{PLAT_MSG_KEYDOWN, vk, 0, 0}); }
    static void post_press(float x, float y) {
        plat_post_message(PlatMessage{PLAT_MSG_MOUSEMOVE, 0, (intptr_t)(((uint32_t)(768 - y) << 16) | (uint32_t)x), 0});
        plat_post_message(PlatMessage{PLAT_MSG_LBUTTONDOWN, 0, 0, 0});
    }
};

struct Frame {
    int32_t screen;
    float panel_x, panel_y;
};
inline std::vector<Frame> frames;
inline std::function<void(size_t)> on_frame;  // after each presented frame, with the count

class Screens : public Shell {
protected:
    void SetUp() override {
        Shell::SetUp();
        gl_ready = 1, frames.clear(), on_frame = nullptr;
        OGL_set_swap([]() -> int32_t {
            frames.push_back({cur_screen, panel_x, panel_y});
            if (on_frame) on_frame(frames.size());
            if (frames.size() % 100 == 0) {  // an alert that never closes fails instead of hanging
                ADD_FAILURE() << "still looping after " << frames.size() << " frames";
                post_key(PLAT_VK_RETURN);
            }
            return 1;
        });
        alert_window_install();
        MACIBM_window_proc(nullptr, PLAT_MSG_PAINT, 0, 0);  // painted: passes draw and present
    }
};
