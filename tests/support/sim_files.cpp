// Writers of the simulator's files for tests.
#include "tests/support/sim_files.h"

#include <cstdio>
#include <cstring>
#include <sys/stat.h>

#include "briefing/airports.h"
#include "tests/support/test_files.h"

std::string sim_apt_dat(const std::vector<TestAirport>& airports) {
    std::string s = "I\n600 version\n";
    char line[256];
    for (const TestAirport& a : airports) {
        snprintf(line, sizeof line, "1 %.0f 1 0 %s %s\n", (double)a.elev, a.code.c_str(), a.name.c_str());
        s += line;
        snprintf(line, sizeof line, "10 %.6f %.6f 08x 80.00 5000 0 0 150 1\n", (double)a.lat, (double)a.lon);
        s += line;
    }
    return s + "99\n";
}

std::string sim_metar(const std::vector<std::string>& lines) {
    std::string s;
    for (const std::string& l : lines) s += l + "\n";
    return s;
}

static void put4(std::string& s, size_t at, const void* v, bool high_first) {
    unsigned char b[4];
    memcpy(b, v, 4);
    for (int i = 0; i < 4; ++i) s[at + i] = (char)(high_first ? b[3 - i] : b[i]);
}

std::string sim_aircraft(const TestAircraft& a) {
    size_t full = a.version == 600 ? 433688 : 454980;
    if (a.version != 600 && a.version != 626) full = 454980;
    size_t bytes = a.block_bytes < 0 ? full : (size_t)a.block_bytes;
    std::string block(full, '\0');
    memcpy(&block[0], a.intro.data(), a.intro.size() < 36 ? a.intro.size() : 36);
    int32_t flag = a.swapped_block ? 1 : 0;
    put4(block, 1048, &flag, a.swapped_block);
    put4(block, 1104, &a.ref_speed, a.swapped_block);
    put4(block, 6172, &a.engine_kind, a.swapped_block);
    std::string head(5, '\0');
    head[0] = a.marker;
    put4(head, 1, &a.version, a.marker == 'a');
    return head + block.substr(0, bytes);
}

std::string sim_lang_res(float width, float height, float bits, int32_t full, int32_t lang, int32_t version) {
    std::string s(25, '\0');
    s[0] = 'i';
    put4(s, 1, &version, false);
    put4(s, 5, &width, false);
    put4(s, 9, &height, false);
    put4(s, 13, &bits, false);
    put4(s, 17, &full, false);
    put4(s, 21, &lang, false);
    return s;
}

std::string sim_prefs(const TestSimPrefs& p) {
    std::string s(1150, '\0');
    s[0] = p.marker;
    put4(s, 1, &p.version, p.marker == 'a');
    memcpy(&s[5], p.aircraft_name.data(), p.aircraft_name.size());
    memcpy(&s[505], p.aircraft_path.data(), p.aircraft_path.size());
    memcpy(&s[1005], p.start_code.data(), p.start_code.size() < 4 ? p.start_code.size() : 4);
    put4(s, 1022, &p.local_hours, false);
    put4(s, 1038, &p.pressure, false);
    put4(s, 1042, &p.temperature, false);
    put4(s, 1046, &p.precip, false);
    put4(s, 1062, &p.visibility, false);
    for (int k = 0; k < 2; ++k) {
        put4(s, 1066 + 4 * k, &p.cloud_kind[k], false);
        put4(s, 1074 + 4 * k, &p.cloud_top[k], false);
        put4(s, 1082 + 4 * k, &p.cloud_base[k], false);
    }
    for (int k = 0; k < 3; ++k) {
        put4(s, 1102 + 4 * k, &p.wind_dir[k], false);
        put4(s, 1114 + 4 * k, &p.wind_speed[k], false);
        put4(s, 1138 + 4 * k, &p.gust[k], false);
    }
    return s;
}

std::string sim_folder(const std::string& dir, const std::vector<TestAirport>& airports,
                       const std::vector<std::string>& metar) {
    mkdir((dir + "Resources").c_str(), 0755);
    mkdir((dir + "Resources/Earth nav data").c_str(), 0755);
    mkdir((dir + "Aircraft").c_str(), 0755);
    test_write_file(dir + "Resources/Earth nav data/", "apt.dat", sim_apt_dat(airports));
    if (!metar.empty()) test_write_file(dir, "metar.rwx", sim_metar(metar));
    return dir;
}

void sim_set_airports(const std::vector<TestAirport>& airports) {
    apt_reset();
    for (const TestAirport& a : airports) {
        int32_t i = ++apt_table.airport_count;
        int32_t r = ++apt_table.runway_count;
        strncpy(apt_table.apt_code[i], a.code.c_str(), 4);
        strncpy(apt_table.apt_name[i], a.name.c_str(), 39);
        apt_table.apt_elev[i] = a.elev;
        apt_table.apt_first_rwy[i] = apt_table.apt_last_rwy[i] = r;
        apt_table.rwy_lat[r] = a.lat;
        apt_table.rwy_lon[r] = a.lon;
    }
}

uint32_t sim_seed_for(const std::vector<std::pair<int, int>>& wanted) {
    for (uint32_t seed = 0;; ++seed) {
        uint32_t s = seed;
        bool ok = true;
        for (const auto& [n, r] : wanted) {
            s = s * 1103515245u + 12345u;
            int32_t v = (int32_t)((s / 65536u) % 32768u);
            if (((v * n) >> 15) + 1 != r) {
                ok = false;
                break;
            }
        }
        if (ok) return seed;
    }
}
