// A full-size generated simulator world for benchmarks: apt.dat and metar.rwx in a folder.
#include "bench/bench_world.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <unistd.h>
#include <vector>

#include "briefing/airports.h"
#include "briefing/weather.h"
#include "util/file_reader.h"

namespace {

// A small deterministic generator, so every run benchmarks the same files.
struct Lcg {
    uint64_t s = 0x9E3779B97F4A7C15ull;
    uint32_t next() {
        s = s * 6364136223846793005ull + 1442695040888963407ull;
        return (uint32_t)(s >> 33);
    }
    int below(int n) { return (int)(next() % (uint32_t)n); }
    double unit() { return next() / 2147483648.0; }
};

const char* const NAME_WORDS[] = {"Springfield", "Riverside", "Fairview", "Madison", "Georgetown", "Clinton",
                                  "Salem",       "Franklin",  "Greenville", "Bristol", "Oakland",  "Kingston",
                                  "Ashland",     "Burlington", "Dover",    "Milton",  "Newport",   "Lakeview"};
const char* const NAME_KINDS[] = {"Muni", "Intl", "Rgnl", "County", "Field", "Airpark", "Meml", "Heliport"};

struct Airport {
    char code[5];
    double lat, lon;
};

// Codes as the suite's list has them: mostly 4 letters, some letter-digit mixes and a
// few 3-character codes; a code may repeat (as in the real list), most do not.
void make_code(Lcg& g, int i, char* code) {
    static const char prefixes[] = "KCEFLORSUYZ";
    int kind = g.below(20);
    if (kind == 0) {
        snprintf(code, 5, "%c%c%d", 'A' + g.below(26), 'A' + g.below(26), g.below(10));
    } else if (kind == 1) {
        snprintf(code, 5, "%02d%c%c", g.below(100), 'A' + g.below(26), 'A' + g.below(26));
    } else {
        int n = i * 7919 % 17576;  // spread over the 3-letter space, repeating past 17576
        code[0] = prefixes[g.below((int)sizeof prefixes - 1)];
        code[1] = (char)('A' + n / 676);
        code[2] = (char)('A' + n / 26 % 26);
        code[3] = (char)('A' + n % 26);
        code[4] = 0;
    }
}

bool write_airports(const std::string& path, Lcg& g, int airports, int runways, std::vector<Airport>& out) {
    FILE* f = fopen(path.c_str(), "w");
    if (!f) return false;
    fputs("I\n600 Version - data cycle 2004.01, generated for benchmarks\n", f);
    out.resize((size_t)airports);
    for (int i = 0; i < airports; ++i) {
        Airport& a = out[(size_t)i];
        make_code(g, i, a.code);
        a.lat = g.unit() * 130.0 - 60.0;
        a.lon = g.unit() * 360.0 - 180.0;
        int tower = g.below(3) == 0;
        fprintf(f, "1 %5d %d %d %s %s %s\n", g.below(9000) - 50, tower, g.below(2), a.code,
                NAME_WORDS[g.below(18)], NAME_KINDS[g.below(8)]);
        // Runways spread evenly, the remainder to the first airports.
        int n = runways / airports + (i < runways % airports ? 1 : 0);
        for (int r = 0; r < n; ++r) {
            int hdg10 = 1 + g.below(36);
            fprintf(f, "10 %10.6f %11.6f %02d%c %6.2f %6d %5d %5d %4d %06d\n", a.lat + g.unit() * 0.02 - 0.01,
                    a.lon + g.unit() * 0.02 - 0.01, hdg10, "xLRC"[g.below(4)], hdg10 * 10.0 + g.unit() * 4 - 2,
                    1500 + g.below(12000), g.below(3) ? 0 : g.below(1500), g.below(3) ? 0 : g.below(1000),
                    50 + g.below(200), 100000 + g.below(900000));
        }
        if (tower) fprintf(f, "14 %10.6f %11.6f %d Tower Viewpoint\n", a.lat + 0.003, a.lon - 0.002, 50 + g.below(100));
        if (g.below(4) == 0) fprintf(f, "15 %10.6f %11.6f %6.2f Ramp Start\n", a.lat - 0.002, a.lon + 0.001, g.unit() * 360);
    }
    fputs("99\n", f);
    return fclose(f) == 0;
}

bool write_reports(const std::string& path, Lcg& g, const std::vector<Airport>& airports, int reports) {
    FILE* f = fopen(path.c_str(), "w");
    if (!f) return false;
    static const char* const weather[] = {"", " -RA", " BR", " TSRA", " +SHSN", " -DZ", " HZ", ""};
    static const char* const sky[] = {"FEW", "SCT", "BKN", "OVC"};
    for (int n = 0; n < reports; ++n) {
        const Airport& a = airports[(size_t)g.below((int)airports.size())];
        int day = 12, hour = g.below(24), minute = g.below(60);
        fprintf(f, "2004/01/%02d %02d:%02d\n", day, hour, minute);
        char wind[24];
        if (g.below(10) == 0) snprintf(wind, sizeof wind, "VRB%02dKT", g.below(6));
        else if (g.below(5) == 0) snprintf(wind, sizeof wind, "%03d%02dG%02dKT", g.below(36) * 10, 10 + g.below(15), 25 + g.below(15));
        else snprintf(wind, sizeof wind, "%03d%02dKT", g.below(36) * 10, g.below(25));
        char vis[12];
        if (g.below(2)) snprintf(vis, sizeof vis, "%dSM", 1 + g.below(10));
        else snprintf(vis, sizeof vis, "%s", g.below(3) ? "9999" : "1/2SM");
        int temp = g.below(45) - 10, dew = temp - g.below(12);
        char tt[16];
        snprintf(tt, sizeof tt, "%s%02d/%s%02d", temp < 0 ? "M" : "", abs(temp), dew < 0 ? "M" : "", abs(dew));
        char press[8];
        if (g.below(2)) snprintf(press, sizeof press, "A%04d", 2900 + g.below(150));
        else snprintf(press, sizeof press, "Q%04d", 985 + g.below(50));
        fprintf(f, "%s%s %02d%02d%02dZ %s %s%s %s%03d %s%03d %s %s RMK AO2 SLP%03d\n", g.below(4) == 0 ? "METAR " : "",
                a.code, day, hour, minute, wind, vis, weather[g.below(8)], sky[g.below(4)], 5 + g.below(60),
                sky[g.below(4)], 70 + g.below(200), tt, press, g.below(1000));
    }
    return fclose(f) == 0;
}

}  // namespace

bool bench_world_make(const std::string& dir, int airports, int runways, int reports) {
    Lcg g;
    std::vector<Airport> list;
    if (!write_airports(dir + "apt.dat", g, airports, runways, list)) return false;
    return write_reports(dir + "metar.rwx", g, list, reports);
}

// Every temporary folder made here goes, with all it holds, when the benchmark program ends.
static std::vector<std::string>& temp_dirs() {
    static std::vector<std::string> dirs;
    return dirs;
}

static void remove_temp_dirs() {
    for (const std::string& d : temp_dirs()) std::filesystem::remove_all(d);
}

std::string bench_world_temp_dir() {
    const char* base = getenv("TMPDIR");
    std::string tmpl = std::string(base && *base ? base : "/tmp") + "/vocalog-bench-XXXXXX";
    if (!mkdtemp(tmpl.data())) abort();
    if (temp_dirs().empty()) atexit(remove_temp_dirs);
    temp_dirs().push_back(tmpl);
    return tmpl + "/";
}

static std::string full_dir;

const std::string& bench_world_full() {
    if (full_dir.empty()) {
        full_dir = bench_world_temp_dir();
        if (!bench_world_make(full_dir, BENCH_WORLD_AIRPORTS, BENCH_WORLD_RUNWAYS, BENCH_WORLD_REPORTS)) abort();
    }
    return full_dir;
}

bool bench_world_load(const std::string& dir) {
    char path[500];
    snprintf(path, sizeof path, "%sapt.dat", dir.c_str());
    fio_reset();
    if (!fio_open(path, FILE_TYPE_TEXT, 600, 1)) return false;
    apt_reset();
    apt_scan(path);
    fio_close();
    snprintf(wx_file_path, sizeof wx_file_path, "%smetar.rwx", dir.c_str());
    return true;
}
