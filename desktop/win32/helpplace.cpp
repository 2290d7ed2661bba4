// Where the text of a control goes, and in what font.
#include "desktop/helpsystem.h"

#include "base/syserr.h"
#include "base/text.h"
#include "graphics/modeinfo.h"
#include "graphics/win32/windowhandle.h"

#include <windows.h>

errorblock *helpsystemplace(window w, int32_t *x, int32_t *y)
{
    RECT frame;
    if (!GetWindowRect(systemwindow(w), &frame)) return syserr("GetWindowRect");
    *x = devtoosx(frame.left);
    *y = screentoosy(frame.top);
    return nullptr;
}

// A window of controls has their font, which it needn't tell.
static HGDIOBJ fontof(HWND w)
{
    LRESULT font = SendMessageA(w, WM_GETFONT, 0, 0);
    HWND control = GetWindow(w, GW_CHILD);
    if (!font && control) font = SendMessageA(control, WM_GETFONT, 0, 0);
    return font ? reinterpret_cast<HGDIOBJ>(font) : GetStockObject(DEFAULT_GUI_FONT);
}

void helpsystemfont(window w, helpfont *font)
{
    LOGFONTA facts = {};
    GetObjectA(fontof(systemwindow(w)), sizeof facts, &facts);
    strcopyn(font->name, facts.lfFaceName, sizeof font->name);
    font->height = facts.lfHeight < 0 ? -facts.lfHeight : facts.lfHeight;
}
