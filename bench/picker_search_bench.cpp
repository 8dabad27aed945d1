// The list picker's name search over the full-size airport table, one walk per key typed.
#include <benchmark/benchmark.h>

#include <string>

#include "bench/bench_world.h"
#include "briefing/airports.h"
#include "kit/list_picker.h"

static bool world_loaded(benchmark::State& state) {
    static const bool ok = bench_world_load(bench_world_full()) && apt_table.airport_count == BENCH_WORLD_AIRPORTS - 1;
    if (!ok) state.SkipWithError("the full-size world could not be loaded");
    return ok;
}

// Argument 0: "springfield intl" typed key by key (each key walks from the first entry);
// argument 1: a text above every name, so each key walks the whole table.
static void BM_NameSearchPerKey(benchmark::State& state) {
    if (!world_loaded(state)) return;
    const std::string typed = state.range(0) == 0 ? "springfield intl" : "zzzzzzzzzzzzzzzz";
    int64_t keys = 0, walked = 0;
    for (auto _ : state)
        for (size_t n = 1; n <= typed.size(); ++n, ++keys) {
            const int32_t found =
                BTN_list_find_name(apt_table.apt_name[0], 0, apt_table.airport_count, typed.substr(0, n).c_str());
            walked += found;
            benchmark::DoNotOptimize(found);
        }
    state.SetItemsProcessed(keys);
    state.counters["entries_walked_per_key"] = benchmark::Counter((double)walked / (double)keys);
    state.counters["secs_per_key"] = benchmark::Counter((double)keys, benchmark::Counter::kIsRate |
                                                                     benchmark::Counter::kInvert);
}
BENCHMARK(BM_NameSearchPerKey)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
