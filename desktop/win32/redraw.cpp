// Paints, asked for by the system or by ourselves. There is one rectangle, the
// box round all that is to be painted: the system clips to the rest.

#include "desktop/redraw.h"

#include "base/syserr.h"
#include "desktop/scroll.h"
#include "desktop/wdata.h"
#include "desktop/win32/windowgeometry.h"
#include "desktop/windowinternal.h"
#include "desktop/windows.h"
#include "graphics/dragbox.h"
#include "graphics/surface.h"

#include <windows.h>

namespace
{

HDC contextof(const redrawrecord *r)
{
    return reinterpret_cast<HDC>(r->drawing->dc);
}

// What the record says of the window, whatever is to be painted.
errorblock *viewread(redrawrecord *r)
{
    int32_t width, height;
    errorblock *err = clientsize(r->self, &width, &height);
    if (err) return err;
    r->x0 = r->y1 = 0;
    r->x1 = devtoosx(width);
    r->y0 = -devtoosy(height);
    r->xscroll = scrollposition(r->self, false);
    r->yscroll = -scrollposition(r->self, true);
    return nullptr;
}

// The surface becomes the current one until it is left: a redraw may come in the
// middle of a measurement, or of another redraw that shows an error.
void surfaceenter(redrawrecord *r, HDC dc)
{
    r->drawing->dc = reinterpret_cast<intptr_t>(dc);
    r->outer = currentsurface;
    setcurrentsurface(r->drawing);
    surfacesetorigin(0, 0, r->drawing);
    surfaceview(r->drawing, ostodevx(r->xscroll), -ostodevy(r->yscroll));
}

void surfaceleave(redrawrecord *r)
{
    surfacefree(r->drawing);
    r->drawing = nullptr;
    setcurrentsurface(r->outer);
    GdiFlush();
}

// A unit more on all sides, since a pixel is wider than one.
void clipset(redrawrecord *r, int32_t left, int32_t top, int32_t right, int32_t bottom)
{
    surfacenearest(&left, &bottom);
    surfacenearest(&right, &top);
    r->cx0 = left - 1;
    r->cy0 = bottom - 1;
    r->cx1 = right + 1;
    r->cy1 = top + 1;
}

errorblock *paintbegin(redrawrecord *r)
{
    HWND self = systemwindow(r->self);
    surface *s = r->drawing;
    HDC dc = BeginPaint(self, reinterpret_cast<PAINTSTRUCT *>(&s->paint));
    if (!dc) return syserr("BeginPaint");
    surfaceenter(r, dc);
    clipset(r, s->paint.left, s->paint.top, s->paint.right, s->paint.bottom);
    return nullptr;
}

errorblock *updatebegin(redrawrecord *r)
{
    HDC dc = GetDC(systemwindow(r->self));
    if (!dc) return syserr("GetDC");
    surfaceenter(r, dc);
    return nullptr;
}

void updateend(redrawrecord *r)
{
    surfacerelease(r->drawing);
    ReleaseDC(systemwindow(r->self), contextof(r));
    surfaceleave(r);
}

// Whether some of the box is on the screen; the clip is set to it.
bool updateclip(redrawrecord *r, const pixelbox &box)
{
    surface *s = r->drawing;
    IntersectClipRect(contextof(r), box.left, box.top, box.right, box.bottom);
    RECT shown;
    int kind = GetClipBox(contextof(r), &shown);
    if (kind == NULLREGION || kind == ERROR) return false;
    s->flags |= SURFACECLIPPED;
    s->clipleft = box.left;
    s->clipright = box.right;
    s->clipbottom = box.bottom;
    s->cliptop = box.top;
    clipset(r, shown.left, shown.top, shown.right, shown.bottom);
    return true;
}

// What has begun is ended, whatever the painter says.
errorblock *partspaint(redrawrecord *r, bool more, redrawpainter painter, intptr_t data)
{
    errorblock *err = nullptr;
    while (!err && more) {
        errorblock *painted = painter(*r, data);
        err = redrawnext(r, &more);
        if (!err) err = painted;
    }
    return err;
}

} // namespace

// A paint that can't begin is given up: the system would ask for it for ever.
errorblock *redrawin(redrawrecord *r, bool *more)
{
    checkhandle(r->self, "wimp redraw in");
    *more = false;
    HWND self = systemwindow(r->self);
    if (!GetUpdateRect(self, nullptr, FALSE)) return nullptr;
    errorblock *err = surfacenew(&r->drawing);
    if (err) {
        ValidateRect(self, nullptr);
        return err;
    }
    err = viewread(r);
    if (!err) err = paintbegin(r);
    if (err) {
        surfacefree(r->drawing);
        return err;
    }
    *more = true;
    return nullptr;
}

// A drag's box lies over all that is painted.
errorblock *redrawnext(redrawrecord *r, bool *more)
{
    if (!*more) return nullptr;
    *more = false;
    surfacerelease(r->drawing);
    dragboxredraw(r->self, r->drawing->dc, true);
    if (r->drawing->paint.dc) // the system's paint, not an update of ours
        EndPaint(systemwindow(r->self), reinterpret_cast<PAINTSTRUCT *>(&r->drawing->paint));
    else
        ReleaseDC(systemwindow(r->self), contextof(r));
    surfaceleave(r);
    return nullptr;
}

errorblock *updatewindow(redrawrecord *r, bool *more)
{
    checkhandle(r->self, "update");
    *more = false;
    osbox area = {r->x0, r->y0, r->x1, r->y1};
    errorblock *err = viewread(r);
    if (!err) err = surfacenew(&r->drawing);
    if (err) return err;
    err = updatebegin(r);
    if (err) {
        surfacefree(r->drawing);
        return err;
    }
    if (!updateclip(r, placework(area, r->xscroll, r->yscroll))) {
        updateend(r);
        return nullptr;
    }
    dragboxredraw(r->self, r->drawing->dc, false);
    *more = true;
    return nullptr;
}

errorblock *redrawwith(window self, redrawpainter painter, intptr_t data)
{
    redrawrecord r = {};
    r.self = self;
    bool more;
    errorblock *err = redrawin(&r, &more);
    return err ? err : partspaint(&r, more, painter, data);
}

errorblock *updatewith(window self, int32_t x0, int32_t y0, int32_t x1, int32_t y1,
                       redrawpainter painter, intptr_t data)
{
    redrawrecord r = {};
    r.self = self;
    r.x0 = x0;
    r.y0 = y0;
    r.x1 = x1;
    r.y1 = y1;
    bool more;
    errorblock *err = updatewindow(&r, &more);
    return err ? err : partspaint(&r, more, painter, data);
}
