// The state switch, the colour rule and the design-space projection against the recording GL.
#include "tests/graphics/gfx_fixture.h"

#include "graphics/primitives.h"

using StateSwitch = Gfx;

TEST_F(StateSwitch, RepeatedPrimitiveIssuesNoEnableOrDisable) {
    OGL_fill_rect(0, 1.0f, 0, 0, 10, 10);
    gl.clear_log();
    OGL_fill_rect(0, 1.0f, 5, 5, 10, 10);
    EXPECT_EQ(gl.count("glEnable"), 0);
    EXPECT_EQ(gl.count("glDisable"), 0);
    EXPECT_EQ(gl.count("glDepthMask", GL_FALSE), 1);
    EXPECT_EQ(gl.count("glActiveTextureARB"), 0);
    ASSERT_EQ(gl.prims.size(), 1u);
}

TEST_F(StateSwitch, ReachesRequestedStateFromAnyStart) {
    struct Row {
        int32_t fog, light, alpha, blend, depth, depthw;
    };
    const Row rows[] = {{2, 4, 6, 8, 10, 12}, {3, 5, 7, 9, 11, 13}, {2, 5, 6, 9, 10, 13},
                        {99, 0, -1, 8, 1000, 12}};  // anything but an on code means off
    for (const Row& from : rows)
        for (const Row& to : rows) {
            OGL_set_state(from.fog, 1, from.light, from.alpha, from.blend, from.depth, from.depthw);
            gl.clear_log();
            OGL_set_state(to.fog, 1, to.light, to.alpha, to.blend, to.depth, to.depthw);
            SCOPED_TRACE(testing::Message() << "from fog " << from.fog << " to fog " << to.fog);
            EXPECT_EQ(gl.caps.count(GL_FOG), to.fog == 2 ? 1u : 0u);
            EXPECT_EQ(gl.caps.count(GL_LIGHTING), to.light == 4 ? 1u : 0u);
            EXPECT_EQ(gl.caps.count(GL_LIGHT0), to.light == 4 ? 1u : 0u);
            EXPECT_EQ(gl.caps.count(GL_ALPHA_TEST), to.alpha == 6 ? 1u : 0u);
            EXPECT_EQ(gl.caps.count(GL_BLEND), to.blend == 8 ? 1u : 0u);
            EXPECT_EQ(gl.caps.count(GL_DEPTH_TEST), to.depth == 10 ? 1u : 0u);
            EXPECT_EQ(gl.depth_mask, to.depthw == 12);
            // Only the capabilities whose on/off state changed are touched.
            int changed = (from.fog == 2) != (to.fog == 2) ? 1 : 0;
            changed += (from.light == 4) != (to.light == 4) ? 2 : 0;
            changed += (from.alpha == 6) != (to.alpha == 6);
            changed += (from.blend == 8) != (to.blend == 8);
            changed += (from.depth == 10) != (to.depth == 10);
            EXPECT_EQ(gl.count("glEnable") + gl.count("glDisable"), changed);
            EXPECT_EQ(gl.count("glDepthMask"), 1);  // set every time
            // The switch leaves opaque white current.
            EXPECT_THAT(gl.color, testing::ElementsAre(1.0f, 1.0f, 1.0f, 1.0f));
        }
}

TEST_F(StateSwitch, TwoUnitsToNoneDisablesEveryUnitAndReturnsToUnitOne) {
    OGL_set_state(3, 2, 5, 7, 9, 11, 13);
    EXPECT_TRUE(gl.tex2d[0]);
    EXPECT_TRUE(gl.tex2d[1]);
    EXPECT_FALSE(gl.tex2d[2]);
    EXPECT_EQ(gl_tex_units, 2);
    EXPECT_EQ(gl.active_unit, 0);
    gl.clear_log();

    OGL_set_state(3, 0, 5, 7, 9, 11, 13);
    EXPECT_FALSE(gl.tex2d[0]);
    EXPECT_FALSE(gl.tex2d[1]);
    EXPECT_EQ(gl.active_unit, 0);
    EXPECT_EQ(gl_tex_units, 0);
    EXPECT_EQ(gl.count("glDisable", GL_TEXTURE_2D), 3);  // the active unit, then units 1 and 2
    EXPECT_EQ(gl.count("glActiveTextureARB"), 3);        // unit 1, unit 2, back to unit 1
}

TEST_F(StateSwitch, OneUnitToNoneTouchesOnlyTheActiveUnit) {
    OGL_set_state(3, 1, 5, 7, 9, 11, 13);
    gl.clear_log();
    OGL_set_state(3, 0, 5, 7, 9, 11, 13);
    EXPECT_FALSE(gl.tex2d[0]);
    EXPECT_EQ(gl.count("glDisable", GL_TEXTURE_2D), 1);
    EXPECT_EQ(gl.count("glActiveTextureARB"), 0);
    gl.clear_log();
    OGL_set_state(3, 0, 5, 7, 9, 11, 13);  // already off: nothing to do
    EXPECT_EQ(gl.count("glDisable", GL_TEXTURE_2D), 0);
}

using ColourRule = Gfx;

TEST_F(ColourRule, TintAppliesBelowEntry49Only) {
    OGL_tint[0] = 0.5f, OGL_tint[1] = 0.25f, OGL_tint[2] = 1.0f;
    OGL_set_palette(48, 1, 1, 1);
    OGL_set_palette(49, 1, 1, 1);
    OGL_set_color(48, 1.0f);
    EXPECT_THAT(gl.color, testing::ElementsAre(0.5f, 0.25f, 1.0f, 1.0f));
    OGL_set_color(49, 1.0f);
    EXPECT_THAT(gl.color, testing::ElementsAre(1.0f, 1.0f, 1.0f, 1.0f));
}

TEST_F(ColourRule, AlphaAbove099IsOpaqueThreeComponents) {
    struct Row {
        float alpha;
        const char* call;
        float recorded;
    };
    const Row rows[] = {{1.0f, "glColor3fv", 1.0f}, {0.99f, "glColor3fv", 1.0f}, {0.5f, "glColor4f", 0.5f},
                        {0.0f, "glColor4f", 0.0f}};
    for (const Row& r : rows) {
        gl.clear_log();
        OGL_set_color(66, r.alpha);
        EXPECT_EQ(gl.count(r.call), 1) << r.alpha;
        EXPECT_FLOAT_EQ(gl.color[3], r.recorded);
        EXPECT_FLOAT_EQ(gl.color[1], 1.0f);  // entry 66 is bright green
    }
}

TEST_F(ColourRule, LineAlphaChoosesBlending) {
    const struct {
        float alpha;
        bool blend;
    } rows[] = {{0.5f, true}, {0.99f, false}, {1.0f, false}};
    for (auto r : rows) {
        OGL_draw_line(0, r.alpha, 0, 0, 10, 10);
        EXPECT_EQ(gl.prims.back().caps.count(GL_BLEND), r.blend ? 1u : 0u) << r.alpha;
        EXPECT_FLOAT_EQ(gl.prims.back().v[0].a, r.blend ? r.alpha : 1.0f);
    }
}

TEST_F(ColourRule, ComposeModeRecordsBytesAndSendsNothing) {
    bg_compose = 1;
    OGL_tint[0] = 0.0f;  // ignored in compose mode
    OGL_set_color(27, 0.3f);  // 1, 0.8, 0.2
    EXPECT_EQ(gl.count("glColor3fv") + gl.count("glColor4f"), 0);
    EXPECT_EQ(compose_rgb[0], 255);
    EXPECT_EQ(compose_rgb[1], 204);
    EXPECT_EQ(compose_rgb[2], 51);
}

TEST_F(ColourRule, SetRgbaTintsUnlessAskedNotTo) {
    OGL_tint[0] = OGL_tint[1] = OGL_tint[2] = 0.5f;
    OGL_set_rgba(1, 1, 1, 1, 0);
    EXPECT_THAT(gl.color, testing::ElementsAre(0.5f, 0.5f, 0.5f, 1.0f));
    OGL_set_rgba(1, 1, 1, 1, 1);
    EXPECT_THAT(gl.color, testing::ElementsAre(1.0f, 1.0f, 1.0f, 1.0f));
    EXPECT_EQ(gl.count("glColor4f"), 2);
}

using Projection = Gfx;

TEST_F(Projection, DesignSpaceSpansTheWholeWindow) {
    struct Row {
        float w, h;
        double x0, x1, y1;  // design x at the left and right edge, y at the top
    };
    const Row rows[] = {{1024, 768, 0, 1024, 768},
                        {1280, 1024, 0, 1024, 819.2},
                        {1600, 1024, -88, 1112, 768},
                        {1536, 768, -256, 1280, 768}};
    for (const Row& r : rows) {
        disp_width = r.w;
        disp_height = r.h;
        design_space_fit();
        OGL_set_projection(2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
        SCOPED_TRACE(r.w);
        double nx, ny;
        gl.project(r.x0, 0, &nx, &ny);
        EXPECT_NEAR(nx, -1.0, 1e-5);
        EXPECT_NEAR(ny, -1.0, 1e-5);
        gl.project(r.x1, r.y1, &nx, &ny);
        EXPECT_NEAR(nx, 1.0, 1e-5);
        EXPECT_NEAR(ny, 1.0, 1e-5);
        EXPECT_THAT(gl.viewport, testing::ElementsAre(0, 0, (int)r.w, (int)r.h));
        EXPECT_EQ(gl.matrix_mode, (GLenum)GL_MODELVIEW);
    }
}

TEST_F(Projection, PerspectiveScalesViewportAndFrustum) {
    disp_width = 1600;
    disp_height = 1024;
    design_space_fit();  // scale 4/3, margin x 88
    OGL_set_projection(3, -1, -1, 1, 1, 0, 0, 300, 150, 2, 100, 1);
    ASSERT_EQ(gl.count("glFrustum"), 1);
    const GlCall* f = nullptr;
    for (const auto& c : gl.calls)
        if (c.name == "glFrustum") f = &c;
    // Sides times near; bottom and top times the viewport's aspect h / w = 0.5.
    using testing::DoubleNear;
    EXPECT_THAT(f->args, testing::ElementsAre(DoubleNear(-2, 1e-5), DoubleNear(2, 1e-5), DoubleNear(-1, 1e-5),
                                              DoubleNear(1, 1e-5), DoubleNear(2, 1e-5), DoubleNear(100, 1e-5)));
    // The viewport moves right by the margin and grows with the scale.
    EXPECT_NEAR(gl.viewport[0], 117, 1);
    EXPECT_EQ(gl.viewport[1], 0);
    EXPECT_NEAR(gl.viewport[2], 400, 1);
    EXPECT_NEAR(gl.viewport[3], 200, 1);
}

TEST_F(Projection, SwapLeavesEntry61AndReportsThePlatformResult) {
    OGL_set_swap(nullptr);
    EXPECT_EQ(OGL_swap_buffers(), 0);
    OGL_set_swap([]() -> int32_t { return 1; });
    OGL_set_color(66, 0.5f);
    EXPECT_EQ(OGL_swap_buffers(), 1);
    EXPECT_THAT(gl.color, testing::ElementsAre(1.0f, 1.0f, 1.0f, 1.0f));
    OGL_set_swap(nullptr);
}
