// The drag box in a real window: what the sheet of drags doesn't show.
#include "graphics/dragbox.h"

#include "graphics/modeinfo.h"
#include "tests/graphics/win32/canvas.h"

#include <doctest/doctest.h>
#include <windows.h>

namespace
{

constexpr int SIDE = 160, LEFT = 40, TOP = 30;

void pump()
{
    for (MSG m; PeekMessageA(&m, nullptr, 0, 0, PM_REMOVE);)
        DispatchMessageA(&m);
}

// A white window with a pane of the same over its right half.
struct frame {
    frame()
    {
        w = CreateWindowExA(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, "STATIC", "",
                            WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN | SS_WHITERECT, LEFT, TOP, SIDE,
                            SIDE, nullptr, nullptr, nullptr, nullptr);
        pane = CreateWindowA("STATIC", "", WS_CHILD | WS_VISIBLE | SS_WHITERECT, SIDE / 2, 5, SIDE,
                             SIDE, w, nullptr, nullptr, nullptr);
        REQUIRE(w);
        REQUIRE(pane);
        pump();
        GetCursorPos(&pointer);
        ScreenToClient(w, &pointer);
    }
    ~frame()
    {
        DestroyWindow(w);
    }

    // What is drawn in the window or in its pane.
    canvas::extent seen(HWND in) const
    {
        canvas c(SIDE, SIDE);
        pagecopywindow(&c.paper, 0, 0, reinterpret_cast<intptr_t>(in), SIDE, SIDE);
        return c.drawn();
    }

    dragbox record(int32_t type, RECT pixels) const
    {
        dragbox box = {};
        box.window = reinterpret_cast<intptr_t>(w), box.type = type;
        box.x0 = devtoosx(pixels.left + LEFT), box.y0 = screentoosy(pixels.bottom + TOP);
        box.x1 = devtoosx(pixels.right + LEFT), box.y1 = screentoosy(pixels.top + TOP);
        return box;
    }

    HWND w, pane;
    POINT pointer;
};

constexpr canvas::extent NOTHING = {SIDE, SIDE, -1, -1};

} // namespace

TEST_CASE("a rubber box is flushed with its window, redrawn around, and gone at its end")
{
    frame f;
    const dragbox box = f.record(DRAGRUBBER, {10, 40, 50, 120});
    const canvas::extent moved = {20, 20, 59, 99};
    dragboxstart(&box);
    CHECK(f.seen(f.w) == canvas::extent{10, 40, 49, 119});
    dragboxmove(f.pointer.x + 10, f.pointer.y - 20);
    CHECK(f.seen(f.w) == moved);
    dragboxflush(1); // not its window
    CHECK(f.seen(f.w) == moved);
    dragboxflush(box.window);
    CHECK(f.seen(f.w) == NOTHING);
    dragboxflush(box.window);
    HDC dc = GetDC(f.w);
    CHECK(f.seen(f.w) == moved);
    int before = deviceobjects(); // with a second context of the window in the system's store
    dragboxredraw(box.window, reinterpret_cast<intptr_t>(dc), false);
    CHECK(f.seen(f.w) == NOTHING);
    // What a redraw may leave behind.
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowOrgEx(dc, 5, 5, nullptr);
    SetViewportExtEx(dc, 2, 2, nullptr);
    dragboxredraw(box.window, reinterpret_cast<intptr_t>(dc), true);
    CHECK(GetROP2(dc) == R2_COPYPEN);
    ReleaseDC(f.w, dc);
    CHECK(f.seen(f.w) == moved);
    for (int i = 0; i < 100; i++)
        dragboxmove(i, i);
    dragboxmove(f.pointer.x + 10, f.pointer.y - 20);
    dragresult result = {};
    dragboxend(&result);
    CHECK((result.x1 == box.x1 + devtoosx(10) && result.y1 == box.y1 + devtoosy(20)));
    dragboxmove(50, 50); // it is over
    CHECK(f.seen(f.w) == NOTHING);
    CHECK(deviceobjects() == before);
}

TEST_CASE("a bar goes over the panes of its window, and one that paints has it again")
{
    frame f;
    const dragbox box = f.record(DRAGBAR, {70, 10, 70, 150});
    dragboxstart(&box);
    CHECK(f.seen(f.pane) == NOTHING); // it is beside the pane
    dragboxmove(f.pointer.x + 30, f.pointer.y);
    const canvas::extent shown = {20, 5, 23, 144};
    CHECK(f.seen(f.pane) == shown);
    HDC dc = GetDC(f.pane);
    for (bool after : {false, true}) {
        dragboxredraw(reinterpret_cast<intptr_t>(f.pane), reinterpret_cast<intptr_t>(dc), after);
        CHECK(f.seen(f.pane) == (after ? shown : NOTHING));
    }
    ReleaseDC(f.pane, dc);
    dragresult result;
    dragboxend(&result);
    CHECK(f.seen(f.pane) == NOTHING);
}
