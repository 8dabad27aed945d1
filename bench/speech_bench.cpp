// Speech of one whole briefing: its spoken text, and its synthesis into samples (one core).
#include <benchmark/benchmark.h>

#include "bench/sample_briefing.h"
#include "briefing/speech.h"

static void BM_SpokenText(benchmark::State& state) {
    if (!bench_sample_briefing()) return state.SkipWithError("no sample world beside the program");
    for (auto _ : state) {
        brief_track_reset();  // the four paragraphs' spoken text
        benchmark::DoNotOptimize(brief_track.script);
    }
}
BENCHMARK(BM_SpokenText)->Unit(benchmark::kMicrosecond);

static void BM_SynthesiseBriefing(benchmark::State& state) {
    if (!bench_sample_briefing()) return state.SkipWithError("no sample world beside the program");
    if (!plat_speech_open()) return state.SkipWithError(plat_speech_error());
    for (auto _ : state) {
        brief_track_reset();
        if (!brief_synthesise()) return state.SkipWithError(plat_speech_error());
    }
    state.counters["sound_s"] = (double)brief_track.made / brief_track.rate;
}
BENCHMARK(BM_SynthesiseBriefing)->Unit(benchmark::kMillisecond)->Iterations(5);
