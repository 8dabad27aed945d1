// The layer rule over the whole source tree: an #include never climbs a layer, and no symbol is weak.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <string>

namespace fs = std::filesystem;

const std::map<std::string, int> layers = {  // folder, layer (lowest first)
    {"platform", 0}, {"base", 1},  {"util", 2},     {"graphics", 3}, {"window", 4},
    {"kit", 5},      {"shell", 6}, {"briefing", 7}, {"app", 8},      {"cli", 8}};

// Every line of the layers' C++ files: its folder's layer, "path:line" and the text.
template <class Check> void each_line(Check check) {
    const char* root = std::getenv("VOCALOG_SOURCE_DIR");  // set by the test entry
    int files = 0;
    for (const auto& [folder, layer] : layers)
        for (const auto& e : fs::recursive_directory_iterator(fs::path(root ? root : "") / folder)) {
            const std::string ext = e.path().extension().string();
            if (!e.is_regular_file() || (ext != ".cpp" && ext != ".h")) continue;
            std::ifstream in(e.path());
            int n = 0, l = layer;
            ++files;
            for (std::string line; std::getline(in, line);)
                check(l, fs::relative(e.path(), root).string() + ":" + std::to_string(++n), line);
        }
    ASSERT_GT(files, 50) << "the sources were not found under VOCALOG_SOURCE_DIR";
}

TEST(Layers, NoIncludeClimbsALayer) {
    const std::regex include(R"(^\s*#\s*include\s*"(\w+)/)");
    each_line([&](int layer, const std::string& where, const std::string& line) {
        std::smatch m;
        if (!std::regex_search(line, m, include) || !layers.count(m[1])) return;
        EXPECT_LE(layers.at(m[1]), layer) << where << " (layer " << layer << ") includes " << line;
    });
}

TEST(Layers, NoWeakSymbols) {  // a higher layer reaches down by installing a function pointer instead
    const std::regex weak(R"(gnu::weak|__attribute__\s*\(\(weak|#pragma weak)");
    each_line([&](int, const std::string& where, const std::string& line) {
        EXPECT_FALSE(std::regex_search(line, weak)) << where << ": " << line;
    });
}
