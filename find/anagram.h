// find/anagram.h - every dictionary word of exactly the letters of a text.
//
// A "*" in the text stands for any one character. Results are one-word
// solutions in the order of dictset and of each dictionary.
#pragma once

#include "dict/dictionary.h"

struct errorblock;

// The text searched for, kept from the start call to the run.
extern char anagramtext[WORDSIZE];

// The Anagram button. typed is the pane's field; empty, the letters of the
// marked slot are taken. Errors: 528, 516 without a mark, 518 when the mark
// isn't one slot, 529 for a blank in the slot, 531 for a typed text of another
// length than the slot.
errorblock *anagramstart(const char *typed);
errorblock *anagramrun(intptr_t);

// Adds every anagram of text, at most 31 characters, which is sorted in place.
// Ends at the end of the dictionaries or above solutions.maxsolutions; it
// doesn't poll, so nothing can stop it in between. Always 0.
errorblock *anagramscan(char *text);
