// Saving a file safely, and opening only regular files for reading.
#include "platform/platform.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

constexpr int LINK_HOPS = 40;  // as the system's own limit on links in a path

// Follows symbolic links from `path` to the name they end at (which may not exist yet).
static int32_t follow_links(const char* path, char* out) {
    size_t n = strlen(path);
    if (n == 0) return ENOENT;
    if (n >= PLAT_PATH_MAX) return ENAMETOOLONG;
    memcpy(out, path, n + 1);
    for (int hops = 0; hops < LINK_HOPS; ++hops) {
        struct stat st;
        if (lstat(out, &st) != 0 || !S_ISLNK(st.st_mode)) return 0;
        char link[PLAT_PATH_MAX];
        ssize_t len = readlink(out, link, sizeof link - 1);
        if (len < 0) return errno;
        link[len] = 0;
        const char* slash = strrchr(out, '/');
        size_t keep = link[0] == '/' || !slash ? 0 : (size_t)(slash - out + 1);  // relative: beside the link
        if (keep + (size_t)len >= PLAT_PATH_MAX) return ENAMETOOLONG;
        memcpy(out + keep, link, (size_t)len + 1);
    }
    return ELOOP;
}

// A file without any write permission counts as read-only, for the superuser too.
static bool writable(const char* path, const struct stat& st) {
    if (geteuid() == 0) return (st.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0;
    return access(path, W_OK) == 0;
}

static void folder_of(const char* path, char* out) {
    const char* slash = strrchr(path, '/');
    if (!slash) {
        strcpy(out, ".");
        return;
    }
    size_t n = slash == path ? 1 : (size_t)(slash - path);
    memcpy(out, path, n);
    out[n] = 0;
}

// A named temporary file beside the target, for file systems without unnamed files.
static int named_temp(PlatSave* s) {
    int n = snprintf(s->temp, sizeof s->temp, "%s.XXXXXX", s->target);
    if (n < 0 || n >= (int)sizeof s->temp) {
        s->temp[0] = 0;
        errno = ENAMETOOLONG;
        return -1;
    }
    int fd = mkostemp(s->temp, O_CLOEXEC);
    if (fd < 0) s->temp[0] = 0;
    return fd;
}

bool plat_save_begin(const char* path, PlatSave* s) {
    s->fd = -1;
    s->how = PLAT_SAVE_REPLACE;
    s->temp[0] = 0;
    s->target[0] = 0;
    if ((s->error = follow_links(path, s->target)) != 0) return false;
    struct stat st;
    bool exists = stat(s->target, &st) == 0;
    if (!exists && errno != ENOENT) return s->error = errno, false;
    if (exists && !S_ISREG(st.st_mode)) return s->error = PLAT_ERR_NOT_REGULAR, false;
    if (exists && !writable(s->target, st)) return s->error = EACCES, false;

    char folder[PLAT_PATH_MAX];
    folder_of(s->target, folder);
    int fd = open(folder, O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
    if (fd < 0 && (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL)) fd = named_temp(s);
    if (fd < 0) {
        int why = errno;
        if (exists && (why == EACCES || why == EPERM || why == EROFS)) {
            fd = open(s->target, O_WRONLY | O_CLOEXEC);  // the folder is closed, the file is not
            if (fd >= 0) {
                s->fd = fd;
                s->how = PLAT_SAVE_IN_PLACE;
                return true;
            }
            why = errno;
        }
        return s->error = why, false;
    }
    mode_t mode;
    if (exists) {
        if (fchown(fd, st.st_uid, st.st_gid) != 0) {
        }  // only the superuser (or the group's member) can; the mode matters more
        mode = st.st_mode & 07777;
    } else {
        mode_t mask = umask(0);
        umask(mask);
        mode = 0666 & ~mask;
    }
    fchmod(fd, mode);
    s->fd = fd;
    return true;
}

// Links the unnamed file into the folder under a fresh name; false when it cannot.
static bool link_unnamed(PlatSave* s, char* name) {
    char proc[64];
    snprintf(proc, sizeof proc, "/proc/self/fd/%d", s->fd);
    for (unsigned k = 0; k < 100; ++k) {
        int n = snprintf(name, PLAT_PATH_MAX, "%s.%u.%u", s->target, (unsigned)getpid(), k);
        if (n < 0 || n >= (int)PLAT_PATH_MAX) return s->error = ENAMETOOLONG, false;
        if (linkat(AT_FDCWD, proc, AT_FDCWD, name, AT_SYMLINK_FOLLOW) == 0) return true;
        if (errno != EEXIST) break;
    }
    s->error = errno;
    return false;
}

bool plat_save_end(PlatSave* s, bool keep) {
    if (s->fd < 0) return false;
    if (s->how == PLAT_SAVE_IN_PLACE) return keep;
    char linked[PLAT_PATH_MAX] = "";
    const char* from = s->temp;  // a named temporary file, or the unnamed one linked in now
    if (!s->temp[0] && keep) {
        if (!link_unnamed(s, linked)) return false;
        from = linked;
    }
    bool ok = keep;
    if (ok && rename(from, s->target) != 0) {
        s->error = errno;
        ok = false;
    }
    if (!ok && from[0]) unlink(from);
    s->temp[0] = 0;
    return ok;
}

const char* plat_save_reason(int32_t error) {
    if (error == PLAT_ERR_NOT_REGULAR) return "not a regular file";
    return strerror(error);
}

FILE* plat_open_regular(const char* path) {
    int fd = open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC);  // a FIFO must not wait for a writer
    if (fd < 0) return nullptr;
    struct stat st;
    if (fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        close(fd);
        errno = EINVAL;
        return nullptr;
    }
    fcntl(fd, F_SETFL, fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    FILE* f = fdopen(fd, "rb");
    if (!f) close(fd);
    return f;
}
