// Puts the weather of one place into the spoken sentences of a briefing paragraph.
#include "briefing/phrasing.h"

#include <cmath>
#include <cstdio>

#include "briefing/airports.h"
#include "briefing/request.h"
#include "briefing/weather.h"
#include "util/random.h"
#include "util/text.h"
#include "util/units.h"

double round_half_away(double v) { return std::trunc(v >= 0.0 ? v + 0.5 : v - 0.5); }

static void append_int(char* paragraph, int32_t v) {
    char buf[16];
    int_to_str(v, buf, 0);
    str_append(paragraph, buf);
}

// A whole number that may exceed 32 bits (cloud heights are kept up to 9 900 000 000).
static void append_whole(char* paragraph, double v) {
    char buf[32];
    snprintf(buf, sizeof buf, "%.0f", v);
    str_append(paragraph, buf);
}

static void phrase_sky(char* p) {
    const StationWeather& w = station_wx;
    if (w.cloud_kind[0] == 0 && w.cloud_kind[1] == 0) {
        str_append(p, " is reporting clear skies, ");
        return;
    }
    str_append(p, " is reporting skies ");
    for (int k = 0; k < 2; ++k) {
        if (w.cloud_kind[k] == 0) continue;
        double feet = round_half_away(w.cloud_base[k] * unit_m_to_ft / 100.0f) * 100.0;
        if (!(feet >= 0.0)) feet = 0.0;  // also a base that is not a number
        if (feet > 9900000000.0) feet = 9900000000.0;
        append_whole(p, feet);
        switch (w.cloud_kind[k]) {
            case 2: str_append(p, " scattered, "); break;
            case 3: str_append(p, " broken, "); break;
            case 4: str_append(p, " overcast, "); break;
            default: break;  // kind 1: the height stands alone
        }
    }
}

static void phrase_visibility(char* p) {
    const StationWeather& w = station_wx;
    if (!(w.visibility > 0.0f) || std::isinf(w.visibility)) {  // also "////SM", which decodes to no number
        str_append(p, "visibility not reported. ");
        return;
    }
    float v = w.visibility * unit_m_to_nm;
    if (v < 0.3f) {
        str_append(p, "visibility only one-quarter mile");
    } else if (v < 0.6f) {
        str_append(p, "visibility about a half-mile");
    } else if (v < 0.8f) {
        str_append(p, "visibility three-quarters");
    } else if (v < 1.1f) {
        str_append(p, "visibility one mile");
    } else {
        str_append(p, "visibility ");
        append_int(p, cut_to_int(round_half_away(v)));
        str_append(p, " miles");
    }
    if (w.wx_kind == 2) {
        if (w.wx_intensity == 1) str_append(p, " in light ");
        if (w.wx_intensity == 2) str_append(p, " in ");
        if (w.wx_intensity == 3) str_append(p, " in severe ");
        str_append(p, "thunderstorms. ");
    } else if (w.wx_kind == 1) {
        if (w.wx_intensity == 1) str_append(p, " in light ");
        if (w.wx_intensity == 2) str_append(p, " in moderate ");
        if (w.wx_intensity == 3) str_append(p, " in heavy ");
        str_append(p, w.temperature > 0.0f ? " rain. " : " snow. ");
    } else {
        str_append(p, v < 7.0f ? " in haze. " : ". ");
    }
}

static const char* const temp_leads[5] = {"Ah, ", "Let's see, ", "Let's see here, ", "OK... ",
                                          "Lemme see here... "};
static const char* const wind_leads[5] = {"Now for the winds... ", "Let's check the winds... ", "OK, ",
                                          "For the winds... ", "Let's see what the wind is doing... "};

static void phrase_wind(char* p) {
    const StationWeather& w = station_wx;
    if (!(w.wind_dir > -1.0f && w.wind_speed > -1.0f)) return;
    if (w.wind_speed < 2.0f) {
        str_append(p, "Wind calm, ");
    } else if (w.wind_speed < 5.0f) {
        str_append(p, "Wind light and variable, ");
    } else {
        str_append(p, "Wind ");
        append_int(p, cut_to_int(round_half_away(w.wind_dir / 10.0f) * 10.0));
        str_append(p, " at ");
        append_int(p, cut_to_int(w.wind_speed));
        if (w.gust > 0.0f) {
            str_append(p, " gust ");
            append_int(p, cut_to_int(w.gust + w.wind_speed));
        }
        str_append(p, ", ");
    }
}

void wx_phrase_place(float lat, float lon, char* p, int32_t place_kind) {
    StationWeather& w = station_wx;
    int32_t s = wx_lookup(lat, lon, &w.time, w.cloud_kind, w.cloud_base, w.cloud_top, &w.visibility,
                          &w.wx_kind, &w.wx_intensity, &w.temperature, &w.dewpoint, &w.wind_dir,
                          &w.wind_speed, &w.gust, &w.pressure);
    if (s == -1) s = place_kind == PLACE_DEPARTURE ? brief_req.departure : brief_req.destination;

    if (w.time > 0.0f) {
        int32_t h, m;
        secs_to_hm(w.time, &h, &m);
        str_append(p, "at ");
        append_int(p, h * 100 + m);
        str_append(p, " zulu, ");
    }
    if (s >= 0 && s < APT_MAX) str_append(p, apt_table.apt_name[s]);
    phrase_sky(p);
    phrase_visibility(p);

    int32_t r = ((rand_next() * 5) >> 15) + 1;  // one choice serves both lead-ins
    str_append(p, temp_leads[r - 1]);
    str_append(p, "Temperature ");
    append_int(p, cut_to_int(w.temperature));
    str_append(p, " C, dewpoint ");
    append_int(p, cut_to_int(w.dewpoint));
    str_append(p, " C. ");

    str_append(p, wind_leads[r - 1]);
    phrase_wind(p);

    if (w.pressure > 0.0f) {
        str_append(p, "barometric pressure ");
        append_int(p, cut_to_int(round_half_away(w.pressure * 100.0f)));
        str_append(p, ". ");
    } else {
        str_append(p, "barometric pressure not reported.");
    }
}
