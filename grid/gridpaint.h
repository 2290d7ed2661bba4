// grid/gridpaint.h - painting the grid.
//
// A square's frame is one pixel, shared with its neighbours and drawn over all
// else; bars are two pixels inside it. What lies in the clip comes out the same
// however the area to be painted was cut up.
#pragma once

#include "desktop/events.h"

struct errorblock;
struct redrawrecord;

// The redraw handler of the grid's window.
errorblock *gridpaint(window self, intptr_t data);

// Paints what falls into the clip of a redraw under way. background: open cells
// get their background too; without it the window's must have been cleared.
errorblock *gridredrawcells(const redrawrecord &r, bool background);
