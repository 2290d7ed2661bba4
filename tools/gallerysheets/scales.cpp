// Surfaces: what an inch is at each scale, and where conversions land.

#include "base/errors.h"
#include "graphics/colours.h"
#include "graphics/plot.h"
#include "tools/gallerysheets/page.h"
#include "tools/gallerysheets/sheets.h"

namespace
{

// Three inches at a scale, in tenths, told in OS units all the time.
void ruler(int32_t scale, int32_t row)
{
    labelf(20, -60 - row * 50, "%d pixels to the inch", scale);
    surfacesetscale(OSUNITS, OSUNITS, scale, scale);
    setcolour(BLUE);
    int32_t left = 220 * OSUNITS / scale, base = (-60 - row * 50) * OSUNITS / scale;
    for (int32_t tenth = 0; tenth <= 30; tenth++) {
        int32_t x = left + tenth * OSUNITS / 10;
        moveto(x, base);
        lineto(x, base + (tenth % 10 ? 8 : 20) * OSUNITS / scale);
    }
    moveto(left, base);
    lineto(left + 3 * OSUNITS, base);
    surfacesetscale(OSUNITS, OSUNITS, OSUNITS, OSUNITS);
}

// The pixel that each OS position falls into, and what leads back to it.
void conversions(int32_t scale, int32_t origin, int32_t row)
{
    int32_t y = -340 - row * 44;
    labelf(20, y, "At %d, origin %d: OS 0 to 23", scale, origin);
    for (int32_t os = 0; os < 24; os++) {
        currentsurface->originx = origin;
        surfacesetscale(OSUNITS, OSUNITS, scale, scale);
        int32_t x = os, unused = 0;
        surfacedevice(&x, &unused);
        int32_t back = x;
        surfacenearest(&back, &unused);
        currentsurface->originx = 0;
        surfacesetscale(OSUNITS, OSUNITS, OSUNITS, OSUNITS);
        setcolour(x & 1 ? 0xF0D0B000 : 0xFFF0E000);
        fillbox(176 + os * 34, y + 16, 34, -32);
        labelf(180 + os * 34, y + 3, "%d", x);
        labelf(190 + os * 34, y - 12, "%d", back);
    }
}

} // namespace

errorblock *drawscales(const page *)
{
    heading(20, -30, "Three inches in tenths");
    const int32_t scales[] = {72, 90, 96, 120, 180};
    for (int32_t i = 0; i < 5; i++)
        ruler(scales[i], i);
    heading(20, -310, "OS positions to pixels (above), and the OS position nearest to that pixel");
    const int32_t odd[] = {90, 96, 120, 180, 240};
    for (int32_t i = 0; i < 5; i++)
        conversions(odd[i], 0, i);
    conversions(96, 12, 5); // fractions are dropped towards the origin

    heading(20, -624, "A box: plain; halved by its units; by the device's own mapping");
    setcolour(GREEN);
    fillbox(20, -640, 60, -40);
    surfacesetunits(2 * OSUNITS, OSUNITS);
    fillbox(400, -640, 60, -40);
    surfacesetunits(OSUNITS, OSUNITS);
    errorblock *err = surfacemap(1, 2, 1, 1, 0, 0, 600, 0);
    fillbox(20, -640, 60, -40);
    return err ? err : surfacemap(1, 1, 1, 1, 0, 0, 0, 0);
}
