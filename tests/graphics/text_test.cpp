#include "graphics/fontsize.h"
#include "graphics/metafile.h"
#include "graphics/placeable.h"
#include "graphics/surface.h"
#include "graphics/textmatrix.h"
#include "graphics/textposition.h"
#include "graphics/textspan.h"

#include <doctest/doctest.h>

#include <cstring>
#include <utility>

namespace
{

std::pair<int32_t, int32_t> deviceof(uint32_t flags, int64_t x, int64_t y)
{
    int32_t devicex, devicey;
    textdevice(flags, x, y, &devicex, &devicey);
    return {devicex, devicey};
}

surface screen(int32_t dpi)
{
    surface s = {};
    surfaceinit(&s);
    s.scalex = s.scaley = dpi;
    surfaceshifts(&s);
    return s;
}

} // namespace

TEST_CASE("sizes in sixteenths of a point, angles in 65536ths of a degree, frames in pixels")
{
    CHECK(fontpixels(203, 96) == 16);
    CHECK(fontpixels(204, 96) == 17);
    CHECK(fontpixels(128, 180) == 20);
    CHECK(fontpixels(-193, 96) == -16);
    // Further than any device; still a number that can be negated.
    CHECK(fontpixels(INT32_MAX, 9600) == INT32_MAX);
    CHECK(fontpixels(INT32_MIN, 9600) == -INT32_MAX);
    CHECK(fontangle(90 << 16) == 900);
    CHECK(fontangle(0x10000 / 10 - 1) == 0);
    CHECK(fontangle(-0x18000) == -15);
    CHECK(metaframe(1000, 320, 1280) == 25000); // in 1/100 mm, without the fraction
    CHECK(metaframe(200000, 2000, 1000) == 40000000);
    CHECK(metaframeold(96, 96) == 2540);
    CHECK(metaframeold(1, 96) == 26);
    uint8_t out[PLACEABLESIZE];
    placeableheader({-2, 3, 0x1234, 300, 120}, out);
    CHECK(!std::memcmp(out, "\xD7\xCD\xC6\x9A\0\0\xFE\xFF\3\0\x34\x12\x2C\1x\0\0\0\0\0\0\0", 22));
}

TEST_CASE("a position in OS units is where surfacedevice has it, one in millipoints as exact")
{
    surface s = screen(96);
    setcurrentsurface(&s);
    CHECK(deviceof(0, 749, -749) == std::pair(0, 0)); // a pixel is 750
    CHECK(deviceof(0, 750, -750) == std::pair(1, 1));
    CHECK(deviceof(TEXTOSUNITS, 750, -750) == std::pair(400, 400));
    for (int32_t origin : {0, 100, -7}) {
        s.originx = origin;
        s.originy = 2 * origin;
        surfaceshifts(&s);
        surfacesetunits(90, 180);
        for (int32_t at : {0, 1, -1, 180, -181, 12345678, INT32_MAX, INT32_MIN}) {
            int32_t x = at, y = -int64_t{at} / 3;
            auto point = deviceof(2064, x, y);
            surfacedevice(&x, &y);
            CHECK(point == std::pair(x, y));
        }
    }
    // An origin with another unit: its own place stays.
    s.originx = 90;
    s.originy = -90;
    surfaceshifts(&s);
    surfacesetunits(90, 90);
    CHECK(deviceof(0, 45 * 400, -45 * 400) == std::pair(48, 48));
    // What a metafile's surface has: an OS unit is a pixel, and y isn't turned.
    s = screen(180);
    s.unity = -180;
    surfaceshifts(&s);
    CHECK(deviceof(0, 4000, 800) == std::pair(10, 2));
    CHECK(deviceof(0, int64_t{INT32_MAX} * 400, 0).first == INT32_MAX);
    clearcurrentsurface();
}

TEST_CASE("kinds of matrices")
{
    constexpr int32_t one = MATRIXONE;
    const std::pair<plotmatrix, int32_t> rows[] = {
        {{one, 0, 0, one, 0, 0}, 0},
        {{one, 0, 0, one, 0, 5}, 2},
        {{one + 1, 0, 0, one, 0, 0}, 4},
        {{one, 0, 0, 0, 0, 0}, 8},
        {{one, 0, -1, one, 0, 0}, 16},
        {{one, 0, 0, -one, 0, 0}, 8 | 16},
        {{0, one, -one, 0, 0, 0}, 4 | 8 | 16 | 128},
        {{0, -one, one, 0, 0, 0}, 4 | 8 | 16 | 256},
        {{-one, 0, 0, -one, 1, 1}, 1 | 2 | 4 | 8 | 16 | 512},
        {{0, 0, 0, 0, 0, 0}, 4 | 8}};
    for (const auto &[matrix, kind] : rows)
        CHECK(matrixkind(&matrix) == kind);
}

TEST_CASE("a line is cut back to a place where it may be, and a span to what fits")
{
    CHECK(textcut("ab cd", 3, ' ') == 2);
    CHECK(textcut("ab cd", 2, ' ') == 2); // the space is what didn't fit
    CHECK(textcut("ab cd", 1, ' ') == 0);
    CHECK(textcut("a b c", 4, ' ') == 3);
    CHECK(textcut("ab\xE9x", 3, 0xE9) == 2);
    textspan span = {"four", 0, 0, -1, 9};
    CHECK(spanlength(&span) == 4);
    span.length = 3;
    CHECK(spanlength(&span) == 3);
    span.length = -1;
    CHECK(spanlength(&span) == 0);
    char16_t unended[] = {'a', 'b'};
    textspanw wide = {unended, 0, 0, -1, 2};
    CHECK(spanlengthw(&wide) == 2);
    constexpr int32_t widths[] = {4, 0, 5, 6};
    const int32_t sums[][4] = {
        {4, -1, 4, 15}, {4, 9, 3, 9}, {4, 8, 2, 4}, {4, 3, 0, 0}, {1, 9, 1, 4}};
    for (const auto &[count, room, fitting, sum] : sums) {
        int32_t width = -1;
        CHECK(textsum(widths, count, room, &width) == fitting);
        CHECK(width == sum);
    }
}
