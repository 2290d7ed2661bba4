// The boxes of graphics/plot.h, whose exact edges everything drawn rests on.

#include "graphics/plot.h"
#include "graphics/textmeasure.h"
#include "graphics/win32/surfacecontext.h"

#include <windows.h>

#include <algorithm>

namespace
{

int32_t sum(int32_t a, int32_t b)
{
    return static_cast<int32_t>(std::clamp<int64_t>(int64_t{a} + b, INT32_MIN, INT32_MAX));
}

// Sorted after the conversion, so that a negative size gives the same box.
RECT pixels(int32_t x, int32_t y, int32_t width, int32_t height)
{
    POINT a = surfacepixel(x, y), b = surfacepixel(sum(x, width), sum(y, height));
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

} // namespace

// The system draws nothing for a box of one pixel, as a line from a point to
// itself has none.
void surfacerectangle(const RECT &box)
{
    if (box.right - box.left == 1 && box.bottom - box.top == 1) {
        POINT ends[] = {{box.left, box.top}, {box.right, box.top}};
        Polyline(surfacecontext(), ends, 2);
    } else {
        Rectangle(surfacecontext(), box.left, box.top, box.right, box.bottom);
    }
}

errorblock *fillbox(int32_t x, int32_t y, int32_t width, int32_t height)
{
    surfacerectangle(pixels(x, y, width, height));
    return nullptr;
}

errorblock *filltextbox(int32_t x, int32_t y, int32_t width, int32_t height, int32_t baseline)
{
    fontmetrics font;
    errorblock *err = fontmetricsget(&font);
    if (err) return err;
    RECT box = pixels(x, y, width, height);
    int32_t line = surfacepixel(x, baseline).y;
    box.top = std::min<LONG>(box.top, line - font.ascent);
    box.bottom = std::max<LONG>(box.bottom, line + font.descent);
    surfacerectangle(box);
    return nullptr;
}

errorblock *drawbox(int32_t x, int32_t y, int32_t width, int32_t height)
{
    RECT box = pixels(x, y, width, height);
    box.top--;
    box.right++;
    surfacerectangle(box);
    return nullptr;
}

errorblock *hollowbox(int32_t x, int32_t y, int32_t width, int32_t height)
{
    HGDIOBJ brush = SelectObject(surfacecontext(), GetStockObject(HOLLOW_BRUSH));
    errorblock *err = fillbox(x, y, width, height);
    SelectObject(surfacecontext(), brush);
    return err;
}

errorblock *linebox(int32_t x, int32_t y, int32_t width, int32_t height)
{
    POINT a = surfacepixel(x, y), b = surfacepixel(sum(x, width), sum(y, height));
    MoveToEx(surfacecontext(), a.x, a.y, nullptr);
    LineTo(surfacecontext(), b.x, a.y);
    LineTo(surfacecontext(), b.x, b.y);
    LineTo(surfacecontext(), a.x, b.y);
    LineTo(surfacecontext(), a.x, a.y);
    return nullptr;
}
