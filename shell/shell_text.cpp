// The shell's own texts: the text table's entry, or an English default while it is empty.
#include "shell/shell_text.h"

const char* shell_text(int32_t entry) {
    if (entry >= 0 && entry < TEXT_COUNT && text_table[entry][0]) return text_table[entry];
    switch (entry) {
    case TEXT_ALERT_TITLE: return "Alert";
    case TEXT_DIALOG_TITLE: return "Files";
    case TEXT_ALERT_BUTTON: return "OK";
    default: return "";
    }
}
