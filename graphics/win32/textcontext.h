// graphics/win32/textcontext.h - words of the library as handles of the system.
#pragma once

#include "graphics/surface.h"

#include <windows.h>

inline HDC textcontext(const surface *s)
{
    return reinterpret_cast<HDC>(s->dc);
}

inline HDC textcontext()
{
    return textcontext(currentsurface);
}

inline const wchar_t *widetext(const char16_t *text)
{
    static_assert(sizeof(wchar_t) == sizeof(char16_t));
    return reinterpret_cast<const wchar_t *>(text);
}
