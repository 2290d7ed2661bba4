#include "graphics/textposition.h"

#include "graphics/surface.h"

void textdevice(uint32_t flags, int64_t x, int64_t y, int32_t *devicex, int32_t *devicey)
{
    const surface &s = *currentsurface;
    int32_t parts = flags & TEXTOSUNITS ? 1 : MILLIPOINTS;
    int64_t fromx = x - int64_t{s.shiftx} * parts, fromy = y - int64_t{s.shifty} * parts;
    *devicex = muldiv64(fromx, s.scalex, s.unitx * parts) + s.deviceshiftx;
    *devicey = muldiv64(fromy, s.scaley, -s.unity * parts) + s.deviceshifty;
}
