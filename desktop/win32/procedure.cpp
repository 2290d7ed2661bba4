#include "desktop/win32/procedure.h"

#include "base/boxes.h"
#include "desktop/filters.h"
#include "desktop/hotkeys.h"
#include "desktop/message.h"
#include "desktop/poll.h"
#include "desktop/scroll.h"
#include "desktop/stages.h"
#include "desktop/task.h"
#include "desktop/wdata.h"
#include "desktop/win32/clipboardmessages.h"
#include "desktop/win32/ddemessages.h"
#include "desktop/win32/helpmessages.h"
#include "desktop/win32/menumessages.h"
#include "desktop/windows.h"
#include "graphics/modeinfo.h"
#include "graphics/palette.h"
#include "graphics/win32/windowhandle.h"

#include <dde.h>

namespace
{

reply used(bool was)
{
    return was ? REPLYDONE : REPLYDEFAULT;
}

reply clipboard(const taskmessage &m)
{
    systemmessage message = systemmessageof(m);
    return used(clipboardmessage(&message));
}

reply dde(const taskmessage &m)
{
    systemmessage message = systemmessageof(m);
    intptr_t result = 0;
    return ddemessage(&message, &result) ? replyvalue(result) : REPLYDEFAULT;
}

reply help(const taskmessage &m)
{
    return helpmessage(m.self, m.lparam) ? replyvalue(1) : REPLYDEFAULT;
}

reply contextmenu(const taskmessage &m)
{
    bool was = helpcontextmenu(m.self, static_cast<intptr_t>(m.wparam), m.lparam);
    return was ? replyvalue(1) : REPLYDEFAULT;
}

// The system goes on with its own part of every menu.
reply menu(const taskmessage &m)
{
    intptr_t wparam = static_cast<intptr_t>(m.wparam);
    if (m.number == WM_INITMENU) menustarting(m.self, wparam, m.lparam);
    if (m.number == WM_INITMENUPOPUP) menuopening(m.self, wparam, m.lparam);
    if (m.number == WM_MENUSELECT) menuselecting(m.self, wparam, m.lparam);
    return REPLYDEFAULT;
}

reply menuchar(const taskmessage &m)
{
    intptr_t answer = menuletter(static_cast<intptr_t>(m.wparam), m.lparam);
    return answer ? replyvalue(answer) : REPLYDEFAULT;
}

reply hotkey(const taskmessage &m)
{
    hotkeydeliver(m.self, static_cast<int32_t>(m.wparam));
    return REPLYDONE;
}

reply fonts(const taskmessage &)
{
    broadcast(BROADCASTFONTS);
    return REPLYDONE;
}

reply syscolours(const taskmessage &m)
{
    paletteupdate(m.self);
    return REPLYDEFAULT;
}

reply settings(const taskmessage &)
{
    wheelsettingsread();
    return REPLYDEFAULT;
}

reply display(const taskmessage &)
{
    reporterror(modeinfoinit());
    broadcast(BROADCASTSCREEN);
    return REPLYDEFAULT;
}

reply palettelost(const taskmessage &m)
{
    palettechanged(m.self, static_cast<intptr_t>(m.wparam), m.lparam);
    broadcast(BROADCASTSCREEN);
    return REPLYDONE;
}

reply palettewanted(const taskmessage &m)
{
    bool changed = false;
    paletterealise(m.self, &changed);
    return replyvalue(changed);
}

// Every window at the top is asked; those that belong to another leave it to that,
// so that the user is asked once.
reply sessionending(const taskmessage &m)
{
    return replyvalue(GetWindow(m.handle, GW_OWNER) || !taskstays());
}

struct messagerow {
    UINT first, last; // numbers of the messages
    reply (*function)(const taskmessage &m);
};

// Messages of controls that are drawn by filters, WM_DRAWITEM and WM_MEASUREITEM,
// have no row: what no filter wants is the system's.
constexpr messagerow rows[] = {
    {WM_CREATE, WM_CREATE, windowmade},
    {WM_DESTROY, WM_DESTROY, windowended},
    {WM_MOVE, WM_MOVE, windowmoved},
    {WM_SIZE, WM_SIZE, windowmoved},
    {WM_SHOWWINDOW, WM_SHOWWINDOW, windowmoved},
    {WM_ACTIVATE, WM_ACTIVATE, windowactivated},
    {WM_SETFOCUS, WM_KILLFOCUS, windowfocus},
    {WM_PAINT, WM_PAINT, windowpaints},
    {WM_CLOSE, WM_CLOSE, windowclosing},
    {WM_QUERYENDSESSION, WM_QUERYENDSESSION, sessionending},
    {WM_ERASEBKGND, WM_ERASEBKGND, windowerases},
    {WM_SYSCOLORCHANGE, WM_SYSCOLORCHANGE, syscolours},
    {WM_SETTINGCHANGE, WM_SETTINGCHANGE, settings},
    {WM_FONTCHANGE, WM_FONTCHANGE, fonts},
    {WM_SETCURSOR, WM_SETCURSOR, mousecursor},
    {WM_GETMINMAXINFO, WM_GETMINMAXINFO, windowlimits},
    {DM_GETDEFID, DM_GETDEFID, windowdefault},
    {WM_SETFONT, WM_SETFONT, windowsetfont},
    {WM_GETFONT, WM_GETFONT, windowgetfont},
    {WM_HELP, WM_HELP, help},
    {WM_CONTEXTMENU, WM_CONTEXTMENU, contextmenu},
    {WM_DISPLAYCHANGE, WM_DISPLAYCHANGE, display},
    {WM_NCACTIVATE, WM_NCACTIVATE, windowframeactive},
    {WM_KEYDOWN, WM_KEYDOWN, keymessage},
    {WM_CHAR, WM_CHAR, keymessage},
    {WM_SYSKEYDOWN, WM_SYSKEYDOWN, keymessage},
    {WM_UNICHAR, WM_UNICHAR, keymessage},
    {WM_IME_CHAR, WM_IME_CHAR, keymessage},
    {WM_COMMAND, WM_SYSCOMMAND, windowcommand},
    {WM_HSCROLL, WM_VSCROLL, windowscrolled},
    {WM_INITMENU, WM_INITMENUPOPUP, menu},
    {WM_MENUSELECT, WM_MENUSELECT, menu},
    {WM_MENUCHAR, WM_MENUCHAR, menuchar},
    {WM_MOUSEMOVE, WM_RBUTTONDBLCLK, mousemessage},
    {WM_MOUSEWHEEL, WM_MOUSEWHEEL, wheelmessage},
    {WM_MOUSEHWHEEL, WM_MOUSEHWHEEL, wheelmessage},
    {WM_CAPTURECHANGED, WM_CAPTURECHANGED, mousecapture},
    {WM_DROPFILES, WM_DROPFILES, dropmessage},
    {WM_RENDERFORMAT, WM_RENDERALLFORMATS, clipboard},
    {WM_DESTROYCLIPBOARD, WM_DESTROYCLIPBOARD, clipboard},
    {WM_PALETTECHANGED, WM_PALETTECHANGED, palettelost},
    {WM_QUERYNEWPALETTE, WM_QUERYNEWPALETTE, palettewanted},
    {WM_HOTKEY, WM_HOTKEY, hotkey},
    {WM_APPCOMMAND, WM_APPCOMMAND, appcommandmessage},
    {WM_DDE_FIRST, WM_DDE_LAST, dde},
};

reply answered(const taskmessage &m)
{
    for (const messagerow &row : rows)
        if (m.number >= row.first && m.number <= row.last) return row.function(m);
    return REPLYDEFAULT;
}

reply filtered(const taskmessage &m)
{
    systemmessage message = systemmessageof(m);
    reply given = REPLYDONE;
    return runfilters(FILTERWINDOW, &message, &given.result, &given.kind) ? given : answered(m);
}

} // namespace

systemmessage systemmessageof(const taskmessage &m)
{
    return {m.self, static_cast<intptr_t>(m.number), static_cast<intptr_t>(m.wparam), m.lparam};
}

// Windows come from dialog templates. The system's dialog half moves the focus
// between controls, keeps it while another window is active and knows the default
// button; it asks the template's own procedure first each time, which has nothing
// to say, so that it gets no other messages.
static bool ofdialogs(UINT number)
{
    switch (number) {
    case WM_INITDIALOG:
    case WM_ACTIVATE:
    case WM_SHOWWINDOW:
    case WM_NCDESTROY:
    case WM_NEXTDLGCTL:
    case DM_GETDEFID:
    case DM_SETDEFID:
        return true;
    }
    return false;
}

LRESULT systemreply(const taskmessage &m)
{
    const wdata *data = wdatafind(m.self);
    bool wide = data && data->flags & WINDOWWIDE;
    if (ofdialogs(m.number))
        return (wide ? DefDlgProcW : DefDlgProcA)(m.handle, m.number, m.wparam, m.lparam);
    return (wide ? DefWindowProcW : DefWindowProcA)(m.handle, m.number, m.wparam, m.lparam);
}

LRESULT CALLBACK taskprocedure(HWND handle, UINT number, WPARAM wparam, LPARAM lparam)
{
    taskmessage m = {handle, windowof(handle), number, wparam, lparam};
    pollenter();
    reply given = filtered(m);
    bool wanted = given.kind == 0 ? given.result != 0 : given.result == 0;
    LRESULT result = wanted ? systemreply(m) : given.result;
    pollleave();
    return result;
}
