// Views that move, and the system's scroll bars.
#include "desktop/scroll.h"

#include "desktop/handlers.h"
#include "desktop/windowinternal.h"
#include "desktop/windows.h"
#include "graphics/modeinfo.h"
#include "tests/desktop/win32/script.h"

#include <doctest/doctest.h>

namespace
{

constexpr DWORD BARS = WS_POPUP | WS_VSCROLL | WS_HSCROLL;

// On two screens: shows 160 by 120 pixels of a work area of 1000 by 2000, beside its
// bars. Places are pixels.
struct view {
    library started;
    window w;

    explicit view(DWORD style) : w(taskwindow(style))
    {
        extent(1000, 2000);
        taskopen(w, 100, 100, 160, 120);
    }
    void extent(int32_t width, int32_t height)
    {
        REQUIRE_FALSE(setextent(w, 0, -devtoosy(height), devtoosx(width), 0));
    }
    int32_t x()
    {
        return ostodevx(taskstate(w).xscroll);
    }
    int32_t y()
    {
        return -ostodevy(taskstate(w).yscroll);
    }
    void is(int32_t atx, int32_t aty)
    {
        INFO(x(), ",", y(), ", not ", atx, ",", aty);
        CHECK((x() == atx && y() == aty));
    }
    int32_t width()
    {
        return taskclient(w).right - taskclient(w).left;
    }
    int32_t height()
    {
        return taskclient(w).bottom - taskclient(w).top;
    }
    DWORD bars()
    {
        return static_cast<DWORD>(GetWindowLongA(handleof(w), GWL_STYLE)) & BARS & ~WS_POPUP;
    }
};

} // namespace

TEST_CASE("an extent shows the bars that it needs, and the view follows the window's size")
{
    bothscreens screens;
    view v(BARS);
    CHECK(v.bars() == (WS_VSCROLL | WS_HSCROLL));
    int32_t bar = GetSystemMetrics(SM_CXVSCROLL);
    v.extent(160, 2000); // fits exactly
    CHECK(v.bars() == WS_VSCROLL);
    v.extent(160, 120);
    CHECK((v.bars() == 0 && v.width() == 160 + bar));
    v.extent(160 + bar, 2000); // fits no more when a bar comes
    CHECK(v.bars() == (WS_VSCROLL | WS_HSCROLL));
    v.extent(160 + bar, 120 + bar); // both would only make room for each other
    CHECK((v.bars() == 0 && v.width() == 160 + bar));

    v.extent(1000, 1000);
    scrollto(v.w, devtoosx(500), -100000);
    v.is(500, 1000 - v.height());
    taskopen(v.w, 100, 100, 300, 400); // what was at the end stays there
    v.is(500, 600);
    taskopen(v.w, 100, 100, 700, 400);
    v.is(300, 600);
    taskopen(v.w, 0, 0, 1000, 1000); // as large as all of it: both bars go at once
    CHECK(v.bars() == 0);
    v.is(0, 0);
}

TEST_CASE("a place is held to the unit, reaches the last pixel and doesn't drift")
{
    bothscreens screens;
    for (DWORD style : {BARS, DWORD{WS_POPUP}}) { // with bars, and kept by the library
        CAPTURE(style);
        view v(style);
        for (int32_t at : {1, 2, 777}) {
            REQUIRE_FALSE(setscrollx(v.w, at));
            REQUIRE_FALSE(setscrolly(v.w, 2 * at));
            v.is(ostodevx(at), ostodevy(2 * at)); // less than a pixel doesn't move it
        }
        // Extents and sizes that are no whole pixels and no whole units of each other.
        for (int32_t n = 0; n < 4; n++) {
            CAPTURE(n);
            int32_t width = 2001 + 7 * n, height = 5000 + 11 * n;
            REQUIRE_FALSE(setextent(v.w, 0, -height, width, 0));
            taskopen(v.w, 100, 100, 160 + n, 120 + n);
            REQUIRE_FALSE(scrollto(v.w, 100000, -100000));
            v.is(ostodevx(width) - v.width(), ostodevy(height) - v.height());
            windowstaterecord state = taskstate(v.w); // a place that was read can be set
            REQUIRE_FALSE(scrollto(v.w, 0, 0));
            v.is(0, 0);
            REQUIRE_FALSE(scrollto(v.w, state.xscroll, state.yscroll));
            CHECK(taskstate(v.w).xscroll == state.xscroll);
            CHECK(taskstate(v.w).yscroll == state.yscroll);
        }
    }
    view v(BARS); // one that is smaller than the window is centred when that is wanted
    REQUIRE_FALSE(setflags(v.w, WINDOWCENTRED, 0));
    v.extent(60, 40);
    v.is(-(v.width() - 60) / 2, -(v.height() - 40) / 2);
}

// That what is shown moves along is seen in the script of the screen.
TEST_CASE("scrolling paints only what is uncovered, and takes children along")
{
    bothscreens screens;
    view v(WS_POPUP);
    static RECT painted; // of the last paint, in pixels of the client area
    redrawfunction paint = [](window self, intptr_t) -> errorblock * {
        GetUpdateRect(handleof(self), &painted, FALSE);
        ValidateRect(handleof(self), nullptr);
        return nullptr;
    };
    REQUIRE_FALSE(addredrawhandler(paint, v.w, 0));
    drivepump();
    setscrolly(v.w, devtoosy(33));
    drivepump();
    CHECK((painted.top == 120 - 33 && painted.bottom == 120 && painted.right == 160));
    setscrollx(v.w, devtoosx(7));
    drivepump();
    CHECK((painted.left == 160 - 7 && painted.top == 0));
    CHECK_FALSE(remredrawhandler(paint, v.w, 0));

    scrollto(v.w, 0, 0);
    window child = taskwindow(WS_CHILD, v.w);
    taskopen(child, 120, 140, 30, 20);
    scrollto(v.w, devtoosx(10), -devtoosy(25));
    CHECK((taskclient(child).left == 110 && taskclient(child).top == 115));
    setflags(v.w, WINDOWCHILDRENSTAY, 0);
    setscrolly(v.w, 0);
    CHECK(taskclient(child).top == 115);
}
