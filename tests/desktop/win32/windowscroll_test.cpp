// Views that move, and the system's scroll bars.
#include "desktop/scroll.h"

#include "base/errors.h"
#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "desktop/wdata.h"
#include "desktop/windowinternal.h"
#include "desktop/windows.h"
#include "graphics/colours.h"
#include "graphics/modeinfo.h"
#include "graphics/plot.h"
#include "graphics/surface.h"
#include "tests/desktop/win32/taskwindows.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <initializer_list>
#include <string>

namespace
{

constexpr DWORD BARS = WS_POPUP | WS_VSCROLL | WS_HSCROLL;

// An extent in pixels.
void extent(window w, int32_t width, int32_t height)
{
    REQUIRE_FALSE(setextent(w, 0, -devtoosy(height), devtoosx(width), 0));
}

// Shows 160 by 120 pixels of a work area of 1000 by 2000, beside its bars.
window opened(DWORD style)
{
    window w = taskwindow(style);
    extent(w, 1000, 2000);
    taskopen(w, 100, 100, 160, 120);
    return w;
}

// Where the view is, in pixels.
int32_t viewx(window w)
{
    return ostodevx(taskstate(w).xscroll);
}

int32_t viewy(window w)
{
    return -ostodevy(taskstate(w).yscroll);
}

// Both, as "x,y".
std::string place(int32_t x, int32_t y)
{
    return std::to_string(x) + "," + std::to_string(y);
}

std::string view(window w)
{
    return place(viewx(w), viewy(w));
}

DWORD barsshown(window w)
{
    return static_cast<DWORD>(GetWindowLongA(taskhandle(w), GWL_STYLE)) & (WS_VSCROLL | WS_HSCROLL);
}

} // namespace

TEST_CASE("an extent shows the bars that it needs")
{
    bothscreens screens;
    window w = opened(BARS);
    CHECK(barsshown(w) == (WS_VSCROLL | WS_HSCROLL));
    CHECK(tasksize(w).cx == 160);
    int32_t bar = GetSystemMetrics(SM_CXVSCROLL);

    extent(w, 160, 2000); // fits exactly
    CHECK(barsshown(w) == WS_VSCROLL);
    extent(w, 160, 120);
    CHECK(barsshown(w) == 0);
    CHECK(tasksize(w).cx == 160 + bar);

    // What fits without bars fits no more when one of them comes.
    extent(w, 160 + bar, 2000);
    CHECK(barsshown(w) == (WS_VSCROLL | WS_HSCROLL));

    extentrecord record = {w, 0, 0, 0, 0};
    REQUIRE_FALSE(getextent(&record));
    CHECK(record.xmax == devtoosx(160 + bar));
    CHECK(record.ymin == -devtoosy(2000));
    taskwindowsend();
}

TEST_CASE("a position is held to the unit, and doesn't drift when the window grows and shrinks")
{
    bothscreens screens;
    for (DWORD style : {BARS, DWORD{WS_POPUP}}) { // with bars, and kept by the library
        window w = opened(style);
        for (int32_t at : {0, 1, 2, 100, 777}) {
            REQUIRE_FALSE(setscrollx(w, at));
            REQUIRE_FALSE(setscrolly(w, 2 * at));
            // Less than a pixel doesn't move it.
            CHECK(view(w) == place(ostodevx(at), ostodevy(2 * at)));
            if (at >= 100) CHECK(taskstate(w).xscroll == at);
        }
        for (int32_t n = 0; n < 12; n++) {
            taskopen(w, 100, 100, 160 + 5 * (n % 3), 120 + 7 * (n % 4));
            CHECK(taskstate(w).xscroll == 777);
            CHECK(taskstate(w).yscroll == -1554);
        }
        setscrollx(w, -5);
        CHECK(viewx(w) == 0);

        // A range that is too small, and one that is empty.
        for (int32_t size : {100, 0}) {
            extent(w, size, size);
            CHECK_FALSE(setscrollx(w, 50));
            CHECK(view(w) == place(0, 0));
        }
        taskwindowsend();
    }
}

// Extents and sizes that are no whole pixels and no whole units of each other.
TEST_CASE("the view reaches the last pixel and comes back, whatever the units")
{
    bothscreens screens;
    for (DWORD style : {BARS, DWORD{WS_POPUP}}) {
        window w = opened(style);
        for (int32_t n = 0; n < 24; n++) {
            int32_t width = 2001 + 7 * n, height = 5000 + 11 * n;
            CAPTURE(style);
            CAPTURE(n);
            REQUIRE_FALSE(setextent(w, 0, -height, width, 0));
            taskopen(w, 100, 100, 160 + n, 120 + n);
            REQUIRE_FALSE(scrollto(w, 100000, -100000));
            CHECK(view(w) ==
                  place(ostodevx(width) - tasksize(w).cx, ostodevy(height) - tasksize(w).cy));

            // A place that was read is one that can be set, and nothing moves.
            windowstaterecord state = taskstate(w);
            REQUIRE_FALSE(scrollto(w, 0, 0));
            CHECK(view(w) == place(0, 0));
            REQUIRE_FALSE(scrollto(w, state.xscroll, state.yscroll));
            CHECK(taskstate(w).xscroll == state.xscroll);
            CHECK(taskstate(w).yscroll == state.yscroll);
        }
        taskwindowsend();
    }
}

TEST_CASE("a work area smaller than the window is centred when that is wanted")
{
    bothscreens screens;
    for (DWORD style : {BARS, DWORD{WS_POPUP}}) {
        window w = opened(style);
        REQUIRE_FALSE(setflags(w, WINDOWCENTRED, 0));
        extent(w, 60, 40);
        CHECK(view(w) == place(-(tasksize(w).cx - 60) / 2, -(tasksize(w).cy - 40) / 2));
        extent(w, 600, 400); // and scrolls as any other when it is larger
        CHECK(viewx(w) == 0);
        scrollto(w, devtoosx(75), -devtoosy(50));
        CHECK(view(w) == place(75, 50));

        // The place is kept over a change of the flag.
        REQUIRE_FALSE(setflags(w, 0, WINDOWCENTRED));
        CHECK(viewx(w) == 75);
        REQUIRE_FALSE(setflags(w, WINDOWCENTRED, 0));
        CHECK(viewy(w) == 50);
        taskwindowsend();
    }
}

TEST_CASE("the view follows the window's size")
{
    bothscreens screens;
    window w = opened(BARS);
    extent(w, 1000, 1000);
    setscrollx(w, devtoosx(500));
    setscrolly(w, 100000);
    CHECK(viewy(w) == 1000 - tasksize(w).cy);
    // Larger: what was at the end stays at the end.
    taskopen(w, 100, 100, 300, 400);
    CHECK(view(w) == place(500, 600));
    taskopen(w, 100, 100, 700, 400);
    CHECK(viewx(w) == 300);
    // As large as all of it: both bars go at once.
    taskopen(w, 0, 0, 1000, 1000);
    CHECK(barsshown(w) == 0);
    CHECK(viewx(w) == 0);
    taskwindowsend();
}

TEST_CASE("scroll messages move the view")
{
    bothscreens screens;
    window w = opened(BARS);
    bool moved;
    auto send = [&](bool vertical, int32_t code, int32_t thumb) {
        REQUIRE_FALSE(scrollmessage(w, vertical, code, thumb, &moved));
        return moved;
    };
    CHECK(send(true, SCROLLLINEON, 0));
    CHECK(viewy(w) == 12);
    CHECK(send(true, SCROLLLAST, 0));
    CHECK(viewy(w) == 1880);
    CHECK_FALSE(send(true, SCROLLPAGEON, 0));
    CHECK(send(false, SCROLLPAGEON, 0));
    CHECK(viewx(w) == 160);

    // A window of the library's own keeping has no bar to ask for the thumb.
    window plain = opened(WS_POPUP);
    REQUIRE_FALSE(scrollmessage(plain, true, SCROLLTHUMBTRACK, devtoosy(300), &moved));
    CHECK(viewy(plain) == 300);
    taskwindowsend();
}

TEST_CASE("the wheel scrolls three lines a notch, and only where there is a bar")
{
    bothscreens screens;
    window w = opened(BARS);
    CHECK(scrollwheelwindow(w, -120, false));
    CHECK(viewy(w) == 36);
    CHECK(scrollwheelwindow(w, -20, false));
    CHECK(viewy(w) == 36);
    CHECK(scrollwheelwindow(w, -20, false));
    CHECK(viewy(w) == 48);
    CHECK(scrollwheelwindow(w, 240, false));
    CHECK(viewy(w) == 0);
    CHECK(scrollwheelwindow(w, 120, true)); // to the right
    CHECK(viewx(w) == 48);

    scrollwheelwindow(w, -39, false);
    wheelclear(w);
    scrollwheelwindow(w, -39, false);
    CHECK(viewy(w) == 0);

    window plain = opened(WS_POPUP);
    CHECK_FALSE(scrollwheelwindow(plain, -120, false));
    CHECK(viewy(plain) == 0);
    window upright = opened(WS_POPUP | WS_VSCROLL);
    CHECK_FALSE(scrollwheelwindow(upright, 120, true));
    taskwindowsend();
}

namespace
{

// Each square of 20 units has its own colour, which tells its place.
constexpr int32_t SQUARE = 20;

uint32_t squarecolour(int32_t column, int32_t row)
{
    return static_cast<uint32_t>(column * 8 % 256) << 24 | static_cast<uint32_t>(row * 8 % 256)
                                                               << 16;
}

int paints;
RECT painted; // of the last paint, in pixels of the client area

errorblock *paintsquares(window self, intptr_t)
{
    return taskpaint(self, [](const redrawrecord &r) {
        paints++;
        const surfacepaint &paint = r.drawing->paint;
        painted = {paint.left, paint.top, paint.right, paint.bottom};
        for (int32_t row = -r.cy1 / SQUARE; row <= -r.cy0 / SQUARE; row++)
            for (int32_t column = r.cx0 / SQUARE; column <= r.cx1 / SQUARE; column++) {
                setcolour(squarecolour(column, row));
                fillbox(column * SQUARE, -(row + 1) * SQUARE, SQUARE, SQUARE);
            }
    });
}

// The last square that begins at a pixel of the work area or before it.
int32_t squareof(int32_t pixel)
{
    int32_t n = 0;
    while (muldiv64((n + 1) * SQUARE, modeinfo.xdpi, OSUNITS) <= pixel)
        n++;
    return n;
}

// Each pixel of the client area shows the work area's place behind it.
int wrongpixels(window w)
{
    drivepicture seen = drivelook(w);
    int32_t x = viewx(w), y = viewy(w);
    int wrong = 0;
    for (int py = 0; py < seen.height; py++)
        for (int px = 0; px < seen.width; px++) {
            uint32_t word = squarecolour(squareof(x + px), squareof(y + py));
            uint32_t rgb = (word >> 8 & 0xFF) << 16 | (word >> 16 & 0xFF) << 8 | word >> 24;
            wrong += seen.at(px, py) != rgb;
        }
    return wrong;
}

} // namespace

TEST_CASE("scrolling moves what is shown and paints only what is uncovered")
{
    bothscreens screens;
    REQUIRE_FALSE(blockstart());
    window w = opened(WS_POPUP);
    REQUIRE_FALSE(addredrawhandler(paintsquares, w, 0));
    setbackground(w, 255);
    redrawall(w);
    drivepump();
    CHECK(wrongpixels(w) == 0);

    paints = 0;
    setscrolly(w, devtoosy(33));
    drivepump();
    CHECK(paints == 1);
    CHECK(painted.top == 120 - 33);
    CHECK(painted.bottom == 120);
    CHECK(painted.right == 160);
    CHECK(wrongpixels(w) == 0);

    setscrollx(w, devtoosx(7));
    drivepump();
    CHECK(painted.left == 160 - 7);
    CHECK(wrongpixels(w) == 0);

    // Both ways, by numbers of units that aren't whole pixels.
    for (int32_t at : {101, 217, 18, 503, 1}) {
        scrollto(w, at, -2 * at);
        drivepump();
        CHECK(wrongpixels(w) == 0);
    }
    paints = 0;
    setscrolly(w, 2);
    drivepump();
    CHECK(paints == 0);
    taskwindowsend();
}

TEST_CASE("children move with what is scrolled, or stay")
{
    bothscreens screens;
    window w = opened(WS_POPUP);
    window child = taskwindow(WS_CHILD, w);
    taskopen(child, 120, 140, 30, 20);
    setscrollx(w, devtoosx(10));
    setscrolly(w, devtoosy(25));
    CHECK(taskclient(child).left == 110);
    CHECK(taskclient(child).top == 115);
    setflags(w, WINDOWCHILDRENSTAY, 0);
    setscrolly(w, 0);
    CHECK(taskclient(child).top == 115);
    taskwindowsend();
}
