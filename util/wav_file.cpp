// WAV files of mono 16-bit sound.
#include "util/wav_file.h"

#include "util/out_file.h"

static uint8_t* put_le(uint8_t* p, uint32_t v, int bytes) {
    for (int k = 0; k < bytes; ++k) *p++ = (uint8_t)(v >> (8 * k));
    return p;
}

static uint8_t* put_tag(uint8_t* p, const char* tag) {
    for (int k = 0; k < 4; ++k) *p++ = (uint8_t)tag[k];
    return p;
}

bool wav_write(const char* path, const int16_t* samples, int32_t count, int32_t rate) {
    if (count < 0 || rate <= 0) return false;
    const uint32_t data_bytes = (uint32_t)count * 2;
    uint8_t header[44], *p = header;
    p = put_tag(p, "RIFF");
    p = put_le(p, 36 + data_bytes, 4);
    p = put_tag(p, "WAVE");
    p = put_tag(p, "fmt ");
    p = put_le(p, 16, 4);  // the format block's size
    p = put_le(p, 1, 2);   // PCM
    p = put_le(p, 1, 2);   // one channel
    p = put_le(p, (uint32_t)rate, 4);
    p = put_le(p, (uint32_t)rate * 2, 4);  // bytes a second
    p = put_le(p, 2, 2);                   // bytes a frame
    p = put_le(p, 16, 2);                  // bits a sample
    p = put_tag(p, "data");
    put_le(p, data_bytes, 4);

    OutFile f;
    out_open(&f, path, false);
    out_bytes(&f, header, sizeof header);
    uint8_t block[8192];
    for (int32_t at = 0; at < count;) {  // little-endian whatever the machine's order
        int32_t n = 0;
        for (; n < (int32_t)sizeof block / 2 && at < count; ++n, ++at) put_le(block + 2 * n, (uint16_t)samples[at], 2);
        out_bytes(&f, block, (size_t)n * 2);
    }
    out_close(&f);
    return out_good(&f);
}
