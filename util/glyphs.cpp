// Turns a menu line of decimal glyph numbers into the two-byte codes the glyph faces draw.
#include <cstring>

#include "base/alert.h"
#include "util/text.h"

// Grammar: line := { blank* number } ; number := 1 to 3 non-blank characters, each
// weighed by digit_value; a fourth character without a blank before it starts the
// next number. Each number n >= 0 becomes the bytes n/127+1, n%127+1 (never zero).
char* str_nums_to_glyphs(char* line) {
    if (line[0] == '-' || line[0] == '=') return line;
    Text result = {};
    int out = 0;
    int pos = 0;
    for (;;) {
        while (pos < STR_SIZE && line[pos] == ' ') ++pos;
        if (pos >= STR_SIZE) MACIBM_fatal("Too many characters in a line!");
        if (!line[pos]) break;
        int32_t value = digit_value(line[pos++]);
        for (int extra = 0; extra < 2; ++extra) {
            if (pos >= STR_SIZE) MACIBM_fatal("Too many characters in a line!");
            if (line[pos] == ' ' || line[pos] == 0) break;
            value = value * 10 + digit_value(line[pos++]);
        }
        if (value < 0) continue;
        if (out + 2 > STR_SIZE) MACIBM_fatal("Too many numbers in a line!");
        result[out++] = (char)(value / 127 + 1);
        result[out++] = (char)(value % 127 + 1);
    }
    if (out >= STR_SIZE) {
        char shown[STR_SIZE + 1];
        memcpy(shown, result, STR_SIZE);
        shown[STR_SIZE] = 0;
        str_check(shown);
    }
    if (result[0]) memcpy(line, result, (size_t)out + 1);
    else line[0] = 0;
    return line;
}
