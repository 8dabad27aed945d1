// The localized text table and the reader of text files.
#include "shell/text_table.h"

#include <cstring>

#include "base/alert.h"
#include "util/file_reader.h"

Text text_table[TEXT_COUNT];

void text_table_reset() { memset(text_table, 0, sizeof text_table); }

void text_file_read(char* path) {
    text_table_reset();
    if (!fio_open(path, 0, 1, 1)) MACIBM_fatal("Could not open text file!", path, "", "");
    for (;;) {
        int32_t n = fio_read_int(path);  // skips blank lines; the end of the data is a scan error
        if (n < 0) break;
        if (n >= TEXT_COUNT) MACIBM_fatal("Too many text strings!", "", "", path);
        if (text_table[n][0]) MACIBM_fatal("Duplicate string readin!", "I already have:", text_table[n], path);
        fio_read_line(text_table[n], STR_SIZE);  // leading blanks dropped, the rest kept
    }
    fio_close();
}
