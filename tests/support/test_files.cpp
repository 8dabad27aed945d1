// Temporary folders and files for tests, and the path of the shared real-world data.
#include "tests/support/test_files.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

// The folders test_temp_dir made (kept in a function so that a static initialiser may call it).
static std::vector<std::string>& made() {
    static std::vector<std::string>* list = new std::vector<std::string>;
    return *list;
}
static pid_t maker = 0;  // the test program, not a death test's child

// Opens what a test closed (read-only or unsearchable folders), so that the whole tree goes.
static void open_up(const fs::path& dir) {
    std::error_code ec;
    fs::permissions(dir, fs::perms::owner_all, fs::perm_options::add, ec);
    for (const fs::directory_entry& e : fs::directory_iterator(dir, ec))
        if (e.is_directory(ec) && !e.is_symlink(ec)) open_up(e.path());
}

// At the test program's end its folders go; a death test's child leaves them to the parent.
static void remove_made() {
    if (getpid() != maker) return;
    for (const std::string& d : made()) {
        std::error_code ec;
        open_up(d);
        fs::remove_all(d, ec);
    }
}

std::string test_temp_dir() {
    const char* base = getenv("TMPDIR");
    std::string tmpl = std::string(base && *base ? base : "/tmp") + "/vocalog-test-XXXXXX";
    if (!mkdtemp(tmpl.data())) abort();
    if (maker != getpid()) {
        maker = getpid();
        made().clear();  // a forked child's copy names its parent's folders
        atexit(remove_made);
    }
    made().push_back(tmpl);
    return tmpl + "/";
}

std::string test_write_file(const std::string& dir, const std::string& name, const std::string& bytes) {
    std::ofstream(dir + name, std::ios::binary) << bytes;
    return dir + name;
}

std::string test_read_file(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::string test_shared_data() {
    const char* d = getenv("VOCALOG_SHARED_DATA");
    struct stat st{};
    if (!d || !*d || stat(d, &st) != 0 || !S_ISDIR(st.st_mode)) return "";
    return std::string(d) + "/";
}

std::string test_alert_text(const std::string& l1, const std::string& l2, const std::string& l3,
                            const std::string& l4) {
    return l1 + "\n\n" + l2 + "\n\n" + l3 + "\n\n" + l4 + "\n";
}
