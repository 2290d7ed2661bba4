#include "find/wssolve.h"

#include "base/chars.h"
#include "base/trace.h"
#include "dict/dictset.h"
#include "dict/wordhash.h"
#include "dict/wordtables.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "find/wordindicts.h"
#include "find/wsmake.h"
#include "grid/grid.h"

#include <algorithm>

namespace
{

// The hashes of the dictionaries in use, some of which may have none: what words begin
// with is known if all have. Good until the next poll.
struct wordsknown {
    const wordhash *hashes[MAXDICTS];
    uint32_t count;
    bool beginnings;
};

wordsknown knownwords(uint32_t lookups)
{
    wordsknown known = {.hashes = {}, .count = dictset.count, .beginnings = true};
    for (uint32_t i = 0; i < known.count; i++) {
        known.hashes[i] = hashwords(&dicts[dictset.numbers[i]].dict, lookups);
        known.beginnings &= known.hashes[i] != nullptr;
    }
    return known;
}

bool maybegin(const wordsknown &known, uint64_t hashed)
{
    for (uint32_t i = 0; i < known.count; i++)
        if (hashbegins(known.hashes[i], hashed)) return true;
    return false;
}

// Cells from one on to the edge, by one side's step.
int32_t cellsleft(int32_t at, int32_t step, int32_t side)
{
    return step > 0 ? side - at : step < 0 ? at + 1 : WORDLENGTH;
}

// The letters from a cell on, lower-cased, up to the edge, to a cell that is
// marked or holds no letter, to the longest word's length, or to where no word
// goes on so.
int32_t linecollect(const wordsknown &known, int32_t x, int32_t y, wsstep step, char *letters)
{
    int32_t left = std::min(
        {cellsleft(x, step.dx, grid.width), cellsleft(y, step.dy, grid.height), WORDLENGTH});
    if (left < grid.minwordlength) return 0;
    int32_t n = 0;
    uint64_t hashed = 0;
    for (; n < left; n++, x += step.dx, y += step.dy) {
        uint8_t letter = asciilower(grid.letters[x][y]);
        if ((grid.flags[x][y] & CELLKIND) != CELLOPEN) break;
        if (letter < 'a' || letter > 'z') break;
        letters[n] = static_cast<char>(letter);
        hashed = hashletter(hashed, letters[n]);
        if (n + 1 >= static_cast<int32_t>(BEGINLETTERS) && known.beginnings &&
            !maybegin(known, hashed))
            break;
    }
    return n;
}

// Examines the line of letters from a cell: adds the word that it finds.
void linesolve(const wordsknown &known, int32_t x, int32_t y, wsstep step)
{
    char letters[WORDSIZE];
    int32_t n = linecollect(known, x, y, step, letters);
    for (; n >= std::max(grid.minwordlength, 1); n--) {
        letters[n] = 0;
        if (!wordindicts(letters)) continue;
        // A word that memory is too short for is passed over.
        if (!soladdword(x, y, step.dx, step.dy, letters)) solprogress(solutions.count);
        return;
    }
}

void cellsolve(int32_t x, int32_t y)
{
    wordsknown known = knownwords(0);
    for (int32_t dx = -1; dx <= 1; dx++)
        for (int32_t dy = -1; dy <= 1; dy++)
            if (dx || dy) linesolve(known, x, y, {dx, dy});
}

void squaresolve()
{
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++) {
            cellsolve(x, y);
            if (search.stopflag) return;
            searchpoll();
        }
}

} // namespace

errorblock *wssolve()
{
    if (dictdefault()) return nullptr;
    solreset();
    solwordslayout();
    errorblock *err = searchlater(wssolverun);
    solutionsrefresh();
    return err;
}

errorblock *wssolverun(intptr_t)
{
    searchbegin();
    searchbusy(true);
    knownwords(static_cast<uint32_t>(grid.width * grid.height * WSDIRECTIONS));
    squaresolve();
    trace("solve1");
    searchbusy(false);
    searchend();
    solrecount();
    trace("solve2");
    solsort();
    solutionsrefresh();
    return nullptr;
}
