// Grid files: any bytes as one. What was read must be a document that all walk
// over safely, and what is saved of it must read back as the same.

#include "grid/gridfile.h"
#include "base/errors.h"
#include "dict/dictset.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "tests/fuzz/fuzz.h"

#include <cstring>

namespace
{

void checkdocument()
{
    FUZZCHECK(grid.width >= 1 && grid.width <= GRIDMAX);
    FUZZCHECK(grid.height >= 1 && grid.height <= GRIDMAX);
    FUZZCHECK(grid.markleft == -1 && grid.cursorx == -1);
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++)
            FUZZCHECK((grid.flags[x][y] & CELLKIND) != CELLMARKED);
}

// A cell takes part in one word across and one down at the most.
void walkwords()
{
    char word[GRIDSTRIDE];
    int32_t cells = 0;
    for (int32_t n = 0; n < 64 && gridword(word, n); n++) {
        FUZZCHECK(std::memchr(word, 0, sizeof word));
        cells += static_cast<int32_t>(std::strlen(word));
    }
    FUZZCHECK(cells <= 2 * grid.width * grid.height);
}

void walkslots()
{
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++)
            if ((grid.flags[x][y] & CELLKIND) == CELLOPEN) grid.flags[x][y] |= CELLMARKED;
    markrescan();
    slotsfind();
    FUZZCHECK(solutions.slotcount >= 0 && solutions.slotcount <= MAXSLOTS);
    for (int32_t slot = 0; slot < solutions.slotcount; slot++) {
        char pattern[WORDSIZE];
        slotread(slot, pattern);
        FUZZCHECK(std::memchr(pattern, 0, sizeof pattern));
        slotwrite(slot, "words and phrases");
        slotwrite(slot, pattern);
    }
    solreset();
}

void checksave()
{
    FUZZCHECK(!gridsave(fuzzpath("first.qmg").c_str()));
    std::string first = fuzzread(fuzzpath("first.qmg"));
    gridreset();
    FUZZCHECK(!gridload(fuzzpath("first.qmg").c_str()));
    checkdocument();
    FUZZCHECK(!gridsave(fuzzpath("second.qmg").c_str()));
    FUZZCHECK(fuzzread(fuzzpath("second.qmg")) == first);
}

} // namespace

void fuzztarget(fuzzfeed feed)
{
    static griddocument before;
    gridreset();
    before = grid;
    fuzzwrite(fuzzpath("any.qmg"), feed);
    errorblock *err = gridload(fuzzpath("any.qmg").c_str());
    if (err) {
        FUZZCHECK(!std::memcmp(&before, &grid, sizeof grid));
    } else {
        checkdocument();
        walkwords();
        checksave();
        walkslots();
    }
    dictsetclear();
    gridreset();
}
