// desktop/win32/pointerplace.h - places of the pointer as mouse records have
// them.
#pragma once

#include "desktop/mouse.h"

#include <windows.h>

// The number of the innermost control at a place of the screen, -1 for none.
int32_t iconunder(HWND around, POINT screen);

// x and y of the record, from pixels of the screen.
void placeset(mouserecord *mouse, POINT screen);

// A record for a place of the client area of a window, with its icon and no
// buttons.
mouserecord placerecord(HWND self, POINT client);
