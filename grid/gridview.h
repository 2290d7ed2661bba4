// grid/gridview.h - the window that shows the grid.
#pragma once

#include <cstdint>

struct errorblock;

// 0 until it is open; changed by the view alone.
extern intptr_t gridwindow;

// Creates the window in parent, hidden, with all its handlers.
errorblock *gridviewopen(intptr_t parent);
