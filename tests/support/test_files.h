// Temporary folders and files for tests, and the path of the shared real-world data.
#pragma once
#include <string>

// A fresh empty folder under the system's temporary folder, with a trailing '/'.
std::string test_temp_dir();
// Writes `bytes` to dir + name and returns the full path.
std::string test_write_file(const std::string& dir, const std::string& name, const std::string& bytes);
std::string test_read_file(const std::string& path);
// The shared real-world data folder (with trailing '/'), or "" when it is absent.
std::string test_shared_data();
// What the windowless alert writes to standard error for four lines.
std::string test_alert_text(const std::string& l1, const std::string& l2, const std::string& l3,
                            const std::string& l4);
