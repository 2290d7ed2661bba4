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

// A white window.
struct frame {
    frame()
    {
        w = CreateWindowExA(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, "STATIC", "",
                            WS_POPUP | WS_VISIBLE | SS_WHITERECT, LEFT, TOP, SIDE, SIDE, nullptr,
                            nullptr, nullptr, nullptr);
        REQUIRE(w);
        pump();
        GetCursorPos(&pointer);
        ScreenToClient(w, &pointer);
    }
    ~frame()
    {
        DestroyWindow(w);
    }

    canvas::extent seen() const
    {
        canvas c(SIDE, SIDE);
        pagecopywindow(&c.paper, 0, 0, reinterpret_cast<intptr_t>(w), SIDE, SIDE);
        return c.drawn();
    }

    dragbox record(RECT pixels) const
    {
        dragbox box = {};
        box.window = reinterpret_cast<intptr_t>(w), box.type = DRAGRUBBER;
        box.x0 = devtoosx(pixels.left + LEFT), box.y0 = screentoosy(pixels.bottom + TOP);
        box.x1 = devtoosx(pixels.right + LEFT), box.y1 = screentoosy(pixels.top + TOP);
        return box;
    }

    HWND w;
    POINT pointer;
};

constexpr canvas::extent NOTHING = {SIDE, SIDE, -1, -1};

} // namespace

TEST_CASE("a rubber box is flushed with its window, redrawn around, and gone at its end")
{
    frame f;
    const dragbox box = f.record({10, 40, 50, 120});
    const canvas::extent moved = {20, 20, 59, 99};
    dragboxstart(&box);
    CHECK(f.seen() == canvas::extent{10, 40, 49, 119});
    dragboxmove(f.pointer.x + 10, f.pointer.y - 20);
    CHECK(f.seen() == moved);
    dragboxflush(1); // not its window
    CHECK(f.seen() == moved);
    dragboxflush(box.window);
    CHECK(f.seen() == NOTHING);
    dragboxflush(box.window);
    HDC dc = GetDC(f.w);
    CHECK(f.seen() == moved);
    int before = deviceobjects(); // with a second context of the window in the system's store
    dragboxredraw(box.window, reinterpret_cast<intptr_t>(dc), false);
    CHECK(f.seen() == NOTHING);
    // What a redraw may leave behind.
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowOrgEx(dc, 5, 5, nullptr);
    SetViewportExtEx(dc, 2, 2, nullptr);
    dragboxredraw(box.window, reinterpret_cast<intptr_t>(dc), true);
    CHECK(GetROP2(dc) == R2_COPYPEN);
    ReleaseDC(f.w, dc);
    CHECK(f.seen() == moved);
    for (int i = 0; i < 100; i++)
        dragboxmove(i, i);
    dragboxmove(f.pointer.x + 10, f.pointer.y - 20);
    dragresult result = {};
    dragboxend(&result);
    CHECK((result.x1 == box.x1 + devtoosx(10) && result.y1 == box.y1 + devtoosy(20)));
    dragboxmove(50, 50); // it is over
    CHECK(f.seen() == NOTHING);
    CHECK(deviceobjects() == before);
}
