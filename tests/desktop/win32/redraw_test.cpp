// Paints of windows: what they are told to paint, and what is seen afterwards.
#include "desktop/redraw.h"

#include "base/errors.h"
#include "base/flex.h"
#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "desktop/windows.h"
#include "graphics/colours.h"
#include "graphics/dragbox.h"
#include "graphics/modeinfo.h"
#include "graphics/plot.h"
#include "graphics/surface.h"
#include "tests/desktop/win32/taskwindows.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>

#include <cstdlib>

namespace
{

constexpr uint32_t RED = 0x0000FF00, GREEN = 0x00FF0000;
constexpr uint32_t SEENWHITE = 0xFFFFFF, SEENRED = 0xFF0000, SEENGREEN = 0x00FF00,
                   SEENBLUE = 0x0000FF;

uint32_t paintcolour; // of a redraw
redrawrecord last;    // of the last one
int paints;

// Fills the clip.
errorblock *paint(window self, intptr_t)
{
    return taskpaint(self, [](const redrawrecord &r) {
        CHECK(currentsurface == r.drawing);
        paints++;
        last = r;
        setcolour(paintcolour);
        fillbox(r.cx0, r.cy0, r.cx1 - r.cx0, r.cy1 - r.cy0);
    });
}

// A window of 160 by 120 pixels at 100, 100, with a view that has moved.
window painted()
{
    REQUIRE_FALSE(blockstart());
    window w = taskwindow(WS_POPUP);
    REQUIRE_FALSE(setbackground(w, BACKGROUNDWHITE));
    taskopen(w, 100, 100, 160, 120, BEHINDTOP);
    REQUIRE_FALSE(setextent(w, 0, -3000, 3000, 0));
    REQUIRE_FALSE(scrollto(w, devtoosx(40), -devtoosy(64)));
    REQUIRE_FALSE(addredrawhandler(paint, w, 0));
    paintcolour = RED;
    drivepump();
    paints = 0;
    return w;
}

// How many pixels of a colour are in the client area.
int count(window w, uint32_t colour)
{
    drivepicture seen = drivelook(w);
    int found = 0;
    for (uint32_t pixel : seen.pixels)
        found += pixel == colour;
    return found;
}

// Pixels from 10 to 30 from the left of the view and from 20 to 50 from its top, and
// the same in its work area.
osbox middle()
{
    return {devtoosx(50), -devtoosy(114), devtoosx(70), -devtoosy(84)};
}

// They are green, and no more than a pixel around them.
void checkmiddle(window w)
{
    drivepicture seen = drivelook(w);
    for (driveplace green : {driveplace{10, 20}, {29, 49}})
        CHECK(seen.at(green.x, green.y) == SEENGREEN);
    for (driveplace red : {driveplace{8, 30}, {31, 30}, {20, 18}, {20, 51}})
        CHECK(seen.at(red.x, red.y) == SEENRED);
    CHECK(count(w, SEENGREEN) <= 22 * 32);
}

// A colour of the system as the screen shows it.
uint32_t seencolour(COLORREF colour)
{
    return (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF);
}

} // namespace

TEST_CASE("a forced redraw paints that rectangle of the work area and no more")
{
    window w = painted();
    CHECK(count(w, SEENRED) == 160 * 120);
    paintcolour = GREEN;
    osbox area = middle();
    REQUIRE_FALSE(forceredraw(w, area.x0, area.y0, area.x1, area.y1));
    drivepump();
    CHECK(paints == 1);
    checkmiddle(w);
    taskwindowsend();
}

TEST_CASE("the record tells the view and a clip that covers the pixels")
{
    window w = painted();
    redrawall(w);
    drivepump();
    CHECK(last.x0 == 0);
    CHECK(last.y1 == 0);
    CHECK(last.x1 == devtoosx(160));
    CHECK(last.y0 == -devtoosy(120));
    CHECK(last.xscroll == devtoosx(40));
    CHECK(last.yscroll == -devtoosy(64));
    CHECK(abs(last.cx0 - devtoosx(40)) <= 3);
    CHECK(abs(last.cx1 - devtoosx(200)) <= 3);
    CHECK(abs(last.cy1 + devtoosy(64)) <= 3);
    CHECK(abs(last.cy0 + devtoosy(184)) <= 3);
    CHECK(last.cx0 < devtoosx(40));
    CHECK(last.cy0 < -devtoosy(184));
    taskwindowsend();
}

TEST_CASE("without anything to paint nothing is done, without memory a paint is given up")
{
    window w = painted();
    redrawrecord r = {};
    r.self = w;
    int more = 7;
    CHECK_FALSE(redrawin(&r, &more));
    CHECK(more == 0);
    CHECK_FALSE(redrawnext(&r, &more));
    CHECK(surfaces == nullptr);

    redrawall(w);
    flexfailafter(0);
    errorblock *err = redrawin(&r, &more);
    REQUIRE(err);
    CHECK(err->code == 2);
    CHECK(more == 0);
    CHECK_FALSE(GetUpdateRect(taskhandle(w), nullptr, FALSE)); // nor is it asked for again
    flexfailafter(-1);
    taskwindowsend();
}

namespace
{

// Paints an area green at once; false if there was nothing to paint.
bool updated(window w, const osbox &area)
{
    redrawrecord r = {};
    r.self = w;
    r.x0 = area.x0;
    r.y0 = area.y0;
    r.x1 = area.x1;
    r.y1 = area.y1;
    int more;
    REQUIRE_FALSE(updatewindow(&r, &more));
    bool any = more;
    while (more) {
        last = r;
        setcolour(GREEN);
        fillbox(-10000, -10000, 20000, 20000); // the clip holds it
        REQUIRE_FALSE(redrawnext(&r, &more));
    }
    drivepump(); // until the screen shows it
    CHECK(surfaces == nullptr);
    CHECK(currentsurface == nullptr);
    return any;
}

} // namespace

TEST_CASE("an update paints at once, inside its rectangle")
{
    window w = painted();
    CHECK(updated(w, middle()));
    CHECK(paints == 0);
    checkmiddle(w);
    CHECK(count(w, SEENGREEN) <= 21 * 31);
    CHECK(last.x1 == devtoosx(160)); // of the view, not of the rectangle
    CHECK(abs(last.cx0 - devtoosx(50)) <= 3);
    CHECK(abs(last.cy0 + devtoosy(114)) <= 3);

    SUBCASE("partly outside")
    {
        CHECK(updated(w, {0, -devtoosy(66), devtoosx(41), 0}));
        CHECK(drivelook(w).at(0, 0) == SEENGREEN);
        CHECK(drivelook(w).at(2, 0) == SEENRED);
    }
    SUBCASE("outside the view")
    {
        CHECK_FALSE(updated(w, {0, -devtoosy(60), devtoosx(39), 0}));
        CHECK_FALSE(updated(w, {devtoosx(201), -devtoosy(100), devtoosx(300), -devtoosy(64)}));
    }
    SUBCASE("in a window that is hidden")
    {
        closewindow(w);
        CHECK_FALSE(updated(w, {0, -3000, 3000, 0}));
    }
    taskwindowsend();
}

TEST_CASE("a redraw in the middle of a measurement gives that its surface back")
{
    window w = painted();
    REQUIRE_FALSE(surfaceopen(false));
    surface *measuring = currentsurface;
    redrawall(w);
    drivepump();
    CHECK(paints == 1);
    CHECK(currentsurface == measuring);
    surfaceclose();
    CHECK(surfaces == nullptr);
    taskwindowsend();
}

TEST_CASE("a window's background is painted by its colour word")
{
    window w = taskwindow(WS_POPUP);
    taskopen(w, 100, 100, 60, 50, BEHINDTOP);
    auto shown = [&](uint32_t colour) {
        setbackground(w, colour);
        redrawall(w);
        drivepump();
        drivepicture seen = drivelook(w);
        CHECK(seen.at(0, 0) == seen.at(59, 49));
        return seen.at(30, 20);
    };
    CHECK(shown(BACKGROUNDWHITE) == SEENWHITE);
    CHECK(shown(0xFF000001) == SEENBLUE);
    CHECK(shown(2 + 3) == seencolour(modeinfo.desktopcolours[3] >> 8));
    CHECK(shown(18 + COLOR_HIGHLIGHT) == seencolour(GetSysColor(COLOR_HIGHLIGHT)));
    // Nothing is painted: what was there stays.
    CHECK(shown(255) == seencolour(GetSysColor(COLOR_HIGHLIGHT)));
    CHECK(shown(0) == seencolour(GetSysColor(COLOR_BTNFACE)));
    taskwindowsend();
}

TEST_CASE("a drag's box lies over what is painted")
{
    window w = painted();
    // 20 to 60 pixels from the left of the view and from its top.
    dragbox box = {
        w, DRAGRUBBER, devtoosx(120), screentoosy(160), devtoosx(160), screentoosy(120), 0, 0,
        0, 0};
    dragboxstart(&box);
    drivepump();
    int differing = 160 * 120 - count(w, SEENRED);
    CHECK(differing > 20);
    SUBCASE("by a redraw of a part")
    {
        forceredraw(w, devtoosx(70), -devtoosy(100), devtoosx(90), -devtoosy(66));
        drivepump();
    }
    SUBCASE("by an update")
    {
        paintcolour = GREEN;
        updated(w, {devtoosx(40), -devtoosy(184), devtoosx(200), -devtoosy(64)});
        CHECK(160 * 120 - count(w, SEENGREEN) == differing);
        redrawall(w);
        paintcolour = RED;
        drivepump();
    }
    SUBCASE("by scrolling")
    {
        setscrolly(w, devtoosy(90));
        drivepump();
    }
    CHECK(160 * 120 - count(w, SEENRED) == differing);
    dragresult result;
    dragboxend(&result);
    drivepump();
    CHECK(count(w, SEENRED) == 160 * 120);
    taskwindowsend();
}

TEST_CASE("paints leave no objects of the system behind")
{
    window w = painted();
    drivecounts before = drivecountnow();
    for (int i = 0; i < 50; i++) {
        redrawall(w);
        drivepump(0);
        updated(w, {0, -3000, 3000, 0});
        updated(w, {0, 1, 1, 2});
    }
    drivecounts after = drivecountnow();
    CHECK(paints >= 50);
    CHECK(after.gdiobjects <= before.gdiobjects + 2);
    taskwindowsend();
}
