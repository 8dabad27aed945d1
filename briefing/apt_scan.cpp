// The token-wise scan of apt.dat into the airport table, and its four line readers.
#include <cstdint>
#include <cstring>

#include "briefing/airport_index.h"
#include "briefing/airports.h"
#include "platform/platform.h"
#include "base/alert.h"
#include "util/file_reader.h"

// An airport list this big fills most of the tables: large pages then save thousands of
// page faults, while a small list keeps to the few small pages it touches.
constexpr int64_t APT_LARGE_FILE = 4 << 20;

// Brought into 0..360 once: below 0 gains 360, above 360 loses 360.
static float heading_in_range(float h) {
    if (h < 0.0f) return h + 360.0f;
    if (h > 360.0f) return h - 360.0f;
    return h;
}

// Each reader reads its fields in order and stores them only when `read` is 1; with 0 the
// line is read and dropped, which keeps the scan in step.
void fio_apt_line(float* elev, int32_t* tower, int32_t* bldg, char* code, char* name, int32_t read) {
    float e = fio_read_flt("scan apt apt_h");
    int32_t t = fio_read_int("scan apt apt_twr");
    int32_t b = fio_read_int("scan apt apt_bld");
    char c[5] = {}, n[40] = {};  // zero past the text, so codes compare cleanly over 4 bytes
    fio_read_word(c, 5);
    fio_read_line(n, 40);
    if (read != 1) return;
    *elev = e;
    *tower = t;
    *bldg = b;
    memcpy(code, c, sizeof c);
    memcpy(name, n, sizeof n);
}

void fio_rwy_line(float* lat, float* lon, char* number, float* heading, float* length, float* overrun1,
                  float* overrun2, float* width, int32_t* code, int32_t read) {
    float la, lo, h, len, o1, o2, w;
    int32_t c;
    char num[4] = {};
    void* const fields[] = {&la, &lo, &num[0], &num[1], &num[2], &h, &len, &o1, &o2, &w, &c};
    if (!fio_read_fields("ffcccfffffi", fields)) {  // the common line at once, else field by field
        la = fio_read_flt("scan rwy rwy_lat");
        lo = fio_read_flt("scan rwy rwy_lon");
        num[0] = fio_read_char();
        num[1] = fio_read_char();
        num[2] = fio_read_char();
        h = fio_read_flt("scan rwy rwy_hdng");
        len = fio_read_flt("scan rwy rwy_len");
        o1 = fio_read_flt("scan rwy rwy_overun");
        o2 = fio_read_flt("scan rwy rwy_overun");
        w = fio_read_flt("scan rwy rwy_width");
        c = fio_read_int("scan rwy rwy_code");
    }
    h = heading_in_range(h);
    if (read != 1) return;
    *lat = la;
    *lon = lo;
    memcpy(number, num, sizeof num);
    *heading = h;
    *length = len;
    *overrun1 = o1;
    *overrun2 = o2;
    *width = w;
    *code = c;
}

void fio_tower_line(float* lat, float* lon, float* height, int32_t read) {
    float la = fio_read_flt("fio_tower_line lat");
    float lo = fio_read_flt("fio_tower_line lon");
    float h = fio_read_flt("fio_tower_line dy ");
    char rest[500];
    fio_read_line(rest, sizeof rest);
    if (read != 1) return;
    *lat = la;
    *lon = lo;
    *height = h;
}

void fio_start_line(float* lat, float* lon, float* heading, int32_t read) {
    float la = fio_read_flt("fio_start_line lat");
    float lo = fio_read_flt("fio_start_line lon");
    float h = heading_in_range(fio_read_flt("fio_start_line hdng"));
    char rest[500];
    fio_read_line(rest, sizeof rest);
    if (read != 1) return;
    *lat = la;
    *lon = lo;
    *heading = h;
}

static void airport_record() {
    AirportTable& t = apt_table;
    int32_t k = t.airport_count++;
    if (k % 400 == 0) MACIBM_progress("Scanning airports.");
    if (t.airport_count >= APT_MAX) MACIBM_fatal("Too many airports in apt.dat file!");
    int32_t i = t.airport_count;
    fio_apt_line(&t.apt_elev[i], &t.apt_tower[i], &t.apt_bldg[i], t.apt_code[i], t.apt_name[i], 1);
    t.apt_first_rwy[i] = t.runway_count + 1;
}

static void runway_record() {
    AirportTable& t = apt_table;
    if (t.airport_count < 0) {  // no airport to hold it yet: read in step, then dropped
        fio_rwy_line(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0);
        return;
    }
    int32_t k = t.runway_count++;
    if (k % 400 == 0) MACIBM_progress("Scanning airports.");
    if (t.runway_count >= RWY_MAX) MACIBM_fatal("Too many runways in apt.dat file!");
    int32_t r = t.runway_count;
    fio_rwy_line(&t.rwy_lat[r], &t.rwy_lon[r], t.rwy_num[r], &t.rwy_hdg[r], &t.rwy_len[r], &t.rwy_ovr1[r],
                 &t.rwy_ovr2[r], &t.rwy_width[r], &t.rwy_code[r], 1);
    t.apt_last_rwy[t.airport_count] = r;
}

void apt_scan(const char* path) {
    AirportTable& t = apt_table;
    if (fio_stream()->size >= APT_LARGE_FILE) plat_large_pages(&t, sizeof t);  // the tables fill up
    apt_note_used();
    t.airport_count = -1;
    t.runway_count = -1;
    for (;;) {
        int32_t code = fio_read_int(path);
        if (code == 99) break;
        // Tower and start lines before the first airport have no entry: read with flag 0.
        int32_t i = t.airport_count < 0 ? 0 : t.airport_count;
        int32_t store = t.airport_count < 0 ? 0 : 1;
        switch (code) {
            case 1: airport_record(); break;
            case 10: runway_record(); break;
            case 14: fio_tower_line(&t.twr_lat[i], &t.twr_lon[i], &t.twr_hgt[i], store); break;
            case 15: fio_start_line(&t.start_lat[i], &t.start_lon[i], &t.start_hdg[i], store); break;
            default: break;  // any other integer: nothing
        }
    }
    apt_build_index();
}
