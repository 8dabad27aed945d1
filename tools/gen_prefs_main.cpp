// vocalog-gen-prefs: writes the simulator's preference file "Corvane 6 Zephyra.prf" for tests of a
// start without a weather file: marker "i", version 6510, then the fields the briefer reads (the
// last aircraft, the start airport and the weather) at their fixed offsets within the first 1150
// bytes. Fields the briefer skips get recognisable filler values; --size pads the file beyond 1150.
//
//   vocalog-gen-prefs --out PATH [--aircraft-name C172SP.acf] [--aircraft-path PATH] [--airport KSFO]
//     [--local-time 14.4] [--pressure 29.92] [--temperature 15] [--precip 0] [--visibility 16000]
//     [--cloud-kinds 2,4] [--cloud-tops 1500,4000] [--cloud-bases 900,3000]
//     [--wind-dirs 270,280,290] [--wind-speeds 5,10,15] [--gusts 0,0,5] [--size 1150]
#include "tools/gen_common.h"

namespace {

constexpr size_t MEANINGFUL = 1150;

std::vector<double> numbers(const std::string& list, size_t count, const char* name) {
    std::vector<double> out;
    for (const auto& f : gen::split(list, ',')) out.push_back(std::atof(f.c_str()));
    if (out.size() != count) gen::fail(gen::fmt("--%s needs %zu comma-separated values", name, count));
    return out;
}

template <class T>
void put(std::string& file, size_t off, T v) {
    std::memcpy(&file[off], &v, 4);  // stored as the machine holds it; the reader takes it as stored
}

void put_text(std::string& file, size_t off, size_t room, const std::string& text, const char* name) {
    if (text.size() >= room) gen::fail(gen::fmt("--%s is too long", name));
    file.replace(off, text.size(), text);
}

}  // namespace

int main(int argc, char** argv) {
    const char* usage = "vocalog-gen-prefs --out PATH [field options, see the source]";
    gen::Args args(argc, argv,
                   {"out", "aircraft-name", "aircraft-path", "airport", "local-time", "pressure", "temperature",
                    "precip", "visibility", "cloud-kinds", "cloud-tops", "cloud-bases", "wind-dirs", "wind-speeds",
                    "gusts", "size"},
                   usage);
    if (!args.has("out")) gen::fail(usage);
    const size_t size = std::max<size_t>(MEANINGFUL, std::strtoul(args.get("size", "1150").c_str(), nullptr, 10));
    std::string f(size, '\0');

    f[0] = 'i';
    put<int32_t>(f, 1, 6510);
    put_text(f, 5, 500, args.get("aircraft-name", "C172SP.acf"), "aircraft-name");
    put_text(f, 505, 500, args.get("aircraft-path", "Aircraft:C172SP.acf"), "aircraft-path");
    put_text(f, 1005, 5, args.get("airport", "KSFO"), "airport");
    // Filler for the skipped values: the reader must not take them for anything.
    for (size_t off : {1010u, 1014u, 1018u, 1026u, 1030u, 1034u, 1050u, 1054u, 1058u, 1090u, 1094u, 1098u, 1126u,
                       1130u, 1134u})
        put<float>(f, off, -7777.0f);
    put<float>(f, 1022, float(std::atof(args.get("local-time", "14.4").c_str())));
    put<float>(f, 1038, float(std::atof(args.get("pressure", "29.92").c_str())));
    put<float>(f, 1042, float(std::atof(args.get("temperature", "15").c_str())));
    put<float>(f, 1046, float(std::atof(args.get("precip", "0").c_str())));
    put<float>(f, 1062, float(std::atof(args.get("visibility", "16000").c_str())));
    const auto kinds = numbers(args.get("cloud-kinds", "2,4"), 2, "cloud-kinds");
    const auto tops = numbers(args.get("cloud-tops", "1500,4000"), 2, "cloud-tops");
    const auto bases = numbers(args.get("cloud-bases", "900,3000"), 2, "cloud-bases");
    for (size_t i = 0; i < 2; ++i) {
        put<int32_t>(f, 1066 + 4 * i, int32_t(kinds[i]));
        put<float>(f, 1074 + 4 * i, float(tops[i]));
        put<float>(f, 1082 + 4 * i, float(bases[i]));
    }
    const auto dirs = numbers(args.get("wind-dirs", "270,280,290"), 3, "wind-dirs");
    const auto speeds = numbers(args.get("wind-speeds", "5,10,15"), 3, "wind-speeds");
    const auto gusts = numbers(args.get("gusts", "0,0,5"), 3, "gusts");
    for (size_t i = 0; i < 3; ++i) {
        put<float>(f, 1102 + 4 * i, float(dirs[i]));
        put<float>(f, 1114 + 4 * i, float(speeds[i]));
        put<float>(f, 1138 + 4 * i, float(gusts[i]));
    }
    for (size_t off = MEANINGFUL; off < size; ++off) f[off] = char(0xA5);  // the reader stops at 1150
    gen::write_file(args.get("out", ""), f);
    return 0;
}
