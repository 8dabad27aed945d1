// File type codes: the kind of file a caller asks for, which picks the open mode, the
// listing's filter and the file chooser's start folder.
#pragma once
#include <cstdint>

enum : int32_t {
    FILE_TYPE_TEXT = 0,        // ordinary text data; every name listed
    FILE_TYPE_AIRFOIL = 1,     // .afl
    FILE_TYPE_WEAPON = 2,      // .wpn
    FILE_TYPE_AIRCRAFT = 3,    // .acf
    FILE_TYPE_SITUATION = 4,   // every name listed
    FILE_TYPE_MOVIE = 5,       // every name listed
    FILE_TYPE_LOGBOOK = 6,     // every name listed
    FILE_TYPE_FLIGHT_PLAN = 7,    // .fms
    FILE_TYPE_SAVED_GAME = 8,  // every name listed
    FILE_TYPE_TRACK = 9,       // .tra
    FILE_TYPE_CAR = 10,        // .car
    FILE_TYPE_SPA = 11,  // .spa
    FILE_TYPE_REGION = 12,     // .reg
    FILE_TYPE_OBJECT = 13,     // .obj
    FILE_TYPE_TERRAIN = 14,    // .bmp
    FILE_TYPE_SOUND = 15,      // .wav
    FILE_TYPE_BITMAP = 16,     // .bmp
    FILE_TYPE_OTHER_BINARY = 19,  // a binary kind of the suite without an extension of its own
    FILE_TYPE_PREFS = 20,      // preference files; folders only in a listing
};
