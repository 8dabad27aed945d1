// The aircraft file: its data block and the cruise speed estimate derived from it.
#pragma once
#include <cstdint>

constexpr int32_t ACF_BLOCK_SIZE = 454980;     // version 626 block (and room for version 600)
constexpr int32_t ACF_BLOCK_SIZE_600 = 433688;
constexpr int32_t ACF_INTRO_SIZE = 36;

// Field offsets inside the block (the block starts at file offset 5).
constexpr int32_t ACF_OFS_INTRO = 0;
constexpr int32_t ACF_OFS_BYTE_ORDER = 1048;
constexpr int32_t ACF_OFS_REF_SPEED = 1104;
constexpr int32_t ACF_OFS_ENGINE_KIND = 6172;

// The chosen aircraft's data block, kept whole: the briefing reads three fields of it, the
// rest is carried as the file holds it (numbers in this machine's byte order after reading).
struct AircraftRecord {
    unsigned char block[ACF_BLOCK_SIZE];
};

extern AircraftRecord acf_rec;

void acf_reset();  // zero block

// Loads the aircraft file at `path` (suite form) into the block; 1 when read, 0 when the
// file could not be opened as version 600 or 626 (the block is then all zero). No message.
int32_t acf_read(int32_t aircraft, const char* path);

const char* acf_intro_text();  // the name the pilot gives; empty when none
float acf_ref_speed();         // knots
int32_t acf_engine_kind();     // engine kind of the first engine

// The cruise speed estimate in knots from the reference speed and the engine kind.
float speed_from_aircraft();
