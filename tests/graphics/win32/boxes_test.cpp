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
    auto line = [&](int32_t x0, int32_t y0, int32_t x1, int32_t y1) {
        c.clear();
        moveto(x0, y0);
        lineto(x1, y1);
        return c.picture();
    };
    // Backwards, aslant, and onto its own beginning.
    CHECK(line(5, -3, 2, -3) == rows("........ ........ ........ ..####.. ........"));
    CHECK(line(0, 0, 4, -4) == rows("#....... .#...... ..#..... ...#.... ....#..."));
    CHECK(line(3, -2, 3, -2) == rows("........ ........ ...#.... ........ ........"));
}

TEST_CASE("fillbox leaves the right and the bottom edge out")
{
    canvas c(7, 6);
    setcolour(0x00000000);
    auto filled = [&](int32_t x, int32_t y, int32_t width, int32_t height) {
        c.clear();
        fillbox(x, y, width, height);
        return c.picture();
    };
    // From any of its corners; a negative size is the same box.
    const std::string box = rows("....... .####.. .####.. .####.. ....... .......");
    CHECK(filled(1, -4, 4, 3) == box);
    CHECK(filled(5, -1, -4, -3) == box);
    CHECK(filled(5, -4, -4, 3) == box);
    // A column and a row, all of it, and nothing.
    CHECK(filled(2, -4, 1, 3) == rows("....... ..#.... ..#.... ..#.... ....... ......."));
    CHECK(filled(4, -3, 3, 1) == rows("....... ....... ....### ....... ....... ......."));
    CHECK(filled(0, -6, 7, 6) == rows("####### ####### ####### ####### ####### #######"));
    const std::string blank = rows("....... ....... ....... ....... ....... .......");
    CHECK(filled(2, -2, 0, 3) == blank);
    CHECK(filled(2, -2, 3, 0) == blank);
    // Far ends stay on their side.
    CHECK(filled(INT32_MAX, -4, INT32_MAX, 3) == blank);
    CHECK(filled(INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX) == blank);
    CHECK(filled(3, -4, INT32_MAX, INT32_MAX) ==
          rows("...#### ...#### ...#### ...#### ....... ......."));

    // A single pixel takes part in the mode too.
    setcolourmode(0x00ffff00, COLOURXOR);
    filled(2, -4, 1, 1);
    CHECK(c.at(2, 3) == 0xff0000);
    CHECK(c.count() == 1);
    fillbox(2, -4, 1, 1);
    CHECK(c.blank());
}

TEST_CASE("drawbox covers its end pixels")
{
    canvas c(7, 6);
    setcolour(0x00000000);
    drawbox(1, -4, 4, 2);
    CHECK(c.picture() == rows("....... .#####. .#####. .#####. ....... ......."));
    c.clear();
    drawbox(3, -4, 0, 0);
    CHECK(c.picture() == rows("....... ....... ....... ...#... ....... ......."));
    c.clear();
    drawbox(5, -2, -4, -2);
    CHECK(c.picture() == rows("....... .#####. .#####. .#####. ....... ......."));
}

TEST_CASE("hollowbox is the outline of fillbox, and the brush comes back")
{
    canvas c(7, 6);
    setcolour(0x00000000);
    hollowbox(1, -5, 5, 4);
    CHECK(c.picture() == rows("....... .#####. .#...#. .#...#. .#####. ......."));
    c.clear();
    fillbox(2, -5, 4, 4);
    CHECK(c.picture() == rows("....... ..####. ..####. ..####. ..####. ......."));
}

TEST_CASE("linebox is closed, and covers all four corners")
{
    canvas c(7, 6);
    setcolour(0x00000000);
    const std::string box = rows("....... .#####. .#...#. .#...#. .#####. .......");
    linebox(1, -4, 4, 3);
    CHECK(c.picture() == box);
    c.clear();
    linebox(5, -1, -4, -3);
    CHECK(c.picture() == box);

    int32_t x = 0, y = 0;
    getcursorpos(&x, &y);
    CHECK(x == 5);
    CHECK(y == 1);
    CHECK(plotlast(0).x == 0); // the ring is not touched
}

TEST_CASE("boxes that touch in OS units touch in pixels at any scale")
{
    for (int32_t scale : {72, 96, 120, 144, 180, 300}) {
        CAPTURE(scale);
        canvas c(90, 90, scale);
        int32_t pixels = 0;
        for (int32_t column = 0; column < 5; column++) {
            setcolour(column & 1 ? 0xff000000 : 0x0000ff00);
            fillbox(column * 7, -40, 7, 40);
            CHECK(c.count() > pixels); // more, and none twice
            pixels = c.count();
        }
        int32_t width = 35 * scale / 180, height = 40 * scale / 180;
        CHECK(c.drawn() == canvas::extent{0, 0, width - 1, height - 1});
        CHECK(pixels == width * height);
    }
}

TEST_CASE("an outline at 96 to the inch lies where its corners are")
{
    canvas c(120, 120, 96);
    setcolour(0x00000000);
    linebox(20, -180, 160, 160); // 10.67 and 96, 10.67 and 96
    CHECK(c.drawn() == canvas::extent{10, 10, 96, 96});
    c.clear();
    hollowbox(20, -180, 160, 160);
    CHECK(c.drawn() == canvas::extent{10, 10, 95, 95});
    c.clear();
    drawbox(20, -180, 160, 160);
    CHECK(c.drawn() == canvas::extent{10, 9, 96, 95});
}
