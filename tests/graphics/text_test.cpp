#include "graphics/fontsize.h"
#include "graphics/surface.h"
#include "graphics/textmatrix.h"
#include "graphics/textposition.h"
#include "graphics/textspan.h"

#include <doctest/doctest.h>

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

TEST_CASE("a size in sixteenths of a point is so many pixels")
{
    CHECK(fontpixels(203, 96) == 16);
    CHECK(fontpixels(204, 96) == 17);
    CHECK(fontpixels(128, 180) == 20);
    CHECK(fontpixels(-193, 96) == -16);
    CHECK(fontpixels(11, 96) == 0);
    // Further than any device; still a number that can be negated.
    CHECK(fontpixels(INT32_MAX, 96) == 178956970);
    CHECK(fontpixels(INT32_MAX, 9600) == INT32_MAX);
    CHECK(fontpixels(INT32_MIN, 9600) == -INT32_MAX);
}

TEST_CASE("an angle in tenths of a degree")
{
    CHECK(fontangle(90 << 16) == 900);
    CHECK(fontangle(0x10000 / 10 - 1) == 0);
    CHECK(fontangle(-0x18000) == -15);
    CHECK(fontangle(INT32_MAX) == 327679);
}

TEST_CASE("a position in OS units is where surfacedevice has it")
{
    surface s = screen(96);
    setcurrentsurface(&s);
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
    clearcurrentsurface();
}

TEST_CASE("a position in millipoints is as exact as one in OS units")
{
    surface s = screen(96);
    setcurrentsurface(&s);
    CHECK(deviceof(0, 72000, -72000) == std::pair(96, 96));
    CHECK(deviceof(0, 749, -749) == std::pair(0, 0)); // a pixel is 750
    CHECK(deviceof(0, 750, -750) == std::pair(1, 1));
    CHECK(deviceof(TEXTOSUNITS, 750, -750) == std::pair(400, 400));
    // An origin with another unit: its own place stays.
    s.originx = 90;
    s.originy = -90;
    surfaceshifts(&s);
    surfacesetunits(90, 90);
    CHECK(deviceof(0, 45 * 400, -45 * 400) == std::pair(48, 48));
    CHECK(deviceof(0, INT32_MAX, 0).first == 5726623);
    // What a metafile's surface has: an OS unit is a pixel, and y isn't turned.
    s = screen(180);
    s.unity = -180;
    surfaceshifts(&s);
    CHECK(deviceof(0, 4000, 800) == std::pair(10, 2));
    // As far as a matrix can move it.
    CHECK(deviceof(0, int64_t{INT32_MAX} * 400, 0).first == INT32_MAX);
    clearcurrentsurface();
}

TEST_CASE("kinds of matrices")
{
    constexpr int32_t one = MATRIXONE;
    auto kind = [](const plotmatrix &m) { return matrixkind(&m); };
    CHECK(kind({one, 0, 0, one, 0, 0}) == 0);
    CHECK(kind({one, 0, 0, one, -1, 0}) == 1);
    CHECK(kind({one, 0, 0, one, 0, 5}) == 2);
    CHECK(kind({one + 1, 0, 0, one, 0, 0}) == 4);
    CHECK(kind({one, 0, 0, 0, 0, 0}) == 8);
    CHECK(kind({one, 1, 0, one, 0, 0}) == 16);
    CHECK(kind({one, 0, -1, one, 0, 0}) == 16);
    CHECK(kind({one, 0, 0, -one, 0, 0}) == (8 | 16));
    CHECK(kind({0, one, -one, 0, 0, 0}) == (4 | 8 | 16 | 128));
    CHECK(kind({0, -one, one, 0, 0, 0}) == (4 | 8 | 16 | 256));
    CHECK(kind({-one, 0, 0, -one, 1, 1}) == (1 | 2 | 4 | 8 | 16 | 512));
    CHECK(kind({0, 0, 0, 0, 0, 0}) == (4 | 8));
}

TEST_CASE("a line is cut back to a place where it may be")
{
    CHECK(textcut("ab cd", 3, ' ') == 2);
    CHECK(textcut("ab cd", 4, ' ') == 2);
    CHECK(textcut("ab cd", 2, ' ') == 2); // the space is what didn't fit
    CHECK(textcut("ab cd", 1, ' ') == 0);
    CHECK(textcut("a b c", 4, ' ') == 3);
    CHECK(textcut(" abc", 3, ' ') == 0);
    CHECK(textcut("abcd", 3, ' ') == 0);
    CHECK(textcut("ab\xE9x", 3, 0xE9) == 2);
    CHECK(textcut("", 0, ' ') == 0);
}

TEST_CASE("what a span looks at, and what of it goes into a width")
{
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
    int32_t width = -1;
    CHECK(textsum(widths, 4, -1, &width) == 4);
    CHECK(width == 15);
    CHECK(textsum(widths, 4, 9, &width) == 3);
    CHECK(width == 9);
    CHECK(textsum(widths, 4, 8, &width) == 2);
    CHECK(width == 4);
    CHECK(textsum(widths, 4, 3, &width) == 0);
    CHECK(width == 0);
    CHECK(textsum(widths, 1, 100, &width) == 1);
}
