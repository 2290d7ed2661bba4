// The two classes of windows.

#include "base/syserr.h"
#include "desktop/scroll.h"
#include "desktop/stages.h"
#include "desktop/task.h"
#include "desktop/win32/abx.h"
#include "desktop/win32/procedure.h"

static HICON icon()
{
    const char *name = taskicon();
    return name ? LoadIconA(GetModuleHandleA(nullptr), name) : nullptr;
}

// A class that is there already is that of an earlier start.
static errorblock *classmake(const char *name, WNDPROC procedure, int extra, HICON picture)
{
    WNDCLASSA c = {};
    c.style = CS_DBLCLKS;
    c.lpfnWndProc = procedure;
    c.cbWndExtra = extra;
    c.hInstance = GetModuleHandleA(nullptr);
    c.hIcon = picture;
    c.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    c.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    c.lpszClassName = name;
    if (RegisterClassA(&c) || GetLastError() == ERROR_CLASS_ALREADY_EXISTS) return nullptr;
    return syserr("RegisterClass");
}

errorblock *inittemp()
{
    wheelsettingsread();
    errorblock *err = classmake("Task", taskprocedure, DLGWINDOWEXTRA, icon());
    return err ? err : classmake("abx", abxprocedure, ABXEXTRA, nullptr);
}
