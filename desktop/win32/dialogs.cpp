#include "desktop/dialogs.h"

#include "desktop/windows.h"

#include <windows.h>

// The call tells what the state was, not whether it worked.
errorblock *enablewindow(window w, int on)
{
    if (w) EnableWindow(reinterpret_cast<HWND>(w), on != 0);
    return nullptr;
}

errorblock *removedialog(window *w, window owner)
{
    enablewindow(owner, 1);
    return removewindow(w);
}
