#include "graphics/surface.h"

#include "base/errors.h"
#include "base/flex.h"

#include <doctest/doctest.h>

#include <climits>
#include <cstdlib>
#include <initializer_list>

namespace
{

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

int32_t devicex(int32_t x)
{
    int32_t y = 0;
    surfacedevice(&x, &y);
    return x;
}

int32_t devicey(int32_t y)
{
    int32_t x = 0;
    surfacedevice(&x, &y);
    return y;
}

int32_t osx(int32_t x)
{
    int32_t y = 0;
    surfaceos(&x, &y);
    return x;
}

int32_t osy(int32_t y)
{
    int32_t x = 0;
    surfaceos(&x, &y);
    return y;
}

int32_t finex(int32_t x)
{
    int32_t y = 0;
    surfacedevicefine(&x, &y);
    return x;
}

// Every pixel of a stretch that has an OS position is given one that maps to
// it; one that has none is given its neighbour.
void checknearest(bool all)
{
    for (int32_t pixel = -700; pixel <= 700; pixel++) {
        CAPTURE(pixel);
        int32_t x = pixel, y = pixel;
        surfacenearest(&x, &y);
        surfacedevice(&x, &y);
        bool reachedx = false, reachedy = false;
        for (int32_t os = osx(pixel) - 4; os <= osx(pixel) + 4; os++)
            reachedx |= devicex(os) == pixel;
        for (int32_t os = osy(pixel) - 4; os <= osy(pixel) + 4; os++)
            reachedy |= devicey(os) == pixel;
        CHECK((x == pixel) == reachedx);
        CHECK((y == pixel) == reachedy);
        if (all) {
            CHECK(x == pixel);
            CHECK(y == pixel);
        }
    }
}

} // namespace

TEST_CASE("exact products drop their fraction")
{
    CHECK(muldiv64(7, 96, 180) == 3);
    CHECK(muldiv64(-7, 96, 180) == -3);
    CHECK(muldiv64(7, 96, -180) == -3);
    CHECK(muldiv64(INT_MAX, INT_MAX, INT_MAX) == INT_MAX);
    CHECK(muldiv64(INT_MIN, INT_MIN, INT_MIN) == INT_MIN);
    CHECK(muldiv64(int64_t{INT_MAX} - INT_MIN, INT_MIN, INT_MIN) == -1); // its low 32 bits
    CHECK(muldiv64(int64_t{INT_MIN} - INT_MAX, INT_MIN, INT_MAX) == 1);
    CHECK(muldiv64(0x40000000, 4, 1) == 0);
    CHECK(muldiv64(INT_MIN, INT_MIN, -1) == 0);
    CHECK(muldiv64(5, 5, 0) == 0);
}

TEST_CASE("OS units to pixels, y turned round")
{
    drawn();
    CHECK(devicex(180) == 96);
    CHECK(devicey(-180) == 96);
    CHECK(devicey(180) == -96);
    CHECK(devicex(100) == 53);
    CHECK(devicex(-100) == -53);
    CHECK(devicex(1) == 0);
    CHECK(devicex(-1) == 0);
    CHECK(osx(96) == 180);
    CHECK(osy(96) == -180);
    CHECK(osx(1) == 1);
    CHECK(osy(1) == -1);
    // The ends of the range give numbers: these are exact, and what is beyond 32
    // bits goes round.
    CHECK(devicex(INT_MAX) == 1145324611);
    CHECK(devicey(INT_MIN) == 1145324612);
    int32_t x = INT_MIN, y = INT_MAX;
    surfacenearest(&x, &y);
    CHECK(osx(INT_MAX) == -268435458); // 4026531838
}

TEST_CASE("an origin falls out at the normal unit, and is what a zoom leaves in place")
{
    surface *s = drawn(100, -50);
    CHECK(s->shiftx == 100);
    CHECK(s->shifty == -50);
    CHECK(s->deviceshiftx == 53);
    CHECK(s->deviceshifty == 27);
    CHECK(devicex(100) == 53);
    for (int32_t x = -1000; x <= 1000; x += 7) {
        double exact = x * 96 / 180.0; // two roundings, of the shift and of the rest
        CHECK(std::abs(devicex(x) - exact) < 1.5);
        CHECK(std::abs(devicey(x) + exact) < 1.5);
    }
    surfacesetunits(90, 360); // twice as large, half as large
    CHECK(s->shiftx == 50);
    CHECK(s->shifty == -100);
    CHECK(devicex(50) == 53);
    CHECK(devicey(-100) == 27);
    CHECK(devicex(50 + 90) == 53 + 96);
    CHECK(devicey(-100 - 360) == 27 + 96);
    surfacesetscale(1, 2, 3, 4);
    CHECK(s->unitx == 1);
    CHECK(s->unity == 2);
    CHECK(s->scalex == 3);
    CHECK(s->scaley == 4);
    CHECK(s->shiftx == 1);       // 0.56
    CHECK(s->deviceshiftx == 2); // 1.67
    CHECK(s->deviceshifty == 1); // 1.11
}

TEST_CASE("the nearest position maps back to its pixel")
{
    surface *s = drawn(137, -211);
    SUBCASE("96 to the inch") {}
    SUBCASE("120 to the inch")
    {
        surfacesetscale(180, 180, 120, 120);
    }
    SUBCASE("odd units")
    {
        surfacesetunits(197, 333);
    }
    SUBCASE("one for one, either way up")
    {
        surfaceidentity(s);
        surfacesetstate(s, [] {
            static surfacescale state;
            surfacestate(currentsurface, &state);
            state.unity = -1;
            return &state;
        }());
    }
    SUBCASE("turned round")
    {
        surfacesetscale(180, -180, -150, 150);
    }
    checknearest(true);
}

TEST_CASE("finer pixels than OS units: the nearest is next to it")
{
    drawn(137, -211);
    SUBCASE("printer")
    {
        surfacesetscale(180, 180, 300, 600);
    }
    SUBCASE("zoom")
    {
        surfacesetunits(45, -60);
    }
    checknearest(false);
    for (int32_t pixel = -300; pixel < 300; pixel++) {
        int32_t x = pixel, y = pixel;
        surfacenearest(&x, &y);
        CHECK(std::abs(devicex(x) - pixel) < std::abs(devicex(x + 1) - devicex(x - 1)));
    }
}

TEST_CASE("a surface without a scale stands still")
{
    surface *s = drawn();
    s->scalex = s->scaley = 0;
    int32_t x = 17, y = -5;
    surfacenearest(&x, &y);
    CHECK(x == 0);
    CHECK(y == 0);
    s->unitx = s->unity = 0;
    CHECK(devicex(12) == 0);
    CHECK(finex(12) == 0);
}

TEST_CASE("fine coordinates are 256ths")
{
    drawn(100, 30);
    for (int32_t x = -500; x <= 500; x++)
        CHECK(finex(x * 256) == devicex(x));
    drawn();
    CHECK(finex(479) == 0); // just below one pixel
    CHECK(finex(480) == 1); // 1.875 OS units
    CHECK(finex(-480) == -1);
    int32_t x = 0, y = -480;
    surfacedevicefine(&x, &y);
    CHECK(y == 1);
}

TEST_CASE("a surface one for one with its pixels")
{
    surface *s = drawn(100, 100);
    surfaceidentity(s);
    CHECK(devicex(17) == 17);
    CHECK(devicey(17) == -17);
    surfaceidentityup(s);
    CHECK(devicex(-17) == -17);
    CHECK(devicey(17) == 17);
    CHECK(osy(17) == 17);
}

TEST_CASE("the scale is kept and put back")
{
    surface *s = drawn(90, -45);
    surfacescale kept;
    surfacestate(s, &kept);
    surfaceidentity(s);
    surfacesetstate(s, &kept);
    CHECK(s->unitx == 180);
    CHECK(s->unity == 180);
    CHECK(s->scalex == 96);
    CHECK(s->scaley == 96);
    CHECK(s->shiftx == 90);
    CHECK(s->deviceshifty == 24);

    // The shifts that come back are those of the origin, whatever was kept.
    kept.shiftx = 12345;
    s->originx = 180;
    surfacesetstate(s, &kept);
    CHECK(s->shiftx == 180);
    CHECK(s->deviceshiftx == 96);
}

TEST_CASE("a metafile's scale leaves y alone")
{
    drawn();
    surfacesetscale(180, -180, 180, 180);
    CHECK(devicey(77) == 77);
    CHECK(devicex(77) == 77);
}

TEST_CASE("initialised, a surface has nothing and the screen's scale")
{
    surface s;
    s = {};
    s.pen = s.savedpen = s.brush = s.savedbrush = s.font = s.savedfont = 1;
    s.originx = s.originy = 5;
    s.flags = SURFACECLIPPED;
    modeinfo.xdpi = 72;
    modeinfo.ydpi = 144;
    surfaceinit(&s);
    CHECK((s.pen | s.savedpen | s.brush | s.savedbrush | s.font | s.savedfont) == 0);
    CHECK(s.originx == 0);
    CHECK(s.originy == 0);
    CHECK(s.unitx == 180);
    CHECK(s.scalex == 72);
    CHECK(s.scaley == 144);
    CHECK(s.flags == SURFACECLIPPED);
}

TEST_CASE("a view moves by whole pixels, at any scale and whatever is set later")
{
    surface *s = drawn(100, -50);
    for (int32_t unit : {180, 90, 37}) {
        surfaceview(s, 0, 0);
        surfacesetunits(unit, unit);
        int32_t x = devicex(1003), y = devicey(-777);
        surfaceview(s, 13, 29);
        CHECK(devicex(1003) == x - 13);
        CHECK(devicey(-777) == y - 29);
        surfacescale kept;
        surfacestate(s, &kept);
        surfacesetscale(1, 1, 3, 3);
        surfacesetstate(s, &kept);
        CHECK(devicex(1003) == x - 13);
        CHECK(devicey(-777) == y - 29);
    }
    surfaceinit(s);
    surfaceshifts(s);
    CHECK(devicex(180) == 96);
    clearcurrentsurface();
}

TEST_CASE("the chain of surfaces")
{
    REQUIRE_FALSE(surfaces);
    surface *a = nullptr, *b = nullptr, *c = nullptr;
    REQUIRE_FALSE(surfacenew(&a));
    REQUIRE_FALSE(surfacenew(&b));
    REQUIRE_FALSE(surfacenew(&c));
    CHECK(surfaces == c);
    CHECK(c->next == b);
    CHECK(b->next == a);
    CHECK(a->prev == b);
    CHECK_FALSE(a->next);
    CHECK_FALSE(c->prev);
    CHECK(a->unitx == 0);
    surfacefree(b);
    CHECK(c->next == a);
    CHECK(a->prev == c);
    surfacefree(c);
    CHECK(surfaces == a);
    CHECK_FALSE(a->prev);

    flexfailafter(0);
    surface *none = nullptr;
    errorblock *err = surfacenew(&none);
    REQUIRE(err);
    CHECK(err->code == ERRORMEMORY);
    CHECK_FALSE(none);
    CHECK(surfaces == a);
    surfacefree(a);
    CHECK_FALSE(surfaces);
}
