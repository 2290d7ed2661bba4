// desktop/win32/iconhandle.h - the system's handle of an icon.
#pragma once

#include "desktop/events.h"

#include <windows.h>

struct errorblock;

errorblock *iconhandle(window w, int32_t icon, HWND *control);

// Classes of controls that hold text to be edited.
enum iconkind { ICONOTHER, ICONEDIT, ICONCOMBO };
iconkind iconkindof(HWND control);
