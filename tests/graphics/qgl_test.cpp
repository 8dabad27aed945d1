// The GL entry-point table: filling, missing entries and reset.
#include <gtest/gtest.h>

#include <cstring>

#include "graphics/qgl.h"
#include "tests/support/gl_recorder.h"

static void* all_but_two(const char* name) {
    if (strcmp(name, "glFrustum") == 0 || strcmp(name, "glFinish") == 0) return nullptr;
    return gl_recorder_proc(name);
}

TEST(Qgl, LoadFillsEveryEntryAndListsTheMissing) {
    EXPECT_EQ(qgl_load(gl_recorder_proc), 0);
    EXPECT_EQ(qgl_missing(0), nullptr);
    EXPECT_NE(qglBegin, nullptr);
    EXPECT_NE(qglTexImage2D, nullptr);

    EXPECT_EQ(qgl_load(all_but_two), 2);
    EXPECT_STREQ(qgl_missing(0), "glFrustum");
    EXPECT_STREQ(qgl_missing(1), "glFinish");
    EXPECT_EQ(qgl_missing(2), nullptr);
    EXPECT_EQ(qglFrustum, nullptr);
    EXPECT_NE(qglOrtho, nullptr);

    qgl_load_multitexture(gl_recorder_proc);
    EXPECT_NE(qglActiveTextureARB, nullptr);
    qgl_reset();
    EXPECT_EQ(qglBegin, nullptr);
    EXPECT_EQ(qglActiveTextureARB, nullptr);
    for (int i = 0; i < qgl_count(); ++i) EXPECT_NE(gl_recorder_proc(qgl_name(i)), nullptr) << qgl_name(i);
    EXPECT_EQ(qgl_name(qgl_count()), nullptr);
}
