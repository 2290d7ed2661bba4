// dict/wordhash.h - a word by its letters, in one look.
//
// To look a word up in the store, some 64 records are read. A hash is one of the
// tables beside the store (wordtables.h says when they are made, and when freed): it
// holds all words as texts, and finds one by a number that is computed from its
// letters, whatever their case. dictfind goes by it where there is one.
//
//   slots       at the place that a word's hash leads to, or at one behind it: the
//               word's number and one, below some more bits of the hash; 0 for none
//   rows        by number: where the word is in texts, and its record in the store;
//               then one row more, of the ends of both
//   texts       the words, one behind another, and WORDSIZE bytes more
//   beginnings  a bit is set for each beginning of BEGINLETTERS letters and more; as
//               other ones may have the same bit, it tells only what no word begins
//               with. Phrases count without their spaces here.
//
// So a word takes 16 bytes and its letters. A store of words so long that this and
// the lists of words by length would be more than 48 bytes a word has no hash.
#pragma once

#include "dict/collation.h"
#include "dict/dictionary.h"

struct wordrow {
    uint32_t text;
    uint32_t woff;
};

struct wordhash {
    flexptr slots, rows, texts, beginnings; // rows is 0 while there is no hash
    uint32_t count;                         // words
    uint32_t slotcount, bitcount;
    uint32_t numberbits; // of a slot
    bool spaces;         // some words are phrases
};

constexpr uint32_t NOHASHED = UINT32_MAX;
constexpr uint32_t BEGINLETTERS = 4;

// Makes an empty hash that of a store that has words. *sound as in tablewalk.h.
// Errors: 2; after any there is none.
errorblock *hashmake(const Dictionary *dict, wordhash *hash, bool *sound);
void hashfree(wordhash *hash);
int64_t hashbytes(const wordhash *hash);

// The hash of some letters and one more; that of no letters is 0.
inline uint64_t hashletter(uint64_t letters, char more)
{
    return (letters + collation.fold[static_cast<uint8_t>(more)]) * 0x9E3779B97F4A7C15u;
}

// The number of the word of these letters, in any case, whose hash that is; or
// NOHASHED. Phrases are found with their spaces.
uint32_t hashfind(const wordhash *hash, const char *word, uint32_t letters, uint64_t hashed);

// Whether a word may begin with letters of that hash, BEGINLETTERS or more.
inline bool hashbegins(const wordhash *hash, uint64_t hashed)
{
    auto bit = static_cast<uint32_t>((hashed >> 32) * hash->bitcount >> 32);
    return static_cast<const uint8_t *>(hash->beginnings)[bit / 8] >> bit % 8 & 1;
}

inline const wordrow *hashrow(const wordhash *hash, uint32_t wordn)
{
    return static_cast<const wordrow *>(hash->rows) + wordn;
}

// The letters of a word, WORDSIZE bytes of which can be read; how many there are is
// told by the row behind.
inline const char *hashtext(const wordhash *hash, const wordrow *row)
{
    return static_cast<const char *>(hash->texts) + row->text;
}
