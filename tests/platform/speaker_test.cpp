// Speaking the briefing through SDL's audio output (the dummy driver: played in real time,
// heard by no one): the command starts it without waiting, a second one stops it.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <thread>

#include "briefing/request.h"
#include "briefing/speaker.h"
#include "briefing/speech.h"
#include "util/text.h"

namespace {

void wait_until(bool (*done)()) {
    for (int k = 0; k < 500 && !done(); ++k) std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

TEST(Speaker, CommandStartsStopsAndPlaysToTheEnd) {
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    brief_req_reset();
    str_copy("This is N1.", brief_req.intro);
    str_copy("Wind 280.", brief_req.dest_wx);
    ASSERT_EQ(brief_speak_toggle(nullptr), SPEAK_STARTED);
    EXPECT_TRUE(brief_speak_busy());
    wait_until([] { return brief_speak_position() > 0; });
    ASSERT_GT(brief_speak_position(), 0);
    EXPECT_EQ(brief_speak_toggle(nullptr), SPEAK_STOPPED);
    EXPECT_FALSE(brief_speak_busy());
    const int32_t stopped_at = brief_speak_position();
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    EXPECT_EQ(brief_speak_position(), stopped_at);
    EXPECT_LT(stopped_at, brief_track.made.load());  // stopped while there was more to say
    // Started again, it plays every sample made, then ends by itself.
    ASSERT_EQ(brief_speak_toggle(nullptr), SPEAK_STARTED);
    brief_speak_wait();
    EXPECT_FALSE(brief_speak_busy());
    EXPECT_GT(brief_track.made.load(), 22050);  // two paragraphs: over a second of speech
    EXPECT_EQ(brief_speak_position(), brief_track.made.load());
}

}  // namespace
