// Preference files: the shared output stream with its versioned header, and the reading
// and writing of the language-and-resolution and simulator preference records.
#pragma once
#include <cstdint>

#include <cstring>

#include "util/file_types.h"
#include "util/out_file.h"

extern OutFile fio_out;  // the program's one output file stream

// Display and interface settings the language-and-resolution file carries.
extern float disp_width, disp_height, disp_bits;
extern int32_t full_screen;
extern int32_t language;
// The display size found in that file, written back unchanged.
extern float saved_disp_width, saved_disp_height, saved_disp_bits;

enum : int32_t { PREF_SIM = 0, PREF_LANG_RES = 1 };
enum : int32_t { PREF_READ = 7, PREF_WRITE = 8 };

constexpr int32_t PREF_LANG_RES_VERSION = 3;
constexpr int32_t PREF_SIM_VERSION = 6510;

// Opens `path` (changed in place to the platform's form, extension lower-cased) in fio_out
// and writes the marker and version header: binary types get "i" and a 4-byte version,
// the others the two text lines "I" and "<version> version" with CR LF line ends.
// 1 when open and clean; 0 after the could-not-save alert.
int32_t fio_save(char* path, int32_t type, int32_t version);

// Four bytes as a file holds them (no byte reversal).
template <typename T>
T prefs_take4(const unsigned char* p) {
    T v;
    memcpy(&v, p, 4);
    return v;
}

// The reader of the simulator's record, called with the file open after its header; the
// briefing installs it (the record fills the briefing's request and weather).
using PrefRecordReader = void (*)();
void prefs_set_sim_reader(PrefRecordReader reader);

// Reads or writes one preference record; 1 when the file could be opened (and, reading,
// its header was accepted), else 0. `path` is changed in place.
int32_t fio_prefs(int32_t record, int32_t direction, char* path);

// Display and interface defaults (1024 x 768 x 16, full screen, no language yet), and the
// shut-down step that writes the language-and-resolution file to `lang_res_path`.
void prefs_init(const char* lang_res_path);
void prefs_write_lang_res();  // the shut-down step itself
