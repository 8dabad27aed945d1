// The common start of widget tests: a recording GL, program-start drawing and input state, and
// the drawn quads read back in units and sheet texels.
#pragma once
#include <vector>

#include "kit/list_picker.h"
#include "kit/widgets.h"
#include "tests/graphics/gfx_fixture.h"
#include "window/input.h"

struct DrawnQuad {
    float x0, y0, x1, y1;  // units, corners 0 and 2
};

class Widgets : public Gfx {
protected:
    void SetUp() override {
        Gfx::SetUp();
        input_reset(), widgets_reset(), list_picker_reset();
    }
    // This pass's pointer; `click` is a press in the pass (the button is then down too).
    static void point(float x, float y, bool click = false, bool down = false) {
        ShellInput.mouse_x = x, ShellInput.mouse_y = y;
        ShellInput.mouse_clicked = click, ShellInput.mouse_down = click || down;
    }
    // The quads drawn since the log was cleared whose corner 0 is cut from sheet texel (u, v).
    std::vector<DrawnQuad> quads(float u, float v) const {
        std::vector<DrawnQuad> out;
        for (const GlPrim& p : gl.prims)
            for (size_t i = 0; p.mode == GL_QUADS && i + 3 < p.v.size(); i += 4) {
                const GlVertex &a = p.v[i], &c = p.v[i + 2];
                if (a.s * 512 == u && a.t * 512 == v)
                    out.push_back({a.x, a.y, c.x, c.y});
            }
        return out;
    }
};
