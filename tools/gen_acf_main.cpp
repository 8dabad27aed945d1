// vocalog-gen-acf: writes aircraft files (.acf) laid out as the aircraft reader expects.
//
// File: a marker byte ("i" low byte first, "a" high byte first), the version (600 or 626) in that
// byte order, then one data block (433688 or 454980 bytes). The briefer uses the introduction text
// (block offset 0), the byte-order flag (1048), the reference speed (1104) and the engine kind of
// the first engine (6172); the generator also fills the block's text fields and a run of opaque
// numbers, so that a reader that swaps the wrong words is caught. In a high-byte-first file every
// 4-byte word is stored reversed except the words of the text fields.
//
//   vocalog-gen-acf --set DIR                     the sample world's aircraft (in folders) and notes
//   vocalog-gen-acf --file PATH --intro N172SP --speed 150 --engine 1 [--version 626] [--marker i]
//                   [--description TEXT]
#include <cmath>
#include <filesystem>

#include "tools/gen_common.h"

namespace {

constexpr size_t BLOCK_600 = 433688;
constexpr size_t BLOCK_626 = 454980;
constexpr size_t OFF_INTRO = 0, OFF_DESC = 40, OFF_AUTHOR = 540, OFF_SWAP = 1048, OFF_SPEED = 1104,
                 OFF_ENGINE = 6172, OFF_NOTES = 433688;
constexpr size_t TABLE_STARTS[4] = {7584, 9864, 12144, 14424};
constexpr size_t OFF_OPAQUE = 20000, OPAQUE_WORDS = 256;

struct Aircraft {
    std::string file, intro, description;
    float speed;
    int32_t engine;
    int32_t version;
    char marker;
};

// Byte ranges of the block's text fields, which keep their byte order in either file order.
std::vector<std::pair<size_t, size_t>> text_fields() {
    std::vector<std::pair<size_t, size_t>> t{{0, 36}, {40, 496}, {540, 496}};
    for (size_t start : TABLE_STARTS)
        for (size_t i = 0; i < 57; ++i) t.emplace_back(start + i * 40, 36);
    for (size_t i = 0; i < 24; ++i) t.emplace_back(OFF_NOTES + i * 500, 496);
    return t;
}

void put_text(std::string& block, size_t off, size_t room, const std::string& text) {
    if (off + room > block.size()) return;  // the notes exist only in the larger block
    const size_t n = std::min(text.size(), room - 1);
    block.replace(off, n, text.substr(0, n));
}

template <class T>
void put(std::string& block, size_t off, T v) {
    std::memcpy(&block[off], &v, 4);
}

void swap_word(std::string& block, size_t off) {
    std::swap(block[off], block[off + 3]);
    std::swap(block[off + 1], block[off + 2]);
}

std::string make_file(const Aircraft& a) {
    if (a.version != 600 && a.version != 626) gen::fail("version must be 600 or 626");
    if (a.marker != 'a' && a.marker != 'i') gen::fail("marker must be a or i");
    if (a.intro.size() > 35) gen::fail("introduction text longer than 35 characters");
    std::string block(BLOCK_626, '\0');  // built at full size; a version-600 file stores the first part

    put_text(block, OFF_INTRO, 36, a.intro);
    put_text(block, OFF_DESC, 496, a.description);
    put_text(block, OFF_AUTHOR, 496, "Vocalog sample world (vocalog-gen-acf)");
    static const char* table_names[4] = {"engine", "wing", "body", "gear"};
    for (int t = 0; t < 4; ++t)
        for (int i = 0; i < 57; i += 7) put_text(block, TABLE_STARTS[t] + i * 40, 36, gen::fmt("%s %d", table_names[t], i + 1));
    for (int i = 0; i < 24; i += 5) put_text(block, OFF_NOTES + i * 500, 496, gen::fmt("note %d for %s", i + 1, a.intro.c_str()));

    put<int32_t>(block, OFF_SWAP, a.marker == 'a' ? 1 : 0);
    put<float>(block, OFF_SPEED, a.speed);
    put<int32_t>(block, OFF_ENGINE, a.engine);
    // Opaque engineering numbers: the briefer never reads them, but they must come out as stored.
    for (size_t i = 0; i < OPAQUE_WORDS; ++i) {
        if (i % 2 == 0) put<float>(block, OFF_OPAQUE + i * 4, float(a.speed * 0.01 * double(i + 1)));
        else put<int32_t>(block, OFF_OPAQUE + i * 4, int32_t(i * 1000003u + a.engine));
    }

    block.resize(a.version == 600 ? BLOCK_600 : BLOCK_626);
    if (a.marker == 'a') {
        // High byte first: reverse every word, then put the text fields back as they read.
        for (size_t off = 0; off + 4 <= block.size(); off += 4) swap_word(block, off);
        for (const auto& [start, len] : text_fields())
            for (size_t off = start; off < start + len && off + 4 <= block.size(); off += 4) swap_word(block, off);
    }

    std::string file(1, a.marker);
    uint8_t v[4] = {uint8_t(a.version), uint8_t(a.version >> 8), 0, 0};
    if (a.marker == 'a') file.append({char(v[3]), char(v[2]), char(v[1]), char(v[0])});
    else file.append({char(v[0]), char(v[1]), char(v[2]), char(v[3])});
    return file + block;
}

// The sample world's hangar: a piston single and twin, a turboprop in the older format and a jet
// stored high byte first at the top; more in folders by kind, one two levels down and one with a
// name too long for the file chooser to show whole, so that the chooser has a tree to walk.
const std::vector<Aircraft> SAMPLE_SET = {
    {"C172SP.acf", "N172SP", "Four-seat piston single, fuel injected", 150.0f, 1, 626, 'i'},
    {"Baron58.acf", "N58BE", "Six-seat piston twin, carburetted", 210.0f, 0, 626, 'i'},
    {"KingAir350.acf", "N350KA", "Twin turboprop, older file format", 275.0f, 2, 600, 'i'},
    {"CitationCJ4.acf", "N525CJ", "Light business jet, high-bypass fans, stored high byte first", 300.0f, 5, 626, 'a'},
    {"Singles/PA28-181 Archer.acf", "N181PA", "Four-seat piston single, older file format", 125.0f, 0, 600, 'i'},
    {"Singles/M20J Mooney.acf", "N201MJ", "Four-seat piston single, stored high byte first", 165.0f, 1, 626, 'a'},
    {"Twins/PA34-220T Seneca V, turbocharged piston twin.acf", "N34SV", "Six-seat turbocharged piston twin",
     185.0f, 1, 626, 'i'},
    {"Jets/Business/Learjet 45.acf", "N45LJ", "Mid-size business jet, stored high byte first", 440.0f, 4, 626, 'a'},
};

// A file beside the aircraft that is not one: the file chooser's aircraft filter leaves it out.
constexpr const char* NOTES_FILE = "Hangar notes.txt";

std::string hangar_notes() {
    std::string s = "Sample hangar, written by vocalog-gen-acf. Open the .acf files from the briefing screen.\n\n";
    for (const auto& a : SAMPLE_SET)
        s += gen::fmt("%-56s %-7s %3.0f kt  %s\n", a.file.c_str(), a.intro.c_str(), a.speed, a.description.c_str());
    return s;
}

}  // namespace

int main(int argc, char** argv) {
    const char* usage =
        "vocalog-gen-acf --set DIR | --file PATH --intro TEXT --speed KNOTS --engine KIND [--version 600|626] "
        "[--marker a|i] [--description TEXT]";
    gen::Args args(argc, argv, {"set", "file", "intro", "speed", "engine", "version", "marker", "description"}, usage);
    if (args.has("set")) {
        const std::filesystem::path dir = args.get("set", "");
        for (const auto& a : SAMPLE_SET) {
            std::filesystem::create_directories((dir / a.file).parent_path());
            gen::write_file((dir / a.file).string(), make_file(a));
        }
        gen::write_file((dir / NOTES_FILE).string(), hangar_notes());
        std::fprintf(stderr, "vocalog-gen-acf: %zu aircraft and %s\n", SAMPLE_SET.size(), NOTES_FILE);
        return 0;
    }
    if (!args.has("file") || !args.has("intro") || !args.has("speed") || !args.has("engine")) gen::fail(usage);
    Aircraft a{args.get("file", ""), args.get("intro", ""), args.get("description", "Test aircraft"),
               float(std::atof(args.get("speed", "0").c_str())), std::atoi(args.get("engine", "0").c_str()),
               std::atoi(args.get("version", "626").c_str()), args.get("marker", "i")[0]};
    gen::write_file(a.file, make_file(a));
    return 0;
}
