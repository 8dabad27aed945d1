// The suite's path form (":" between folders after a host folder) and this platform's.
#include "util/paths.h"

#include <cstring>

#include "util/text.h"

static Text roots[PATH_ROOTS];

void path_set_roots(const char* program_folder, const char* user_folder) {
    str_copy(program_folder, roots[0]);
    str_copy(user_folder, roots[1]);
}

// Length of the longest root `path` starts with; -1 when it starts with none.
static int root_length(const char* path) {
    int best = -1;
    for (const Text& r : roots) {
        int n = (int)strlen(r);
        if (n > best && n > 0 && strncmp(path, r, (size_t)n) == 0) best = n;
    }
    return best;
}

void path_to_platform(char* path) {
    int start = root_length(path);
    if (start < 0 || strchr(path + start, PATH_SEP)) return;
    for (char* p = path + start; *p; ++p)
        if (*p == ':') *p = PATH_SEP;
}
