// Start-up cost on the full-size world: one whole vocalog-brief process (load apt.dat, check
// the weather, three lookups, write the briefing) against a plain read of the same two files
// by cat, the two run in turn in the same benchmark. Both are child processes; their processor
// time (user + system, as the system accounts it) is compared, so that a machine busy with
// other work disturbs the figure less than wall-clock time would. `ratio` is briefing over read.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <climits>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "bench/bench_world.h"

extern char** environ;

namespace {

struct World {
    std::string sim, apt, metar, program, from, to;
};

// A simulator folder linking the full-size world's files, and vocalog-brief beside this program.
const World& world() {
    static World w;
    if (!w.sim.empty()) return w;
    const std::string& full = bench_world_full();
    w.sim = bench_world_temp_dir();
    mkdir((w.sim + "Resources").c_str(), 0755);
    mkdir((w.sim + "Resources/Earth nav data").c_str(), 0755);
    w.apt = full + "apt.dat";
    w.metar = full + "metar.rwx";
    if (symlink(w.apt.c_str(), (w.sim + "Resources/Earth nav data/apt.dat").c_str()) != 0 ||
        symlink(w.metar.c_str(), (w.sim + "metar.rwx").c_str()) != 0)
        w.sim.clear();
    char self[PATH_MAX];
    ssize_t n = readlink("/proc/self/exe", self, sizeof self - 1);
    std::string path(self, n > 0 ? (size_t)n : 0);
    w.program = path.substr(0, path.rfind('/') + 1) + "vocalog-brief";
    // The first and last airport lines' codes: "1 elevation tower buildings CODE name".
    FILE* f = fopen(w.apt.c_str(), "r");
    char line[256], code[8];
    while (f && fgets(line, sizeof line, f)) {
        if (line[0] != '1' || line[1] != ' ' || sscanf(line, "%*d %*d %*d %*d %7s", code) != 1) continue;
        if (w.from.empty()) w.from = code;
        w.to = code;
    }
    if (f) fclose(f);
    return w;
}

struct Run {
    double cpu_ms, wall_ms;
    bool ok;
};

// Runs argv as a child with its standard output thrown away.
Run run(const std::vector<const char*>& argv) {
    posix_spawn_file_actions_t io;
    posix_spawn_file_actions_init(&io);
    posix_spawn_file_actions_addopen(&io, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    auto start = std::chrono::steady_clock::now();
    pid_t pid;
    int spawned = posix_spawn(&pid, argv[0], &io, nullptr, (char* const*)argv.data(), environ);
    posix_spawn_file_actions_destroy(&io);
    if (spawned != 0) return {0, 0, false};
    int status = 0;
    rusage use{};
    wait4(pid, &status, 0, &use);
    double wall = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    double cpu = (use.ru_utime.tv_sec + use.ru_stime.tv_sec) * 1e3 + (use.ru_utime.tv_usec + use.ru_stime.tv_usec) / 1e3;
    return {cpu, wall, WIFEXITED(status) && WEXITSTATUS(status) == 0};
}

double median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v.empty() ? 0 : v[v.size() / 2];
}

void BM_BriefProcessAgainstReadingItsFiles(benchmark::State& state) {
    const World& w = world();
    if (w.sim.empty() || access(w.program.c_str(), X_OK) != 0) {
        state.SkipWithError("no simulator folder or no vocalog-brief");
        return;
    }
    const std::string out = w.sim + "briefing.txt";
    const std::vector<const char*> brief = {w.program.c_str(), "--sim", w.sim.c_str(), "--from", w.from.c_str(),
                                            "--to", w.to.c_str(), "--seed", "1", "--now", "1200", "--out",
                                            out.c_str(), nullptr};
    const std::vector<const char*> read = {"/bin/cat", w.apt.c_str(), w.metar.c_str(), nullptr};
    run(read);  // the files in the page cache, as they are for every briefing after the first
    std::vector<double> brief_cpu, brief_wall, read_cpu, read_wall;
    for (auto _ : state) {
        Run b = run(brief), r = run(read);
        if (!b.ok || !r.ok) {
            state.SkipWithError("vocalog-brief or cat failed");
            return;
        }
        brief_cpu.push_back(b.cpu_ms), brief_wall.push_back(b.wall_ms);
        read_cpu.push_back(r.cpu_ms), read_wall.push_back(r.wall_ms);
        state.SetIterationTime(b.wall_ms / 1000.0);
    }
    state.counters["brief_cpu_ms"] = median(brief_cpu);
    state.counters["read_cpu_ms"] = median(read_cpu);
    state.counters["ratio"] = median(brief_cpu) / median(read_cpu);
    state.counters["brief_wall_ms"] = median(brief_wall);
    state.counters["read_wall_ms"] = median(read_wall);
}
BENCHMARK(BM_BriefProcessAgainstReadingItsFiles)->Iterations(30)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
