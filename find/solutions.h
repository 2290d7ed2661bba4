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
    int32_t room;      // bytes of it
    int32_t count;     // entries
    int32_t slotcount; // words an entry
    int32_t standing;  // the Crossword's entry that was written into the grid, -1 for none
    int32_t rowheight; // os units
    int32_t listwidth; // os units
    int32_t maxsolutions;
    int32_t progressnext, progressstep;
    // Metrics of the list's font, os units.
    int32_t charwidth, textheight, lineheight, ascent;
};

// Changed by the find folder alone, but for maxsolutions, which the choices set,
// and the metrics, which the list's window sets.
extern solutionslist solutions;

constexpr int32_t MAXSOLUTIONSDEFAULT = 1000;

// The state of a fresh start.
void solutionsreset();

// Empties the list.
void solreset();

// Stores one reference of the entry being added, from slot slotcount-1, which
// makes the entry, down to slot 0. Error 2 leaves the count as it was, and the
// references then overwrite the last entry.
errorblock *soladdref(wordref ref, int32_t slot);

// Adds a word; of its text 35 characters are kept. Error 2.
errorblock *soladdword(int32_t x, int32_t y, int32_t dx, int32_t dy, const char *text);

// The rows of a Wordsquare's list, by the metrics as they are; an empty list is
// one of words then. And the rows of the list that there is, when the metrics
// have changed.
void solwordslayout();
void solrelayout();

// Adds the word typed under the list, unplaced, and remembers it in lastword.
errorblock *soladdtyped(const char *text);
extern char lastword[sizeof wsentry::text];

void solremove(int32_t entry);
void solsort(); // by text, case-blind
void solclearplaces();

// Gives a word of the list the place where its letters stand in the grid, in either
// case and the first of more, row by row; false if they don't.
bool solplace(int32_t entry);

// A reference to no word: wordtext gives an empty text for it.
constexpr wordref NOWORD = 0xFFFFFFFF;

// Entries: a Crossword's reference (NOWORD outside the list), and a
// Wordsquare's record, good until the list grows.
wordref solref(int32_t entry, int32_t slot);
wsentry *solword(int32_t entry);

// How far a search has got, shown now and then: 1, 10, 20, ... 100, 110, 210,
// 310. 0 begins anew.
void solprogress(int32_t n);

// The selection of a Wordsquare's words, which marks their cells in the grid.
int32_t solselected();
void solmark(const wsentry *entry);
void solunmark(const wsentry *entry);

// Behind a search that used the grid's counts: they count the selected words
// again, a row may have been clicked while it ran.
void solrecount();

// What a click on a row does: alone, that row is selected and no other; a row
// that is the only one selected stays so. Toggling changes the row alone. A row
// outside the list changes nothing. True when the list is to be redrawn; the
// changed cells are gathered by dirtyadd.
bool solselect(int32_t entry, bool toggle);

// Scrolls the grid to the word of that row, where it lies in it; of one longer than the
// view the first letter is seen.
void solshow(int32_t entry);

// The Delete button: removes the selected words, and redraws.
void soldeleteselected();

// Writes a Crossword's solution into the grid, where it stands until the list goes;
// nothing without a mark or outside the list. Each word counts as a change of the
// document.
void solapply(int32_t entry);
