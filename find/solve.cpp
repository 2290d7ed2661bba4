#include "find/solve.h"

#include "base/chars.h"
#include "base/errorcodes.h"
#include "base/errors.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "grid/grid.h"

#include <algorithm>
#include <cstring>

namespace
{

// One slot's part of the search. The counter runs over the words looked at, and
// is -1 when the search is to unwind.
struct level {
    int32_t slot;
    char pattern[WORDSIZE];
    int32_t length;
    int32_t counter;
};

constexpr int32_t POLLWORDS = 2048; // words between two polls

bool lastslot(const level &at)
{
    return at.slot == solutions.slotcount - 1;
}

// Short memory is no end: the search goes on with the list as it is.
void solutionadd(int32_t last)
{
    for (int32_t slot = last; slot >= 0; slot--)
        soladdref(search.slots[slot].word, slot);
}

bool limitpassed()
{
    return solutions.count > solutions.maxsolutions;
}

// A word fits the slot: it completes a solution, or stands in the grid while
// the later slots are searched.
void wordfits(level *at, const char *word, wordref ref)
{
    search.slots[at->slot].word = ref;
    if (lastslot(*at)) {
        solutionadd(at->slot);
        if (limitpassed()) at->counter = -1;
        return;
    }
    slotwrite(at->slot, word);
    at->counter = solveslot(at->slot + 1);
    slotwrite(at->slot, at->pattern);
}

bool lettersfit(const level &at, const char *word, int32_t *place)
{
    for (*place = 0; *place < at.length; ++*place) {
        uint8_t want = static_cast<uint8_t>(at.pattern[*place]);
        if (want != ' ' && charupper(want) != charupper(static_cast<uint8_t>(word[*place])))
            return false;
    }
    return true;
}

// Counts one word; true every POLLWORDS words.
bool wordcounted(level *at)
{
    if (at->counter < 0 || at->counter++ != POLLWORDS) return false;
    at->counter = 0;
    return true;
}

void stopobeyed(level *at)
{
    if (search.stopflag) at->counter = -1;
}

// The pattern begins with an unknown letter: every word is tried, with its
// spaces as they are. False when the search is to unwind.
bool fullscan(level *at, uint32_t dictn)
{
    const Dictionary *dict = &dicts[dictn].dict;
    dictcursor cursor;
    if (!dictseek(0, dict, &cursor)) return true;
    do {
        int32_t place;
        if (static_cast<int32_t>(strlen(cursor.word)) == at->length &&
            lettersfit(*at, cursor.word, &place))
            wordfits(at, cursor.word, makewordref(dictn, cursor.wordn));
        if (wordcounted(at)) {
            searchpoll();
            stopobeyed(at);
        }
        if (at->counter < 0) return false;
    } while (dictnext(dict, &cursor));
    return true;
}

int32_t closedup(const char *word, char *out)
{
    int32_t n = 0;
    for (; *word; word++)
        if (*word != ' ') out[n++] = *word;
    out[n] = 0;
    return n;
}

// One word of a prefix scan; false when the words have passed the known
// letters. Only words that could fit by their length are asked.
bool prefixword(level *at, const dictcursor &cursor, uint32_t dictn, int32_t known)
{
    char word[WORDSIZE];
    int32_t place;
    if (closedup(cursor.word, word) != at->length) return true;
    if (lettersfit(*at, word, &place)) {
        wordfits(at, word, makewordref(dictn, cursor.wordn));
        return at->counter >= 0;
    }
    uint32_t flags = 0;
    return place >= known || wordcompare(at->pattern, cursor.word, known, &flags) >= 0;
}

// The pattern begins with letters that are known, or has none: words are tried
// from the first one on that these letters allow, each without its spaces. The
// counter is this scan's own; there is no poll here.
int32_t solveprefix(level at, uint32_t dictn, int32_t prefix)
{
    const Dictionary *dict = &dicts[dictn].dict;
    dictcursor cursor;
    int32_t known = std::min(prefix, INDEXLETTERS);
    at.counter = 0;
    if (dictisempty(dict)) return 0;
    uint32_t flags = 0;
    dictfromentry(known ? dictentrybelow(at.pattern, known, dict, &flags) : 0, dict, &cursor);
    while (prefixword(&at, cursor, dictn, known) && dictnext(dict, &cursor)) {
        if (wordcounted(&at)) stopobeyed(&at);
        if (at.counter < 0) break;
    }
    return at.counter;
}

// The pattern is a word already. A -1 from the later slots doesn't end the walk
// over the dictionaries.
bool wholeword(level *at, uint32_t dictn)
{
    uint32_t flags = 0;
    dictcursor cursor;
    if (!dictfind(at->pattern, &dicts[dictn].dict, &cursor, &flags)) return true;
    search.slots[at->slot].word = makewordref(dictn, cursor.wordn);
    if (lastslot(*at)) {
        solutionadd(at->slot);
        return !limitpassed();
    }
    at->counter = solveslot(at->slot + 1);
    return true;
}

// False when the search is to unwind.
bool prefixscan(level *at, uint32_t dictn, int32_t prefix)
{
    at->counter = solveprefix(*at, dictn, prefix);
    if (limitpassed()) return false;
    if (at->counter >= 0 && ++at->counter > 8) {
        searchpoll();
        at->counter = 0;
        stopobeyed(at);
    }
    return at->counter >= 0;
}

int32_t firstletter(const level &at)
{
    for (int32_t i = 0; i < at.length; i++)
        if (charisletter(static_cast<uint8_t>(at.pattern[i]))) return i;
    return -1;
}

int32_t solvedicts(level *at)
{
    const char *blank = strchr(at->pattern, ' ');
    int32_t space = blank ? static_cast<int32_t>(blank - at->pattern) : -1;
    bool full = blank && firstletter(*at) > space;
    for (uint32_t i = 0; i < dictset.count; i++) {
        uint32_t dictn = dictset.numbers[i];
        bool on = !blank ? wholeword(at, dictn)
                  : full ? fullscan(at, dictn)
                         : prefixscan(at, dictn, space);
        if (!on) return -1;
    }
    return at->counter;
}

} // namespace

int32_t solveslot(int32_t slot)
{
    level at = {.slot = slot, .pattern = {}, .length = 0, .counter = 0};
    slotread(slot, at.pattern);
    at.length = static_cast<int32_t>(strlen(at.pattern)); // a NUL in the grid cuts it short
    searchbusy(true);
    int32_t result = solvedicts(&at);
    searchbusy(false);
    return result;
}

errorblock *solvestart()
{
    errorblock *err = dictdefault();
    if (err) return err;
    markrescan();
    if (grid.markleft < 0) return makeerror(ENMW);
    solreset();
    slotsfind();
    err = solutions.slotcount ? searchlater(solverun) : makeerror(ENTS);
    solutionsrefresh();
    return err;
}

errorblock *solverun(intptr_t)
{
    searchbegin();
    solveslot(0);
    searchend();
    solutionsrefresh();
    return nullptr;
}
