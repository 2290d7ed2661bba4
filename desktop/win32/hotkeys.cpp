#include "desktop/hotkeys.h"

#include "base/syserr.h"
#include "base/trace.h"
#include "desktop/dispatch.h"
#include "desktop/keynames.h"
#include "graphics/win32/windowhandle.h"

#include <windows.h>

static UINT systemmodifiers(int32_t code)
{
    UINT flags = 0;
    if (code & KEYSHIFT) flags |= MOD_SHIFT;
    if (code & KEYCTRL) flags |= MOD_CONTROL;
    if (code & KEYALT) flags |= MOD_ALT;
    if (code & KEYWINDOWS) flags |= MOD_WIN;
    return flags;
}

// The system refuses a key that is taken, be it by us.
static bool hasblock(window owner, int32_t id, int32_t key)
{
    return findblock(EVENTHOTKEY, key, owner, id, nullptr) != -1;
}

static errorblock *take(window owner, int32_t id, int32_t code)
{
    return RegisterHotKey(systemwindow(owner), id, systemmodifiers(code),
                          static_cast<UINT>(code & 0xFF))
               ? nullptr
               : syserr("RegisterHotKey");
}

errorblock *addhotkeyhandler(hotkeyfunction function, window owner, int32_t id, int32_t key)
{
    int32_t code = keycodefromnumber(key);
    if (code == -1) return syserrcode(ERROR_INVALID_PARAMETER, "RegisterHotKey");
    bool shared = hasblock(owner, id, key), added = false;
    errorblock *err = addblock(EVENTHOTKEY, key, owner, id, anyfunction(function), &added);
    if (err || !added || shared) return err;
    err = take(owner, id, code);
    if (err) remblock(EVENTHOTKEY, key, owner, id, anyfunction(function), nullptr);
    return err;
}

errorblock *remhotkeyhandler(hotkeyfunction function, window owner, int32_t id, int32_t key)
{
    bool removed = false;
    remblock(EVENTHOTKEY, key, owner, id, anyfunction(function), &removed);
    if (removed && !hasblock(owner, id, key)) UnregisterHotKey(systemwindow(owner), id);
    return nullptr;
}

void hotkeydeliver(window w, int32_t id)
{
    trace("wm hotkey %d ", static_cast<int>(id));
    dispatchall(EVENTHOTKEY, w, [&](const block &b) -> errorblock * {
        if (b.data != id) return nullptr; // another key of the window
        return handlerof<hotkeyfunction>(b)(w, id, static_cast<int32_t>(b.subtype));
    });
}
