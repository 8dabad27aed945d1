// Preference files: the versioned output header and the two preference records.
#include "util/prefs.h"

#include <cstring>

#include "briefing/airports.h"
#include "briefing/phrasing.h"
#include "briefing/request.h"
#include "briefing/weather.h"
#include "shell/alert.h"
#include "shell/shutdown.h"
#include "util/file_reader.h"
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
        MACIBM_alert(0,
                     "I could not save the file! Could the directory that the file sits in be missing? Or flagged as "
                     "READ-ONLY by the operating system? (Windows machines typically do this).",
                     path, "Could the file be flagged as read-only? This happens in Windows if you copy it from a CD!",
                     "Try putting this app in the background and then flag the file as NOT read-only, or creating "
                     "the folder listed in the path above.",
                     ALERT_NOTE);
        return 0;
    }
    return 1;
}

// Four bytes as the file holds them (no byte reversal).
template <typename T>
static T take4(const unsigned char* p) {
    T v;
    memcpy(&v, p, 4);
    return v;
}

static void lang_res(int32_t direction, int32_t ok) {
    if (ok) {
        if (direction == PREF_READ) {
            unsigned char rec[20] = {};
            fio_read_bytes(rec, sizeof rec);
            disp_width = take4<float>(rec);
            disp_height = take4<float>(rec + 4);
            disp_bits = take4<float>(rec + 8);
            full_screen = take4<int32_t>(rec + 12);
            language = take4<int32_t>(rec + 16);
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

// The simulator's record after its header: fields at file offsets 5 to 1149.
static void sim_read() {
    constexpr int32_t BASE = 5;
    static unsigned char rec[1150 - BASE];
    memset(rec, 0, sizeof rec);
    fio_read_bytes(rec, sizeof rec);
    auto at = [](int32_t file_offset) { return rec + (file_offset - BASE); };
    BriefingRequest& q = brief_req;
    StationWeather& w = station_wx;

    q.departure = 0;
    q.destination = 0;
    Text block;
    memcpy(block, at(5), 500);
    str_copy(block, q.aircraft_name);
    memcpy(block, at(505), 500);
    str_copy(block, q.aircraft_path);
    memcpy(q.start_code, at(1005), 5);
    float local_hours = take4<float>(at(1022));
    w.pressure = take4<float>(at(1038));
    w.temperature = take4<float>(at(1042));
    float precip = take4<float>(at(1046));
    w.visibility = take4<float>(at(1062));
    for (int k = 0; k < 2; ++k) {
        w.cloud_kind[k] = take4<int32_t>(at(1066 + 4 * k));
        w.cloud_top[k] = take4<float>(at(1074 + 4 * k));
        w.cloud_base[k] = take4<float>(at(1082 + 4 * k));
    }
    w.wind_dir = take4<float>(at(1102 + 8));
    w.wind_speed = take4<float>(at(1114 + 8));
    w.gust = take4<float>(at(1138 + 8));

    w.wx_intensity = cut_to_int(((double)precip - 0.1) * 2.2222223 + 1.0);
    w.wx_kind = w.wx_intensity > 1 ? 1 : -99;

    for (int32_t i = 0; i <= apt_table.airport_count && i < APT_MAX; ++i) {
        if (memcmp(apt_table.apt_code[i], q.start_code, 4) == 0) {
            q.departure = i;
            q.destination = i;
        }
    }

    w.dewpoint = (float)((double)w.temperature - (double)w.visibility / (0.3048 * 6076.1155) * 2.0);

    double t = (double)local_hours - ((double)apt_lon(q.departure) / 15.0 + 1.0);
    int32_t n = cut_to_int(round_half_away(t));
    if (n < 0)
        n += 24;
    else if (n > 24)
        n -= 24;
    w.time = (float)((double)n * 3600.0);  // a damaged file's hour can be far out of range

    float lower = apt_table.apt_elev[q.departure] * unit_ft_to_m;
    w.cloud_base[0] -= lower;
    w.cloud_base[1] -= lower;
}

int32_t fio_prefs(int32_t record, int32_t direction, char* path) {
    if (record < 0 || record > 6 || direction < PREF_READ || direction > PREF_WRITE) {
        MACIBM_alert(0, "Bad pref arg!", "", "", "", ALERT_FATAL);
        alert_fatal_end();
    }
    const int32_t version = record == PREF_LANG_RES ? PREF_LANG_RES_VERSION : PREF_SIM_VERSION;
    const bool reading = direction == PREF_READ;
    int32_t ok = reading ? fio_open(path, PREF_TYPE, version, 0) : fio_save(path, PREF_TYPE, version);

    if (record == PREF_LANG_RES) lang_res(direction, ok);
    if (record == PREF_SIM && reading && ok) sim_read();

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
    shutdown_add_step(prefs_write_lang_res);
}
