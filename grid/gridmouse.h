// grid/gridmouse.h - the mouse in the grid's window; what it does to cells is in
// gridpress.h.
#pragma once

#include "desktop/events.h"

struct errorblock;

// The click handler of the grid's window.
errorblock *gridclick(window self, intptr_t data, mouserecord *mouse);
