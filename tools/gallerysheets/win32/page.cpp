#include "tools/gallerysheets/page.h"

#include "base/errors.h"
#include "base/syserr.h"
#include "graphics/placeable.h"
#include "graphics/win32/windowhandle.h"
#include "tools/gallerysheets/files.h"

#include <windows.h>

#include <cstring>

namespace
{

HDC context(const page *p)
{
    return reinterpret_cast<HDC>(p->drawing->dc);
}

// A bitmap whose first row is the top one.
HBITMAP bitmapnew(page *p)
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = p->width;
    info.bmiHeader.biHeight = -p->height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    p->rowbytes = (p->width * 3 + 3) & ~3;
    void *memory = nullptr;
    HBITMAP made = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &memory, nullptr, 0);
    p->bits = static_cast<uint8_t *>(memory);
    return made;
}

const uint8_t *pixel(const page *p, int32_t x, int32_t y)
{
    GdiFlush();
    return p->bits + y * p->rowbytes + x * 3;
}

// Stretched over the page, as a picture's own size would have it.
void viewport(const page *p)
{
    SetMapMode(context(p), MM_ANISOTROPIC);
    SetViewportExtEx(context(p), p->width, p->height, nullptr);
}

} // namespace

errorblock *pageopen(page *p, int32_t width, int32_t height, int32_t scale)
{
    *p = {};
    p->width = width;
    p->height = height;
    p->outer = currentsurface;
    errorblock *err = surfacenew(&p->drawing);
    if (err) return err;
    HBITMAP bitmap = bitmapnew(p);
    HDC dc = CreateCompatibleDC(nullptr);
    if (!bitmap || !dc) {
        if (dc) DeleteDC(dc);
        if (bitmap) DeleteObject(bitmap);
        surfacefree(p->drawing);
        return makeerror(ERRORMEMORY);
    }
    p->bitmap = reinterpret_cast<intptr_t>(bitmap);
    p->before = reinterpret_cast<intptr_t>(SelectObject(dc, bitmap));
    PatBlt(dc, 0, 0, width, height, WHITENESS);
    p->drawing->dc = reinterpret_cast<intptr_t>(dc);
    surfacesetorigin(0, 0, p->drawing);
    setcurrentsurface(p->drawing);
    surfacesetscale(OSUNITS, OSUNITS, scale, scale);
    return nullptr;
}

void pageclose(page *p)
{
    HDC dc = context(p);
    surfacerelease(p->drawing);
    surfacefree(p->drawing);
    setcurrentsurface(p->outer);
    SelectObject(dc, reinterpret_cast<HGDIOBJ>(p->before));
    DeleteObject(reinterpret_cast<HGDIOBJ>(p->bitmap));
    DeleteDC(dc);
}

int deviceobjects()
{
    if (DWORD told = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS))
        return static_cast<int>(told);
    // Wine doesn't tell, but takes the number of a handle for the handle.
    int count = 0;
    for (UINT_PTR number = 1; number < 0x10000; number++)
        count += GetObjectType(reinterpret_cast<HGDIOBJ>(number)) != 0;
    return count;
}

uint32_t pageat(const page *p, int32_t x, int32_t y)
{
    const uint8_t *at = pixel(p, x, y);
    return static_cast<uint32_t>(at[0]) << 24 | static_cast<uint32_t>(at[1]) << 16 |
           static_cast<uint32_t>(at[2]) << 8;
}

int32_t pagedifference(const page *a, const page *b)
{
    int32_t count = 0;
    for (int32_t y = 0; y < a->height; y++)
        for (int32_t x = 0; x < a->width; x++)
            count += memcmp(pixel(a, x, y), pixel(b, x, y), 3) != 0;
    return count;
}

errorblock *pagesave(const page *p, const std::string &path)
{
    std::string rows;
    rows.reserve(static_cast<size_t>(p->width * p->height * 3));
    GdiFlush();
    for (int32_t y = 0; y < p->height; y++) {
        const uint8_t *at = p->bits + y * p->rowbytes;
        for (int32_t x = 0; x < p->width; x++, at += 3)
            for (int part : {2, 1, 0})
                rows += static_cast<char>(at[part]);
    }
    return pngsave(path, p->width, p->height, rows);
}

void pagecopywindow(const page *p, int32_t x, int32_t y, intptr_t window, int32_t width,
                    int32_t height)
{
    HWND w = systemwindow(window);
    HDC dc = GetDC(w);
    BitBlt(context(p), x, y, width, height, dc, 0, 0, SRCCOPY);
    ReleaseDC(w, dc);
}

errorblock *pageplay(const page *p, const std::string &path)
{
    std::string bytes;
    errorblock *err = bytesload(path, &bytes);
    if (err) return err;
    uint32_t key = 0;
    if (bytes.size() > sizeof key) memcpy(&key, bytes.data(), sizeof key);
    if (key == PLACEABLEKEY) bytes.erase(0, PLACEABLESIZE);
    HMETAFILE file = SetMetaFileBitsEx(static_cast<UINT>(bytes.size()),
                                       reinterpret_cast<const BYTE *>(bytes.data()));
    if (!file) return syserrname("SetMetaFileBitsEx", path.c_str());
    int saved = SaveDC(context(p));
    viewport(p);
    if (!PlayMetaFile(context(p), file)) err = syserrname("PlayMetaFile", path.c_str());
    RestoreDC(context(p), saved);
    DeleteMetaFile(file);
    return err;
}

errorblock *pageplayenhanced(const page *p, const std::string &path)
{
    HENHMETAFILE file = GetEnhMetaFileA(path.c_str());
    if (!file) return syserrname("GetEnhMetaFile", path.c_str());
    RECT box = {0, 0, p->width, p->height};
    errorblock *err = nullptr;
    if (!PlayEnhMetaFile(context(p), file, &box)) err = syserrname("PlayEnhMetaFile", path.c_str());
    DeleteEnhMetaFile(file);
    return err;
}
