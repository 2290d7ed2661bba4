#include "app/layout.h"

#include "grid/grid.h"

#include <doctest/doctest.h>

#include <cstring>
#include <initializer_list>

namespace
{

bool same(const pixelbox &a, const pixelbox &b)
{
    return !memcmp(&a, &b, sizeof a);
}

} // namespace

TEST_CASE("the bar is on top, the panes share what is left round a gap of four pixels")
{
    panelayout panes = layoutpanes({100, 50, 740, 450}, 36, 0x5000); // 200 of 640
    CHECK(same(panes.bar, {100, 50, 740, 86}));
    CHECK(same(panes.list, {100, 86, 298, 450}));
    CHECK(same(panes.grid, {302, 86, 740, 450}));
    panes = layoutpanes({-1001, 0, -1, 10}, 0, 0x8001); // left of the first screen, rounded down
    CHECK((panes.list.right == -1001 + 500 - 2 && panes.grid.left == -1001 + 500 + 2));
    panes = layoutpanes({100, 50, 740, 450}, 36, 0x5000, 8);
    CHECK((panes.list.right == 296 && panes.grid.left == 304));
    for (int32_t wide = 1; wide < 3000; wide += 7) // the area that a pane of the grid needs
        for (uint32_t fraction : {SPLITMIN, SPLITDEFAULT, SPLITMAX})
            for (int32_t less : {0, 1}) {
                int32_t width = layoutwidth(wide, fraction, 8) - less;
                panes = layoutpanes({0, 0, width, 9}, 0, fraction, 8);
                CHECK((panes.grid.right - panes.grid.left >= wide) == !less);
            }
    for (int32_t width = -1; width < 8; width++) // too small: empty panes
        for (int32_t height = -1; height < 8; height++)
            for (uint32_t fraction : {SPLITMIN, SPLITDEFAULT, SPLITMAX}) {
                panes = layoutpanes({10, 20, 10 + width, 20 + height}, 5, fraction);
                for (const pixelbox &box : {panes.bar, panes.list, panes.grid})
                    CHECK((box.right >= box.left && box.bottom >= box.top));
                CHECK(panes.bar.bottom == 25);
            }
}

TEST_CASE("a splitter goes where it is let go, as far as it may")
{
    const struct {
        int32_t left, right, x;
        uint32_t fraction;
    } rows[] = {{100, 740, 300, 0x5000},
                {100, 740, -5000, SPLITMIN},
                {100, 740, 740, SPLITMAX},
                {100, 740, 132, SPLITMIN}, // 3276.8 of 65536
                {100, 740, 133, 3379},
                {100, 100, 100, SPLITDEFAULT},
                {-2000000000, 2000000000, 0, 0x8000}};
    for (const auto &row : rows)
        CHECK(layoutfraction(row.left, row.right, row.x) == row.fraction);
    for (int32_t x = 60; x < 600; x++) {
        panelayout panes = layoutpanes({0, 0, 640, 400}, 0, layoutfraction(0, 640, x));
        int32_t behind = x - (panes.grid.left - SPLITTERWIDTH / 2);
        CHECK((behind == 0 || behind == 1));
    }
}
