// The localized texts the shell draws itself (panel titles, the alert's button).
#pragma once
#include <cstdint>

#include "shell/text_table.h"

// The entry's text in the interface language; an English default while the entry is empty
// (before the language's text file is read, as for the language chooser of a first start).
const char* shell_text(int32_t entry);
