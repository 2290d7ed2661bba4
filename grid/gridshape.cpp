#include "grid/gridshape.h"

#include "grid/grid.h"
#include "grid/gridwindow.h"

#include <algorithm>

void gridsize(int32_t width, int32_t height)
{
    grid.width = std::min(width, GRIDMAX);
    grid.height = std::min(height, GRIDMAX);
    gridextent();
    markclear();
    resultsdrop();
    gridredraw();
    gridchange();
}

// The bar goes by the kind, and so do the results.
void gridsetkind(int32_t kind)
{
    if (kind == grid.kind) return;
    markclear();
    cursorremove();
    resultsdrop();
    gridclear();
    grid.kind = kind;
    gridredraw();
    gridunchanged();
    gridsetfilename("");
    gridkindapply(kind);
}

void gridcaseswitch(int32_t mode)
{
    grid.casemode = grid.casemode == mode ? CASEASTYPED : mode;
    markclear();
    resultsdrop();
    gridchange();
    for (int32_t x = 0; x < GRIDSTRIDE; x++)
        for (int32_t y = 0; y < GRIDSTRIDE; y++)
            if ((grid.flags[x][y] & CELLKIND) == CELLOPEN)
                grid.letters[x][y] = gridcase(grid.letters[x][y]);
    gridredraw();
}
