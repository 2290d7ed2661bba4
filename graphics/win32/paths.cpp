// The paths of graphics/plot.h, and the pens that are used with them.

#include "graphics/plot.h"
#include "graphics/win32/surfacecontext.h"

#include <windows.h>

errorblock *pathbegin()
{
    BeginPath(surfacecontext());
    return nullptr;
}

errorblock *pathend()
{
    EndPath(surfacecontext());
    return nullptr;
}

errorblock *pathclose()
{
    CloseFigure(surfacecontext());
    return nullptr;
}

errorblock *pathfillmode(bool even)
{
    SetPolyFillMode(surfacecontext(), even ? ALTERNATE : WINDING);
    return nullptr;
}

errorblock *pathpaint()
{
    StrokeAndFillPath(surfacecontext());
    return nullptr;
}

errorblock *pathdotted()
{
    surfacesetpen(reinterpret_cast<intptr_t>(CreatePen(PS_DOT, 0, modeinfo.currentcolour)));
    return nullptr;
}

errorblock *surfaceextpen(uint32_t style, uint32_t width, uint32_t word, int32_t count,
                          const uint32_t *lengths)
{
    LOGBRUSH brush = {BS_SOLID, word >> 8, 0};
    DWORD dashes[16];
    DWORD used = static_cast<DWORD>(count < 0 ? 0 : count > 16 ? 16 : count);
    for (DWORD i = 0; i < used; i++)
        dashes[i] = lengths[i];
    HPEN pen = ExtCreatePen(style, width, &brush, used, used ? dashes : nullptr);
    surfacesetpen(reinterpret_cast<intptr_t>(pen));
    return nullptr;
}
