#include "graphics/metafile.h"

#include "base/errors.h"
#include "base/files.h"
#include "base/flex.h"
#include "base/safesave.h"
#include "base/syserr.h"
#include "base/text.h"
#include "graphics/placeable.h"
#include "graphics/surface.h"

#include <windows.h>

#include <cstring>

namespace
{

// The file that an enhanced metafile goes into when it is whole.
char enhancedpath[PATHSIZE];

HDC handle(intptr_t dc)
{
    return reinterpret_cast<HDC>(dc);
}

// A call that gave no object and no reason either was short of memory.
errorblock *nothing(const char *call)
{
    errorblock *err = syserr(call);
    return err ? err : makeerror(ERRORMEMORY);
}

bool olderfamily()
{
    return GetVersion() & 0x80000000;
}

errorblock *framesize(int32_t width, int32_t height, RECT *frame)
{
    if (olderfamily()) {
        *frame = {0, 0, metaframeold(width, modeinfo.xdpi), metaframeold(height, modeinfo.ydpi)};
        return nullptr;
    }
    surface *screen;
    errorblock *err = surfacescreen(&screen);
    if (err) return err;
    HDC dc = handle(screen->dc);
    *frame = {0, 0, metaframe(width, GetDeviceCaps(dc, HORZSIZE), GetDeviceCaps(dc, HORZRES)),
              metaframe(height, GetDeviceCaps(dc, VERTSIZE), GetDeviceCaps(dc, VERTRES))};
    surfacescreenfree(screen);
    return nullptr;
}

// The recorded bytes behind room for a header of lead bytes. A metafile of no
// bytes gives none at all, and no error.
errorblock *bitsread(HMETAFILE file, int32_t lead, void **bytes, int32_t *size)
{
    *bytes = nullptr;
    *size = 0;
    UINT length = GetMetaFileBitsEx(file, 0, nullptr);
    if (!length) return nullptr;
    *size = lead + static_cast<int32_t>(length);
    errorblock *err = heap_allocraw(bytes, *size);
    if (!err && !GetMetaFileBitsEx(file, length, static_cast<uint8_t *>(*bytes) + lead))
        err = nothing("GetMetaFileBitsEx");
    return err;
}

errorblock *bitsread(HENHMETAFILE file, void **bytes, int32_t *size)
{
    UINT length = GetEnhMetaFileBits(file, 0, nullptr);
    *size = static_cast<int32_t>(length);
    errorblock *err = length ? heap_allocraw(bytes, *size) : nothing("GetEnhMetaFileBits");
    if (!err && !GetEnhMetaFileBits(file, length, static_cast<uint8_t *>(*bytes)))
        err = nothing("GetEnhMetaFileBits");
    return err;
}

// An older picture of that name gives way to the whole new one alone.
errorblock *bitswrite(const char *path, const void *bytes, int32_t size)
{
    constexpr int32_t BUFFER = 65536;
    safesave save;
    errorblock *err = safeopen(path, BUFFER, &save);
    if (!err) err = bwriteall(&save.file, bytes, size);
    return safeclose(&save, err);
}

// Ends the recording and writes it, header first if there is one.
errorblock *closefile(errorblock *error, intptr_t dc, const char *path, const uint8_t *header,
                      int32_t headersize)
{
    kepterror kept = keeperror(error);
    metaend(dc);
    if (!dc) return firsterror(kept, nullptr);
    HMETAFILE file = CloseMetaFile(handle(dc));
    errorblock *err = file ? nullptr : nothing("CloseMetaFile");
    void *bytes = nullptr;
    int32_t size = 0;
    if (!error && !err) err = bitsread(file, headersize, &bytes, &size);
    if (!err && bytes) {
        if (headersize) memcpy(bytes, header, static_cast<size_t>(headersize));
        err = bitswrite(path, bytes, size);
    }
    heap_free(&bytes);
    if (file) DeleteMetaFile(file);
    return firsterror(kept, err);
}

} // namespace

errorblock *metasetup(intptr_t dc, int32_t width, int32_t height)
{
    errorblock *err = surfacenew(&metasurface);
    if (err) return err;
    surfaceinit(metasurface);
    metasurface->dc = dc;
    metasurface->unitx = metasurface->scalex = metasurface->scaley = OSUNITS;
    metasurface->unity = -OSUNITS; // meets the turning round of y, and undoes it
    surfaceshifts(metasurface);
    setcurrentsurface(metasurface);
    SetWindowExtEx(handle(dc), width, height, nullptr);
    if (!SetWindowOrgEx(handle(dc), 0, 0, nullptr)) err = syserr("SetWindowOrgEx");
    SetTextAlign(handle(dc), 0);
    return err;
}

void metaend(intptr_t)
{
    if (!metasurface) return;
    clearcurrentsurface();
    surfacerelease(metasurface);
    surfacefree(metasurface);
    metasurface = nullptr;
}

errorblock *metaopen(int32_t, int32_t width, int32_t height, intptr_t *dc)
{
    *dc = reinterpret_cast<intptr_t>(CreateMetaFileA(nullptr));
    if (!*dc) return nothing("CreateMetaFile");
    errorblock *err = metasetup(*dc, width, height);
    if (err) {
        err = metaclose(err, *dc, nullptr);
        *dc = 0;
    }
    return err;
}

errorblock *metaclose(errorblock *error, intptr_t dc, const char *path)
{
    return closefile(error, dc, path, nullptr, 0);
}

errorblock *metacloseplaceable(errorblock *error, intptr_t dc, const char *path, int16_t left,
                               int16_t right, int16_t bottom, int16_t top, int16_t inch)
{
    uint8_t header[PLACEABLESIZE];
    placeableheader({left, top, right, bottom, inch}, header);
    return closefile(error, dc, path, header, PLACEABLESIZE);
}

errorblock *metaopenenhanced(const char *path, int32_t, int32_t width, int32_t height, intptr_t *dc,
                             const char *description)
{
    char maker[252] = {}; // the system looks for a second zero behind the text
    RECT frame;
    *dc = 0;
    strcopyn(maker, description, sizeof maker - 1);
    errorblock *err = pathwhole(path, enhancedpath);
    if (!err) err = framesize(width, height, &frame);
    if (err) return err;
    *dc = reinterpret_cast<intptr_t>(CreateEnhMetaFileA(nullptr, nullptr, &frame, maker));
    if (!*dc) return nothing("CreateEnhMetaFile");
    err = metasetup(*dc, width, height);
    if (err) {
        err = metacloseenhanced(err, *dc);
        *dc = 0;
    }
    return err;
}

errorblock *metacloseenhanced(errorblock *error, intptr_t dc)
{
    kepterror kept = keeperror(error);
    metaend(dc);
    if (!dc) return firsterror(kept, nullptr);
    HENHMETAFILE file = CloseEnhMetaFile(handle(dc));
    errorblock *err = file ? nullptr : nothing("CloseEnhMetaFile");
    void *bytes = nullptr;
    int32_t size = 0;
    if (!error && !err) err = bitsread(file, &bytes, &size);
    if (!err && bytes) err = bitswrite(enhancedpath, bytes, size);
    heap_free(&bytes);
    if (file) DeleteEnhMetaFile(file);
    return firsterror(kept, err);
}
