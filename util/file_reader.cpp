// The data-file reader: file slots, marker and version header, and the field reads.
#include "util/file_reader.h"

#include <cstring>

#include "base/alert.h"
#include "util/file_types.h"
#include "util/paths.h"

thread_local int32_t fio_cur_slot = 0;
thread_local int32_t fio_swap = 0;
thread_local char fio_eol = '\n';
thread_local char fio_line_buf[500];

static FileStream slots[FIO_SLOTS];
static int32_t slot_binary[FIO_SLOTS];

FileStream* fio_stream() { return &slots[fio_cur_slot]; }

void fio_reset() {
    for (auto& s : slots) {
        if (s.file) fs_close(&s);
        s.state = 0;
    }
    fio_cur_slot = 0;
    fio_swap = 0;
    fio_eol = '\n';
    fio_line_buf[0] = 0;
}

bool fio_type_is_binary(int32_t type) {
    switch (type) {
        case FILE_TYPE_WEAPON: case FILE_TYPE_AIRCRAFT: case FILE_TYPE_FLIGHT_PLAN: case FILE_TYPE_CAR:
        case FILE_TYPE_SPA: case FILE_TYPE_OTHER_BINARY: case FILE_TYPE_PREFS: return true;
        default: return false;
    }
}

// Four raw bytes in the file's byte order, or false at the end of the data.
static bool read_raw4(unsigned char out[4]) {
    if (fs_read(fio_stream(), out, 4) != 4) return false;
    if (fio_swap == 1) fio_swap4(out);
    return true;
}

int32_t fio_open(char* path, int32_t type, int32_t version, int32_t warn) {
    if (fio_cur_slot < 0 || fio_cur_slot >= FIO_SLOTS) {
        MACIBM_fatal("Bad file-use index!", "", "", "");
    }
    path_to_platform(path);
    FileStream* s = fio_stream();
    s->state = 0;
    fs_close(s);
    s->state = 0;
    bool binary = fio_type_is_binary(type);
    fs_open(s, path, !binary);
    if (!fs_good(s) && path_find_case_blind(path)) {  // resource names as another system spelled them
        s->state = 0;
        fs_open(s, path, !binary);
    }
    slot_binary[fio_cur_slot] = binary ? 1 : 0;
    if (!fs_good(s)) return 0;

    char marker = 0;
    if (binary) {
        fs_read(s, &marker, 1);
        if (marker != 'a' && marker != 'i') return 0;
        fio_swap = marker == 'a' ? 1 : 0;
    } else {
        int c = fs_get(s);
        if (c >= 0) marker = (char)c;
        c = fs_get(s);
        if (c >= 0) fio_eol = (char)c;
        if (marker != 'A' && marker != 'I') return 0;
    }
    if (version > 0) {
        // A file that ends inside its header fails quietly; a version line that holds
        // something other than a number is a damaged file (the scan check's alert).
        int32_t found = 0;
        if (binary) {
            unsigned char b[4];
            if (!read_raw4(b)) return 0;
            memcpy(&found, b, 4);
        } else {
            if (!fs_skip_space(s)) return 0;
            found = fio_read_int(path);
        }
        if (found != version) {
            if (warn != 1) return 0;
            if (type == FILE_TYPE_AIRCRAFT)
                MACIBM_fatal("The following file is the wrong version aircraft for this version of Zephyra:",
                             path,
                             "You MAY be able to get the aircraft up to date by opening it and re-saving it in Hullwright.",
                             "Hullwright can open some older format aircraft and then, when you save them, saves them in the newest format, which Zephyra always needs.");
            MACIBM_fatal("The following file is the wrong version for this version of Zephyra:", path,
                             "Throw that file away. You should only use the files that came with the program.",
                             "You may have to re-install Zephyra from the CD.");
        }
        if (!binary) fio_read_line(fio_line_buf, 500);
    }
    return fs_good(s) ? 1 : 0;
}

void fio_scan_ok(const char* label) {
    if (!(fio_stream()->state & (FS_FAIL | FS_BAD))) return;
    MACIBM_fatal("File-scanning error!", "", "file:", label);
}

void fio_swap4(void* p) {
    unsigned char* b = (unsigned char*)p;
    unsigned char t = b[0];
    b[0] = b[3];
    b[3] = t;
    t = b[1];
    b[1] = b[2];
    b[2] = t;
}


int32_t fio_read_int(const char* label) {
    int32_t v = 0;
    if (slot_binary[fio_cur_slot]) {
        unsigned char b[4];
        if (read_raw4(b)) memcpy(&v, b, 4);
    } else {
        fs_read_int(fio_stream(), &v);
    }
    fio_scan_ok(label);
    return v;
}

float fio_read_flt(const char* label) {
    float v = 0;
    if (slot_binary[fio_cur_slot]) {
        unsigned char b[4];
        if (read_raw4(b)) memcpy(&v, b, 4);
    } else {
        fs_read_float(fio_stream(), &v);
    }
    fio_scan_ok(label);
    return v;
}

char fio_read_char() {
    char c = 0;
    fs_read_char(fio_stream(), &c);
    return c;
}

void fio_read_word(char* buf, int32_t size) {
    FileStream* s = fio_stream();
    int32_t kept = 0;
    for (;;) {
        int c = fs_get(s);
        if (c < 0) break;
        bool delim = c == ' ' || c == '\t' || c == (unsigned char)fio_eol;
        if (delim) {
            if (kept == 0) continue;
            break;
        }
        if (kept < size - 1) buf[kept] = (char)c;
        ++kept;
    }
    buf[kept < size - 1 ? kept : size - 1] = 0;
}

void fio_read_line(char* buf, int32_t size) {
    FileStream* s = fio_stream();
    if (slot_binary[fio_cur_slot]) {
        fs_read(s, buf, (size_t)size);
        return;
    }
    int32_t kept = 0;
    bool started = false;
    for (;;) {
        int c = fs_get(s);
        if (c < 0 || c == (unsigned char)fio_eol || c == '\r') break;
        if (!started && (c == ' ' || c == '\t')) continue;
        started = true;
        if (kept < size - 1) buf[kept++] = (char)c;
    }
    buf[kept] = 0;
}

int32_t fio_read_fields(const char* kinds, void* const out[]) {
    return !slot_binary[fio_cur_slot] && fs_read_fields(fio_stream(), kinds, out) ? 1 : 0;
}

void fio_read_bytes(void* buf, int32_t count) { fs_read(fio_stream(), buf, (size_t)count); }

void fio_close() { fs_close(fio_stream()); }
