// Closing and deleting windows, of which their dependants hear.

#include "desktop/windows.h"

#include "base/syserr.h"
#include "desktop/mouse.h"
#include "desktop/wdata.h"
#include "desktop/win32/ddemessages.h"
#include "desktop/win32/windowgeometry.h"

#include <windows.h>

// What else goes with a window: its press or drag, and its conversations.
static void gone(window w)
{
    mouseend(w);
    ddewindowgone(w);
}

errorblock *closewindow(window w)
{
    checkhandle(w, "close");
    mouseend(w);
    // What the call gives back is how the window was before.
    SetLastError(0);
    ShowWindow(systemwindow(w), SW_HIDE);
    errorblock *err = IsWindow(systemwindow(w)) ? nullptr : syserr("ShowWindow");
    kepterror kept = keeperror(err);
    wdatadependants(w, EVENTPARENTCLOSED, mouseend, false);
    return firsterror(kept, nullptr);
}

errorblock *deletewindow(window w)
{
    checkhandle(w, "delete");
    gone(w);
    wdatadependants(w, EVENTPARENTDELETED, gone, true);
    if (wdata *data = wdatafind(w)) wdatafree(data);
    return DestroyWindow(systemwindow(w)) ? nullptr : syserr("DestroyWindow");
}

errorblock *removewindow(window *w)
{
    if (!*w) return nullptr;
    errorblock *err = closewindow(*w);
    kepterror kept = keeperror(err);
    errorblock *deleted = deletewindow(*w);
    *w = 0;
    return firsterror(kept, deleted);
}
