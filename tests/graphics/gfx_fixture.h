// The common start of every graphics test: a fresh recording GL, program-start graphics state,
// and the sheets and background tiles (300..322) counted as loaded.
#pragma once
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "graphics/design_space.h"
#include "graphics/gl_state.h"
#include "graphics/qgl.h"
#include "graphics/textures.h"
#include "base/alert.h"
#include "tests/support/gl_recorder.h"
#include "tests/support/test_files.h"

using testing::ElementsAre;

class Gfx : public testing::Test {
protected:
    GlRecorder& gl = gl_recorder_install();
    void SetUp() override {
        gl_state_reset();
        OGL_default_palette();
        tex_reset();
        design_space_reset();
        qglEnable(GL_TEXTURE_2D);  // one unit on, as gl_tex_units says
        for (int32_t t = TEX_SHEET; t <= TEX_BACKGROUND_LAST; ++t) fake_loaded(t);
        gl.clear_log();
    }
    // Marks `index` as loaded so that binding it passes the checks.
    static void fake_loaded(int32_t index) { OGL_tex_bytes[index] = 4; }
};

// A fatal alert's text on standard error, for death tests.
inline testing::Matcher<const std::string&> fatal_text(const std::string& l1, const std::string& l2 = "",
                                                       const std::string& l3 = "", const std::string& l4 = "") {
    return testing::HasSubstr(test_alert_text(l1, l2, l3, l4));
}
