#include "grid/gridpress.h"

#include "grid/grid.h"
#include "grid/gridtype.h"
#include "grid/gridwindow.h"

#include <algorithm>

namespace
{

bool hasmark()
{
    return grid.markleft != -1;
}

uint8_t kind(int32_t x, int32_t y)
{
    return grid.flags[x][y] & CELLKIND;
}

void markdrop()
{
    auto [left, right] = std::minmax({grid.markleft, grid.markright});
    auto [top, bottom] = std::minmax({grid.marktop, grid.markbottom});
    markclear();
    resultsdrop();
    gridcellsredraw(left, top, right, bottom);
}

// The length field follows, since a single cell can make the rectangle larger,
// or be the last.
void markflip(int32_t x, int32_t y)
{
    if (kind(x, y) == CELLBLOCK) return;
    grid.flags[x][y] ^= CELLMARKED;
    gridchange();
    gridcellsredraw(x, y, x, y);
    markrescan();
    marklengthshow();
    resultsdrop();
}

} // namespace

void gridleftpress(int32_t x, int32_t y, bool ctrl)
{
    if (!gridinside(x, y)) return gridbeep();
    if (hasmark() && ctrl) return;
    if (hasmark()) markdrop();
    if (kind(x, y) == CELLBLOCK) return gridbeep();
    cursorto(x, y);
}

void gridrightpress(int32_t x, int32_t y, bool shift, bool ctrl)
{
    if (!gridinside(x, y)) return gridbeep();
    if (grid.kind != GRIDCROSSWORD) return;
    if (hasmark()) return markflip(x, y);
    gridrightedit(x, y, shift, ctrl);
    gridchange();
}

void gridcursoredit(bool shift, bool ctrl)
{
    gridrightpress(grid.cursorx, grid.cursory, shift, ctrl);
}

void gridstep(int32_t dx, int32_t dy)
{
    if (gridinside(grid.cursorx, grid.cursory)) return cursorstep(dx, dy);
    int32_t x = std::max(std::min(grid.markleft, grid.markright), 0);
    int32_t y = std::max(std::min(grid.marktop, grid.markbottom), 0);
    if (hasmark()) markdrop();
    cursorto(x, y);
    gridcellshow(x, y);
}

void gridrightedit(int32_t x, int32_t y, bool shift, bool ctrl)
{
    uint8_t *flags = &grid.flags[x][y];
    if (kind(x, y) == CELLBLOCK) {
        grid.letters[x][y] = ' ';
        *flags &= static_cast<uint8_t>(~(CELLKIND | BARLEFT | BARTOP));
    } else {
        *flags &= static_cast<uint8_t>(~CELLKIND);
        if (shift)
            *flags ^= BARLEFT;
        else if (ctrl)
            *flags ^= BARTOP;
        else
            *flags |= CELLBLOCK;
    }
    gridcellsredraw(x, y, x, y);
}
