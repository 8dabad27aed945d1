// vocalog-gen-apt: writes the sample world's apt.dat from a table of airports (code, kind, name, position).
//
// Input: tab-separated lines "code<TAB>type<TAB>name<TAB>latitude<TAB>longitude<TAB>elevation_ft",
// type large_airport or medium_airport. The source data has no runways, so every airport gets one
// illustrative runway centred on its reference position, which is what the briefing takes as the
// airport's position; large airports also get a tower viewpoint and a start location.
#include <algorithm>
#include <cmath>

#include "tools/gen_common.h"

namespace {

struct Airport {
    std::string code, type, name;
    double lat = 0, lon = 0;
    long elev = 0;
};

// The airport file keeps names of at most 39 characters; cut there and drop trailing blanks.
std::string cut_name(std::string name) {
    for (char& c : name)
        if (c == '\t' || c == '\r' || c == '\n' || (unsigned char)c < 32) c = ' ';
    if (name.size() > 39) name.resize(39);
    while (!name.empty() && name.back() == ' ') name.pop_back();
    return name.empty() ? "Unnamed" : name;
}

bool is_code(const std::string& c) {
    return c.size() == 4 && std::all_of(c.begin(), c.end(), [](char ch) { return ch >= 'A' && ch <= 'Z'; });
}

std::vector<Airport> read_table(const std::string& text) {
    std::vector<Airport> out;
    for (const auto& line : gen::split(text, '\n')) {
        if (line.empty()) continue;
        auto f = gen::split(line, '\t');
        if (f.size() != 6) gen::fail("bad airport line: " + line);
        Airport a;
        a.code = f[0];
        a.type = f[1];
        a.name = cut_name(f[2]);
        // Positions as the file prints them (6 decimals), so that the tower and start lines derived
        // from them come out the same when the file's own airports are fed back in.
        a.lat = std::atof(gen::fmt("%.6f", std::atof(f[3].c_str())).c_str());
        a.lon = std::atof(gen::fmt("%.6f", std::atof(f[4].c_str())).c_str());
        a.elev = f[5].empty() ? 0 : std::lround(std::atof(f[5].c_str()));
        if (!is_code(a.code)) gen::fail("airport code is not 4 letters: " + line);
        out.push_back(a);
    }
    std::sort(out.begin(), out.end(), [](const Airport& x, const Airport& y) { return x.code < y.code; });
    out.erase(std::unique(out.begin(), out.end(), [](const Airport& x, const Airport& y) { return x.code == y.code; }),
              out.end());
    return out;
}

// A point `dist_ft` from (lat, lon) along the true heading `hdg`.
void offset(double lat, double lon, double hdg, double dist_ft, double* lat_out, double* lon_out) {
    const double deg = dist_ft / 6076.1155 / 60.0;
    const double r = hdg * M_PI / 180.0;
    *lat_out = lat + deg * std::cos(r);
    *lon_out = lon + deg * std::sin(r) / std::max(0.05, std::cos(lat * M_PI / 180.0));
}

std::string airport_lines(const Airport& a, uint64_t seed) {
    gen::Rng rng(seed ^ gen::hash_text(a.code));
    const bool large = a.type == "large_airport";
    // Heading with two decimals; the runway number follows it (true heading, for illustration).
    const int hdg_hundredths = rng.range(0, 35999);
    const double hdg = hdg_hundredths / 100.0;
    int number = int(std::lround(hdg / 10.0));
    if (number == 0) number = 36;
    char suffix = 'x';
    if (large && rng.chance(0.4)) suffix = "LRC"[rng.range(0, 2)];
    const int length = large ? rng.range(80, 130) * 100 : rng.range(40, 85) * 100;
    const int width = large ? (rng.chance(0.6) ? 150 : 200) : (rng.chance(0.5) ? 100 : (rng.chance(0.5) ? 75 : 150));
    const int over1 = rng.chance(0.7) ? 0 : rng.range(1, 10) * 100;
    const int over2 = rng.chance(0.7) ? 0 : rng.range(1, 10) * 100;
    const int surface = large || rng.chance(0.3) ? 2 : 1;  // 1 asphalt, 2 concrete
    const int tower = large || rng.chance(0.4) ? 1 : 0;
    const int buildings = large || rng.chance(0.5) ? 1 : 0;

    std::string s = gen::fmt("1 %5ld %d %d %s %s\n", a.elev, tower, buildings, a.code.c_str(), a.name.c_str());
    s += gen::fmt("10 %10.6f %11.6f %02d%c %6.2f %5d %4d %4d %3d %d\n", a.lat, a.lon, number, suffix, hdg, length,
                  over1, over2, width, surface);
    if (large) {
        double tlat, tlon, slat, slon;
        offset(a.lat, a.lon, std::fmod(hdg + 90.0, 360.0), 1500.0, &tlat, &tlon);
        offset(a.lat, a.lon, std::fmod(hdg + 180.0, 360.0), length / 2.0 - 300.0, &slat, &slon);
        s += gen::fmt("14 %10.6f %11.6f %3d 0 Tower Viewpoint\n", tlat, tlon, rng.range(6, 30) * 10);
        s += gen::fmt("15 %10.6f %11.6f %6.2f Runway %02d%c\n", slat, slon, hdg, number, suffix);
    }
    return s;
}

}  // namespace

int main(int argc, char** argv) {
    gen::Args args(argc, argv, {"in", "out", "seed"}, "vocalog-gen-apt --in airports.tsv --out apt.dat [--seed N]");
    if (!args.has("in") || !args.has("out")) gen::fail("usage: vocalog-gen-apt --in airports.tsv --out apt.dat [--seed N]");
    const uint64_t seed = std::strtoull(args.get("seed", "20250127").c_str(), nullptr, 10);
    const auto airports = read_table(gen::read_file(args.get("in", "")));
    if (airports.empty()) gen::fail("no airports in " + args.get("in", ""));
    if (airports.size() >= 22000) gen::fail("too many airports for the airport table (22000)");

    std::string out = "I\n600 Version - Vocalog sample world, airports from OurAirports open data, runways illustrative\n";
    for (const auto& a : airports) out += airport_lines(a, seed);
    out += "99\n";
    gen::write_file(args.get("out", ""), out);
    std::fprintf(stderr, "vocalog-gen-apt: %zu airports, %zu bytes\n", airports.size(), out.size());
    return 0;
}
