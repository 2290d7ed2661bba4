#include "base/boxes.h"
#include "graphics/win32/windowhandle.h"

#include <windows.h>

static_assert(BOXYESNO == MB_YESNO && BOXSTOP == MB_ICONSTOP && BOXTASKMODAL == MB_TASKMODAL);

// The box runs a message loop of its own: timed calls go on, null handlers wait.
int boxshow(intptr_t parent, const char *text, const char *title, uint32_t flags)
{
    return MessageBoxA(systemwindow(parent), text, title, flags);
}
