// Reads an aircraft file into the aircraft block and derives the cruise speed estimate.
#include "briefing/aircraft.h"

#include <cstring>
#include <initializer_list>

#include "util/file_reader.h"
#include "util/text.h"

AircraftRecord acf_rec;

static int32_t block_used = 0;  // bytes of the block that may be non-zero

void acf_reset() {
    memset(acf_rec.block, 0, (size_t)block_used);
    block_used = 0;
}

// Reverses every word of each text field once more after the whole-block reversal, which
// restores the texts: the introduction, two long texts, four tables of 57 short texts
// and the 24 texts at the end of the block.
static void restore_texts() {
    auto swap_range = [](int32_t start, int32_t size) {
        for (int32_t o = start; o + 4 <= start + size; o += 4) fio_swap4(acf_rec.block + o);
    };
    swap_range(0, 36);
    swap_range(40, 496);
    swap_range(540, 496);
    for (int32_t table_start : {7584, 9864, 12144, 14424})
        for (int32_t i = 0; i < 57; ++i) swap_range(table_start + i * 40, 36);
    for (int32_t i = 0; i < 24; ++i) swap_range(433688 + i * 500, 496);
}

int32_t acf_read(int32_t aircraft, const char* path) {
    (void)aircraft;  // the program keeps one aircraft, number 0
    acf_reset();
    Text p;
    str_copy(path, p);
    int32_t size = 0;
    if (fio_open(p, FILE_TYPE_AIRCRAFT, 600, 0)) {
        size = ACF_BLOCK_SIZE_600;
    } else {
        str_copy(path, p);
        if (fio_open(p, FILE_TYPE_AIRCRAFT, 626, 0)) size = ACF_BLOCK_SIZE;
    }
    if (size == 0) {
        fio_close();
        return 0;
    }
    block_used = size;
    fio_read_bytes(acf_rec.block, size);
    fio_close();

    int32_t flag;
    memcpy(&flag, acf_rec.block + ACF_OFS_BYTE_ORDER, 4);
    if (flag != 0) {
        block_used = ACF_BLOCK_SIZE;
        for (int32_t o = 0; o < ACF_BLOCK_SIZE; o += 4) fio_swap4(acf_rec.block + o);
        restore_texts();
    }
    return 1;
}

const char* acf_intro_text() {
    static char intro[ACF_INTRO_SIZE + 1];
    memcpy(intro, acf_rec.block + ACF_OFS_INTRO, ACF_INTRO_SIZE);
    intro[ACF_INTRO_SIZE] = 0;  // a full 36-byte field without its zero still ends here
    return intro;
}

float acf_ref_speed() {
    float v;
    memcpy(&v, acf_rec.block + ACF_OFS_REF_SPEED, 4);
    return v;
}

int32_t acf_engine_kind() {
    int32_t v;
    memcpy(&v, acf_rec.block + ACF_OFS_ENGINE_KIND, 4);
    return v;
}

float speed_from_aircraft() {
    float speed = (float)((double)acf_ref_speed() * 0.75);
    switch (acf_engine_kind()) {
        case 0: case 1: speed = (float)((double)speed * 1.1); break;
        case 2: speed = (float)((double)speed * 1.5); break;
        case 4: case 5: speed = (float)((double)speed * 2.0); break;
        default: break;
    }
    return speed;
}
