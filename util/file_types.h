// File type codes: the kind of a file, which chooses its open mode (binary or text) and the
// folder listing's filter.
#pragma once
#include <cstdint>

enum : int32_t {
    FILE_TYPE_TEXT = 0,           // ordinary text data: the airport list, menus, texts
    FILE_TYPE_WEAPON = 2,         // ".wpn", binary
    FILE_TYPE_AIRCRAFT = 3,       // ".acf", binary
    FILE_TYPE_FLIGHT_PLAN = 7,    // ".fms", binary
    FILE_TYPE_CAR = 10,           // ".car", binary
    FILE_TYPE_SPA = 11,           // ".spa", binary
    FILE_TYPE_OTHER_BINARY = 19,  // a binary kind of the suite without an extension of its own
    FILE_TYPE_PREFS = 20,         // preference files, binary
};
