// Suggestions for a misspelt word.

#include "base/chars.h"
#include "dict/dictset.h"
#include "find/spell.h"

#include <cstring>

namespace
{

// Candidates are tried in letter positions up to this one; longer words rely on
// the near matches for their later letters.
constexpr size_t TRIEDLETTERS = 3;

bool sameletter(char a, char b)
{
    return charupper(static_cast<uint8_t>(a)) == charupper(static_cast<uint8_t>(b));
}

const Dictionary *dictused(uint32_t i)
{
    return &dicts[dictset.numbers[i]].dict;
}

// Short memory loses the candidate.
void accept(const char *word)
{
    dictadd(word, &spell.guessstore);
}

// Adds the stored form of w from the dictionaries that hold it: from the first
// alone, or from all.
void trial(const char *w, bool all)
{
    dictcursor cursor;
    for (uint32_t i = 0; i < dictset.count; i++) {
        uint32_t flags = fastfind;
        if (!dictfind(w, dictused(i), &cursor, &flags)) continue;
        char stored[WORDSIZE];
        dictfound(stored);
        accept(stored);
        if (!all) return;
    }
}

// From each dictionary the word before where this one would stand, or the word
// behind, if its first letter is the same.
void neighbours(const char *word)
{
    for (uint32_t i = 0; i < dictset.count; i++) {
        uint32_t flags = 0;
        dictcursor cursor;
        dictfind(word, dictused(i), &cursor, &flags);
        if (!dictcount(dictused(i))) continue;
        if (sameletter(cursor.word[0], word[0]))
            accept(cursor.word);
        else if (dictnext(dictused(i), &cursor) && sameletter(cursor.word[0], word[0]))
            accept(cursor.word);
    }
}

void exchanges(const char *word, size_t n)
{
    char w[WORDSIZE + 1];
    for (size_t i = 0; i + 1 < n; i++) {
        strcpy(w, word);
        w[i] = word[i + 1];
        w[i + 1] = word[i];
        trial(w, false);
    }
}

void deletions(const char *word, size_t n)
{
    char w[WORDSIZE + 1];
    for (size_t i = 0; n > 1 && i < n; i++) {
        memcpy(w, word, i);
        strcpy(w + i, word + i + 1);
        trial(w, false);
    }
}

void insertions(const char *word, size_t last)
{
    char w[WORDSIZE + 1];
    for (size_t p = 0; p <= last; p++) {
        memcpy(w, word, p);
        strcpy(w + p + 1, word + p);
        for (char letter = 'a'; letter <= 'z'; letter++) {
            w[p] = letter;
            trial(w, true);
        }
    }
}

// The first letter stays. In a word of fewer than four letters the last
// position is the one behind it, so that a letter is appended.
void replacements(const char *word, size_t n, size_t last)
{
    char w[WORDSIZE + 1];
    for (size_t p = 1; p <= last; p++) {
        strcpy(w, word);
        if (p == n) w[p + 1] = 0;
        for (char letter = 'a'; letter <= 'z'; letter++) {
            w[p] = letter;
            trial(w, true);
        }
    }
}

void nearmatches(const char *word)
{
    char opening[WORDSIZE];
    memcpy(opening, word, 3);
    opening[3] = 0;
    for (uint32_t i = 0; i < dictset.count; i++) {
        uint32_t flags = 0;
        dictcursor cursor;
        if (!dictcount(dictused(i))) continue;
        dictfind(opening, dictused(i), &cursor, &flags);
        guessscan(word, dictused(i), &cursor);
    }
}

// The letter behind this one equals other; nothing is behind a word's end.
bool nextis(const char *at, char other)
{
    return *at && at[1] == other;
}

// Compares a stored word with the sought one, allowing one letter to be skipped
// on each side, or one to be replaced. Returns how many places of the stored
// word were matched on the way; *near says that the words agree.
uint32_t compare(const char *stored, const char *sought, bool *near)
{
    uint32_t matched = 0;
    bool skipstored = false, skipsought = false;
    *near = false;
    for (;;) {
        if (sameletter(*stored, *sought)) {
            if (!*stored) {
                *near = true;
                return matched;
            }
            stored++;
            sought++;
            matched++;
        } else if (skipstored && skipsought) {
            return matched;
        } else if (!skipstored && nextis(stored, *sought)) {
            skipstored = true;
            stored++;
            matched++;
        } else if (!skipsought && nextis(sought, *stored)) {
            skipsought = true;
            sought++;
        } else if (skipstored || skipsought) {
            return matched;
        } else {
            matched++; // a letter replaced
            if (!*stored || !*sought) return matched;
            skipstored = skipsought = true;
            stored++;
            sought++;
        }
    }
}

} // namespace

// A record whose head is beyond what the word before it matched, and one, shares
// more with that rejected word than that word shared with the sought one: it
// can't do better, and is passed over.
void guessscan(const char *word, const Dictionary *dict, dictcursor *cursor)
{
    uint32_t matched = 32;
    do {
        if (!dictnext(dict, cursor)) return;
        const uint8_t *record = static_cast<const uint8_t *>(dict->words) + cursor->woff;
        if ((*record & 31u) > matched + 1) continue;
        bool near;
        matched = compare(cursor->word, word, &near);
        if (near) accept(cursor->word);
    } while (matched >= 3);
}

void guessmake(const char *word)
{
    size_t n = strlen(word);
    size_t last = n < TRIEDLETTERS + 1 ? n : TRIEDLETTERS;
    dictfree(&spell.guessstore);
    if (n > static_cast<size_t>(WORDLENGTH) || dictempty(&spell.guessstore)) return;
    neighbours(word);
    exchanges(word, n);
    deletions(word, n);
    insertions(word, last);
    replacements(word, n, last);
    if (n >= 4) nearmatches(word);
}
