// dict/wordtables.h - what the searches look words up in, beside the store.
//
// The store is small and goes to disc; to find a word by its pattern or its
// letters in it, every record is read. These tables hold the same words once
// more, in a form that a search reads sixteen words at a time. They are no part of
// the store: made when a search first asks, from a walk over the words, and
// freed with the store. Each change of the store raises its version (dictchanged),
// and tables that were made from another version are made anew.
//
// There is a list for each length of words, made when that length is asked for.
// Its rows stand in the order of the store, in pages of 64, and a page holds
// column behind column:
//
//   numbers     64 of 4 bytes   the word's number, and two flags
//   letter sets 64 of 4 bytes   which letters the word has (letterset)
//   letters     length of 64    the first letters, the second letters, ...
//
// Rows of the last page that hold no word have neither flag. So a word takes
// 8 bytes and its letters.
//
// A word without spaces is one row, with both flags. A phrase is two: in the list
// of its length as it stands, and in that of its length without its spaces.
//
// The other table is a hash of the words, wordhash.h.
//
// A store that was misread or damaged has no tables, and neither has one for which
// memory is short. Every search has its plain road then, over the records: what it
// finds is the same.
#pragma once

#include "dict/dictionary.h"

#include <cstddef>
#include <cstdint>

constexpr uint32_t PAGEWORDS = 64;

constexpr uint32_t ROWSTORED = 0x80000000; // the letters are the word as stored
constexpr uint32_t ROWCLOSED = 0x40000000; // they are the word without its spaces
constexpr uint32_t ROWNUMBER = 0x3FFFFFFF;

struct lengthlist {
    flexptr pages;  // 0 while the list is not made
    uint32_t count; // rows
    int32_t length; // letters
    uint32_t mixed; // rows that lack a flag: of phrases
};

// The words of a length, 1 to 31, for a search that would else go through so many
// records. 0 when it is to do that: the list is made once it will have been worth
// it. Good until the store changes or is freed.
const lengthlist *lengthwords(const Dictionary *dict, int32_t length, uint32_t words);

// The same of a list that is there already; 0 if it is not.
const lengthlist *lengthmade(const Dictionary *dict, int32_t length);

// A hash of all words, for a search that would else look so many words up in the
// records. 0 when it is to do that: as the lists, it is made once it will have been
// worth it. Good until the store changes or is freed.
struct wordhash;
const wordhash *hashwords(const Dictionary *dict, uint32_t lookups);

// Which letters a text has: a bit each for a to z in either case, to which other
// characters are added somehow, and in the top 6 bits a sum over all of them. Texts
// of the same letters have the same set; and without the sum (LETTERBITS), those of
// some of the letters have no bit that is not in the set of all.
constexpr uint32_t LETTERBITS = 0x03FFFFFF;
uint32_t letterset(const char *text, size_t length);

// The parts of a page, for the list's words.
inline uint32_t pagebytes(const lengthlist *list)
{
    return PAGEWORDS * (8 + static_cast<uint32_t>(list->length));
}
inline uint32_t pagecount(const lengthlist *list)
{
    return (list->count + PAGEWORDS - 1) / PAGEWORDS;
}
inline uint32_t *pagenumbers(const lengthlist *list, uint32_t page)
{
    auto *bytes = static_cast<uint8_t *>(list->pages) + size_t{page} * pagebytes(list);
    return reinterpret_cast<uint32_t *>(bytes);
}
inline uint32_t *pagesets(const lengthlist *list, uint32_t page)
{
    return pagenumbers(list, page) + PAGEWORDS;
}
inline uint8_t *pageletters(const lengthlist *list, uint32_t page, int32_t place)
{
    return reinterpret_cast<uint8_t *>(pagesets(list, page) + PAGEWORDS) + PAGEWORDS * place;
}

// The letters of a row, into WORDSIZE bytes.
void rowtext(const lengthlist *list, uint32_t row, char *text);

// The first row whose first letters do not stand below those of the text; or behind
// all that are equal to them. The list holds no phrase.
uint32_t rowbound(const lengthlist *list, const char *text, int32_t letters, bool behind);

// To be called by whatever changes the words or the index.
void dictchanged(Dictionary *dict);

// Frees the tables; the next search makes them again.
void tablesfree(Dictionary *dict);

// Bytes that the tables hold now.
int64_t tablesbytes(const Dictionary *dict);

// Measuring and tests: while it is set, every search takes its plain road.
extern bool tablesoff;
