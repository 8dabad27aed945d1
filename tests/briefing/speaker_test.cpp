// The "speak the briefing" command without an audio output: it composes a briefing when none
// is shown, then says in a note that it cannot play.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "briefing/request.h"
#include "briefing/speaker.h"
#include "base/alert.h"
#include "util/text.h"

static std::vector<std::string> notes;
static int composed = 0;

TEST(Speaker, ComposesWhenNothingIsShownAndReportsNoAudio) {
    alert_set_box([](const char* const l[4], int32_t kind) { notes.push_back(std::to_string(kind) + l[0] + l[1]); });
    brief_req_reset();
    auto compose = [] {
        ++composed;
        str_copy("Hello, this is N172SP.", brief_req.intro);
    };
    EXPECT_EQ(brief_speak_toggle(compose), SPEAK_FAILED);
    EXPECT_EQ(brief_speak_toggle(compose), SPEAK_FAILED);
    EXPECT_EQ(composed, 1);  // the second time a briefing is shown
    EXPECT_FALSE(brief_speak_busy());
    const std::string note = std::to_string(ALERT_NOTE) + "I cannot play the briefing:this build has no audio output";
    EXPECT_EQ(notes, std::vector<std::string>({note, note}));
    alert_set_box(nullptr);
}
