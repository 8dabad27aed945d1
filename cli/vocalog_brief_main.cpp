// vocalog-brief: composes one briefing from the command line and prints what
// "Vocalog.txt" would hold.
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "briefing/aircraft.h"
#include "briefing/airports.h"
#include "briefing/briefing_file.h"
#include "briefing/composer.h"
#include "briefing/request.h"
#include "briefing/weather.h"
#include "briefing/world.h"
#include "cli/brief_sound.h"
#include "platform/platform.h"
#include "base/alert.h"
#include "util/folders.h"
#include "util/out_file.h"
#include "util/paths.h"
#include "util/prefs.h"
#include "util/random.h"
#include "util/text.h"

static const char* const usage_text =
    "usage: vocalog-brief --sim DIR --from CODE --to CODE [--aircraft PATH] [--altitude FEET]\n"
    "                     [--seed N] [--now HHMM] [--out FILE] [--say-text] [--wav FILE] [--speak]\n"
    "\n"
    "Composes a pre-flight weather briefing and prints it (or writes it to FILE).\n"
    "  --sim DIR         simulator folder with Resources/Earth nav data/apt.dat, metar.rwx and\n"
    "                    Aircraft/ (default: the folder of this program)\n"
    "  --from CODE       departure airport code\n"
    "  --to CODE         destination airport code\n"
    "  --aircraft PATH   aircraft file (.acf); without it the aircraft is untitled.acf\n"
    "  --altitude FEET   cruise altitude, 0 to 99999 (default 5000)\n"
    "  --seed N          random state, 0 to 4294967295, for a repeatable briefing\n"
    "  --now HHMM        the current UTC time of day, for a departure report without a time\n"
    "  --out FILE        write the briefing to FILE instead of standard output (- is standard output)\n"
    "  --say-text        then print the text the briefing is spoken from\n"
    "  --wav FILE        then write the spoken briefing to FILE (WAV, 16-bit mono)\n"
    "  --speak           then play the spoken briefing\n"
    "  --help            show this text\n"
    "Exit codes: 0 briefed, 1 a damaged data file, 2 a usage error, 3 no sound could be made,\n"
    "written or played (the written briefing is complete).\n";

[[noreturn]] static void usage_error(const std::string& message) {
    fprintf(stderr, "vocalog-brief: %s (see --help)\n", message.c_str());
    exit(2);
}

// Alerts of the core go to standard error; a fatal one ends the run with exit code 1.
static void alert_to_stderr(const char* const lines[4], int32_t kind) {
    (void)kind;
    for (int i = 0; i < 4; ++i)
        if (lines[i][0]) fprintf(stderr, "%s\n", lines[i]);
    fflush(stderr);
}
static void fatal_exit() {
    fflush(stdout);
    exit(1);
}

struct Options {
    std::string sim, from, to, aircraft, out, wav;
    bool has_aircraft = false, has_seed = false, has_out = false, has_wav = false, speak = false, say_text = false;
    int32_t now = -1;  // HHMM, -1: the system clock
    double altitude = 5000.0;
    uint32_t seed = 0;
};

static bool is_folder(const std::string& path) {
    struct stat st{};
    return stat(path.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

static Options parse(int argc, char** argv) {
    Options o;
    bool has_from = false, has_to = false;
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        if (arg == "--help" || arg == "-h") {
            fputs(usage_text, stdout);
            exit(0);
        }
        if (arg == "--speak" || arg == "--say-text") {
            (arg == "--speak" ? o.speak : o.say_text) = true;
            continue;
        }
        std::string value;
        size_t eq = arg.find('=');
        std::string name = arg.substr(0, eq);
        if (name != "--sim" && name != "--from" && name != "--to" && name != "--aircraft" &&
            name != "--altitude" && name != "--seed" && name != "--now" && name != "--out" && name != "--wav")
            usage_error("unknown option '" + arg + "'");
        if (eq != std::string::npos) {
            value = arg.substr(eq + 1);
        } else {
            if (i + 1 >= argc) usage_error("option " + name + " needs a value");
            value = argv[++i];
        }
        if (value.empty()) usage_error("option " + name + " needs a value");
        if (name == "--sim") {
            o.sim = value;
        } else if (name == "--from") {
            o.from = value;
            has_from = true;
        } else if (name == "--to") {
            o.to = value;
            has_to = true;
        } else if (name == "--aircraft") {
            o.aircraft = value;
            o.has_aircraft = true;
        } else if (name == "--out") {
            o.out = value;
            o.has_out = true;
        } else if (name == "--wav") {
            o.wav = value;
            o.has_wav = true;
        } else if (name == "--altitude") {
            // Digits with at most one decimal point: no sign, exponent, hexadecimal or "inf".
            size_t point = value.find('.');
            bool decimal = value.find_first_not_of("0123456789.") == std::string::npos && value != "." &&
                           (point == std::string::npos || value.find('.', point + 1) == std::string::npos);
            double v = decimal ? strtod(value.c_str(), nullptr) : -1.0;
            if (!decimal || v > 99999.0)
                usage_error("altitude '" + value + "' is not a number of feet from 0 to 99999");
            o.altitude = v;
        } else if (name == "--now") {
            bool digits = value.size() == 4 && value.find_first_not_of("0123456789") == std::string::npos;
            int32_t hhmm = digits ? std::stoi(value) : -1;
            if (!digits || hhmm / 100 > 23 || hhmm % 100 > 59)
                usage_error("time '" + value + "' is not a UTC time of day HHMM from 0000 to 2359");
            o.now = hhmm;
        } else {
            char* end = nullptr;
            errno = 0;
            unsigned long long v = strtoull(value.c_str(), &end, 10);
            if (errno || *end || value[0] == '-' || value[0] == '+' || v > 4294967295ull)
                usage_error("seed '" + value + "' is not a number from 0 to 4294967295");
            o.seed = (uint32_t)v;
            o.has_seed = true;
        }
    }
    if (!has_from) usage_error("missing --from CODE");
    if (!has_to) usage_error("missing --to CODE");
    if (o.sim.empty()) {
        char program[STR_SIZE];
        if (!plat_program_folder(program, sizeof program)) usage_error("cannot find the program's folder; give --sim");
        o.sim = program;
    }
    if (!is_folder(o.sim)) usage_error("simulator folder '" + o.sim + "' does not exist");
    if (o.sim.back() != '/') o.sim += '/';
    if (o.sim.size() > 400) usage_error("simulator folder path is too long");
    if (o.has_aircraft) {
        struct stat st{};
        if (stat(o.aircraft.c_str(), &st) != 0) usage_error("aircraft file '" + o.aircraft + "' does not exist");
        if (S_ISDIR(st.st_mode)) usage_error("aircraft '" + o.aircraft + "' is a folder, not an aircraft file");
        if (o.aircraft.size() >= (size_t)STR_SIZE) usage_error("aircraft path is too long");
    }
    return o;
}

// An airport by its code; like the airport search, only the first 4 characters count.
static int32_t find_airport(const std::string& code) {
    char buf[5] = {};
    memcpy(buf, code.data(), code.size() < 4 ? code.size() : 4);
    int32_t index = -1;
    if (apt_find_code(buf, 1, &index)) return index;
    std::string message = "no airport has the code '" + code + "'";
    char upper[5];
    memcpy(upper, buf, sizeof upper);
    for (char& c : upper) char_upper(&c);
    if (strcmp(upper, buf) != 0) {
        message += "; codes are case-sensitive";
        if (apt_find_code(upper, 1, &index)) message += std::string(": did you mean '") + upper + "'?";
    }
    usage_error(message);
}

// The start-up's clock-dependent skip of random numbers, so runs without --seed differ.
static void skip_random_by_clock() {
    float t = clock_secs();
    while (t > 32000.0f) {
        t *= 0.5f;
        rand_next();
    }
    for (int32_t n = (int32_t)t % 100; n > 0; --n) rand_next();
}

// A folder and a file name joined, in the platform's form.
static std::string platform_path(const char* folder, const char* name) {
    Text path;
    str_join(folder, name, path);
    path_to_platform(path);
    return path;
}

// Writes the briefing to `out` (standard output when "-"); 0 when written, else 1 after the
// reason (nothing for a closed pipe: the reader has gone).
static int write_briefing(const Options& o) {
    if (o.has_out && o.out != "-") {
        if (brief_save(o.out.c_str())) return 0;
        fprintf(stderr, "vocalog-brief: cannot write '%s': %s\n", o.out.c_str(), out_reason(&fio_out));
        return 1;
    }
    static OutFile out;
    out_attach(&out, stdout);
    out.visible = isatty(STDOUT_FILENO);  // names and texts of data files never drive the terminal
    brief_put_paragraphs(&out);
    out_close(&out);
    if (out_good(&out)) return 0;
    if (out.error != EPIPE) fprintf(stderr, "vocalog-brief: cannot write standard output: %s\n", out_reason(&out));
    return 1;
}

int main(int argc, char** argv) {
    if (argc < 2) {
        fputs(usage_text, stderr);
        return 2;
    }
    signal(SIGPIPE, SIG_IGN);  // a closed pipe is a write error like any other
    Options o = parse(argc, argv);
    alert_set_box(alert_to_stderr);
    alert_set_fatal_end(fatal_exit);
    if (!o.has_seed) skip_random_by_clock();

    char user[STR_SIZE] = "";
    if (!plat_user_folder(user, sizeof user)) user[0] = 0;
    folders_fill(o.sim.c_str(), user);
    const bool weather_file = brief_load_world() == 1;
    if (apt_table.airport_count < 0) {
        fprintf(stderr, "vocalog-brief: '%s' holds no airports\n",
                platform_path(folders.path[FOLDER_EARTH_NAV], "apt.dat").c_str());
        return 1;
    }

    brief_req.departure = find_airport(o.from);
    brief_req.destination = find_airport(o.to);
    brief_req.altitude = (float)o.altitude;
    if (o.has_aircraft) {
        size_t slash = o.aircraft.find_last_of('/');
        std::string name = slash == std::string::npos ? o.aircraft : o.aircraft.substr(slash + 1);
        str_copy(name.c_str(), brief_req.aircraft_name);
        str_copy(o.aircraft.c_str(), brief_req.aircraft_path);
        if (!acf_read(0, brief_req.aircraft_path))
            fprintf(stderr, "vocalog-brief: warning: '%s' is not a readable aircraft file; briefing without aircraft data\n",
                    o.aircraft.c_str());
        brief_req.speed = speed_from_aircraft();
    }

    if (o.has_seed) rand_set_state(o.seed);
    brief_set_clock(o.now);
    brief_compose();
    if (weather_file && wx_last_station < 0)
        fprintf(stderr, "vocalog-brief: warning: no report in '%s' is from an airport of apt.dat; the briefing's "
                        "weather is not real\n", platform_path("", wx_file_path).c_str());
    if (int32_t written = write_briefing(o); written != 0) return written;
    if (!o.say_text && !o.has_wav && !o.speak) return 0;
    return brief_sound(o.say_text, o.has_wav ? o.wav.c_str() : nullptr, o.speak);
}
