// The shell's own texts: English defaults for the entries it draws.
#include "shell/shell_text.h"

const char* shell_text(int32_t entry) {
    switch (entry) {
    case TEXT_ALERT_TITLE: return "Alert";
    case TEXT_DIALOG_TITLE: return "Files";
    case TEXT_ALERT_BUTTON: return "OK";
    case TEXT_CHOOSER_UP: return "Up";
    case TEXT_CHOOSER_CANCEL: return "Cancel";
    default: return "";
    }
}
