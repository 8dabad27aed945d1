// The layer rule over the whole source tree: an #include never climbs a layer, and no symbol is weak.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

const std::map<std::string, int> layers = {  // folder, layer (lowest first)
    {"platform", 0}, {"base", 1},  {"util", 2},     {"graphics", 3}, {"window", 4},
    {"kit", 5},      {"shell", 6}, {"briefing", 7}, {"app", 8},      {"cli", 8}};

struct Source {
    std::string path, folder;  // path relative to the source folder; its top folder
    std::vector<std::string> lines;
};

std::vector<Source> layer_sources() {
    const char* root = std::getenv("VOCALOG_SOURCE_DIR");  // set by the test entry
    std::vector<Source> out;
    for (const auto& [folder, layer] : layers) {
        if (!root || !fs::is_directory(fs::path(root) / folder)) continue;
        for (const auto& e : fs::recursive_directory_iterator(fs::path(root) / folder)) {
            const std::string ext = e.path().extension().string();
            if (!e.is_regular_file() || (ext != ".cpp" && ext != ".h")) continue;
            Source s{fs::relative(e.path(), root).string(), folder, {}};
            std::ifstream in(e.path());
            for (std::string line; std::getline(in, line);) s.lines.push_back(line);
            out.push_back(std::move(s));
        }
    }
    return out;
}

// The quoted path of an #include line ("" for any other line or an <...> include).
std::string included(const std::string& line) {
    size_t p = line.find_first_not_of(" \t");
    if (p == std::string::npos || line[p] != '#') return "";
    p = line.find_first_not_of(" \t", p + 1);
    if (line.compare(p, 7, "include") != 0) return "";
    const size_t open = line.find('"', p + 7), close = open == std::string::npos ? open : line.find('"', open + 1);
    return close == std::string::npos ? "" : line.substr(open + 1, close - open - 1);
}

TEST(Layers, NoIncludeClimbsALayer) {
    const std::vector<Source> sources = layer_sources();
    ASSERT_GT(sources.size(), 50u) << "the sources were not found under VOCALOG_SOURCE_DIR";
    for (const Source& s : sources)
        for (size_t n = 0; n < s.lines.size(); ++n) {
            const std::string inc = included(s.lines[n]);
            const auto to = layers.find(inc.substr(0, inc.find('/')));
            if (to != layers.end() && to->second > layers.at(s.folder))
                ADD_FAILURE() << s.path << ":" << n + 1 << " (layer " << layers.at(s.folder) << ") includes " << inc
                              << " (layer " << to->second << ")";
        }
}

TEST(Layers, NoWeakSymbols) {  // a higher layer reaches down by installing a function pointer instead
    for (const Source& s : layer_sources())
        for (size_t n = 0; n < s.lines.size(); ++n)
            for (const char* weak : {"gnu::weak", "__attribute__((weak", "__attribute__ ((weak", "#pragma weak"})
                if (s.lines[n].find(weak) != std::string::npos)
                    ADD_FAILURE() << s.path << ":" << n + 1 << ": " << s.lines[n];
}

}  // namespace
