// Showing and placing windows.

#include "desktop/windows.h"

#include "base/syserr.h"
#include "desktop/wdata.h"
#include "desktop/win32/windowgeometry.h"

#include <windows.h>

namespace
{

HWND orderafter(HWND self, intptr_t behind)
{
    switch (behind) {
    case BEHINDTOP:
        return HWND_TOP;
    case BEHINDBOTTOM:
        return HWND_BOTTOM;
    case BEHINDTOPMOST:
        return HWND_TOPMOST;
    case BEHINDNOTTOPMOST:
        return HWND_NOTOPMOST;
    default:
        break;
    }
    // An owned window can't be behind its owner, nor a child behind its parent.
    HWND other = systemwindow(behind);
    return other == GetParent(self) ? HWND_BOTTOM : other;
}

UINT moveflags(window w, intptr_t behind)
{
    if (behind == BEHINDHIDE) return SWP_HIDEWINDOW | SWP_NOACTIVATE | SWP_NOZORDER;
    UINT flags = SWP_SHOWWINDOW | SWP_NOACTIVATE;
    return behind == BEHINDSAME || behind == w ? flags | SWP_NOZORDER : flags;
}

// Places of a child are told from its parent's client area.
errorblock *parentplace(window w, POINT *place)
{
    *place = {};
    HWND self = systemwindow(w);
    if (!(GetWindowLongA(self, GWL_STYLE) & WS_CHILD)) return nullptr;
    return ClientToScreen(GetParent(self), place) ? nullptr : syserr("ClientToScreen");
}

void opening(window w, bool on)
{
    wdata *data = wdatafind(w);
    if (data) data->flags = on ? data->flags | WINDOWOPENING : data->flags & ~WINDOWOPENING;
}

// Handlers may run in here: the record is looked for again.
errorblock *move(const windowstaterecord *state, const pixelbox &frame, POINT origin)
{
    window w = state->self;
    HWND self = systemwindow(w);
    UINT flags = moveflags(w, state->behind);
    HWND after = flags & SWP_NOZORDER ? nullptr : orderafter(self, state->behind);
    opening(w, true);
    BOOL moved = SetWindowPos(self, after, frame.left - origin.x, frame.top - origin.y,
                              frame.right - frame.left, frame.bottom - frame.top, flags);
    errorblock *err = moved ? nullptr : syserr("SetWindowPos");
    opening(w, false);
    return err;
}

} // namespace

errorblock *openwindow(const windowstaterecord *state)
{
    window w = state->self;
    checkhandle(w, "open");
    windowgeometry now;
    POINT origin;
    errorblock *err = geometryread(w, &now);
    if (!err) err = parentplace(w, &origin);
    if (!err) err = move(state, placeframe(*state, now), origin);
    if (!err) err = setscrollx(w, state->xscroll);
    if (!err) err = setscrolly(w, -state->yscroll);
    return err;
}

void restorewindow(window w)
{
    if (IsZoomed(systemwindow(w))) ShowWindow(systemwindow(w), SW_RESTORE);
}

errorblock *openinside(windowstaterecord *state)
{
    window w = state->self;
    windowgeometry now;
    errorblock *err = geometryread(w, &now);
    if (err) return err;
    pixelbox frame = placeframe(*state, now);
    MONITORINFO screen = {};
    screen.cbSize = sizeof screen;
    HMONITOR monitor = MonitorFromWindow(systemwindow(w), MONITOR_DEFAULTTONEAREST);
    if (GetMonitorInfoA(monitor, &screen)) {
        const RECT &work = screen.rcWork;
        frame = placeinside(frame, {work.left, work.top, work.right, work.bottom});
    }
    err = move(state, frame, {});
    return err ? err : windowstate(w, state);
}

// Only the move itself counts.
static errorblock *childopen(const windowstaterecord *state, const pixelbox &frame)
{
    window w = state->self;
    checkhandle(w, "open ex");
    POINT origin;
    parentplace(w, &origin);
    errorblock *err = move(state, frame, origin);
    kepterror kept = keeperror(err);
    setscrollx(w, state->xscroll);
    setscrolly(w, -state->yscroll);
    return firsterror(kept, nullptr);
}

errorblock *openwindowex(const windowstaterecord *state)
{
    return childopen(state, placeclient(*state));
}

errorblock *openpixels(window w, const pixelbox &frame, intptr_t behind)
{
    windowstaterecord state;
    errorblock *err = windowstate(w, &state);
    if (err) return err;
    state.behind = behind;
    return childopen(&state, frame);
}

errorblock *opencentred(window w, int32_t n)
{
    windowstaterecord state;
    errorblock *err = windowstate(w, &state);
    if (err) return err;
    centrestate(&state, n);
    state.behind = BEHINDTOP;
    return openwindow(&state);
}

errorblock *raisewindow(window w, intptr_t data,
                        errorblock *(*callback)(window, intptr_t, windowstaterecord *))
{
    windowstaterecord state;
    errorblock *err = windowstate(w, &state);
    if (err) return err;
    state.behind = BEHINDTOP;
    err = openwindow(&state);
    return !err && callback ? callback(w, data, &state) : err;
}

errorblock *scrollto(window w, int32_t x, int32_t y)
{
    windowstaterecord state;
    errorblock *err = windowstate(w, &state);
    if (err) return err;
    state.xscroll = x;
    state.yscroll = y;
    return openwindow(&state);
}
