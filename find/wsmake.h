// find/wsmake.h - making a Wordsquare.
//
// Make places the word list by randomised backtracking; New fills the grid with
// random dictionary words. Words run in up to eight directions, cross where
// their letters agree, and free cells get random letters at the end.
#pragma once

#include <cstdint>

struct errorblock;

// A direction's step; y grows downward. Its number is its bit in
// grid.filldirections.
struct wsstep {
    int32_t dx, dy;
};

constexpr int32_t WSDIRECTIONS = 8;
constexpr wsstep wssteps[WSDIRECTIONS] = {
    {1, 0}, {1, 1}, {1, -1}, {0, 1}, {0, -1}, {-1, 0}, {-1, 1}, {-1, -1},
};

// Takes the selection off every entry of the list, and its marks off the grid.
void wsdeselect();

// The Make button, and its run: places the list in order. A word that fits no side
// of the grid in any allowed direction is told of before any is placed.
errorblock *wsmake();
errorblock *wsmakerun(intptr_t);

// The New button, and its run. Error: 528.
errorblock *wsnew();
errorblock *wsnewrun(intptr_t);

// Places word i of the list and all later ones. 1 when all stand, or when the
// user stopped it, with what is placed kept; 0 when there is no place, with
// the grid as it was. POLLS: once for each attempt at a word.
bool wsplace(int32_t i);

// Random words, round-robin over the dictionaries in use from the second on.
void dictrandomreset();
void dictrandomword(char *buffer); // WORDSIZE bytes; empty without words
