// The airport database: every airport and runway of apt.dat in fixed parallel tables.
#pragma once
#include <cstdint>

constexpr int32_t APT_MAX = 22000;   // airports
constexpr int32_t RWY_MAX = 180000;  // runways

struct AirportTable {
    int32_t airport_count;  // index of the last airport read; -1 when empty
    int32_t runway_count;   // index of the last runway read; -1 when empty

    float apt_elev[APT_MAX];
    int32_t apt_tower[APT_MAX];
    int32_t apt_bldg[APT_MAX];
    char apt_code[APT_MAX][5];
    char apt_name[APT_MAX][40];
    int32_t apt_first_rwy[APT_MAX];
    int32_t apt_last_rwy[APT_MAX];
    float twr_lat[APT_MAX], twr_lon[APT_MAX], twr_hgt[APT_MAX];
    float start_lat[APT_MAX], start_lon[APT_MAX], start_hdg[APT_MAX];

    float rwy_lat[RWY_MAX], rwy_lon[RWY_MAX];
    char rwy_num[RWY_MAX][4];
    float rwy_hdg[RWY_MAX], rwy_len[RWY_MAX], rwy_ovr1[RWY_MAX], rwy_ovr2[RWY_MAX], rwy_width[RWY_MAX];
    int32_t rwy_code[RWY_MAX];
};

extern AirportTable apt_table;  // process-wide, zero-filled at start

// Zero-fills the tables and sets both counts to -1 (tests and a fresh scan start here). Only
// the entries written since the last reset are touched.
void apt_reset();
// Notes the counts as entries that may hold data (a scan restarts its counts at -1).
void apt_note_used();

// Position of airport i: its first runway's latitude and longitude (degrees).
float apt_lat(int32_t i);
float apt_lon(int32_t i);
// Straight-line distance in degrees from (lat, lon) to airport i's position, in single precision.
float apt_distance(int32_t i, float lat, float lon);

// The scan loop over the open apt.dat in the current file slot, until code 99.
// `path` labels the scan errors of the line-code reads. Both counts start at -1 (start from
// apt_reset() for a zero-filled table); runway, tower and start lines before the first
// airport line are read and dropped. Ends by building the code index (airport_index.h).
void apt_scan(const char* path);

// Line readers; each reads its fields in order with the data-file reader.
void fio_apt_line(float* elev, int32_t* tower, int32_t* bldg, char* code, char* name, int32_t read);
void fio_rwy_line(float* lat, float* lon, char* number, float* heading, float* length, float* overrun1,
                  float* overrun2, float* width, int32_t* code, int32_t read);
void fio_tower_line(float* lat, float* lon, float* height, int32_t read);
void fio_start_line(float* lat, float* lon, float* heading, int32_t read);

// Finds an airport by code (kind 1), nearest to (0, 0) among equal codes. Kinds 11 and 13
// as the list picker expects; every other kind finds nothing.
int8_t apt_find_code(const char* code, int32_t kind, int32_t* index_out);
