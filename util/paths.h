// The suite's path form and this platform's. A path is a host folder (the program's folder or
// the per-user folder, in the host's own characters) followed by a suite part with ":"
// between folders, as in "/home/ann/Flight: 2025/" + "Resources:Earth nav data:apt.dat".
#pragma once
#include <cstdint>

constexpr char PATH_SEP = '/';  // this platform's folder separator
constexpr int PATH_ROOTS = 2;

// The host folders suite paths start from (each with its trailing separator; "" for none).
void path_set_roots(const char* program_folder, const char* user_folder);

// In place: the ":" of the suite part become the platform's separator. The host folder a
// path starts with keeps every character; a path that starts with none, or whose rest holds
// a platform separator, is a host path already and stays as it is.
void path_to_platform(char* path);

// In place, for a platform-form path below the program's or the user's folder: each folder
// and file name below that folder that does not exist as written is replaced by the entry of
// its folder that equals it ignoring case (the first in byte order when several do). 1 when
// every name was found; 0 when one was not (the path then stays as it was).
int32_t path_find_case_blind(char* path);
