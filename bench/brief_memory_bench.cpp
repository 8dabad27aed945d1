// Peak memory of one vocalog-brief run on the full-size world: the child's maximum resident
// set, as the system accounts it, for a briefing across the generated world.
#include <benchmark/benchmark.h>

#include <climits>
#include <cstdio>
#include <spawn.h>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "bench/bench_world.h"

extern char** environ;

// A simulator folder whose apt.dat and metar.rwx are links to the full-size world's files.
static std::string make_sim_folder() {
    const std::string& world = bench_world_full();
    std::string sim = bench_world_temp_dir();
    mkdir((sim + "Resources").c_str(), 0755);
    mkdir((sim + "Resources/Earth nav data").c_str(), 0755);
    if (symlink((world + "apt.dat").c_str(), (sim + "Resources/Earth nav data/apt.dat").c_str()) != 0 ||
        symlink((world + "metar.rwx").c_str(), (sim + "metar.rwx").c_str()) != 0)
        return "";
    return sim;
}

// vocalog-brief beside this benchmark program.
static std::string brief_program() {
    char self[PATH_MAX];
    ssize_t n = readlink("/proc/self/exe", self, sizeof self - 1);
    if (n <= 0) return "";
    std::string path(self, (size_t)n);
    return path.substr(0, path.rfind('/') + 1) + "vocalog-brief";
}

// The codes of the world's first and last airport lines ("1 elevation tower buildings CODE name").
static bool first_and_last_codes(const std::string& apt, std::string& first, std::string& last) {
    FILE* f = fopen(apt.c_str(), "r");
    if (!f) return false;
    char line[256], code[8];
    while (fgets(line, sizeof line, f)) {
        if (line[0] != '1' || line[1] != ' ' || sscanf(line, "%*d %*d %*d %*d %7s", code) != 1) continue;
        if (first.empty()) first = code;
        last = code;
    }
    fclose(f);
    return !first.empty();
}

static void BM_BriefPeakMemory(benchmark::State& state) {
    std::string sim = make_sim_folder(), program = brief_program();
    if (sim.empty() || access(program.c_str(), X_OK) != 0) {
        state.SkipWithError("no simulator folder or no vocalog-brief");
        return;
    }
    std::string from, to;
    if (!first_and_last_codes(bench_world_full() + "apt.dat", from, to)) {
        state.SkipWithError("no airports in the world");
        return;
    }
    std::string out = sim + "briefing.txt";
    const char* argv[] = {program.c_str(), "--sim", sim.c_str(), "--from", from.c_str(), "--to", to.c_str(),
                          "--seed", "1", "--out", out.c_str(), nullptr};
    long peak_kb = 0;
    int status = 0;
    for (auto _ : state) {
        pid_t pid;
        if (posix_spawn(&pid, program.c_str(), nullptr, nullptr, (char* const*)argv, environ) != 0) {
            state.SkipWithError("spawn failed");
            return;
        }
        rusage use{};
        wait4(pid, &status, 0, &use);
        if (use.ru_maxrss > peak_kb) peak_kb = use.ru_maxrss;
    }
    state.counters["exit_code"] = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    state.counters["peak_rss_MB"] = (double)peak_kb / 1024.0;
}
BENCHMARK(BM_BriefPeakMemory)->Iterations(3)->Unit(benchmark::kMillisecond)->UseRealTime();
