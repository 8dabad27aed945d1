// Reading 24-bit BMP files: the path of a bitmap name, the 54-byte header and its checks, the pixel rows.
#include "graphics/bitmap_read.h"

#include <cstring>

#include "base/alert.h"
#include "graphics/gl_state.h"
#include "util/folders.h"
#include "util/paths.h"

constexpr int32_t BMP_MAGIC = 19778;  // "BM"
constexpr int32_t BMP_MAX_SIZE = 1024;

static bool ends_with_bmp(const char* p) {
    size_t n = strlen(p);
    return n >= 4 && str_same_nocase(p + n - 4, ".bmp") == 0;
}

const char* bmp_path(const char* name, Text path) {
    const char* app = folders.path[FOLDER_PROGRAM];
    const size_t app_len = strlen(app);
    const bool has_app = app_len > 0 && strncmp(name, app, app_len) == 0;
    if (has_app)
        str_copy(name, path);
    else
        str_join(folders.path[FOLDER_BITMAPS], name, path);
    path_to_platform(path);
    if (!ends_with_bmp(path)) str_append(path, ".BMP");
    path_find_case_blind(path);
    return has_app ? name + app_len : name;
}

namespace {

// Little-endian header fields; a short read marks the header as failed.
struct HeaderReader {
    FILE* f;
    bool failed = false;
    int32_t read(int bytes) {
        uint8_t b[4] = {0, 0, 0, 0};
        if (fread(b, 1, (size_t)bytes, f) != (size_t)bytes) failed = true;
        uint32_t v = b[0] | (uint32_t)b[1] << 8 | (uint32_t)b[2] << 16 | (uint32_t)b[3] << 24;
        return (int32_t)v;
    }
};

}  // namespace

// magic:2 file_size:4 reserved:2 reserved:2 data_offset:4 info_size:4 width:4 height:4
// planes:2 bits:2 compression:4 image_size:4 x_res:4 y_res:4 colours:4 important:4
BmpHeader bmp_read_header(FILE* f) {
    HeaderReader r{f};
    BmpHeader h{};
    h.magic = r.read(2);
    r.read(4);  // file size
    r.read(2);  // reserved
    r.read(2);
    r.read(4);  // pixel data offset: the pixels always follow the 54 header bytes
    r.read(4);  // info header size
    h.width = r.read(4);
    h.height = r.read(4);
    r.read(2);  // planes
    h.bits = r.read(2);
    h.compression = r.read(4);
    for (int i = 0; i < 5; ++i) r.read(4);  // image size, resolutions, colour counts
    h.failed = r.failed;
    return h;
}

void bmp_check_header(const BmpHeader& h, const char* path) {
    if (h.magic != BMP_MAGIC) MACIBM_fatal("Trying to read a texture bitmap that is not a bitmap", "", "", path);
    if (h.width > BMP_MAX_SIZE) MACIBM_fatal("Bitmap too wide! (max is 1024)", "", "", path);
    if (h.height > BMP_MAX_SIZE) MACIBM_fatal("Bitmap too tall! (max is 1024)", "", "", path);
    if (h.bits != 24) MACIBM_fatal("Wrong bitmap color depth for texture!", "We need 24-bit color.", "", path);
    if (h.compression != 0) MACIBM_fatal("Bitmap is compressed!", "", "", path);
    if (h.failed) MACIBM_fatal("File-scanning error!", "grf_inf.fail", "file:", path);
    if (h.width > BMP_MAX_SIZE || h.height > BMP_MAX_SIZE) MACIBM_fatal("Too big a bitmap to read!", "", "", path);
}

int32_t bmp_row_bytes(int32_t width) { return (width * 3 + 3) / 4 * 4; }

void bmp_read_all(FILE* f, uint8_t* buf, int32_t width, int32_t height) {
    size_t total = (size_t)bmp_row_bytes(width) * (size_t)height;
    size_t got = fread(buf, 1, total, f);
    if (got < total) memset(buf + got, 0, total - got);
}

void bmp_read_rows(FILE* f, const char* path, int32_t width, int32_t height, const BmpPlacement& at,
                   uint8_t* buf, int64_t buf_size) {
    static uint8_t row[BMP_MAX_SIZE * 3 + 4];
    const int32_t row_len = bmp_row_bytes(width), bpt = at.bpt;
    for (int32_t r = 0; r < height; r += at.step) {
        int32_t rows = at.step < height - r ? at.step : height - r;
        for (int32_t k = 0; k < rows; ++k)
            if (fread(row, 1, (size_t)row_len, f) != (size_t)row_len) memset(row, 0, sizeof row);
        int32_t by = ogl_round((float)at.y + (float)r * at.scale);
        for (int32_t c = 0; c < width; c += at.step) {
            const uint8_t* s = row + c * 3;
            if (at.skip_magenta && s[0] == 255 && s[1] == 0 && s[2] == 255) continue;
            int32_t bx = ogl_round((float)at.x + (float)c * at.scale);
            int64_t off = ((int64_t)by * at.buf_row + bx) * bpt;
            if (off < 0 || off + bpt > buf_size)
                MACIBM_fatal("OGL_texbmp data out of bounds!", path,
                             "This may be a custom cockpit with an instrument too far off the edge... fix the panel in "
                             "Hullwright!",
                             "");
            uint8_t* d = buf + off;
            d[0] = s[2], d[1] = s[1], d[2] = s[0];
            if (bpt == 4) d[3] = 255;
        }
    }
}
