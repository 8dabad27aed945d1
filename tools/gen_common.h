// Shared pieces of the sample-data generators: a seeded random source, argument and file helpers.
#pragma once
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace gen {

// SplitMix64: small, seedable and identical on every platform, so a seed always gives the same bytes.
struct Rng {
    uint64_t state;
    explicit Rng(uint64_t seed) : state(seed) {}
    uint64_t next() {
        uint64_t z = (state += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }
    // Whole number in [lo, hi].
    int range(int lo, int hi) { return lo + int(next() % uint64_t(hi - lo + 1)); }
    // Uniform in [0, 1).
    double unit() { return double(next() >> 11) * (1.0 / 9007199254740992.0); }
    bool chance(double p) { return unit() < p; }
    // Roughly normal (sum of four uniforms), mean 0, standard deviation sd.
    double normal(double sd) { return (unit() + unit() + unit() + unit() - 2.0) * 1.7320508 * sd; }
    template <class T>
    const T& pick(const std::vector<T>& v) { return v[next() % v.size()]; }
};

// FNV-1a of a text: gives each airport its own random stream, independent of file order.
inline uint64_t hash_text(const std::string& s) {
    uint64_t h = 1469598103934665603ull;
    for (unsigned char c : s) h = (h ^ c) * 1099511628211ull;
    return h;
}

[[noreturn]] inline void fail(const std::string& what) {
    std::fprintf(stderr, "%s\n", what.c_str());
    std::exit(1);
}

// "--name value" arguments; a missing value or an unknown name ends the program with a usage line.
struct Args {
    std::vector<std::pair<std::string, std::string>> items;
    Args(int argc, char** argv, const std::vector<std::string>& known, const char* usage) {
        for (int i = 1; i < argc; ++i) {
            std::string a = argv[i];
            bool ok = false;
            for (const auto& k : known) ok = ok || a == "--" + k;
            if (!ok || i + 1 >= argc) fail(std::string("usage: ") + usage);
            items.emplace_back(a.substr(2), argv[++i]);
        }
    }
    std::string get(const std::string& k, const std::string& dflt) const {
        for (const auto& it : items)
            if (it.first == k) return it.second;
        return dflt;
    }
    bool has(const std::string& k) const {
        for (const auto& it : items)
            if (it.first == k) return true;
        return false;
    }
};

inline void write_file(const std::string& path, const std::string& bytes) {
    FILE* f = std::fopen(path.c_str(), "wb");
    if (!f) fail("cannot write " + path);
    if (std::fwrite(bytes.data(), 1, bytes.size(), f) != bytes.size() || std::fclose(f) != 0)
        fail("cannot write " + path);
}

inline std::string read_file(const std::string& path) {
    FILE* f = std::fopen(path.c_str(), "rb");
    if (!f) fail("cannot read " + path);
    std::string s;
    char buf[65536];
    size_t n;
    while ((n = std::fread(buf, 1, sizeof buf, f)) > 0) s.append(buf, n);
    std::fclose(f);
    return s;
}

inline std::vector<std::string> split(const std::string& s, char sep) {
    std::vector<std::string> out;
    size_t start = 0;
    for (;;) {
        size_t p = s.find(sep, start);
        out.push_back(s.substr(start, p == std::string::npos ? std::string::npos : p - start));
        if (p == std::string::npos) return out;
        start = p + 1;
    }
}

// printf into a std::string.
template <class... A>
std::string fmt(const char* f, A... a) {
    char buf[512];
    std::snprintf(buf, sizeof buf, f, a...);
    return buf;
}

}  // namespace gen
