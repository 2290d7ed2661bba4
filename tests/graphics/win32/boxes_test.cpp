// The exact pixels of lines and boxes. On the canvas an OS unit is a pixel, and
// y = 0 is the first row, so that y = -3 is the fourth.
#include "graphics/colours.h"
#include "graphics/plot.h"
#include "tests/graphics/win32/canvas.h"

#include <doctest/doctest.h>

TEST_CASE("a line covers both its ends")
{
    canvas c(8, 5);
    setcolour(0x00000000);
    moveto(1, -1);
    lineto(5, -1);
    lineto(5, -3);
    CHECK(c.picture() == rows("........ .#####.. .....#.. .....#.. ........"));
    c.clear();
    SUBCASE("backwards")
    {
        moveto(5, -3);
        lineto(2, -3);
        CHECK(c.picture() == rows("........ ........ ........ ..####.. ........"));
    }
    SUBCASE("aslant")
    {
        moveto(0, 0);
        lineto(4, -4);
        CHECK(c.picture() == rows("#....... .#...... ..#..... ...#.... ....#..."));
    }
    SUBCASE("onto its own beginning")
    {
        moveto(3, -2);
        lineto(3, -2);
        CHECK(c.picture() == rows("........ ........ ...#.... ........ ........"));
    }
}
