// What a window is and where: reading its state, and what is set on it at once.

#include "desktop/windows.h"

#include "base/boxes.h"
#include "base/messages.h"
#include "base/syserr.h"
#include "base/text.h"
#include "desktop/scroll.h"
#include "desktop/wdata.h"
#include "desktop/win32/windowgeometry.h"
#include "desktop/windowinternal.h"
#include "desktop/windowplace.h"
#include "graphics/modeinfo.h"

#include <windows.h>

#include <algorithm>

static_assert(STYLEVSCROLL == WS_VSCROLL && STYLEHSCROLL == WS_HSCROLL);

errorblock *windowcreated(window w)
{
    wdata *data;
    errorblock *err = wdatanew(w, &data);
    if (!err) {
        data->style = static_cast<uint32_t>(GetWindowLongA(systemwindow(w), GWL_STYLE));
        data->parent = wdataparent;
    }
    wdataparent = 0;
    return err;
}

void windowdestroyed(window w)
{
    if (wdata *data = wdatafind(w)) wdatafree(data);
}

errorblock *windowdata(window w, wdata **data)
{
    *data = wdatafind(w);
    return *data ? nullptr : syserrcode(ERROR_INVALID_WINDOW_HANDLE, "GetWindowLong");
}

errorblock *clientsize(window w, int32_t *width, int32_t *height)
{
    RECT client = {};
    if (!GetClientRect(systemwindow(w), &client)) return syserr("GetClientRect");
    *width = client.right;
    *height = client.bottom;
    return nullptr;
}

static errorblock *clientread(window w, pixelbox *client)
{
    int32_t width = 0, height = 0;
    errorblock *err = clientsize(w, &width, &height);
    if (err) return err;
    POINT corner = {};
    if (!ClientToScreen(systemwindow(w), &corner)) return syserr("ClientToScreen");
    *client = {corner.x, corner.y, corner.x + width, corner.y + height};
    return nullptr;
}

static errorblock *frameread(window w, pixelbox *frame)
{
    RECT box;
    if (!GetWindowRect(systemwindow(w), &box)) return syserr("GetWindowRect");
    *frame = {box.left, box.top, box.right, box.bottom};
    return nullptr;
}

errorblock *geometryread(window w, windowgeometry *geometry)
{
    errorblock *err = frameread(w, &geometry->frame);
    if (!err) err = clientread(w, &geometry->client);
    return err;
}

namespace
{

struct stateflag {
    uint32_t style, flag;
};

constexpr stateflag STATEFLAGS[] = {
    {WS_VISIBLE, STATEOPEN},
    {WS_MAXIMIZE, STATEMAXIMISED},
    {WS_MINIMIZE, STATEMINIMISED},
};

uint32_t stateflags(window w)
{
    auto style = static_cast<uint32_t>(GetWindowLongA(systemwindow(w), GWL_STYLE));
    uint32_t flags = STATEREAD;
    for (const stateflag &row : STATEFLAGS)
        if (style & row.style) flags |= row.flag;
    return flags;
}

// The window that it goes behind.
intptr_t statebehind(window w)
{
    HWND above = GetWindow(systemwindow(w), GW_HWNDPREV);
    return above ? reinterpret_cast<intptr_t>(above) : BEHINDTOP;
}

} // namespace

errorblock *windowstate(window w, windowstaterecord *state)
{
    checkhandle(w, "state");
    *state = {};
    state->self = w;
    pixelbox client;
    errorblock *err = clientread(w, &client);
    if (err) return err;
    placestate(client, state);
    state->behind = statebehind(w);
    state->wflags = stateflags(w);

    // A window of another kind has a place on the screen all the same.
    wdata *data;
    reporterror(windowdata(w, &data));
    if (!data) return nullptr;
    if (data->flags & WINDOWOPENING) state->wflags |= STATEOPENING;
    state->xscroll = scrollposition(w, false);
    state->yscroll = -scrollposition(w, true);
    return nullptr;
}

errorblock *windowinfo(window w, windowinforecord *info)
{
    errorblock *err = windowstate(w, &info->state);
    info->xorigin = info->state.x0 - info->state.xscroll;
    info->yorigin = info->state.y1 - info->state.yscroll;
    return err;
}

errorblock *windowoutline(window w, osbox *box)
{
    pixelbox frame;
    errorblock *err = frameread(w, &frame);
    if (!err) *box = placebox(frame);
    return err;
}

errorblock *getextent(extentrecord *record)
{
    checkhandle(record->self, "get extent");
    wdata *data;
    errorblock *err = windowdata(record->self, &data);
    if (!err) *record = {record->self, data->xmin, data->ymin, data->xmax, data->ymax};
    return err;
}

errorblock *getflags(window w, uint32_t *flags)
{
    checkhandle(w, "get flags");
    wdata *data;
    errorblock *err = windowdata(w, &data);
    if (!err) *flags = data->flags;
    return err;
}

errorblock *setbackground(window w, uint32_t colour)
{
    wdata *data;
    errorblock *err = windowdata(w, &data);
    if (!err) data->background = colour;
    return err;
}

errorblock *settitle(window w, const char *text)
{
    char title[1024];
    errorblock *err = xzstrncpy(title, text, sizeof title);
    if (!err) err = expandtokens(title, sizeof title);
    if (err) return err;
    return SetWindowTextA(systemwindow(w), title) ? nullptr : syserr("SetWindowText");
}

// 0 also tells that no window of ours was active before.
errorblock *setactive(window w)
{
    SetLastError(0);
    SetActiveWindow(systemwindow(w));
    // It gives the window that was active before, and none is no failure; the messages
    // in between leave last errors of their own.
    return GetActiveWindow() == systemwindow(w) ? nullptr : syserr("SetActiveWindow");
}

errorblock *forceredraw(window w, int32_t x0, int32_t y0, int32_t x1, int32_t y1)
{
    checkhandle(w, "force redraw");
    wdata *data;
    errorblock *err = windowdata(w, &data);
    if (err) return err;
    pixelbox box = placework({x0, y0, x1, y1}, scrollposition(w, false), -scrollposition(w, true));
    RECT rectangle = {box.left, box.top, box.right, box.bottom};
    return InvalidateRect(systemwindow(w), &rectangle, TRUE) ? nullptr : syserr("InvalidateRect");
}

errorblock *redrawall(window w)
{
    checkhandle(w, "force redraw");
    return InvalidateRect(systemwindow(w), nullptr, TRUE) ? nullptr : syserr("InvalidateRect");
}

// At its largest the window has no scroll bars.
void windowmaxsize(window w, intptr_t minmaxinfo)
{
    const wdata *data = wdatafind(w);
    if (!data || !(data->flags & WINDOWMAXEXTENT)) return;
    HWND self = systemwindow(w);
    RECT frame = {0, 0, ostodevx(data->xmax - data->xmin), ostodevy(data->ymax - data->ymin)};
    auto style = static_cast<DWORD>(GetWindowLongA(self, GWL_STYLE));
    bool child = style & WS_CHILD;
    AdjustWindowRectEx(&frame, style, !child && GetMenu(self),
                       static_cast<DWORD>(GetWindowLongA(self, GWL_EXSTYLE)));
    auto *limits = reinterpret_cast<MINMAXINFO *>(minmaxinfo);
    limits->ptMaxTrackSize = {frame.right - frame.left, frame.bottom - frame.top};
    limits->ptMaxSize.x = std::min(limits->ptMaxSize.x, limits->ptMaxTrackSize.x);
    limits->ptMaxSize.y = std::min(limits->ptMaxSize.y, limits->ptMaxTrackSize.y);
}
