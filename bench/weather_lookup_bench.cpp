// One weather lookup on the full-size world (22000 airports, 6000 reports), against the
// reference that compares every report with every airport.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "bench/bench_world.h"
#include "briefing/airports.h"
#include "briefing/weather.h"

static void load_world(benchmark::State& state) {
    static bool loaded = false;
    if (!loaded && !bench_world_load(bench_world_full())) state.SkipWithError("load failed");
    loaded = true;
}

// Places spread over the world, as departures, midpoints and destinations would be.
static const float PLACES[][2] = {{37.6f, -122.4f}, {51.5f, -0.5f}, {-33.9f, 151.2f}, {35.5f, 139.8f},
                                  {40.6f, -73.8f},  {1.4f, 103.9f}, {-23.4f, -46.5f}, {55.9f, 37.4f}};
constexpr int PLACE_COUNT = sizeof PLACES / sizeof PLACES[0];

static int32_t lookup(const float* place) {
    StationWeather& w = station_wx;
    return wx_lookup(place[0], place[1], &w.time, w.cloud_kind, w.cloud_base, w.cloud_top, &w.visibility,
                     &w.wx_kind, &w.wx_intensity, &w.temperature, &w.dewpoint, &w.wind_dir, &w.wind_speed,
                     &w.gust, &w.pressure);
}

// The reference: every report line against every airport, the nearest strictly better.
static int32_t brute_force(const float* place) {
    static std::vector<char> text;
    FILE* f = fopen(wx_file_path, "rb");
    if (!f) return -1;
    fseek(f, 0, SEEK_END);
    text.resize((size_t)ftell(f) + 1);
    fseek(f, 0, SEEK_SET);
    size_t n = fread(text.data(), 1, text.size() - 1, f);
    fclose(f);
    text[n] = 0;
    float best = 99999.0f;
    int32_t station = -1;
    char line[500];
    for (size_t pos = 0; pos < n;) {
        size_t len = 0;
        while (pos < n && text[pos] != '\n' && text[pos] != '\r') {
            if (len < 499) line[len++] = text[pos];
            ++pos;
        }
        ++pos;
        line[len] = 0;
        if (strlen(line) < 11) continue;
        const char* code = strncmp(line, "METAR", 5) == 0 || strncmp(line, "SPECI", 5) == 0 ? line + 6 : line;
        for (int32_t i = 0; i <= apt_table.airport_count; ++i) {
            if (strncmp(apt_table.apt_code[i], code, 4) != 0) continue;
            float d = apt_distance(i, place[0], place[1]);
            if (d < best) {
                best = d;
                station = i;
            }
        }
    }
    return station;
}

static void BM_WxLookup(benchmark::State& state) {
    load_world(state);
    int k = 0;
    for (auto _ : state) benchmark::DoNotOptimize(lookup(PLACES[k++ % PLACE_COUNT]));
    for (int p = 0; p < PLACE_COUNT; ++p)
        if (lookup(PLACES[p]) != brute_force(PLACES[p])) state.SkipWithError("differs from the reference");
}
BENCHMARK(BM_WxLookup)->Unit(benchmark::kMicrosecond);

// What one briefing asks for: departure, midpoint and destination.
static void BM_WxThreeLookups(benchmark::State& state) {
    load_world(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(lookup(PLACES[0]));
        benchmark::DoNotOptimize(lookup(PLACES[4]));
        benchmark::DoNotOptimize(lookup(PLACES[1]));
    }
}
BENCHMARK(BM_WxThreeLookups)->Unit(benchmark::kMicrosecond);

static void BM_WxBruteForceReference(benchmark::State& state) {
    load_world(state);
    int k = 0;
    for (auto _ : state) benchmark::DoNotOptimize(brute_force(PLACES[k++ % PLACE_COUNT]));
}
BENCHMARK(BM_WxBruteForceReference)->Unit(benchmark::kMicrosecond);
