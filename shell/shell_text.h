// The localized texts the shell draws itself (panel titles, the alert's button).
#pragma once
#include <cstdint>

#include "shell/text_table.h"

// The entry's text in the interface language, or its English default while the language's
// text file has not been read (an alert can come before it).
const char* shell_text(int32_t entry);
