// The slots of a search: where the marked cells make words, and the letters in
// them.

#include "base/errorcodes.h"
#include "base/errors.h"
#include "dict/dictset.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "grid/grid.h"

#include <algorithm>
#include <cstring>

searchstate search;

namespace
{

struct slotway {
    int32_t dx, dy;
    uint8_t visited, bar;
};

constexpr slotway ways[2] = {
    {1, 0, VISITEDACROSS, BARLEFT},
    {0, 1, VISITEDDOWN, BARTOP},
};

bool inbox(int32_t x, int32_t y)
{
    const cellbox &box = search.slotbox;
    return x >= box.left && x <= box.right && y >= box.top && y <= box.bottom;
}

void boxset()
{
    search.slotbox = {
        .left = std::min(grid.markleft, grid.markright),
        .right = std::max(grid.markleft, grid.markright),
        .top = std::min(grid.marktop, grid.markbottom),
        .bottom = std::max(grid.marktop, grid.markbottom),
    };
}

// Cells that are not marked are walls: claimed in both directions.
void wallsset()
{
    const cellbox &box = search.slotbox;
    for (int32_t x = box.left; x <= box.right; x++)
        for (int32_t y = box.top; y <= box.bottom; y++) {
            uint8_t *flags = &grid.flags[x][y];
            if ((*flags & CELLKIND) == CELLMARKED)
                *flags = static_cast<uint8_t>(*flags & ~VISITEDBOTH);
            else
                *flags |= VISITEDBOTH;
        }
}

bool slotbegins(int32_t x, int32_t y, const slotway &way)
{
    int32_t nextx = x + way.dx, nexty = y + way.dy;
    return !(grid.flags[x][y] & way.visited) && inbox(nextx, nexty) &&
           !(grid.flags[nextx][nexty] & (way.visited | way.bar));
}

// Claims the run from a cell on and returns its length.
int32_t slotclaim(int32_t x, int32_t y, const slotway &way)
{
    int32_t length = 0;
    for (; inbox(x, y); x += way.dx, y += way.dy) {
        bool claimed = grid.flags[x][y] & way.visited;
        grid.flags[x][y] |= way.visited;
        if (claimed) break;
        length++;
        if (inbox(x + way.dx, y + way.dy) && (grid.flags[x + way.dx][y + way.dy] & way.bar)) break;
    }
    return length;
}

// A slot that is longer than any word is not opened.
void slotopen(int32_t x, int32_t y, uint8_t direction)
{
    if (solutions.slotcount == MAXSLOTS || !slotbegins(x, y, ways[direction])) return;
    int32_t length = slotclaim(x, y, ways[direction]);
    if (length > WORDLENGTH) return;
    search.slots[solutions.slotcount++] = {
        .x = x,
        .y = y,
        .word = 0,
        .direction = direction,
        .length = static_cast<uint8_t>(length),
    };
}

void listlayout()
{
    const cellbox &box = search.slotbox;
    solutions.listwidth = (box.right - box.left + 1) * solutions.charwidth;
    solutions.rowheight = solutions.slotcount < 2
                              ? solutions.lineheight
                              : (box.bottom - box.top + 2) * solutions.textheight;
}

uint8_t *slotcell(const slotrec &slot, int32_t i)
{
    const slotway &way = ways[slot.direction];
    return &search.letters[slot.x + i * way.dx][slot.y + i * way.dy];
}

void lettersfetch()
{
    memcpy(search.letters, grid.letters, sizeof search.letters);
    search.lettersfrom = grid.changed;
}

} // namespace

void slotsfind()
{
    if (grid.markleft < 0) return;
    boxset();
    search.kind = grid.kind;
    lettersfetch();
    solutions.slotcount = 0;
    wallsset();
    const cellbox &box = search.slotbox;
    for (int32_t y = box.top; y <= box.bottom; y++)
        for (int32_t x = box.left; x <= box.right; x++) {
            if ((grid.flags[x][y] & VISITEDBOTH) == VISITEDBOTH) continue;
            slotopen(x, y, 0);
            slotopen(x, y, 1);
        }
    listlayout();
}

// The slots that the list was found for stay.
void solrelayout()
{
    if (grid.kind == GRIDWORDSQUARE)
        solwordslayout();
    else
        listlayout();
}

errorblock *slotsbegin()
{
    errorblock *err = dictdefault();
    if (err) return err;
    markrescan();
    if (grid.markleft < 0) return makeerror(ENMW);
    solreset();
    slotsfind();
    return nullptr;
}

void slotread(int32_t slot, char *buffer)
{
    const slotrec &read = search.slots[slot];
    memset(buffer, 0, WORDSIZE);
    for (int32_t i = 0; i < read.length; i++)
        buffer[i] = static_cast<char>(*slotcell(read, i));
}

// Spaces of the text are skipped, so that a phrase stands without gaps. The
// same closing-up happens to a pattern that is put back: its letters come to
// the front, a NUL follows them where it ended in spaces, and the cells behind
// keep what they held. Searches of three slots and more find what they find by
// this rule.
void slotwrite(int32_t slot, const char *text)
{
    const slotrec &written = search.slots[slot];
    for (int32_t i = 0; i < written.length; i++) {
        while (*text == ' ')
            text++;
        *slotcell(written, i) = gridcase(static_cast<uint8_t>(*text));
        if (!*text || !*++text) return;
    }
}

void slotstake()
{
    if (search.lettersfrom != grid.changed) lettersfetch();
}

void slotsgive()
{
    for (int32_t slot = 0; slot < solutions.slotcount; slot++) {
        const slotrec &given = search.slots[slot];
        const slotway &way = ways[given.direction];
        for (int32_t i = 0; i < given.length; i++) {
            int32_t x = given.x + i * way.dx, y = given.y + i * way.dy;
            grid.letters[x][y] = search.letters[x][y];
        }
    }
    search.lettersfrom = grid.changed;
}
