// Temporary folders and files for tests, and the path of the shared real-world data.
#include "tests/support/test_files.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sys/stat.h>

std::string test_temp_dir() {
    const char* base = getenv("TMPDIR");
    std::string tmpl = std::string(base && *base ? base : "/tmp") + "/vocalog-test-XXXXXX";
    if (!mkdtemp(tmpl.data())) abort();
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
