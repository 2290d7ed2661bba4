// The word list of a Wordsquare: order, places and selection.

#include "base/chars.h"
#include "base/text.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "grid/grid.h"
#include "grid/gridwindow.h"

#include <cstdlib>
#include <cstring>

char lastword[sizeof wsentry::text];

namespace
{

int comparetexts(const void *a, const void *b)
{
    return cstricmp(static_cast<const wsentry *>(a)->text, static_cast<const wsentry *>(b)->text);
}

// The cells of a word that lies in the grid, one after another: false at the
// end of the word, and where a record of a larger grid leaves the arrays.
struct cellwalk {
    int32_t x, y;
    size_t left;
};

cellwalk walkstart(const wsentry *entry)
{
    return {.x = entry->x, .y = entry->y, .left = strlen(entry->text)};
}

bool walkhere(const cellwalk &walk)
{
    return walk.left && walk.x >= 0 && walk.y >= 0 && walk.x < GRIDSTRIDE && walk.y < GRIDSTRIDE;
}

void walkon(cellwalk *walk, const wsentry *entry)
{
    walk->left--;
    walk->x += entry->dx;
    walk->y += entry->dy;
}

void entryselect(wsentry *entry, bool on)
{
    entry->selected = on;
    dirtyadd(entry);
    if (on)
        solmark(entry);
    else
        solunmark(entry);
}

bool standsat(const char *text, int32_t x, int32_t y, int32_t dx, int32_t dy)
{
    for (; *text; text++, x += dx, y += dy)
        if (!gridinside(x, y) ||
            charlower(grid.letters[x][y]) != charlower(static_cast<uint8_t>(*text)))
            return false;
    return true;
}

} // namespace

bool solplace(int32_t entry)
{
    wsentry *word = solword(entry);
    for (int32_t y = 0; y < grid.height; y++)
        for (int32_t x = 0; x < grid.width; x++)
            for (int32_t way = 0; way < 9; way++) {
                int32_t dx = way % 3 - 1, dy = way / 3 - 1;
                if ((!dx && !dy) || !standsat(word->text, x, y, dx, dy)) continue;
                word->x = x;
                word->y = y;
                word->dx = dx;
                word->dy = dy;
                return true;
            }
    return false;
}

void solwordslayout()
{
    solutions.slotcount = 1;
    solutions.listwidth = 17 * solutions.charwidth;
    solutions.rowheight = solutions.lineheight;
}

errorblock *soladdtyped(const char *text)
{
    solwordslayout();
    errorblock *err = soladdword(-1, -1, -1, -1, text);
    strcopyn(lastword, text, sizeof lastword);
    solutionsrefresh();
    return err;
}

void solsort()
{
    if (solutions.count)
        qsort(solutions.wslist, static_cast<size_t>(solutions.count), sizeof(wsentry),
              comparetexts);
}

int32_t solselected()
{
    int32_t n = 0;
    for (int32_t i = 0; i < solutions.count; i++)
        n += solword(i)->selected != 0;
    return n;
}

void solclearplaces()
{
    for (int32_t i = 0; i < solutions.count; i++) {
        wsentry *entry = solword(i);
        entry->x = entry->y = entry->dx = entry->dy = -1;
    }
}

// A cell is marked while any selected word runs through it. The whole flag byte
// is written: a Wordsquare has no bars and no blocks.
void solmark(const wsentry *entry)
{
    for (cellwalk walk = walkstart(entry); walkhere(walk); walkon(&walk, entry))
        if (grid.counts[walk.x][walk.y]++ == 0) grid.flags[walk.x][walk.y] = CELLMARKED;
}

void solunmark(const wsentry *entry)
{
    for (cellwalk walk = walkstart(entry); walkhere(walk); walkon(&walk, entry))
        if (--grid.counts[walk.x][walk.y] == 0) grid.flags[walk.x][walk.y] = CELLOPEN;
}

void solrecount()
{
    gridclearcounts();
    for (int32_t i = 0; i < solutions.count; i++)
        if (solword(i)->selected) solmark(solword(i));
    markrescan();
}

bool solselect(int32_t entry, bool toggle)
{
    if (entry < 0 || entry >= solutions.count) return false;
    wsentry *row = solword(entry);
    if (toggle) {
        entryselect(row, !row->selected);
    } else {
        if (row->selected && solselected() < 2) return false;
        for (int32_t i = 0; i < solutions.count; i++)
            if (solword(i)->selected) entryselect(solword(i), false);
        entryselect(row, true);
    }
    markrescan();
    return true;
}

void solshow(int32_t entry)
{
    if (entry < 0 || entry >= solutions.count || !*solword(entry)->text) return;
    const wsentry word = *solword(entry);
    auto steps = static_cast<int32_t>(strlen(word.text)) - 1;
    int32_t x = word.x + steps * word.dx, y = word.y + steps * word.dy;
    if (!gridinside(word.x, word.y) || !gridinside(x, y)) return;
    gridcellshow(x, y);
    gridcellshow(word.x, word.y);
}

void soldeleteselected()
{
    bool any = false;
    dirtyreset();
    for (int32_t i = 0; i < solutions.count;) {
        if (!solword(i)->selected) {
            i++;
            continue;
        }
        entryselect(solword(i), false);
        solremove(i);
        any = true;
    }
    if (!any) return;
    markrescan();
    dirtyredraw();
    solutionsrefresh();
}
