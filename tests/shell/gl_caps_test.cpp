// The OpenGL capability checks against a recording GL: flags, report, warning, pointer, state.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/alert.h"
#include "graphics/textures.h"
#include "shell/gl_caps.h"
#include "shell/log.h"
#include "tests/support/gl_recorder.h"
#include "tests/support/test_files.h"

using testing::HasSubstr;

namespace {

std::vector<std::string> alerts;
void record_box(const char* const lines[4], int32_t) { alerts.push_back(lines[0]); }

class Caps : public testing::Test {
  protected:
    void SetUp() override {
        gl_recorder_install();
        gl_caps_reset();
        dir = test_temp_dir();
        MACIBM_log_open((dir + "Error.out").c_str());
        alert_set_box(record_box);
        alerts.clear();
    }
    void TearDown() override {
        alert_set_box(nullptr);
        MACIBM_log_close();
    }
    std::string log() { return test_read_file(dir + "Error.out"); }
    std::string dir;
};

TEST_F(Caps, FlagsFromVersionAndExtensions) {
    struct Row {
        const char* version;
        const char* extensions;
        int v12, sgi, arb, mul, add, clamp;
    } rows[] = {
        {"1.2.2", "", 1, 0, 0, 0, 0, 1},
        {"1.3.0", "", 0, 0, 0, 0, 0, 0},
        {"1.1", "", 0, 0, 0, 0, 0, 0},
        {"2.1 Mesa 22.3.6", "", 0, 0, 0, 0, 0, 0},
        {"1.1", "GL_EXT_abgr GL_SGIS_texture_edge_clamp", 0, 1, 0, 0, 0, 1},
        {"1.1", "GL_SGI_texture_edge_clamp", 0, 1, 0, 0, 0, 1},
        {"1.1", "GL_ARB_texture_edge_clamp GL_ARB_multitexture", 0, 0, 1, 1, 0, 1},
        {"1.1", "GL_ARB_multitextureXYZ", 0, 0, 0, 1, 0, 0},  // a plain substring counts
        {"1.1", "GL_ARB_texture_env_add", 0, 0, 0, 0, 1, 0},
        {"1.1", "GL_EXT_abgr GL_EXT_texture_env_add", 0, 0, 0, 0, 1, 0},  // at the very end
    };
    for (const Row& r : rows) {
        gl_rec().version = r.version;
        gl_rec().extensions = r.extensions;
        MACIBM_gl_checks();
        EXPECT_EQ(GlCaps.found_opengl_12, r.v12) << r.version << " / " << r.extensions;
        EXPECT_EQ(GlCaps.found_clamp_SGI, r.sgi) << r.extensions;
        EXPECT_EQ(GlCaps.found_clamp_ARB, r.arb) << r.extensions;
        EXPECT_EQ(GlCaps.found_mul_tex, r.mul) << r.extensions;
        EXPECT_EQ(GlCaps.found_env_add, r.add) << r.extensions;
        EXPECT_EQ(clamp_ok, r.clamp) << r.version << " / " << r.extensions;
    }
}

TEST_F(Caps, ExtensionListLongerThanTheOldLimitIsSearchedWhole) {
    std::string ext;
    while (ext.size() < 40000) ext += "GL_VENDOR_some_feature ";
    gl_rec().extensions = ext + "GL_ARB_multitexture";
    MACIBM_gl_checks();
    EXPECT_EQ(GlCaps.found_mul_tex, 1);
    EXPECT_EQ(strlen(GlCaps.extensions), (size_t)GL_EXTENSIONS_KEEP - 1);
    EXPECT_THAT(log(), HasSubstr("OpenGL Extensions:" + gl_rec().extensions + "\n"));
}

TEST_F(Caps, ReportOfADriverWithoutMultitexture) {
    gl_rec().vendor = "V";
    gl_rec().renderer = "R";
    gl_rec().version = "1.2.1";
    gl_rec().extensions = "GL_EXT_abgr";
    gl_rec().integers.erase(GL_MAX_TEXTURE_UNITS_ARB);  // the query does not answer
    MACIBM_gl_checks();
    EXPECT_EQ(log(),
              "OpenGL Situation:\n"
              "OpenGL Vendor    :V\n"
              "OpenGL Render    :R\n"
              "OpenGL Version   :1.2.1\n"
              "OpenGL Extensions:GL_EXT_abgr\n"
              "found_opengl_12  :1\n"
              "found_clamp_SGI  :0\n"
              "found_clamp_ARB  :0\n"
              "found_mul_tex    :0\n"
              "found_env_add    :0\n"
              "num_tex_units    :0\n\n\n");
}

TEST_F(Caps, SoftwarePointerAndRendererWarning) {
    struct Row {
        const char* renderer;
        int sw_cursor;
        size_t warnings;
    } rows[] = {
        {"3Dfx Voodoo3", 1, 0}, {"3dfx/Voodoo", 1, 0}, {"Mesa DRI Intel", 1, 0}, {"Mesa", 1, 0},
        {"llvmpipe (LLVM 15.0.6, 256 bits)", 1, 0}, {"softpipe", 1, 0},
        {"GENERIC", 0, 1}, {"Generic renderer", 0, 0}, {"GeForce2 MX/AGP Generic", 0, 0},
        {"Mes", 0, 0}, {"", 0, 0},
    };
    for (const Row& r : rows) {
        alerts.clear();
        gl_rec().renderer = r.renderer;
        MACIBM_gl_checks();
        EXPECT_EQ(sw_cursor, r.sw_cursor) << r.renderer;
        ASSERT_EQ(alerts.size(), r.warnings) << r.renderer;
        if (r.warnings)
            EXPECT_EQ(alerts[0],
                      "I can not find a 3-D accelerator card that can handle OpenGL that has correctly installed "
                      "drivers.");
    }
}

TEST_F(Caps, TooLongVendorIsFatal) {
    gl_rec().vendor = std::string(500, 'v');
    alert_set_box(nullptr);
    EXPECT_EXIT(MACIBM_gl_checks(), testing::ExitedWithCode(0), testing::_);
}

TEST_F(Caps, DefaultStateInItsOrder) {
    MACIBM_gl_checks();
    std::vector<std::pair<std::string, std::vector<double>>> got;
    for (const GlCall& c : gl_rec().calls)
        if (c.name != "glGetString" && c.name != "glGetIntegerv") got.push_back({c.name, c.args});
    std::vector<std::pair<std::string, std::vector<double>>> want = {
        {"glLightModelfv", {GL_LIGHT_MODEL_AMBIENT, 0}},
        {"glPixelStorei", {GL_UNPACK_ALIGNMENT, 1}},
        {"glPixelStorei", {GL_PACK_ALIGNMENT, 1}},
        {"glAlphaFunc", {GL_GREATER, 0}},
        {"glBlendFunc", {GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA}},
        {"glDepthFunc", {GL_LEQUAL}},
        {"glFogi", {GL_FOG_MODE, GL_LINEAR}},
        {"glHint", {GL_FOG_HINT, GL_FASTEST}},
        {"glFrontFace", {GL_CW}},
        {"glEnable", {GL_CULL_FACE}},
        {"glCullFace", {GL_BACK}},
        {"glShadeModel", {GL_SMOOTH}},
        {"glEnable", {GL_DITHER}},
        {"glDisable", {GL_LOGIC_OP}},
        {"glDisable", {GL_STENCIL_TEST}},
        {"glDisable", {GL_TEXTURE_1D}},
        {"glDisable", {GL_NORMALIZE}},
        {"glDisable", {GL_SCISSOR_TEST}},
        {"glEnable", {GL_COLOR_MATERIAL}},
        {"glColorMaterial", {GL_FRONT, GL_AMBIENT_AND_DIFFUSE}},
    };
    EXPECT_EQ(got, want);
}

}  // namespace
