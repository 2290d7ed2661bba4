#include "graphics/textposition.h"

#include "graphics/surface.h"

// Wild positions go round at 32 bits, as everywhere in drawing.
static int32_t low32(int64_t value)
{
    return static_cast<int32_t>(value);
}

void textdevice(uint32_t flags, int64_t x, int64_t y, int32_t *devicex, int32_t *devicey)
{
    const surface &s = *currentsurface;
    int64_t parts = flags & TEXTOSUNITS ? 1 : MILLIPOINTS;
    int64_t pixelsx = muldiv64(x - s.shiftx * parts, s.scalex, low32(s.unitx * parts));
    int64_t pixelsy = muldiv64(y - s.shifty * parts, s.scaley, low32(-s.unity * parts));
    *devicex = low32(pixelsx + s.deviceshiftx);
    *devicey = low32(pixelsy + s.deviceshifty);
}
