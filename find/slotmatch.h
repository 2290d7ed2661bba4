// find/slotmatch.h - the words of a dictionary that fit a slot's pattern.
//
// In the order of the dictionary, from the tables of its words (wordtables.h) or,
// where there are none, from its records; both give the same.
//
// A pattern holds a letter or a space for each cell; a space fits anything. A full
// scan looks at all words, as they are stored. A prefix scan begins where the index
// leads for the known letters at the pattern's front, takes words without their
// spaces, and ends at the first word of the slot's length whose known letters are
// above the pattern's.
//
// A match holds no pointer into a store. It comes to its end when the dictionary
// changes, which no search does; one that was freed has no more words.
#pragma once

#include "dict/wordtables.h"

#include <cstdint>

struct slotmatch {
    uint32_t wordn; // of the word found; at the end, of the last one looked at
    uint32_t first; // the word that the scan began with

    const Dictionary *dict;
    const char *pattern; // the caller's, as long as the match lasts
    int32_t length;      // letters of the pattern
    int32_t known;       // those that a prefix scan goes by, at most 8
    uint32_t flag;       // ROWSTORED or ROWCLOSED: which of the words' forms

    // With tables: what the letters must be, and the rows that are left.
    const lengthlist *list;
    uint32_t version;
    int32_t wanted;
    struct {
        uint8_t place, upper, lower;
    } letters[WORDSIZE];
    uint32_t row, page, end; // the row found; of the rows, those before end count
    uint64_t fits;           // rows of the page that fit and have not been given

    // Without: the word to look at next, and the one found.
    dictcursor cursor;
    char word[WORDSIZE];
};

// Begin a scan; the dictionary has words.
void matchfull(const Dictionary *dict, const char *pattern, slotmatch *match);
void matchprefix(const Dictionary *dict, const char *pattern, int32_t known, slotmatch *match);

// The next word that fits; false behind the last.
bool matchnext(slotmatch *match);

// The letters of the word found, in match->word.
const char *matchtext(slotmatch *match);

// Whether the pattern, without a space, is a word of the dictionary; its number.
bool matchword(const Dictionary *dict, const char *pattern, uint32_t *wordn);
