// find/fill.h - whole fills: words into every slot at once, exactly.
//
// Where Solve tries word after word and restores what it wrote (solve.h), a fill is
// a search over what is still possible: each slot keeps the set of words that may
// stand in it, each cell the set of letters. A word that goes into a slot takes
// letters from its cells, these take words from the slots that cross there, and so
// on until nothing changes (arc consistency, A. Mackworth 1977). A slot without a
// word ends that try. The next slot is always one with few words that has often been
// the one to fail (dom/wdeg, F. Boussemart et al. 2004).
//
// Slots are those of search.slots (slotsfind): runs of marked cells. Words are those
// of the dictionaries in use, without their spaces and in either case; one that has
// anything but letters is left out. Words of the same letters are one.
#pragma once

#include "dict/dictset.h"

#include <cstdint>

struct errorblock;

struct fillrules {
    bool repeat;   // a word may stand in more than one slot
    bool given;    // a slot that is full already needs no word
    int32_t liked; // fillone takes words of this dictionary rather than others; or -1
    uint32_t seed; // of fillone's choice
    // Called now and then, for each try of a word at most; false ends the search.
    bool (*goon)();
};

// How far the search is, for goon to show.
struct fillprogress {
    int32_t slots; // all of them
    int32_t best;  // as many had their word at once
    uint64_t tries;
};
extern fillprogress filling;

enum fillend {
    FILLALL,     // all has been looked at
    FILLSTOPPED, // goon or found ended it
};

// Takes the slots and the words; search.slots and the grid stay as they are until
// fillfree. Error 517 without a slot.
errorblock *fillmake(const fillrules &rules);
void fillfree();

// Every fill, in an order that only the slots and the words decide; found returns false
// for no more. Within it fillword has the words.
fillend fillevery(bool (*found)());

// One fill of many words' choice, by the seed: true when there is one. Or else the
// most that could be filled. fillword and fillletter have it then; *end says whether
// that was all there is.
bool fillone(fillend *end);

// The word in a slot, NOWORD for none; and the letter in its nth cell, 0 for none yet.
wordref fillword(int32_t slot);
uint8_t fillletter(int32_t slot, int32_t n);
