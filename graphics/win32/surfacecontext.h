// graphics/win32/surfacecontext.h - the device context of a surface.
#pragma once

#include "graphics/surface.h"

#include <windows.h>

inline HDC surfacecontext(const surface *s)
{
    return reinterpret_cast<HDC>(s->dc);
}

inline HDC surfacecontext()
{
    return surfacecontext(currentsurface);
}
