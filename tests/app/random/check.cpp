// What holds between any two steps.
#include "desktop/handlers.h"
#include "dict/dictset.h"
#include "dict/dictverify.h"
#include "dict/storecheck.h"
#include "find/solutions.h"
#include "grid/grid.h"
#include "tests/app/random/random.h"

#include <algorithm>
#include <cstring>

namespace
{

// The first thing that is wrong, or 0.
const char *documentfault()
{
    if (grid.width < 1 || grid.width > GRIDMAX || grid.height < 1 || grid.height > GRIDMAX)
        return "the grid's size";
    if (grid.kind != GRIDCROSSWORD && grid.kind != GRIDWORDSQUARE) return "the grid's kind";
    if (grid.casemode < CASEASTYPED || grid.casemode > CASELOWER) return "the case of letters";
    // A grid that was made smaller leaves the cursor where it was, outside.
    bool none = grid.cursorx == -1 && grid.cursory == -1;
    bool somewhere =
        grid.cursorx >= 0 && grid.cursorx < GRIDMAX && grid.cursory >= 0 && grid.cursory < GRIDMAX;
    if (!none && !somewhere) return "the cursor's place";
    if (grid.changed < 0) return "the count of edits";
    if (!std::memchr(grid.filename, 0, sizeof grid.filename)) return "the document's name";
    if (grid.cellwidth < 1 || grid.cellheight < 1) return "the size of a square";
    if (grid.minwordlength < 1 || grid.minwordlength > MINWORDMAX) return "the shortest word";
    if (grid.splitfraction < SPLITMIN || grid.splitfraction > SPLITMAX) return "the split";
    return nullptr;
}

const char *cellsfault()
{
    int32_t left = -1, right = -1, top = -1, bottom = -1;
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++) {
            int kind = grid.flags[x][y] & CELLKIND;
            if (kind == CELLKIND) return "a cell's kind";
            if (kind != CELLMARKED) continue;
            if (left == -1) left = right = x, top = bottom = y;
            right = x; // columns come in their order
            top = std::min(top, y);
            bottom = std::max(bottom, y);
        }
    if (grid.kind != GRIDCROSSWORD) return nullptr;
    if ((grid.markleft == -1) != (left == -1)) return "the mark, and the cells that are marked";
    auto [markleft, markright] = std::minmax({grid.markleft, grid.markright});
    auto [marktop, markbottom] = std::minmax({grid.marktop, grid.markbottom});
    if (markleft != left || markright != right || marktop != top || markbottom != bottom)
        return "the marked rectangle";
    return nullptr;
}

const char *setfault()
{
    uint32_t uses[MAXDICTS] = {};
    if (ndicts > MAXDICTS || dictset.count > MAXDICTS) return "the number of dictionaries";
    for (uint32_t i = 0; i < dictset.count; i++) {
        if (dictset.numbers[i] >= ndicts) return "a dictionary in use that isn't known";
        if (i && dictset.numbers[i] < dictset.numbers[i - 1]) return "the order of the set";
        uses[dictset.numbers[i]]++;
    }
    for (uint32_t i = 0; i < ndicts; i++)
        if (dicts[i].usecount != uses[i]) return "a dictionary's uses";
    return nullptr;
}

// A file that was damaged may hold anything that readers can bear.
bool trusted(const dictrec &record)
{
    return std::strcmp(record.name, "cut") && std::strcmp(record.name, "text");
}

void dictionariescheck()
{
    char text[200];
    for (uint32_t i = 0; i < ndicts; i++) {
        const Dictionary *dict = &dicts[i].dict;
        if (!dict->words) continue;
        if (storecheck(dict)) fault("the store of %s", dicts[i].name);
        if (!trusted(dicts[i])) continue;
        if (const char *wrong = dictverify(dict, text, sizeof text))
            fault("the words of %s: %s", dicts[i].name, wrong);
    }
}

bool refgood(wordref ref)
{
    uint32_t number = ref >> 24, word = ref & 0xFFFFFF;
    return number < ndicts && dicts[number].loaded && word < dicts[number].dict.nwords;
}

const char *solutionsfault()
{
    if (solutions.count < 0) return "the number of solutions";
    if (solutions.count && !solutions.wslist) return "a list without its block";
    if (grid.kind != GRIDCROSSWORD) return nullptr;
    // A list of words that was opened in a Crossword stays, and says nothing: no
    // search finds this reference.
    if (solutions.slotcount > 0 && solref(0, 0) == NOWORD) return nullptr;
    for (int32_t i = 0; i < solutions.count; i++)
        for (int32_t slot = 0; slot < solutions.slotcount; slot++)
            if (!refgood(solref(i, slot))) return "a solution of a word that is gone";
    return nullptr;
}

} // namespace

void invariants()
{
    const char *wrong = documentfault();
    if (!wrong) wrong = cellsfault();
    if (!wrong) wrong = setfault();
    if (!wrong) wrong = solutionsfault();
    if (wrong) fault("%s", wrong);
    dictionariescheck();
}
