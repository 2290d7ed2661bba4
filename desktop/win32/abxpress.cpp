// What the mouse does to a drawn control, told to the state machine of
// desktop/press.h and done as that asks.

#include "desktop/dispatch.h"
#include "desktop/mouse.h"
#include "desktop/press.h"
#include "desktop/validation.h"
#include "desktop/win32/abx.h"
#include "desktop/windows.h"
#include "graphics/win32/windowhandle.h"

#include <windowsx.h>

static window parentof(HWND control)
{
    return windowof(GetParent(control));
}

// As an event of the parent has it.
static mouserecord recordof(HWND control, int32_t buttons)
{
    mouserecord mouse = {};
    reporterror(getpointer(&mouse));
    mouse.buttons = buttons;
    mouse.window = parentof(control);
    mouse.icon = GetDlgCtrlID(control);
    return mouse;
}

void presslook(window control, bool pressed)
{
    abxchange(systemwindow(control), CONTROLPRESSED, pressed); // before a click begins some work
}

void presscapture(window control, bool on)
{
    if (on)
        SetCapture(systemwindow(control));
    else if (GetCapture() == systemwindow(control))
        ReleaseCapture();
}

void presstimer(window control, bool on)
{
    if (on)
        SetTimer(systemwindow(control), 1, PRESSTICK, nullptr);
    else
        KillTimer(systemwindow(control), 1);
}

void pressclick(window control, int32_t buttons)
{
    mouserecord mouse = recordof(systemwindow(control), buttons);
    clickdeliver(mouse.window, &mouse);
}

static LPARAM place; // of the last press or movement, in the control that it was over

static void movedeliver(HWND control)
{
    mouserecord mouse = recordof(control, 0);
    dispatchall(EVENTMOUSE, mouse.window, [&](const block &b) {
        return handlerof<mousefunction>(b)(mouse.window, b.data, &mouse);
    });
}

static bool inside(HWND control, LPARAM lparam)
{
    RECT box;
    GetClientRect(control, &box);
    return PtInRect(&box, {GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)});
}

static void moved(HWND control, LPARAM lparam)
{
    // The system also tells of the pointer when windows have moved under it.
    bool really = lparam != place;
    place = lparam;
    if (really) pressmove(windowof(control), inside(control, lparam));
    if (IsWindow(control)) movedeliver(control); // a drag may have ended it
}

// Another window that has come up in front counts as not over it.
static bool pointerover(HWND control)
{
    POINT now;
    return GetCursorPos(&now) && WindowFromPoint(now) == control;
}

// A pane keeps no focus: a press of what stands in it gives it back.
static void panefocus(HWND pane)
{
    uint32_t flags = 0;
    if (getflags(windowof(pane), &flags) || !(flags & WINDOWPANE)) return;
    if (GetFocus() == pane) SetFocus(GetParent(pane));
}

static void pressed(HWND control, UINT message)
{
    char string[VALIDATIONSIZE], codes[VALIDATIONSIZE];
    abxstring(control, string);
    gettoken(string, 'K', codes);
    bool left = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
    bool twice = message == WM_LBUTTONDBLCLK || message == WM_RBUTTONDBLCLK;
    if (!twice) panefocus(GetParent(control));
    (twice ? pressdouble : pressdown)(windowof(control), left ? BUTTONLEFT : BUTTONRIGHT, codes);
}

void abxmouse(HWND control, UINT message, WPARAM, LPARAM lparam)
{
    window self = windowof(control);
    switch (message) {
    case WM_MOUSEMOVE:
        moved(control, lparam);
        break;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
        pressup(self, message == WM_LBUTTONUP ? BUTTONLEFT : BUTTONRIGHT, inside(control, lparam));
        break;
    case WM_CAPTURECHANGED:
        presslost(self);
        break;
    case WM_TIMER:
        presstick(self, pointerover(control));
        break;
    default:
        place = lparam;
        pressed(control, message);
    }
}
