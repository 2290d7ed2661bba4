#include "desktop/clipboard.h"

#include "base/boxes.h"
#include "base/flex.h"
#include "base/syserr.h"
#include "base/trace.h"
#include "desktop/handlers.h"
#include "desktop/win32/clipboardmessages.h"
#include "desktop/win32/clipboardservice.h"
#include "graphics/win32/windowhandle.h"

#include <objbase.h>

#include <cstring>

clipboardservice clipboard;

static errorblock *quit(intptr_t *, bool *)
{
    return clipboardend();
}

errorblock *clipboardstart(uint32_t flags)
{
    if (clipboard.hidden) return nullptr;
    clipboard.hidden = CreateWindowExA(0, "Task", "oscb", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                       GetModuleHandleA(nullptr), nullptr);
    if (!clipboard.hidden) return syserr("CreateWindowEx");
    clipboard.flags = flags;
    if (flags & CLIPOLE && FAILED(OleInitialize(nullptr))) clipboard.flags &= ~CLIPOLE;
    return addbroadcasthandler(quit, BROADCASTQUIT);
}

static void offerdrop()
{
    heap_free(reinterpret_cast<void **>(&clipboard.offered));
    clipboard.render = nullptr;
    clipboard.destroy = nullptr;
}

// The offer's end. Its callback may offer anew.
static errorblock *offerlost()
{
    clipdestroyfunction destroy = clipboard.destroy;
    bool any = clipboard.offered;
    offerdrop();
    return any && destroy ? destroy() : nullptr;
}

// The system has every format rendered when the window goes.
errorblock *clipboardend()
{
    if (!clipboard.hidden) return nullptr;
    trace("oscb finalise");
    rembroadcasthandler(quit, BROADCASTQUIT);
    errorblock *err = DestroyWindow(clipboard.hidden) ? nullptr : syserr("DestroyWindow");
    kepterror kept = keeperror(err);
    clipboard.hidden = nullptr;
    if (clipboard.flags & CLIPOLE) OleUninitialize();
    return firsterror(kept, offerlost());
}

static void blockfree(cliprendered *block)
{
    if (block->handle) GlobalFree(block->handle);
    *block = {};
}

errorblock *clipboardalloc(void **pointer, int32_t size)
{
    trace("cb alloc %d", static_cast<int>(size));
    *pointer = nullptr;
    blockfree(&clipboard.inhand);
    if (size < 0) return makeerror(ERRORCORRUPTMEMORY);
    // A block of no bytes is one that the system has thrown away.
    HGLOBAL handle = GlobalAlloc(GHND, size ? static_cast<SIZE_T>(size) : 1);
    if (!handle) return makeerror(ERRORMEMORY);
    clipboard.inhand = {handle, GlobalLock(handle), size};
    *pointer = clipboard.inhand.pointer;
    return nullptr;
}

static errorblock *renderformat(int32_t format)
{
    trace("oscbrender format %d", static_cast<int>(format));
    if (!clipboard.render) return nullptr;
    errorblock *err = clipboard.render(format);
    if (clipboard.inhand.handle) GlobalUnlock(clipboard.inhand.handle);
    if (err) {
        blockfree(&clipboard.inhand);
        return err;
    }
    cliprendered made = clipboard.inhand;
    clipboard.inhand = {};
    return clipboardput(format, &made);
}

// Calls render may offer anew, which would take the list away.
static errorblock *renderlist()
{
    errorblock *err = nullptr;
    for (int i = 0; clipboard.offered && clipboard.offered[i] && !err; i++)
        err = renderformat(clipboard.offered[i]);
    return err;
}

static errorblock *promise()
{
    for (int i = 0; clipboard.offered[i]; i++) {
        trace("set format %d", static_cast<int>(clipboard.offered[i]));
        SetLastError(0); // without data, 0 is the answer to a success too
        SetClipboardData(static_cast<UINT>(clipboard.offered[i]), nullptr);
        if (GetLastError() != 0) return syserr("SetClipboardData");
    }
    return nullptr;
}

static errorblock *copylist(const int32_t *formats, int32_t **copy)
{
    int32_t count = 0;
    while (formats[count])
        count++;
    int32_t size = (count + 1) * static_cast<int32_t>(sizeof *formats);
    errorblock *err = heap_alloc(reinterpret_cast<void **>(copy), size);
    if (!err) memcpy(*copy, formats, static_cast<size_t>(size));
    return err;
}

// On the open clipboard, whose old owner is told.
static errorblock *offernow(int32_t *copy, cliprenderfunction render, clipdestroyfunction destroy,
                            uint32_t flags)
{
    if (!EmptyClipboard()) {
        heap_free(reinterpret_cast<void **>(&copy));
        return syserr("EmptyClipboard");
    }
    offerdrop(); // a callback may have offered in between
    clipboard.offered = copy;
    clipboard.render = render;
    clipboard.destroy = destroy;
    errorblock *err = flags & CLIPNOW ? renderlist() : promise();
    if (!err) return nullptr;
    kepterror kept = keeperror(err);
    offerdrop();
    EmptyClipboard();
    return firsterror(kept, nullptr);
}

errorblock *clipboardoffer(const int32_t *formats, cliprenderfunction render,
                           clipdestroyfunction destroy, uint32_t flags)
{
    if (!clipboard.hidden) return syserrcode(ERROR_INVALID_WINDOW_HANDLE, "OpenClipboard");
    int32_t *copy = nullptr;
    errorblock *err = copylist(formats, &copy);
    if (err) return err;
    if (!OpenClipboard(clipboard.hidden)) {
        err = syserr("OpenClipboard");
        heap_free(reinterpret_cast<void **>(&copy));
        return err;
    }
    err = offernow(copy, render, destroy, flags);
    CloseClipboard();
    return err;
}

bool clipboardowned()
{
    return clipboard.hidden && clipboard.offered && GetClipboardOwner() == clipboard.hidden;
}

// Another program may have been quicker.
static void renderall()
{
    trace("render all");
    if (!OpenClipboard(clipboard.hidden)) return;
    if (GetClipboardOwner() == clipboard.hidden) {
        clipboard.renderingall = true;
        EmptyClipboard();
        clipboard.renderingall = false;
        reporterror(renderlist());
    }
    CloseClipboard();
}

bool clipboardmessage(const systemmessage *message)
{
    if (!clipboard.hidden || message->window != windowof(clipboard.hidden)) return false;
    switch (message->message) {
    case WM_RENDERFORMAT:
        reporterror(renderformat(static_cast<int32_t>(message->wparam)));
        return true;
    case WM_RENDERALLFORMATS:
        renderall();
        return true;
    case WM_DESTROYCLIPBOARD:
        trace("cbdestroy");
        if (!clipboard.renderingall) reporterror(offerlost());
        return true;
    }
    return false;
}

errorblock *clipboardformatnumber(const char *name, int32_t *number)
{
    *number = static_cast<int32_t>(RegisterClipboardFormatA(name));
    return *number ? nullptr : syserrname("RegisterClipboardFormat", name);
}
