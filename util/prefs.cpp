// Preference files: the versioned output header and the two preference records.
#include "util/prefs.h"

#include <cstring>

#include "base/alert.h"
#include "base/shutdown.h"
#include "util/file_reader.h"
#include "util/folders.h"
#include "util/paths.h"
#include "util/text.h"
#include "util/units.h"

OutFile fio_out;

float disp_width = 1024.0f, disp_height = 768.0f, disp_bits = 16.0f;
int32_t full_screen = 1;
int32_t language = -1;
float saved_disp_width, saved_disp_height, saved_disp_bits;

static Text lang_res_file;  // where the shut-down step writes

int32_t fio_save(char* path, int32_t type, int32_t version) {
    path_to_platform(path);
    folders_make_user_for(path);
    size_t n = strlen(path);
    if (n > 3)
        for (size_t i = n - 3; i < n; ++i) char_lower(&path[i]);

    out_clear(&fio_out);
    out_close(&fio_out);
    out_clear(&fio_out);
    if (fio_type_is_binary(type)) {
        out_open(&fio_out, path, false);
        unsigned char head[5] = {'i', (unsigned char)(version & 0xff), (unsigned char)((version >> 8) & 0xff),
                                 (unsigned char)((version >> 16) & 0xff), (unsigned char)((version >> 24) & 0xff)};
        out_bytes(&fio_out, head, sizeof head);
    } else {
        out_open(&fio_out, path, true);
        fio_out.fixed = true;
        out_text(&fio_out, "I\n");
        out_int(&fio_out, version);
        out_text(&fio_out, " version\n");
    }
    if (!out_good(&fio_out)) {
        MACIBM_alert(0, "I could not save the file! Could the directory that the file sits in be missing? Or flagged as "
                     "READ-ONLY by the operating system? (Windows machines typically do this).",
                     path, "Could the file be flagged as read-only? This happens in Windows if you copy it from a CD!",
                     "Try putting this app in the background and then flag the file as NOT read-only, or creating "
                     "the folder listed in the path above.",
                     ALERT_NOTE);
        return 0;
    }
    return 1;
}


static void lang_res(int32_t direction, int32_t ok) {
    if (ok) {
        if (direction == PREF_READ) {
            // Field by field: a file cut short keeps the defaults of the fields it lacks.
            void* const fields[] = {&disp_width, &disp_height, &disp_bits, &full_screen, &language};
            for (void* field : fields) {
                unsigned char b[4];
                if (fs_read(fio_stream(), b, 4) != 4) break;
                memcpy(field, b, 4);
            }
        } else {
            unsigned char rec[20];
            memcpy(rec, &saved_disp_width, 4);
            memcpy(rec + 4, &saved_disp_height, 4);
            memcpy(rec + 8, &saved_disp_bits, 4);
            memcpy(rec + 12, &full_screen, 4);
            memcpy(rec + 16, &language, 4);
            out_bytes(&fio_out, rec, sizeof rec);
        }
    }
    if (disp_width < 1024.0f || disp_width > 9999.0f) disp_width = 1024.0f;
    if (disp_height < 768.0f || disp_height > 9999.0f) disp_height = 768.0f;
    saved_disp_width = disp_width;
    saved_disp_height = disp_height;
    saved_disp_bits = disp_bits;
    disp_width = 1024.0f;
    disp_height = 768.0f;
}

static PrefRecordReader sim_reader = nullptr;

void prefs_set_sim_reader(PrefRecordReader reader) { sim_reader = reader; }

int32_t fio_prefs(int32_t record, int32_t direction, char* path) {
    if (record < 0 || record > 6 || direction < PREF_READ || direction > PREF_WRITE) {
        MACIBM_fatal("Bad pref arg!");
    }
    const int32_t version = record == PREF_LANG_RES ? PREF_LANG_RES_VERSION : PREF_SIM_VERSION;
    const bool reading = direction == PREF_READ;
    int32_t ok = reading ? fio_open(path, FILE_TYPE_PREFS, version, 0) : fio_save(path, FILE_TYPE_PREFS, version);

    if (record == PREF_LANG_RES) lang_res(direction, ok);
    if (record == PREF_SIM && reading && ok && sim_reader) sim_reader();

    if (ok) {
        if (reading)
            fio_close();
        else
            out_close(&fio_out);
    }
    return ok;
}

void prefs_write_lang_res() {
    Text path;
    str_copy(lang_res_file, path);
    fio_prefs(PREF_LANG_RES, PREF_WRITE, path);
}

void prefs_init(const char* lang_res_path) {
    full_screen = 1;
    disp_width = 1024.0f;
    disp_height = 768.0f;
    disp_bits = 16.0f;
    language = -1;
    str_copy(lang_res_path, lang_res_file);
    shutdown_set_step(SHUTDOWN_PREFS, prefs_write_lang_res);
}
