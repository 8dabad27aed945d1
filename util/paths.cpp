// The suite's path form (":" between folders) and this platform's.
#include "util/paths.h"

#include <cstring>

void path_to_platform(char* path) {
    size_t n = strlen(path);
    for (size_t i = 2; i < n; ++i)
        if (path[i] == ':') path[i] = PATH_SEP;
}
