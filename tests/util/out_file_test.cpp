// Saving files: what each kind of target becomes, and what a killed save leaves behind.
#include <gmock/gmock.h>

#include <algorithm>
#include <dirent.h>
#include <functional>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "tests/support/test_files.h"
#include "util/out_file.h"

// Every entry of `dir`, sorted: "name=mode:content", "name->link" or "name=fifo".
static std::string folder_state(const std::string& dir) {
    std::vector<std::string> out;
    DIR* d = opendir(dir.c_str());
    while (dirent* e = d ? readdir(d) : nullptr) {
        std::string name = e->d_name, path = dir + name;
        struct stat st{};
        if (name[0] == '.' || lstat(path.c_str(), &st) != 0) continue;
        char text[300];
        if (S_ISLNK(st.st_mode)) {
            ssize_t n = readlink(path.c_str(), text, sizeof text - 1);
            text[n < 0 ? 0 : n] = 0;
            out.push_back(name + "->" + text);
        } else if (S_ISFIFO(st.st_mode)) {
            out.push_back(name + "=fifo");
        } else {
            snprintf(text, sizeof text, "=%o:", (unsigned)(st.st_mode & 0777));
            out.push_back(name + text + test_read_file(path));
        }
    }
    if (d) closedir(d);
    std::sort(out.begin(), out.end());
    std::string all;
    for (const std::string& s : out) all += (all.empty() ? "" : " ") + s;
    return all;
}

// Saves "new" to `path` in a child process, as an unprivileged user when asked, killed before
// the close when asked. The result: "saved", the failure's reason, or "killed".
static std::string save_in_child(const std::string& path, bool unprivileged, bool killed) {
    int fds[2];
    if (pipe(fds) != 0) return "no pipe";
    pid_t pid = fork();
    if (pid == 0) {
        close(fds[0]);
        if (unprivileged && geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) _exit(3);
        static OutFile f;
        out_open(&f, path.c_str(), false);
        out_text(&f, "new");
        if (killed) raise(SIGKILL);
        out_close(&f);
        std::string result = out_good(&f) ? "saved" : out_reason(&f);
        ssize_t n = write(fds[1], result.data(), result.size());
        _exit(n == (ssize_t)result.size() ? 0 : 4);
    }
    close(fds[1]);
    char buf[200];
    ssize_t n = read(fds[0], buf, sizeof buf);
    close(fds[0]);
    int status = 0;
    waitpid(pid, &status, 0);
    if (WIFSIGNALED(status)) return "killed";
    return std::string(buf, n > 0 ? (size_t)n : 0);
}

TEST(OutFile, EachKindOfTargetAsACarefulUserExpects) {
    umask(022);
    auto file = [](const std::string& dir, mode_t mode) {
        chmod(test_write_file(dir, "t", "old").c_str(), mode);
    };
    const struct {
        const char* what;
        std::function<void(const std::string& dir)> make;
        bool unprivileged, killed;
        const char* result;
        const char* after;
    } rows[] = {
        {"a new file", [](const std::string&) {}, false, false, "saved", "t=644:new"},
        {"a private file keeps its mode", [&](const std::string& d) { file(d, 0600); }, false, false, "saved",
         "t=600:new"},
        {"a link is written through",
         [](const std::string& d) {
             test_write_file(d, "real", "old");
             symlink("real", (d + "t").c_str());
         },
         false, false, "saved", "real=644:new t->real"},
        {"a FIFO is refused", [](const std::string& d) { mkfifo((d + "t").c_str(), 0644); }, false, false,
         "not a regular file", "t=fifo"},
        {"a device is refused", [](const std::string& d) { symlink("/dev/null", (d + "t").c_str()); }, false, false,
         "not a regular file", "t->/dev/null"},
        {"a read-only file stays", [&](const std::string& d) { file(d, 0444); }, false, false, "Permission denied",
         "t=444:old"},
        {"a read-only folder is written in place",
         [&](const std::string& d) {
             file(d, 0666);
             chmod(d.c_str(), 0555);
         },
         true, false, "saved", "t=666:new"},
        {"a killed save leaves the old file alone", [&](const std::string& d) { file(d, 0644); }, false, true,
         "killed", "t=644:old"},
    };
    for (const auto& r : rows) {
        std::string dir = test_temp_dir();
        r.make(dir);
        if (r.unprivileged) chmod(dir.c_str(), 0555);
        EXPECT_EQ(save_in_child(dir + "t", r.unprivileged, r.killed), r.result) << r.what;
        chmod(dir.c_str(), 0755);
        EXPECT_EQ(folder_state(dir), r.after) << r.what;
    }
}
