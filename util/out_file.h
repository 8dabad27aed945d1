// The output file stream: standard-stream states, optional CR LF line ends, and a safe
// save of the target (see plat_save_begin): the old file or the new one, never a mix.
#pragma once
#include <cstdint>
#include <cstdio>

#include "platform/platform.h"
#include "util/file_stream.h"  // the FS_ state bits

constexpr size_t OUT_BUFFER = 64 * 1024;  // a file written in place reaches it only on close up to this size

struct OutFile {
    FILE* file = nullptr;
    uint8_t state = 0;         // FS_ bits; 0 is clean
    bool crlf = false;         // every "\n" written goes out as "\r\n"
    bool fixed = false;        // floats written in fixed-point notation
    bool visible = false;      // control characters other than "\n" written in caret form ("^[")
    bool saving = false;       // `save` holds the file: it is put in place on close
    int32_t error = 0;         // why the stream failed: an errno value, or PLAT_ERR_NOT_REGULAR
    PlatSave save;
    char buffer[OUT_BUFFER];
};

// Opens `path` for output. The target is replaced only when the stream is closed clean; a
// target that cannot be saved leaves the stream failed and the old file untouched.
void out_open(OutFile* f, const char* path, bool crlf);
// Writes to an already open standard stream (stdout); closing does not close it.
void out_attach(OutFile* f, FILE* stream);
// Closes the file: a clean stream is flushed and put in place of the target; a failed one
// is thrown away. Closing a stream with no file sets FS_FAIL, like a failed close.
void out_close(OutFile* f);
inline void out_clear(OutFile* f) { f->state = 0; }
inline bool out_good(const OutFile* f) { return f->state == 0; }
// Why the stream failed, as text ("" when no reason is known).
const char* out_reason(const OutFile* f);

void out_bytes(OutFile* f, const void* data, size_t count);  // raw, no line-end translation
void out_text(OutFile* f, const char* text);                 // with the line-end rule
void out_int(OutFile* f, int32_t value);
void out_float(OutFile* f, float value);
