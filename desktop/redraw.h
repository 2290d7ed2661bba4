// desktop/redraw.h - painting a window.
//
// A redraw handler runs a loop, and so does an update at once, which begins with
// updatewindow in place of redrawin:
//
//     redrawrecord r = {};
//     r.self = self;
//     bool more;
//     errorblock *err = redrawin(&r, &more);
//     while (!err && more) {
//         ... paint what falls into the clip ...
//         err = redrawnext(&r, &more);
//     }
//
// redrawwith and updatewith are these loops around a painter. Its error ends the
// painting as it should be ended.
//
// The clip rectangle always covers the pixels at its edges. While more is set
// the record's surface is the current one of graphics/surface.h, with its view
// such that a place of the work area is drawn at its own coordinates; the poll
// must not run meanwhile. The loop must be one: how often it runs is not told.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;
struct surface;

struct redrawrecord {
    window self;
    int32_t x0, y0, x1, y1;     // size of the visible area: 0, -height, width, 0
    int32_t xscroll, yscroll;   // as in the window's state
    int32_t cx0, cy0, cx1, cy1; // what is to be painted, in the work area
    surface *drawing;
    surface *outer; // what was current before
};

// more is 0 when nothing is to be painted.
errorblock *redrawin(redrawrecord *r, bool *more);
errorblock *redrawnext(redrawrecord *r, bool *more);

// Paints now, without waiting for the system to ask: x0 to y1 of the record are
// the rectangle, in the work area.
errorblock *updatewindow(redrawrecord *r, bool *more);

using redrawpainter = errorblock *(*)(const redrawrecord &r, intptr_t data);
errorblock *redrawwith(window self, redrawpainter painter, intptr_t data);
errorblock *updatewith(window self, int32_t x0, int32_t y0, int32_t x1, int32_t y1,
                       redrawpainter painter, intptr_t data);
