// The hot path of anagrams and spelling: no cursor, and no record expanded that
// can't match. A prefix count says how many letters a word shares with the one
// before it; above what that one had in common with the sought word, both are
// rejected alike.

#include "dict/dictfast.h"

#include "dict/collation.h"
#include "dict/dictindex.h"
#include "dict/wordcodes.h"
#include "dict/wordhash.h"

#include <algorithm>
#include <cstring>

namespace
{

// The last word looked at: dictfound's, after a match.
struct {
    char text[WORDSIZE];
    uint32_t length;
    const uint8_t *behind;
} fast;

struct scan {
    char ignored;
    char sought[WORDSIZE + 1]; // without the ignored characters
    const uint8_t *at;         // the next byte to read
    uint32_t matched;          // letters of fast.text that agree, ignored ones included
    uint32_t exact;            // how many of them from the front in the same case
    uint32_t used;             // letters of sought that they used up
};

// A word of 32 letters or more is cut to 32, one more than any stored one has.
void scanfor(scan *scan, const char *word)
{
    char *end = scan->sought, *last = scan->sought + WORDSIZE;
    for (; *word && end < last; word++)
        if (*word != scan->ignored) *end++ = *word;
    *end = 0;
}

constexpr int GOON = -1, PASSED = 1;

// Compares the letters of fast.text that are not yet matched. 0 when all agree,
// PASSED when the store is beyond the place of the sought word, else GOON. A
// word with ignored characters stands elsewhere than its letters would: after
// one, nothing is known of that place.
int scanmatch(scan *scan)
{
    while (scan->matched < fast.length) {
        auto letter = static_cast<uint8_t>(fast.text[scan->matched]);
        auto wanted = static_cast<uint8_t>(scan->sought[scan->used]);
        bool ignored = letter == static_cast<uint8_t>(scan->ignored);
        bool same = ignored || letter == wanted;
        if (!same && collation.fold[letter] != collation.fold[wanted]) {
            if (scan->used < scan->matched) return GOON;
            return collation.sort[letter] < collation.sort[wanted] ? GOON : PASSED;
        }
        if (same && scan->exact == scan->matched) scan->exact++;
        if (!ignored) scan->used++;
        scan->matched++;
    }
    return 0;
}

// The rest of a record while it agrees; as scanmatch.
int scanrecord(scan *scan)
{
    int order = scanmatch(scan);
    while (order == 0 && *scan->at >= ESCAPECODE) {
        scan->at = codeexpand(scan->at, fast.text, &fast.length);
        order = scanmatch(scan);
    }
    return order;
}

// From inside a rejected record to the codes of the next that may match: that
// is behind the next byte that is no code and not above matched. The heads
// that are above it pass for codes.
void scanskip(scan *scan)
{
    uint32_t shared = std::min<uint32_t>(scan->matched, ESCAPECODE - 1);
    const uint8_t *at = scan->at;
    while (*at > shared)
        if (*at++ == ESCAPECODE && *at) [[unlikely]]
            at++;
    fast.length = *at;
    scan->at = at + 1;
    bool plain = scan->used == scan->matched; // nothing ignored so far
    scan->matched = fast.length;
    scan->exact = std::min(scan->exact, scan->matched);
    scan->used = scan->matched;
    if (!plain)
        scan->used -=
            static_cast<uint32_t>(std::count(fast.text, fast.text + scan->matched, scan->ignored));
}

} // namespace

bool dictfastscan(const char *word, const Dictionary *dict, uint32_t entryn, uint32_t *flags)
{
    const dictindex *entry = &dictentries(dict)[entryn];
    scan scan = {};
    scan.ignored = *flags & FINDHYPHENS ? '-' : ' ';
    scanfor(&scan, word);
    scan.at = dictrecord(dict, entry->woff);
    fast.length = *scan.at++;
    memcpy(fast.text, entry->word, INDEXLETTERS);
    while (*scan.at) { // 0 in the place of a first code: the end
        int order = scanrecord(&scan);
        if (order == PASSED) return false;
        if (order == 0 && !scan.sought[scan.used]) {
            fast.behind = scan.at;
            if (scan.exact != scan.matched) *flags |= FINDCASEDIFFERS;
            return true;
        }
        scanskip(&scan);
    }
    return false;
}

bool dictfasthashed(const char *word, const Dictionary *dict, const wordhash *hash, uint32_t *flags)
{
    char sought[WORDSIZE];
    uint32_t letters = 0;
    uint64_t hashed = 0;
    for (; *word; word++) {
        if (*word == ' ') continue;
        if (letters == WORDLENGTH) return false;
        sought[letters++] = *word;
        hashed = hashletter(hashed, *word);
    }
    uint32_t wordn = hashfind(hash, sought, letters, hashed);
    if (wordn == NOHASHED) return false;
    const wordrow *row = hashrow(hash, wordn);
    memcpy(fast.text, hashtext(hash, row), WORDSIZE);
    fast.length = letters;
    fast.behind = dictrecord(dict, row[1].woff);
    if (memcmp(fast.text, sought, letters) != 0) *flags |= FINDCASEDIFFERS;
    return true;
}

const uint8_t *dictfound(char *out)
{
    memcpy(out, fast.text, fast.length);
    out[fast.length] = 0;
    return fast.behind;
}
