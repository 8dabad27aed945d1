// The data-file reader: file slots, marker and version header, and the field reads.
#pragma once
#include <cstdint>

#include "util/file_stream.h"
#include "util/file_types.h"

constexpr int FIO_SLOTS = 2;

// Each thread has its own current slot and header state, so a worker thread can scan a file
// in slot 1 while the main thread reads others in slot 0.
extern thread_local int32_t fio_cur_slot;    // the slot every read uses
extern thread_local int32_t fio_swap;        // 1: the last binary file opened stores numbers high byte first
extern thread_local char fio_eol;            // line-end character of the last text file opened
extern thread_local char fio_line_buf[500];  // rest of a text file's version line; a general line buffer

// 1 when the file is open, its header accepted and the stream clean; 0 otherwise.
// `path` is turned into the platform's form in place. With warn 1 a wrong version is fatal.
int32_t fio_open(char* path, int32_t type, int32_t version, int32_t warn);
bool fio_type_is_binary(int32_t type);

int32_t fio_read_int(const char* label);
float fio_read_flt(const char* label);
char fio_read_char();                        // one character after white space
void fio_read_word(char* buf, int32_t size);
void fio_read_line(char* buf, int32_t size);
void fio_read_bytes(void* buf, int32_t count);
// A text file's fields in one pass (fs_read_fields); 0 when the reads one by one must decide.
int32_t fio_read_fields(const char* kinds, void* const out[]);
void fio_swap4(void* p);
void fio_scan_ok(const char* label);         // fatal "File-scanning error!" on a failed stream
void fio_close();

FileStream* fio_stream();                    // the current slot's stream
void fio_reset();                            // closes both slots and clears the globals
