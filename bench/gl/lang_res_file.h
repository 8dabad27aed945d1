// The language-and-resolution preferences a benchmark's per-user folder starts with.
#pragma once
#include <cstdint>
#include <filesystem>
#include <fstream>

// Writes `user_folder`/Zephyra's preferences: English, a 1024 x 768 window at 32 bits, so a
// start shows no language chooser.
inline void bench_write_lang_res(const std::filesystem::path& user_folder) {
    std::filesystem::create_directories(user_folder / "Zephyra");
    std::ofstream prefs(user_folder / "Zephyra" / "Corvane 6 Language & Res.prf", std::ios::binary);
    const int32_t version = 3, full_screen = 0, english = 0;
    const float width = 1024, height = 768, bits = 32;
    prefs.put('i');
    for (const void* p : {(const void*)&version, (const void*)&width, (const void*)&height, (const void*)&bits,
                          (const void*)&full_screen, (const void*)&english})
        prefs.write((const char*)p, 4);
}
