#include "output/numbering.h"

#include "grid/grid.h"

namespace
{

bool startsacross(int32_t x, int32_t y)
{
    return !(grid.flags[x][y] & VISITEDACROSS) && x < grid.width - 1 &&
           !(grid.flags[x + 1][y] & (VISITEDACROSS | BARLEFT));
}

bool startsdown(int32_t x, int32_t y)
{
    return !(grid.flags[x][y] & VISITEDDOWN) && y < grid.height - 1 &&
           !(grid.flags[x][y + 1] & (VISITEDDOWN | BARTOP));
}

// Claims a run from a cell on and returns its length. It ends at the edge, at
// a block, at a bar behind its first cell, and at a cell already claimed.
int32_t claim(int32_t x, int32_t y, int32_t dx, int32_t dy, uint8_t visited, uint8_t bar)
{
    int32_t n = 0;
    for (; gridinside(x, y); n++, x += dx, y += dy) {
        uint8_t flags = grid.flags[x][y];
        if ((flags & CELLKIND) == CELLBLOCK || (flags & visited) || (n && (flags & bar))) break;
        grid.flags[x][y] = static_cast<uint8_t>(flags | visited);
    }
    return n;
}

} // namespace

void numberingstart(numberedcell *cell)
{
    gridvisitreset();
    *cell = {.x = -1, .y = 0, .number = 0, .across = 0, .down = 0};
}

bool numberingnext(numberedcell *cell)
{
    for (;;) {
        if (++cell->x >= grid.width) {
            cell->x = 0;
            cell->y++;
        }
        if (cell->y >= grid.height) return false;
        int32_t x = cell->x, y = cell->y;
        if ((grid.flags[x][y] & CELLKIND) == CELLBLOCK) continue;
        if (!startsacross(x, y) && !startsdown(x, y)) continue;
        cell->number++;
        cell->across = claim(x, y, 1, 0, VISITEDACROSS, BARLEFT);
        cell->down = claim(x, y, 0, 1, VISITEDDOWN, BARTOP);
        return true;
    }
}
