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

void out_text(OutFile* f, const char* text) {
    if (!f->crlf) {
        out_bytes(f, text, strlen(text));
        return;
    }
    const char* run = text;
    for (const char* p = text;; ++p) {
        if (*p != '\n' && *p != 0) continue;
        out_bytes(f, run, (size_t)(p - run));
        if (*p == 0) break;
        out_bytes(f, "\r\n", 2);
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
