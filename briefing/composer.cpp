// Composes the four paragraphs of a briefing from the pilot's request.
#include "briefing/composer.h"

#include <cmath>
#include <cstring>
#include <ctime>

#include "briefing/aircraft.h"
#include "briefing/airports.h"
#include "briefing/phrasing.h"
#include "briefing/request.h"
#include "briefing/weather.h"
#include "util/random.h"
#include "util/text.h"

static const char* const openers[3][6] = {
    {"OK then, for your departure, ", "All right, for your departure, ", "OK, for your departure airport, ",
     "Let's see, for your departure area, ", "Stand by, for your departure, ",
     "Well, for your departure region, "},
    {"Enroute, ", "On the way, ", "Enroute lets look look at this one, ", "On the way there we have, ",
     "Enroute let's look at this one... ", "Lemme also give you this one... "},
    {"For your destination, ah, ", "For your destination, hmmm, ",
     "For your destination, let's see what I can find here, ",
     "For your destination, let's see what we've got here, ", "For your destination, hold on, ",
     "For your destination, well, "},
};

static int32_t clock_hhmm = -1;  // the time of day that stands for now; -1: the system clock

void brief_set_clock(int32_t hhmm) { clock_hhmm = hhmm; }

int32_t brief_departure_hhmm(float report_secs) {
    int32_t h, m;
    if (!std::isnan(report_secs)) {
        secs_to_hm(report_secs, &h, &m);
    } else if (clock_hhmm >= 0) {
        h = clock_hhmm / 100;
        m = clock_hhmm % 100;
    } else {
        time_t now = time(nullptr);
        tm utc{};
        gmtime_r(&now, &utc);
        h = utc.tm_hour;
        m = utc.tm_min;
    }
    m += 30;
    h += m / 60;
    m %= 60;
    h %= 24;
    return h * 100 + m;
}

static void append_int(char* paragraph, int32_t v, int32_t digits) {
    char buf[16];
    int_to_str(v, buf, digits);
    str_append(paragraph, buf);
}

static void compose_intro(float report_secs) {
    BriefingRequest& q = brief_req;
    const int32_t dep = q.departure, dest = q.destination;
    str_copy("Hello, this is ", q.intro);
    str_append(q.intro, acf_intro_text());
    str_append(q.intro, ", a ");

    // The aircraft file name without its extension (the last 4 characters).
    Text name;
    str_copy(q.aircraft_name, name);
    size_t n = strlen(name);
    name[n >= 4 ? n - 4 : 0] = 0;
    str_append(q.intro, name);

    str_append(q.intro, ", planning a flight from ");
    str_append(q.intro, apt_table.apt_name[dep]);
    str_append(q.intro, " to ");
    str_append(q.intro, apt_table.apt_name[dest]);
    str_append(q.intro, ". Estimated time of departure will be ");
    append_int(q.intro, brief_departure_hhmm(report_secs), 4);
    str_append(q.intro, " zulu, ");

    if (q.speed > 1.0f) {
        double dlon = (double)apt_lon(dep) - apt_lon(dest);
        double dlat = (double)apt_lat(dep) - apt_lat(dest);
        double d = std::sqrt(dlon * dlon + dlat * dlat);
        double t = d * 60.0 / q.speed + 0.6;
        double hours = std::trunc(t);  // kept as a double: the carry cannot overflow
        int32_t tenths = cut_to_int(round_half_away((t - hours) * 10.0));
        if (tenths == 10) {
            hours += 1.0;
            tenths = 0;
        }
        str_append(q.intro, "estimating ");
        append_int(q.intro, cut_to_int(hours), 0);
        str_append(q.intro, ".");
        append_int(q.intro, tenths, 0);
        str_append(q.intro, " hours enroute at ");
    } else {
        str_append(q.intro, "at ");
    }
    append_int(q.intro, cut_to_int(q.altitude), 0);
    str_append(q.intro, " feet, and requesting a standard.");
}

void brief_compose() {
    BriefingRequest& q = brief_req;
    const int32_t dep = q.departure, dest = q.destination;
    int32_t r[3];
    for (int32_t& ri : r) ri = ((rand_next() * 6) >> 15) + 1;

    const float dep_lat = apt_lat(dep), dep_lon = apt_lon(dep);
    const float dest_lat = apt_lat(dest), dest_lon = apt_lon(dest);

    str_copy(openers[0][r[0] - 1], q.dep_wx);
    wx_phrase_place(dep_lat, dep_lon, q.dep_wx, PLACE_DEPARTURE);
    const float departure_report = wx_report_time;  // this lookup's own, never an older report's

    str_copy(openers[1][r[1] - 1], q.enroute_wx);
    wx_phrase_place((dep_lat + dest_lat) * 0.5f, (dep_lon + dest_lon) * 0.5f, q.enroute_wx, PLACE_MIDPOINT);

    str_copy(openers[2][r[2] - 1], q.dest_wx);
    wx_phrase_place(dest_lat, dest_lon, q.dest_wx, PLACE_DESTINATION);

    compose_intro(departure_report);
}
