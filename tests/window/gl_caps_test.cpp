// The OpenGL capability checks against a recording GL: flags, report, warning, software pointer.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "base/alert.h"
#include "base/log.h"
#include "graphics/textures.h"
#include "platform/platform.h"
#include "tests/support/gl_recorder.h"
#include "tests/support/test_files.h"
#include "window/gl_caps.h"

using Ints = std::vector<int>;
static std::vector<std::string> alerts;  // the first line of each alert

class Caps : public testing::Test {
protected:
    GlRecorder& gl = gl_recorder_install();
    std::string dir = test_temp_dir();
    void SetUp() override {
        gl_caps_reset();
        MACIBM_log_open((dir + "Error.out").c_str());
        alert_set_box([](const char* const l[4], int32_t) { alerts.push_back(l[0]); });
    }
    void TearDown() override { alert_set_box(nullptr), MACIBM_log_close(); }
};

TEST_F(Caps, ReportAndFlagsFromVersionAndExtensions) {
    gl.vendor = "V", gl.renderer = "R", gl.version = "1.2.1", gl.extensions = "GL_EXT_abgr";
    gl.integers.erase(GL_MAX_TEXTURE_UNITS_ARB);  // the query does not answer
    MACIBM_gl_checks();
    EXPECT_EQ(test_read_file(dir + "Error.out"),
              "OpenGL Situation:\nOpenGL Vendor    :V\nOpenGL Render    :R\nOpenGL Version   :1.2.1\nOpenGL Extensions:GL_EXT_abgr"
              "\nfound_opengl_12  :1\nfound_clamp_SGI  :0\nfound_clamp_ARB  :0\nfound_mul_tex    :0\nfound_env_add    :0\n"
              "num_tex_units    :0\n\n\n");
    struct { const char* version; std::string ext; Ints v12_sgi_arb_mul_add_clamp; } rows[] = {
        {"1.2.2", "", {1, 0, 0, 0, 0, 1}}, {"1.3.0", "", {0, 0, 0, 0, 0, 0}},
        {"1.1", "GL_EXT_abgr GL_SGIS_texture_edge_clamp", {0, 1, 0, 0, 0, 1}},
        {"1.1", "GL_SGI_texture_edge_clamp", {0, 1, 0, 0, 0, 1}},
        {"1.1", "GL_ARB_texture_edge_clamp GL_ARB_multitexture", {0, 0, 1, 1, 0, 1}},
        {"1.1", "GL_ARB_multitextureXYZ GL_ARB_texture_env_add", {0, 0, 0, 1, 1, 0}},  // plain substrings count
        {"1.1", "GL_EXT_abgr GL_EXT_texture_env_add", {0, 0, 0, 0, 1, 0}},             // at the very end
        {"1.1", std::string(40000, ' ') + "GL_ARB_multitexture", {0, 0, 0, 1, 0, 0}}};  // a long list searched whole
    for (auto& r : rows) {
        gl.version = r.version, gl.extensions = r.ext;
        MACIBM_gl_checks();
        EXPECT_EQ((Ints{GlCaps.found_opengl_12, GlCaps.found_clamp_SGI, GlCaps.found_clamp_ARB, GlCaps.found_mul_tex,
                        GlCaps.found_env_add, clamp_ok}), r.v12_sgi_arb_mul_add_clamp)
            << r.version << " / " << r.ext.substr(0, 60);
    }
}

// The state all drawing starts from: what the checks leave enabled and the functions they set.
TEST_F(Caps, DefaultStateForDrawing) {
    MACIBM_gl_checks();
    EXPECT_EQ(gl.caps, (std::set<GLenum>{GL_CULL_FACE, GL_DITHER, GL_COLOR_MATERIAL}));
    const std::pair<std::string, std::vector<double>> set[] = {
        {"glAlphaFunc", {GL_GREATER, 0}}, {"glBlendFunc", {GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA}}, {"glDepthFunc", {GL_LEQUAL}},
        {"glFrontFace", {GL_CW}}, {"glCullFace", {GL_BACK}}, {"glPixelStorei", {GL_UNPACK_ALIGNMENT, 1}},
        {"glColorMaterial", {GL_FRONT, GL_AMBIENT_AND_DIFFUSE}}};
    for (const auto& [name, args] : set)
        EXPECT_TRUE(std::any_of(gl.calls.begin(), gl.calls.end(), [&](auto& c) { return c.name == name && c.args == args; }))
            << name;
}

// Mesa and 3Dfx renderers get the drawn pointer instead of the system's; "GENERIC" is warned about.
TEST_F(Caps, SoftwarePointerAndRendererWarning) {
    for (auto [renderer, sw, warned] : {std::tuple{"3Dfx Voodoo3", 1, 0}, {"3dfx/Voodoo", 1, 0}, {"Mesa DRI", 1, 0},
                                        {"llvmpipe (LLVM 15.0.6)", 1, 0}, {"softpipe", 1, 0}, {"GENERIC", 0, 1},
                                        {"GENERIC 2", 0, 0}, {"GeForce2 MX/AGP Generic", 0, 0}, {"Mes", 0, 0}}) {
        alerts.clear(), gl.renderer = renderer;
        MACIBM_gl_checks();
        EXPECT_EQ(std::tuple(sw_cursor, plat_pointer_shown()), std::tuple(sw, sw == 0)) << renderer;
        EXPECT_EQ(alerts.size(), (size_t)warned) << renderer;
        if (warned) EXPECT_THAT(alerts[0], testing::StartsWith("I can not find a 3-D accelerator card"));
    }
}
