// The shapes of plot. Straight ones are looked at pixel by pixel; of round ones
// systems differ in a pixel here and there, so these are measured.
#include "graphics/plot.h"

#include "graphics/colours.h"
#include "graphics/win32/surfacecontext.h"
#include "tests/graphics/win32/canvas.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <cmath>
#include <cstdlib>

namespace
{

struct round {
    int32_t x, y, rx, ry; // the centre and both radii
};

// Every pixel drawn lies on the shape, but for a part of its radius.
void checkround(const canvas &c, const round &shape, double within)
{
    for (int32_t row = 0; row < c.height; row++)
        for (int32_t column = 0; column < c.width; column++)
            if (c.at(column, row) != 0xFFFFFF) {
                double across = static_cast<double>(column - shape.x) / shape.rx;
                double down = static_cast<double>(row - shape.y) / shape.ry;
                CHECK(std::abs(std::hypot(across, down) - 1) < within);
            }
}

bool black(const canvas &c, int32_t x, int32_t y)
{
    return c.at(x, y) == 0;
}

// The box of a round shape begins just there, and ends a pixel around.
bool spans(const canvas &c, const canvas::extent &wanted)
{
    canvas::extent box = c.drawn();
    return box.left == wanted.left && box.top == wanted.top &&
           std::abs(box.right - wanted.right) <= 1 && std::abs(box.bottom - wanted.bottom) <= 1;
}

} // namespace

TEST_CASE("plot draws lines and pixels")
{
    canvas c(8, 5);
    setcolour(0x00000000);
    SUBCASE("all multiples of 8 below 64 are lines")
    {
        for (int32_t shape = 0; shape < 64; shape += 8) {
            c.clear();
            plot(PLOTMOVE, 1, -1);
            plot(shape + PLOTDRAW, 4, -1);
            CHECK(c.picture() == rows("........ .####... ........ ........ ........"));
        }
    }
    SUBCASE("actions 5, 6 and 7 draw alike, and 4 not at all")
    {
        for (int32_t action = 4; action < 8; action++) {
            c.clear();
            plot(PLOTMOVE, 1, -1);
            plot(action, 1, -3);
            CHECK(c.count() == (action == 4 ? 0 : 3));
        }
    }
    SUBCASE("relative ones start at the last point")
    {
        moveto(2, -1);
        plot(0, 1, -1); // to 3, 2, undrawn
        CHECK(c.blank());
        plot(1, 3, 0);
        plot(PLOTPOINT + 2, 1, -2);
        CHECK(c.picture() == rows("........ ........ ...####. ........ .......#"));
        const int32_t entered[] = {7, 6, 3, 2};
        for (int32_t back = 0; back < 4; back++)
            CHECK(plotlast(back).x == entered[back]);
    }
    SUBCASE("a line after a shape begins at the shape's last point")
    {
        plot(PLOTMOVE, 0, 0);
        plot(PLOTPOINT + PLOTDRAW, 2, -3);
        plot(PLOTLINE + PLOTDRAW, 4, -3);
        CHECK(c.picture() == rows("........ ........ ........ ..###... ........"));
    }
    SUBCASE("what is no shape draws nothing and enters the ring")
    {
        for (int32_t shape : {72, 88, 104, 120, 128, 136, 152, 160, 168, 184, 200, 208, 248}) {
            plot(PLOTMOVE, 1, -1);
            plot(shape + PLOTDRAW, 5, -3);
            CHECK(c.blank());
            CHECK(plotlast(0).x == 5);
            CHECK(plotlast(0).y == 3);
            CHECK(plotlast(1).x == 1);
        }
    }
    SUBCASE("a pixel has the colour that is set")
    {
        setcolour(0x3322ff00);
        plot(PLOTPOINT + PLOTDRAW, 1, 0);
        CHECK(c.at(1, 0) == 0x3322ff);
    }
}

TEST_CASE("triangles and parallelograms are filled, without an outline")
{
    canvas c(30, 30);
    setcolour(0x00000000);
    SUBCASE("triangle")
    {
        plot(PLOTMOVE, 2, -2);
        plot(PLOTMOVE, 22, -2);
        plot(PLOTTRIANGLE + PLOTDRAW, 2, -22);
        CHECK(std::abs(c.count() - 200) < 30); // half of 20 by 20
        CHECK(black(c, 3, 3));
        CHECK(black(c, 10, 10));
        CHECK_FALSE(black(c, 14, 14));
        CHECK(c.drawn().left == 2);
        CHECK(c.drawn().top == 2);
    }
    SUBCASE("before two points were given the ring's zeros serve")
    {
        plot(PLOTMOVE, 20, 0);
        plot(PLOTTRIANGLE + PLOTDRAW, 0, -20);
        CHECK(black(c, 4, 4));
        CHECK(std::abs(c.count() - 200) < 30);
    }
    SUBCASE("parallelogram")
    {
        plot(PLOTMOVE, 2, -2);
        plot(PLOTMOVE, 12, -2);
        plot(PLOTPARALLELOGRAM + PLOTDRAW, 22, -12); // and 12, -12
        CHECK(std::abs(c.count() - 100) <= 5);
        CHECK(black(c, 12, 7));
        CHECK(black(c, 4, 3));
        CHECK(black(c, 19, 11));
        CHECK_FALSE(black(c, 20, 3));
        CHECK_FALSE(black(c, 4, 11));
    }
    // The pen came back.
    c.clear();
    hollowbox(1, -5, 4, 4);
    CHECK(c.count() == 12);
}

TEST_CASE("rectangles are exact")
{
    canvas c(6, 5);
    setcolour(0x00000000);
    const std::string box = rows("...... .###.. .###.. ...... ......");
    plot(PLOTMOVE, 1, -1);
    plot(PLOTRECTANGLE + PLOTDRAW, 4, -3);
    CHECK(c.picture() == box);
    c.clear();
    plot(PLOTMOVE, 4, -3);
    plot(PLOTRECTANGLE + PLOTDRAW, 1, -1);
    CHECK(c.picture() == box);
    c.clear();
    plot(PLOTMOVE, 4, -3);
    plot(PLOTRECTANGLE + PLOTDRAW, 5, -4);
    CHECK(c.picture() == rows("...... ...... ...... ....#. ......"));
}

TEST_CASE("a circle goes round the last point")
{
    canvas c(60, 60);
    setcolour(0x00000000);
    plot(PLOTMOVE, 30, -30);
    plot(PLOTCIRCLE + PLOTDRAW, 42, -46); // 12, 16: a radius of 20
    CHECK(spans(c, {10, 10, 49, 49}));
    CHECK(black(c, 10, 30));
    checkround(c, {30, 30, 20, 20}, 2.0 / 20);
    CHECK(std::abs(c.count() - 115) < 15); // one pixel thick all round

    c.clear();
    plot(PLOTMOVE, 30, -30);
    plot(PLOTCIRCLE + PLOTDRAW, 35, -35); // 7.07, whose fraction is dropped
    CHECK(c.drawn().left == 23);
}

TEST_CASE("an ellipse is as wide as the last point and as high as this one")
{
    canvas c(80, 60);
    setcolour(0x00000000);
    plot(PLOTMOVE, 40, -30);
    plot(PLOTMOVE, 10, -3); // y is of no matter
    plot(PLOTELLIPSE + PLOTDRAW, 77, -50);
    CHECK(spans(c, {10, 10, 69, 49}));
    checkround(c, {40, 30, 30, 20}, 0.1);
}

TEST_CASE("a pie goes from the last point to this one round the older")
{
    canvas c(60, 60);
    setcolour(0x00000000);
    plot(PLOTMOVE, 30, -30);
    plot(PLOTMOVE, 50, -30);           // right
    plot(PLOTPIE + PLOTDRAW, 30, -10); // up: against the clock
    CHECK(black(c, 36, 24));
    CHECK(black(c, 42, 18));
    CHECK_FALSE(black(c, 24, 24));
    CHECK_FALSE(black(c, 36, 36));
    CHECK_FALSE(black(c, 24, 36));
    CHECK_FALSE(black(c, 48, 12));
    CHECK(std::abs(c.count() - 305) < 35); // a quarter of a disc of radius 20
    c.clear();
    hollowbox(1, -5, 4, 4); // the pen came back
    CHECK(c.count() == 12);
}

TEST_CASE("the cursor is told in pixels, and a curve moves it but not the ring")
{
    canvas c(40, 40, 90);
    setcolour(0x00000000);
    moveto(20, -20);
    int32_t x = 0, y = 0;
    getcursorpos(&x, &y);
    CHECK(x == 10);
    CHECK(y == 10);
    bezierto(20, -60, 60, -60, 60, -20);
    getcursorpos(&x, &y);
    CHECK(x == 30);
    CHECK(y == 10);
    CHECK(plotlast(0).x == 10);
    canvas::extent box = c.drawn();
    CHECK(box.left == 10);
    CHECK(box.right >= 29);
    CHECK(std::abs(box.bottom - 25) <= 1); // its lowest is three quarters of the way down
}

TEST_CASE("paths are filled by either rule")
{
    canvas c(40, 40);
    setcolour(0x00000000);
    auto square = [](int32_t from, int32_t to) {
        moveto(from, -from);
        lineto(to, -from);
        lineto(to, -to);
        lineto(from, -to);
        pathclose();
    };
    for (bool even : {true, false}) {
        pathfillmode(even);
        pathbegin();
        square(5, 35);
        square(15, 25);
        pathend();
        c.clear(); // the end points of lines, which no path takes
        pathpaint();
        CHECK(black(c, 10, 10));
        CHECK(black(c, 5, 20));
        CHECK_FALSE(black(c, 3, 20));
        CHECK(black(c, 20, 20) == !even);
    }
}

TEST_CASE("pens other than the plain one")
{
    canvas c(40, 5);
    setcolour(0x00000000);
    SUBCASE("dotted")
    {
        SetBkMode(surfacecontext(), TRANSPARENT);
        pathdotted();
        moveto(0, -2);
        lineto(39, -2);
        CHECK(std::abs(c.count() - 22) < 12);
        CHECK(c.drawn().top == 2);
        CHECK(c.drawn().bottom == 2);
    }
    SUBCASE("geometric")
    {
        surfaceextpen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_FLAT, 3, 0x0000ff00, 0, nullptr);
        moveto(5, -2);
        LineTo(surfacecontext(), 35, 2);
        CHECK(c.drawn() == canvas::extent{5, 1, 34, 3});
        CHECK(c.at(20, 2) == 0x0000ff);
    }
    SUBCASE("dashes of one's own")
    {
        const uint32_t dashes[] = {6, 4};
        surfaceextpen(PS_GEOMETRIC | PS_USERSTYLE | PS_ENDCAP_FLAT, 1, 0, 2, dashes);
        moveto(0, -2);
        LineTo(surfacecontext(), 40, 2);
        CHECK(std::abs(c.count() - 24) <= 2);
    }
    // Each replaced the one before it, and is replaced.
    setcolour(0xff000000);
    c.clear();
    moveto(0, 0);
    lineto(39, 0);
    CHECK(c.count() == 40);
    CHECK(c.at(7, 0) == 0xff0000);
}
