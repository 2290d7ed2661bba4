// graphics/surface.h - where drawing goes.
//
// All drawing goes to one current surface and is told in OS units, 180 to the
// inch, y rising up the page. A surface wraps a device context, owns at most
// one pen and one brush, remembers what they displaced, and holds the scale and
// origin that turn OS units into device pixels.
//
//  - There is one current surface or none; drawing calls name no target.
//  - A surface lives for one redraw or measurement. The poll must not run
//    between its opening and its closing.
//  - surfacerelease comes before the context goes, or the context keeps the
//    library's objects and they leak.
//
// Handles of the system are pointer-sized words, 0 for none.
#pragma once

#include "graphics/modeinfo.h"

#include <cstdint>

struct errorblock;

// What the system fills when a paint begins, in its own layout.
struct surfacepaint {
    intptr_t dc;
    int32_t erase;
    int32_t left, top, right, bottom; // the invalid rectangle, in pixels
    int32_t restore, incupdate;
    uint8_t reserved[32];
};

constexpr int32_t SURFACECLIPPED = 1; // flag: the fixed clip box is recorded

struct surface {
    intptr_t dc;
    surfacepaint paint;         // of a redraw
    intptr_t pen, savedpen;     // the library's, and what it displaced
    intptr_t brush, savedbrush; // likewise
    intptr_t font, savedfont;   // likewise, but the font is somebody else's
    int32_t originx, originy;   // OS units: the fixed point of the scale
    int32_t unitx, unity;       // scale denominators, OSUNITS for normal drawing
    int32_t scalex, scaley;     // scale numerators, device pixels to the inch
    int32_t flags;
    int32_t clipleft, clipright, clipbottom, cliptop; // device pixels
    int32_t shiftx, shifty;                           // the origin in scaled OS units
    int32_t deviceshiftx, deviceshifty;               // the origin in device pixels
    int32_t viewx, viewy; // device pixels that what is drawn is moved left and up by
    surface *next, *prev; // of all open surfaces
};

// The newest surface first; changed by surfacenew and surfacefree.
extern surface *surfaces;

// Changed by setcurrentsurface and clearcurrentsurface; drawing calls need one.
extern surface *currentsurface;

void setcurrentsurface(surface *s);
void clearcurrentsurface();

// A zeroed surface at the head of the chain. Errors: 2.
errorblock *surfacenew(surface **s);
void surfacefree(surface *s);

// Clears the pens, brushes, fonts, the origin and the view, and sets the screen's
// scale.
void surfaceinit(surface *s);

// Works out the four shifts; follows any change of origin, unit or scale.
void surfaceshifts(surface *s);

// Moves what is drawn by whole pixels, at any scale: the view of a window that
// has scrolled. A position falls on the same pixel of what is scrolled, wherever
// that is, which is what lets the system scroll by copying.
void surfaceview(surface *s, int32_t x, int32_t y);

// surfaceinit at an origin, with the shifts, and the palette on a device that
// has one.
void surfacesetorigin(int32_t x, int32_t y, surface *s);

// Of the current surface, shifts included.
void surfacesetunits(int32_t unitx, int32_t unity);
void surfacesetscale(int32_t unitx, int32_t unity, int32_t scalex, int32_t scaley);

// A scale of 1 and no shifts: one OS unit is one device pixel, y turned round.
// The second leaves y as it is.
void surfaceidentity(surface *s);
void surfaceidentityup(surface *s);

// The scale and the shifts, kept over a change. Setting them works the shifts
// out again from the origin.
struct surfacescale {
    int32_t unitx, unity, scalex, scaley;
    int32_t shiftx, shifty, deviceshiftx, deviceshifty;
};
void surfacestate(const surface *s, surfacescale *buffer);
void surfacesetstate(surface *s, const surfacescale *buffer);

// a * b / c in exact arithmetic, its fraction dropped; c of 0 gives 0, and of a
// result beyond 32 bits the low 32 remain. a may have 33 bits, the difference
// of two coordinates.
int32_t muldiv64(int64_t a, int32_t b, int32_t c);

// OS units of the current surface to device pixels, and back; they go round at
// 32 bits. The fine one takes 1/256 OS units.
void surfacedevice(int32_t *x, int32_t *y);
void surfacedevicefine(int32_t *x, int32_t *y);
void surfaceos(int32_t *x, int32_t *y);

// Device pixels to an OS position that maps to just that pixel. Where OS units
// are coarser than pixels and none does, to the one next to it.
void surfacenearest(int32_t *x, int32_t *y);

// Takes a pen or a brush over for the current surface: selects it and deletes
// the one before it, or remembers what the context had.
void surfacesetpen(intptr_t pen);
void surfacesetbrush(intptr_t brush);

// Gives back what the surface displaced, and deletes its pen and brush.
void surfacerelease(surface *s);

// The measuring surface: the current one if there is one, such as that of a
// redraw under way, otherwise a new one on the display, made current. Counted:
// each open has its close. needdrawing asks for a context that can be drawn on.
errorblock *surfaceopen(bool needdrawing);
void surfaceclose();

// A private surface for asking the display, not made current.
errorblock *surfacescreen(surface **s);
void surfacescreenfree(surface *s);

// Maps logical to device units by ratios and origins. The numbers 1, 1, 1, 1,
// 0, 0, 0, 0 are the way back to plain pixels.
errorblock *surfacemap(int32_t windowextx, int32_t viewportextx, int32_t windowexty,
                       int32_t viewportexty, int32_t windoworgx, int32_t windoworgy,
                       int32_t viewportorgx, int32_t viewportorgy);
