// The output file stream with safe replacement of the target file.
#include "util/out_file.h"

#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

static bool stream_owned(const OutFile* f) {
    return f->file && f->file != stdout && f->file != stderr;
}

void out_open(OutFile* f, const char* path, bool crlf) {
    f->crlf = crlf;
    f->fixed = false;
    f->replace = false;
    f->file = nullptr;
    size_t n = strlen(path);
    if (n == 0 || n + 8 >= OUT_TEMP_PATH) {
        f->state |= FS_FAIL;
        return;
    }
    memcpy(f->target, path, n + 1);
    snprintf(f->temp, sizeof f->temp, "%s.XXXXXX", path);
    int fd = mkstemp(f->temp);
    if (fd < 0) {
        f->state |= FS_FAIL;
        return;
    }
    // mkstemp makes the file private; give it the mode an ordinary new file would get.
    mode_t mask = umask(0);
    umask(mask);
    fchmod(fd, 0666 & ~mask);
    f->file = fdopen(fd, "wb");
    if (!f->file) {
        close(fd);
        unlink(f->temp);
        f->state |= FS_FAIL;
        return;
    }
    f->replace = true;
}

void out_attach(OutFile* f, FILE* stream) {
    f->file = stream;
    f->crlf = false;
    f->fixed = false;
    f->replace = false;
}

void out_close(OutFile* f) {
    if (!f->file) {
        f->state |= FS_FAIL;
        return;
    }
    if (!stream_owned(f)) {
        if (fflush(f->file) != 0) f->state |= FS_BAD;
        f->file = nullptr;
        return;
    }
    bool ok = f->state == 0;
    if (fflush(f->file) != 0 || fsync(fileno(f->file)) != 0) ok = false;
    if (fclose(f->file) != 0) ok = false;
    f->file = nullptr;
    if (f->replace) {
        if (ok && rename(f->temp, f->target) != 0) ok = false;
        if (!ok) unlink(f->temp);
        f->replace = false;
    }
    if (!ok) f->state |= FS_FAIL;
}

void out_bytes(OutFile* f, const void* data, size_t count) {
    if (f->state || !f->file) {
        f->state |= FS_FAIL;
        return;
    }
    if (count && fwrite(data, 1, count, f->file) != count) f->state |= FS_BAD | FS_FAIL;
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
