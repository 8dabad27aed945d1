// Real-world data for the tools tests: reading the shared CSV files and writing simulator files.
#include "tests/tools/real_data.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <set>
#include <sys/stat.h>

#include "briefing/airports.h"
#include "tests/support/test_files.h"
#include "util/file_reader.h"
#include "util/text.h"

#ifndef VOCALOG_TOOLS_SOURCE_DIR
#define VOCALOG_TOOLS_SOURCE_DIR ".."
#endif
#ifndef VOCALOG_TOOLS_BINARY_DIR
#define VOCALOG_TOOLS_BINARY_DIR "."
#endif

static std::string env_or(const char* name, const std::string& fallback) {
    const char* v = std::getenv(name);
    return std::string(v && *v ? v : fallback.c_str()) + "/";
}

std::string tools_source_dir() { return env_or("VOCALOG_SOURCE_DIR", VOCALOG_TOOLS_SOURCE_DIR); }
std::string tools_binary_dir() { return env_or("VOCALOG_BINARY_DIR", VOCALOG_TOOLS_BINARY_DIR); }

std::string tools_shared_data() {
    std::string d = test_shared_data();
    if (!d.empty()) return d;
    d = std::string(VOCALOG_TOOLS_SOURCE_DIR) + "/../shared/data/";
    struct stat st{};
    return stat(d.c_str(), &st) == 0 && S_ISDIR(st.st_mode) ? d : std::string();
}

std::vector<std::vector<std::string>> csv_read(const std::string& text) {
    std::vector<std::vector<std::string>> rows(1);
    std::string field;
    bool quoted = false, any = false;
    for (size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (quoted) {
            if (c == '"' && i + 1 < text.size() && text[i + 1] == '"') field += '"', ++i;
            else if (c == '"') quoted = false;
            else field += c;
        } else if (c == '"') {
            quoted = true;
        } else if (c == ',') {
            rows.back().push_back(field), field.clear();
        } else if (c == '\n' || c == '\r') {
            if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
            rows.back().push_back(field), field.clear();
            rows.emplace_back();
        } else {
            field += c;
        }
        any = true;
    }
    if (!field.empty() || (any && !rows.back().empty())) rows.back().push_back(field);
    if (rows.back().empty()) rows.pop_back();
    return rows;
}

std::vector<RealReport> real_reports(const std::string& shared) {
    auto rows = csv_read(test_read_file(shared + "metar/metars-2025-01-27.csv"));
    size_t h = 0;
    while (h < rows.size() && (rows[h].empty() || rows[h][0] != "raw_text")) ++h;
    std::vector<RealReport> out;
    if (h == rows.size()) return out;
    std::map<std::string, size_t> col;
    for (size_t i = 0; i < rows[h].size(); ++i) col.emplace(rows[h][i], i);  // first of repeated names
    auto get = [&](const std::vector<std::string>& r, const char* name) {
        size_t i = col.at(name);
        return i < r.size() ? r[i] : std::string();
    };
    for (size_t i = h + 1; i < rows.size(); ++i) {
        const auto& r = rows[i];
        if (r.size() < 10) continue;
        RealReport rep;
        rep.raw = get(r, "raw_text");
        rep.station = get(r, "station_id");
        rep.lat = std::atof(get(r, "latitude").c_str());
        rep.lon = std::atof(get(r, "longitude").c_str());
        rep.temp_c = get(r, "temp_c");
        rep.dewpoint_c = get(r, "dewpoint_c");
        rep.wind_dir = get(r, "wind_dir_degrees");
        rep.wind_speed = get(r, "wind_speed_kt");
        rep.wind_gust = get(r, "wind_gust_kt");
        rep.altim_in_hg = get(r, "altim_in_hg");
        out.push_back(rep);
    }
    return out;
}

namespace {

// A runway number as the airport reader takes it: exactly three non-blank characters.
std::string runway_number(std::string id) {
    std::string s;
    for (char c : id)
        if (c > ' ' && c < 127) s += c;
    if (!s.empty() && std::isdigit((unsigned char)s[0]) && (s.size() == 1 || !std::isdigit((unsigned char)s[1])))
        s = "0" + s;
    while (s.size() < 3) s += 'x';
    return s.substr(0, 3);
}

std::string runway_line(double lat, double lon, const std::string& number, double hdg, double len, double width,
                        double disp, int surface) {
    char buf[200];
    std::snprintf(buf, sizeof buf, "10 %.6f %.6f %s %.2f %.0f %.0f 0 %.0f %d", lat, lon, number.c_str(), hdg, len,
                  disp, width, surface);
    return buf;
}

bool code_ok(const std::string& c) {
    if (c.size() < 3 || c.size() > 4) return false;
    for (char ch : c)
        if (!std::isalnum((unsigned char)ch)) return false;
    return true;
}

}  // namespace

std::vector<RealAirport> real_airports(const std::string& shared, const std::vector<RealReport>& reports,
                                       size_t max_airports) {
    auto rows = csv_read(test_read_file(shared + "ourairports/runways.csv"));
    std::map<std::string, size_t> col;
    for (size_t i = 0; i < rows[0].size(); ++i) col.emplace(rows[0][i], i);
    auto f = [&](const std::vector<std::string>& r, const char* name) {
        size_t i = col.at(name);
        return i < r.size() ? r[i] : std::string();
    };
    // Runways by airport, in file order; airports in order of first appearance.
    std::map<std::string, std::vector<const std::vector<std::string>*>> by_airport;
    std::vector<std::string> order;
    for (size_t i = 1; i < rows.size(); ++i) {
        const std::string id = f(rows[i], "airport_ident");
        auto [it, fresh] = by_airport.try_emplace(id);
        if (fresh) order.push_back(id);
        it->second.push_back(&rows[i]);
    }
    auto lines_for = [&](const std::string& code, const double* fallback_lat, const double* fallback_lon) {
        std::vector<std::string> lines;
        auto it = by_airport.find(code);
        if (it == by_airport.end()) return lines;
        for (const auto* r : it->second) {
            std::string slat = f(*r, "le_latitude_deg"), slon = f(*r, "le_longitude_deg");
            double lat, lon;
            if (!slat.empty() && !slon.empty()) lat = std::atof(slat.c_str()), lon = std::atof(slon.c_str());
            else if (fallback_lat) lat = *fallback_lat, lon = *fallback_lon;
            else if (!lines.empty()) std::sscanf(lines[0].c_str(), "10 %lf %lf", &lat, &lon);  // the airport's place
            else continue;
            const std::string surf = f(*r, "surface");
            const int surface = surf.find("CON") != std::string::npos ? 2 : surf.find("ASP") != std::string::npos ? 1 : 3;
            lines.push_back(runway_line(lat, lon, runway_number(f(*r, "le_ident")),
                                        std::atof(f(*r, "le_heading_degT").c_str()), std::atof(f(*r, "length_ft").c_str()),
                                        std::atof(f(*r, "width_ft").c_str()),
                                        std::atof(f(*r, "le_displaced_threshold_ft").c_str()), surface));
        }
        return lines;
    };

    std::vector<RealAirport> out;
    std::set<std::string> used;
    for (const auto& rep : reports) {
        if (!used.insert(rep.station).second) continue;
        RealAirport a;
        a.code = rep.station;
        a.name = "Wx " + rep.station;
        a.runway_lines = lines_for(rep.station, &rep.lat, &rep.lon);
        if (a.runway_lines.empty())
            a.runway_lines.push_back(runway_line(rep.lat, rep.lon, "36x", 0.0, 5000, 100, 0, 1));
        out.push_back(a);
    }
    for (const auto& code : order) {
        if (out.size() >= max_airports) break;
        if (!code_ok(code) || used.count(code)) continue;
        RealAirport a;
        a.code = code;
        a.name = "Field " + code;
        a.runway_lines = lines_for(code, nullptr, nullptr);
        if (a.runway_lines.empty()) continue;
        used.insert(code);
        out.push_back(a);
    }
    // The position the reader will store: the first runway line's latitude and longitude as floats.
    for (auto& a : out) {
        double lat = 0, lon = 0;
        std::sscanf(a.runway_lines[0].c_str(), "10 %lf %lf", &lat, &lon);
        a.lat = float(lat);
        a.lon = float(lon);
    }
    return out;
}

std::string apt_dat_text(const std::vector<RealAirport>& airports) {
    std::string s = "I\n600 Version - real-world test airports\n";
    for (const auto& a : airports) {
        s += "1 0 0 0 " + a.code + " " + a.name + "\n";
        for (const auto& l : a.runway_lines) s += l + "\n";
    }
    return s + "99\n";
}

void scan_apt_file(const std::string& path) {
    apt_reset();
    Text p;
    str_copy(path.c_str(), p);
    if (!fio_open(p, 0, 600, 1)) return;
    apt_scan(p);
    fio_close();
}
