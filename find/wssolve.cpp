#include "find/wssolve.h"

#include "base/chars.h"
#include "base/trace.h"
#include "dict/dictset.h"
#include "find/findwindow.h"
#include "find/openings.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "find/wordindicts.h"
#include "grid/grid.h"

#include <algorithm>

namespace
{

// The letters from a cell on, lower-cased, up to the edge, to a cell that is
// marked or holds no letter, or to the longest word's length.
int32_t linecollect(int32_t x, int32_t y, int32_t dx, int32_t dy, char *letters)
{
    int32_t n = 0;
    for (; n < WORDLENGTH && gridinside(x, y); n++, x += dx, y += dy) {
        uint8_t letter = charlower(grid.letters[x][y]);
        if ((grid.flags[x][y] & CELLKIND) != CELLOPEN) break;
        if (letter < 'a' || letter > 'z') break;
        letters[n] = static_cast<char>(letter);
    }
    return n;
}

void cellsolve(int32_t x, int32_t y)
{
    for (int32_t dx = -1; dx <= 1; dx++)
        for (int32_t dy = -1; dy <= 1; dy++)
            if (dx || dy) wssolveline(x, y, dx, dy);
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
    openingsmake(); // without it the search is slower, no more
    squaresolve();
    openingsfree();
    trace("solve1");
    searchbusy(false);
    searchend();
    solrecount();
    trace("solve2");
    solsort();
    solutionsrefresh();
    return nullptr;
}

void wssolveline(int32_t x, int32_t y, int32_t dx, int32_t dy)
{
    char letters[WORDSIZE];
    int32_t n = linecollect(x, y, dx, dy, letters);
    if (n >= OPENINGLETTERS) n = std::min(n, std::max(openinglongest(letters), OPENINGLETTERS - 1));
    for (; n >= std::max(grid.minwordlength, 1); n--) {
        letters[n] = 0;
        if (!wordindicts(letters)) continue;
        // A word that memory is too short for is passed over.
        if (!soladdword(x, y, dx, dy, letters)) solprogress(solutions.count);
        return;
    }
}
