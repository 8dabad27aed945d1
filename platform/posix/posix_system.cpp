// Tick count, program and per-user folders, folder listing and large pages on POSIX systems.
#include "platform/platform.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

uint32_t plat_ticks_ms() {
    timespec ts{};
    clock_gettime(CLOCK_MONOTONIC, &ts);
    uint64_t ms = (uint64_t)ts.tv_sec * 1000u + (uint64_t)ts.tv_nsec / 1000000u;
    return (uint32_t)ms;
}

bool plat_program_folder(char* out, size_t size) {
    if (size < 2) return false;
    ssize_t n = readlink("/proc/self/exe", out, size - 1);
    if (n <= 0 || (size_t)n >= size - 1) return false;
    out[n] = 0;
    char* slash = strrchr(out, '/');
    if (!slash) return false;
    slash[1] = 0;
    return true;
}

bool plat_make_folders(const char* folder) {
    char path[PATH_MAX];
    if (strlen(folder) >= sizeof path) return false;
    strcpy(path, folder);
    for (char* p = path + 1; *p; ++p) {
        if (*p != '/') continue;
        *p = 0;
        bool ok = mkdir(path, 0755) == 0 || errno == EEXIST;
        *p = '/';
        if (!ok) return false;
    }
    return true;
}

bool plat_current_folder(char* out, size_t size) {
    if (size < 2 || !getcwd(out, size - 1)) return false;
    size_t n = strlen(out);
    if (n == 0 || out[n - 1] != '/') out[n++] = '/', out[n] = 0;
    return true;
}

bool plat_user_folder(char* out, size_t size) {
    const char* xdg = getenv("XDG_DATA_HOME");
    const char* home = getenv("HOME");
    int n;
    if (xdg && xdg[0] == '/')
        n = snprintf(out, size, "%s/Zephyra/", xdg);
    else if (home && home[0])
        n = snprintf(out, size, "%s/.local/share/Zephyra/", home);
    else
        return false;
    return n >= 0 && (size_t)n < size;
}

int plat_list_folder(const char* folder, PlatListFn each, void* ctx) {
    DIR* d = opendir(folder);
    if (!d) return -1;
    int count = 0;
    char full[4096];
    while (dirent* e = readdir(d)) {
        bool is_folder = false;
        if (e->d_type == DT_DIR) {
            is_folder = true;
        } else if (e->d_type == DT_UNKNOWN || e->d_type == DT_LNK) {
            size_t len = strlen(folder);
            const char* sep = (len && folder[len - 1] == '/') ? "" : "/";
            struct stat st{};
            if (snprintf(full, sizeof full, "%s%s%s", folder, sep, e->d_name) < (int)sizeof full &&
                stat(full, &st) == 0)
                is_folder = S_ISDIR(st.st_mode);
        }
        ++count;
        if (!each(e->d_name, is_folder, ctx)) break;
    }
    closedir(d);
    return count;
}

void plat_large_pages(void* start, size_t size) {
    uintptr_t from = ((uintptr_t)start + PLAT_LARGE_PAGE - 1) & ~(uintptr_t)(PLAT_LARGE_PAGE - 1);
    uintptr_t to = (uintptr_t)start + size;
    if (to > from) madvise((void*)from, to - from, MADV_HUGEPAGE);
}
