// graphics/win32/surfacecontext.h - the device context of a surface, and what is
// drawn on it in pixels.
#pragma once

#include "graphics/surface.h"

#include <windows.h>

#include <algorithm>

inline HDC surfacecontext(const surface *s)
{
    return reinterpret_cast<HDC>(s->dc);
}

inline HDC surfacecontext()
{
    return surfacecontext(currentsurface);
}

// Where a point lies, kept within the system's device space: sums of a few such
// points are far from 32 bits.
constexpr int32_t SURFACEEDGE = 1 << 27;

inline POINT surfacepixel(int32_t x, int32_t y)
{
    surfacedevice(&x, &y);
    return {std::clamp(x, -SURFACEEDGE, SURFACEEDGE), std::clamp(y, -SURFACEEDGE, SURFACEEDGE)};
}

// A box in pixels by the system's rule, its right and bottom left out: pen and
// brush of the current surface, corners sorted.
void surfacerectangle(const RECT &box);
