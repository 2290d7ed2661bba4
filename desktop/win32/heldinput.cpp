#include "desktop/heldinput.h"

#include "desktop/eventsource.h"
#include "graphics/win32/windowhandle.h"

#include <windows.h>

namespace
{

constexpr int MOSTPAINTS = 64; // a window that can't be painted asks for ever

bool fetch(MSG *m, UINT first, UINT last)
{
    return PeekMessageA(m, nullptr, first, last, PM_REMOVE);
}

} // namespace

bool heldinput(window w, int32_t stop)
{
    HWND button = systemwindow(sourcecontrol(w, stop));
    bool asked = false;
    MSG m;
    while (fetch(&m, WM_KEYFIRST, WM_KEYLAST))
        asked = asked || (m.message == WM_KEYDOWN && m.wParam == VK_ESCAPE);
    while (fetch(&m, WM_MOUSEFIRST, WM_MOUSELAST)) {
        bool press = m.message == WM_LBUTTONDOWN || m.message == WM_LBUTTONDBLCLK;
        asked = asked || (press && button && m.hwnd == button);
    }
    while (fetch(&m, WM_NCMOUSEMOVE, WM_NCXBUTTONDBLCLK)) {
    }
    for (int n = 0; n < MOSTPAINTS && fetch(&m, WM_PAINT, WM_PAINT); n++)
        DispatchMessageA(&m);
    return asked;
}
