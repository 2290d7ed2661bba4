#include "find/solve.h"

#include "base/chars.h"
#include "base/errorcodes.h"
#include "base/errors.h"
#include "find/findwindow.h"
#include "find/slotmatch.h"
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

constexpr uint32_t POLLWORDS = 2049; // words between two polls that are counted

// What a poll lets in can lower slotcount under the search.
bool lastslot(const level &at)
{
    return at.slot >= solutions.slotcount - 1;
}

// A poll can also let a document of the other kind in: its list takes no
// references, and the search ends as for Stop.
bool gridgone()
{
    return grid.kind != search.kind;
}

// Short memory is no end: the search goes on with the list as it is.
void solutionadd(int32_t last)
{
    if (gridgone()) return;
    for (int32_t slot = last; slot >= 0; slot--)
        soladdref(search.slots[slot].word, slot);
}

bool limitpassed()
{
    return solutions.count > solutions.maxsolutions;
}

// A word fits the slot: it completes a solution, or stands in the grid while
// the later slots are searched.
void wordfits(level *at, slotmatch *match, uint32_t dictn)
{
    search.slots[at->slot].word = makewordref(dictn, match->wordn);
    if (lastslot(*at)) {
        solutionadd(at->slot);
        if (limitpassed()) at->counter = -1;
        return;
    }
    slotwrite(at->slot, matchtext(match));
    at->counter = solveslot(at->slot + 1);
    slotwrite(at->slot, at->pattern);
}

// Counts words that were looked at or passed over; true when their number came
// to POLLWORDS on the way.
bool wordscounted(level *at, uint32_t words)
{
    if (at->counter < 0) return false;
    uint32_t sum = static_cast<uint32_t>(at->counter) + words;
    at->counter = static_cast<int32_t>(sum % POLLWORDS);
    return sum >= POLLWORDS;
}

void stopobeyed(level *at)
{
    if (search.stopflag || gridgone()) at->counter = -1;
}

// Counts leave seconds between two polls where much is tried for few words.
void polldue(level *at)
{
    if (searchpolldue()) searchpoll();
    stopobeyed(at);
}

void fullcounted(level *at, uint32_t words)
{
    if (!wordscounted(at, words)) return;
    searchpoll();
    stopobeyed(at);
}

// The pattern begins with an unknown letter: every word is tried, with its
// spaces as they are. Polls may not change words.
int32_t fullscan(level *at, uint32_t dictn)
{
    const Dictionary *dict = &dicts[dictn].dict;
    slotmatch match;
    uint32_t counted = 0;
    if (dictisempty(dict)) return at->counter;
    matchfull(dict, at->pattern, &match);
    while (matchnext(&match)) {
        uint32_t wordn = match.wordn;
        fullcounted(at, wordn - counted);
        if (at->counter < 0) return -1;
        wordfits(at, &match, dictn);
        fullcounted(at, 1);
        if (at->counter < 0) return -1;
        counted = wordn + 1;
    }
    fullcounted(at, dictcount(dict) - counted);
    return at->counter;
}

// The pattern begins with letters that are known, or has none: words are tried
// from the first one on that these letters allow, each without its spaces. The
// counter is this scan's own; it only polls when a poll is due.
int32_t solveprefix(level at, uint32_t dictn, int32_t prefix)
{
    const Dictionary *dict = &dicts[dictn].dict;
    slotmatch match;
    at.counter = 0;
    if (dictisempty(dict)) return 0;
    matchprefix(dict, at.pattern, prefix, &match);
    uint32_t counted = match.first;
    for (bool more = true; more; counted = match.wordn) {
        more = matchnext(&match);
        if (wordscounted(&at, match.wordn - counted)) polldue(&at);
        if (at.counter < 0) return at.counter;
        if (more) wordfits(&at, &match, dictn);
    }
    return at.counter;
}

// The pattern is a word already. A -1 from the later slots doesn't end the walk
// over the dictionaries.
bool wholeword(level *at, uint32_t dictn)
{
    uint32_t wordn;
    if (!matchword(&dicts[dictn].dict, at->pattern, &wordn)) return true;
    search.slots[at->slot].word = makewordref(dictn, wordn);
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
                  : full ? fullscan(at, dictn) >= 0
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
    if (searchpolldue()) {
        searchpoll();
        stopobeyed(&at);
        if (at.counter < 0) return -1;
    }
    return solvedicts(&at);
}

errorblock *solvestart()
{
    if (search.running) return nullptr;
    errorblock *err = slotsbegin();
    if (err) return err;
    err = solutions.slotcount ? searchlater(solverun) : makeerror(ENTS);
    solutionsrefresh();
    return err;
}

errorblock *solverun(intptr_t)
{
    if (search.running) return nullptr;
    searchbegin();
    search.running = 1;
    searchbusy(true);
    solveslot(0);
    searchbusy(false);
    search.running = 0;
    searchend();
    solutionsrefresh();
    return nullptr;
}
