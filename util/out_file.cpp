// The output file stream with a safe save of the target file.
#include "util/out_file.h"

#include <cerrno>
#include <cstring>
#include <stdio_ext.h>
#include <unistd.h>

static bool stream_owned(const OutFile* f) {
    return f->file && f->file != stdout && f->file != stderr;
}

static void fail(OutFile* f, int32_t error) {
    f->state |= FS_FAIL;
    if (!f->error) f->error = error;
}

void out_open(OutFile* f, const char* path, bool crlf) {
    f->crlf = crlf;
    f->fixed = false;
    f->visible = false;
    f->saving = false;
    f->file = nullptr;
    f->error = 0;
    if (!plat_save_begin(path, &f->save)) {
        fail(f, f->save.error);
        return;
    }
    f->file = fdopen(f->save.fd, "wb");
    if (!f->file) {
        fail(f, errno);
        plat_save_end(&f->save, false);
        close(f->save.fd);
        return;
    }
    // In place, the data stays in the buffer until the close, so a failed stream leaves the old file.
    if (f->save.how == PLAT_SAVE_IN_PLACE) setvbuf(f->file, f->buffer, _IOFBF, sizeof f->buffer);
    f->saving = true;
}

void out_attach(OutFile* f, FILE* stream) {
    f->file = stream;
    f->crlf = false;
    f->fixed = false;
    f->visible = false;
    f->saving = false;
    f->error = 0;
}

void out_close(OutFile* f) {
    if (!f->file) {
        f->state |= FS_FAIL;
        return;
    }
    if (!stream_owned(f)) {
        if (fflush(f->file) != 0) fail(f, errno), f->state |= FS_BAD;
        f->file = nullptr;
        return;
    }
    const int fd = fileno(f->file);
    const bool in_place = f->save.how == PLAT_SAVE_IN_PLACE;
    bool ok = f->state == 0;
    if (!ok && in_place) __fpurge(f->file);
    if (ok && fflush(f->file) != 0) ok = false, fail(f, errno);
    if (ok && in_place && ftruncate(fd, ftello(f->file)) != 0) ok = false, fail(f, errno);
    if (ok && fsync(fd) != 0) ok = false, fail(f, errno);
    if (f->saving && !plat_save_end(&f->save, ok) && ok) ok = false, fail(f, f->save.error);
    if (fclose(f->file) != 0 && ok) fail(f, errno);
    f->file = nullptr;
    f->saving = false;
    if (!ok) f->state |= FS_FAIL;
}

const char* out_reason(const OutFile* f) { return f->error ? plat_save_reason(f->error) : ""; }

void out_bytes(OutFile* f, const void* data, size_t count) {
    if (f->state || !f->file) {
        f->state |= FS_FAIL;
        return;
    }
    if (count && fwrite(data, 1, count, f->file) != count) {
        fail(f, errno);
        f->state |= FS_BAD;
    }
}

// A run of text with control characters shown as ^X (ESC as ^[, DEL as ^?), so that text
// from a data file cannot drive the terminal it is shown on.
static void out_visible(OutFile* f, const char* text, size_t count) {
    const char* run = text;
    for (const char* p = text; p < text + count; ++p) {
        unsigned char c = (unsigned char)*p;
        if (c >= 0x20 && c != 0x7f) continue;
        out_bytes(f, run, (size_t)(p - run));
        char caret[2] = {'^', (char)(c ^ 0x40)};
        out_bytes(f, caret, 2);
        run = p + 1;
    }
    out_bytes(f, run, (size_t)(text + count - run));
}

static void out_run(OutFile* f, const char* text, size_t count) {
    if (f->visible) out_visible(f, text, count);
    else out_bytes(f, text, count);
}

void out_text(OutFile* f, const char* text) {
    const char* run = text;
    for (const char* p = text;; ++p) {
        if (*p != '\n' && *p != 0) continue;
        out_run(f, run, (size_t)(p - run));
        if (*p == 0) break;
        out_bytes(f, f->crlf ? "\r\n" : "\n", f->crlf ? 2 : 1);
        run = p + 1;
    }
}

void out_int(OutFile* f, int32_t value) {
    char buf[16];
    snprintf(buf, sizeof buf, "%d", value);
    out_text(f, buf);
}

void out_float(OutFile* f, float value) {
    char buf[64];
    snprintf(buf, sizeof buf, f->fixed ? "%f" : "%g", (double)value);
    out_text(f, buf);
}
