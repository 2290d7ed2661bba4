// tests/desktop/win32/taskwindows.h - windows of the library with any style, for
// tests of windows that need no template.
#pragma once

#include "desktop/redraw.h"
#include "desktop/windows.h"

#include <windows.h>

#include <cstdint>
#include <functional>

inline HWND taskhandle(window w)
{
    return reinterpret_cast<HWND>(w);
}

// A hidden window of the library's class. Frames of a popup are the system's own,
// without a window manager.
window taskwindow(DWORD style, window parent = 0);

// Deletes all that are left, without a word to anyone.
void taskwindowsend();

// Opens it with a client area at a place of the screen, in pixels.
void taskopen(window w, int32_t left, int32_t top, int32_t width, int32_t height,
              intptr_t behind = -3);

windowstaterecord taskstate(window w);

// The client area in pixels of the screen, and its size.
RECT taskclient(window w);
SIZE tasksize(window w);

// A control of a window.
HWND taskcontrol(window w, int32_t icon);

// Paints all that waits to be painted, part by part.
errorblock *taskpaint(window w, const std::function<void(const redrawrecord &)> &part);

// A test that makes one runs twice, on a screen of 96 and on one of 144 dots to the
// inch, by which windows are placed and work areas measured. It has no subcases of
// its own.
struct bothscreens {
    bothscreens();
    ~bothscreens();
};
