// dict/dictbuild.h - a store made in one go, from words that come in order.
//
// Adding a million words one at a time moves what lies behind each of them; in
// order, each record is written once. The word block is the one that dictadd
// would have made of the same words in any order. The index stands by its rules
// (dictionary.h), with spans as short as they allow.
#pragma once

#include "dict/dictionary.h"

struct errorblock;

struct dictbuilder {
    Dictionary store;    // what has been built; its blocks are larger than used
    int32_t bytes;       // of the word block in use
    dictcursor last;     // the word added last
    uint32_t entrywordn; // the word of the last index entry
};

// Begins an empty store; what *build held is not looked at. Errors: 2.
errorblock *buildstart(dictbuilder *build);

// Adds a word of 1 to 31 letters, which stands above the one before. *fits is
// false, and nothing added, when its record would be too long. Errors: 2.
errorblock *buildword(dictbuilder *build, const char *word, bool *fits);

// Puts the store in place of what dict held. After an error, 2, dict is as it
// was. Either way the builder holds nothing any more.
errorblock *buildend(dictbuilder *build, Dictionary *dict);

// Frees what has been built.
void buildfree(dictbuilder *build);

// Makes the index anew from the records, and nwords their number. The word
// block ends in two zero bytes. Errors: 2, with the index as it was.
errorblock *dictindexmake(Dictionary *dict);
