// grid/gridpress.h - what the mouse does to cells, and keys in its place.
//
// A left press moves the cursor, a left drag marks a rectangle, a right press
// makes blocks and bars, or marks single cells while a rectangle is marked. In a
// Wordsquare there is only the cursor. Each call shows what it changes, and
// beeps at a press that can't be.
#pragma once

#include <cstdint>

// A press at a cell, which may lie outside the grid. With Ctrl a left press keeps
// the mark, for a drag that adds to it.
void gridleftpress(int32_t x, int32_t y, bool ctrl);
void gridrightpress(int32_t x, int32_t y, bool shift, bool ctrl);

// Of a cell of the grid: a left bar with Shift, a top bar with Ctrl, else a
// block. A block loses everything instead.
void gridrightedit(int32_t x, int32_t y, bool shift, bool ctrl);

// Marks the rectangle between the cell where the drag began and the pointer's,
// and adds it to a mark that was kept; where it lies on marked cells it unmarks
// them. A drag that stays in its first cell moves the cursor and marks nothing.
// griddragstart says whether there is a drag: none outside a grid or in a
// Wordsquare.
bool griddragstart(int32_t x, int32_t y);
void griddragstep(int32_t x, int32_t y);
void griddragend();

// The same by keys, at the cursor. A step goes to the cell beside it, onto a block
// too, and a mark goes away as at a left press; without a cursor it goes to the mark's
// or the grid's first cell. A step of the mark moves the corner opposite to the one
// where the mark began, and back in that cell there is the cursor again.
void gridstep(int32_t dx, int32_t dy);
void gridmarkstep(int32_t dx, int32_t dy);
void gridcursoredit(bool shift, bool ctrl); // gridrightpress there
