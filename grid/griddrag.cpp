// Marking by a drag. A step changes the cells that are in just one of the old
// and the new rectangle: so a mark that was there before shows again where the
// rectangle leaves it.
#include "grid/grid.h"
#include "grid/gridpress.h"
#include "grid/gridwindow.h"

#include <algorithm>

namespace
{

struct cellrect {
    int32_t left, top, right, bottom; // left -1 for none
    bool operator==(const cellrect &) const = default;
};

constexpr cellrect NOCELLS = {-1, -1, -1, -1};

// Of the drag under way, or the last.
struct {
    int32_t x, y;       // where it began
    bool first;         // there was no mark
    int32_t endx, endy; // where the pointer is
    cellrect made;      // the mark that it left
} drag;

bool within(const cellrect &rect, int32_t x, int32_t y)
{
    return rect.left != -1 && x >= rect.left && x <= rect.right && y >= rect.top &&
           y <= rect.bottom;
}

cellrect joined(const cellrect &a, const cellrect &b)
{
    if (a.left == -1) return b;
    if (b.left == -1) return a;
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

cellrect markbounds()
{
    return {grid.markleft, grid.marktop, grid.markright, grid.markbottom};
}

void markset(const cellrect &rect)
{
    grid.markleft = rect.left;
    grid.marktop = rect.top;
    grid.markright = rect.right;
    grid.markbottom = rect.bottom;
}

// Marks and unmarks, and gives the box round what changed.
cellrect flip(const cellrect &before, const cellrect &after)
{
    cellrect changed = NOCELLS, all = joined(before, after);
    for (int32_t x = all.left; x <= all.right; x++)
        for (int32_t y = all.top; y <= all.bottom; y++) {
            if (within(before, x, y) == within(after, x, y)) continue;
            if ((grid.flags[x][y] & CELLKIND) == CELLBLOCK) continue;
            grid.flags[x][y] ^= CELLMARKED;
            changed = joined(changed, {x, y, x, y});
        }
    return changed;
}

// There is a cursor or a mark. A block can't be the cursor's cell, as it can't
// at a press.
void cursorormark(const cellrect &rect, cellrect *changed)
{
    if (rect.left != rect.right || rect.top != rect.bottom) {
        cursordrawoff();
        grid.cursorx = grid.cursory = -1;
        return;
    }
    markset(NOCELLS);
    if ((grid.flags[drag.x][drag.y] & CELLKIND) == CELLBLOCK) return;
    grid.flags[drag.x][drag.y] &= static_cast<uint8_t>(~CELLMARKED);
    grid.cursorx = drag.x;
    grid.cursory = drag.y;
    *changed = joined(*changed, rect);
}

} // namespace

bool griddragstart(int32_t x, int32_t y)
{
    if (grid.kind != GRIDCROSSWORD || !gridinside(x, y)) return false;
    drag = {x, y, grid.markleft == -1, x, y, NOCELLS};
    markset(NOCELLS);
    if (!drag.first) griddragstep(x, y);
    return true;
}

void griddragstep(int32_t x, int32_t y)
{
    x = std::clamp(x, 0, grid.width - 1);
    y = std::clamp(y, 0, grid.height - 1);
    drag.endx = x;
    drag.endy = y;
    cellrect after = {std::min(x, drag.x), std::min(y, drag.y), std::max(x, drag.x),
                      std::max(y, drag.y)};
    cellrect changed = flip(markbounds(), after);
    markset(after);
    if (drag.first) cursorormark(after, &changed);
    if (changed.left != -1)
        gridcellsredraw(changed.left, changed.top, changed.right, changed.bottom);
    marklengthshow();
}

void griddragend()
{
    drag.first = false;
    markrescan();
    marklengthshow();
    drag.made = markbounds();
}

// The mark is made anew by a drag between the same corners, but for the one that moves.
// A mark that was changed since it was made begins at its first cell.
void gridmarkstep(int32_t dx, int32_t dy)
{
    if (grid.kind != GRIDCROSSWORD) return;
    cellrect now = markbounds(), cursor = {grid.cursorx, grid.cursory, grid.cursorx, grid.cursory};
    bool marked = now.left != -1;
    if (!marked) now = cursor;
    if (!marked || now != drag.made) drag = {now.left, now.top, true, now.right, now.bottom, now};
    int32_t x = drag.x, y = drag.y, endx = drag.endx + dx, endy = drag.endy + dy;
    gridleftpress(x, y, false);
    if (!gridinside(x, y) || (grid.flags[x][y] & CELLKIND) == CELLBLOCK) return;
    griddragstart(x, y);
    griddragstep(endx, endy);
    griddragend();
    gridcellshow(drag.endx, drag.endy);
}
