// The mark, the cursor and the changed area: which cells stand out, and which
// must be drawn again.
#include "grid/grid.h"
#include "grid/gridwindow.h"
#include "grid/wsentry.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace
{

struct cellrect {
    int32_t left, right, top, bottom; // left -1 for none
};

constexpr cellrect NOCELLS = {-1, -1, -1, -1};

cellrect dirty = NOCELLS;

void markforget()
{
    grid.markleft = grid.markright = grid.marktop = grid.markbottom = -1;
}

void rectgrow(cellrect *rect, int32_t left, int32_t right, int32_t top, int32_t bottom)
{
    if (rect->left == -1) {
        *rect = {left, right, top, bottom};
        return;
    }
    rect->left = std::min(rect->left, left);
    rect->right = std::max(rect->right, right);
    rect->top = std::min(rect->top, top);
    rect->bottom = std::max(rect->bottom, bottom);
}

} // namespace

// A change of size can leave the rectangle reaching outside; it is forgotten
// then, and its cells stay as they are.
void markclear()
{
    auto [left, right] = std::minmax({grid.markleft, grid.markright});
    auto [top, bottom] = std::minmax({grid.marktop, grid.markbottom});
    if (left >= 0 && top >= 0 && right < grid.width && bottom < grid.height)
        for (int32_t x = left; x <= right; x++)
            for (int32_t y = top; y <= bottom; y++)
                if ((grid.flags[x][y] & CELLKIND) != CELLBLOCK)
                    grid.flags[x][y] &= static_cast<uint8_t>(~CELLKIND);
    markforget();
    marklengthshow();
}

// Single cells can be marked and unmarked, so the cells are asked and not the
// rectangle.
void markrescan()
{
    cellrect mark = NOCELLS;
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++)
            if ((grid.flags[x][y] & CELLKIND) == CELLMARKED) rectgrow(&mark, x, x, y, y);
    grid.markleft = mark.left;
    grid.markright = mark.right;
    grid.marktop = mark.top;
    grid.markbottom = mark.bottom;
}

// The field is written only when it changes, so that a drag doesn't flicker.
void marklengthshow()
{
    if (grid.markleft == -1) {
        grid.marklength = -1;
        marklengthfield(-1);
        return;
    }
    int32_t across = std::abs(grid.markleft - grid.markright);
    int32_t down = std::abs(grid.marktop - grid.markbottom);
    int32_t length = (across ? across : down) + 1;
    if (length == grid.marklength) return;
    grid.marklength = length;
    marklengthfield(length);
}

void cursorremove()
{
    grid.cursorx = grid.cursory = -1;
    grid.lastcursorx = grid.lastcursory = -1;
}

// The drawing looks at the cursor itself, so it is hidden while the cell is
// drawn without it.
void cursordrawoff()
{
    int32_t x = grid.cursorx, y = grid.cursory;
    if (!gridinside(x, y)) return;
    grid.cursorx = grid.cursory = -1;
    gridcellsredraw(x, y, x, y);
    grid.cursorx = x;
    grid.cursory = y;
}

void cursordraw()
{
    int32_t x = grid.cursorx, y = grid.cursory;
    if (gridinside(x, y)) gridcellsredraw(x, y, x, y);
}

void dirtyreset()
{
    dirty = NOCELLS;
}

// A word that isn't placed stands at -1, which is not in the grid.
void dirtyadd(const wsentry *entry)
{
    int32_t steps = static_cast<int32_t>(strlen(entry->text)) - 1;
    if (steps < 0 || !gridinside(entry->x, entry->y)) return;
    auto [left, right] = std::minmax({entry->x, entry->x + steps * entry->dx});
    auto [top, bottom] = std::minmax({entry->y, entry->y + steps * entry->dy});
    rectgrow(&dirty, left, right, top, bottom);
}

void dirtyredraw()
{
    if (dirty.left != -1) gridcellsredraw(dirty.left, dirty.top, dirty.right, dirty.bottom);
}
