#include "desktop/scroll.h"

#include <doctest/doctest.h>

#include <cstddef>
#include <vector>

TEST_CASE("a position stops at the ends of its range, or lies where a small one does")
{
    const struct {
        int32_t minimum, maximum, page, position, limited;
        bool centred = false;
    } rows[] = {
        {0, 1000, 300, 400, 400},   {0, 1000, 300, 700, 700},     {0, 1000, 300, 701, 700},
        {0, 1000, 300, -1, 0},      {-500, 200, 300, -501, -500}, {-500, 200, 300, 0, -100},
        {0, 200, 300, 50, 0},       {0, 200, 300, 50, -50, true}, {100, 300, 301, 0, 50, true},
        {0, 300, 300, 20, 0, true}, {0, 301, 300, 20, 1, true}, // it is scrolled, not centred
    };
    for (const auto &r : rows)
        CHECK(scrolllimit({r.minimum, r.maximum, r.page, 0}, r.position, r.centred) == r.limited);
}

TEST_CASE("scroll codes ask for lines of a tenth of the page, pages and ends")
{
    const struct {
        int32_t code, thumb, position;
    } rows[] = {{SCROLLLINEBACK, 0, 470},       {SCROLLLINEON, 0, 530},  {SCROLLPAGEBACK, 0, 200},
                {SCROLLPAGEON, 0, 800},         {SCROLLTHUMB, 123, 123}, {SCROLLFIRST, 7, -100},
                {SCROLLTHUMBTRACK, 5000, 5000}, {SCROLLLAST, 7, 1000},   {8, 7, 500}};
    for (const auto &row : rows)
        CHECK(scrollstep({-100, 1000, 300, 500}, row.code, row.thumb) == row.position);
    CHECK(scrollstep({0, 100, 9, 4}, SCROLLLINEON, 0) == 5);
}

TEST_CASE("small turns of a wheel add up, and turning back starts afresh")
{
    const struct {
        std::vector<int32_t> deltas, lines;
    } rows[] = {{{120, -120}, {3, -3}},
                {{39, 1, 79, 1, 100, 20}, {0, 1, 1, 1, 2, 1}},
                {{39, -39, -1}, {0, 0, -1}},
                {{30, -30, 30, 10}, {0, 0, 0, 1}}};
    for (const auto &row : rows) {
        int32_t remainder = 0, direction = 0;
        for (std::size_t i = 0; i < row.deltas.size(); i++)
            CHECK(scrollwheel(row.deltas[i], &remainder, &direction) == row.lines[i]);
    }
}
