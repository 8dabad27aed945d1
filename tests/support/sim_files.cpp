// Writers of the simulator's files for tests and the briefing state they feed.
#include "tests/support/sim_files.h"

#include <algorithm>
#include <cstring>

#include "briefing/aircraft.h"
#include "briefing/airports.h"
#include "briefing/request.h"
#include "briefing/weather.h"
#include "util/file_reader.h"
#include "util/random.h"
#include "util/text.h"

static void put4(std::string& s, size_t at, const void* v, bool high_first = false) {
    unsigned char b[4];
    memcpy(b, v, 4);
    for (int i = 0; i < 4; ++i) s[at + i] = (char)(high_first ? b[3 - i] : b[i]);
}

std::string sim_aircraft(const TestAircraft& a) {
    size_t full = a.version == 600 ? 433688 : 454980;
    std::string s(5 + full, '\0');
    s[0] = a.marker;
    put4(s, 1, &a.version, a.marker == 'a');
    memcpy(&s[5], a.intro.data(), std::min<size_t>(a.intro.size(), 36));
    int32_t flag = a.swapped_block ? 1 : 0;
    put4(s, 5 + 1048, &flag, a.swapped_block);
    put4(s, 5 + 1104, &a.ref_speed, a.swapped_block);
    put4(s, 5 + 6172, &a.engine_kind, a.swapped_block);
    return s.substr(0, a.block_bytes < 0 ? s.size() : 5 + (size_t)a.block_bytes);
}

// The simulator's record keeps its numbers as the writing machine holds them.
std::string sim_prefs(const TestSimPrefs& p) {
    std::string s(1150, '\0');
    s[0] = 'i';
    const struct { size_t at; const void* v; size_t n; } fields[] = {
        {1, &p.version, 4},          {5, p.aircraft_name.data(), p.aircraft_name.size()},
        {1022, &p.local_hours, 4},   {505, p.aircraft_path.data(), p.aircraft_path.size()},
        {1038, &p.pressure, 4},      {1005, p.start_code.data(), std::min<size_t>(p.start_code.size(), 4)},
        {1042, &p.temperature, 4},   {1046, &p.precip, 4},   {1062, &p.visibility, 4},
        {1066, p.cloud_kind, 8},     {1074, p.cloud_top, 8}, {1082, p.cloud_base, 8},
        {1102, p.wind_dir, 12},      {1114, p.wind_speed, 12}, {1138, p.gust, 12}};
    for (const auto& f : fields) memcpy(&s[f.at], f.v, f.n);
    return s;
}

void sim_set_airports(const std::vector<TestAirport>& airports) {
    apt_reset();
    AirportTable& t = apt_table;
    for (const TestAirport& a : airports) {
        int32_t i = ++t.airport_count, r = ++t.runway_count;
        strncpy(t.apt_code[i], a.code.c_str(), 4);
        strncpy(t.apt_name[i], a.name.c_str(), 39);
        t.apt_elev[i] = a.elev;
        t.apt_first_rwy[i] = t.apt_last_rwy[i] = r;
        t.rwy_lat[r] = a.lat;
        t.rwy_lon[r] = a.lon;
    }
}

void sim_brief_reset(const std::string& dir) {
    fio_reset();
    acf_reset();
    brief_req_reset();
    memset(&station_wx, 0, sizeof station_wx);
    str_copy((dir + "metar.rwx").c_str(), wx_file_path);
    str_copy("untitled.acf", brief_req.aircraft_name);
    brief_req.altitude = 5000.0f;
}

uint32_t sim_seed_for(const std::vector<std::pair<int, int>>& wanted) {
    for (uint32_t seed = 0;; ++seed) {  // the program's own generator, tried from each state
        rand_set_state(seed);
        size_t k = 0;
        while (k < wanted.size() && ((rand_next() * wanted[k].first) >> 15) + 1 == wanted[k].second) ++k;
        if (k == wanted.size()) return seed;
    }
}
