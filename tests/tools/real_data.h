// Real-world data for the tools tests: the weather service's reports and the OurAirports runways,
// read from the shared data folder and turned into simulator files in a temporary folder.
#pragma once
#include <map>
#include <string>
#include <vector>

// The source folder, the build folder (with the generators) and the shared real-world data
// folder, each with a trailing '/': from the test environment, else from the build's own paths.
// tools_shared_data() is "" when the data is absent.
std::string tools_source_dir();
std::string tools_binary_dir();
std::string tools_shared_data();

// One CSV file as rows of fields (quotes and doubled quotes handled); the header row is included.
std::vector<std::vector<std::string>> csv_read(const std::string& text);

// One report of the weather file, with the service's own decoded columns ("" when empty).
struct RealReport {
    std::string raw, station;
    double lat = 0, lon = 0;
    std::string temp_c, dewpoint_c, wind_dir, wind_speed, wind_gust, altim_in_hg;
};
// The reports of metar/metars-2025-01-27.csv (the lines before the header are skipped).
std::vector<RealReport> real_reports(const std::string& shared);

// An airport of a test airport file: code, name, and its runway lines' text (first line first).
struct RealAirport {
    std::string code, name;
    std::vector<std::string> runway_lines;
    float lat = 0, lon = 0;  // first runway's position as the airport reader stores it
};

// The airport file of the real world: every reporting station, with its real runways where
// runways.csv has them and a runway at the station's position where it has none, and then the
// other airports of runways.csv that have a 3- or 4-character code and a runway position, up to
// `max_airports`. Names are "Wx CODE" for stations and "Field CODE" for the others.
std::vector<RealAirport> real_airports(const std::string& shared, const std::vector<RealReport>& reports,
                                       size_t max_airports);
std::string apt_dat_text(const std::vector<RealAirport>& airports);

// Scans an airport file with the program's own reader into apt_table.
void scan_apt_file(const std::string& path);
