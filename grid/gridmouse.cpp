#include "grid/gridmouse.h"

#include "desktop/icons.h"
#include "desktop/keys.h"
#include "desktop/mouse.h"
#include "desktop/windows.h"
#include "graphics/modeinfo.h"
#include "grid/grid.h"
#include "grid/gridpress.h"
#include "grid/gridview.h"
#include "grid/gridwindow.h"

namespace
{

constexpr int32_t CELLTOP = 4;     // OS units that a cell's top edge lies lower for the mouse
constexpr int32_t DRAGOUTSIDE = 2; // pixels that a drag may leave the window by

struct cellplace {
    int32_t x, y;
};

// Outside the grid too; the CELLTOP above it are its first row.
errorblock *cellat(window self, const mouserecord *mouse, cellplace *cell)
{
    windowinforecord info;
    errorblock *err = windowinfo(self, &info);
    if (err) return err;
    cell->x = (static_cast<int32_t>(mouse->x) - info.xorigin) / grid.cellwidth;
    cell->y = (info.yorigin - static_cast<int32_t>(mouse->y) - CELLTOP) / grid.cellheight;
    return nullptr;
}

// A square at each edge of the window scrolls.
errorblock *autoscroll(window self, const mouserecord *mouse)
{
    windowstaterecord state;
    errorblock *err = windowstate(self, &state);
    if (err) return err;
    int32_t dx = 0, dy = 0;
    if (mouse->x > state.x1 - grid.cellwidth)
        dx = 1;
    else if (mouse->x < state.x0 + grid.cellwidth)
        dx = -1;
    if (mouse->y < state.y0 + grid.cellheight)
        dy = 1;
    else if (mouse->y > state.y1 - grid.cellheight)
        dy = -1;
    return gridviewscroll(dx, dy);
}

errorblock *dragstep(window self, intptr_t, mouserecord *mouse)
{
    cellplace cell;
    errorblock *err = cellat(self, mouse, &cell);
    if (err || searchunderway()) return err;
    griddragstep(cell.x, cell.y);
    return autoscroll(self, mouse);
}

errorblock *dragdone(window, intptr_t, const dragresult *)
{
    griddragend();
    return nullptr;
}

errorblock *dragbegin(window self, const mouserecord *mouse, cellplace cell)
{
    windowstaterecord state;
    errorblock *err = windowstate(self, &state);
    if (err || !griddragstart(cell.x, cell.y)) return err;
    int32_t x = static_cast<int32_t>(mouse->x), y = static_cast<int32_t>(mouse->y);
    int32_t across = devtoosx(DRAGOUTSIDE), down = devtoosy(DRAGOUTSIDE);
    dragbox point = {
        .window = self,
        .type = DRAGPOINT,
        .x0 = x,
        .y0 = y,
        .x1 = x,
        .y1 = y,
        .minx = state.x0 - across,
        .miny = state.y0 - down,
        .maxx = state.x1 + across,
        .maxy = state.y1 + down,
    };
    setdragfunctions2(self, 0, dragdone, dragstep);
    err = startdrag(&point);
    if (err) griddragend();
    return err;
}

} // namespace

// The focus comes first: Escape is wanted during a search too.
errorblock *gridclick(window self, intptr_t, mouserecord *mouse)
{
    cellplace cell;
    errorblock *err = focuswindow(self);
    if (!err) err = cellat(self, mouse, &cell);
    if (err || searchunderway()) return err;
    bool shift = keymodifiers() & KEYSHIFT, ctrl = keymodifiers() & KEYCTRL;
    switch (mouse->buttons) {
    case BUTTONLEFT:
        gridleftpress(cell.x, cell.y, ctrl);
        return nullptr;
    case BUTTONRIGHT:
    case BUTTONRIGHTDOUBLE: // a second press at once
        gridrightpress(cell.x, cell.y, shift, ctrl);
        return nullptr;
    case BUTTONLEFTDRAG:
        return dragbegin(self, mouse, cell);
    }
    return nullptr;
}
