// grid/gridreflect.h - one half of the grid made the likeness of the other.
//
// Blocks, bars and all other flags are copied, and no letter. A bar on a cell's
// left edge comes to lie on the edge that mirrors it, which is the left edge of
// the next cell; so column width and row height are written too.
//
// Two oddities are kept, since grids have been made with them: the bar that the
// copy leaves on a cell is the one that the cell opposite, across the middle of
// the grid, has; and the middle two columns or rows of an even size are left.
#pragma once

#include <cstdint>

constexpr int32_t REFLECTHORIZONTAL = 0; // the left half onto the right
constexpr int32_t REFLECTVERTICAL = 1;   // the top half onto the bottom
constexpr int32_t REFLECTRISING = 2;     // half a turn of what is above the diagonal "/"
constexpr int32_t REFLECTFALLING = 3;    // half a turn of what is above the diagonal "\"

// In a Wordsquare too.
void gridreflect(int32_t which);
