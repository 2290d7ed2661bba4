#include "graphics/surface.h"

#include "base/errors.h"
#include "graphics/palette.h"
#include "graphics/win32/surfacecontext.h"

#include <windows.h>

#include <cstddef>

// A paint is begun straight into the surface.
static_assert(sizeof(surfacepaint) == sizeof(PAINTSTRUCT));
static_assert(offsetof(surfacepaint, left) == offsetof(PAINTSTRUCT, rcPaint));
static_assert(offsetof(surfacepaint, reserved) == offsetof(PAINTSTRUCT, rgbReserved));

// How many measurements are under way, and one more while the surface under
// them is somebody else's: a borrowed surface is never closed here.
static int measuring;

static intptr_t select(const surface *s, intptr_t object)
{
    HGDIOBJ before = SelectObject(surfacecontext(s), reinterpret_cast<HGDIOBJ>(object));
    return reinterpret_cast<intptr_t>(before);
}

void surfacesetorigin(int32_t x, int32_t y, surface *s)
{
    surfaceinit(s);
    s->originx = x;
    s->originy = y;
    surfaceshifts(s);
    paletteselect(s->dc);
}

static void putback(const surface *s, intptr_t *object, intptr_t *saved)
{
    if (*saved) select(s, *saved);
    if (*object) DeleteObject(reinterpret_cast<HGDIOBJ>(*object));
    *object = *saved = 0;
}

void surfacerelease(surface *s)
{
    putback(s, &s->brush, &s->savedbrush);
    putback(s, &s->pen, &s->savedpen);
    if (s->savedfont) select(s, s->savedfont);
    s->font = s->savedfont = 0; // the font is deleted by who made it
}

// What could not be made takes nobody's place, and least that of the saved one.
static void replace(intptr_t made, intptr_t *object, intptr_t *saved)
{
    if (!made) return;
    intptr_t before = select(currentsurface, made);
    if (*object)
        DeleteObject(reinterpret_cast<HGDIOBJ>(*object));
    else
        *saved = before;
    *object = made;
}

void surfacesetpen(intptr_t pen)
{
    replace(pen, &currentsurface->pen, &currentsurface->savedpen);
}

void surfacesetbrush(intptr_t brush)
{
    replace(brush, &currentsurface->brush, &currentsurface->savedbrush);
}

// The cheaper information context can be asked but not drawn on.
static errorblock *displaysurface(bool drawing, surface **s)
{
    errorblock *err = surfacenew(s);
    if (err) return err;
    HDC dc = (drawing ? CreateDCA : CreateICA)("DISPLAY", nullptr, nullptr, nullptr);
    (*s)->dc = reinterpret_cast<intptr_t>(dc);
    surfaceinit(*s);
    surfaceshifts(*s);
    return nullptr;
}

errorblock *surfacescreen(surface **s)
{
    return displaysurface(false, s);
}

void surfacescreenfree(surface *s)
{
    surfacerelease(s);
    DeleteDC(surfacecontext(s));
    surfacefree(s);
}

errorblock *surfaceopen(bool needdrawing)
{
    if (currentsurface) {
        if (measuring < 1) measuring = 1;
        measuring++;
        return nullptr;
    }
    surface *s;
    errorblock *err = displaysurface(needdrawing, &s);
    if (err) return err;
    setcurrentsurface(s);
    measuring = 1;
    return nullptr;
}

void surfaceclose()
{
    if (!measuring || --measuring) return;
    surface *s = currentsurface;
    if (!s) return; // the one that was borrowed has gone
    clearcurrentsurface();
    surfacescreenfree(s);
}

errorblock *surfacemap(int32_t windowextx, int32_t viewportextx, int32_t windowexty,
                       int32_t viewportexty, int32_t windoworgx, int32_t windoworgy,
                       int32_t viewportorgx, int32_t viewportorgy)
{
    HDC dc = surfacecontext(currentsurface);
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowExtEx(dc, windowextx, windowexty, nullptr);
    SetViewportExtEx(dc, viewportextx, viewportexty, nullptr);
    SetWindowOrgEx(dc, windoworgx, windoworgy, nullptr);
    SetViewportOrgEx(dc, viewportorgx, viewportorgy, nullptr);
    return nullptr;
}
