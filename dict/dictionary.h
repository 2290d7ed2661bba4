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
    // Not in the file: a number that every change raises, how many words were looked
    // up since, and what searches have made for themselves (wordtables.h).
    uint32_t version = 0;
    mutable uint32_t looked = 0;
    mutable void *tables = nullptr;
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

// The flags word of wordcompare and dictfind goes in as options and comes back
// as those and the case differences; other bits are cleared.
constexpr uint32_t FINDOPTIONS = 0xFF0000; // the bits that options may have
constexpr uint32_t FINDHYPHENS = 0x10000;  // hyphens are ignored
constexpr uint32_t fastfind = 0x20000;     // spaces are ignored, unless hyphens
                                           // are; dictfind searches fast
constexpr uint32_t FINDCASEDIFFERS = 1;    // back: equal but for case
constexpr uint32_t CASEBELOW = 1;          // the first letter in another case
constexpr uint32_t CASEABOVE = 3;          // sorts below that of b, or above

// An empty store; what dict held is not looked at. Errors: 2.
errorblock *dictempty(Dictionary *dict);

// Frees the blocks that there are; both counts become 0.
void dictfree(Dictionary *dict);

uint32_t dictcount(const Dictionary *dict);

// Order of two words over at most limit letters: below 0, 0, above 0.
int wordcompare(const char *a, const char *b, int32_t limit, uint32_t *flags);

// The same of whole words, without options.
int wordorder(const char *a, const char *b);

// Codes word against the word before it into out, RECORDSIZE bytes. Returns
// the record's length, 0 when the word doesn't fit.
int32_t wordcode(const char *before, const char *word, uint8_t *out);

// 1 when the word is there. Without fastfind the cursor stands at it, else at
// the last word below it, or at the first word of all; in an empty store at
// nothing, with len 0. With fastfind the cursor is not used; dictfound has the
// word as stored. Over 31 letters, the first 31 decide; the fast search finds
// no such word.
bool dictfind(const char *word, const Dictionary *dict, dictcursor *cursor, uint32_t *flags);

// Copies out the word that the last fast search matched. Returns the record
// behind it, which is good until the store changes.
const uint8_t *dictfound(char *out);

// The last index entry whose first letters, at most 8, stand below the word's;
// 0 if none does. The store must not be empty.
uint32_t dictentrybelow(const char *word, int32_t letters, const Dictionary *dict,
                        uint32_t options);

// A store without words. nwords alone doesn't tell, after memory ran out.
inline bool dictisempty(const Dictionary *dict)
{
    return !dict->nwords || !dict->noindex;
}

// The cursor to the word of an index entry.
void dictfromentry(uint32_t entryn, const Dictionary *dict, dictcursor *cursor);

// The cursor to a word by number. 0, and an untouched cursor, when there is no
// such word.
bool dictseek(uint32_t wordn, const Dictionary *dict, dictcursor *cursor);

// Fills word and len from the record at woff; word holds the predecessor.
void dictdecode(const Dictionary *dict, dictcursor *cursor);

// The next word: 1, or 0 at the end, with an empty word and len 0.
bool dictnext(const Dictionary *dict, dictcursor *cursor);

// A word by number, in a static buffer that the next call overwrites; empty
// when there is no such word.
const char *dictword(uint32_t wordn, const Dictionary *dict);

// Adds a word of 1 to 31 letters; any other is dropped in silence, and so is
// one whose record, or that of the word behind it, would not fit. A case
// variant gives way to the new form. Errors: 2.
errorblock *dictadd(const char *word, Dictionary *dict);

// 1 deleted, 0 not there (or kept, see dictdelete).
bool dictremove(const char *word, Dictionary *dict);

// The two steps under those: at a cursor that a failed dictfind left, and at
// the word itself. After an insert that ran out of memory nwords is one too
// high, and nothing else has changed; walkers stay inside the block. A delete
// gives 1, or 0 with the word still there: at a cursor past the end, when
// memory was short, and when the word behind, of many characters that have no
// code, fits only behind this one.
errorblock *dictinsert(const char *word, Dictionary *dict, dictcursor *cursor);
bool dictdelete(Dictionary *dict, dictcursor *cursor);

// Traces the index and every entry that doesn't stand at a record. Returns the
// number of entries looked at.
int32_t dictcheck(const Dictionary *dict);
