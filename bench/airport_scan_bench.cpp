// Scan speed of a full-size apt.dat (22000 airports, 180000 runways) into the airport table.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "bench/bench_world.h"
#include "briefing/airports.h"
#include "util/file_reader.h"

static void BM_ScanFullSizeAptDat(benchmark::State& state) {
    const std::string file = bench_world_full() + "apt.dat";
    apt_reset();
    for (auto _ : state) {
        char path[500];
        strcpy(path, file.c_str());
        fio_reset();
        if (!fio_open(path, FILE_TYPE_TEXT, 600, 1)) state.SkipWithError("open failed");
        apt_scan(path);
        fio_close();
        benchmark::DoNotOptimize(apt_table.runway_count);
    }
    if (apt_table.airport_count != BENCH_WORLD_AIRPORTS - 1 || apt_table.runway_count != BENCH_WORLD_RUNWAYS - 1)
        state.SkipWithError("wrong counts");
    FILE* f = fopen(file.c_str(), "rb");
    fseek(f, 0, SEEK_END);
    state.SetBytesProcessed(state.iterations() * ftell(f));
    fclose(f);
    state.counters["airports"] = apt_table.airport_count + 1;
    state.counters["runways"] = apt_table.runway_count + 1;
}
BENCHMARK(BM_ScanFullSizeAptDat)->Unit(benchmark::kMillisecond);
