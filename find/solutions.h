// find/solutions.h - the one list that holds every result.
//
// One movable block, two shapes: for a Crossword, entries of slotcount wordrefs
// each; for a Wordsquare, wsentry records. Which one follows from grid.kind and
// slotcount. Text of a Crossword's solution is fetched through its reference,
// so it dies with its dictionary.
#pragma once

#include "base/flex.h"
#include "dict/dictset.h"
#include "grid/wsentry.h"

#include <cstdint>

struct solutionslist {
    flexptr wslist;    // 0 when empty
    int32_t count;     // entries
    int32_t slotcount; // words an entry
    int32_t rowheight; // os units
    int32_t listwidth; // os units
    int32_t maxsolutions;
    int32_t progressnext, progressstep;
    // Metrics of the list's font, os units.
    int32_t charwidth, textheight, lineheight, ascent;
};

// Changed by the find folder alone, but for maxsolutions, which the choices set.
extern solutionslist solutions;

void solreset();

// Stores one reference of the entry being added, from slot slotcount-1, which
// makes the entry, down to slot 0. Error 2 leaves the count as it was.
errorblock *soladdref(wordref ref, int32_t slot);
errorblock *soladdword(int32_t x, int32_t y, int32_t dx, int32_t dy, const char *text);
void solremove(int32_t entry);
void solsort(); // by text, case-blind
int32_t solselected();
void solclearplaces();
void soldeleteselected();

// Entries, good until the list grows.
wordref solref(int32_t entry, int32_t slot);
wsentry *solword(int32_t entry);

// How far a search has got, shown now and then.
void solprogress(int32_t n);

// Marks and unmarks the cells of a selected word.
void solmark(const wsentry *entry);
void solunmark(const wsentry *entry);

// Writes a solution into the grid.
void solapply(int32_t entry);
