// The menu file reader: one block of lines per menu, a header and its items, each
// "number name"; Korean names are lines of glyph numbers.
#include <cstring>

#include "base/alert.h"
#include "shell/language.h"
#include "shell/menu_table.h"
#include "shell/menus.h"
#include "util/file_reader.h"
#include "util/folders.h"
#include "util/text.h"

// Splits `line` at its first blank: returns the number before it and copies the rest, after
// the blanks that follow, to `name` (a line without a blank is a number with no name).
static int32_t split_line(char* line, char* name) {
    char* blank = strchr(line, ' ');
    const char* rest = "";
    if (blank) {
        *blank = 0;
        rest = blank + 1;
        while (*rest == ' ') ++rest;
    }
    str_copy(rest, name);
    if (language_is_korean()) str_nums_to_glyphs(name);
    return str_to_int(line);
}

void MACIBM_load_menus(const char* name) {
    menus_reset();
    Text path;
    language_folder(folders.path[FOLDER_MENUS], path);
    str_append(path, name);
    if (!fio_open(path, 0, 1, 1))
        MACIBM_fatal("Cannot open file!", path, "Trash this copy and re-install Zephyra.", "");
    Text line, text;
    fio_read_line(line, STR_SIZE);  // the third line is a comment
    for (int32_t m = 0;; ++m) {
        fio_read_line(line, STR_SIZE);
        if (!line[0]) break;  // an empty line, or the end of the data
        int32_t code = split_line(line, text);
        MACIBM_create_menu(m, code, text);
        for (int32_t k = 0;; ++k) {
            fio_read_line(line, STR_SIZE);
            if (!line[0]) break;
            int32_t command = split_line(line, text);
            append_menu(m, k, command, text, 0);
        }
    }
    fio_close();
}
