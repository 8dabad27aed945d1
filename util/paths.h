// The suite's path form (":" between folders) and this platform's.
#pragma once

constexpr char PATH_SEP = '/';  // this platform's folder separator

// In place: every ":" from index 2 on becomes the platform's separator.
void path_to_platform(char* path);
