#include "desktop/clipboard.h"

#include "base/flex.h"
#include "base/syserr.h"
#include "base/trace.h"
#include "desktop/win32/clipboardservice.h"

#include <objbase.h>

#include <cstring>

// What the formats are gathered in.
struct formatlist {
    int32_t *formats;
    int32_t count;
};

static errorblock *listadd(formatlist *list, int32_t format)
{
    list->count++;
    errorblock *err = heap_chunk(reinterpret_cast<void **>(&list->formats),
                                 (list->count + 1) * static_cast<int32_t>(sizeof format), 64);
    if (err) return err;
    list->formats[list->count - 1] = format;
    list->formats[list->count] = 0;
    return nullptr;
}

static errorblock *listfound(formatlist *list, int32_t format)
{
    trace("cfformat %d", static_cast<int>(format));
    return listadd(list, format);
}

static errorblock *listplain(formatlist *list)
{
    if (!OpenClipboard(clipboard.hidden)) return syserr("OpenClipboard");
    errorblock *err = nullptr;
    for (UINT format = 0; !err && (format = EnumClipboardFormats(format));)
        err = listfound(list, static_cast<int32_t>(format));
    CloseClipboard();
    return err;
}

static errorblock *olefailed(HRESULT result, const char *call)
{
    return syserrcode(static_cast<uint32_t>(result), call);
}

static errorblock *olebegin(IDataObject **object)
{
    trace("olegetclip");
    HRESULT result = OleGetClipboard(object);
    return FAILED(result) ? olefailed(result, "OleGetClipboard") : nullptr;
}

static errorblock *listole(formatlist *list)
{
    IDataObject *object = nullptr;
    errorblock *err = olebegin(&object);
    if (err) return err;
    IEnumFORMATETC *each = nullptr;
    HRESULT result = object->EnumFormatEtc(DATADIR_GET, &each);
    if (FAILED(result)) err = olefailed(result, "EnumFormatEtc");
    FORMATETC format = {};
    while (!err && each && each->Next(1, &format, nullptr) == S_OK) {
        err = listfound(list, format.cfFormat);
        CoTaskMemFree(format.ptd);
    }
    if (each) each->Release();
    object->Release();
    return err;
}

errorblock *clipboardformats(int32_t **formats)
{
    formatlist list = {};
    errorblock *err = heap_alloc(reinterpret_cast<void **>(&list.formats), sizeof(int32_t));
    if (!err && clipboardowned())
        err = listadd(&list, CLIPOWN);
    else if (!err)
        err = clipboard.flags & CLIPOLE ? listole(&list) : listplain(&list);
    if (err) heap_free(reinterpret_cast<void **>(&list.formats));
    *formats = list.formats;
    return err;
}

// Data of other programs: nothing about it is trusted but what the system says.
struct pasted {
    void *data;
    int32_t size;
};

static errorblock *room(pasted *into, SIZE_T size)
{
    if (size > INT32_MAX) return makeerror(ERRORMEMORY);
    into->size = static_cast<int32_t>(size);
    return heap_allocraw(&into->data, into->size);
}

static errorblock *takeblock(HGLOBAL block, pasted *into)
{
    trace("get hGlobal");
    SIZE_T size = GlobalSize(block);
    const void *data = GlobalLock(block);
    if (!data) return syserr("GlobalLock");
    errorblock *err = room(into, size);
    if (!err) memcpy(into->data, data, size);
    GlobalUnlock(block);
    return err;
}

static errorblock *takemetafile(HGLOBAL record, pasted *into)
{
    auto *picture = static_cast<const METAFILEPICT *>(GlobalLock(record));
    if (!picture) return syserr("GlobalLock");
    bool whole = GlobalSize(record) >= sizeof *picture;
    UINT size = whole ? GetMetaFileBitsEx(picture->hMF, 0, nullptr) : 0;
    trace("wmf length %d", static_cast<int>(size));
    errorblock *err = size ? room(into, size) : makeerror(ERRORREAD);
    if (!err && !GetMetaFileBitsEx(picture->hMF, size, into->data)) err = makeerror(ERRORREAD);
    GlobalUnlock(record);
    return err;
}

static errorblock *takeenhanced(HENHMETAFILE metafile, pasted *into)
{
    UINT size = GetEnhMetaFileBits(metafile, 0, nullptr);
    trace("emf length %d", static_cast<int>(size));
    errorblock *err = size ? room(into, size) : makeerror(ERRORREAD);
    if (!err && !GetEnhMetaFileBits(metafile, size, static_cast<BYTE *>(into->data)))
        err = makeerror(ERRORREAD);
    return err;
}

static errorblock *take(int32_t format, HANDLE handle, pasted *into)
{
    if (format == CLIPMETAFILE) return takemetafile(handle, into);
    if (format == CLIPENHMETAFILE) return takeenhanced(static_cast<HENHMETAFILE>(handle), into);
    return takeblock(handle, into);
}

static errorblock *pasteplain(int32_t format, pasted *into)
{
    if (!IsClipboardFormatAvailable(static_cast<UINT>(format))) return nullptr;
    if (!OpenClipboard(clipboard.hidden)) return syserr("OpenClipboard");
    HANDLE handle = GetClipboardData(static_cast<UINT>(format));
    errorblock *err = handle ? take(format, handle, into) : nullptr;
    CloseClipboard();
    return err;
}

static DWORD mediumof(int32_t format)
{
    if (format == CLIPMETAFILE) return TYMED_MFPICT;
    return format == CLIPENHMETAFILE ? TYMED_ENHMF : TYMED_HGLOBAL;
}

static errorblock *pasteole(int32_t format, pasted *into)
{
    IDataObject *object = nullptr;
    errorblock *err = olebegin(&object);
    if (err) return err;
    FORMATETC wanted = {static_cast<CLIPFORMAT>(format), nullptr, DVASPECT_CONTENT, -1,
                        mediumof(format)};
    STGMEDIUM medium = {};
    if (object->QueryGetData(&wanted) == S_OK && object->GetData(&wanted, &medium) == S_OK) {
        if (medium.tymed == wanted.tymed) err = take(format, medium.hGlobal, into);
        ReleaseStgMedium(&medium);
    }
    object->Release();
    return err;
}

errorblock *clipboardpaste(int32_t format, void **data, int32_t *size)
{
    trace("oscbpaste format %d", static_cast<int>(format));
    pasted into = {};
    errorblock *err =
        clipboard.flags & CLIPOLE ? pasteole(format, &into) : pasteplain(format, &into);
    if (err) {
        heap_free(&into.data);
        into = {};
    }
    *data = into.data;
    *size = into.size;
    return err;
}
