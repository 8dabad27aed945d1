// The folder listing: filter, collect, sort by whole name, then fill the listing's tables.
#include "util/folder_list.h"

#include <algorithm>
#include <cstring>

#include "base/alert.h"
#include "platform/platform.h"
#include "util/file_types.h"
#include "util/paths.h"

FolderListing listing;

void listing_reset() { memset(&listing, 0, sizeof listing); }

// The extension of each type that lists only its own files.
static const struct {
    int32_t type;
    char ext[4];
} type_ext[] = {
    {FILE_TYPE_AIRFOIL, "AFL"}, {FILE_TYPE_WEAPON, "WPN"},  {FILE_TYPE_AIRCRAFT, "ACF"}, {FILE_TYPE_FLIGHT_PLAN, "FMS"},
    {FILE_TYPE_TRACK, "TRA"},   {FILE_TYPE_CAR, "CAR"},     {FILE_TYPE_SPA, "SPA"}, {FILE_TYPE_REGION, "REG"},
    {FILE_TYPE_OBJECT, "OBJ"},  {FILE_TYPE_TERRAIN, "BMP"}, {FILE_TYPE_SOUND, "WAV"},     {FILE_TYPE_BITMAP, "BMP"},
};

int32_t ext_ok(const char* name, int32_t type, int32_t is_folder) {
    if (name[0] == '.') return 0;
    switch (type) {
    case FILE_TYPE_TEXT: case FILE_TYPE_SITUATION: case FILE_TYPE_MOVIE: case FILE_TYPE_LOGBOOK: case FILE_TYPE_SAVED_GAME:
        return 1;
    default:
        break;
    }
    size_t n = strlen(name);
    if (n >= 3) {
        char ext[4] = {name[n - 3], name[n - 2], name[n - 1], 0};
        for (int i = 0; i < 3; ++i) char_upper(&ext[i]);
        for (const auto& t : type_ext)
            if (t.type == type && memcmp(t.ext, ext, 4) == 0) return 1;
    }
    return is_folder ? 1 : 0;
}

// Entries as the system hands them over, whole names kept until the sort is done.
constexpr int32_t WHOLE_NAME_SIZE = 256;
struct Staged {
    uint16_t len;
    bool folder;
    char name[WHOLE_NAME_SIZE];
};
static Staged staged[LISTING_MAX];

// The sort works on the first 8 bytes of each name as one big-endian number (zeros past
// the end, which no name holds), so most comparisons never touch the names.
struct SortKey {
    uint64_t head;
    uint16_t index;
};
static SortKey order[LISTING_MAX];

static uint64_t head_of(const Staged& s) {
    uint64_t h = 0;
    for (int i = 0; i < 8; ++i) h = h << 8 | (i < s.len ? (uint8_t)s.name[i] : 0);
    return h;
}

struct Collect {
    int32_t type;
    size_t folder_len;
    int32_t count;
};

static bool collect(const char* name, bool is_folder, void* ctx) {
    Collect* c = (Collect*)ctx;
    if (!ext_ok(name, c->type, is_folder)) return true;
    size_t n = strlen(name);
    if (n >= (size_t)WHOLE_NAME_SIZE || c->folder_len + n + 1 >= (size_t)STR_SIZE) return true;
    Staged& s = staged[c->count];
    s.len = (uint16_t)n;
    s.folder = is_folder;
    memcpy(s.name, name, n);
    return ++c->count < LISTING_MAX;
}

// Byte-wise order of whole names: a name before every longer name it begins.
static bool name_before(const SortKey& a, const SortKey& b) {
    if (a.head != b.head) return a.head < b.head;
    const Staged& x = staged[a.index];
    const Staged& y = staged[b.index];
    int c = memcmp(x.name, y.name, std::min(x.len, y.len));
    return c < 0 || (c == 0 && x.len < y.len);
}

int32_t list_folder(int32_t type) {
    const char* folder = work_folder();
    size_t folder_len = strlen(folder);
    char last = folder_len ? folder[folder_len - 1] : 0;
    if (last != ':' && last != PATH_SEP)
        MACIBM_fatal("Working path does not appear to be a directory!",
                     "This is not consistent with my labelling practices!",
                     "I need to end all paths with the directory indicator!",
                     "See the instrument-check in Hullwright for example.");

    Text search;
    str_copy(folder, search);
    path_to_platform(search);
    Collect c{type, folder_len, 0};
    if (plat_list_folder(search, collect, &c) < 0) c.count = 0;

    for (int32_t i = 0; i < c.count; ++i) order[i] = {head_of(staged[i]), (uint16_t)i};
    std::sort(order, order + c.count, name_before);

    for (int32_t i = 0; i < c.count; ++i) {
        const Staged& s = staged[order[i].index];
        char* shown = listing.name[i];
        if (s.len < LISTING_NAME_SIZE) {
            memcpy(shown, s.name, s.len);
            shown[s.len] = 0;
        } else {  // too long to show whole: cut visibly
            memcpy(shown, s.name, LISTING_NAME_SIZE - 3);
            memcpy(shown + LISTING_NAME_SIZE - 3, "..", 3);
        }
        char* path = listing.path[i];
        memcpy(path, folder, folder_len);
        memcpy(path + folder_len, s.name, s.len);
        size_t end = folder_len + s.len;
        if (s.folder) path[end++] = PATH_SEP;
        path[end] = 0;
        listing.is_folder[i] = s.folder ? 1 : 0;
        memcpy(listing.kind[i], s.folder ? "fold" : "file", LISTING_KIND_SIZE);
    }
    return c.count;
}
