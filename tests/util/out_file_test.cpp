// Saving files: what each kind of target becomes, and what a killed or failed save leaves behind.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <set>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/support/test_files.h"
#include "util/out_file.h"

namespace fs = std::filesystem;

// Every entry of `dir` in name order: "name=mode:content", "name->link" or "name=fifo".
static std::string folder_state(const std::string& dir) {
    std::set<std::string> entries;
    for (const fs::directory_entry& e : fs::directory_iterator(dir)) {
        const std::string name = e.path().filename();
        const fs::file_status st = e.symlink_status();
        char mode[16];
        snprintf(mode, sizeof mode, "=%o:", (unsigned)st.permissions());
        entries.insert(fs::is_symlink(st) ? name + "->" + fs::read_symlink(e.path()).string()
                       : fs::is_fifo(st)  ? name + "=fifo"
                                          : name + mode + test_read_file(e.path()));
    }
    std::string all;
    for (const std::string& s : entries) all += (all.empty() ? "" : " ") + s;
    return all;
}

enum How { PLAIN = 0, UNPRIVILEGED = 1, KILLED = 2, FAILED = 4 };

// Saves "new" to dir + "t" in a child process, as an unprivileged user, killed before the close,
// or with the stream failed before the close, as asked. The result: "saved", the failure's
// reason, or "killed".
static std::string save_in_child(const std::string& dir, int how) {
    const std::string result = test_temp_dir() + "result";
    chmod(result.substr(0, result.size() - 6).c_str(), 0777);  // the unprivileged child writes there too
    pid_t pid = fork();
    if (pid == 0) {
        if ((how & UNPRIVILEGED) && geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) _exit(3);
        static OutFile f;
        out_open(&f, (dir + "t").c_str(), false);
        out_text(&f, "new");
        if (how & KILLED) raise(SIGKILL);
        if (how & FAILED) f.state |= FS_BAD;
        out_close(&f);
        test_write_file("", result, out_good(&f) ? "saved" : std::string("not saved:") + out_reason(&f));
        _exit(0);
    }
    int status = 0;
    waitpid(pid, &status, 0);
    return WIFSIGNALED(status) ? "killed" : test_read_file(result);
}

TEST(OutFile, EachKindOfTargetAsACarefulUserExpects) {
    umask(022);
    auto file = [](mode_t mode) {
        return [mode](const std::string& d) { chmod(test_write_file(d, "t", "older").c_str(), mode); };
    };
    auto link = [](const char* to) { return [to](const std::string& d) { symlink(to, (d + "t").c_str()); }; };
    const struct {
        const char* what;
        std::function<void(const std::string& dir)> make;
        int how;
        const char *result, *after;
    } rows[] = {
        {"a new file", [](const std::string&) {}, PLAIN, "saved", "t=644:new"},
        {"a private file keeps its mode", file(0600), PLAIN, "saved", "t=600:new"},
        {"a link is written through", [&](const std::string& d) { test_write_file(d, "real", "old"), link("real")(d); },
         PLAIN, "saved", "real=644:new t->real"},
        {"a FIFO is refused", [](const std::string& d) { mkfifo((d + "t").c_str(), 0644); }, PLAIN,
         "not saved:not a regular file", "t=fifo"},
        // Unprivileged: a save that wrongly took the device could not replace it.
        {"a device is refused", link("/dev/null"), UNPRIVILEGED, "not saved:not a regular file", "t->/dev/null"},
        {"a read-only file stays", file(0444), PLAIN, "not saved:Permission denied", "t=444:older"},
        {"a read-only folder is written in place, the rest cut", file(0666), UNPRIVILEGED, "saved", "t=666:new"},
        {"a killed save leaves the old file alone", file(0644), KILLED, "killed", "t=644:older"},
        {"a failed write leaves the old file, no temporary one", file(0644), FAILED, "not saved:", "t=644:older"},
        {"a failed write in place leaves the old file", file(0666), UNPRIVILEGED | FAILED, "not saved:", "t=666:older"},
    };
    for (const auto& r : rows) {
        std::string dir = test_temp_dir();
        r.make(dir);
        if (r.how & UNPRIVILEGED) chmod(dir.c_str(), 0555);
        EXPECT_EQ(save_in_child(dir, r.how), r.result) << r.what;
        chmod(dir.c_str(), 0755);
        EXPECT_EQ(folder_state(dir), r.after) << r.what;
    }
}
