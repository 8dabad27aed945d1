// vocalog-gen-art: writes the program's bitmaps and the Korean menu file into a program folder.
//   vocalog-gen-art --out <program folder> --menu-source <tools/art/korean_menu.txt>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "tools/art/art.h"

namespace art {

void fail(const std::string& what) {
    fprintf(stderr, "vocalog-gen-art: %s\n", what.c_str());
    exit(1);
}

static void write(const std::filesystem::path& path, const std::string& bytes) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream f(path, std::ios::binary);
    if (!(f << bytes) || !f.flush()) fail("cannot write " + path.string());
}

}  // namespace art

int main(int argc, char** argv) {
    std::string out, source;
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string k = argv[i];
        if (k == "--out") out = argv[i + 1];
        else if (k == "--menu-source") source = argv[i + 1];
        else art::fail("unknown argument " + k);
    }
    if (out.empty() || source.empty() || argc % 2 == 0)
        art::fail("usage: vocalog-gen-art --out <program folder> --menu-source <korean_menu.txt>");
    std::ifstream in(source, std::ios::binary);
    std::stringstream menu;
    if (!(menu << in.rdbuf())) art::fail("cannot read " + source);

    const std::filesystem::path res = std::filesystem::path(out) / "Resources";
    art::write(res / "bitmaps/general_interface.bmp", art::paint_sheet().bmp());
    for (int lang = 0; lang < 6; ++lang) art::write(res / "bitmaps" / art::intro_file(lang), art::paint_intro(lang).bmp());
    art::Canvas glyphs(512, 512, art::MAGENTA);
    const std::string menus = art::korean_menus(menu.str(), glyphs);
    art::write(res / "menus/korean/menu_text.bmp", glyphs.bmp());
    art::write(res / "menus/korean/Vocalog.txt", menus);
    return 0;
}
