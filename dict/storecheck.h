// dict/storecheck.h - what readers of a store rely on to stay inside its blocks.
//
// A file is checked for this once, when it is loaded, and for nothing more: its
// words are not decoded, and any store that the system itself has written
// passes, misreadable ones too. Inserts and deletes keep these rules:
//
//  1. A store with index entries has two zero bytes at the end of its word
//     block. Readers end a record at the first byte below 30, and never take a
//     zero for an escaped letter: so none gets behind the first of the two.
//  2. The index block holds as many entries as noindex says.
//  3. Entry 0 is at woff 0 and wordn 0. Entries ascend in both, stand before
//     the end mark, and are those of words below nwords.
//  4. The head byte where an entry stands is below 8.
//
// A store without entries is one without words, whatever its blocks and nwords
// say: an insert that ran out of memory leaves such.
#pragma once

#include "dict/dictionary.h"

struct errorblock;

// Error 283 when a rule is broken.
errorblock *storecheck(const Dictionary *dict);

// The same for a store that was read from a file, which is refused as well when
// its word block has no room for nwords. An index tells nothing that the records
// don't: one that is broken or missing is made anew where the records can be read
// as words in order. Errors: 283, 2.
errorblock *storetake(Dictionary *dict);

// The words that the word block has room for, of two bytes at least.
uint32_t storeroom(const Dictionary *dict);
