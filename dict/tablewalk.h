// dict/tablewalk.h - the walk that the tables beside a store are made from; for their
// own files only.
//
// It counts letters as it decodes them, and knows whether it has met a space: what
// a cursor would have to find out of each word. It also tells whether the plain
// searches would find every word, since what tables promise holds only then.
#pragma once

#include "dict/dictionary.h"

struct tablewalk {
    const Dictionary *dict;
    dictcursor at;
    char before[WORDSIZE]; // the word before
    uint32_t letters;      // of the word
    uint32_t shared;       // with the one before
    bool spaces;           // in this word or in one before it
    bool sound;            // all so far in order, and the index in step
    uint32_t entry;        // of the index, the next to be met
};

// In front of the first word.
tablewalk walkstart(const Dictionary *dict);

// To the next word; false behind the last, and where the store proves unsound. Then
// sound says whether it was walked over to its end.
bool walknext(tablewalk *walk);
