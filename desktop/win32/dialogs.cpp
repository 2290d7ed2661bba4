#include "desktop/dialogs.h"

#include "base/syserr.h"

#include <windows.h>

#include <commctrl.h>

// The call tells what the state was, not whether it worked.
errorblock *enablewindow(window w, int on)
{
    if (w) EnableWindow(reinterpret_cast<HWND>(w), on != 0);
    return nullptr;
}

errorblock *spinrange(window w, int32_t icon, int32_t low, int32_t high)
{
    HWND spin = GetDlgItem(reinterpret_cast<HWND>(w), icon);
    if (!spin) return syserr("GetDlgItem");
    SendMessageA(spin, UDM_SETRANGE32, static_cast<WPARAM>(low), static_cast<LPARAM>(high));
    return nullptr;
}
