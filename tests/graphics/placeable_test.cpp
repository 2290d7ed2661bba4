#include "graphics/metafile.h"
#include "graphics/placeable.h"
#include "graphics/surface.h"

#include <doctest/doctest.h>

#include <cstring>

TEST_CASE("a placeable header, byte for byte")
{
    uint8_t out[PLACEABLESIZE + 1];
    std::memset(out, 0xAA, sizeof out);
    placeableheader({-2, 3, 0x1234, 300, 120}, out);
    const uint8_t wanted[] = {0xD7, 0xCD, 0xC6, 0x9A, 0, 0, 0xFE, 0xFF, 3, 0, 0x34, 0x12,
                              0x2C, 1,    120,  0,    0, 0, 0,    0,    0, 0, 0xAA};
    static_assert(sizeof wanted == sizeof out);
    CHECK(!std::memcmp(out, wanted, sizeof wanted));
}

TEST_CASE("the frame of an enhanced metafile drops fractions")
{
    CHECK(metaframe(1000, 320, 1280) == 25000);
    CHECK(metaframe(7, 301, 1000) == 210);
    CHECK(metaframe(200000, 2000, 1000) == 40000000); // past 32 bits on the way
    CHECK(metaframeold(96, 96) == 2540);
    CHECK(metaframeold(1, 96) == 26);
}
