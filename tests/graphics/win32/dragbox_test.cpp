// The drag box in a real window.
#include "graphics/dragbox.h"

#include "graphics/modeinfo.h"
#include "tests/graphics/win32/canvas.h"

#include <doctest/doctest.h>
#include <windows.h>

namespace
{

constexpr int SIDE = 160, LEFT = 40, TOP = 30;

// A window with half a page of black, half of white, so that a box shows on
// both and each must be put back to its own.
struct page {
    page()
    {
        w = CreateWindowExA(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, "STATIC", "", WS_POPUP | WS_VISIBLE,
                            LEFT, TOP, SIDE, SIDE, nullptr, nullptr, nullptr, nullptr);
        REQUIRE(w);
        seen = w;
        pump();
        HDC dc = GetDC(w);
        PatBlt(dc, 0, 0, SIDE, SIDE, WHITENESS);
        PatBlt(dc, 0, 0, SIDE / 2, SIDE, BLACKNESS);
        ReleaseDC(w, dc);
        blank = look();
    }
    ~page()
    {
        DestroyWindow(w);
    }

    // A pane over its right half, where blank is that of the pane from then on.
    HWND cover()
    {
        SetWindowLongA(w, GWL_STYLE, GetWindowLongA(w, GWL_STYLE) | WS_CLIPCHILDREN);
        seen = CreateWindowA("STATIC", "", WS_CHILD | WS_VISIBLE | SS_WHITERECT, SIDE / 2, 5, SIDE,
                             SIDE, w, nullptr, nullptr, nullptr);
        REQUIRE(seen);
        pump();
        blank = look();
        return seen;
    }

    std::string look() const
    {
        canvas c(SIDE, SIDE);
        HDC dc = GetDC(seen);
        BitBlt(reinterpret_cast<HDC>(c.drawing->dc), 0, 0, SIDE, SIDE, dc, 0, 0, SRCCOPY);
        ReleaseDC(seen, dc);
        return c.picture();
    }

    // The smallest box that holds all that differs from the blank page.
    canvas::extent changed() const
    {
        std::string now = look();
        canvas::extent box = {SIDE, SIDE, -1, -1};
        for (int32_t y = 0; y < SIDE; y++)
            for (int32_t x = 0; x < SIDE; x++) {
                size_t at = static_cast<size_t>(y * (SIDE + 1) + x);
                if (now[at] != blank[at])
                    box = {x < box.left ? x : box.left, y < box.top ? y : box.top,
                           x > box.right ? x : box.right, y > box.bottom ? y : box.bottom};
            }
        return box;
    }

    dragbox record(int32_t type, RECT pixels) const
    {
        auto osy = [](int32_t y) { return screentoosy(y + TOP); };
        return {reinterpret_cast<intptr_t>(w),
                type,
                devtoosx(pixels.left + LEFT),
                osy(pixels.bottom),
                devtoosx(pixels.right + LEFT),
                osy(pixels.top),
                0,
                0,
                0,
                0};
    }

    static void pump()
    {
        for (MSG m; PeekMessageA(&m, nullptr, 0, 0, PM_REMOVE);)
            DispatchMessageA(&m);
    }

    HWND w, seen;
    std::string blank;
};

constexpr canvas::extent NOTHING = {SIDE, SIDE, -1, -1};

POINT pointer(const page &p)
{
    POINT at = {};
    GetCursorPos(&at);
    ScreenToClient(p.w, &at);
    return at;
}

// Ends the drag, which leaves nothing on the screen.
dragresult ended(const page &p)
{
    dragresult result = {};
    dragboxend(&result);
    CHECK(p.changed() == NOTHING);
    return result;
}

} // namespace

TEST_CASE("a rubber box follows the pointer and leaves nothing")
{
    page p;
    REQUIRE(p.changed() == NOTHING);
    dragbox box = p.record(DRAGRUBBER, {30, 40, 130, 120});
    POINT at = pointer(p);
    dragboxstart(&box);
    CHECK(p.changed() == canvas::extent{30, 40, 129, 119});
    dragboxmove(at.x + 10, at.y - 20);
    CHECK(p.changed() == canvas::extent{40, 20, 139, 99});
    dragboxflush(1); // not its window
    CHECK(p.changed() == canvas::extent{40, 20, 139, 99});
    dragboxflush(box.window);
    CHECK(p.changed() == NOTHING);
    dragboxflush(box.window);
    CHECK(p.changed() == canvas::extent{40, 20, 139, 99});
    const dragresult result = ended(p);
    CHECK(result.x1 == box.x1 + devtoosx(10));
    CHECK(result.y1 == box.y1 + devtoosy(20));

    dragboxmove(50, 50); // it is over
    dragboxflush(box.window);
    CHECK(p.changed() == NOTHING);
    dragresult untouched = {1, 2, 3, 4};
    dragboxend(&untouched);
    CHECK(untouched.y1 == 4);
}

TEST_CASE("a vertical bar is a chequered band that follows in x")
{
    page p;
    dragbox box = p.record(DRAGBAR, {20, 10, 20, 150});
    POINT at = pointer(p);
    dragboxstart(&box);
    CHECK(p.changed() == canvas::extent{20, 10, 23, 149});
    dragboxmove(at.x + 77, at.y + 50);
    CHECK(p.changed() == canvas::extent{97, 10, 100, 149});
    // One pixel in two, from the corner on.
    std::string now = p.look();
    for (int32_t y = 10; y < 150; y++)
        for (int32_t x = 97; x < 101; x++) {
            bool inverted = now[static_cast<size_t>(y * (SIDE + 1) + x)] == '#';
            CHECK(inverted == !((x - 97 + y - 10) & 1));
        }
    const dragresult result = ended(p);
    CHECK(result.x0 == box.x0 + devtoosx(77));
}

TEST_CASE("a redraw happens between two boxes")
{
    page p;
    for (const dragbox &box :
         {p.record(DRAGRUBBER, {30, 40, 130, 120}), p.record(DRAGBAR, {30, 40, 30, 120})}) {
        CAPTURE(box.type);
        dragboxstart(&box);
        const canvas::extent shown = p.changed();
        HDC dc = GetDC(p.w);
        dragboxredraw(1, reinterpret_cast<intptr_t>(dc), false);
        CHECK(p.changed() == shown);
        dragboxredraw(box.window, reinterpret_cast<intptr_t>(dc), false);
        CHECK(p.changed() == NOTHING);
        // What a redraw may leave behind.
        SetMapMode(dc, MM_ANISOTROPIC);
        SetWindowExtEx(dc, 1, 1, nullptr);
        SetViewportExtEx(dc, 2, 2, nullptr);
        SetWindowOrgEx(dc, 5, 5, nullptr);
        SetViewportOrgEx(dc, 7, 7, nullptr);
        SetTextColor(dc, RGB(255, 0, 0));
        HGDIOBJ pen = GetCurrentObject(dc, OBJ_PEN);
        dragboxredraw(box.window, reinterpret_cast<intptr_t>(dc), true);
        CHECK(GetCurrentObject(dc, OBJ_PEN) == pen);
        CHECK(GetROP2(dc) == R2_COPYPEN);
        CHECK(GetTextColor(dc) == RGB(255, 0, 0));
        ReleaseDC(p.w, dc);
        CHECK(p.changed() == shown);
        ended(p);
    }
}

TEST_CASE("a bar goes over the panes of its window, and one that paints has it again")
{
    page p;
    HWND pane = p.cover();
    dragbox box = p.record(DRAGBAR, {70, 10, 70, 150});
    POINT at = pointer(p);
    dragboxstart(&box);
    CHECK(p.changed() == NOTHING); // it is beside the pane
    dragboxmove(at.x + 30, at.y);
    const canvas::extent shown = {20, 5, 23, 144};
    CHECK(p.changed() == shown);
    HDC dc = GetDC(pane);
    for (bool after : {false, true}) {
        dragboxredraw(reinterpret_cast<intptr_t>(pane), reinterpret_cast<intptr_t>(dc), after);
        CHECK(p.changed() == (after ? shown : NOTHING));
    }
    ReleaseDC(pane, dc);
    ended(p);
}

TEST_CASE("long drags leave no object of the system")
{
    page p;
    int before = gdiobjects();
    for (int32_t type : {DRAGRUBBER, DRAGBAR}) {
        dragbox box = p.record(type, {30, 40, 30, 120});
        dragboxstart(&box);
        for (int i = 0; i < 500; i++)
            dragboxmove(i % 90, i % 70);
        dragresult result;
        dragboxend(&result);
    }
    CHECK(gdiobjects() == before);
    CHECK(p.changed() == NOTHING);
}
