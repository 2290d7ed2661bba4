#include "graphics/spriteplot.h"

#include "base/errors.h"
#include "base/syserr.h"
#include "graphics/spritebits.h"
#include "graphics/surface.h"

#include <windows.h>

#include <algorithm>

namespace
{

// A bitmap's head with room for its colours.
struct bitmapinfo {
    BITMAPINFOHEADER header;
    uint32_t table[SPRITETABLESIZE];
};

HDC context()
{
    return reinterpret_cast<HDC>(currentsurface->dc);
}

// What a recording context shows is for whoever plays it to say.
bool isrecording(HDC dc)
{
    DWORD type = GetObjectType(dc);
    return type == OBJ_METADC || type == OBJ_ENHMETADC;
}

// The box round the clip; all there is for a context that can't tell.
spritebox clipbounds()
{
    constexpr int32_t all = 1 << 30;
    RECT box;
    if (isrecording(context())) return {-all, -all, all, all};
    int kind = GetClipBox(context(), &box);
    if (kind == NULLREGION) return {};
    if (kind == ERROR) return {-all, -all, all, all};
    return {box.left, box.top, box.right, box.bottom};
}

BITMAPINFOHEADER headerof(const spritebitmap &bitmap, int32_t bpp, int32_t rowbytes,
                          int32_t colours)
{
    BITMAPINFOHEADER header = {};
    header.biSize = sizeof header;
    header.biWidth = bitmap.width;
    header.biHeight = bitmap.height;
    header.biPlanes = 1;
    header.biBitCount = static_cast<WORD>(bpp);
    header.biCompression = BI_RGB;
    header.biSizeImage = static_cast<DWORD>(rowbytes * bitmap.height); // metafiles go by it
    header.biClrUsed = static_cast<DWORD>(colours);
    return header;
}

// No lines may just mean that none showed: only a reason makes it a failure.
errorblock *draw(const spritebitmap &bitmap, const bitmapinfo &info, const void *bits, DWORD rop)
{
    SetLastError(0);
    int lines = StretchDIBits(context(), bitmap.x, bitmap.y, bitmap.width, bitmap.height, 0, 0,
                              bitmap.width, bitmap.height, bits,
                              reinterpret_cast<const BITMAPINFO *>(&info), DIB_RGB_COLORS, rop);
    return lines ? nullptr : syserr("StretchDIBits");
}

errorblock *drawimage(const spritebitmap &bitmap, DWORD rop)
{
    bitmapinfo info;
    info.header = headerof(bitmap, bitmap.bpp, bitmap.rowbytes, bitmap.colours);
    std::copy_n(bitmap.table, bitmap.colours, info.table);
    return draw(bitmap, info, bitmap.rows, rop);
}

// The two colours say what the mask does: clears what the image is to be ORed
// into and leaves the rest, or sets what it is to be ANDed to.
errorblock *drawmask(const spritebitmap &bitmap, uint32_t hidden, uint32_t shown, DWORD rop)
{
    bitmapinfo info;
    info.header = headerof(bitmap, 1, bitmap.maskrowbytes, 2);
    info.table[0] = hidden;
    info.table[1] = shown;
    return draw(bitmap, info, bitmap.mask, rop);
}

errorblock *drawbitmap(const spritebitmap &bitmap, bool greyed)
{
    constexpr uint32_t black = 0, white = 0xFFFFFF;
    if (!bitmap.mask) return drawimage(bitmap, SRCCOPY);
    errorblock *err =
        greyed ? drawmask(bitmap, black, white, SRCPAINT) : drawmask(bitmap, white, black, SRCAND);
    return err ? err : drawimage(bitmap, greyed ? SRCAND : SRCPAINT);
}

// Draws what was made, if anything was, and ends it.
errorblock *finish(errorblock *error, spritebitmap *bitmap, bool greyed)
{
    if (!error && bitmap->rows) error = drawbitmap(*bitmap, greyed);
    spritebitsfree(bitmap);
    return error;
}

errorblock *plotplace(const spritelayout *layout, const spritelook &look, const spriteplace *place)
{
    spritebitmap bitmap;
    errorblock *err = spritebitsplace(layout, look, place, clipbounds(), &bitmap);
    return finish(err, &bitmap, look.greyed);
}

errorblock *plotwarp(const spritelayout *layout, const spritelook &look, const spritewarp *warp)
{
    spritebitmap bitmap;
    spriteplace place;
    if (spritewarpupright(warp, &place)) return plotplace(layout, look, &place);
    errorblock *err = spritebitswarp(layout, look, warp, clipbounds(), &bitmap);
    return finish(err, &bitmap, look.greyed);
}

spritelook lookof(uint32_t flags, const uint32_t *pixtrans)
{
    return {pixtrans, (flags & SPRITEGREYED) != 0};
}

} // namespace

errorblock *spriteplotdevice(const void *area, spritereference reference, uint32_t action,
                             int32_t x, int32_t y, const spritefactors *factors,
                             const uint32_t *pixtrans)
{
    const sprite *s;
    spritelayout layout;
    errorblock *err = spriteresolve(area, reference, &s);
    if (err || !s) return err;
    err = spritelay(s, &layout);
    if (err) return err;
    spriteplace place = spriteplaceat(&layout, x, y, factors);
    return plotplace(&layout, lookof(action, pixtrans), &place);
}

errorblock *spriteplot(const void *area, spritereference reference, uint32_t action, int32_t x,
                       int32_t y, const spritefactors *factors, const uint32_t *pixtrans)
{
    surfacedevice(&x, &y);
    return spriteplotdevice(area, reference, action, x, y, factors, pixtrans);
}

errorblock *spriteplottransformed(const void *area, spritereference reference, uint32_t flags,
                                  const spritetransform *transform, const spritebox *source,
                                  const uint32_t *pixtrans)
{
    const sprite *s;
    spritelayout layout;
    errorblock *err = spriteresolve(area, reference, &s);
    if (err || !s) return err;
    err = spritelay(s, &layout);
    if (err) return err;
    const spritebox whole = {0, 0, layout.width, layout.height};
    spritebox part = source ? spriteboxmeet(*source, whole) : whole;
    spritewarp warp;
    if (flags & SPRITECORNERS)
        spritewarpcorners(transform->corners, part, currentsurface, &warp);
    else
        err = spritewarpmatrix(s, &layout, part, &transform->matrix, currentsurface, &warp);
    return err ? err : plotwarp(&layout, lookof(flags, pixtrans), &warp);
}
