// Files dropped by the system.

#include "desktop/drop.h"
#include "desktop/win32/pointerplace.h"
#include "desktop/win32/procedure.h"
#include "desktop/windows.h"
#include "graphics/win32/windowhandle.h"

#include <shellapi.h>

errorblock *setdrops(window w, bool on)
{
    DragAcceptFiles(systemwindow(w), on);
    return nullptr;
}

static void dropone(HDROP drop, UINT number, mouserecord *mouse)
{
    char name[MAX_PATH];
    if (!DragQueryFileA(drop, number, name, sizeof name)) return;
    DWORD attributes = GetFileAttributesA(name);
    bool folder = attributes != INVALID_FILE_ATTRIBUTES && attributes & FILE_ATTRIBUTE_DIRECTORY;
    filedrop(mouse->window, name, folder, mouse);
}

reply dropmessage(const taskmessage &m)
{
    HDROP drop = reinterpret_cast<HDROP>(m.wparam);
    POINT place = {};
    DragQueryPoint(drop, &place);
    mouserecord mouse = placerecord(m.handle, place);
    UINT count = DragQueryFileA(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; i++) {
        mouserecord copy = mouse; // a handler may write to it
        dropone(drop, i, &copy);
    }
    DragFinish(drop);
    return REPLYDONE;
}
