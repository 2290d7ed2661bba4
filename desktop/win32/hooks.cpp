#include "base/syserr.h"
#include "desktop/eventsource.h"
#include "desktop/handlers.h"
#include "desktop/subclass.h"
#include "graphics/win32/windowhandle.h"

#include <windows.h>

static HHOOK mousehook; // 0 while there are no handlers for it

static LRESULT CALLBACK mousehooked(int code, WPARAM message, LPARAM parameter)
{
    if (code == HC_ACTION) {
        auto *mouse = reinterpret_cast<const MOUSEHOOKSTRUCT *>(parameter);
        if (hookdeliver(windowof(mouse->hwnd), parameter, static_cast<intptr_t>(message)))
            return 1; // swallowed
    }
    return CallNextHookEx(mousehook, code, message, parameter);
}

errorblock *sourcehook(bool on)
{
    if (!on) {
        BOOL removed = UnhookWindowsHookEx(mousehook);
        mousehook = nullptr;
        return removed ? nullptr : syserr("UnhookWindowsHookEx");
    }
    mousehook = SetWindowsHookExA(WH_MOUSE, mousehooked, nullptr, GetCurrentThreadId());
    return mousehook ? nullptr : syserr("SetWindowsHookEx");
}

window sourcecontrol(window w, int32_t icon)
{
    return windowof(GetDlgItem(systemwindow(w), icon));
}

static LRESULT CALLBACK subclassprocedure(HWND control, UINT message, WPARAM wparam, LPARAM lparam)
{
    systemmessage m = {windowof(control), static_cast<intptr_t>(message),
                       static_cast<intptr_t>(wparam), lparam};
    intptr_t result = 0, own = 0;
    if (subclassdeliver(&m, &result, &own)) return result;
    if (!own) return DefWindowProcA(control, message, wparam, lparam);
    return CallWindowProcA(reinterpret_cast<WNDPROC>(own), control, message, wparam, lparam);
}

intptr_t sourcesubclass(window control)
{
    return SetWindowLongPtrA(systemwindow(control), GWLP_WNDPROC,
                             reinterpret_cast<LONG_PTR>(subclassprocedure));
}

void sourceunsubclass(window control, intptr_t procedure)
{
    SetWindowLongPtrA(systemwindow(control), GWLP_WNDPROC, procedure);
}
