// Paints of windows: what they are told to paint, and what is seen afterwards.
#include "desktop/redraw.h"

#include "base/errors.h"
#include "base/flex.h"
#include "desktop/handlers.h"
#include "desktop/windows.h"
#include "graphics/colours.h"
#include "graphics/modeinfo.h"
#include "graphics/plot.h"
#include "graphics/surface.h"
#include "tests/desktop/win32/script.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdlib>

namespace
{

constexpr uint32_t RED = 0x0000FF00, GREEN = 0x00FF0000;
constexpr uint32_t SEENRED = 0xFF0000, SEENGREEN = 0x00FF00;

uint32_t paintcolour;
redrawrecord last; // of the last paint
int paints;

// Fills the clip, part by part.
errorblock *paint(redrawrecord *r, errorblock *(*begin)(redrawrecord *, bool *))
{
    bool more;
    errorblock *err = begin(r, &more);
    while (!err && more) {
        CHECK(currentsurface == r->drawing);
        paints++;
        last = *r;
        setcolour(paintcolour);
        fillbox(-10000, -10000, 20000, 20000);
        err = redrawnext(r, &more);
    }
    return err;
}

errorblock *onredraw(window self, intptr_t)
{
    redrawrecord r = {};
    r.self = self;
    return paint(&r, redrawin);
}

// 160 by 120 pixels, with a view that has moved by 40 and 64. Places are pixels of
// the work area.
struct paintedwindow {
    library started;
    window w = taskwindow(WS_POPUP);

    paintedwindow()
    {
        REQUIRE_FALSE(setbackground(w, BACKGROUNDWHITE));
        taskopen(w, 100, 100, 160, 120, BEHINDTOP);
        REQUIRE_FALSE(setextent(w, 0, -3000, 3000, 0));
        REQUIRE_FALSE(scrollto(w, devtoosx(40), -devtoosy(64)));
        REQUIRE_FALSE(addredrawhandler(onredraw, w, 0));
        paintcolour = RED;
        drivepump();
        paints = 0;
    }
    ~paintedwindow()
    {
        CHECK(surfaces == nullptr);
        CHECK_FALSE(remredrawhandler(onredraw, w, 0));
    }
    void force(int left, int top, int right, int bottom)
    {
        CHECK_FALSE(
            forceredraw(w, devtoosx(left), -devtoosy(bottom), devtoosx(right), -devtoosy(top)));
        drivepump();
    }
    // At once.
    void update(int left, int top, int right, int bottom)
    {
        redrawrecord r = {};
        r.self = w;
        r.x0 = devtoosx(left), r.y0 = -devtoosy(bottom);
        r.x1 = devtoosx(right), r.y1 = -devtoosy(top);
        CHECK_FALSE(paint(&r, updatewindow));
        drivepump();
    }
    int count(uint32_t colour)
    {
        drivepicture seen = drivelook(w);
        return static_cast<int>(std::ranges::count(seen.pixels, colour));
    }
    // Pixels 10 to 30 from the left of the view, 20 to 50 from its top are green, and
    // no more than a pixel around them.
    void checkmiddle()
    {
        drivepicture seen = drivelook(w);
        CHECK((seen.at(10, 20) == SEENGREEN && seen.at(29, 49) == SEENGREEN));
        for (driveplace red : {driveplace{8, 30}, {31, 30}, {20, 18}, {20, 51}})
            CHECK(seen.at(red.x, red.y) == SEENRED);
        CHECK(count(SEENGREEN) <= 22 * 32);
    }
};

} // namespace

TEST_CASE("a redraw paints its rectangle and no more; the record tells view and clip")
{
    paintedwindow p;
    CHECK(p.count(SEENRED) == 160 * 120);
    paintcolour = GREEN;
    p.force(50, 84, 70, 114);
    CHECK(paints == 1);
    p.checkmiddle();
    redrawall(p.w);
    drivepump();
    CHECK((last.x0 == 0 && last.y1 == 0));
    CHECK((last.x1 == devtoosx(160) && last.y0 == -devtoosy(120)));
    CHECK((last.xscroll == devtoosx(40) && last.yscroll == -devtoosy(64)));
    CHECK((last.cx0 < devtoosx(40) && last.cx0 >= devtoosx(40) - 3));
    CHECK((last.cy0 < -devtoosy(184) && last.cy0 >= -devtoosy(184) - 3));
    CHECK((abs(last.cx1 - devtoosx(200)) <= 3 && abs(last.cy1 + devtoosy(64)) <= 3));

    // Without memory a paint is given up, and not asked for again.
    redrawrecord r = {};
    r.self = p.w;
    bool more = true;
    redrawall(p.w);
    flexfailafter(0);
    errorblock *err = redrawin(&r, &more);
    flexfailafter(-1);
    CHECK((err && err->code == 2 && more == 0));
    CHECK_FALSE(GetUpdateRect(handleof(p.w), nullptr, FALSE));
}

TEST_CASE("an update paints at once, inside its rectangle, and leaves nothing behind")
{
    paintedwindow p;
    paintcolour = GREEN;
    p.update(50, 84, 70, 114);
    p.checkmiddle();
    CHECK(last.x1 == devtoosx(160)); // of the view, not of the rectangle
    CHECK(abs(last.cx0 - devtoosx(50)) <= 3);
    drivecounts before = drivecountnow();
    for (int i = 0; i < 20; i++) {
        redrawall(p.w);
        p.update(0, 0, 1000, 1000);
    }
    CHECK(drivecountnow().gdiobjects <= before.gdiobjects + 2);
}

TEST_CASE("a window's background is painted by its colour word")
{
    auto seen = [](COLORREF colour) {
        return (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF);
    };
    const uint32_t rows[][2] = {
        {0xFF000001, 0x0000FF},
        {2 + 3, seen(modeinfo.desktopcolours[3] >> 8)},
        {18 + COLOR_HIGHLIGHT, seen(GetSysColor(COLOR_HIGHLIGHT))},
        {255, seen(GetSysColor(COLOR_HIGHLIGHT))}, // nothing is painted: what was there stays
        {0, seen(GetSysColor(COLOR_BTNFACE))},
    };
    paintedwindow p;
    CHECK_FALSE(remredrawhandler(onredraw, p.w, 0));
    for (const auto &r : rows) {
        setbackground(p.w, r[0]);
        redrawall(p.w);
        drivepump();
        CHECK(p.count(r[1]) == 160 * 120);
    }
}
