#include "desktop/scroll.h"

#include <doctest/doctest.h>

#include <initializer_list>
#include <vector>

namespace
{

// What comes of wheel events, one after the other.
std::vector<int32_t> turned(std::initializer_list<int32_t> deltas)
{
    int32_t remainder = 0, direction = 0;
    std::vector<int32_t> lines;
    for (int32_t delta : deltas)
        lines.push_back(scrollwheel(delta, &remainder, &direction));
    return lines;
}

using steps = std::vector<int32_t>;

} // namespace

TEST_CASE("a position stops at the ends of the range")
{
    scrollbar bar = {0, 1000, 300, 0};
    CHECK(scrolllimit(bar, 400, false) == 400);
    CHECK(scrolllimit(bar, 700, false) == 700);
    CHECK(scrolllimit(bar, 701, false) == 700);
    CHECK(scrolllimit(bar, -1, false) == 0);

    // A range that doesn't begin at 0, such as work above the origin.
    scrollbar above = {-500, 200, 300, 0};
    CHECK(scrolllimit(above, -501, false) == -500);
    CHECK(scrolllimit(above, 0, false) == -100);
}

TEST_CASE("a work area smaller than the window lies at its start or in its middle")
{
    scrollbar bar = {0, 200, 300, 0};
    CHECK(scrolllimit(bar, 50, false) == 0);
    CHECK(scrolllimit(bar, 50, true) == -50);
    CHECK(scrolllimit({100, 300, 301, 0}, 0, true) == 50); // half a pixel is dropped
    CHECK(scrolllimit({0, 300, 300, 0}, 20, true) == 0);   // it just fits
    CHECK(scrolllimit({0, 301, 300, 0}, 20, true) == 1);   // it is scrolled, not centred
}

TEST_CASE("scroll codes ask for lines of a tenth of the page, pages and ends")
{
    scrollbar bar = {-100, 1000, 300, 500};
    CHECK(scrollstep(bar, SCROLLLINEBACK, 0) == 470);
    CHECK(scrollstep(bar, SCROLLLINEON, 0) == 530);
    CHECK(scrollstep(bar, SCROLLPAGEBACK, 0) == 200);
    CHECK(scrollstep(bar, SCROLLPAGEON, 0) == 800);
    CHECK(scrollstep(bar, SCROLLTHUMB, 123) == 123);
    CHECK(scrollstep(bar, SCROLLTHUMBTRACK, 5000) == 5000);
    CHECK(scrollstep(bar, SCROLLFIRST, 7) == -100);
    CHECK(scrolllimit(bar, scrollstep(bar, SCROLLLAST, 7), false) == 700);
    CHECK(scrollstep(bar, 8, 7) == 500); // the end of a press on the bar
    CHECK(scrollstep({0, 100, 9, 4}, SCROLLLINEON, 0) == 5);
}

TEST_CASE("small turns of a wheel add up, and turning back starts afresh")
{
    CHECK(turned({120}) == steps{3});
    CHECK(turned({-120}) == steps{-3});
    CHECK(turned({39, 1, 79, 1}) == steps{0, 1, 1, 1});
    CHECK(turned({-39, -1}) == steps{0, -1});
    CHECK(turned({39, -39, -1}) == steps{0, 0, -1});
    CHECK(turned({30, -30, 30, 10}) == steps{0, 0, 0, 1});
    CHECK(turned({100, 20}) == steps{2, 1});
}
