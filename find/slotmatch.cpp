#include "find/slotmatch.h"

#include "base/chars.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace
{

using bytes16 [[gnu::vector_size(16)]] = uint8_t;
constexpr uint32_t SPANWORDS = 64; // that are read to get to a word at least
constexpr uint32_t PAGEVECTORS = PAGEWORDS / sizeof(bytes16);

// A bit for each byte of the page, which are 0 or 255.
uint64_t pagebits(const bytes16 *bytes)
{
    uint64_t bits = 0;
    for (uint32_t i = 0; i < PAGEWORDS / 8; i++) {
        uint64_t eight;
        memcpy(&eight, reinterpret_cast<const uint8_t *>(bytes) + i * 8, 8);
        bits |= (eight & 0x8040201008040201u) * 0x0101010101010101u >> 56 << i * 8;
    }
    return bits;
}

// The rows of a page whose letters are those that are wanted.
uint64_t pagefits(const slotmatch &match, uint32_t page)
{
    bytes16 fit[PAGEVECTORS];
    memset(fit, 255, sizeof fit);
    for (int32_t n = 0; n < match.wanted; n++) {
        const uint8_t *column = pageletters(match.list, page, match.letters[n].place);
        bytes16 any = {};
        for (uint32_t i = 0; i < PAGEVECTORS; i++) {
            bytes16 letters;
            memcpy(&letters, column + i * sizeof letters, sizeof letters);
            fit[i] &= static_cast<bytes16>((letters == match.letters[n].upper) |
                                           (letters == match.letters[n].lower));
            any |= fit[i];
        }
        uint64_t halves[2];
        memcpy(halves, &any, sizeof halves);
        if (!(halves[0] | halves[1])) return 0;
    }
    return pagebits(fit);
}

void letterswant(slotmatch *match)
{
    for (int32_t i = 0; i < match->length; i++) {
        auto letter = static_cast<uint8_t>(match->pattern[i]);
        if (letter != ' ')
            match->letters[match->wanted++] = {static_cast<uint8_t>(i), charupper(letter),
                                               charlower(letter)};
    }
}

bool fits(const slotmatch &match, const char *word)
{
    for (int32_t i = 0; i < match.length; i++) {
        auto want = static_cast<uint8_t>(match.pattern[i]);
        if (want != ' ' && charupper(want) != charupper(static_cast<uint8_t>(word[i])))
            return false;
    }
    return true;
}

// A word of the slot's length that does not fit ends a prefix scan when its known
// letters differ from the pattern's and, as stored, are above them.
bool passed(const slotmatch &match, const char *stored, const char *closed)
{
    uint32_t flags = 0;
    bool differs = false;
    for (int32_t i = 0; i < match.known && !differs; i++)
        differs = charupper(static_cast<uint8_t>(match.pattern[i])) !=
                  charupper(static_cast<uint8_t>(closed[i]));
    return differs && wordcompare(match.pattern, stored, match.known, &flags) < 0;
}

void closedup(const char *word, char *out)
{
    for (; *word; word++)
        if (*word != ' ') *out++ = *word;
    *out = 0;
}

// The row that ends a prefix scan, from a row on. Phrases do not stand where their
// letters would: where there are any, row after row is looked at.
uint32_t endrow(const slotmatch &match, uint32_t row)
{
    const lengthlist *list = match.list;
    if (!match.known) return list->count;
    if (!list->mixed) return std::max(row, rowbound(list, match.pattern, match.known, true));
    for (; row < list->count; row++) {
        uint32_t number = pagenumbers(list, row / PAGEWORDS)[row % PAGEWORDS];
        char closed[WORDSIZE];
        if (!(number & ROWCLOSED)) continue;
        rowtext(list, row, closed);
        const char *stored = number & ROWSTORED ? closed : dictword(number & ROWNUMBER, match.dict);
        if (passed(match, stored, closed)) break;
    }
    return row;
}

// The first row of a word, or of one behind it.
uint32_t rowofword(const lengthlist *list, uint32_t wordn)
{
    uint32_t low = 0, high = list->count;
    while (low < high) {
        uint32_t middle = (low + high) / 2;
        if ((pagenumbers(list, middle / PAGEWORDS)[middle % PAGEWORDS] & ROWNUMBER) < wordn)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

void rowsstart(slotmatch *match)
{
    uint32_t row = match->first ? rowofword(match->list, match->first) : 0;
    match->version = match->dict->version;
    match->end = endrow(*match, row);
    letterswant(match);
    match->page = row / PAGEWORDS;
    if (row < match->end)
        match->fits = pagefits(*match, match->page) & ~uint64_t{0} << row % PAGEWORDS;
}

void matchstart(const Dictionary *dict, const char *pattern, uint32_t words, slotmatch *match)
{
    match->dict = dict;
    match->pattern = pattern;
    match->length = static_cast<int32_t>(strlen(pattern));
    match->list = lengthwords(dict, match->length, words);
    match->version = match->row = match->page = match->end = 0;
    match->wanted = match->known = 0;
    match->fits = 0;
}

// Whether the tables are still those that the match was begun with.
bool rowsgood(const slotmatch &match)
{
    return match.dict->tables && match.dict->version == match.version;
}

// The word at which the scan ended: of the row behind the range, or the store's last.
bool rowsend(slotmatch *match)
{
    const lengthlist *list = match->list;
    match->fits = 0;
    match->wordn =
        match->end < list->count
            ? pagenumbers(list, match->end / PAGEWORDS)[match->end % PAGEWORDS] & ROWNUMBER
            : dictcount(match->dict) - 1;
    return false;
}

bool rownext(slotmatch *match)
{
    if (!rowsgood(*match)) return false;
    for (;;) {
        while (!match->fits) {
            if ((match->page + 1) * PAGEWORDS >= match->end) return rowsend(match);
            match->fits = pagefits(*match, ++match->page);
        }
        auto bit = static_cast<uint32_t>(std::countr_zero(match->fits));
        match->fits &= match->fits - 1;
        match->row = match->page * PAGEWORDS + bit;
        if (match->row >= match->end) return rowsend(match);
        uint32_t number = pagenumbers(match->list, match->page)[bit];
        match->wordn = number & ROWNUMBER;
        if (number & match->flag) return true;
    }
}

// The records one by one.
bool recordnext(slotmatch *match)
{
    while (match->cursor.len) {
        dictcursor at = match->cursor;
        const char *word = at.word;
        if (match->flag == ROWCLOSED) {
            closedup(at.word, match->word);
            word = match->word;
        }
        bool right = strlen(word) == static_cast<size_t>(match->length);
        if (right) match->wordn = at.wordn;
        if (right && match->known && passed(*match, at.word, word)) {
            match->cursor.len = 0;
            return false;
        }
        dictnext(match->dict, &match->cursor);
        if (!right || !fits(*match, word)) continue;
        memmove(match->word, word, static_cast<size_t>(match->length) + 1);
        return true;
    }
    match->wordn = dictcount(match->dict) - 1;
    return false;
}

} // namespace

void matchfull(const Dictionary *dict, const char *pattern, slotmatch *match)
{
    matchstart(dict, pattern, dictcount(dict), match);
    match->flag = ROWSTORED;
    match->first = 0;
    if (match->list)
        rowsstart(match);
    else
        dictfromentry(0, dict, &match->cursor);
}

void matchprefix(const Dictionary *dict, const char *pattern, int32_t known, slotmatch *match)
{
    // Each letter that is known leaves a sixteenth of the words, or so.
    uint32_t words = dictcount(dict) >> std::min(4 * known, 31);
    matchstart(dict, pattern, std::max(words, SPANWORDS), match);
    match->flag = ROWCLOSED;
    match->known = std::min(known, INDEXLETTERS);
    uint32_t entry = known ? dictentrybelow(pattern, match->known, dict, 0) : 0;
    match->first = static_cast<const dictindex *>(dict->index)[entry].wordn;
    if (match->list)
        rowsstart(match);
    else
        dictfromentry(entry, dict, &match->cursor);
}

bool matchnext(slotmatch *match)
{
    return match->list ? rownext(match) : recordnext(match);
}

const char *matchtext(slotmatch *match)
{
    if (match->list) rowtext(match->list, match->row, match->word);
    return match->word;
}

bool matchword(const Dictionary *dict, const char *pattern, uint32_t *wordn)
{
    auto length = static_cast<int32_t>(strlen(pattern));
    const lengthlist *list = lengthmade(dict, length);
    if (list && !list->mixed) {
        uint32_t row = rowbound(list, pattern, length, false);
        if (row == rowbound(list, pattern, length, true)) return false;
        *wordn = pagenumbers(list, row / PAGEWORDS)[row % PAGEWORDS] & ROWNUMBER;
        return true;
    }
    uint32_t flags = 0;
    dictcursor cursor;
    if (!dictfind(pattern, dict, &cursor, &flags)) return false;
    *wordn = cursor.wordn;
    return true;
}
