// graphics/dragbox.h - the box that follows the pointer during a drag.
//
// It lies over its window and all that is inside that, and is drawn exclusive-or,
// so that the same call takes it away again. One at a time, from dragboxstart to
// dragboxend.
#pragma once

#include <cstdint>

constexpr int32_t DRAGRUBBER = 5; // a dotted box
constexpr int32_t DRAGBAR = 8;    // a hatched bar: horizontal if x0 and x1 differ, else vertical

struct dragbox {
    intptr_t window;
    int32_t type;
    int32_t x0, y0, x1, y1;         // OS units of the screen, y up
    int32_t minx, miny, maxx, maxy; // the bounds of the pointer
};

// A box in OS units, y up.
struct dragresult {
    int32_t x0, y0, x1, y1;
};

// Shows the box at its place; the pointer's place now is where the drag began.
void dragboxstart(const dragbox *record);

// The pointer, in pixels of the window.
void dragboxmove(int32_t x, int32_t y);

// Takes the box away and tells where it was left. A bar's box has no thickness:
// both ends lie on its line.
void dragboxend(dragresult *result);

// Draws once more, if the window is the drag's.
void dragboxflush(intptr_t window);

// Round a redraw of a window, the drag's or one inside it: before it with after
// false, and after it with true, which first puts the context back to plain pixels.
void dragboxredraw(intptr_t window, intptr_t dc, bool after);
