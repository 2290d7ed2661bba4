// base/fontrecord.h - the description of a font, as grid files and choices hold
// it and fonts are made from it.
#pragma once

#include <cstdint>

struct fontrecord {
    int32_t height; // sixteenths of a point
    int32_t width;  // likewise; 0 for the font's own
    char face[64];
    int32_t charset; // the platform's number
    int32_t weight;  // 400 normal
    int32_t italic;
};
static_assert(sizeof(fontrecord) == 84);
