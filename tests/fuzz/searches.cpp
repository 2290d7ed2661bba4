// The searches on arbitrary grids and words. The input is a size, switches, the
// cells of the grid, and behind them words for two dictionaries, one a line.
// Every search is stopped after a number of polls: some could go on for hours.
// Plain tellings of the searches, in the tests of find, judge what they find on
// smaller grids; here it must fit its places.

#include "base/chars.h"
#include "base/random.h"
#include "dict/dictset.h"
#include "find/anagram.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "find/spell.h"
#include "find/wordindicts.h"
#include "find/wsmake.h"
#include "find/wssolve.h"
#include "grid/grid.h"
#include "output/cluelist.h"
#include "tests/fuzz/fuzz.h"
#include "tools/headless.h"

#include <algorithm>
#include <cstring>

namespace
{

constexpr int MOSTPOLLS = 200;
constexpr size_t MOSTWORDS = 300;

void stopsoon()
{
    if (headless.polls >= MOSTPOLLS) search.stopflag = 1;
}

void run(errorblock *err)
{
    headless.polls = 0;
    if (!err) FUZZCHECK(!headlessrun());
    headless.worker = nullptr;
    FUZZCHECK(headless.busy == 0);
    FUZZCHECK(headless.begins == headless.ends);
}

void dictionaries(const std::string &text)
{
    for (uint32_t n = 0; n < 2; n++) {
        dicts[n] = {};
        FUZZCHECK(!dictempty(&dicts[n].dict));
        dicts[n].loaded = 1;
        FUZZCHECK(!dictsetadd(n));
    }
    ndicts = 2;
    size_t words = 0;
    for (size_t at = 0; at < text.size() && words < MOSTWORDS; words++) {
        size_t end = std::min(text.find('\n', at), text.size());
        FUZZCHECK(!dictadd(text.substr(at, end - at).c_str(), &dicts[words % 3 == 2].dict));
        at = end + 1;
    }
}

// A byte a cell: its letter below 192, else flags and a blank.
void cellsfill(fuzzfeed *feed)
{
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++) {
            uint8_t byte = fuzzbyte(feed);
            bool letter = byte < 192;
            grid.letters[x][y] = letter ? byte : ' ';
            grid.flags[x][y] = letter ? CELLMARKED : byte & 15;
        }
}

void checkplaces(bool read)
{
    for (int32_t i = 0; i < solutions.count; i++) {
        const wsentry *entry = solword(i);
        if (entry->x < 0) continue;
        for (size_t k = 0; k < std::strlen(entry->text); k++) {
            int32_t x = entry->x + static_cast<int32_t>(k) * entry->dx;
            int32_t y = entry->y + static_cast<int32_t>(k) * entry->dy;
            FUZZCHECK(gridinside(x, y));
            if (read)
                FUZZCHECK(charlower(grid.letters[x][y]) ==
                          charlower(static_cast<uint8_t>(entry->text[k])));
        }
    }
}

void crossword()
{
    run(solvestart());
    if (solutions.count) solapply(0);
    run(anagramstart(""));
    checkstart();
    for (int n = 0; n < 20 && checkwalk(); n++)
        FUZZCHECK(!wordindicts(spell.checkword) || std::strlen(spell.checkword) == WORDLENGTH);
    spellend();
    FUZZCHECK(!cluelist(fuzzpath("clues.txt").c_str()));
    solreset();
}

void wordsquare()
{
    grid.kind = GRIDWORDSQUARE;
    for (auto &column : grid.flags)
        std::fill(std::begin(column), std::end(column), CELLOPEN);
    run(wssolve());
    checkplaces(true);
    run(wsmake());
    checkplaces(true);
    run(wsnew());
    FUZZCHECK(solutions.count == 0);
}

} // namespace

void fuzztarget(fuzzfeed feed)
{
    headlessreset();
    headless.onpoll = stopsoon;
    gridreset();
    solutionsreset();
    search = {};
    grid.width = 1 + fuzzbyte(&feed) % 40;
    grid.height = 1 + fuzzbyte(&feed) % 12;
    uint8_t seed = fuzzbyte(&feed);
    grid.casemode = seed % 3;
    grid.minwordlength = 1 + seed % 12;
    grid.filldirections = fuzzbyte(&feed);
    randomseed(seed);
    cellsfill(&feed);
    std::string text = fuzzrest(&feed);
    dictionaries(text);
    solutions.maxsolutions = 50;

    guessmake(text.substr(0, text.find('\n')).c_str());
    spellend();
    crossword();
    wordsquare();

    solreset();
    dictsetclear();
    dictunload(0);
    dictunload(1);
    ndicts = 0;
}
