// Files dropped by the system.

#include "base/boxes.h"
#include "base/errors.h"
#include "base/paths.h"
#include "desktop/drop.h"
#include "desktop/win32/pointerplace.h"
#include "desktop/win32/procedure.h"
#include "desktop/windows.h"
#include "graphics/win32/windowhandle.h"

#include <shellapi.h>

#include <cstring>
#include <string>

errorblock *setdrops(window w, bool on)
{
    DragAcceptFiles(systemwindow(w), on);
    return nullptr;
}

// The name of a dropped file in the system's code page, which every call that opens it
// takes. Letters that aren't there become "?", or others like them: another file's name.
static errorblock *droppedname(HDROP drop, UINT number, char (&name)[PATHSIZE])
{
    std::wstring wide(DragQueryFileW(drop, number, nullptr, 0) + 1, 0);
    DragQueryFileW(drop, number, wide.data(), static_cast<UINT>(wide.size()));
    std::string text(wide.size() * 3, 0); // no code page of a Windows needs more
    BOOL lost = false;
    bool utf8 = GetACP() == CP_UTF8; // has every letter, and its conversion takes no flags
    WideCharToMultiByte(CP_ACP, utf8 ? 0 : WC_NO_BEST_FIT_CHARS, wide.c_str(), -1, text.data(),
                        static_cast<int>(text.size()), nullptr, utf8 ? nullptr : &lost);
    size_t length = strlen(text.c_str());
    if (lost)
        return makeerrortext(ERRORNOTFOUND,
                             "The name of a file has letters that Windows can't write in the "
                             "code page of programs: %s",
                             leafname(text.c_str()));
    if (length >= PATHSIZE) return pathtoolong(text.c_str());
    memcpy(name, text.c_str(), length + 1);
    return nullptr;
}

static errorblock *dropone(HDROP drop, UINT number, mouserecord *mouse)
{
    char name[PATHSIZE];
    if (errorblock *err = droppedname(drop, number, name)) return err;
    DWORD attributes = GetFileAttributesA(name);
    bool folder = attributes != INVALID_FILE_ATTRIBUTES && attributes & FILE_ATTRIBUTE_DIRECTORY;
    filedrop(mouse->window, name, folder, mouse);
    return nullptr;
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
        reporterror(dropone(drop, i, &copy));
    }
    DragFinish(drop);
    return REPLYDONE;
}
