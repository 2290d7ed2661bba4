// find/solve.h - every combination of words that fills the marked slots.
//
// The cells themselves are the constraint store: the search writes a candidate
// into them, so crossing slots see it as fixed letters. It does so in letters of
// its own, so that nobody else ever meets what a search left behind. Slots are tried
// in the order of search.slots, dictionaries in the order of dictset, words in
// the dictionary's; results stay in the order found.
#pragma once

#include "dict/dictset.h"
#include "grid/grid.h"

#include <cstdint>

struct errorblock;

constexpr int32_t MAXSLOTS = 256;

struct slotrec {
    int32_t x, y;      // the first cell
    wordref word;      // now tried here
    uint8_t direction; // 0 across, 1 down
    uint8_t length;    // cells, 2..31
};

struct cellbox {
    int32_t left, right, top, bottom;
};

struct searchstate {
    slotrec slots[MAXSLOTS];
    cellbox slotbox; // the marked area
    int32_t kind;    // of the grid that they were found in
    // The grid's letters when the slots were found, and what the search wrote
    // since; and the grid's count of changes then.
    uint8_t letters[GRIDSTRIDE][GRIDSTRIDE];
    int32_t lettersfrom;
    int32_t stopflag; // set by Stop and Escape
    int32_t running;  // 1 while solverun is at work
};

// Changed by the searches, and stopflag by whoever hears the user.
extern searchstate search;

// Builds slots, slotbox and letters from the marked cells, and the layout of the
// list that their solutions fill; nothing without a mark. Cells that are not marked
// are walls. A run of more than 31 cells is no slot.
void slotsfind();

// What Solve and Anagram begin with: a dictionary in use, a mark, an empty list
// and the slots. Errors: 528, 516 without a mark.
errorblock *slotsbegin();

// The letters in a slot, into WORDSIZE bytes that are zero behind them.
void slotread(int32_t slot, char *buffer);

// Writes a word into a slot's cells, closed up over its spaces.
void slotwrite(int32_t slot, const char *text);

// Takes the grid's letters anew, unless nothing has changed since they were
// taken; and gives the slots' cells to the grid.
void slotstake();
void slotsgive();

// The Solve button, and its run. Nothing happens while a run is under way: its
// slots stay as they are. Errors: 528, 516 without a mark, 517 without a slot.
// POLLS, about every 2000 words, and whenever the user has waited long.
errorblock *solvestart();
errorblock *solverun(intptr_t);

// Searches a slot and all behind it: a count, or -1 to unwind.
int32_t solveslot(int32_t slot);
