// The drag box, in a window of its own as it follows the pointer.

#include "base/syserr.h"
#include "graphics/dragbox.h"
#include "graphics/modeinfo.h"
#include "tools/gallerysheets/page.h"
#include "tools/gallerysheets/sheets.h"

#include <windows.h>

namespace
{

constexpr int32_t SIDE = 200;

// Black, grey and white, so that exclusive-or has something to work on.
void paint(HWND w)
{
    HDC dc = GetDC(w);
    PatBlt(dc, 0, 0, SIDE, SIDE, WHITENESS);
    PatBlt(dc, 0, 0, SIDE / 3, SIDE, BLACKNESS);
    HGDIOBJ before = SelectObject(dc, GetStockObject(LTGRAY_BRUSH));
    PatBlt(dc, SIDE / 3, 0, SIDE / 3, SIDE, PATCOPY);
    SelectObject(dc, before);
    ReleaseDC(w, dc);
}

HWND windowopen()
{
    HWND w = CreateWindowExA(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, "STATIC", "", WS_POPUP | WS_VISIBLE,
                             50, 50, SIDE, SIDE, nullptr, nullptr, nullptr, nullptr);
    for (MSG m; w && PeekMessageA(&m, nullptr, 0, 0, PM_REMOVE);)
        DispatchMessageA(&m);
    return w;
}

// From pixels of the window to OS units of the screen.
dragbox record(HWND w, int32_t type, const RECT &box)
{
    POINT corner = {};
    ClientToScreen(w, &corner);
    return {.window = reinterpret_cast<intptr_t>(w),
            .type = type,
            .x0 = devtoosx(corner.x + box.left),
            .y0 = screentoosy(corner.y + box.bottom),
            .x1 = devtoosx(corner.x + box.right),
            .y1 = screentoosy(corner.y + box.top),
            .minx = -30000,
            .miny = -30000,
            .maxx = 30000,
            .maxy = 30000};
}

void look(const page *p, int32_t row, int32_t column, HWND w, const char *name)
{
    int32_t x = 20 + column * (SIDE + 20), y = 70 + row * (SIDE + 40);
    pagecopywindow(p, x, y, reinterpret_cast<intptr_t>(w), SIDE, SIDE);
    label(x, 5 - y, name);
}

// At its place, moved by 40 and 25 pixels, and taken away.
void draw(const page *p, HWND w, int32_t row, int32_t type, const RECT &box)
{
    paint(w);
    dragbox shown = record(w, type, box);
    POINT pointer = {};
    GetCursorPos(&pointer);
    ScreenToClient(w, &pointer);
    dragboxstart(&shown);
    look(p, row, 0, w, "Begun");
    dragboxmove(pointer.x + 40, pointer.y + 25);
    look(p, row, 1, w, "Moved by 40, 25");
    dragresult result;
    dragboxend(&result);
    look(p, row, 2, w, "Ended");
}

} // namespace

errorblock *drawdrags(const page *p)
{
    heading(20, -30, "The drag box; a horizontal bar doesn't follow the pointer");
    HWND w = windowopen();
    if (!w) return syserr("CreateWindow");
    draw(p, w, 0, DRAGRUBBER, {20, 30, 140, 120});
    draw(p, w, 1, DRAGBAR, {10, 60, 150, 60});
    draw(p, w, 2, DRAGBAR, {60, 10, 60, 150});
    DestroyWindow(w);
    return nullptr;
}
