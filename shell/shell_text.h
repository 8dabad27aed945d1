// The localized texts the shell draws itself (panel titles, the alert's button), by entry.
#pragma once
#include <cstdint>

enum : int32_t {
    TEXT_ALERT_TITLE = 600,   // the alert panel's title
    TEXT_DIALOG_TITLE = 601,  // the file dialogs' panel title
    TEXT_ALERT_BUTTON = 602,  // the alert's button
    TEXT_CHOOSER_UP = 605,      // the file chooser's button to the folder above
    TEXT_CHOOSER_CANCEL = 606,  // the file chooser's cancel button
};

// The entry's text in the interface language; English until the language's text file is read.
const char* shell_text(int32_t entry);
