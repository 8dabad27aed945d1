// WAV files of mono 16-bit sound.
#pragma once
#include <cstdint>

// Writes `count` samples at `rate` samples a second to `path` as a PCM WAV file (the old file
// is replaced only once the new one is complete). False when it cannot be written.
bool wav_write(const char* path, const int16_t* samples, int32_t count, int32_t rate);
