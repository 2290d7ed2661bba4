#include "app/mainwindow.h"

#include "app/buttons.h"
#include "app/commands.h"
#include "app/filecommands.h"
#include "app/layout.h"
#include "app/menus.h"
#include "base/boxes.h"
#include "desktop/handlertable.h"
#include "desktop/keys.h"
#include "desktop/menus.h"
#include "desktop/mouse.h"
#include "desktop/templates.h"
#include "find/solutionsview.h"
#include "graphics/modeinfo.h"
#include "grid/grid.h"
#include "grid/gridview.h"
#include "grid/gridwindow.h"
#include "resources/identifiers.h"

#include <algorithm>
#include <initializer_list>

window mainwindow;

static constexpr int32_t DOTS = 96; // to the inch, of the splitter's width

namespace
{

// The size that the file read last remembers, which may be read before there is
// a window; 0 for none.
int32_t filewidth, fileheight;

errorblock *paneplace(window pane, const pixelbox &box)
{
    return pane ? openpixels(pane, box) : nullptr;
}

errorblock *barheight(int32_t *height)
{
    windowgeometry bar = {};
    errorblock *err = buttonwindow ? geometryread(buttonwindow, &bar) : nullptr;
    *height = bar.frame.bottom - bar.frame.top;
    return err;
}

int32_t splitterwidth()
{
    return std::max(SPLITTERWIDTH * modeinfo.xdpi / DOTS, SPLITTERWIDTH);
}

errorblock *panesplace()
{
    int32_t height;
    windowgeometry main;
    errorblock *err = barheight(&height);
    if (!err) err = geometryread(mainwindow, &main);
    if (err) return err;
    panelayout panes = layoutpanes(main.client, height, grid.splitfraction, splitterwidth());
    err = paneplace(buttonwindow, panes.bar);
    if (!err) err = paneplace(solutionswindow, panes.list);
    if (!err) err = paneplace(gridwindow, panes.grid);
    return err;
}

// The main window itself sees the pointer in the gap between its panes alone.
errorblock *splitterpointer(window self, intptr_t, mouserecord *mouse, bool *handled)
{
    if (mouse->window != self) return nullptr;
    *handled = true;
    return setpointer(POINTERPROGRAM, 0, "splith");
}

errorblock *splitterdone(window self, intptr_t, const dragresult *box)
{
    windowstaterecord state;
    errorblock *err = windowstate(self, &state);
    if (err) return err;
    grid.splitfraction = layoutfraction(state.x0, state.x1, box->x0);
    return panesplace();
}

// The press lies where the pointer was before it moved, by as much as a fast hand
// moves it; the bar follows from where it is now.
errorblock *splitterclick(window self, intptr_t, mouserecord *mouse)
{
    if (mouse->buttons != BUTTONLEFTDRAG) return nullptr;
    windowstaterecord state;
    mouserecord now;
    errorblock *err = windowstate(self, &state);
    if (!err) err = getpointer(&now);
    if (err) return err;
    int32_t x = static_cast<int32_t>(now.x);
    dragbox bar = {
        .window = self,
        .type = DRAGBAR,
        .x0 = x,
        .y0 = state.y0,
        .x1 = x,
        .y1 = state.y1,
        .minx = state.x0,
        .miny = state.y0,
        .maxx = state.x1,
        .maxy = state.y1,
    };
    setdragfunctions(self, 0, splitterdone);
    return startdrag(&bar);
}

errorblock *panescreate()
{
    errorblock *err = gridviewopen(mainwindow);
    if (!err) err = solutionsopen(mainwindow);
    if (!err) err = swapbuttons(0);
    return err;
}

constexpr handlertable mainhandlers = {
    {.closed = calls<commandrun, COMMANDEXIT>},
    {.open = layoutmain},
    {.click = splitterclick},
    {.pointer = splitterpointer},
};

// Keys of the menu that no part of the window has for itself.
constexpr handlertable menukeys = {
    {.code = KEYPRESS | KEYF1, .keyed = calls<commandrun, COMMANDHELP>},
};

errorblock *handlersadd()
{
    errorblock *err = addhandlers(mainwindow, mainhandlers);
    for (window w : {mainwindow, gridwindow, solutionswindow})
        if (!err && w) err = dropsaccept(w);
    for (window w : {mainwindow, gridwindow, solutionswindow})
        if (!err && w) err = addhandlers(w, menukeys);
    if (!err) err = barkeysforward();
    return err;
}

// The size that shows the grid whole, the line at its end among it, and no less than
// there is. A unit more for what the conversions drop.
errorblock *sizewhole(windowstaterecord *state)
{
    int32_t height;
    errorblock *err = barheight(&height);
    if (err) return err;
    int32_t across = ostodevx(grid.width * grid.cellwidth) + 1;
    int32_t down = ostodevy(grid.height * grid.cellheight) + 1;
    int32_t width = layoutwidth(across, grid.splitfraction, splitterwidth());
    state->x1 = std::max(state->x1, state->x0 + devtoosx(width) + 1);
    state->y0 = std::min(state->y0, state->y1 - devtoosy(height + down) - 1);
    return nullptr;
}

// Opened in the middle of the screen, and once more with the size that the
// default grid remembers, or that the grid needs.
errorblock *mainshow()
{
    windowstaterecord state;
    errorblock *err = opencentred(mainwindow, 0);
    if (!err) err = windowstate(mainwindow, &state);
    if (!err && filewidth && fileheight) {
        state.x1 = state.x0 + filewidth;
        state.y0 = state.y1 - fileheight;
    } else if (!err) {
        err = sizewhole(&state);
    }
    if (!err) {
        centrestate(&state, 0);
        state.behind = BEHINDTOP;
        err = openinside(&state);
    }
    if (!err) err = panesplace();
    if (!err) err = setactive(mainwindow);
    return err;
}

} // namespace

errorblock *layoutmain(window, intptr_t, openrecord *open)
{
    if (open->state.wflags & STATEMINIMISED) return nullptr;
    return panesplace();
}

errorblock *layoutnow()
{
    return panesplace();
}

errorblock *openmainwindow()
{
    errorblock *err = createwindow(TEMPLATEMAIN, nullptr, &mainwindow, 0);
    if (err) return err;
    errorblock *panes = panescreate();
    settitlefromgrid();
    err = attachmenu(mainwindow, MENUMAIN);
    errorblock *wired = handlersadd();
    errorblock *shown = mainshow();
    if (!err) err = wired;
    if (!err) err = shown;
    return err ? err : panes;
}

errorblock *mainrestoresize()
{
    if (!mainwindow || !filewidth || !fileheight) return nullptr;
    restorewindow(mainwindow);
    windowstaterecord state;
    errorblock *err = windowstate(mainwindow, &state);
    if (err) return err;
    state.x1 = state.x0 + filewidth;
    state.y0 = state.y1 - fileheight;
    state.behind = BEHINDSAME;
    err = openinside(&state);
    return err ? err : panesplace();
}

void mainwindowresize(int32_t width, int32_t height)
{
    filewidth = width;
    fileheight = height;
    reporterror(mainrestoresize());
}

void mainwindowsize(int32_t *width, int32_t *height)
{
    *width = *height = 0;
    windowstaterecord state;
    if (!mainwindow || windowstate(mainwindow, &state)) return;
    *width = state.x1 - state.x0;
    *height = state.y1 - state.y0;
}
