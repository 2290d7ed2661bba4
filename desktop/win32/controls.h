// desktop/win32/controls.h - what controls tell their window.
#pragma once

#include <windows.h>

// WM_COMMAND of a control, or, without one, of the navigation between controls:
// becomes a click, a key or an event of writable text. False for any other,
// such as that of a menu.
bool controlcommand(HWND self, WPARAM wparam, LPARAM lparam);
