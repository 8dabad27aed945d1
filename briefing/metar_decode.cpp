// Splitting a weather report into its groups and decoding the groups into weather fields.
#include "briefing/metar_decode.h"

#include <cstring>

#include "util/random.h"
#include "util/text.h"
#include "util/units.h"

static char groups[WX_GROUPS][WX_GROUP_SIZE];

int32_t wx_split_groups(const char* line, char out[WX_GROUPS][WX_GROUP_SIZE]) {
    int32_t g = 0, len = 0;
    for (const char* p = line; *p; ++p) {
        if (*p == ' ') {
            if (len > 0) {  // the character before this blank was not a blank
                out[g][len] = 0;
                if (++g == WX_GROUPS) return g;
                len = 0;
            }
            continue;
        }
        if (len < WX_GROUP_SIZE - 1) out[g][len++] = *p;
    }
    out[g][len] = 0;
    return g + 1;
}

// One group with bounded access: positions before 0 or past the end read as the end (0).
struct Group {
    const char* s;
    int32_t len;
    char at(int32_t i) const { return i >= 0 && i < len ? s[i] : 0; }
    float digit(int32_t i) const { return (float)digit_value(at(i)); }
    bool is(const char* text) const { return strcmp(s, text) == 0; }
    bool ends_with(const char* two) const { return len >= 2 && s[len - 2] == two[0] && s[len - 1] == two[1]; }
};

// A two-digit extension: value * 10 + digit(i) unless character i is one of `stops` or the end.
static float extend(const Group& g, float value, int32_t i, const char* stops) {
    char c = g.at(i);
    if (c == 0 || strchr(stops, c)) return value;
    return value * 10.0f + g.digit(i);
}

// One to three digits from position i; the second and third each unless one of `stops` or the end.
static float number_at(const Group& g, int32_t i, const char* stops) {
    return extend(g, extend(g, g.digit(i), i + 1, stops), i + 2, stops);
}

// The state of one decoding: the fields to write and what earlier groups left behind.
struct Decoding {
    const WxFields& o;
    int32_t wind_index = -999, vis_index = -999;  // groups of the wind and the visibility; none yet
    int32_t layers = 0;                           // cloud layers found
};

static bool is_d(char c) { return c >= '0' && c <= '9'; }
static void raise_to(int32_t* value, int32_t at_least) {
    if (*value < at_least) *value = at_least;
}

// time := d d h h m m 'Z'            (exactly 7 characters; the day is ignored)
static void scan_time(const Group& g, int32_t, Decoding& d) {
    if (g.len == 7 && g.s[6] == 'Z')
        *d.o.time = g.digit(2) * 36000.0f + g.digit(3) * 3600.0f + g.digit(4) * 600.0f + g.digit(5) * 60.0f;
}

// wind := ( 'VRB' | d d d ) s [s [s]] { ... 'G' g [g [g]] ... } 'KT'
// Any group ending in "KT"; digits are taken by position, so a damaged group still decodes.
// A speed or gust digit stops at "G", "K", "T" or the end; the last "G" gives the gust.
static void scan_wind(const Group& g, int32_t i, Decoding& d) {
    if (!g.ends_with("KT")) return;
    if (strncmp(g.s, "VRB", 3) == 0)
        *d.o.wind_dir = (float)rand_next() * 360.0f / (float)RAND_TOP;
    else
        *d.o.wind_dir = g.digit(0) * 100.0f + g.digit(1) * 10.0f + g.digit(2);
    const float speed = number_at(g, 3, "GKT");
    *d.o.wind_speed = speed;
    *d.o.gust = 0.0f;
    for (int32_t j = 0; j < g.len; ++j)
        if (g.s[j] == 'G') *d.o.gust = number_at(g, j + 1, "KT") - speed;
    d.wind_index = i;
}

// shear := 'WS' x x x '/' x x x g [g [g]] ...     (the gust against the current wind speed)
static void scan_wind_shear(const Group& g, int32_t i, Decoding& d) {
    if (g.at(0) != 'W' || g.at(1) != 'S' || g.at(5) != '/') return;
    *d.o.gust = number_at(g, 9, "KT") - *d.o.wind_speed;
    d.wind_index = i;
}

// miles := ... [t] u 'SM' | n '/' m ... 'SM'       (tens and units before "SM", or a fraction)
static void scan_vis_miles(const Group& g, int32_t i, Decoding& d) {
    if (!g.ends_with("SM")) return;
    float v = g.digit(g.len - 3);
    if (g.len > 3) v = v + g.digit(g.len - 4) * 10.0f;
    if (g.at(1) == '/') v = g.digit(0) / g.digit(2);
    *d.o.visibility = v * unit_nm_per_sm * unit_nm_to_m;
    d.vis_index = i;
}

// ten_km := '9999'                    (10 nautical miles)
static void scan_vis_9999(const Group& g, int32_t i, Decoding& d) {
    if (!g.is("9999")) return;
    *d.o.visibility = 10.0f * unit_nm_to_m;
    d.vis_index = i;
}

// metres := integer of up to 4 characters, right after the wind group
static void scan_vis_metres(const Group& g, int32_t i, Decoding& d) {
    if (i != d.wind_index + 1 || g.len > 4 || !str_is_int(g.s)) return;
    *d.o.visibility = (float)str_to_int(g.s);
    d.vis_index = i;
}

// weather := any group right after the visibility group; each code it contains raises the
// kind and intensity to at least its own (signs and obscurations count for nothing)
static void scan_weather(const Group& g, int32_t i, Decoding& d) {
    static const struct {
        const char* code;
        int32_t kind, intensity;
    } codes[] = {{"DZ", 1, 1}, {"RA", 1, 3}, {"SG", 1, 2}, {"SN", 1, 3},
                 {"GS", 2, 2}, {"GR", 2, 3}, {"SQ", 2, 3}, {"TS", 2, 3}};
    if (i != d.vis_index + 1) return;
    for (const auto& c : codes) {
        if (!str_contains(c.code, g.s)) continue;
        raise_to(d.o.wx_kind, c.kind);
        raise_to(d.o.wx_intensity, c.intensity);
    }
}

// cloud := ( 'FEW' | 'SCT' | 'BKN' | 'OVC' ) h h h      (exactly 6 characters; hundreds of
// feet; the first two layers only; a few or scattered layer above 3000 m is kind 1)
static void scan_clouds(const Group& g, int32_t, Decoding& d) {
    if (d.layers >= 2 || g.len != 6) return;
    int32_t kind = 0;
    if (strncmp(g.s, "FEW", 3) == 0 || strncmp(g.s, "SCT", 3) == 0) kind = 2;
    else if (strncmp(g.s, "BKN", 3) == 0) kind = 3;
    else if (strncmp(g.s, "OVC", 3) == 0) kind = 4;
    if (!kind) return;
    const WxFields& o = d.o;
    const int32_t k = d.layers++;
    o.cloud_kind[k] = kind;
    float height = (g.digit(3) * 10000.0f + g.digit(4) * 1000.0f + g.digit(5) * 100.0f) * unit_ft_to_m;
    if (height < o.cloud_base[k]) o.cloud_base[k] = height;
    float top = o.cloud_base[k] + 304.8f * unit_m_to_ft;
    if (top > o.cloud_top[k]) o.cloud_top[k] = top;
    if (o.cloud_base[k] > 3000.0f && o.cloud_kind[k] == 2) o.cloud_kind[k] = 1;
}

// inches := 'A' d d d d               (hundredths of an inch of mercury)
static void scan_altimeter_inches(const Group& g, int32_t, Decoding& d) {
    if (g.len == 5 && g.s[0] == 'A' && str_is_int(g.s + 1))
        *d.o.pressure = g.digit(1) * 10.0f + g.digit(2) + g.digit(3) * 0.1f + g.digit(4) * 0.01f;
}

// hectopascals := 'Q' d d d d
static void scan_altimeter_hpa(const Group& g, int32_t, Decoding& d) {
    if (g.len == 5 && g.s[0] == 'Q' && str_is_int(g.s + 1))
        *d.o.pressure = (g.digit(1) * 1000.0f + g.digit(2) * 100.0f + g.digit(3) * 10.0f + g.digit(4)) *
                        29.92f / 1013.25f;
}

// temperatures := ['M'] d d '/' ['M'] d d       (nothing before or after; M is minus)
static void scan_temperatures(const Group& g, int32_t, Decoding& d) {
    int32_t t = g.at(0) == 'M' ? 1 : 0;  // where the temperature digits start
    if (!is_d(g.at(t)) || !is_d(g.at(t + 1)) || g.at(t + 2) != '/') return;
    int32_t w = t + 3 + (g.at(t + 3) == 'M' ? 1 : 0);  // where the dewpoint digits start
    if (!is_d(g.at(w)) || !is_d(g.at(w + 1)) || g.len != w + 2) return;
    float temp = g.digit(t) * 10.0f + g.digit(t + 1);
    float dew = g.digit(w) * 10.0f + g.digit(w + 1);
    *d.o.temperature = t ? -temp : temp;
    *d.o.dewpoint = w == t + 4 ? -dew : dew;
}

// Every group goes through every scanner, in this order.
using Scanner = void (*)(const Group&, int32_t, Decoding&);
static const Scanner scanners[] = {
    scan_time,   scan_wind,   scan_wind_shear,       scan_vis_miles,     scan_vis_9999,    scan_vis_metres,
    scan_weather, scan_clouds, scan_altimeter_inches, scan_altimeter_hpa, scan_temperatures};

void wx_decode(const char* line, const WxFields& o) {
    for (int k = 0; k < 2; ++k) {
        o.cloud_kind[k] = 0;
        o.cloud_base[k] = 99999.0f * unit_ft_to_m;
        o.cloud_top[k] = 0.0f;
    }
    *o.wx_kind = 0;
    *o.wx_intensity = 0;

    Decoding d{o};
    const int32_t count = wx_split_groups(line, groups);
    for (int32_t i = 0; i < count; ++i) {
        const Group g{groups[i], (int32_t)strlen(groups[i])};
        for (Scanner scan : scanners) scan(g, i, d);
        if (g.is("RMK")) break;  // the remarks group ends the report
    }
}
