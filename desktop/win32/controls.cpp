#include "desktop/win32/controls.h"

#include "desktop/dispatch.h"
#include "desktop/eventsource.h"
#include "desktop/keys.h"
#include "desktop/mouse.h"
#include "desktop/poll.h"
#include "graphics/win32/windowhandle.h"

static bool clicked(window self, int32_t icon)
{
    mouserecord mouse = {};
    reporterror(getpointer(&mouse));
    mouse.buttons = BUTTONLEFT;
    mouse.window = self;
    mouse.icon = icon;
    clickdeliver(self, &mouse);
    return true;
}

static bool textchanged(window self, int32_t icon)
{
    dispatchall(EVENTTEXTCHANGE, self, [&](const block &b) {
        return handlerof<textchangefunction>(b)(self, icon, b.data);
    });
    return true;
}

static bool textfocused(window self, int32_t icon, bool gained)
{
    dispatchall(EVENTTEXTFOCUS, self, [&](const block &b) {
        return handlerof<textfocusfunction>(b)(self, icon, gained, b.data);
    });
    return true;
}

// Return and Escape come from the navigation as the buttons that they stand for,
// of which the window has none.
static bool navigated(window self, int32_t identifier)
{
    if (identifier != IDOK && identifier != IDCANCEL) return false;
    bool claimed;
    systemmessage key = {self, SYSTEMCHAR, identifier == IDOK ? KEYRETURN : KEYESCAPE, 0};
    keydeliver(&key, &claimed);
    return true;
}

bool controlcommand(HWND handle, WPARAM wparam, LPARAM lparam)
{
    window self = windowof(handle);
    int32_t icon = LOWORD(wparam);
    int32_t code = HIWORD(wparam);
    if (!lparam) return code == 0 && navigated(self, icon);
    switch (code) {
    case BN_CLICKED:
        return clicked(self, icon);
    case EN_UPDATE: // the text has changed, and is about to be shown
        return textchanged(self, icon);
    case EN_KILLFOCUS:
        return textfocused(self, icon, 0);
    case EN_SETFOCUS:
        return textfocused(self, icon, 1);
    }
    return false;
}
