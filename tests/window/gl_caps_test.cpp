// The OpenGL capability checks against a recording GL: flags, report, warning, software pointer.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "graphics/textures.h"
#include "base/alert.h"
#include "window/gl_caps.h"
#include "base/log.h"
#include "platform/platform.h"
#include "tests/support/gl_recorder.h"
#include "tests/support/test_files.h"

using Ints = std::vector<int>;
static std::vector<std::string> alerts;  // the first two lines of each alert

class Caps : public testing::Test {
  protected:
    void SetUp() override {
        gl_recorder_install();
        gl_caps_reset();
        MACIBM_log_open((dir + "Error.out").c_str());
        alert_set_box([](const char* const l[4], int32_t) { alerts.push_back(std::string(l[0]) + "|" + l[1]); });
    }
    void TearDown() override { alert_set_box(nullptr), MACIBM_log_close(); }
    std::string log() { return test_read_file(dir + "Error.out"); }
    std::string dir = test_temp_dir();
};

TEST_F(Caps, ReportAndFlagsFromVersionAndExtensions) {
    gl_rec().vendor = "V", gl_rec().renderer = "R", gl_rec().version = "1.2.1", gl_rec().extensions = "GL_EXT_abgr";
    gl_rec().integers.erase(GL_MAX_TEXTURE_UNITS_ARB);  // the query does not answer
    MACIBM_gl_checks();
    EXPECT_EQ(log(), "OpenGL Situation:\nOpenGL Vendor    :V\nOpenGL Render    :R\nOpenGL Version   :1.2.1\n"
                     "OpenGL Extensions:GL_EXT_abgr\nfound_opengl_12  :1\nfound_clamp_SGI  :0\nfound_clamp_ARB  :0\n"
                     "found_mul_tex    :0\nfound_env_add    :0\nnum_tex_units    :0\n\n\n");
    struct { const char* version; std::string ext; Ints v12_sgi_arb_mul_add_clamp; } rows[] = {
        {"1.2.2", "", {1, 0, 0, 0, 0, 1}}, {"1.3.0", "", {0, 0, 0, 0, 0, 0}}, {"2.1 Mesa", "", {0, 0, 0, 0, 0, 0}},
        {"1.1", "GL_EXT_abgr GL_SGIS_texture_edge_clamp", {0, 1, 0, 0, 0, 1}},
        {"1.1", "GL_SGI_texture_edge_clamp", {0, 1, 0, 0, 0, 1}},
        {"1.1", "GL_ARB_texture_edge_clamp GL_ARB_multitexture", {0, 0, 1, 1, 0, 1}},
        {"1.1", "GL_ARB_multitextureXYZ GL_ARB_texture_env_add", {0, 0, 0, 1, 1, 0}},  // plain substrings count
        {"1.1", "GL_EXT_abgr GL_EXT_texture_env_add", {0, 0, 0, 0, 1, 0}},             // at the very end
        {"1.1", std::string(40000, ' ') + "GL_ARB_multitexture", {0, 0, 0, 1, 0, 0}}};  // a long list searched whole
    for (auto& r : rows) {
        gl_rec().version = r.version, gl_rec().extensions = r.ext;
        MACIBM_gl_checks();
        EXPECT_EQ((Ints{GlCaps.found_opengl_12, GlCaps.found_clamp_SGI, GlCaps.found_clamp_ARB, GlCaps.found_mul_tex,
                        GlCaps.found_env_add, clamp_ok}), r.v12_sgi_arb_mul_add_clamp)
            << r.version << " / " << r.ext.substr(0, 60);
    }
}

// The state all drawing starts from: what the checks leave enabled and the functions they set.
TEST_F(Caps, DefaultStateForDrawing) {
    MACIBM_gl_checks();
    EXPECT_EQ(gl_rec().caps, (std::set<GLenum>{GL_CULL_FACE, GL_DITHER, GL_COLOR_MATERIAL}));
    const std::vector<std::pair<std::string, std::vector<double>>> set = {
        {"glAlphaFunc", {GL_GREATER, 0}},     {"glBlendFunc", {GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA}},
        {"glDepthFunc", {GL_LEQUAL}},         {"glFrontFace", {GL_CW}},
        {"glCullFace", {GL_BACK}},            {"glPixelStorei", {GL_UNPACK_ALIGNMENT, 1}},
        {"glColorMaterial", {GL_FRONT, GL_AMBIENT_AND_DIFFUSE}}};
    for (const auto& [name, args] : set) {
        bool found = false;
        for (const GlCall& c : gl_rec().calls) found |= c.name == name && c.args == args;
        EXPECT_TRUE(found) << name;
    }
}

TEST_F(Caps, SoftwarePointerAndRendererWarning) {
    const std::string warning = "I can not find a 3-D accelerator card that can handle OpenGL that has correctly "
                                "installed drivers.|I will still let you run the simulator, but the frame rate will "
                                "NOT allow for a good simulation.";
    for (auto [renderer, sw, warned] : {std::tuple{"3Dfx Voodoo3", 1, 0}, {"3dfx/Voodoo", 1, 0}, {"Mesa DRI", 1, 0},
                                        {"llvmpipe (LLVM 15.0.6)", 1, 0}, {"softpipe", 1, 0}, {"GENERIC", 0, 1},
                                        {"GENERIC 2", 0, 0}, {"GeForce2 MX/AGP Generic", 0, 0}, {"Mes", 0, 0}}) {
        alerts.clear();
        gl_rec().renderer = renderer;
        MACIBM_gl_checks();
        EXPECT_EQ(sw_cursor, sw) << renderer;
        EXPECT_EQ(plat_pointer_shown(), sw == 0) << renderer;
        EXPECT_EQ(alerts, std::vector<std::string>(warned, warning)) << renderer;
    }
}
