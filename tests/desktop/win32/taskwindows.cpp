#include "tests/desktop/win32/taskwindows.h"

#include "base/boxes.h"
#include "desktop/blocks.h"
#include "desktop/scroll.h"
#include "desktop/wdata.h"
#include "desktop/windowinternal.h"
#include "desktop/windowplace.h"
#include "desktop/windows.h"

#include <doctest/doctest.h>

namespace
{

bool redrawn(window w)
{
    int32_t index = findblock(EVENTREDRAW, BLOCKANY, w, BLOCKANY, nullptr);
    if (index < 0) return false;
    block b = blockat(index);
    reporterror(reinterpret_cast<redrawfunction>(b.function)(w, b.data));
    return true;
}

// What windows ask of their procedure, and nothing else.
bool answered(window w, UINT message, WPARAM wparam, LPARAM lparam, LRESULT *result)
{
    bool moved;
    *result = 0;
    switch (message) {
    case WM_CREATE:
        reporterror(windowcreated(w));
        return true;
    case WM_DESTROY:
        windowdestroyed(w);
        return true;
    case WM_ERASEBKGND:
        *result = 1;
        return backgrounderase(w, static_cast<intptr_t>(wparam));
    case WM_GETMINMAXINFO:
        windowmaxsize(w, lparam);
        return true;
    case WM_HSCROLL:
    case WM_VSCROLL:
        reporterror(
            scrollmessage(w, message == WM_VSCROLL, LOWORD(wparam), HIWORD(wparam), &moved));
        return true;
    case WM_PAINT:
        return redrawn(w);
    default:
        return false;
    }
}

LRESULT CALLBACK procedure(HWND self, UINT message, WPARAM wparam, LPARAM lparam)
{
    window w = reinterpret_cast<window>(self);
    LRESULT result;
    if (answered(w, message, wparam, lparam, &result)) return result;
    result = DefWindowProcA(self, message, wparam, lparam);
    int busy;
    if (message == WM_SIZE) reporterror(rescroll(w, &busy));
    return result;
}

void registerclass()
{
    WNDCLASSA c = {};
    c.lpfnWndProc = procedure;
    c.hInstance = GetModuleHandleA(nullptr);
    c.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    c.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    c.lpszClassName = "Task";
    RegisterClassA(&c); // which is there from the first time on
}

} // namespace

window taskwindow(DWORD style, window parent)
{
    registerclass();
    wdataparent = parent;
    HWND made = CreateWindowExA(0, "Task", "A window", style, 50, 60, 300, 200, taskhandle(parent),
                                nullptr, GetModuleHandleA(nullptr), nullptr);
    REQUIRE(made);
    window w = reinterpret_cast<window>(made);
    REQUIRE(wdatafind(w));
    return w;
}

void taskwindowsend()
{
    while (wdatas) {
        HWND last = taskhandle(wdatas->handle);
        wdatafree(wdatas);
        DestroyWindow(last);
    }
}

void taskopen(window w, int32_t left, int32_t top, int32_t width, int32_t height, intptr_t behind)
{
    windowstaterecord state;
    REQUIRE_FALSE(windowstate(w, &state));
    placestate({left, top, left + width, top + height}, &state);
    state.behind = behind;
    REQUIRE_FALSE(openwindow(&state));
}

RECT taskclient(window w)
{
    RECT client;
    GetClientRect(taskhandle(w), &client);
    POINT corner = {};
    ClientToScreen(taskhandle(w), &corner);
    OffsetRect(&client, corner.x, corner.y);
    return client;
}
