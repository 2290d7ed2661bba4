#include "graphics/clip.h"

#include "base/syserr.h"
#include "graphics/win32/surfacecontext.h"

#include <windows.h>

#include <utility>

namespace
{

using conversion = void (*)(int32_t *x, int32_t *y);

RECT pixels(int32_t x0, int32_t y0, int32_t x1, int32_t y1, conversion convert)
{
    convert(&x0, &y0);
    convert(&x1, &y1);
    if (x0 > x1) std::swap(x0, x1);
    if (y0 < y1) std::swap(y0, y1);
    return {x0, y1, x1, y0};
}

errorblock *intersect(const RECT &box)
{
    if (IntersectClipRect(surfacecontext(), box.left, box.top, box.right, box.bottom) != ERROR)
        return nullptr;
    return syserr("IntersectClipRect");
}

void give(int32_t *address, int32_t value)
{
    if (address) *address = value;
}

} // namespace

errorblock *clipbox(int32_t x0, int32_t y0, int32_t x1, int32_t y1)
{
    return intersect(pixels(x0, y0, x1, y1, surfacedevice));
}

errorblock *clipboxfine(int32_t x0, int32_t y0, int32_t x1, int32_t y1)
{
    return intersect(pixels(x0, y0, x1, y1, surfacedevicefine));
}

errorblock *clipvisible(int32_t x0, int32_t y0, int32_t x1, int32_t y1, bool *visible)
{
    RECT box = pixels(x0, y0, x1, y1, surfacedevicefine);
    *visible = RectVisible(surfacecontext(), &box);
    return nullptr;
}

errorblock *clipget(int32_t *x0, int32_t *y0, int32_t *x1, int32_t *y1, int32_t *kind)
{
    RECT box = {};
    int answer = GetClipBox(surfacecontext(), &box);
    int32_t left = box.left, bottom = box.bottom, right = box.right, top = box.top;
    surfaceos(&left, &bottom);
    surfaceos(&right, &top);
    give(x0, left);
    give(y0, bottom);
    give(x1, right);
    give(y1, top);
    give(kind, answer);
    return nullptr;
}

errorblock *clipreset()
{
    const surface *s = currentsurface;
    SelectClipRgn(surfacecontext(), nullptr);
    if (s->flags & SURFACECLIPPED)
        IntersectClipRect(surfacecontext(), s->clipleft, s->cliptop, s->clipright, s->clipbottom);
    return nullptr;
}

errorblock *clippath(int32_t mode)
{
    constexpr int modes[] = {RGN_AND, RGN_DIFF, RGN_COPY, RGN_OR, RGN_XOR};
    int known = mode >= CLIPAND && mode <= CLIPXOR ? modes[mode] : 0; // 0 is refused
    return SelectClipPath(surfacecontext(), known) ? nullptr : syserr("SelectClipPath");
}

errorblock *clipsave(intptr_t *handle)
{
    HRGN region = CreateRectRgn(0, 0, 0, 0);
    if (GetClipRgn(surfacecontext(), region) != 1) {
        DeleteObject(region);
        region = nullptr;
    }
    *handle = reinterpret_cast<intptr_t>(region);
    return nullptr;
}

errorblock *cliprestore(intptr_t handle)
{
    HRGN region = reinterpret_cast<HRGN>(handle);
    SelectClipRgn(surfacecontext(), region);
    if (region) DeleteObject(region);
    return nullptr;
}
