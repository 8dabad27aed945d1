// The output file stream: standard-stream states, optional CR LF line ends, and a safe
// replace (data goes to a temporary file beside the target, renamed over it on close).
#pragma once
#include <cstdint>
#include <cstdio>

#include "util/file_stream.h"  // the FS_ state bits

constexpr int OUT_TEMP_PATH = 4096;

struct OutFile {
    FILE* file = nullptr;
    uint8_t state = 0;         // FS_ bits; 0 is clean
    bool crlf = false;         // every "\n" written goes out as "\r\n"
    bool fixed = false;        // floats written in fixed-point notation
    bool replace = false;      // the file is a temporary one, renamed over `target` on close
    char target[OUT_TEMP_PATH];
    char temp[OUT_TEMP_PATH];
};

// Opens `path` for output, replacing the file only when the stream is closed clean: the
// data is written to a temporary file in the same folder first. A file that cannot be
// created leaves the stream failed (and the old file untouched).
void out_open(OutFile* f, const char* path, bool crlf);
// Writes to an already open standard stream (stdout); closing does not close it.
void out_attach(OutFile* f, FILE* stream);
// Closes the file: a clean stream is flushed and renamed over the target; a failed one is
// thrown away. Closing a stream with no file sets FS_FAIL, like a failed close.
void out_close(OutFile* f);
inline void out_clear(OutFile* f) { f->state = 0; }
inline bool out_good(const OutFile* f) { return f->state == 0; }

void out_bytes(OutFile* f, const void* data, size_t count);  // raw, no line-end translation
void out_text(OutFile* f, const char* text);                 // with the line-end rule
void out_int(OutFile* f, int32_t value);
void out_float(OutFile* f, float value);
