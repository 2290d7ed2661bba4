// Rows of the window procedure that are about the window itself.

#include "desktop/dispatch.h"
#include "desktop/eventsource.h"
#include "desktop/mouse.h"
#include "desktop/scroll.h"
#include "desktop/win32/controls.h"
#include "desktop/win32/menumessages.h"
#include "desktop/win32/procedure.h"
#include "desktop/windowinternal.h"
#include "desktop/windows.h"

#include "base/trace.h"

#include <cstring>

static uint32_t flagsof(window w)
{
    uint32_t flags = 0;
    return getflags(w, &flags) ? 0 : flags;
}

reply windowmade(const taskmessage &m)
{
    errorblock *err = windowcreated(m.self);
    reporterror(err);
    return err ? replyvalue(-1) : REPLYDONE; // -1 gives the creation up
}

reply windowended(const taskmessage &m)
{
    mouseend(m.self);
    windowdestroyed(m.self);
    return REPLYDONE;
}

static void opened(const taskmessage &m)
{
    openrecord open = {};
    open.message = static_cast<intptr_t>(m.number);
    open.wparam = static_cast<intptr_t>(m.wparam);
    open.lparam = m.lparam;
    reporterror(windowstate(m.self, &open.state));
    if (open.state.wflags & STATEOPENING) return;
    dispatchall(EVENTOPEN, m.self,
                [&](const block &b) { return handlerof<openfunction>(b)(m.self, b.data, &open); });
}

// A window that is being destroyed is hidden for it, and has no record any more.
reply windowmoved(const taskmessage &m)
{
    LRESULT result = systemreply(m);
    if (!sourceisours(m.self)) return replyvalue(result);
    bool busy = false;
    reporterror(rescroll(m.self, &busy));
    if (!busy) opened(m);
    return replyvalue(result);
}

reply windowclosing(const taskmessage &m)
{
    bool taken = dispatchfirst(EVENTCLOSE, m.self, [&](const block &b) {
        return handlerof<closefunction>(b)(m.self, b.data);
    });
    if (!taken) {
        mouseend(m.self);
        ShowWindow(m.handle, SW_HIDE);
    }
    return REPLYDONE;
}

reply windowpaints(const taskmessage &m)
{
    bool painted = dispatchall(EVENTREDRAW, m.self, [&](const block &b) {
        return handlerof<redrawfunction>(b)(m.self, b.data);
    });
    return painted ? REPLYDONE : REPLYDEFAULT;
}

reply windowerases(const taskmessage &m)
{
    bool done = backgrounderase(m.self, static_cast<intptr_t>(m.wparam));
    return done ? replyvalue(1) : REPLYDEFAULT;
}

reply windowlimits(const taskmessage &m)
{
    windowmaxsize(m.self, m.lparam);
    return REPLYDONE;
}

reply windowscrolled(const taskmessage &m)
{
    if (m.lparam) return REPLYDEFAULT; // a bar that is a control
    bool vertical = m.number == WM_VSCROLL, moved = false;
    reporterror(scrollmessage(m.self, vertical, LOWORD(m.wparam), HIWORD(m.wparam), &moved));
    if (moved) opened(m);
    return REPLYDONE;
}

reply windowactivated(const taskmessage &m)
{
    dispatchall(EVENTACTIVATE, m.self, [&](const block &b) {
        return handlerof<activatefunction>(b)(m.self, b.data, m.lparam, LOWORD(m.wparam));
    });
    return REPLYDEFAULT;
}

reply windowframeactive(const taskmessage &m)
{
    HWND parent = GetParent(m.handle);
    if (!parent || !(flagsof(m.self) & WINDOWPANE)) return REPLYDEFAULT;
    return replyvalue(SendMessageA(parent, m.number, m.wparam, m.lparam));
}

// Who is given the focus keeps it: the system would hand a window's on to its
// first control, and keys would never come to the window itself. It does give a
// control back what that had when another window became the active one.
reply windowfocus(const taskmessage &m)
{
    bool gained = m.number == WM_SETFOCUS;
    if (!gained) wheelclear(m.self);
    dispatchall(EVENTFOCUS, m.self, [&](const block &b) {
        return handlerof<focusfunction>(b)(m.self, b.data, gained);
    });
    return gained ? REPLYDONE : REPLYDEFAULT;
}

// A drawn control says that it is a default button, so that Return presses the one
// with the focus. The window's own can only be a real one: else Return in a field
// would press a counter, and no key handler would hear of it. Nor can it be one that
// was deleted.
reply windowdefault(const taskmessage &m)
{
    LRESULT answer = systemreply(m);
    char name[16] = "";
    HWND control = HIWORD(answer) ? GetDlgItem(m.handle, LOWORD(answer)) : nullptr;
    bool named = control && GetClassNameA(control, name, sizeof name);
    return named && strcmp(name, "abx") != 0 ? replyvalue(answer) : REPLYDONE;
}

reply windowsetfont(const taskmessage &m)
{
    SetWindowLongPtrA(m.handle, DWLP_USER, static_cast<LONG_PTR>(m.wparam));
    return REPLYDEFAULT;
}

reply windowgetfont(const taskmessage &m)
{
    return replyvalue(GetWindowLongPtrA(m.handle, DWLP_USER));
}

static bool movedefeated(const taskmessage &m)
{
    if ((m.wparam & 0xFFF0) != SC_MOVE || !(flagsof(m.self) & WINDOWFIXED)) return false;
    trace("syscommand defeat");
    return true;
}

reply windowcommand(const taskmessage &m)
{
    if (m.number == WM_SYSCOMMAND) return movedefeated(m) ? REPLYDONE : REPLYDEFAULT;
    bool taken = controlcommand(m.handle, m.wparam, m.lparam) ||
                 menucommand(m.self, static_cast<intptr_t>(m.wparam), m.lparam);
    return taken ? REPLYDONE : REPLYDEFAULT;
}
