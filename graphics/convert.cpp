// All conversions between OS units and pixels: those of the screen, which round
// to the nearest, and those of the current surface, which drop the fraction so
// that the same position always gives the same pixel.

#include "base/numbers.h"
#include "graphics/modeinfo.h"
#include "graphics/surface.h"

int32_t ostodevx(int32_t x)
{
    return muldiv(x, modeinfo.xdpi, OSUNITS);
}

int32_t ostodevy(int32_t y)
{
    return muldiv(y, modeinfo.ydpi, OSUNITS);
}

int32_t devtoosx(int32_t pixels)
{
    return muldiv(pixels, OSUNITS, modeinfo.xdpi);
}

int32_t devtoosy(int32_t pixels)
{
    return muldiv(pixels, OSUNITS, modeinfo.ydpi);
}

// Sums of coordinates go round at 32 bits, as the system's do.
static int32_t low32(int64_t value)
{
    return static_cast<int32_t>(value);
}

int32_t ostoscreeny(int32_t y)
{
    return low32(int64_t{modeinfo.heightpx} - ostodevy(y));
}

int32_t screentoosy(int32_t pixels)
{
    return devtoosy(low32(int64_t{modeinfo.heightpx} - pixels));
}

int32_t fixmul(int32_t a, int32_t b)
{
    return muldiv(a, b, 0x10000);
}

int32_t muldiv64(int64_t a, int32_t b, int32_t c)
{
    return c ? low32(a * b / c) : 0;
}

namespace
{

// One direction of the current surface: pixels are (os - shift) * scale / unit
// + deviceshift.
struct axis {
    int32_t shift, scale, unit, deviceshift;
};

axis xaxis()
{
    return {currentsurface->shiftx, currentsurface->scalex, currentsurface->unitx,
            currentsurface->deviceshiftx};
}

// The minus sign turns y up into y down.
axis yaxis()
{
    return {currentsurface->shifty, currentsurface->scaley, low32(-int64_t{currentsurface->unity}),
            currentsurface->deviceshifty};
}

int32_t devicefrom(const axis &a, int32_t os)
{
    return low32(int64_t{muldiv64(int64_t{os} - a.shift, a.scale, a.unit)} + a.deviceshift);
}

int32_t osfrom(const axis &a, int32_t pixel)
{
    return low32(int64_t{muldiv64(int64_t{pixel} - a.deviceshift, a.unit, a.scale)} + a.shift);
}

int32_t devicefine(const axis &a, int32_t fine)
{
    int32_t distance = low32(fine - int64_t{a.shift} * 256);
    int32_t pixels = muldiv64(distance, a.scale, low32(int64_t{a.unit} * 256));
    return low32(int64_t{pixels} + a.deviceshift);
}

// osfrom drops a fraction, so its answer is never past the pixel and at most
// one step short of it.
int32_t nearestos(const axis &a, int32_t pixel)
{
    int32_t os = osfrom(a, pixel), there = devicefrom(a, os);
    if (there == pixel) return os;
    bool turned = (a.scale < 0) != (a.unit < 0);
    int32_t next = low32(int64_t{os} + ((there < pixel) != turned ? 1 : -1));
    return devicefrom(a, next) == pixel ? next : os;
}

} // namespace

void surfacedevice(int32_t *x, int32_t *y)
{
    *x = devicefrom(xaxis(), *x);
    *y = devicefrom(yaxis(), *y);
}

void surfacedevicefine(int32_t *x, int32_t *y)
{
    *x = devicefine(xaxis(), *x);
    *y = devicefine(yaxis(), *y);
}

void surfaceos(int32_t *x, int32_t *y)
{
    *x = osfrom(xaxis(), *x);
    *y = osfrom(yaxis(), *y);
}

void surfacenearest(int32_t *x, int32_t *y)
{
    *x = nearestos(xaxis(), *x);
    *y = nearestos(yaxis(), *y);
}
