// A Crossword's solution, written into the grid.

#include "find/solutions.h"
#include "find/solve.h"
#include "grid/grid.h"
#include "grid/gridwindow.h"

void solapply(int32_t entry)
{
    if (grid.markleft < 0 || entry < 0 || entry >= solutions.count) return;
    slotstake();
    for (int32_t slot = 0; slot < solutions.slotcount; slot++) {
        slotwrite(slot, wordtext(solref(entry, slot)));
        gridchange();
    }
    slotsgive();
    solutions.standing = entry;
    const cellbox &box = search.slotbox;
    gridcellsredraw(box.left, box.top, box.right, box.bottom);
}
