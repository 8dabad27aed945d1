// libFuzzer entry: the readers of the suite's files on arbitrary bytes. The first byte picks
// the reader (airport file, weather file with a briefing, aircraft file, preference files);
// a fatal alert jumps back here, so only a sanitizer report or a crash is a finding.
#include <csetjmp>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

#include "briefing/sim_prefs.h"
#include "briefing/aircraft.h"
#include "briefing/airports.h"
#include "briefing/composer.h"
#include "briefing/request.h"
#include "briefing/weather.h"
#include "base/alert.h"
#include "util/file_reader.h"
#include "util/prefs.h"
#include "util/text.h"

static jmp_buf back;
static char path[500];

static void add_airport(const char* code, float lat, float lon) {
    int32_t a = ++apt_table.airport_count, r = ++apt_table.runway_count;
    strcpy(apt_table.apt_code[a], code);
    apt_table.apt_first_rwy[a] = apt_table.apt_last_rwy[a] = r;
    apt_table.rwy_lat[r] = lat;
    apt_table.rwy_lon[r] = lon;
}

static void read_file(int which) {
    apt_reset();
    switch (which) {
    case 0:
        if (fio_open(path, FILE_TYPE_TEXT, 600, 1)) apt_scan(path);
        break;
    case 1:
        add_airport("KSFO", 37.6f, -122.4f), add_airport("EGLL", 51.5f, -0.5f), add_airport("KSF", 0, 0);
        str_copy(path, wx_file_path);
        brief_req_reset();
        str_copy("C172.acf", brief_req.aircraft_name);
        brief_req.destination = 1, brief_req.speed = 100;
        brief_compose();
        break;
    case 2:
        acf_read(0, path);
        speed_from_aircraft();
        break;
    default:
        brief_read_sim_prefs(path);
        fio_prefs(PREF_LANG_RES, PREF_READ, path);
        break;
    }
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static char file[64];
    if (!file[0]) {
        snprintf(file, sizeof file, "/tmp/vocalog-fuzz-%d", (int)getpid());
        alert_set_box([](const char* const[4], int32_t) {});
        alert_set_fatal_end([] { longjmp(back, 1); });
    }
    if (size < 1) return 0;
    FILE* f = fopen(file, "wb");
    if (!f) return 0;
    fwrite(data + 1, 1, size - 1, f);
    fclose(f);
    strcpy(path, file);
    fio_reset();
    if (setjmp(back) == 0) read_file(data[0] % 4);
    fio_reset();
    return 0;
}
