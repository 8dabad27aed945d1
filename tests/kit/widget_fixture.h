// The common start of widget tests: a recording GL, program-start drawing and input state, and
// the drawn quads read back in units and sheet texels.
#pragma once
#include <vector>

#include "kit/list_picker.h"
#include "kit/widgets.h"
#include "tests/graphics/gfx_fixture.h"
#include "window/input.h"

struct DrawnQuad {
    float x0, y0, x1, y1;  // units, lower left and upper right
    float u0, v0, u1, v1;  // sheet texels
    float r, g, b, a;      // colour at the first corner
};

class Widgets : public Gfx {
protected:
    void SetUp() override {
        Gfx::SetUp();
        OGL_default_palette();
        input_reset();
        widgets_reset();
        list_picker_reset();
        fake_loaded(300);
    }
    // This pass's pointer; `click` is a press in the pass (the button then is down too).
    static void point(float x, float y, bool click = false, bool down = false) {
        ShellInput.mouse_x = x, ShellInput.mouse_y = y;
        ShellInput.mouse_clicked = click, ShellInput.mouse_down = click || down;
    }
    // Every quad drawn since the log was cleared; strings give one quad per glyph.
    std::vector<DrawnQuad> quads() const {
        std::vector<DrawnQuad> out;
        for (const GlPrim& p : gl.prims)
            for (size_t i = 0; p.mode == GL_QUADS && i + 3 < p.v.size(); i += 4) {
                const GlVertex &a = p.v[i], &c = p.v[i + 2];
                out.push_back({std::min(a.x, c.x), std::min(a.y, c.y), std::max(a.x, c.x), std::max(a.y, c.y),
                               std::min(a.s, c.s) * 512, std::min(a.t, c.t) * 512, std::max(a.s, c.s) * 512,
                               std::max(a.t, c.t) * 512, a.r, a.g, a.b, a.a});
            }
        return out;
    }
    // The quads cut from the sheet with their lower-left texel at (u, v).
    std::vector<DrawnQuad> quads_from(float u, float v) const {
        std::vector<DrawnQuad> out;
        for (const DrawnQuad& q : quads())
            if (q.u0 == u && q.v0 == v) out.push_back(q);
        return out;
    }
};
