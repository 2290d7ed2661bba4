// graphics/placeable.h - the header that tells where and how large a metafile is
// to be placed.
//
// 22 bytes in front of a metafile's own, little-endian: the key 4, a handle 2,
// left, top, right and bottom 2 each, units to the inch 2, reserved 4, the
// checksum 2.
//
// The checksum is 0, not the sum that readers may look for. Files have always
// been written so, and one saved again must come out as it was.
#pragma once

#include <cstdint>

constexpr uint32_t PLACEABLEKEY = 0x9AC6CDD7;
constexpr int32_t PLACEABLESIZE = 22;

// In the metafile's logical units.
struct placeablebox {
    int16_t left, top, right, bottom;
    int16_t inch;
};

void placeableheader(const placeablebox &box, uint8_t *out);
