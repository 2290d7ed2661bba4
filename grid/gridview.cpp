#include "grid/gridview.h"

#include "base/boxes.h"
#include "base/random.h"
#include "desktop/handlertable.h"
#include "desktop/templates.h"
#include "desktop/windows.h"
#include "graphics/plot.h"
#include "grid/grid.h"
#include "grid/gridkeys.h"
#include "grid/gridmouse.h"
#include "grid/gridpaint.h"
#include "grid/gridwindow.h"
#include "resources/identifiers.h"

#include <algorithm>
#include <ctime>

window gridwindow;

namespace
{

constexpr handlertable gridhandlers = {
    {.redraw = gridpaint},
    {.click = gridclick},
    {.key = gridkey},
};

constexpr handlertable parenthandlers = {
    {.key = gridkey},
};

errorblock *extentset()
{
    return setextent(gridwindow, 0, -grid.height * grid.cellheight, grid.width * grid.cellwidth, 0);
}

// Where a view of size page must begin to show what lies between two places. Of
// what is larger than the page the beginning is shown.
int32_t follow(int32_t scroll, int32_t page, int32_t begin, int32_t end)
{
    return std::min(std::max(scroll, end - page), begin);
}

errorblock *cellshow(int32_t x, int32_t y)
{
    windowstaterecord state;
    errorblock *err = windowstate(gridwindow, &state);
    if (err) return err;
    int32_t left = x * grid.cellwidth, top = y * grid.cellheight;
    int32_t across = follow(state.xscroll, state.x1 - state.x0, left, left + grid.cellwidth);
    int32_t down = follow(-state.yscroll, state.y1 - state.y0, top, top + grid.cellheight);
    if (across != state.xscroll) err = setscrollx(gridwindow, across);
    if (!err && down != -state.yscroll) err = setscrolly(gridwindow, down);
    return err;
}

} // namespace

errorblock *gridviewopen(window parent)
{
    randomseed(static_cast<uint32_t>(time(nullptr)));
    errorblock *err = createchild(TEMPLATEGRID, &gridwindow, parent);
    if (!err) err = setbackground(gridwindow, BACKGROUNDWHITE);
    if (!err) err = addhandlers(gridwindow, gridhandlers);
    if (!err) err = addhandlers(parent, parenthandlers);
    if (!err) err = setflags(gridwindow, WINDOWFIXED | WINDOWNONAVIGATION, 0);
    if (!err) err = extentset();
    return err;
}

errorblock *gridviewscroll(int32_t dx, int32_t dy)
{
    windowstaterecord state;
    errorblock *err = windowstate(gridwindow, &state);
    if (!err && dx) err = setscrollx(gridwindow, state.xscroll + dx * grid.cellwidth);
    if (!err && dy) err = setscrolly(gridwindow, -state.yscroll + dy * grid.cellheight);
    return err;
}

void gridredraw()
{
    if (gridwindow) reporterror(redrawall(gridwindow));
}

void gridextent()
{
    if (gridwindow) reporterror(extentset());
}

void gridcellshow(int32_t x, int32_t y)
{
    if (gridwindow) reporterror(cellshow(x, y));
}

void gridbeep()
{
    beep(0, 0);
}
