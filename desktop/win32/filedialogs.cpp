#include "desktop/filedialogs.h"

#include "base/errors.h"
#include "base/filetypes.h"
#include "base/paths.h"
#include "base/syserr.h"
#include "base/text.h"
#include "desktop/loadrequest.h"
#include "graphics/win32/windowhandle.h"

#include <windows.h>

#include <commdlg.h>

// The field of the name is a plain one or, in newer systems, a combo box. The
// box takes a text for either and drops what isn't for the one that it has.
static constexpr int NAMEFIELD = 1152, NAMECOMBO = 1148;

// The other type of file may want another name. One that is too long to be read
// is kept as it stands, and so is a folder that was typed before the name.
static void typechanged(HWND box, const OPENFILENAMEA *choice)
{
    char name[PATHSIZE];
    LRESULT length = SendMessageA(box, CDM_GETSPEC, sizeof name, reinterpret_cast<LPARAM>(name));
    bool read = length >= 0 && length <= static_cast<LRESULT>(sizeof name);
    savefilterchange(static_cast<int32_t>(choice->nFilterIndex), read ? name : nullptr,
                     sizeof name);
    if (!read) return;
    SendMessageA(box, CDM_SETCONTROLTEXT, NAMEFIELD, reinterpret_cast<LPARAM>(name));
    SendMessageA(box, CDM_SETCONTROLTEXT, NAMECOMBO, reinterpret_cast<LPARAM>(name));
}

// The hook's window is a child of the box.
static UINT_PTR CALLBACK savehook(HWND child, UINT message, WPARAM, LPARAM lparam)
{
    if (message != WM_NOTIFY) return 0;
    auto *notice = reinterpret_cast<const OFNOTIFYA *>(lparam);
    if (notice->hdr.code == CDN_TYPECHANGE) typechanged(GetParent(child), notice->lpOFN);
    return 0;
}

// The two parts of a path that a box starts with, and where it puts its own.
struct startrecord {
    char folder[PATHSIZE], chosen[PATHSIZE];
};

static OPENFILENAMEA choicefrom(const char *path, startrecord *start, window owner)
{
    dirname(path, start->folder, sizeof start->folder);
    strcopyn(start->chosen, leafname(path), sizeof start->chosen);
    OPENFILENAMEA choice = {};
    choice.lStructSize = sizeof choice;
    choice.hwndOwner = systemwindow(owner);
    choice.lpstrFile = start->chosen;
    choice.nMaxFile = sizeof start->chosen;
    choice.lpstrInitialDir = start->folder[0] ? start->folder : nullptr;
    return choice;
}

// A box that can't be shown, and one that was cancelled, both give nothing.
static errorblock *nochoice(uint32_t cancelled, const char *call)
{
    DWORD code = CommDlgExtendedError();
    return code ? syserrnew(code, call) : makeerror(cancelled);
}

static errorblock *savechoose(const char *path, startrecord *start, window owner)
{
    OPENFILENAMEA choice = choicefrom(path, start, owner);
    choice.lpstrFilter = savechoice.filter;
    choice.nFilterIndex = static_cast<DWORD>(savechoice.filterindex);
    choice.Flags = OFN_EXPLORER | OFN_ENABLEHOOK | OFN_HIDEREADONLY;
    choice.lpfnHook = savehook;
    if (!GetSaveFileNameA(&choice)) return nochoice(ERRORSAVECANCELLED, "GetSaveFileName");
    return nullptr;
}

static errorblock *loadchoose(const char *path, const char *filter, startrecord *start,
                              window owner)
{
    OPENFILENAMEA choice = choicefrom(path, start, owner);
    choice.lpstrFilter = filter;
    choice.nFilterIndex = 1;
    choice.Flags = OFN_FILEMUSTEXIST;
    if (!GetOpenFileNameA(&choice)) return nochoice(ERRORLOADCANCELLED, "GetOpenFileName");
    return nullptr;
}

// A cancel is the user's will.
static errorblock *unlesscancelled(errorblock *err, uint32_t cancelled)
{
    return err && err->code == cancelled ? nullptr : err;
}

errorblock *savefileloud(char *path, int32_t size, int32_t type, savehandler handler, window owner)
{
    char offered[PATHSIZE];
    startrecord start;
    errorblock *err = xzstrncpyu(offered, path, sizeof offered);
    if (err) return err;
    savefilterbuild(offered, type, handler);
    err = savechoose(offered, &start, owner);
    return err ? err : savefilterdone(start.chosen, path, size);
}

errorblock *savefileowner(char *path, int32_t size, int32_t type, savehandler handler, window owner)
{
    return unlesscancelled(savefileloud(path, size, type, handler, owner), ERRORSAVECANCELLED);
}

errorblock *savefile(char *path, int32_t size, int32_t type, savehandler handler)
{
    return savefileowner(path, size, type, handler, 0);
}

static errorblock *loadgive(const char *path, loadhandler handler, intptr_t data)
{
    if (handler) return handler(path, filetypeof(path), data, 0);
    bool handled = false; // a type that nobody loads is no error
    return loadfile(path, 0, &handled);
}

errorblock *loadfile(char *path, int32_t, const loadgroup *groups, int32_t count,
                     loadhandler handler, intptr_t data, window owner)
{
    startrecord start;
    errorblock *err = loadchoose(path, loadfilterbuild(groups, count), &start, owner);
    if (!err) err = xzstrncpyu(path, start.chosen, PATHSIZE);
    if (err) return unlesscancelled(err, ERRORLOADCANCELLED);
    return loadgive(path, handler, data);
}
