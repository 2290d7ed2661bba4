#include "graphics/surface.h"

#include "base/flex.h"
#include "tests/graphics/codeof.h"

#include <doctest/doctest.h>

#include <climits>
#include <cstdlib>
#include <utility>

namespace
{

using at = std::pair<int32_t, int32_t>;

// A surface of the tests, current, at 96 pixels an inch.
surface *drawn(int32_t originx = 0, int32_t originy = 0)
{
    static surface s;
    s = {};
    modeinfo.xdpi = modeinfo.ydpi = 96;
    surfaceinit(&s);
    s.originx = originx;
    s.originy = originy;
    surfaceshifts(&s);
    setcurrentsurface(&s);
    return &s;
}

at converted(void (*convert)(int32_t *x, int32_t *y), int32_t x, int32_t y)
{
    convert(&x, &y);
    return {x, y};
}

at device(int32_t x, int32_t y)
{
    return converted(surfacedevice, x, y);
}

at os(int32_t x, int32_t y)
{
    return converted(surfaceos, x, y);
}

// Every pixel of a stretch that has an OS position is given one that maps to
// it; one that has none is given its neighbour.
void checknearest(bool all)
{
    for (int32_t pixel = -700; pixel <= 700; pixel++) {
        CAPTURE(pixel);
        const auto [x, y] = converted(surfacenearest, pixel, pixel);
        const at seen = device(x, y), about = os(pixel, pixel);
        bool reachedx = all, reachedy = all;
        for (int32_t by = -4; by <= 4; by++) {
            at beside = device(about.first + by, about.second + by);
            reachedx |= beside.first == pixel;
            reachedy |= beside.second == pixel;
        }
        CHECK((seen.first == pixel) == reachedx);
        CHECK((seen.second == pixel) == reachedy);
        int32_t step = std::abs(device(x + 1, 0).first - device(x - 1, 0).first);
        if (!all) CHECK(std::abs(seen.first - pixel) < step);
    }
}

} // namespace

TEST_CASE("exact products drop their fraction")
{
    CHECK(muldiv64(-7, 96, 180) == -3);
    CHECK(muldiv64(7, 96, -180) == -3);
    CHECK(muldiv64(INT_MIN, INT_MIN, INT_MIN) == INT_MIN);
    CHECK(muldiv64(int64_t{INT_MAX} - INT_MIN, INT_MIN, INT_MIN) == -1); // its low 32 bits
    CHECK(muldiv64(INT_MIN, INT_MIN, -1) == 0);
    CHECK(muldiv64(5, 5, 0) == 0);
}

TEST_CASE("OS units to pixels and back, y turned round, fine ones too")
{
    drawn();
    CHECK(device(180, 180) == at{96, -96});
    CHECK(device(-100, 0) == at{-53, 0});
    CHECK(os(96, 96) == at{180, -180});
    CHECK(os(1, 1) == at{1, -1});
    // The ends of the range: these are exact, and what is beyond 32 bits goes round.
    CHECK(device(INT_MAX, INT_MIN) == at{1145324611, 1145324612});
    CHECK(os(INT_MAX, 0).first == -268435458);                  // 4026531838
    CHECK(converted(surfacedevicefine, 479, -479) == at{0, 0}); // just below one pixel
    CHECK(converted(surfacedevicefine, 480, -480) == at{1, 1}); // 1.875 OS units
    surface *s = drawn(100, 30);
    for (int32_t x = -500; x <= 500; x++)
        CHECK(converted(surfacedevicefine, x * 256, x * 256) == device(x, x));
    surfaceidentity(s);
    CHECK(device(17, 17) == at{17, -17});
    surfaceidentityup(s);
    CHECK(device(-17, 17) == at{-17, 17});
    s->scalex = s->scaley = 0; // without a scale it stands still
    CHECK(converted(surfacenearest, 17, -5) == at{0, 0});
    s->unitx = s->unity = 0;
    CHECK(device(12, 12) == at{0, 0});
    CHECK(converted(surfacedevicefine, 12, 12) == at{0, 0});
}

TEST_CASE("an origin falls out at the normal unit, and is what a zoom leaves in place")
{
    surface *s = drawn(100, -50);
    CHECK(device(100, -50) == at{53, 27});
    surfacesetunits(90, 360); // twice as large, half as large
    CHECK(device(50, -100) == at{53, 27});
    CHECK(device(50 + 90, -100 - 360) == at{53 + 96, 27 + 96});
    const at before = device(12345, 6789);
    surfacescale kept;
    surfacestate(s, &kept);
    surfaceidentity(s);
    surfacesetstate(s, &kept);
    CHECK(device(12345, 6789) == before);
}

TEST_CASE("the nearest position maps back to its pixel, or next to it where pixels are finer")
{
    const struct {
        int32_t unitx, unity, scalex, scaley;
        bool all; // pixels have positions
    } rows[] = {
        {180, 180, 96, 96, true},     {197, 333, 96, 96, true},    {1, -1, 1, 1, true},
        {180, -180, -150, 150, true}, {180, 180, 300, 600, false}, {45, -60, 96, 96, false},
    };
    for (const auto &row : rows) {
        drawn(137, -211);
        surfacesetscale(row.unitx, row.unity, row.scalex, row.scaley);
        checknearest(row.all);
    }
}

TEST_CASE("a view moves by whole pixels, at any scale and whatever is set later")
{
    surface *s = drawn(100, -50);
    for (int32_t unit : {180, 90, 37}) {
        surfaceview(s, 0, 0);
        surfacesetunits(unit, unit);
        const auto [x, y] = device(1003, -777);
        surfaceview(s, 13, 29);
        CHECK(device(1003, -777) == at{x - 13, y - 29});
        surfacescale kept;
        surfacestate(s, &kept);
        surfacesetscale(1, 1, 3, 3);
        surfacesetstate(s, &kept);
        CHECK(device(1003, -777) == at{x - 13, y - 29});
    }
}

TEST_CASE("in the chain a surface has its neighbours")
{
    surface *a, *b, *c, *none = nullptr;
    REQUIRE_FALSE(surfacenew(&a));
    REQUIRE_FALSE(surfacenew(&b));
    REQUIRE_FALSE(surfacenew(&c));
    CHECK((surfaces == c && a->prev == b && !c->prev));
    surfacefree(b);
    CHECK((c->next == a && a->prev == c));
    flexfailafter(0);
    CHECK(codeof(surfacenew(&none)) == ERRORMEMORY);
    CHECK_FALSE(none);
    surfacefree(c);
    CHECK((surfaces == a && !a->prev));
    surfacefree(a);
    CHECK_FALSE(surfaces);
}
