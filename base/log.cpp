// The log "Error.out": alert lines and the OpenGL report.
#include "base/log.h"

#include <cstdio>

static FILE* log_file = nullptr;

void MACIBM_log_open(const char* path) {
    MACIBM_log_close();
    log_file = fopen(path, "w");
}

void MACIBM_log_line(const char* line) {
    if (!log_file) return;
    fputs(line, log_file);
    fputc('\n', log_file);
    fflush(log_file);
}

void MACIBM_log_text(const char* text) {
    if (!log_file) return;
    fputs(text, log_file);
    fflush(log_file);
}

void MACIBM_log_close() {
    if (log_file) fclose(log_file);
    log_file = nullptr;
}

bool MACIBM_log_is_open() { return log_file != nullptr; }
