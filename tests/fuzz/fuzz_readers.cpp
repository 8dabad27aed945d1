// libFuzzer entry: one reader of the program's files on arbitrary bytes, picked by the
// environment (VOCALOG_FUZZ_READER: apt, weather, aircraft, prefs, bitmap, menu, text), so each
// reader has its own corpus and its own figures. A fatal alert jumps back here, so only a
// sanitizer report or a crash is a finding.
#include <csetjmp>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "base/alert.h"
#include "briefing/aircraft.h"
#include "briefing/airports.h"
#include "briefing/composer.h"
#include "briefing/request.h"
#include "briefing/sim_prefs.h"
#include "briefing/weather.h"
#include "graphics/bitmap.h"
#include "graphics/qgl.h"
#include "shell/language.h"
#include "shell/menus.h"
#include "shell/text_table.h"
#include "tests/support/gl_recorder.h"
#include "util/file_reader.h"
#include "util/folders.h"
#include "util/paths.h"
#include "util/prefs.h"
#include "util/text.h"

enum Reader { APT, WEATHER, AIRCRAFT, PREFS, BITMAP, MENU, TEXT, READERS };
static const char* const reader_names[READERS] = {"apt", "weather", "aircraft", "prefs", "bitmap", "menu", "text"};

static jmp_buf back;

// A fatal end jumps back here with the reader's file still open (the program would have ended):
// the link wraps fopen and fclose (-Wl,--wrap) so the harness can close what is left open.
extern "C" FILE* __real_fopen(const char* name, const char* how);
extern "C" int __real_fclose(FILE* f);
static FILE* left_open = nullptr;
extern "C" FILE* __wrap_fopen(const char* name, const char* how) { return left_open = __real_fopen(name, how); }
extern "C" int __wrap_fclose(FILE* f) {
    if (f == left_open) left_open = nullptr;
    return __real_fclose(f);
}
static int reader = -1;
static std::string dir;  // this process's program folder
static char path[500];

// The weather world: stations of the sample weather file's first reports, spread out so that
// departure, midpoint and destination each find a different nearest report.
static void weather_world() {
    static const char* const codes[] = {"AGGH", "AGGM", "ANYN", "AQBC", "AYBA", "AYBK", "AYBM", "AYCH", "AYDU"};
    apt_reset();
    for (int i = 0; i < 9; ++i) {
        int32_t a = ++apt_table.airport_count, r = ++apt_table.runway_count;
        strcpy(apt_table.apt_code[a], codes[i]);
        apt_table.apt_first_rwy[a] = apt_table.apt_last_rwy[a] = r;
        apt_table.rwy_lat[r] = -10.0f + 2.5f * (float)i;
        apt_table.rwy_lon[r] = 150.0f + 1.5f * (float)i;
    }
}

// The recording GL stand-in without keeping the pixels of each upload: a texture of 1024 x 1024
// and its reduced copies would cost more than the reading that is fuzzed.
static void GLAPIENTRY no_upload(GLenum, GLint, GLint, GLsizei, GLsizei, GLint, GLenum, GLenum, const void*) {}
static void gl_without_uploads() {
    gl_recorder_install();
    qgl_load([](const char* name) { return strcmp(name, "glTexImage2D") == 0 ? (void*)no_upload : gl_recorder_proc(name); });
}

static void setup() {
    const char* name = getenv("VOCALOG_FUZZ_READER");
    for (int i = 0; i < READERS; ++i)
        if (name && strcmp(name, reader_names[i]) == 0) reader = i;
    if (reader < 0) {
        fprintf(stderr, "fuzz_readers: set VOCALOG_FUZZ_READER to apt, weather, aircraft, prefs, bitmap, menu or text\n");
        exit(2);
    }
    struct stat shm;  // in memory where there is a memory file system: each run writes its input
    dir = stat("/dev/shm", &shm) == 0 && S_ISDIR(shm.st_mode) ? "/dev/shm" : "/tmp";
    dir += "/vocalog-fuzz-" + std::to_string(getpid()) + "/";
    atexit([] { std::filesystem::remove_all(dir); });
    for (const char* sub : {"", "Resources/", "Resources/bitmaps/", "Resources/menus/", "Resources/menus/english/",
                            "Resources/menus/korean/"})
        mkdir((dir + sub).c_str(), 0755);
    folders_fill(dir.c_str(), dir.c_str());
    alert_set_box([](const char* const[4], int32_t) {});
    alert_set_fatal_end([] { longjmp(back, 1); });
    if (reader == BITMAP) gl_without_uploads();
    if (reader == WEATHER) weather_world();
}

// The file the reader opens; a menu file lies in the folder of the language its mode picks.
static std::string file_for_reader(uint8_t mode) {
    if (reader == BITMAP) return dir + "Resources/bitmaps/fuzz.bmp";
    if (reader != MENU) return dir + "input";
    language = mode & 1 ? LANG_KOREAN : LANG_ENGLISH;
    Text folder;
    language_folder(folders.path[FOLDER_MENUS], folder);
    str_append(folder, "fuzz.txt");
    path_to_platform(folder);
    return folder;
}

static void read_file(uint8_t mode) {
    switch (reader) {
    case APT:
        apt_reset();
        if (fio_open(path, FILE_TYPE_TEXT, 600, 1)) apt_scan(path);
        break;
    case WEATHER:
        str_copy(path, wx_file_path);
        brief_req_reset();
        str_copy("C172.acf", brief_req.aircraft_name);
        brief_req.departure = 1, brief_req.destination = 8, brief_req.speed = 100;
        brief_compose();
        break;
    case AIRCRAFT:
        acf_read(0, path);
        acf_intro_text(), speed_from_aircraft();
        break;
    case PREFS:
        brief_read_sim_prefs(path);
        fio_prefs(PREF_LANG_RES, PREF_READ, path);
        break;
    case BITMAP: {  // the first byte picks composing or a texture, the texture's filter and the driver's limit
        gl_rec().clear_log();
        gl_rec().integers[GL_MAX_TEXTURE_SIZE] = 1024 >> ((mode >> 5) & 3);  // below 1024, pictures are reduced
        const int32_t filter = BMP_GREY_ALPHA_MIP + (mode >> 1) % (BMP_RGB - BMP_GREY_ALPHA_MIP + 1);
        if (mode & 1) OGL_texbmp(BMP_COMPOSE, 0, BMP_RGB, "fuzz", nullptr, nullptr);
        else OGL_texbmp(BMP_TEXTURE, TEX_SHEET, filter, "fuzz", nullptr, nullptr);
        break;
    }
    case MENU:
        MACIBM_load_menus("fuzz.txt");
        break;
    default:
        text_file_read(path);
        break;
    }
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (reader < 0) setup();
    const bool moded = reader == BITMAP || reader == MENU;  // their first byte is the mode
    if (moded && size < 1) return 0;
    const uint8_t mode = moded ? data[0] : 0;
    const std::string file = file_for_reader(mode);
    FILE* f = fopen(file.c_str(), "wb");
    if (!f) return 0;
    fwrite(data + moded, 1, size - moded, f);
    fclose(f);
    snprintf(path, sizeof path, "%s", file.c_str());
    fio_reset();
    if (setjmp(back) == 0) read_file(mode);
    fio_reset();
    if (left_open) __real_fclose(left_open), left_open = nullptr;
    return 0;
}
