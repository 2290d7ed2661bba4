// grid/gridview.h - the window that shows the grid.
//
// A child of the main window, of which it also hears the keys. What it paints is
// in gridpaint.h, what the user does in it in gridmouse.h and gridkeys.h; the
// document tells it of changes by gridwindow.h.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;

// 0 until it is open; changed by gridviewopen alone.
extern window gridwindow;

// Creates the window in parent, hidden, with all its handlers, and starts the
// random source.
errorblock *gridviewopen(window parent);

// Moves the view by squares, as far as the grid goes.
errorblock *gridviewscroll(int32_t dx, int32_t dy);
