#include "desktop/win32/ddeservice.h"

#include "base/errors.h"
#include "base/flex.h"
#include "base/syserr.h"
#include "base/trace.h"
#include "graphics/win32/windowhandle.h"

#include <dde.h>

#include <cstring>

// In front of every block of data.
struct dataheader {
    uint16_t flags, format;
};
constexpr uint16_t RELEASE = 1 << 13; // the receiver frees the block
constexpr uint16_t ANSWER = 1 << 15;  // data: an acknowledge is wanted
constexpr int32_t HEADERSIZE = 4;
static_assert(sizeof(dataheader) == HEADERSIZE);

bool ddepost(window to, UINT message, window from, LPARAM parameter)
{
    if (IsWindow(systemwindow(to)))
        return PostMessageA(systemwindow(to), message, static_cast<WPARAM>(from), parameter);
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return false;
}

bool ddepostpacked(window to, UINT message, window from, UINT_PTR low, UINT_PTR high)
{
    LPARAM packed = PackDDElParam(message, low, high);
    if (ddepost(to, message, from, packed)) return true;
    DWORD code = GetLastError();
    FreeDDElParam(message, packed);
    SetLastError(code);
    return false;
}

static errorblock *makeblock(const void *data, int32_t length, int32_t format, HGLOBAL *made)
{
    if (length < 0 || length > INT32_MAX - HEADERSIZE) return makeerror(ERRORCORRUPTMEMORY);
    SIZE_T size = static_cast<SIZE_T>(length) + HEADERSIZE;
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_DDESHARE, size);
    void *to = block ? GlobalLock(block) : nullptr;
    if (!to) return makeerror(ERRORMEMORY);
    dataheader header = {RELEASE, static_cast<uint16_t>(format)};
    memcpy(to, &header, HEADERSIZE);
    if (length) memcpy(static_cast<char *>(to) + HEADERSIZE, data, static_cast<size_t>(length));
    GlobalUnlock(block);
    *made = block;
    return nullptr;
}

static errorblock *send(UINT message, const ddeconversation *conversation, const void *data,
                        int32_t length, int32_t format, const char *item)
{
    HGLOBAL block = nullptr;
    errorblock *err = makeblock(data, length, format, &block);
    if (err) return err;
    ATOM atom = GlobalAddAtomA(item);
    if (!atom)
        err = syserr("GlobalAddAtom");
    else if (!ddepostpacked(ddepartner(conversation), message, ddeself(conversation),
                            reinterpret_cast<UINT_PTR>(block), atom))
        err = syserr("PostMessage");
    if (!err) return nullptr;
    if (atom) GlobalDeleteAtom(atom);
    GlobalFree(block);
    return err;
}

errorblock *ddepoke(ddeconversation *conversation, const void *data, int32_t length, int32_t format,
                    const char *item)
{
    return send(WM_DDE_POKE, conversation, data, length, format, item);
}

errorblock *ddedata(ddeconversation *conversation, const void *data, int32_t length, int32_t format,
                    const char *item)
{
    return send(WM_DDE_DATA, conversation, data, length, format, item);
}

struct arrival {
    dataheader header;
    char *text; // a copy with an end, 0 if the block couldn't be read
    int32_t length;
};

// The text ends at its end or at that of the block.
static void readblock(HGLOBAL block, arrival *into)
{
    *into = {};
    SIZE_T size = block ? GlobalSize(block) : 0;
    if (size < HEADERSIZE || size > INT32_MAX) return;
    auto *from = static_cast<const char *>(GlobalLock(block));
    if (!from) return;
    memcpy(&into->header, from, HEADERSIZE);
    size_t length = strnlen(from + HEADERSIZE, size - HEADERSIZE);
    into->length = static_cast<int32_t>(length) + 1;
    errorblock *err = heap_alloc(reinterpret_cast<void **>(&into->text), into->length);
    if (!err) memcpy(into->text, from + HEADERSIZE, length);
    GlobalUnlock(block);
    if (into->header.flags & RELEASE) GlobalFree(block);
}

// A poke always has its answer. Where there is none, nobody else lets go of the
// item's name.
static void answer(UINT message, window w, window partner, const arrival &arrived, ATOM item)
{
    bool wanted = message == WM_DDE_POKE || arrived.header.flags & ANSWER;
    if (!wanted || !ddepostpacked(partner, WM_DDE_ACK, w, arrived.text ? DDEPOSITIVE : 0, item))
        GlobalDeleteAtom(item);
}

void ddereceive(UINT message, window w, window partner, LPARAM packed)
{
    UINT_PTR block = 0, item = 0;
    if (!UnpackDDElParam(message, packed, &block, &item)) return;
    FreeDDElParam(message, packed);
    auto atom = static_cast<ATOM>(item);
    char name[DDENAMESIZE];
    ddename(atom, name);
    trace("get poke hpoke %x atom %x", static_cast<unsigned>(block), static_cast<unsigned>(atom));
    trace("get poke item %s", name);

    arrival arrived;
    readblock(reinterpret_cast<HGLOBAL>(block), &arrived);
    answer(message, w, partner, arrived, atom);
    ddeconversation *conversation = ddefind(w, partner);
    if (conversation && arrived.text)
        ddetell(conversation, message == WM_DDE_POKE ? DDEPOKED : DDEARRIVED, arrived.text,
                arrived.length);
    heap_free(reinterpret_cast<void **>(&arrived.text));
}

// The answer to what we have sent gives its item's name back.
void ddeacknowledged(LPARAM packed)
{
    UINT_PTR status = 0, item = 0;
    if (!UnpackDDElParam(WM_DDE_ACK, packed, &status, &item)) return;
    FreeDDElParam(WM_DDE_ACK, packed);
    GlobalDeleteAtom(static_cast<ATOM>(item));
}
