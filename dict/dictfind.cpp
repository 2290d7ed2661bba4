#include "dict/collation.h"
#include "dict/dictfast.h"
#include "dict/dictindex.h"
#include "dict/wordhash.h"
#include "dict/wordtables.h"

#include <algorithm>
#include <cstring>

namespace
{

// A key has no terminator when it is full: the compare must end with the last
// letter in it that counts.
int keycompare(const char *word, const dictindex *entry, int32_t letters, uint32_t options)
{
    if (options & (FINDHYPHENS | fastfind))
        letters -= static_cast<int32_t>(
            std::count(entry->word, entry->word + letters, options & FINDHYPHENS ? '-' : ' '));
    return wordcompare(word, entry->word, letters, &options);
}

// Where, from a letter on, the words cease to agree but for case; WORDLENGTH
// when they don't.
uint32_t agreeing(const char *a, const char *b, uint32_t from)
{
    while (from < WORDLENGTH && a[from] &&
           collation.fold[static_cast<uint8_t>(a[from])] ==
               collation.fold[static_cast<uint8_t>(b[from])])
        from++;
    return from;
}

int letterorder(const char *a, const char *b, uint32_t at)
{
    if (at == WORDLENGTH) return 0;
    return collation.sort[static_cast<uint8_t>(a[at])] -
           collation.sort[static_cast<uint8_t>(b[at])];
}

// How the sought word stands to that of the cursor, whose record shares so many
// letters with the one before. The sought word is above that one and agrees
// with it in *matched letters: one that shares more is below by the same letter.
int standing(const char *word, const dictcursor *at, uint32_t shared, uint32_t *matched,
             uint32_t *flags)
{
    if (*flags & FINDHYPHENS) return wordcompare(word, at->word, WORDLENGTH, flags);
    if (shared > *matched) return 1;
    *matched = agreeing(word, at->word, shared);
    return letterorder(word, at->word, *matched);
}

// The last entry whose first letters stand below those of its own word by number.
uint32_t entrybelow(const char *word, uint32_t wordn, const Dictionary *dict)
{
    const dictindex *entries = dictentries(dict);
    const dictindex *entry = std::upper_bound(
        entries + 1, entries + dict->noindex, wordn,
        [](uint32_t number, const dictindex &other) { return number < other.wordn; });
    do
        entry--;
    while (entry > entries && keycompare(word, entry, INDEXLETTERS, 0) == 0);
    return static_cast<uint32_t>(entry - entries);
}

// The cursor to a word from the hash; false, and an untouched cursor, when there is
// no such word.
bool findhashed(const char *word, const Dictionary *dict, const wordhash *hash, dictcursor *cursor)
{
    uint32_t letters = 0;
    uint64_t hashed = 0;
    for (; word[letters]; letters++) {
        if (letters == WORDLENGTH) return false; // a longer one may be found all the same
        hashed = hashletter(hashed, word[letters]);
    }
    uint32_t wordn = hashfind(hash, word, letters, hashed);
    if (wordn == NOHASHED) return false;
    const wordrow *row = hashrow(hash, wordn);
    memcpy(cursor->word, hashtext(hash, row), WORDSIZE);
    cursor->word[letters] = 0;
    cursor->woff = row->woff;
    cursor->indexn = entrybelow(word, wordn, dict);
    cursor->wordn = wordn;
    cursor->len = row[1].woff - row->woff;
    return true;
}

} // namespace

// A run of long words may share its first letters over more than one entry:
// hence the steps back from an equal one.
uint32_t dictentrybelow(const char *word, int32_t letters, const Dictionary *dict, uint32_t options)
{
    const dictindex *entries = dictentries(dict);
    int32_t low = 0, high = static_cast<int32_t>(dict->noindex) - 1, middle = 0;
    int order = 0;
    while (low <= high) {
        middle = (low + high) / 2;
        order = keycompare(word, entries + middle, letters, options);
        if (order == 0) break;
        if (order < 0)
            high = middle - 1;
        else
            low = middle + 1;
    }
    while (order <= 0 && middle > 0)
        order = keycompare(word, entries + --middle, letters, options);
    return static_cast<uint32_t>(middle);
}

bool dictfind(const char *word, const Dictionary *dict, dictcursor *cursor, uint32_t *flags)
{
    *flags &= FINDOPTIONS;
    if (dictisempty(dict)) {
        *cursor = {};
        return false;
    }
    const wordhash *hash = *flags & FINDHYPHENS ? nullptr : hashwords(dict, 1);
    if (hash && *flags & fastfind) {
        if (!hash->spaces) return dictfasthashed(word, dict, hash, flags);
    } else if (hash && findhashed(word, dict, hash, cursor)) {
        return !wordcompare(word, cursor->word, WORDLENGTH, flags);
    }
    uint32_t entryn = dictentrybelow(word, INDEXLETTERS, dict, *flags);
    if (*flags & fastfind) return dictfastscan(word, dict, entryn, flags);
    dictcursor at, below;
    dictfromentry(entryn, dict, &at);
    uint32_t matched = 0;
    int order = standing(word, &at, 0, &matched, flags);
    below = at;
    while (order > 0) {
        below = at;
        if (!dictnext(dict, &at)) break;
        order = standing(word, &at, *dictrecord(dict, at.woff), &matched, flags);
    }
    *cursor = order ? below : at;
    return !order && !wordcompare(word, at.word, WORDLENGTH, flags);
}
