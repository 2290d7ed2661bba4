// The boxes of graphics/plot.h, whose exact edges everything drawn rests on.

#include "graphics/plot.h"
#include "graphics/win32/surfacecontext.h"

#include <windows.h>

#include <utility>

namespace
{

int32_t sum(int32_t a, int32_t b)
{
    return static_cast<int32_t>(int64_t{a} + b);
}

// Sorted after the conversion, so that a negative size gives the same box.
RECT pixels(int32_t x, int32_t y, int32_t width, int32_t height)
{
    int32_t left = x, bottom = y, right = sum(x, width), top = sum(y, height);
    surfacedevice(&left, &bottom);
    surfacedevice(&right, &top);
    if (left > right) std::swap(left, right);
    if (top > bottom) std::swap(top, bottom);
    return {left, top, right, bottom};
}

errorblock *rectangle(const RECT &box)
{
    Rectangle(surfacecontext(), box.left, box.top, box.right, box.bottom);
    return nullptr;
}

} // namespace

errorblock *fillbox(int32_t x, int32_t y, int32_t width, int32_t height)
{
    return rectangle(pixels(x, y, width, height));
}

errorblock *drawbox(int32_t x, int32_t y, int32_t width, int32_t height)
{
    RECT box = pixels(x, y, width, height);
    box.top--;
    box.right++;
    return rectangle(box);
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
    int32_t x0 = x, y0 = y, x1 = sum(x, width), y1 = sum(y, height);
    surfacedevice(&x0, &y0);
    surfacedevice(&x1, &y1);
    MoveToEx(surfacecontext(), x0, y0, nullptr);
    LineTo(surfacecontext(), x1, y0);
    LineTo(surfacecontext(), x1, y1);
    LineTo(surfacecontext(), x0, y1);
    LineTo(surfacecontext(), x0, y0);
    return nullptr;
}
