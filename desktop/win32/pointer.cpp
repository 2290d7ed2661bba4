// Where the pointer is, and its shape.

#include "desktop/win32/pointerplace.h"

#include "base/syserr.h"
#include "desktop/dispatch.h"
#include "desktop/hourglass.h"
#include "desktop/poll.h"
#include "desktop/win32/procedure.h"
#include "graphics/modeinfo.h"
#include "graphics/win32/windowhandle.h"

int32_t iconunder(HWND around, POINT screen)
{
    HWND inner = around;
    for (;;) {
        POINT place = screen;
        ScreenToClient(inner, &place);
        HWND child = ChildWindowFromPointEx(inner, place, CWP_SKIPINVISIBLE);
        if (!child || child == inner) break;
        inner = child;
    }
    return inner == around ? -1 : GetDlgCtrlID(inner);
}

void placeset(mouserecord *mouse, POINT screen)
{
    mouse->x = devtoosx(screen.x);
    mouse->y = screentoosy(screen.y);
}

static int32_t buttonsnow()
{
    bool swapped = GetSystemMetrics(SM_SWAPBUTTON);
    if (GetAsyncKeyState(swapped ? VK_RBUTTON : VK_LBUTTON) < 0) return BUTTONLEFT;
    if (GetAsyncKeyState(swapped ? VK_LBUTTON : VK_RBUTTON) < 0) return BUTTONRIGHT;
    return 0;
}

static bool isours(HWND under)
{
    DWORD process = 0;
    GetWindowThreadProcessId(under, &process);
    return process == GetCurrentProcessId();
}

// A window of this process that is not the library's own, such as a menu, stays
// as it is too.
static void windowset(mouserecord *mouse, HWND under, POINT screen)
{
    mouse->window = under ? windowof(under) : -1;
    mouse->icon = -1;
    if (!under || !isours(under)) return;
    window holding = polltarget(windowof(under));
    if (!holding) return;
    mouse->window = holding;
    mouse->icon = iconunder(systemwindow(holding), screen);
}

errorblock *getpointer(mouserecord *mouse)
{
    *mouse = {0, 0, 0, -1, -1};
    POINT screen;
    if (!GetCursorPos(&screen)) return syserr("GetCursorPos");
    placeset(mouse, screen);
    mouse->buttons = buttonsnow();
    windowset(mouse, WindowFromPoint(screen), screen);
    return nullptr;
}

static LPCSTR systemshape(int32_t kind)
{
    switch (kind) {
    case POINTERBUSY:
        return IDC_APPSTARTING;
    case POINTERCROSS:
        return IDC_CROSS;
    case POINTERHELP:
        return IDC_HELP;
    case POINTERTEXT:
        return IDC_IBEAM;
    case POINTERICON:
        return IDC_ICON;
    case POINTERNOENTRY:
        return IDC_NO;
    default:
        return IDC_ARROW;
    }
}

static HCURSOR shape(int32_t kind, intptr_t module, const char *name)
{
    HMODULE from = kind == POINTERMODULE ? reinterpret_cast<HMODULE>(module) : nullptr;
    if (kind != POINTERMODULE && kind != POINTERPROGRAM)
        return LoadCursorA(nullptr, systemshape(kind));
    return LoadCursorA(from ? from : GetModuleHandleA(nullptr), name);
}

errorblock *setpointer(int32_t kind, intptr_t module, const char *name)
{
    if (kind == POINTERSAME) return nullptr;
    HCURSOR wanted = kind == POINTERNONE ? nullptr : shape(kind, module, name);
    if (kind != POINTERNONE && !wanted) return syserr("LoadCursor");
    SetCursor(wanted);
    return nullptr;
}

// Asked for each movement; a child asks its parent before it takes its own.
reply mousecursor(const taskmessage &m)
{
    if (hourglassforce()) return replyvalue(1);
    if (LOWORD(m.lparam) != HTCLIENT) return REPLYDEFAULT;
    mouserecord mouse;
    reporterror(getpointer(&mouse));
    bool any = false;
    dispatchall(EVENTPOINTER, m.self, [&](const block &b) {
        bool handled = false;
        errorblock *err = handlerof<pointerfunction>(b)(m.self, b.data, &mouse, &handled);
        any |= handled;
        return err;
    });
    return any ? replyvalue(1) : REPLYDEFAULT;
}
