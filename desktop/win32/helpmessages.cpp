#include "desktop/win32/helpmessages.h"

#include "base/boxes.h"
#include "base/trace.h"
#include "desktop/help.h"
#include "desktop/keys.h"
#include "desktop/menupath.h"
#include "graphics/win32/windowhandle.h"

#include <windows.h>

static void menuasked(const HELPINFO *asked)
{
    const menurow *row = menufindhandle(reinterpret_cast<intptr_t>(asked->hItemHandle));
    int32_t path[MENUPATH] = {-1, -1};
    if (row) menupathto(row, asked->iCtrlId, path);
    trace("help menucommand root %x tag %d s[0] %d s[1] %d ",
          static_cast<unsigned>(reinterpret_cast<uintptr_t>(asked->hItemHandle)),
          static_cast<int>(row ? row->tag : 0), static_cast<int>(path[0]),
          static_cast<int>(path[1]));
}

// A control, or the window itself.
static void itemasked(window w, window item)
{
    if (item == w) {
        reporterror(helpicon(w, -1, 0));
        return;
    }
    int32_t icon = GetDlgCtrlID(systemwindow(item));
    reporterror(helpicon(w, icon, item));
}

// F1 with other keys held has other meanings, or none.
static bool keymeans(window w)
{
    if (GetKeyState(VK_F1) >= 0) return false;
    int32_t held = keymodifiers();
    if (held & (KEYCTRL | KEYALT)) return true;
    if (held & KEYSHIFT) reporterror(helpinteractive(w));
    return held & KEYSHIFT;
}

bool helpmessage(window w, intptr_t lparam)
{
    if (keymeans(w)) return true;
    auto *asked = reinterpret_cast<const HELPINFO *>(lparam);
    if (asked->iContextType == HELPINFO_MENUITEM)
        menuasked(asked);
    else
        itemasked(w, windowof(static_cast<HWND>(asked->hItemHandle)));
    return true;
}

bool helpcontextmenu(window w, intptr_t wparam, intptr_t lparam)
{
    if (wparam == w) {
        LRESULT part = SendMessageA(systemwindow(w), WM_NCHITTEST, 0, lparam);
        if (part != HTCLIENT) return false;
    }
    itemasked(w, wparam);
    return true;
}
