// Splitting a weather report into its groups and decoding the groups into weather fields.
#pragma once
#include <cstdint>

constexpr int32_t WX_GROUPS = 40;       // groups kept of one report; later groups are ignored
constexpr int32_t WX_GROUP_SIZE = 500;  // a group holds at most 499 characters

// The fields a decoding writes, in the order of StationWeather (cloud fields are 2 each).
struct WxFields {
    float* time;
    int32_t* cloud_kind;
    float* cloud_base;
    float* cloud_top;
    float* visibility;
    int32_t* wx_kind;
    int32_t* wx_intensity;
    float* temperature;
    float* dewpoint;
    float* wind_dir;
    float* wind_speed;
    float* gust;
    float* pressure;
};

// Splits `line` at blanks into `groups`; a run of blanks separates two groups once. Returns
// the number of groups (at most WX_GROUPS; a trailing blank leaves an empty last group).
int32_t wx_split_groups(const char* line, char groups[WX_GROUPS][WX_GROUP_SIZE]);

// Applies the reset rule to `out`, then decodes the report's groups in order. Fields that
// no group sets keep the values they had.
void wx_decode(const char* line, const WxFields& out);
