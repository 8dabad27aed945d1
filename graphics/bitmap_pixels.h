// Pixel work on a bitmap's texels in a buffer: packing file rows, the placeholder checkerboard,
// scaling down to the driver's limit and the filters' alpha.
#pragma once
#include <cstdint>

// The scale (1, 1/2, 1/4 ...) that fits a width x height picture into `max_size` texels.
float bmp_scale(int32_t max_size, int32_t width, int32_t height);

// The placeholder of a missing bitmap: 16 x 16 texels, grey 100 and 200 in a checkerboard.
void bmp_checkerboard(uint8_t* buf, int32_t bpt);
// File rows (blue, green, red, each padded to `row_len` bytes) into packed texels of `bpt`
// bytes (red, green, blue, alpha 255), in place.
void bmp_rows_to_texels(uint8_t* buf, int32_t width, int32_t height, int32_t row_len, int32_t bpt);
// Each step x step block becomes one texel, in place: the average of its pixels that are not
// magenta, or magenta when fewer than half of them are.
void bmp_reduce_blocks(uint8_t* buf, int32_t width, int32_t height, int32_t step, int32_t bpt);
// The filter's alpha over the first `height` rows and `width` texels of rows `buf_row` long:
// magenta clear or grey alpha; nothing for RGB filters or 3-byte texels.
void bmp_apply_alpha(uint8_t* buf, int32_t filter, int32_t width, int32_t height, int32_t bpt, int32_t buf_row);
