// Time to first sound of the program's "speak the briefing" command: from the command to
// the audio output's first pull of speech. SDL's default output, or its dummy driver (which
// pulls in real time like a device) where the machine has none; the label says which.
#include <SDL.h>
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <thread>

#include "bench/sample_briefing.h"
#include "briefing/speaker.h"
#include "briefing/speech.h"
#include "base/alert.h"

using Clock = std::chrono::steady_clock;

// One command until the first speech sample is pulled. `made_s` gets the time until the
// first samples were synthesised; the rest is the wait for the output's next pull.
static double first_sound_seconds(double* made_s = nullptr) {
    const Clock::time_point start = Clock::now();
    if (brief_speak_toggle(nullptr) != SPEAK_STARTED) return -1.0;
    double made = -1.0;
    while (brief_speak_position() == 0) {
        if (made < 0.0 && brief_track.made > 0) made = std::chrono::duration<double>(Clock::now() - start).count();
        std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
    const double s = std::chrono::duration<double>(Clock::now() - start).count();
    if (made_s) *made_s += made < 0.0 ? s : made;
    brief_speak_stop();
    return s;
}

static void BM_TimeToFirstSound(benchmark::State& state) {
    if (!bench_sample_briefing()) return state.SkipWithError("no sample world beside the program");
    alert_set_box([](const char* const[4], int32_t) {});
    static const Clock::time_point engine_start = Clock::now();  // the first command starts the engine
    static const bool engine = plat_speech_open();
    static const double engine_s = std::chrono::duration<double>(Clock::now() - engine_start).count();
    if (!engine) return state.SkipWithError(plat_speech_error());
    static double cold = first_sound_seconds();  // the first command also starts SDL's audio
    if (cold < 0.0) {  // no device: the dummy driver
        setenv("SDL_AUDIODRIVER", "dummy", 1);
        cold = first_sound_seconds();
    }
    if (cold < 0.0) return state.SkipWithError("no audio output");
    double made_s = 0.0;
    for (auto _ : state) {
        double s = first_sound_seconds(&made_s);
        if (s < 0.0) return state.SkipWithError("speaking failed");
        state.SetIterationTime(s);
    }
    state.counters["made_ms"] = made_s * 1000.0 / (double)state.iterations();
    state.counters["engine_ms"] = engine_s * 1000.0;
    state.counters["cold_ms"] = cold * 1000.0;
    state.SetLabel(SDL_GetCurrentAudioDriver() ? SDL_GetCurrentAudioDriver() : "?");
}
BENCHMARK(BM_TimeToFirstSound)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);
