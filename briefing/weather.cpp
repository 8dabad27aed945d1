// The weather lookup: the report of the airport-coded station nearest to a place.
#include "briefing/weather.h"

#include <cmath>
#include <cstring>

#include "briefing/airport_index.h"
#include "briefing/metar_decode.h"
#include "util/file_stream.h"
#include "util/paths.h"
#include "util/text.h"

StationWeather station_wx;
char wx_file_path[500];
float wx_report_time = NAN;
int32_t wx_last_station = -1;

constexpr size_t WX_LINE_KEEP = 499;  // characters kept of a line
constexpr size_t WX_LINE_MIN = 11;    // shorter lines (dates, blank lines) are skipped
constexpr size_t WX_CHUNK = 64 * 1024;

static FileStream wx_stream;  // the weather file's own stream, apart from the data-file slots
static unsigned char chunk[WX_CHUNK];

struct Search {
    float lat, lon;
    float best_distance;
    int32_t best_station;
    char best_line[WX_LINE_KEEP + 1];
};

// One line of the file (without its line end). The line is taken as text: it ends at its
// 499th character or at a zero byte, whichever comes first. Only airports whose code equals
// the station code are visited, in table order, so the outcome is that of comparing the
// line with every airport: a strictly nearer airport replaces the best one.
static void consider_line(Search& s, const unsigned char* p, size_t n) {
    size_t keep = n < WX_LINE_KEEP ? n : WX_LINE_KEEP;
    if (keep < WX_LINE_MIN || memchr(p, 0, WX_LINE_MIN)) return;
    const char* line = (const char*)p;
    const char* station = strncmp(line, "METAR", 5) == 0 || strncmp(line, "SPECI", 5) == 0 ? line + 6 : line;
    for (AptMatch m = apt_index_find(apt_code_key(station)); m.airport >= 0; m = apt_index_next(m.airport)) {
        float d = apt_distance_between(m.lat, m.lon, s.lat, s.lon);
        if (!(d < s.best_distance)) continue;
        s.best_distance = d;
        s.best_station = m.airport;
        size_t len = strnlen(line, keep);
        memcpy(s.best_line, line, len);
        s.best_line[len] = 0;
    }
}

// Position of the first `c` in chunk[from, to), or `to`.
static size_t find_byte(size_t from, size_t to, unsigned char c) {
    const void* p = memchr(chunk + from, c, to - from);
    return p ? (size_t)((const unsigned char*)p - chunk) : to;
}

// Reads the file in chunks and hands every line to consider_line. Lines end at a carriage
// return or a line feed; the rest of a line longer than a chunk is read and dropped.
static void scan_file(FileStream* fs, Search& s) {
    size_t have = 0;
    bool dropping = false;  // inside the unread tail of an over-long line
    for (;;) {
        size_t want = WX_CHUNK - have;
        size_t got = fs_read(fs, chunk + have, want);
        have += got;
        bool last = got < want;
        size_t start = 0;
        // The next line feed and carriage return at or after `start` (have: none left).
        size_t next_lf = find_byte(0, have, '\n'), next_cr = find_byte(0, have, '\r');
        for (;;) {
            size_t e = next_lf < next_cr ? next_lf : next_cr;
            if (e == have) break;
            if (!dropping) consider_line(s, chunk + start, e - start);
            dropping = false;
            start = e + 1;
            if (next_lf < start) next_lf = find_byte(start, have, '\n');
            if (next_cr < start) next_cr = find_byte(start, have, '\r');
        }
        if (last) {
            if (!dropping && have > start) consider_line(s, chunk + start, have - start);
            return;
        }
        if (start == 0) {  // a whole chunk without a line end: keep its head, drop the rest
            if (!dropping) consider_line(s, chunk, have);
            dropping = true;
            have = 0;
        } else {  // the unfinished last line moves to the front, to be completed
            memmove(chunk, chunk + start, have - start);
            have -= start;
        }
    }
}

bool wx_file_open(FileStream* fs) {
    char path[500];
    str_copy(wx_file_path, path);
    path_to_platform(path);
    fs_open(fs, path, false);  // bytes as they are: both line-end characters are handled here
    if (fs_good(fs)) return true;
    if (fs->file) fs_close(fs);
    fs->state = 0;
    return false;
}

int32_t wx_lookup(float lat, float lon, float* time, int32_t* cloud_kind, float* cloud_base, float* cloud_top,
                  float* visibility, int32_t* wx_kind, int32_t* wx_intensity, float* temperature,
                  float* dewpoint, float* wind_dir, float* wind_speed, float* gust, float* pressure) {
    wx_report_time = NAN;
    wx_last_station = -1;
    FileStream* fs = &wx_stream;
    if (!wx_file_open(fs)) return -1;

    apt_index_ensure();
    static Search s;
    s.lat = lat;
    s.lon = lon;
    s.best_distance = 99999.0f;
    s.best_station = -1;
    s.best_line[0] = 0;
    scan_file(fs, s);
    fs_close(fs);
    fs->state = 0;
    if (s.best_station < 0) return -1;

    float decoded = NAN;  // stays NaN when the report has no time group
    WxFields out{&decoded,    cloud_kind, cloud_base, cloud_top,  visibility, wx_kind, wx_intensity,
                 temperature, dewpoint,   wind_dir,   wind_speed, gust,       pressure};
    wx_decode(s.best_line, out);
    if (!std::isnan(decoded)) *time = decoded;
    wx_report_time = decoded;
    wx_last_station = s.best_station;
    return s.best_station;
}
