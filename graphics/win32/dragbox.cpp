#include "graphics/dragbox.h"

#include "graphics/dragboxstate.h"
#include "graphics/win32/windowhandle.h"

#include <windows.h>

namespace
{

constexpr DWORD PATTERNINVERT = PATINVERT; // the pattern joined to the screen by exclusive-or
static_assert(PATTERNINVERT == 0x5A0049);

HWND dragwindow()
{
    return systemwindow(dragstate.given.window);
}

void drawrubber(HDC dc, const dragpixels &box)
{
    SetBkMode(dc, TRANSPARENT);
    SetROP2(dc, R2_XORPEN);
    SelectObject(dc, GetStockObject(HOLLOW_BRUSH));
    HPEN pen = CreatePen(PS_DOT, 0, RGB(255, 255, 255));
    HGDIOBJ before = SelectObject(dc, pen);
    Rectangle(dc, box.left, box.top, box.right, box.bottom);
    SelectObject(dc, before);
    DeleteObject(pen);
}

// A checkerboard. Rows of a bitmap are stored as whole 16-bit words.
HBRUSH checks()
{
    BYTE rows[8][2];
    for (int y = 0; y < 8; y++) {
        rows[y][0] = y & 1 ? 0x55 : 0xAA;
        rows[y][1] = 0;
    }
    HBITMAP bitmap = CreateBitmap(8, 8, 1, 1, rows);
    HBRUSH brush = CreatePatternBrush(bitmap);
    DeleteObject(bitmap);
    return brush;
}

void drawbar(HDC dc, const dragpixels &box)
{
    // What is 0 in a one-bit pattern takes the text's colour, and leaves the
    // screen as it is only when that is black.
    SetTextColor(dc, RGB(0, 0, 0));
    SetBkColor(dc, RGB(255, 255, 255));
    SetBrushOrgEx(dc, box.left, box.top, nullptr);
    HBRUSH brush = checks();
    HGDIOBJ before = SelectObject(dc, brush);
    PatBlt(dc, box.left, box.top, box.right - box.left, box.bottom - box.top, PATTERNINVERT);
    SelectObject(dc, before);
    DeleteObject(brush);
}

// The context is left as it was: a redraw goes on with it. It is that of a window
// in which the corner of the drag's lies at origin.
void draw(HDC dc, dragmovement at, POINT origin)
{
    int saved = SaveDC(dc);
    dragpixels box = dragstatebox(at);
    box = {box.left + origin.x, box.top + origin.y, box.right + origin.x, box.bottom + origin.y};
    if (dragstate.given.type == DRAGRUBBER) drawrubber(dc, box);
    if (dragstate.given.type == DRAGBAR) drawbar(dc, box);
    RestoreDC(dc, saved);
}

// Over the panes in the window too, which its usual context may leave out.
void drawall(const dragmovement *places, int32_t count)
{
    HDC dc = GetDCEx(dragwindow(), nullptr, DCX_CACHE | DCX_CLIPSIBLINGS);
    for (int32_t i = 0; i < count; i++)
        draw(dc, places[i], {0, 0});
    ReleaseDC(dragwindow(), dc);
}

void toggle()
{
    dragmovement at = dragstatetoggle();
    drawall(&at, 1);
}

} // namespace

void dragboxstart(const dragbox *record)
{
    HWND w = systemwindow(record->window);
    POINT client = {}, pointer = {};
    ClientToScreen(w, &client);
    GetCursorPos(&pointer);
    ScreenToClient(w, &pointer);
    dragstatestart(record, client.x, client.y, pointer.x, pointer.y);
    toggle();
}

void dragboxmove(int32_t x, int32_t y)
{
    if (!dragstate.given.window) return;
    dragmovement places[2];
    int32_t count = dragstatemove(x, y, places);
    drawall(places, count);
}

void dragboxend(dragresult *result)
{
    if (!dragstate.given.window) return;
    if (dragstate.shown) toggle();
    *result = dragstateresult();
    dragstateend();
}

void dragboxflush(intptr_t window)
{
    if (window && window == dragstate.given.window) toggle();
}

// The redraw's own clip decides how much of the box is taken off and put back,
// so both times it is drawn at the same place.
void dragboxredraw(intptr_t window, intptr_t context, bool after)
{
    HWND w = systemwindow(window);
    if (!dragstate.shown || (w != dragwindow() && !IsChild(dragwindow(), w))) return;
    POINT origin = {};
    MapWindowPoints(dragwindow(), w, &origin, 1);
    HDC dc = reinterpret_cast<HDC>(context);
    if (after) {
        SetMapMode(dc, MM_TEXT);
        SetWindowOrgEx(dc, 0, 0, nullptr);
        SetViewportOrgEx(dc, 0, 0, nullptr);
    }
    draw(dc, dragstate.shownat, origin);
}
