#include "graphics/surface.h"

#include "base/errors.h"
#include "base/flex.h"
#include "base/numbers.h"

surface *surfaces;
surface *currentsurface;

void setcurrentsurface(surface *s)
{
    currentsurface = s;
}

void clearcurrentsurface()
{
    currentsurface = nullptr;
}

errorblock *surfacenew(surface **s)
{
    void *memory = nullptr;
    errorblock *err = heap_alloc(&memory, sizeof(surface));
    if (err) return err;
    surface *made = static_cast<surface *>(memory);
    made->next = surfaces;
    if (surfaces) surfaces->prev = made;
    surfaces = made;
    *s = made;
    return nullptr;
}

void surfacefree(surface *s)
{
    (s->prev ? s->prev->next : surfaces) = s->next;
    if (s->next) s->next->prev = s->prev;
    void *memory = s;
    heap_free(&memory);
}

void surfaceinit(surface *s)
{
    s->pen = s->savedpen = 0;
    s->brush = s->savedbrush = 0;
    s->font = s->savedfont = 0;
    s->originx = s->originy = 0;
    s->viewx = s->viewy = 0;
    s->unitx = s->unity = OSUNITS;
    s->scalex = modeinfo.xdpi;
    s->scaley = modeinfo.ydpi;
}

void surfaceshifts(surface *s)
{
    s->shiftx = muldiv(s->originx, s->unitx, OSUNITS);
    s->shifty = muldiv(s->originy, s->unity, OSUNITS);
    s->deviceshiftx = muldiv(s->originx, s->scalex, OSUNITS) - s->viewx;
    s->deviceshifty = muldiv(s->originy, s->scaley, -OSUNITS) - s->viewy;
}

void surfaceview(surface *s, int32_t x, int32_t y)
{
    s->viewx = x;
    s->viewy = y;
    surfaceshifts(s);
}

void surfacesetunits(int32_t unitx, int32_t unity)
{
    currentsurface->unitx = unitx;
    currentsurface->unity = unity;
    surfaceshifts(currentsurface);
}

void surfacesetscale(int32_t unitx, int32_t unity, int32_t scalex, int32_t scaley)
{
    currentsurface->scalex = scalex;
    currentsurface->scaley = scaley;
    surfacesetunits(unitx, unity);
}

void surfaceidentity(surface *s)
{
    s->unitx = s->unity = s->scalex = s->scaley = 1;
    s->shiftx = s->shifty = s->deviceshiftx = s->deviceshifty = 0;
}

void surfaceidentityup(surface *s)
{
    surfaceidentity(s);
    s->unity = -1;
}

void surfacestate(const surface *s, surfacescale *buffer)
{
    *buffer = {s->unitx,  s->unity,  s->scalex,       s->scaley,
               s->shiftx, s->shifty, s->deviceshiftx, s->deviceshifty};
}

void surfacesetstate(surface *s, const surfacescale *buffer)
{
    s->unitx = buffer->unitx;
    s->unity = buffer->unity;
    s->scalex = buffer->scalex;
    s->scaley = buffer->scaley;
    surfaceshifts(s);
}
