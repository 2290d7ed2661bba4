// dict/dictionary.h - the word store.
//
// A Dictionary is a sorted list of words in memory, compressed, and editable in
// place: one word goes in or out at a time, with no rebuild. Words that differ
// only in case are the same word; the newest capitalisation stays.
//
// Two movable blocks hold it. The word block is a run of records, one a word in
// sort order, then two zero bytes:
//
//   head byte   how many leading letters are those of the word before, 0..30
//   codes       the other letters: 31..255 a string of the code table
//               (wordcodes.h), 30 and a byte that byte itself
//
// so a record ends at the first byte below 30, the next head. The index block
// holds a dictindex for every 64 to 127 words or so:
//
//  1. Entry 0 exists when there are words, at woff 0 and wordn 0.
//  2. Entries ascend in wordn, hence in woff.
//  3. An entry stands only at a record whose head is below 8, so that the
//     letters it takes from its predecessor all lie in the entry's own 8.
//  4. A span (from an entry to the next, or to the end) is split at 128 words
//     where a record allows it, and merged below 64.
//
// Blocks move when words change: hold byte positions and word numbers, never
// pointers, and no cursor but one that the operation itself maintains.
//
// A head of 30 is read as the escape code by the record before it, so a store
// in which neighbours share 30 letters is misread from there on. That limit of
// the format stands; walkers stay inside the block all the same.
#pragma once

#include "base/flex.h"

#include <cstdint>

struct errorblock;

constexpr int32_t WORDSIZE = 32;    // bytes of every word buffer
constexpr int32_t WORDLENGTH = 31;  // letters of the longest word
constexpr int32_t INDEXLETTERS = 8; // letters of an index entry
constexpr int32_t RECORDSIZE = 33;  // bytes of the longest record

struct Dictionary {
    uint32_t nwords;
    uint32_t noindex;
    flexptr index; // noindex dictindex
    flexptr words; // the records and two zero bytes, or nothing
};

struct dictindex {
    uint32_t woff;           // of the word's record in the word block
    uint32_t wordn;          // number of that word, from 0
    char word[INDEXLETTERS]; // its first letters, zero-padded, unterminated
};
static_assert(sizeof(dictindex) == 16);

struct dictcursor {
    char word[WORDSIZE];
    uint32_t woff;
    uint32_t indexn; // the entry it started from; dictnext leaves it behind
    uint32_t wordn;
    uint32_t len; // bytes of the record; 0 past the end
};

// Flags of wordcompare and dictfind: in, options; out, case differences.
constexpr uint32_t FINDCASEDIFFERS = 1;   // out: equal but for case
constexpr uint32_t FINDHYPHENS = 0x10000; // in: hyphens are ignored
constexpr uint32_t fastfind = 0x20000;    // in: spaces are ignored; fast search

errorblock *dictempty(Dictionary *dict);
void dictfree(Dictionary *dict);
uint32_t dictcount(const Dictionary *dict);

// Order of two words over at most limit letters: below 0, 0, above 0. flags
// comes back 0 (same case), 1 or 3 (a differs only in case, first below or
// above).
int wordcompare(const char *a, const char *b, int32_t limit, uint32_t *flags);

// Codes word against the word before it into out, RECORDSIZE bytes. Returns
// the record's length, 0 when the word doesn't fit.
int32_t wordcode(const char *before, const char *word, uint8_t *out);

// 1 when the word is there. Without fastfind the cursor stands at it, else at
// the last word below it, or at the first word of all. With fastfind the
// cursor is not touched; dictfound has the word as stored.
int dictfind(const char *word, const Dictionary *dict, dictcursor *cursor, uint32_t *flags);

// Copies out the word that the last fast search matched. Returns the record
// behind it.
const uint8_t *dictfound(char *out);

// The cursor to a word by number. 0 (and an untouched cursor) when there is no
// such word.
int dictseek(uint32_t wordn, const Dictionary *dict, dictcursor *cursor);

// Fills word and len from the record at woff; word holds the predecessor.
void dictdecode(const Dictionary *dict, dictcursor *cursor);

// The next word: 1, or 0 at the end, with an empty word and len 0.
int dictnext(const Dictionary *dict, dictcursor *cursor);

// A word by number, in a static buffer that the next call overwrites; empty
// when there is no such word.
const char *dictword(uint32_t wordn, const Dictionary *dict);

// Adds a word of 1 to 31 letters; any other, and one whose code doesn't fit,
// is dropped in silence. A case variant gives way to the new form.
errorblock *dictadd(const char *word, Dictionary *dict);

// 1 deleted, 0 not there.
int dictremove(const char *word, Dictionary *dict);

// The two steps under those: at a cursor that a failed dictfind left, and at
// the word itself. After an insert that ran out of memory nwords is one too
// high; walkers stay inside the block.
errorblock *dictinsert(const char *word, Dictionary *dict, dictcursor *cursor);
int dictdelete(Dictionary *dict, dictcursor *cursor);

// Traces the index and every entry that doesn't stand at a record. Returns the
// number of entries looked at.
int32_t dictcheck(const Dictionary *dict);
