// Bitmap-font text drawing. The faces are cut from the interface sheet once it is drawn;
// until then text draws nothing.
#include "kit/font.h"

void OGL_draw_string(int32_t, float, float, const char*, float, int32_t) {}
