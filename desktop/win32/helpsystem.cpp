#include "desktop/helpsystem.h"

#include "base/errors.h"
#include "base/paths.h"
#include "base/platform.h"
#include "base/syserr.h"
#include "base/text.h"
#include "graphics/win32/windowhandle.h"

#include <windows.h>

#include <shellapi.h>

#include <cstring>

// The call of the system's help library, and its commands that are used here.
using helpcall = HWND(WINAPI *)(HWND caller, const char *file, UINT command, DWORD_PTR data);
static constexpr UINT TOPIC = 0, TEXTPOPUP = 14;

struct helptext {
    int size;
    HINSTANCE module;
    UINT resource;
    const char *text; // used where resource is 0
    POINT place;
    COLORREF foreground, background; // -1 for the system's
    RECT margins;                    // likewise
    const char *font;
};

// The system's own, by its full path: a file of that name in the program's folder,
// or in that of a document, is never run.
static HMODULE libraryload()
{
    char path[PATHSIZE];
    UINT length = GetSystemDirectoryA(path, sizeof path);
    if (!length || length >= sizeof path) return nullptr;
    return fs_strcat(path, sizeof path, "hhctrl.ocx") ? nullptr : LoadLibraryA(path);
}

// Looked for once and kept: its windows live on.
static errorblock *helplibrary(helpcall *call)
{
    static FARPROC found;
    if (!found) {
        HMODULE library = libraryload();
        if (!library) return syserr("LoadLibrary", "%s", "hhctrl.ocx");
        found = GetProcAddress(library, "HtmlHelpA");
        if (!found) return syserr("GetProcAddress", "%s", "HtmlHelpA");
    }
    *call = reinterpret_cast<helpcall>(reinterpret_cast<void *>(found));
    return nullptr;
}

// Behind the ">" of a path would stand a kind of window: the file's name ends
// before it.
static errorblock *filemissing(const char *path)
{
    char file[PATHSIZE];
    strcopyn(file, path, sizeof file);
    if (char *end = std::strchr(file, '>')) *end = 0;
    return makeerrorf(ERRORNOTFOUND, file);
}

errorblock *helpsystemtopic(window w, const char *path)
{
    helpcall call = nullptr;
    errorblock *err = helplibrary(&call);
    if (err || !call) return err;
    return call(systemwindow(w), path, TOPIC, 0) ? nullptr : filemissing(path);
}

errorblock *helpsystempopup(window w, const char *text, int32_t x, int32_t y, const char *font)
{
    helpcall call = nullptr;
    errorblock *err = helplibrary(&call);
    if (err || !call) return err;
    constexpr auto ANYCOLOUR = static_cast<COLORREF>(-1);
    helptext shown = {sizeof shown, nullptr,          0,   text, {x, y}, ANYCOLOUR,
                      ANYCOLOUR,    {-1, -1, -1, -1}, font};
    call(systemwindow(w), nullptr, TEXTPOPUP, reinterpret_cast<DWORD_PTR>(&shown));
    return nullptr;
}

errorblock *helpsystemopen(window w, const char *address)
{
    HINSTANCE opened =
        ShellExecuteA(systemwindow(w), "open", address, nullptr, nullptr, SW_SHOWNORMAL);
    constexpr intptr_t FAILURES = 32; // up to this one
    return reinterpret_cast<intptr_t>(opened) > FAILURES ? nullptr
                                                         : syserr("ShellExecute", "%s", address);
}
