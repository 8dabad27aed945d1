// File type codes: the kind of file a caller asks for, which picks the open mode, the
// listing's filter and the file chooser's start folder.
#pragma once
#include <cstdint>

enum : int32_t {
    FTYPE_DATA = 0,        // ordinary text data; every name listed
    FTYPE_AIRFOIL = 1,     // .afl
    FTYPE_WEAPON = 2,      // .wpn
    FTYPE_AIRCRAFT = 3,    // .acf
    FTYPE_SITUATION = 4,   // every name listed
    FTYPE_MOVIE = 5,       // every name listed
    FTYPE_LOGBOOK = 6,     // every name listed
    FTYPE_FMS_PLAN = 7,    // .fms
    FTYPE_SAVED_GAME = 8,  // every name listed
    FTYPE_TRACK = 9,       // .tra
    FTYPE_CAR = 10,        // .car
    FTYPE_SPACESHIP = 11,  // .spa
    FTYPE_REGION = 12,     // .reg
    FTYPE_OBJECT = 13,     // .obj
    FTYPE_TERRAIN = 14,    // .bmp
    FTYPE_SOUND = 15,      // .wav
    FTYPE_BITMAP = 16,     // .bmp
    FTYPE_PREFS = 20,      // preference files; folders only in a listing
};
