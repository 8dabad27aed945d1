// The common start of tests of the shell's screens: a recording GL, program-start state, GL up
// (alerts in the window), and each presented frame noted.
#pragma once
#include <functional>
#include <vector>

#include "base/alert.h"
#include "graphics/design_space.h"
#include "platform/platform.h"
#include "shell/alert_window.h"
#include "shell/event_loop.h"
#include "shell/screens.h"
#include "tests/graphics/gfx_fixture.h"
#include "util/prefs.h"
#include "window/input.h"

struct Frame {
    int32_t screen;
    float panel_x, panel_y;
};
inline std::vector<Frame> frames;
inline std::function<void(size_t)> on_frame;  // after each presented frame, with the count

class Screens : public Gfx {
protected:
    void SetUp() override {
        Gfx::SetUp();
        input_reset(), event_loop_reset(), screens_reset(), progress_reset(), plat_reset_messages();
        for (int32_t t = 300; t <= 322; ++t) fake_loaded(t);
        language = 0, gl_ready = 1, frames.clear(), on_frame = nullptr;
        OGL_set_swap([]() -> int32_t {
            frames.push_back({cur_screen, panel_x, panel_y});
            if (on_frame) on_frame(frames.size());
            if (frames.size() % 100 == 0) {  // an alert that never closes fails instead of hanging
                ADD_FAILURE() << "still looping after " << frames.size() << " frames";
                plat_post_message(PlatMessage{PLAT_MSG_KEYDOWN, PLAT_VK_RETURN, 0, 0});
            }
            return 1;
        });
        alert_window_install();
        cur_screen = SCREEN_MAIN;
        MACIBM_window_proc(nullptr, PLAT_MSG_PAINT, 0, 0);  // painted: passes draw and present
    }
    void TearDown() override { OGL_set_swap(nullptr), alert_set_window(nullptr), progress_set(nullptr), gl_ready = 0; }
    // Window messages for the next pass: a key, or a press at design units (x, y) of the
    // 1024 x 768 window.
    static void post_key(uint32_t vk) { plat_post_message(PlatMessage{PLAT_MSG_KEYDOWN, vk, 0, 0}); }
    static void post_press(float x, float y) {
        plat_post_message(PlatMessage{PLAT_MSG_MOUSEMOVE, 0, (intptr_t)(((uint32_t)(768 - y) << 16) | (uint32_t)x), 0});
        plat_post_message(PlatMessage{PLAT_MSG_LBUTTONDOWN, 0, 0, 0});
    }
};
