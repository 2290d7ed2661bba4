// grid/gridtype.h - the cursor's moves, and typing at it.
//
// Typing fills a word: after a letter the cursor goes on in the direction in
// which it last moved, or else in the only one that is open. Where the cursor
// was before its last move is kept for that; a click leaves no direction.
//
// Each call shows what it changes, and beeps where the cursor can't go on. None
// does anything without a cursor in the grid.
#pragma once

#include <cstdint>

// A click: to a cell of the grid.
void cursorto(int32_t x, int32_t y);

// Over blocks to the next cell in that direction; one of the steps is 0. Without
// such a cell the cursor stays.
void cursormove(int32_t dx, int32_t dy);

// To the cell beside it, whatever that is; one of the steps is 0.
void cursorstep(int32_t dx, int32_t dy);

// A letter, a space or "*", in the grid's case, and a step forward: not across a
// bar. Other characters do nothing.
void gridtype(uint8_t ch);

// Blanks the cell and steps back, over bars too.
void griderase();
