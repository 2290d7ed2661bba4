// find/wsfits.h - where in a Wordsquare a word can lie.
//
// A making goes through cells and directions in an order that chance begins, and comes
// back to a word again and again, with nearly the same words lying in the grid. So where
// a word fits is worked out for all cells at once, many letters at a time, and kept for
// the words that were tried last. A word that is laid takes places from the others and
// gives none: what was worked out while fewer words lay there still has all places.
//
// A word's level is its place in the list; words of all lower levels lie in the grid.
#pragma once

#include "grid/grid.h"

#include <cstdint>

struct fitmap {
    int32_t level;   // the word's; -1 while nothing is kept here
    int32_t under;   // words of the levels below this one lay in the grid, of those
    int32_t changed; // grid.changed then
    bool any;        // it fits somewhere
    // For each cell the directions, a bit each as in grid.filldirections, in which the
    // word lies inside the grid on its own letters and blanks alone.
    uint8_t at[GRIDSTRIDE][GRIDSTRIDE];
};

// Works it out with the words under a level in the grid. Good until the next call.
const fitmap *wsfits(int32_t level, int32_t under, const char *word, int32_t length);

// What is kept of a level, or 0: all places that it may have now, and perhaps more where
// under is below the level.
const fitmap *wsfitskept(int32_t level);

// The word of a level will lie elsewhere: what was worked out over it is forgotten.
void wsfitsmove(int32_t level);
