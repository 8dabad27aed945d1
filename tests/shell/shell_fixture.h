// The common start of tests of the shell's screens: a recording GL, program-start drawing,
// input, loop and screen state, the interface sheet and tiles marked as loaded, frames counted.
#pragma once
#include <functional>
#include <vector>

#include "base/alert.h"
#include "base/shutdown.h"
#include "graphics/design_space.h"
#include "platform/platform.h"
#include "shell/alert_window.h"
#include "shell/event_loop.h"
#include "shell/menus.h"
#include "shell/screens.h"
#include "tests/graphics/gfx_fixture.h"
#include "util/prefs.h"
#include "window/input.h"

struct Frame {  // what was current when a frame was presented
    int32_t screen;
    float panel_x, panel_y;
    size_t prims;
};
inline std::vector<Frame> frames;
inline std::function<void(size_t)> on_frame;  // called after each presented frame with the count

class Screens : public Gfx {
protected:
    void SetUp() override {
        Gfx::SetUp();
        input_reset(), event_loop_reset(), screens_reset(), progress_reset(), plat_reset_messages();
        for (int32_t t = 300; t <= 322; ++t) fake_loaded(t);
        open_menu = -1, language = 0, quit_requested = 0, gl_ready = 1;
        frames.clear(), on_frame = nullptr;
        OGL_set_swap([]() -> int32_t {
            frames.push_back({cur_screen, panel_x, panel_y, gl_rec().prims.size()});
            if (on_frame) on_frame(frames.size());
            if (frames.size() % 100 == 0) {  // an alert that never closes fails instead of hanging
                ADD_FAILURE() << "still looping after " << frames.size() << " frames";
                plat_post_message(PlatMessage{PLAT_MSG_KEYDOWN, PLAT_VK_RETURN, 0, 0});
            }
            return 1;
        });
        alert_window_install();
    }
    void TearDown() override {
        OGL_set_swap(nullptr), alert_set_window(nullptr), progress_set(nullptr);
        gl_ready = 0;
    }
    // A message as the window delivers it at the next pass; positions in window pixels.
    static void post(uint32_t message, int px = 0, int py = 0, uintptr_t wparam = 0) {
        plat_post_message(PlatMessage{message, wparam, (intptr_t)(((uint32_t)py << 16) | (uint32_t)px), 0});
    }
    // A press at design units (x, y) of the whole screen (the 1024 x 768 window: y flips).
    static void post_press(float x, float y) {
        post(PLAT_MSG_MOUSEMOVE, (int)x, (int)(768 - y));
        post(PLAT_MSG_LBUTTONDOWN), post(PLAT_MSG_LBUTTONUP);
    }
};
