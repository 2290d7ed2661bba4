// dict/dictindex.h - the parts that insert and delete share; for the store's
// own files only.
//
// Here the two blocks are changed, and the index is kept in step with the word
// block. A store can be out of step where it was misread behind neighbours that
// share 30 letters, or where a file was damaged in a way that the check at load
// lets pass. An entry found out of step is dropped, which costs nothing but
// time; so the rules of storecheck.h hold after every edit if they held before.
#pragma once

#include "dict/dictionary.h"

struct errorblock;

inline dictindex *dictentries(const Dictionary *dict)
{
    return static_cast<dictindex *>(dict->index);
}

inline uint8_t *dictrecord(const Dictionary *dict, uint32_t woff)
{
    return static_cast<uint8_t *>(dict->words) + woff;
}

// The word number behind the last word of an entry's span.
uint32_t dictspanend(const Dictionary *dict, uint32_t entryn);

// Puts newlength bytes at position in the word block in place of oldlength.
// After an error nothing has changed, and shrinking can't fail.
errorblock *dictsplice(Dictionary *dict, uint32_t position, const uint8_t *bytes, int32_t newlength,
                       int32_t oldlength);

// An entry for the cursor's word, to stand as number entryn; and one less.
errorblock *dictaddindex(Dictionary *dict, uint32_t entryn, const dictcursor *cursor);
void dictremindex(Dictionary *dict, uint32_t entryn);

// Makes the entry stand for the cursor's word.
void dictsetindex(Dictionary *dict, uint32_t entryn, const dictcursor *cursor);

// Adds to woff and wordn of the entries from first on.
void dictshiftindex(Dictionary *dict, uint32_t first, int32_t bytes, int32_t words);

// Brings entryn, an entry at or before the cursor, forward to the last such
// one. Then all entries behind it stand at records behind the cursor's.
uint32_t dictforward(Dictionary *dict, uint32_t entryn, const dictcursor *cursor);

// Opens an entry halfway through the span of an entry, or at the first record
// behind that which can carry one.
void dictsplit(Dictionary *dict, uint32_t entryn, uint32_t span);

// For an entry whose word, at the cursor, was coded anew: moves the entry to
// the first record that can carry one, in its span. 0 when there was none and
// the entry was removed.
bool dictreindex(Dictionary *dict, uint32_t entryn, dictcursor *cursor);
