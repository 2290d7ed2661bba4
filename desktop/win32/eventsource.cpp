#include "desktop/eventsource.h"

#include "base/platform.h"
#include "base/trace.h"
#include "desktop/timed.h"
#include "desktop/wdata.h"
#include "desktop/windows.h"
#include "graphics/win32/windowhandle.h"

#include <windows.h>

static_assert(SYSTEMKEYDOWN == WM_KEYDOWN && SYSTEMSYSKEYDOWN == WM_SYSKEYDOWN &&
              SYSTEMCHAR == WM_CHAR);

static bool wide; // changed by sourcesetwide alone

// What the four words leave out, the time and the pointer's place, is for those
// who fetched the message; none of the calls below looks at it.
static MSG messageof(const systemmessage *message)
{
    MSG m = {};
    m.hwnd = systemwindow(message->window);
    m.message = static_cast<UINT>(message->message);
    m.wParam = static_cast<WPARAM>(message->wparam);
    m.lParam = message->lparam;
    return m;
}

// Waiting tells a failure from the quit notice; a look into the queue just
// finds something or not.
static sourcefetched fetch(bool wait, MSG *m)
{
    if (!wait) {
        BOOL found = (wide ? PeekMessageW : PeekMessageA)(m, nullptr, 0, 0, PM_REMOVE);
        if (!found) return SOURCENOTHING;
        return m->message == WM_QUIT ? SOURCEQUIT : SOURCEMESSAGE;
    }
    BOOL got = (wide ? GetMessageW : GetMessageA)(m, nullptr, 0, 0);
    if (got == -1) {
        trace("GetMessage failed %d", static_cast<int>(GetLastError()));
        return SOURCEFAILED;
    }
    return got == 0 ? SOURCEQUIT : SOURCEMESSAGE;
}

sourcefetched sourcefetch(bool wait, systemmessage *message)
{
    MSG m = {};
    sourcefetched fetched = fetch(wait, &m);
    *message = {windowof(m.hwnd), static_cast<intptr_t>(m.message), static_cast<intptr_t>(m.wParam),
                m.lParam};
    return fetched;
}

void sourcequit(int status)
{
    PostQuitMessage(status);
}

void sourcesetwide(bool on)
{
    wide = on;
}

bool sourceisours(window w)
{
    return wdatafind(w) != nullptr;
}

// The menu word of a child is its number.
static bool hasmenu(window w)
{
    return !(GetWindowLongA(systemwindow(w), GWL_STYLE) & WS_CHILD) && GetMenu(systemwindow(w));
}

bool sourcenavigates(window w)
{
    uint32_t flags = 0;
    return !getflags(w, &flags) && !(flags & WINDOWNONAVIGATION) && !hasmenu(w);
}

window sourceparent(window w)
{
    return windowof(GetParent(systemwindow(w)));
}

bool sourcenavigate(window target, const systemmessage *message)
{
    MSG m = messageof(message);
    return (wide ? IsDialogMessageW : IsDialogMessageA)(systemwindow(target), &m);
}

void sourcetranslate(const systemmessage *message)
{
    MSG m = messageof(message);
    TranslateMessage(&m);
}

void sourcedispatch(const systemmessage *message)
{
    MSG m = messageof(message);
    (wide ? DispatchMessageW : DispatchMessageA)(&m);
}

static void CALLBACK timerfired(HWND, UINT, UINT_PTR, DWORD)
{
    timedrun(true);
}

intptr_t sourcetimerstart(uint32_t milliseconds)
{
    return static_cast<intptr_t>(SetTimer(nullptr, 0, milliseconds, timerfired));
}

void sourcetimerend(intptr_t timer)
{
    KillTimer(nullptr, static_cast<UINT_PTR>(timer));
}

uint32_t sourceticks()
{
    return platformticks();
}

uint32_t sourceprocess()
{
    return GetCurrentProcessId();
}
