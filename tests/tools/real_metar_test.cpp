// The weather reader against one hour of real reports: every report decodes, and the decoded wind,
// gust, temperature, dewpoint and altimeter agree with the weather service's own decoding wherever
// both follow the same rule. Each disagreement must fall under one of our deliberate rules.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <map>

#include "briefing/airports.h"
#include "briefing/metar_decode.h"
#include "briefing/weather.h"
#include "tests/support/test_files.h"
#include "tests/tools/real_data.h"
#include "util/random.h"
#include "util/text.h"
#include "util/units.h"

namespace {

constexpr float UNSET = -9999.0f;

WxFields fields_of(StationWeather& w) {
    return {&w.time, w.cloud_kind, w.cloud_base, w.cloud_top, &w.visibility, &w.wx_kind, &w.wx_intensity,
            &w.temperature, &w.dewpoint, &w.wind_dir, &w.wind_speed, &w.gust, &w.pressure};
}

StationWeather unset_weather() {
    StationWeather w{};
    w.time = w.visibility = w.temperature = w.dewpoint = w.wind_dir = w.wind_speed = w.gust = w.pressure = UNSET;
    return w;
}

StationWeather decode(const std::string& raw) {
    StationWeather w = unset_weather();
    wx_decode(raw.c_str(), fields_of(w));
    return w;
}

std::vector<std::string> groups_of(const std::string& raw) {
    std::vector<std::string> g;
    std::string cur;
    for (char c : raw + " ") {
        if (c == ' ') {
            if (!cur.empty()) g.push_back(cur);
            cur.clear();
        } else {
            cur += c;
        }
    }
    return g;
}

// The groups before RMK, as our reader examines them (the first 40).
std::vector<std::string> body_groups(const std::string& raw) {
    auto g = groups_of(raw);
    std::vector<std::string> out;
    for (const auto& x : g) {
        if (out.size() == size_t(WX_GROUPS)) break;
        out.push_back(x);
        if (x == "RMK") break;
    }
    return out;
}

bool ends_with(const std::string& s, const std::string& t) {
    return s.size() >= t.size() && s.compare(s.size() - t.size(), t.size(), t) == 0;
}

// Why a disagreement is one of our deliberate rules ("" when it is not).
struct Tally {
    int compared = 0, agreed = 0;
    std::map<std::string, int> deliberate;
    std::map<std::string, std::vector<std::string>> examples;
    std::vector<std::string> faults;
    void add(bool agree, const std::string& reason, const std::string& example) {
        ++compared;
        if (agree) {
            ++agreed;
        } else if (!reason.empty()) {
            ++deliberate[reason];
            if (examples[reason].size() < 2) examples[reason].push_back(example);
        } else if (faults.size() < 1000) {
            faults.push_back(example);
        }
    }
};

// dddff(f)(Gff(f))KT or VRBff(f)KT.
bool standard_wind(const std::string& x) {
    auto digits = [&](size_t p, size_t n) {
        for (size_t i = p; i < p + n; ++i)
            if (i >= x.size() || !std::isdigit((unsigned char)x[i])) return false;
        return true;
    };
    if (!(x.compare(0, 3, "VRB") == 0 || digits(0, 3))) return false;
    size_t p = 3;
    if (!digits(p, 2)) return false;
    p += digits(p, 3) ? 3 : 2;
    if (p < x.size() && x[p] == 'G') {
        if (!digits(p + 1, 2)) return false;
        p += digits(p + 1, 3) ? 4 : 3;
    }
    return x.substr(p) == "KT";
}

std::string wind_reason(const std::vector<std::string>& g) {
    int kt = 0;
    bool mps = false, slashes = false;
    for (const auto& x : g) {
        if (ends_with(x, "KT")) ++kt;
        if (ends_with(x, "MPS")) mps = true;
        if (ends_with(x, "KT") && x.find('/') != std::string::npos) slashes = true;
    }
    if (mps && kt == 0) return "wind in metres per second is not read";
    if (slashes) return "a wind group with missing digits (///) reads the slashes as 0";
    if (kt == 0) return "report without a KT wind group keeps the previous wind";
    if (kt > 1) return "a later KT group (trend or second wind) replaces the first";
    for (const auto& x : g)
        if (ends_with(x, "KT") && !standard_wind(x)) return "a malformed wind group is decoded by character position";
    for (const auto& x : g)
        if (x.size() >= 2 && x[0] == 'W' && x[1] == 'S') return "a wind-shear group replaces the gust";
    return "";
}

// The four shapes of a temperature group: dd/dd, dd/Mdd, Mdd/dd, Mdd/Mdd.
bool temp_shape(const std::string& s) {
    size_t i = 0;
    auto two = [&](size_t& p) {
        if (p < s.size() && s[p] == 'M') ++p;
        if (p + 2 > s.size() || !std::isdigit((unsigned char)s[p]) || !std::isdigit((unsigned char)s[p + 1])) return false;
        p += 2;
        return true;
    };
    if (!two(i) || i >= s.size() || s[i] != '/') return false;
    ++i;
    return two(i) && i == s.size();
}

std::string temp_reason(const std::vector<std::string>& g, const std::string& raw, double ours, double theirs) {
    int shaped = 0;
    for (const auto& x : g) shaped += temp_shape(x);
    if (shaped == 0) return "a temperature group of another shape (missing dewpoint, one digit) sets nothing";
    // The service prefers the tenths of the remark's T group; we read the whole degrees of the main group.
    const auto all = groups_of(raw);
    bool t_group = false;
    for (const auto& x : all)
        if (x.size() >= 5 && x[0] == 'T' && (x[1] == '0' || x[1] == '1') && std::isdigit((unsigned char)x[2])) t_group = true;
    if (t_group && std::fabs(ours - theirs) < 1.5) return "the service takes tenths from the remark T group";
    if (shaped > 1) return "a later temperature-shaped group replaces the first";
    return "";
}

std::string altim_reason(const std::vector<std::string>& g) {
    int a = 0, q = 0;
    for (const auto& x : g) {
        if (x.size() == 5 && x[0] == 'A' && str_is_int(x.c_str() + 1)) ++a;
        if (x.size() == 5 && x[0] == 'Q' && str_is_int(x.c_str() + 1)) ++q;
    }
    if (a + q == 0) return "an altimeter group of another shape (A////, Q in remarks) is not read";
    if (a + q > 1) return "of two altimeter groups the later one (A after Q) is kept";
    return "";
}

}  // namespace

TEST(RealMetar, DecodedFieldsAgreeWithTheWeatherService) {
    const std::string shared = tools_shared_data();
    if (shared.empty()) GTEST_SKIP() << "shared real-world data is absent";
    units_init();
    const auto reports = real_reports(shared);
    ASSERT_EQ(reports.size(), 4909u);

    Tally wind_dir, wind_speed, gust, temp, dew, altim;
    for (const auto& r : reports) {
        const StationWeather w = decode(r.raw);
        const auto g = body_groups(r.raw);
        const std::string ex = r.raw;
        if (!r.wind_speed.empty()) {
            const double theirs = std::atof(r.wind_speed.c_str());
            const bool agree = w.wind_speed == float(theirs);
            wind_speed.add(agree, agree ? "" : wind_reason(g), ex + "  | speed ours " + std::to_string(w.wind_speed) + " theirs " + r.wind_speed);
            if (!r.wind_dir.empty() && r.wind_dir != "VRB") {
                const bool ad = w.wind_dir == float(std::atof(r.wind_dir.c_str()));
                wind_dir.add(ad, ad ? "" : wind_reason(g), ex + "  | dir ours " + std::to_string(w.wind_dir) + " theirs " + r.wind_dir);
            }
            const double their_gust = r.wind_gust.empty() ? theirs : std::atof(r.wind_gust.c_str());
            const bool ag = w.wind_speed != UNSET && std::fabs(w.wind_speed + w.gust - their_gust) < 1e-3;
            gust.add(ag, ag ? "" : wind_reason(g), ex + "  | gust ours " + std::to_string(w.wind_speed + w.gust) + " theirs " + r.wind_gust);
        }
        if (!r.temp_c.empty()) {
            const bool at = std::fabs(w.temperature - std::atof(r.temp_c.c_str())) <= 0.5001;
            temp.add(at, at ? "" : temp_reason(g, r.raw, w.temperature, std::atof(r.temp_c.c_str())), ex + "  | temp ours " + std::to_string(w.temperature) + " theirs " + r.temp_c);
        }
        if (!r.dewpoint_c.empty()) {
            const bool ad = std::fabs(w.dewpoint - std::atof(r.dewpoint_c.c_str())) <= 0.5001;
            dew.add(ad, ad ? "" : temp_reason(g, r.raw, w.dewpoint, std::atof(r.dewpoint_c.c_str())), ex + "  | dew ours " + std::to_string(w.dewpoint) + " theirs " + r.dewpoint_c);
        }
        if (!r.altim_in_hg.empty() && std::atof(r.altim_in_hg.c_str()) > 0.0) {  // 0.00: none reported
            // The service writes hundredths cut down from its own conversion of hectopascals.
            const double d = w.pressure - std::atof(r.altim_in_hg.c_str());
            const bool aa = d > -0.006 && d < 0.0105;
            altim.add(aa, aa ? "" : altim_reason(g), ex + "  | altim ours " + std::to_string(w.pressure) + " theirs " + r.altim_in_hg);
        }
    }

    int compared = 0, agreed = 0, deliberate = 0, faults = 0;
    const std::pair<const char*, Tally*> all[] = {{"wind direction", &wind_dir}, {"wind speed", &wind_speed},
                                                  {"gust", &gust}, {"temperature", &temp},
                                                  {"dewpoint", &dew}, {"altimeter", &altim}};
    for (const auto& [name, t] : all) {
        std::printf("%-15s compared %5d agreed %5d (%.2f%%)\n", name, t->compared, t->agreed,
                    100.0 * t->agreed / std::max(1, t->compared));
        for (const auto& [why, n] : t->deliberate) {
            std::printf("    deliberate %4d  %s\n", n, why.c_str());
            for (const auto& e : t->examples[why]) std::printf("        e.g. %s\n", e.c_str());
        }
        for (size_t i = 0; i < t->faults.size() && i < 8; ++i) std::printf("    FAULT  %s\n", t->faults[i].c_str());
        compared += t->compared;
        agreed += t->agreed;
        for (const auto& d : t->deliberate) deliberate += d.second;
        faults += int(t->faults.size());
    }
    std::printf("all fields: compared %d, agreed %d (%.2f%%), deliberate differences %d, unexplained %d\n", compared,
                agreed, 100.0 * agreed / compared, deliberate, faults);
    EXPECT_EQ(faults, 0);
    EXPECT_GT(agreed, compared * 95 / 100);
}
