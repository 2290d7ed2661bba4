#include "dict/wordhash.h"

#include "base/errorcodes.h"
#include "base/errors.h"
#include "dict/tablewalk.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace
{

constexpr int32_t GROWTH = 65536;
constexpr int64_t TABLEBYTES = 48; // a word, lists of words by length included
constexpr int64_t LISTBYTES = 8;   // that those take beside the letters

// While a hash is made: that of each beginning of the word, by its letters.
struct hashing {
    wordhash *hash;
    uint64_t beginnings[WORDSIZE];
    int32_t textsize;
};

// Three slots for two words: a search ends soon.
uint32_t slotsfor(uint32_t words)
{
    return words + words / 2 + 1;
}

uint32_t slotfirst(const wordhash *hash, uint64_t hashed)
{
    return static_cast<uint32_t>((hashed >> 32) * hash->slotcount >> 32);
}

// What is above a word's number in its slot.
uint32_t slotmark(const wordhash *hash, uint64_t hashed)
{
    return static_cast<uint32_t>(hashed) << hash->numberbits;
}

// A block of so many records, all zero.
errorblock *blockmake(flexptr *anchor, size_t count, size_t size)
{
    if (count > INT32_MAX / size) return makeerror(ERRORMEMORY);
    errorblock *err = flex_alloc(anchor, static_cast<int32_t>(count * size));
    if (!err) memset(*anchor, 0, count * size);
    return err;
}

errorblock *blocksmake(const Dictionary *dict, wordhash *hash)
{
    hash->slotcount = slotsfor(dict->nwords);
    hash->numberbits = static_cast<uint32_t>(std::bit_width(dict->nwords));
    hash->bitcount = (dict->nwords + 3) / 4 * 64;
    errorblock *err = blockmake(&hash->rows, size_t{dict->nwords} + 1, sizeof(wordrow));
    if (!err) err = blockmake(&hash->slots, hash->slotcount, sizeof(uint32_t));
    if (!err) err = blockmake(&hash->beginnings, hash->bitcount / 8, 1);
    if (!err) err = blockmake(&hash->texts, WORDSIZE, 1);
    return err;
}

void beginningadd(wordhash *hash, uint64_t hashed)
{
    auto bit = static_cast<uint32_t>((hashed >> 32) * hash->bitcount >> 32);
    static_cast<uint8_t *>(hash->beginnings)[bit / 8] |= static_cast<uint8_t>(1 << bit % 8);
}

void phraseadd(wordhash *hash, const char *word)
{
    uint64_t hashed = 0;
    for (uint32_t letters = 0; *word; word++) {
        if (*word == ' ') continue;
        hashed = hashletter(hashed, *word);
        if (++letters >= BEGINLETTERS) beginningadd(hash, hashed);
    }
}

void slotadd(wordhash *hash, uint32_t wordn, uint64_t hashed)
{
    auto *slots = static_cast<uint32_t *>(hash->slots);
    uint32_t slot = slotfirst(hash, hashed);
    while (slots[slot])
        if (++slot == hash->slotcount) slot = 0;
    slots[slot] = slotmark(hash, hashed) | (wordn + 1);
}

// The beginnings that it shares with the word before are there already.
errorblock *wordadd(hashing *making, const tablewalk &walk)
{
    wordhash *hash = making->hash;
    const char *word = walk.at.word;
    int32_t behind = making->textsize + static_cast<int32_t>(walk.letters);
    errorblock *err = flex_chunk(&hash->texts, behind + WORDSIZE, std::max(GROWTH, behind / 4));
    if (err) return err;
    memcpy(static_cast<char *>(hash->texts) + making->textsize, word, WORDSIZE);
    static_cast<wordrow *>(hash->rows)[walk.at.wordn] = {static_cast<uint32_t>(making->textsize),
                                                         walk.at.woff};
    making->textsize = behind;
    for (uint32_t i = walk.shared; i < walk.letters; i++) {
        making->beginnings[i + 1] = hashletter(making->beginnings[i], word[i]);
        if (i + 1 >= BEGINLETTERS) beginningadd(hash, making->beginnings[i + 1]);
    }
    if (walk.spaces) phraseadd(hash, word);
    slotadd(hash, walk.at.wordn, making->beginnings[walk.letters]);
    return nullptr;
}

bool sameletters(const char *a, const char *b, uint32_t letters)
{
    for (uint32_t i = 0; i < letters; i++)
        if (collation.fold[static_cast<uint8_t>(a[i])] !=
            collation.fold[static_cast<uint8_t>(b[i])])
            return false;
    return true;
}

} // namespace

errorblock *hashmake(const Dictionary *dict, wordhash *hash, bool *sound)
{
    tablewalk walk = walkstart(dict);
    hashing making = {.hash = hash, .beginnings = {}, .textsize = 0};
    errorblock *err = blocksmake(dict, hash);
    while (!err && walknext(&walk))
        err = wordadd(&making, walk);
    *sound = walk.sound;
    if (!err) err = flex_extend(&hash->texts, making.textsize + WORDSIZE);
    if (!err && walk.sound) {
        hash->count = dict->nwords;
        hash->spaces = walk.spaces;
        static_cast<wordrow *>(hash->rows)[hash->count] = {static_cast<uint32_t>(making.textsize),
                                                           walk.at.woff + walk.at.len};
    }
    int64_t all = hashbytes(hash) + LISTBYTES * dict->nwords + making.textsize;
    if (!err && all > TABLEBYTES * dict->nwords) err = makeerror(ERRORMEMORY);
    if (err || !walk.sound) hashfree(hash);
    return err;
}

void hashfree(wordhash *hash)
{
    for (flexptr *anchor : {&hash->slots, &hash->rows, &hash->texts, &hash->beginnings})
        flex_free(anchor);
    *hash = {};
}

int64_t hashbytes(const wordhash *hash)
{
    int64_t bytes = 0;
    for (const flexptr *anchor : {&hash->slots, &hash->rows, &hash->texts, &hash->beginnings}) {
        int32_t size = 0;
        if (*anchor) flex_size(anchor, &size);
        bytes += size;
    }
    return bytes;
}

uint32_t hashfind(const wordhash *hash, const char *word, uint32_t letters, uint64_t hashed)
{
    const auto *slots = static_cast<const uint32_t *>(hash->slots);
    uint32_t mark = slotmark(hash, hashed), numbers = (1u << hash->numberbits) - 1;
    for (uint32_t slot = slotfirst(hash, hashed); slots[slot];) {
        uint32_t wordn = (slots[slot] & numbers) - 1;
        if ((slots[slot] & ~numbers) == mark) {
            const wordrow *row = hashrow(hash, wordn);
            if (row[1].text - row->text == letters &&
                sameletters(hashtext(hash, row), word, letters))
                return wordn;
        }
        if (++slot == hash->slotcount) slot = 0;
    }
    return NOHASHED;
}
