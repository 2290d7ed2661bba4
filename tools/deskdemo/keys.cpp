// Keys by name, and one that is heard whatever program it is typed to.
#include "desktop/keys.h"
#include "base/syserr.h"
#include "desktop/handlers.h"
#include "desktop/hotkeys.h"
#include "desktop/icons.h"
#include "desktop/keynames.h"
#include "desktop/templates.h"
#include "desktop/windows.h"
#include "tools/deskdemo/deskdemo.h"

namespace
{

constexpr int32_t CLOSE = 2, NAME = 10, INFULL = 11, BINDING = 12, CODE = 13, STATUS = 14;
constexpr int32_t HOTKEY = 1; // its number among those of the window
constexpr char HOTKEYNAME[] = "CS_F11";

struct {
    window self;
    int32_t hotkey; // -1 while it is not ours
} keys;

// The names come from one buffer of the library, one after the other.
errorblock *show(window self, int32_t code)
{
    int32_t number = keynumberfromcode(code);
    errorblock *err = seticontextf(self, CODE, "0x%x", static_cast<unsigned>(code));
    if (number == -1 || err) return err;
    err = seticontext(self, NAME, keyname(number));
    if (!err) err = seticontext(self, INFULL, keynamelong(number));
    if (!err) err = seticontext(self, BINDING, keybinding(code));
    return err;
}

// Presses come with a flag, and their characters behind them without.
errorblock *key(window self, intptr_t, int32_t, int32_t *code)
{
    int32_t pressed = *code;
    *code = KEYCLAIMED;
    if (pressed & KEYPRESS) return show(self, pressed);
    logline("The character %d", static_cast<int>(pressed));
    return nullptr;
}

errorblock *hot(window, int32_t, int32_t number)
{
    logline("The hot key %s", keynamelong(number));
    return nullptr;
}

errorblock *click(window, intptr_t, mouserecord *mouse)
{
    if (mouse->icon == CLOSE) keysend();
    return nullptr;
}

errorblock *closed(window, intptr_t)
{
    keysend();
    return nullptr;
}

// A key that another program has is no failure of this one.
errorblock *hotkeyadd(window w)
{
    int32_t number = keynumber(HOTKEYNAME);
    bool taken = addhotkeyhandler(hot, w, HOTKEY, number) != nullptr;
    keys.hotkey = taken ? -1 : number;
    const char *name = keynamelong(number);
    return taken ? seticontextf(w, STATUS, "{DEMONOHOT} %s", name)
                 : seticontextf(w, STATUS, "{DEMOHOT} %s", name);
}

errorblock *handlersadd(window w)
{
    errorblock *err = addkeyhandler(key, w, 0);
    if (!err) err = addclickhandler(click, w, 0);
    if (!err) err = addclosehandler(closed, w, 0);
    if (!err) err = hotkeyadd(w);
    return err;
}

void handlersremove(window w)
{
    if (keys.hotkey != -1) remhotkeyhandler(hot, w, HOTKEY, keys.hotkey);
    remclosehandler(closed, w, 0);
    remclickhandler(click, w, 0);
    remkeyhandler(key, w, 0);
}

} // namespace

// The window has the focus itself, and takes every key: none moves between its
// controls.
errorblock *keysopen()
{
    if (keys.self) return raisewindow(keys.self, 0, nullptr);
    keys = {0, -1};
    errorblock *err = createchild(TEMPLATEKEYS, &keys.self, demowindow);
    if (!err) err = setflags(keys.self, WINDOWNONAVIGATION, 0);
    if (!err) err = handlersadd(keys.self);
    if (!err) err = opencentred(keys.self, 5);
    if (!err) err = focuswindow(keys.self);
    if (!err) return nullptr;
    kepterror kept = keeperror(err);
    keysend();
    return firsterror(kept, nullptr);
}

void keysend()
{
    if (!keys.self) return;
    handlersremove(keys.self);
    removewindow(&keys.self);
}
