// The simulator's preference record: the aircraft, the start airport and the weather.
#include "briefing/sim_prefs.h"

#include <cstring>

#include "briefing/airports.h"
#include "briefing/phrasing.h"
#include "briefing/request.h"
#include "briefing/weather.h"
#include "util/file_reader.h"
#include "util/prefs.h"
#include "util/text.h"
#include "util/units.h"

// The simulator's record after its header: fields at file offsets 5 to 1149.
static void sim_read() {
    constexpr int32_t BASE = 5;
    static unsigned char rec[1150 - BASE];
    memset(rec, 0, sizeof rec);
    fio_read_bytes(rec, sizeof rec);
    auto at = [](int32_t file_offset) { return rec + (file_offset - BASE); };
    BriefingRequest& q = brief_req;
    StationWeather& w = station_wx;

    q.departure = 0;
    q.destination = 0;
    Text block;
    memcpy(block, at(5), 500);
    str_copy(block, q.aircraft_name);
    memcpy(block, at(505), 500);
    str_copy(block, q.aircraft_path);
    memcpy(q.start_code, at(1005), 5);
    float local_hours = prefs_take4<float>(at(1022));
    w.pressure = prefs_take4<float>(at(1038));
    w.temperature = prefs_take4<float>(at(1042));
    float precip = prefs_take4<float>(at(1046));
    w.visibility = prefs_take4<float>(at(1062));
    for (int k = 0; k < 2; ++k) {
        w.cloud_kind[k] = prefs_take4<int32_t>(at(1066 + 4 * k));
        w.cloud_top[k] = prefs_take4<float>(at(1074 + 4 * k));
        w.cloud_base[k] = prefs_take4<float>(at(1082 + 4 * k));
    }
    w.wind_dir = prefs_take4<float>(at(1102 + 8));
    w.wind_speed = prefs_take4<float>(at(1114 + 8));
    w.gust = prefs_take4<float>(at(1138 + 8));

    w.wx_intensity = cut_to_int(((double)precip - 0.1) * 2.2222223 + 1.0);
    w.wx_kind = w.wx_intensity > 1 ? 1 : -99;

    for (int32_t i = 0; i <= apt_table.airport_count && i < APT_MAX; ++i) {
        if (memcmp(apt_table.apt_code[i], q.start_code, 4) == 0) {
            q.departure = i;
            q.destination = i;
        }
    }

    w.dewpoint = (float)((double)w.temperature - (double)w.visibility / (0.3048 * 6076.1155) * 2.0);

    double t = (double)local_hours - ((double)apt_lon(q.departure) / 15.0 + 1.0);
    int32_t n = cut_to_int(round_half_away(t));
    if (n < 0)
        n += 24;
    else if (n > 24)
        n -= 24;
    w.time = (float)((double)n * 3600.0);  // a damaged file's hour can be far out of range

    float lower = apt_table.apt_elev[q.departure] * unit_ft_to_m;
    w.cloud_base[0] -= lower;
    w.cloud_base[1] -= lower;
}

int32_t brief_read_sim_prefs(char* path) {
    prefs_set_sim_reader(sim_read);
    return fio_prefs(PREF_SIM, PREF_READ, path);
}
