// Weather reports: the nearest reporting station's report, decoded into StationWeather.
#pragma once
#include <cstdint>

struct StationWeather {
    float time;             // seconds after midnight UTC of the report
    int32_t cloud_kind[2];  // 0 none, 1 few/scattered above 3000 m, 2 few/scattered, 3 broken, 4 overcast
    float cloud_base[2];    // metres
    float cloud_top[2];     // metres
    float visibility;       // metres; 0 or less: not reported
    int32_t wx_kind;        // 0 none, 1 rain or snow, 2 thunderstorm; -99 none (simulator preferences)
    int32_t wx_intensity;   // 1 light, 2 moderate, 3 heavy
    float temperature;      // Celsius
    float dewpoint;         // Celsius
    float wind_dir;         // degrees
    float wind_speed;       // knots
    float gust;             // knots above the wind speed
    float pressure;         // inches of mercury; 0 or less: not reported
};

extern StationWeather station_wx;  // process-wide, zero-filled at start

// Reads the weather file afresh, keeps the report of the airport-coded station nearest to
// (lat, lon) and decodes it into the fields given. Returns that airport's index, or -1
// (fields untouched) when the file cannot be read or no report names an airport.
int32_t wx_lookup(float lat, float lon, float* time, int32_t* cloud_kind, float* cloud_base, float* cloud_top,
                  float* visibility, int32_t* wx_kind, int32_t* wx_intensity, float* temperature,
                  float* dewpoint, float* wind_dir, float* wind_speed, float* gust, float* pressure);

// The time group of the report the last lookup decoded, in seconds; NaN when the lookup
// found no report or the report has no time group.
extern float wx_report_time;
extern int32_t wx_last_station;  // what the last lookup returned

// The weather file's path: the program's folder followed by "metar.rwx" (set at start).
extern char wx_file_path[500];

// Opens the weather file in `fs` as the lookup reads it; false (stream closed and clean)
// when it cannot be opened.
struct FileStream;
bool wx_file_open(FileStream* fs);
