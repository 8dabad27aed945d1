// Speaking the briefing aloud: synthesised ahead on a worker thread, played as it is made.
#include "briefing/speaker.h"

#include <chrono>
#include <cstring>
#include <thread>

#include "briefing/request.h"
#include "briefing/speech.h"
#include "platform/platform.h"
#include "base/alert.h"
#include "base/shutdown.h"

// The worker synthesises, waits until the audio output has taken every sample, then closes
// the output. A worker still running at exit is stopped rather than left to abort the process.
static struct Worker {
    std::thread thread;
    std::atomic<bool> busy{false};
    ~Worker() {
        brief_track.stop = true;
        if (thread.joinable()) thread.join();
    }
} worker;

// The audio thread: the next samples made, silence while synthesis is behind or done.
static void pull(int16_t* out, int32_t count, void* ctx) {
    (void)ctx;
    SpeechTrack& t = brief_track;
    int32_t made = t.made.load(std::memory_order_acquire);
    int32_t at = t.played.load(std::memory_order_relaxed);
    int32_t n = made - at < count ? made - at : count;
    memcpy(out, t.samples + at, (size_t)n * sizeof *out);
    memset(out + n, 0, (size_t)(count - n) * sizeof *out);
    t.played.store(at + n, std::memory_order_release);
}

static void run() {
    SpeechTrack& t = brief_track;
    brief_synthesise();
    while (!t.stop && t.played.load(std::memory_order_acquire) < t.made.load(std::memory_order_acquire))
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    plat_audio_close();
    worker.busy = false;
}

void brief_speak_stop() {
    brief_track.stop = true;
    if (worker.thread.joinable()) worker.thread.join();
}

bool brief_speak_start() {
    brief_speak_stop();
    if (!plat_speech_open()) {
        MACIBM_alert(0, "I cannot speak the briefing:", plat_speech_error(), "", "", ALERT_NOTE);
        return false;
    }
    brief_track_reset();
    if (!plat_audio_open(plat_speech_rate(), pull, nullptr)) {
        MACIBM_alert(0, "I cannot play the briefing:", plat_audio_error(), "", "", ALERT_NOTE);
        return false;
    }
    shutdown_set_step(SHUTDOWN_SOUND, brief_speak_stop);
    worker.busy = true;
    worker.thread = std::thread(run);
    return true;
}

int32_t brief_speak_toggle(BriefComposeFn compose) {
    if (worker.busy) {
        brief_speak_stop();
        return SPEAK_STOPPED;
    }
    if (!brief_req.intro[0] && compose) compose();
    return brief_speak_start() ? SPEAK_STARTED : SPEAK_FAILED;
}

bool brief_speak_busy() { return worker.busy; }
int32_t brief_speak_position() { return brief_track.played.load(std::memory_order_relaxed); }

void brief_speak_wait() {
    if (worker.thread.joinable()) worker.thread.join();
}
