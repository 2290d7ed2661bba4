// A pane larger than its window: both bars, keys that scroll, and marks that are
// painted at once where the pointer is pressed.
#include "base/syserr.h"
#include "desktop/handlers.h"
#include "desktop/icons.h"
#include "desktop/keynames.h"
#include "desktop/redraw.h"
#include "desktop/templates.h"
#include "desktop/windows.h"
#include "graphics/colours.h"
#include "graphics/fonts.h"
#include "graphics/plot.h"
#include "graphics/textplot.h"
#include "tools/deskdemo/deskdemo.h"

#include <cstdio>
#include <iterator>

namespace
{

// OS units.
constexpr int32_t WIDTH = 1600, HEIGHT = 1200, CELL = 100, MARKSIZE = 10;
constexpr uint32_t GREYLINE = 0xC0C0C000, BLACK = 0, RED = 0x0000FF00;
constexpr fontrecord FONT = {8 * 16, 0, "Arial", 0, 400, 0};

struct place {
    int32_t x, y; // of the work area
};

struct {
    window self;
    place marks[64];
    int32_t count;
} sheet;

// The cell's own place in the work area. Nothing here knows how far the view
// has moved.
void cell(int32_t x, int32_t y)
{
    char text[16];
    snprintf(text, sizeof text, "%d.%d", static_cast<int>(x), static_cast<int>(y));
    setcolour(GREYLINE);
    hollowbox(x * CELL, -(y + 1) * CELL, CELL, CELL);
    plottext(text, TEXTOSUNITS, x * CELL + CELL / 2, -y * CELL - CELL / 2);
}

// Only the cells that meet the clip.
void cells(const redrawrecord &r)
{
    for (int32_t y = 0; y < HEIGHT / CELL; y++)
        for (int32_t x = 0; x < WIDTH / CELL; x++)
            if (r.cx0 < (x + 1) * CELL && r.cx1 > x * CELL && r.cy0 < -y * CELL &&
                r.cy1 > -(y + 1) * CELL)
                cell(x, y);
}

void marks()
{
    setcolour(RED);
    for (int32_t n = 0; n < sheet.count; n++)
        fillbox(sheet.marks[n].x - MARKSIZE / 2, sheet.marks[n].y - MARKSIZE / 2, MARKSIZE,
                MARKSIZE);
}

void paint(const redrawrecord &r)
{
    fonthandle font;
    fontfind(&FONT, &font);
    fontset(font, FONTCLEAR, BLACK, 0);
    fontalign(FONTCENTRE);
    cells(r);
    fontlose(font);
    marks();
}

errorblock *redraw(window self, intptr_t)
{
    redrawrecord r = {};
    r.self = self;
    int more;
    errorblock *err = redrawin(&r, &more);
    while (!err && more) {
        paint(r);
        err = redrawnext(&r, &more);
    }
    return err;
}

// Without waiting for the system to ask: the rectangle is of the work area.
errorblock *markpaint(place at)
{
    redrawrecord r = {};
    r.self = sheet.self;
    r.x0 = at.x - MARKSIZE;
    r.y0 = at.y - MARKSIZE;
    r.x1 = at.x + MARKSIZE;
    r.y1 = at.y + MARKSIZE;
    int more;
    errorblock *err = updatewindow(&r, &more);
    while (!err && more) {
        marks();
        err = redrawnext(&r, &more);
    }
    return err;
}

// From the screen into the work area.
errorblock *click(window self, intptr_t, mouserecord *mouse)
{
    windowinforecord info;
    errorblock *err = windowinfo(self, &info);
    if (err || mouse->buttons != BUTTONLEFT) return err;
    place at = {static_cast<int32_t>(mouse->x) - info.xorigin,
                static_cast<int32_t>(mouse->y) - info.yorigin};
    if (sheet.count == static_cast<int32_t>(std::size(sheet.marks))) return nullptr;
    sheet.marks[sheet.count++] = at;
    logline("A mark at %d, %d", static_cast<int>(at.x), static_cast<int>(at.y));
    return markpaint(at);
}

errorblock *key(window self, intptr_t, int32_t, int32_t *code)
{
    if (*code != KEYESCAPE) return scrollkey(self, code);
    *code = KEYCLAIMED;
    sheetend();
    return nullptr;
}

errorblock *opened(window, intptr_t, openrecord *open)
{
    logline("The pane shows %d, %d", static_cast<int>(open->state.xscroll),
            static_cast<int>(open->state.yscroll));
    return nullptr;
}

errorblock *closed(window, intptr_t)
{
    sheetend();
    return nullptr;
}

errorblock *handlersadd(window w)
{
    errorblock *err = addredrawhandler(redraw, w, 0);
    if (!err) err = addclickhandler(click, w, 0);
    if (!err) err = addkeyhandler(key, w, 0);
    if (!err) err = addopenhandler(opened, w, 0);
    if (!err) err = addclosehandler(closed, w, 0);
    return err;
}

void handlersremove(window w)
{
    remclosehandler(closed, w, 0);
    remopenhandler(opened, w, 0);
    remkeyhandler(key, w, 0);
    remclickhandler(click, w, 0);
    remredrawhandler(redraw, w, 0);
}

} // namespace

// Its keys are its own: none of them moves between controls. It can't be made
// larger than what there is to see.
errorblock *sheetopen()
{
    if (sheet.self) return raisewindow(sheet.self, 0, nullptr);
    sheet = {};
    errorblock *err = createchild(TEMPLATESHEET, &sheet.self, demowindow);
    if (!err) err = setflags(sheet.self, WINDOWNONAVIGATION | WINDOWMAXEXTENT, 0);
    if (!err) err = setbackground(sheet.self, BACKGROUNDWHITE);
    if (!err) err = setextent(sheet.self, 0, -HEIGHT, WIDTH, 0);
    if (!err) err = handlersadd(sheet.self);
    if (!err) err = opencentred(sheet.self, 3);
    if (!err) err = focuswindow(sheet.self);
    if (!err) return nullptr;
    kepterror kept = keeperror(err);
    sheetend();
    return firsterror(kept, nullptr);
}

void sheetend()
{
    if (!sheet.self) return;
    handlersremove(sheet.self);
    removewindow(&sheet.self);
}
