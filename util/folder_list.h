// The folder listing: the working folder's entries that pass a file type's filter, with
// their full paths, sorted by name.
#pragma once
#include <cstdint>

#include "util/folders.h"
#include "util/text.h"

constexpr int32_t LISTING_MAX = 1000;       // entries kept; later ones are not listed
constexpr int32_t LISTING_NAME_SIZE = 40;   // a listed name: 39 characters and its zero
constexpr int32_t LISTING_KIND_SIZE = 5;    // "fold" or "file" and its zero

struct FolderListing {
    char name[LISTING_MAX][LISTING_NAME_SIZE];  // shown name; a longer one cut to 37 + ".."
    Text path[LISTING_MAX];                  // work folder + the whole name (+ separator for a folder)
    uint8_t is_folder[LISTING_MAX];
    char kind[LISTING_MAX][LISTING_KIND_SIZE];
};

extern FolderListing listing;

// The folder that list_folder reads: the folder table's current folder, ending with its
// separator (":" or the platform's).
inline char* work_folder() { return folders.path[FOLDER_CURRENT]; }

void listing_reset();  // every entry empty

// 1 when an entry of this name is listed for file type `type`: never a name that begins
// with "."; every other name for the types that take all files; for the others a name
// whose last three characters are the type's extension (any case); folders always.
int32_t ext_ok(const char* name, int32_t type, int32_t is_folder);

// Lists work_folder into `listing` and returns the count (0..LISTING_MAX): the first LISTING_MAX
// entries the system hands over that pass ext_ok, in byte-wise ascending order of their
// whole names. An entry whose full path would not fit a text is left out. A folder that
// cannot be read lists nothing; a work folder without its final separator is fatal.
int32_t list_folder(int32_t type);
