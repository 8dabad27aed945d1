// A buffered input file with the states of a standard stream, parsing numbers in place.
#pragma once
#include <cstddef>
#include <cstdint>
#include <cstdio>

enum : uint8_t { FS_EOF = 1, FS_FAIL = 2, FS_BAD = 4 };

constexpr size_t FS_BLOCK = 64 * 1024;   // bytes read from the file at a time
constexpr size_t FS_LOOKAHEAD = 64;      // bytes kept in view while a number is parsed
constexpr size_t FS_FIELDS_VIEW = 1024;  // bytes kept in view for a line of fields read at once

struct FileStream {
    FILE* file = nullptr;
    bool text = false;      // text mode: a CR directly followed by LF arrives as one LF
    uint8_t state = 0;      // FS_ bits; 0 is clean
    bool drained = false;   // the file has no more bytes to give
    size_t pos = 0, len = 0;
    int64_t size = 0;       // bytes in the file when it was opened
    unsigned char block[FS_BLOCK + 1];
};

// Opens `path` (platform form) when it is a regular file; anything else, or a file that
// cannot be opened, leaves the stream failed.
void fs_open(FileStream* s, const char* path, bool text);
// Closes the file; closing a stream with no file sets FS_FAIL, like a failed close.
void fs_close(FileStream* s);
inline bool fs_good(const FileStream* s) { return s->state == 0; }

// One character, or -1 at the end of the data (which sets FS_EOF | FS_FAIL). A stream
// that is not clean fails at once.
int fs_get(FileStream* s);
int fs_peek(FileStream* s);  // the next character without taking it; -1 at the end (sets FS_EOF)

// Exactly `count` bytes; fewer at the end of the data sets FS_EOF | FS_FAIL.
size_t fs_read(FileStream* s, void* dst, size_t count);

// Formatted extraction: leading white space skipped; a number ends at the first character
// that cannot belong to it, which stays unread. No digits (or a bad exponent) fails.
bool fs_read_int(FileStream* s, int32_t* out);
bool fs_read_float(FileStream* s, float* out);
// Skips white space; false (end of data, or a stream already not clean) when nothing else follows.
bool fs_skip_space(FileStream* s);
// One character after skipping white space.
bool fs_read_char(FileStream* s, char* out);

// Reads several fields in one pass when they all lie in the buffered window in their common
// form: `kinds` holds one letter a field ('f' float, 'i' 32-bit integer, 'c' character after
// white space) and `out` the places they go. The result is what the reads one by one would
// give; false (nothing taken, the stream as it was, `out` perhaps written) where those must
// decide instead.
bool fs_read_fields(FileStream* s, const char* kinds, void* const out[]);
