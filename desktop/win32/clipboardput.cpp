#include "desktop/win32/clipboardservice.h"

#include "base/syserr.h"
#include "base/trace.h"
#include "graphics/placeable.h"

#include <cstring>

// The system says nothing of the picture's size: readers take what they like.
static errorblock *putpicture(HMETAFILE metafile)
{
    HGLOBAL record = GlobalAlloc(GHND, sizeof(METAFILEPICT));
    auto *picture = record ? static_cast<METAFILEPICT *>(GlobalLock(record)) : nullptr;
    errorblock *err = picture ? nullptr : makeerror(ERRORMEMORY);
    if (!err) {
        *picture = {MM_ANISOTROPIC, 0, 0, metafile};
        GlobalUnlock(record);
        if (!SetClipboardData(CF_METAFILEPICT, record)) err = syserr("SetClipboardData");
    }
    if (err) {
        DeleteMetaFile(metafile);
        if (record) GlobalFree(record);
    }
    return err;
}

// Little-endian, as the system is.
static bool isplaceable(const BYTE *data, UINT size)
{
    return size > PLACEABLESIZE && !memcmp(data, &PLACEABLEKEY, sizeof PLACEABLEKEY);
}

static errorblock *putmetafile(const BYTE *data, UINT size)
{
    trace("save metafile");
    if (isplaceable(data, size)) {
        data += PLACEABLESIZE;
        size -= PLACEABLESIZE;
    }
    HMETAFILE metafile = SetMetaFileBitsEx(size, data);
    return metafile ? putpicture(metafile) : syserr("SetMetaFileBitsEx");
}

static errorblock *putenhanced(const BYTE *data, UINT size)
{
    trace("save enhmetafile");
    HENHMETAFILE metafile = SetEnhMetaFileBits(size, data);
    if (!metafile) return syserr("SetEnhMetaFileBits");
    if (SetClipboardData(CF_ENHMETAFILE, metafile)) return nullptr;
    errorblock *err = syserr("SetClipboardData");
    DeleteEnhMetaFile(metafile);
    return err;
}

static errorblock *putpictureof(int32_t format, const cliprendered *block)
{
    auto *data = static_cast<const BYTE *>(GlobalLock(block->handle));
    auto size = static_cast<UINT>(block->size);
    errorblock *err = format == CLIPMETAFILE ? putmetafile(data, size) : putenhanced(data, size);
    GlobalUnlock(block->handle);
    GlobalFree(block->handle);
    return err;
}

errorblock *clipboardput(int32_t format, const cliprendered *block)
{
    if (!block->handle) return nullptr;
    if (format == CLIPMETAFILE || format == CLIPENHMETAFILE) return putpictureof(format, block);
    if (SetClipboardData(static_cast<UINT>(format), block->handle)) return nullptr;
    errorblock *err = syserr("SetClipboardData");
    GlobalFree(block->handle);
    return err;
}
