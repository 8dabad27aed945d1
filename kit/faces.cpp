// Face look-up by code.
#include "kit/faces.h"

const FaceInfo* face_info(int32_t face) {
    if (face < FACE_FIRST || face >= FACE_FIRST + FACE_COUNT) return nullptr;
    return &BTN_faces[face - FACE_FIRST];
}
