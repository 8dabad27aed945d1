// The suite's path form (":" between folders after a host folder) and this platform's.
#include "util/paths.h"

#include <cstring>

#include "platform/platform.h"
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

namespace {
struct Match {
    const char* want;  // the name looked for
    size_t len;
    bool exact;
    Text found;  // the first case-blind match in byte order
};
}  // namespace

// Keeps the listing going until the exact name turns up.
static bool match_entry(const char* name, bool, void* ctx) {
    Match& m = *(Match*)ctx;
    if (strlen(name) != m.len || str_same_nocase(name, m.want) != 0) return true;
    if (strcmp(name, m.want) == 0) m.exact = true;
    if (!m.found[0] || strcmp(name, m.found) < 0) str_copy(name, m.found);
    return !m.exact;
}

int32_t path_find_case_blind(char* path) {
    int start = root_length(path);
    if (start < 0) return 0;
    Text out;
    str_copy(path, out);
    for (char* p = out + start; *p;) {
        char* end = strchr(p, PATH_SEP);
        size_t len = end ? (size_t)(end - p) : strlen(p);
        Text name;
        memcpy(name, p, len);
        name[len] = 0;
        Match m{name, len, false, ""};
        char keep = *p;
        *p = 0;  // the folder that holds the name
        int listed = len ? plat_list_folder(out, match_entry, &m) : 0;
        *p = keep;
        if (len && !m.exact) {
            if (listed < 0 || !m.found[0]) return 0;
            memcpy(p, m.found, len);
        }
        p = end ? end + 1 : p + len;
    }
    str_copy(out, path);
    return 1;
}
