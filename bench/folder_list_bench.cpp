// Folder listing speed: the file chooser lists its folder again on every frame it draws.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "platform/platform.h"
#include "util/file_types.h"
#include "util/folder_list.h"

// A folder of `entries` entries: aircraft files of mixed-case names, a tenth of them
// folders, a few other files that the filter drops, some names too long to show whole.
static std::string make_folder(int entries) {
    char tmpl[] = "/tmp/vocalog-bench-XXXXXX";
    if (!mkdtemp(tmpl)) abort();
    std::string dir = std::string(tmpl) + "/";
    unsigned x = 2024;
    for (int i = 0; i < entries; ++i) {
        x = x * 1103515245u + 12345u;
        char name[80];
        const char* maker[] = {"Cessna", "piper", "Beech", "mooney", "Diamond", "Lear"};
        int n = snprintf(name, sizeof name, "%s %u%s", maker[x % 6], x % 100000, i % 17 == 0 ? " long name, cut" : "");
        if (i % 10 == 0) {
            mkdir((dir + name).c_str(), 0755);
        } else {
            snprintf(name + n, sizeof name - n, i % 25 == 0 ? ".txt" : ".acf");
            if (FILE* f = fopen((dir + name).c_str(), "w")) fclose(f);
        }
    }
    return dir;
}

// One folder per size, made once.
static const std::string& folder_of(int entries) {
    static std::string dir;
    static int made = -1;
    if (made != entries) {
        if (!dir.empty()) (void)!system(("rm -rf '" + dir + "'").c_str());
        else atexit([] { (void)!system(("rm -rf '" + dir + "'").c_str()); });  // the last one too
        dir = make_folder(entries);
        made = entries;
    }
    return dir;
}

// The system's share: reading the folder's entries and nothing else.
static void BM_SystemReadsFolder(benchmark::State& state) {
    const std::string& dir = folder_of((int)state.range(0));
    int seen = 0;
    for (auto _ : state) {
        seen = plat_list_folder(dir.c_str(), [](const char*, bool, void*) { return true; }, nullptr);
        benchmark::DoNotOptimize(seen);
    }
    state.counters["entries"] = seen;
}
// The machine is shared: each figure is given as the median and the best of ten runs.
static double best(const std::vector<double>& v) { return *std::min_element(v.begin(), v.end()); }
static void runs(benchmark::internal::Benchmark* b) {
    b->Unit(benchmark::kMicrosecond)->Repetitions(10)->ReportAggregatesOnly(true)->ComputeStatistics("best", best);
}
BENCHMARK(BM_SystemReadsFolder)->Arg(1000)->Apply(runs);

static void BM_ListFolder(benchmark::State& state) {
    const std::string& dir = folder_of((int)state.range(0));
    folders_fill(dir.c_str(), dir.c_str());
    int32_t count = 0;
    for (auto _ : state) {
        count = list_folder(FILE_TYPE_AIRCRAFT);
        benchmark::DoNotOptimize(count);
    }
    state.counters["listed"] = count;
    state.counters["entries"] = (double)state.range(0);
}
BENCHMARK(BM_ListFolder)->Arg(10)->Arg(1000)->Arg(1500)->Apply(runs);
