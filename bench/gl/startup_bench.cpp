// The whole program as a process on the full-size world: start to the first frame of the
// briefing screen against a minimal GL window program, and the CPU share it keeps once idle.
// Both programs run on the display the benchmark has (DISPLAY; e.g. under xvfb-run).
#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "bench/bench_world.h"
#include "bench/gl/lang_res_file.h"

extern char** environ;
namespace fs = std::filesystem;

static double now_secs() {
    timespec ts{};
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return (double)ts.tv_sec + (double)ts.tv_nsec * 1e-9;
}

// A program folder of its own: a copy of the built program, the full-size world, and the
// build folder's art, menus, texts and aircraft; a per-user folder whose preferences name
// English and a 1024 x 768 window, so no language chooser shows. Without `weather` there is
// no metar.rwx: the program stops at its fatal alert.
static std::string stage(const char* name, bool weather) {
    const fs::path build = VOCALOG_BUILD_DIR, world = bench_world_full();
    fs::path dir = fs::path(bench_world_temp_dir()) / name;
    fs::remove_all(dir);
    fs::create_directories(dir / "Resources" / "Earth nav data");
    fs::copy_file(VOCALOG_PROGRAM, dir / "vocalog");
    fs::create_symlink(world / "apt.dat", dir / "Resources" / "Earth nav data" / "apt.dat");
    if (weather) fs::create_symlink(world / "metar.rwx", dir / "metar.rwx");
    for (const char* sub : {"bitmaps", "menus", "text"})
        fs::create_directory_symlink(build / "Resources" / sub, dir / "Resources" / sub);
    fs::create_directory_symlink(build / "Aircraft", dir / "Aircraft");
    bench_write_lang_res(dir / "home");
    return dir.string() + "/";
}

// Starts `program` in `dir` with `extra` added to the environment, standard output to
// dir/out.txt. Returns the process id, or -1.
static pid_t start(const std::string& program, const std::string& dir, std::vector<std::string> extra) {
    extra.push_back("XDG_DATA_HOME=" + dir + "home");
    extra.push_back("VOCALOG_TRACE=1");
    std::vector<char*> env;
    for (char** e = environ; *e; ++e)
        if (strncmp(*e, "XDG_DATA_HOME=", 14) != 0) env.push_back(*e);
    for (std::string& s : extra) env.push_back(s.data());
    env.push_back(nullptr);
    posix_spawn_file_actions_t fa;
    posix_spawn_file_actions_init(&fa);
    posix_spawn_file_actions_addopen(&fa, 1, (dir + "out.txt").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    posix_spawn_file_actions_addchdir_np(&fa, dir.c_str());
    char* argv[] = {(char*)program.c_str(), nullptr};
    pid_t pid = -1;
    int rc = posix_spawn(&pid, program.c_str(), &fa, nullptr, argv, env.data());
    posix_spawn_file_actions_destroy(&fa);
    return rc == 0 ? pid : -1;
}

struct Start {
    double frame, exit;  // seconds from spawn to the first frame presented, and to exit
};

// Spawns `program` and waits for its end; its "first frame <ms>" line (monotonic clock) gives
// the time of its first frame. Negative times when the process fails, ends abnormally or
// prints no such line.
static Start run_to_end(const std::string& program, const std::string& dir, std::vector<std::string> extra) {
    double t0 = now_secs();
    pid_t pid = start(program, dir, std::move(extra));
    int status = 0;
    if (pid < 0 || waitpid(pid, &status, 0) != pid) return {-1, -1};
    double t = now_secs() - t0;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) return {-1, -1};
    std::ifstream out(dir + "out.txt");
    std::string line;
    double frame_ms = -1;
    while (std::getline(out, line))
        if (sscanf(line.c_str(), "first frame %lf ms", &frame_ms) == 1) break;
    return {frame_ms < 0 ? -1 : frame_ms * 1e-3 - t0, t};
}

static bool file_has(const std::string& path, const char* text) {
    std::ifstream f(path);
    std::string s((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
    return s.find(text) != std::string::npos;
}

static double median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    size_t n = v.size();
    return n % 2 ? v[n / 2] : 0.5 * (v[n / 2 - 1] + v[n / 2]);
}

// Each iteration starts the minimal program, then vocalog (ending after the first pass of the
// briefing screen); the iteration's time is vocalog's, from spawn to its first frame presented.
// Alternating keeps a shared machine's swings in load on both sides alike. The times to exit
// (each program's shut-down included) are given beside.
static void BM_StartToBriefingScreen(benchmark::State& state) {
    std::string dir = stage("start", true);
    std::vector<double> minimal, vocalog, minimal_exit, vocalog_exit;
    for (auto _ : state) {
        Start m = run_to_end(MIN_GL_PROGRAM, dir, {});
        Start v = run_to_end(dir + "vocalog", dir, {"VOCALOG_EXIT_AFTER_FIRST_FRAME=1"});
        if (m.frame < 0 || v.frame < 0 || !file_has(dir + "out.txt", "screen departure=")) {
            state.SkipWithError(m.frame < 0 ? "the minimal GL program failed" : "vocalog did not reach the briefing screen");
            break;
        }
        minimal.push_back(m.frame), minimal_exit.push_back(m.exit);
        vocalog.push_back(v.frame), vocalog_exit.push_back(v.exit);
        state.SetIterationTime(v.frame);
    }
    if (vocalog.empty()) return;
    double mv = median(vocalog), mm = median(minimal);
    state.counters["vocalog_median_ms"] = mv * 1e3;
    state.counters["minimal_median_ms"] = mm * 1e3;
    state.counters["ratio"] = mv / mm;
    state.counters["vocalog_exit_ms"] = median(vocalog_exit) * 1e3;
    state.counters["minimal_exit_ms"] = median(minimal_exit) * 1e3;
}
BENCHMARK(BM_StartToBriefingScreen)->Iterations(15)->UseManualTime()->Unit(benchmark::kMillisecond);

// User plus system CPU seconds of a process, all its threads.
static double process_cpu_secs(pid_t pid) {
    std::ifstream f("/proc/" + std::to_string(pid) + "/stat");
    std::string s((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
    size_t close = s.rfind(')');
    if (close == std::string::npos) return -1;
    unsigned long utime = 0, stime = 0;
    // After the name: state, then fields 4..13, then utime (14) and stime (15).
    if (sscanf(s.c_str() + close + 2, "%*c %*d %*d %*d %*d %*d %*u %*u %*u %*u %*u %lu %lu", &utime, &stime) != 2)
        return -1;
    return (double)(utime + stime) / (double)sysconf(_SC_CLK_TCK);
}

// Argument: seconds measured. Once the program shows its screen (the briefing screen's trace
// line, or the fatal alert's text in Error.out), it is left alone past its idle threshold
// (3 s); then its CPU share is taken over the argument's seconds.
static void idle_share(benchmark::State& state, const char* name, bool weather) {
    std::string dir = stage(name, weather);
    for (auto _ : state) {
        pid_t pid = start(dir + "vocalog", dir, {});
        if (pid < 0) {
            state.SkipWithError("vocalog did not start");
            break;
        }
        const std::string shown = weather ? dir + "out.txt" : dir + "Error.out";
        const char* mark = weather ? "screen departure=" : "no weather";
        for (int i = 0; i < 1800 && !file_has(shown, mark); ++i) usleep(100000);
        usleep(4000000);
        double c0 = process_cpu_secs(pid), w0 = now_secs();
        usleep((useconds_t)state.range(0) * 1000000u);
        double c1 = process_cpu_secs(pid), w1 = now_secs();
        int status = 0;
        bool alive = waitpid(pid, &status, WNOHANG) == 0;
        kill(pid, SIGKILL);
        waitpid(pid, &status, 0);
        bool briefing = file_has(dir + "out.txt", "screen departure=");
        if (!alive || c0 < 0 || c1 < 0 || briefing != weather) {
            state.SkipWithError(!alive ? "vocalog ended early" : "vocalog is not on the expected screen");
            break;
        }
        state.SetIterationTime(w1 - w0);
        state.counters["cpu_share_pct"] = 100.0 * (c1 - c0) / (w1 - w0);
    }
}

// The briefing screen open, nothing but the search cursors pulsing.
static void BM_IdleBriefingScreen(benchmark::State& state) { idle_share(state, "idle", true); }
BENCHMARK(BM_IdleBriefingScreen)->Arg(20)->Iterations(1)->UseManualTime()->Unit(benchmark::kSecond);

// The fatal alert of a world without weather open, nothing moving at all.
static void BM_IdleAlert(benchmark::State& state) { idle_share(state, "alert", false); }
BENCHMARK(BM_IdleAlert)->Arg(20)->Iterations(1)->UseManualTime()->Unit(benchmark::kSecond);
