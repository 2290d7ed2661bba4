// output/numbering.h - clue numbers.
//
// Cells are visited row by row. One gets the next number if it is no block and
// starts a word across or down: one that no earlier word runs through, with a
// cell behind it that no bar divides off. It then claims the cells of both its
// words, so a start in one direction claims one cell at least in the other.
//
// The walk leaves the grid's visited bits set.
#pragma once

#include <cstdint>

struct numberedcell {
    int32_t x, y;
    int32_t number; // from 1
    int32_t across; // cells that the across word newly claimed, a word from 2
    int32_t down;
};

// Before the first cell: sets the visited bits up.
void numberingstart(numberedcell *cell);

// The next numbered cell: 1, or 0 at the end.
bool numberingnext(numberedcell *cell);
