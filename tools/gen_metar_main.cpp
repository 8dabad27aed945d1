// vocalog-gen-metar: writes a seeded, realistic metar.rwx for the airports of an apt.dat.
//
// One current report for most airports (a share is left without, so the nearest-station search has
// work), with temperatures that follow latitude, season, time of day and elevation, and the report
// forms of the station's region: statute miles and inch altimeters in North America, metres and
// hectopascals elsewhere. The same seed, date and airport file always give the same bytes.
#include <cmath>
#include <sstream>

#include "tools/gen_common.h"

namespace {

struct Station {
    std::string code;
    double lat = 0, lon = 0, elev_ft = 0;
};

// Airport codes, elevations and first-runway positions of an apt.dat written by vocalog-gen-apt.
std::vector<Station> read_airports(const std::string& text) {
    std::vector<Station> out;
    bool want_runway = false;
    for (const auto& line : gen::split(text, '\n')) {
        std::istringstream in(line);
        int code = 0;
        if (!(in >> code)) continue;
        if (code == 1) {
            Station s;
            int tower, bldg;
            in >> s.elev_ft >> tower >> bldg >> s.code;
            out.push_back(s);
            want_runway = true;
        } else if (code == 10 && want_runway) {
            in >> out.back().lat >> out.back().lon;
            want_runway = false;
        }
    }
    return out;
}

enum class Style { NorthAmerica, International };

Style style_of(const std::string& code) {
    const char c = code[0];
    if (c == 'K' || c == 'P' || c == 'C' || code.rfind("MM", 0) == 0 || code.rfind("TJ", 0) == 0) return Style::NorthAmerica;
    return Style::International;
}

struct Sky {
    std::string groups;   // cloud groups, or "" when clear
    int lowest_ceiling;   // hundreds of feet, 999 when none
};

struct Report {
    std::string text;
};

// Mean temperature of the place at this date and hour, in Celsius.
double model_temperature(const Station& s, int day_of_year, double utc_hour) {
    const double alat = std::fabs(s.lat);
    // +1 in the middle of the hemisphere's winter, -1 in its summer.
    double winter = std::cos(2.0 * M_PI * (day_of_year - 15) / 365.0);
    if (s.lat < 0) winter = -winter;
    double t = 27.0 - 0.35 * alat - winter * 0.25 * std::max(0.0, alat - 10.0);
    double local = std::fmod(utc_hour + s.lon / 15.0 + 48.0, 24.0);
    t += 4.0 * std::cos(2.0 * M_PI * (local - 15.0) / 24.0);
    t -= 6.5 * (s.elev_ft * 0.3048) / 1000.0;
    return t;
}

std::string temp_text(int t) { return t < 0 ? gen::fmt("M%02d", -t) : gen::fmt("%02d", t); }

// Cloud layers from low to high with cover that never decreases; up to four layers.
Sky make_sky(gen::Rng& rng, bool precip, bool convective, bool fog, Style style, bool automated) {
    Sky sky{"", 999};
    if (fog && rng.chance(0.6)) {
        const int vv = rng.range(1, 5);
        sky.groups = gen::fmt("VV%03d", vv);
        sky.lowest_ceiling = vv;
        return sky;
    }
    int layers = precip ? rng.range(1, 4) : rng.range(0, 3);
    if (layers == 0) {
        if (style == Style::NorthAmerica) sky.groups = automated ? "CLR" : "SKC";
        else sky.groups = rng.chance(0.5) ? "NSC" : "";
        return sky;
    }
    static const char* covers[] = {"FEW", "SCT", "BKN", "OVC"};
    int cover = precip ? rng.range(1, 2) : rng.range(0, 1);
    int height = precip ? rng.range(4, 25) : rng.range(8, 60);
    bool cb_done = false;
    for (int i = 0; i < layers; ++i) {
        if (!sky.groups.empty()) sky.groups += ' ';
        std::string g = gen::fmt("%s%03d", covers[cover], height);
        if (convective && !cb_done && cover <= 2 && rng.chance(0.6)) {
            g += rng.chance(0.5) ? "CB" : "TCU";
            cb_done = true;
        }
        sky.groups += g;
        if (cover >= 2 && sky.lowest_ceiling == 999) sky.lowest_ceiling = height;
        if (cover == 3) break;  // nothing is seen above an overcast
        if (rng.chance(0.5) && cover < 3) ++cover;
        height += rng.range(5, 80);
        if (height > 450) break;
    }
    return sky;
}

std::string make_report(const Station& s, gen::Rng& rng, int day, int day_of_year, int hour) {
    const Style style = style_of(s.code);
    const bool na = style == Style::NorthAmerica;
    std::vector<std::string> g;

    const int minute = na ? rng.range(50, 58) : (rng.chance(0.7) ? 0 : 30);
    const int report_hour = na ? (hour + 23) % 24 : (minute == 30 ? (hour + 23) % 24 : hour);
    const int report_day = (na || minute == 30) && hour == 0 ? (day > 1 ? day - 1 : 28) : day;
    const bool automated = na && rng.chance(0.35);

    // Temperature and moisture first: they decide the weather.
    const int t = int(std::lround(model_temperature(s, day_of_year, report_hour + minute / 60.0) + rng.normal(3.0)));
    const double tropical = std::max(0.0, 1.0 - std::fabs(s.lat) / 30.0);
    int spread = int(std::lround(std::fabs(rng.normal(6.0 - 3.0 * tropical)))) + (rng.chance(0.1) ? 8 : 0);
    if (rng.chance(0.06)) spread = 0;
    const int d = t - spread;

    const bool precip = rng.chance(0.16 + 0.1 * tropical);
    const bool thunder = precip && t >= 18 && rng.chance(0.35);
    const bool fog = !precip && spread <= 1 && rng.chance(0.6);
    const bool haze = !precip && !fog && rng.chance(0.05);

    // Wind.
    std::string wind;
    int speed = int(std::lround(std::fabs(rng.normal(9.0)))) + (rng.chance(0.1) ? rng.range(10, 20) : 0);
    if (thunder) speed += rng.range(5, 15);
    if (fog) speed = std::min(speed, 6);  // fog does not stand in a strong wind
    int dir = rng.range(1, 36) * 10;
    bool variable_dir = false;
    if (rng.chance(0.07)) {
        wind = "00000KT";
        speed = 0;
    } else if (speed <= 6 && rng.chance(0.35)) {
        wind = gen::fmt("VRB%02dKT", std::max(1, speed));
    } else {
        speed = std::max(speed, 3);
        wind = gen::fmt("%03d%02d", dir, speed);
        if (speed >= 12 && rng.chance(0.35)) wind += gen::fmt("G%02d", speed + rng.range(6, 18));
        wind += "KT";
        variable_dir = speed >= 5 && rng.chance(0.12);
    }

    // Weather.
    std::string wx;
    if (precip) {
        const char* sign = rng.chance(0.45) ? "-" : (rng.chance(0.75) ? "" : "+");
        if (thunder) wx = std::string(sign) + (rng.chance(0.8) ? "TSRA" : "TSGS");
        else if (t <= 0) wx = std::string(sign) + rng.pick<std::string>({"SN", "SN", "SHSN", "SG", "FZDZ"});
        else if (t <= 2) wx = std::string(sign) + rng.pick<std::string>({"RASN", "SN", "FZRA", "RA"});
        else wx = std::string(sign) + rng.pick<std::string>({"RA", "RA", "SHRA", "DZ", "RA", "SHRA"});
    } else if (fog) {
        wx = rng.chance(0.5) ? "FG" : "BR";
    } else if (haze) {
        wx = rng.pick<std::string>({"HZ", "FU", "DU"});
    } else if (rng.chance(0.04)) {
        wx = rng.chance(0.5) ? "VCSH" : "VCFG";
    }
    if (precip && rng.chance(0.3)) wx += " BR";

    // Visibility, in the units of the region.
    int vis_class = 0;  // 0 good, 1 reduced, 2 poor, 3 very poor
    if (fog) vis_class = wx == "FG" ? 3 : 2;
    else if (precip) vis_class = rng.range(0, 2) + (wx[0] == '+' ? 1 : 0);
    else if (haze) vis_class = 1;
    const Sky sky = make_sky(rng, precip, thunder || rng.chance(0.05), fog, style, automated);
    std::string vis;
    if (na) {
        // Canadian stations report up to 15 statute miles, the others up to 10.
        static const std::vector<std::string> good_us{"10SM", "10SM", "10SM", "9SM", "8SM", "7SM"};
        static const std::vector<std::string> good_ca{"15SM", "15SM", "12SM", "10SM", "9SM", "7SM"};
        const std::vector<std::string>& good = s.code[0] == 'C' ? good_ca : good_us;
        static const std::vector<std::string> reduced{"6SM", "5SM", "4SM", "3SM", "2 1/2SM", "2SM"};
        static const std::vector<std::string> poor{"1 3/4SM", "1 1/2SM", "1 1/4SM", "1SM", "3/4SM"};
        static const std::vector<std::string> very_poor{"1/2SM", "1/4SM", "M1/4SM", "3/4SM"};
        const std::vector<std::string>* table[] = {&good, &reduced, &poor, &very_poor};
        vis = rng.pick(*table[std::min(vis_class, 3)]);
    } else {
        static const std::vector<int> good{9999, 9999, 9999, 9999, 8000, 7000};
        static const std::vector<int> reduced{6000, 5000, 4500, 4000, 3500, 3000};
        static const std::vector<int> poor{2500, 2000, 1500, 1200, 1000};
        static const std::vector<int> very_poor{800, 600, 400, 300, 200, 150};
        const std::vector<int>* table[] = {&good, &reduced, &poor, &very_poor};
        vis = gen::fmt("%04d", rng.pick(*table[std::min(vis_class, 3)]));
    }
    const bool cavok = !na && vis_class == 0 && wx.empty() && sky.lowest_ceiling >= 50 &&
                       sky.groups.find("CB") == std::string::npos && sky.groups.find("TCU") == std::string::npos &&
                       rng.chance(0.45);

    // Pressure: lower in rain and storms.
    int hpa = int(std::lround(1015.0 + rng.normal(7.0) - (precip ? 8 : 0) - (thunder ? 4 : 0)));

    if (rng.chance(0.12)) g.push_back("METAR");
    else if (rng.chance(0.03)) g.push_back("SPECI");
    g.push_back(s.code);
    g.push_back(gen::fmt("%02d%02d%02dZ", report_day, report_hour, minute));
    if (automated) g.push_back("AUTO");
    else if (rng.chance(0.01)) g.push_back("COR");
    g.push_back(wind);
    if (variable_dir) {
        int from = (dir + 360 - rng.range(3, 6) * 10) % 360, to = (dir + rng.range(3, 6) * 10) % 360;
        g.push_back(gen::fmt("%03dV%03d", from == 0 ? 360 : from, to == 0 ? 360 : to));
    }
    if (cavok) {
        g.push_back("CAVOK");
    } else {
        g.push_back(vis);
        if (!wx.empty()) g.push_back(wx);
        if (!sky.groups.empty()) g.push_back(sky.groups);
    }
    g.push_back(temp_text(t) + "/" + temp_text(d));
    if (na) {
        g.push_back(gen::fmt("A%04d", int(std::lround(hpa * 2.9529983))));
        std::string rmk = "RMK ";
        rmk += automated || rng.chance(0.6) ? "AO2" : "AO1";
        if (s.code[0] == 'K' || s.code[0] == 'P') {
            rmk += gen::fmt(" SLP%03d", (hpa * 10 + rng.range(0, 9)) % 1000);
            // Tenths that round to the whole degrees of the main group.
            const int t10 = t * 10 + rng.range(-4, 4), d10 = std::min(t10, d * 10 + rng.range(-4, 4));
            rmk += gen::fmt(" T%d%03d%d%03d", t10 < 0, std::abs(t10), d10 < 0, std::abs(d10));
        }
        if (thunder) rmk += " LTG DSNT ALQDS";
        g.push_back(rmk);
    } else {
        g.push_back(gen::fmt("Q%04d", hpa));
        if (rng.chance(0.45)) g.push_back("NOSIG");
        else if (precip && rng.chance(0.3)) g.push_back(t > 2 ? "TEMPO 3000 SHRA" : "TEMPO 3000 SHSN");
        if (rng.chance(0.08)) g.push_back(gen::fmt("RMK QFE%03d", hpa - int(s.elev_ft / 27.0)));
    }

    std::string line;
    for (const auto& x : g) {
        if (!line.empty()) line += ' ';
        line += x;
    }
    return line;
}

int day_of_year(int y, int m, int d) {
    static const int before[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    const bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
    return before[m - 1] + d + (leap && m > 2 ? 1 : 0);
}

}  // namespace

int main(int argc, char** argv) {
    const char* usage = "vocalog-gen-metar --apt apt.dat --out metar.rwx [--seed N] [--date YYYY-MM-DD] [--hour H] [--missing P]";
    gen::Args args(argc, argv, {"apt", "out", "seed", "date", "hour", "missing"}, usage);
    if (!args.has("apt") || !args.has("out")) gen::fail(usage);
    const uint64_t seed = std::strtoull(args.get("seed", "20250127").c_str(), nullptr, 10);
    const std::string date = args.get("date", "2025-01-27");
    int y = 0, m = 0, d = 0;
    if (std::sscanf(date.c_str(), "%d-%d-%d", &y, &m, &d) != 3 || m < 1 || m > 12 || d < 1 || d > 31)
        gen::fail("bad --date " + date);
    const int hour = std::atoi(args.get("hour", "21").c_str()) % 24;
    const double missing = std::atof(args.get("missing", "0.08").c_str());

    const auto stations = read_airports(gen::read_file(args.get("apt", "")));
    if (stations.empty()) gen::fail("no airports in " + args.get("apt", ""));

    // A date line first, as weather downloads begin; it is shorter than any report.
    std::string out = gen::fmt("%04d/%02d/%02d\n", y, m, d);
    size_t reports = 0;
    for (const auto& s : stations) {
        gen::Rng rng(seed ^ gen::hash_text(s.code));
        if (rng.chance(missing)) continue;
        out += make_report(s, rng, d, day_of_year(y, m, d), hour);
        out += '\n';
        ++reports;
        if (reports % 500 == 0) out += '\n';  // blank lines between blocks, as downloads have them
    }
    gen::write_file(args.get("out", ""), out);
    std::fprintf(stderr, "vocalog-gen-metar: %zu reports for %zu airports, %zu bytes\n", reports, stations.size(),
                 out.size());
    return 0;
}
