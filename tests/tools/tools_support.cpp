// Shared pieces of the tools tests: generators, airport files and a reference decoding of reports.
#include "tests/tools/tools_support.h"

#include <cctype>
#include <cstdlib>
#include <sstream>
#include <sys/wait.h>

#include "briefing/metar_decode.h"
#include "util/file_reader.h"

std::string quoted(const std::string& s) { return "\"" + s + "\""; }

int run_tool(const std::string& tool, const std::string& args) {
    const char* bin = std::getenv("VOCALOG_BINARY_DIR");  // set by the test entry
    const std::string cmd = quoted(std::string(bin ? bin : ".") + "/" + tool) + " " + args + " 2>/dev/null";
    const int rc = std::system(cmd.c_str());
    return WIFEXITED(rc) ? WEXITSTATUS(rc) : -1;
}

std::vector<AptRow> parse_apt_text(const std::string& text) {
    std::vector<AptRow> out;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        std::istringstream l(line);
        int code = 0, tower, bldg;
        if (!(l >> code) || (code != 1 && out.empty())) continue;
        AptRow& a = code == 1 ? out.emplace_back() : out.back();
        if (code == 1) l >> a.elev >> tower >> bldg >> a.code >> std::ws, std::getline(l, a.name);
        if (code == 10 && a.runways++ == 0) l >> a.lat >> a.lon >> a.number >> a.hdg;
        a.tower = a.tower || code == 14;
    }
    return out;
}

void scan_apt_file(const std::string& path) {
    Text p;
    str_copy(path.c_str(), p);
    apt_reset();
    if (fio_open(p, 0, 600, 1)) apt_scan(p), fio_close();
}

namespace {

bool digits(const std::string& g, size_t p, size_t n) {
    for (size_t i = p; i < p + n; ++i)
        if (i >= g.size() || !std::isdigit((unsigned char)g[i])) return false;
    return true;
}
float num(const std::string& g, size_t p, size_t n) { return std::stof(g.substr(p, n)); }
// A character as the reader counts it: a digit its value, '+' 1, '-' -1, anything else 0.
float dv(const std::string& g, size_t i) {
    const char c = i < g.size() ? g[i] : ' ';
    return std::isdigit((unsigned char)c) ? float(c - '0') : c == '+' ? 1.0f : c == '-' ? -1.0f : 0.0f;
}
// A speed of two or three digits at p: the position after it, or 0 when there is none.
size_t speed_at(const std::string& g, size_t p, float* v) {
    const size_t n = digits(g, p, 3) ? 3 : digits(g, p, 2) ? 2 : 0;
    if (n) *v = num(g, p, n);
    return n ? p + n : 0;
}
// dddff(f)(Gff(f))KT or VRBff(f)KT.
bool standard_wind(const std::string& g, RefReport& r) {
    r.vrb = g.compare(0, 3, "VRB") == 0;
    size_t p = r.vrb || digits(g, 0, 3) ? speed_at(g, 3, &r.speed) : 0;
    r.gust = r.speed;
    if (p && g[p] == 'G') p = speed_at(g, p + 1, &r.gust);
    r.dir = r.vrb || !p ? 0.0f : num(g, 0, 3);
    return p && g.substr(p) == "KT";
}
// dd/dd, dd/Mdd, Mdd/dd or Mdd/Mdd.
bool temp_shape(const std::string& g, float* t, float* d) {
    size_t p = 0;
    auto two = [&](float* v) {
        const bool minus = p < g.size() && g[p] == 'M';
        if (!digits(g, p + minus, 2)) return false;
        *v = (minus ? -1.0f : 1.0f) * num(g, p + minus, 2);
        return p += minus + 2, true;
    };
    return two(t) && p < g.size() && g[p++] == '/' && two(d) && p == g.size();
}

}  // namespace

RefReport ref_decode(const std::string& raw) {
    RefReport r;
    std::istringstream in(raw);
    bool body = true;
    int n = 0;
    for (std::string g; in >> g;) {
        if (body && ++n > WX_GROUPS) body = false;
        if (!body) {  // the remarks' T group: T, sign, three digits, then the same for the dewpoint
            auto tenths = [&](size_t p) { return (g[p] == '1' ? -0.1f : 0.1f) * num(g, p + 1, 3); };
            if (g.size() >= 5 && g[0] == 'T' && (g[1] == '0' || g[1] == '1') && digits(g, 2, 3)) r.rmk_t = tenths(1);
            if (g.size() == 9 && g[0] == 'T' && (g[5] == '0' || g[5] == '1') && digits(g, 6, 3)) r.rmk_d = tenths(5);
            continue;
        }
        body = g != "RMK";
        if (g.size() == 7 && g[6] == 'Z')
            r.time = true, r.secs = dv(g, 2) * 36000 + dv(g, 3) * 3600 + dv(g, 4) * 600 + dv(g, 5) * 60;
        if (g.size() >= 2 && g.compare(g.size() - 2, 2, "KT") == 0) ++r.kt_groups, r.wind = standard_wind(g, r);
        r.mps = r.mps || (g.size() > 3 && g.compare(g.size() - 3, 3, "MPS") == 0);
        if (float t, d; temp_shape(g, &t, &d)) r.temp = true, r.t = t, r.d = d;
        if (g.size() == 5 && (g[0] == 'A' || g[0] == 'Q') && digits(g, 1, 4)) {
            const double v = std::stod(g.substr(1));
            ++r.altimeters;
            r.pressure = g[0] == 'A' ? float(v / 100) : (r.q_pressure = float(v * 29.92 / 1013.25));
        }
        for (int k = 0; k < 4 && r.layers < 2 && g.size() == 6; ++k) {
            if (g.compare(0, 3, "FEWSCTBKNOVC" + 3 * k, 3) != 0) continue;
            r.base[r.layers] = (dv(g, 3) * 10000 + dv(g, 4) * 1000 + dv(g, 5) * 100) * 0.3048f;
            r.kind[r.layers] = k >= 2 ? k + 1 : r.base[r.layers] > 3000.0f ? 1 : 2;
            ++r.layers;
        }
    }
    return r;
}

StationWeather reader_decode(const std::string& raw, float unset) {
    StationWeather w{};
    w.time = w.visibility = w.temperature = w.dewpoint = w.wind_dir = w.wind_speed = w.gust = w.pressure = unset;
    wx_decode(raw.c_str(), {&w.time, w.cloud_kind, w.cloud_base, w.cloud_top, &w.visibility, &w.wx_kind,
                            &w.wx_intensity, &w.temperature, &w.dewpoint, &w.wind_dir, &w.wind_speed, &w.gust,
                            &w.pressure});
    return w;
}

std::string ref_mismatch(const RefReport& r, const StationWeather& w, float unset) {
    std::string bad;
    auto check = [&](const char* name, bool known, float ours, float want, float tolerance) {
        if (known ? !(std::fabs(ours - want) <= tolerance) : ours != unset) bad += std::string(" ") + name;
    };
    if (r.wind || r.kt_groups == 0) {  // a malformed wind group is decoded by character position
        if (!r.vrb) check("direction", r.wind, w.wind_dir, r.dir, 0);
        check("speed", r.wind, w.wind_speed, r.speed, 0);
        check("gust", r.wind, r.wind ? w.wind_speed + w.gust : w.gust, r.gust, 0);
    }
    check("temperature", r.temp, w.temperature, r.t, 0);
    check("dewpoint", r.temp, w.dewpoint, r.d, 0);
    check("altimeter", r.altimeters > 0, w.pressure, r.pressure, 1e-4f);
    check("time", r.time, w.time, r.secs, 0);
    for (int k = 0; k < 2; ++k) {  // a cloud base without a layer keeps the reset value
        check("cloud kind", true, float(w.cloud_kind[k]), float(r.kind[k]), 0);
        check("cloud base", true, w.cloud_base[k], k < r.layers ? r.base[k] : 30479.7f, 0.01f);
    }
    return bad;
}
