// One briefing composition on the full-size world (22000 airports, 180000 runways,
// 6000 weather reports): three weather lookups, the phrasing and the introduction.
#include <benchmark/benchmark.h>

#include <cstring>

#include "bench/bench_world.h"
#include "briefing/airports.h"
#include "briefing/composer.h"
#include "briefing/request.h"
#include "util/random.h"
#include "util/text.h"

static void BM_Compose(benchmark::State& state) {
    static bool loaded = false;
    if (!loaded && !bench_world_load(bench_world_full())) {
        state.SkipWithError("load failed");
        return;
    }
    loaded = true;
    brief_req_reset();
    str_copy("C172.acf", brief_req.aircraft_name);
    brief_req.altitude = 5500.0f;
    brief_req.speed = 132.0f;
    const int32_t count = apt_table.airport_count + 1;
    int32_t pair = 0;
    size_t chars = 0;
    for (auto _ : state) {
        // Routes spread over the table, so lookups land in different parts of the world.
        brief_req.departure = (pair * 7919) % count;
        brief_req.destination = (pair * 104729 + 17) % count;
        ++pair;
        brief_compose();
        chars += strlen(brief_req.dest_wx);
        benchmark::DoNotOptimize(brief_req.intro);
    }
    state.counters["airports"] = count;
    state.counters["chars/para"] = (double)chars / (double)state.iterations();
}
BENCHMARK(BM_Compose)->Unit(benchmark::kMillisecond);
