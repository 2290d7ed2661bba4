// The wheel: to the windows under the pointer, from the outside in.

#include "desktop/dispatch.h"
#include "desktop/scroll.h"
#include "desktop/win32/procedure.h"

#include <windowsx.h>

// The window inside that has its turn, 0 outside a walk. What that does not want
// the system gives back to its parent, which has had its own.
static HWND walked;

static bool handlertakes(const taskmessage &m, bool horizontal)
{
    bool claimed = false;
    dispatchfirst(EVENTWHEEL, m.self, [&](const block &b) {
        return handlerof<wheelfunction>(b)(m.self, b.data, GET_WHEEL_DELTA_WPARAM(m.wparam),
                                           GET_KEYSTATE_WPARAM(m.wparam), horizontal, &claimed);
    });
    return claimed;
}

static bool turn(const taskmessage &m, bool horizontal)
{
    return handlertakes(m, horizontal) ||
           scrollwheelwindow(m.self, GET_WHEEL_DELTA_WPARAM(m.wparam), horizontal);
}

wheelsettings wheelset = {3, 3};

void wheelsettingsread()
{
    SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &wheelset.lines, 0);
    SystemParametersInfoA(SPI_GETWHEELSCROLLCHARS, 0, &wheelset.characters, 0);
}

static HWND childunder(HWND around, POINT screen)
{
    if (!IsWindow(around)) return nullptr; // a handler may end it
    ScreenToClient(around, &screen);
    HWND child = ChildWindowFromPointEx(around, screen, CWP_SKIPINVISIBLE);
    return child == around ? nullptr : child;
}

// A window that took the wheel answers 0, as the system's own controls do.
static bool inside(const taskmessage &m, HWND child)
{
    POINT screen = {GET_X_LPARAM(m.lparam), GET_Y_LPARAM(m.lparam)};
    bool taken = false;
    for (; child && !taken; child = childunder(child, screen)) {
        walked = child;
        taken = SendMessageA(child, m.number, m.wparam, m.lparam) == 0;
    }
    walked = nullptr;
    return taken;
}

reply wheelmessage(const taskmessage &m)
{
    HWND asked = walked;
    if (asked && asked != m.handle) return replyvalue(1);
    walked = nullptr; // a handler may poll
    if (turn(m, m.number == WM_MOUSEHWHEEL)) return REPLYDONE;
    if (asked) return replyvalue(1);
    POINT screen = {GET_X_LPARAM(m.lparam), GET_Y_LPARAM(m.lparam)};
    return inside(m, childunder(m.handle, screen)) ? REPLYDONE : REPLYDEFAULT;
}
