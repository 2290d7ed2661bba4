#include "grid/gridpaint.h"

#include "base/boxes.h"
#include "desktop/redraw.h"
#include "graphics/colours.h"
#include "graphics/fonts.h"
#include "graphics/modeinfo.h"
#include "graphics/plot.h"
#include "graphics/surface.h"
#include "graphics/textmeasure.h"
#include "graphics/textplot.h"
#include "grid/appearance.h"
#include "grid/grid.h"
#include "grid/gridview.h"
#include "grid/gridwindow.h"

#include <algorithm>

namespace
{

constexpr uint32_t WHITE = 0xFFFFFF00;

// What of the grid is in the clip: OS units down the grid, and cells, with the
// last one included. A square more on each side is painted, since a letter can
// be larger than its square.
struct area {
    int32_t left, top, right, bottom;
    int32_t firstx, firsty, lastx, lasty;
};

area clipped(const redrawrecord &r)
{
    area a = {};
    a.left = std::max(r.cx0, 0);
    a.top = std::max(-r.cy1, 0);
    a.right = std::min(r.cx1, grid.width * grid.cellwidth);
    a.bottom = std::min(-r.cy0, grid.height * grid.cellheight);
    a.firstx = std::max(a.left / grid.cellwidth - 1, 0);
    a.firsty = std::max(a.top / grid.cellheight - 1, 0);
    a.lastx = std::min(a.right / grid.cellwidth + 1, grid.width - 1);
    a.lasty = std::min(a.bottom / grid.cellheight + 1, grid.height - 1);
    return a;
}

uint8_t kind(int32_t x, int32_t y)
{
    return grid.flags[x][y] & CELLKIND;
}

// Whether the square is painted, and in which colour.
bool squarecolour(int32_t x, int32_t y, bool background, uint32_t *colour)
{
    *colour = grid.backcolour;
    if (kind(x, y) == CELLBLOCK)
        *colour = grid.fillcolour;
    else if (kind(x, y) == CELLMARKED)
        *colour = selectedcolour;
    else if (x == grid.cursorx && y == grid.cursory)
        *colour = cursorcolour;
    else
        return background;
    return true;
}

void square(int32_t x, int32_t y)
{
    fillbox(x * grid.cellwidth, -(y + 1) * grid.cellheight, grid.cellwidth, grid.cellheight);
}

// A colour makes a pen and a brush, so it is set when it changes.
void squares(const area &a, bool background)
{
    bool set = false;
    uint32_t now = 0;
    for (int32_t y = a.firsty; y <= a.lasty; y++)
        for (int32_t x = a.firstx; x <= a.lastx; x++) {
            uint32_t colour;
            if (!squarecolour(x, y, background, &colour)) continue;
            if (!set || colour != now) setcolour(colour);
            set = true;
            now = colour;
            square(x, y);
        }
}

// On a block, which keeps its colour, the cursor is a frame inside it.
void blockcursor()
{
    int32_t x = grid.cursorx, y = grid.cursory;
    if (!gridinside(x, y) || kind(x, y) != CELLBLOCK) return;
    setcolour(cursorcolour);
    square(x, y);
    int32_t across = std::max(grid.cellwidth / 8, 1), down = std::max(grid.cellheight / 8, 1);
    setcolour(grid.fillcolour);
    fillbox(x * grid.cellwidth + across, -(y + 1) * grid.cellheight + down,
            grid.cellwidth - 2 * across, grid.cellheight - 2 * down);
}

// A letter stands as it is stored; what isn't there draws nothing.
void letter(int32_t x, int32_t y, int32_t down)
{
    char text = static_cast<char>(grid.letters[x][y]);
    if (kind(x, y) == CELLBLOCK || !text || text == ' ') return;
    plottextn(&text, 1, TEXTOSUNITS, x * grid.cellwidth + grid.cellwidth / 2,
              -y * grid.cellheight - down);
}

errorblock *letters(const area &a)
{
    fonthandle font;
    errorblock *err = fontfind(&grid.gridfont, &font);
    if (err) return err;
    fontset(font, FONTCLEAR, grid.textcolour, 0);
    fontalign(FONTCENTRE);
    fontmetrics metrics = {};
    err = fontmetricsget(&metrics);
    int32_t above = (grid.cellheight - devtoosy(metrics.height)) / 2;
    int32_t down = above + devtoosy(metrics.ascent);
    for (int32_t y = a.firsty; y <= a.lasty; y++)
        for (int32_t x = a.firstx; x <= a.lastx; x++)
            letter(x, y, down);
    fontlose(font);
    return err;
}

// Pixels of the surface: a bar is as thick at any size.
void bars(int32_t x, int32_t y)
{
    uint8_t flags = grid.flags[x][y];
    if (!(flags & (BARLEFT | BARTOP))) return;
    int32_t left = x * grid.cellwidth, top = -y * grid.cellheight;
    int32_t right = left + grid.cellwidth, bottom = top - grid.cellheight;
    surfacedevice(&left, &top);
    surfacedevice(&right, &bottom);
    surfacescale scale;
    surfacestate(currentsurface, &scale);
    surfaceidentityup(currentsurface);
    for (int32_t pixel = 1; pixel <= 2; pixel++) {
        if (flags & BARTOP) {
            moveto(left, top + pixel);
            lineto(right, top + pixel);
        }
        if (flags & BARLEFT) {
            moveto(left + pixel, top);
            lineto(left + pixel, bottom);
        }
    }
    surfacesetstate(currentsurface, &scale);
}

void lines(const area &a)
{
    setcolour(grid.gridcolour);
    for (int32_t y = a.firsty; y <= a.lasty; y++)
        for (int32_t x = a.firstx; x <= a.lastx; x++)
            bars(x, y);
    for (int32_t y = a.firsty; y <= a.lasty + 1; y++) {
        moveto(a.left, -y * grid.cellheight);
        lineto(a.right, -y * grid.cellheight);
    }
    for (int32_t x = a.firstx; x <= a.lastx + 1; x++) {
        moveto(x * grid.cellwidth, -a.top);
        lineto(x * grid.cellwidth, -a.bottom);
    }
}

// The update reaches to the far edges of the last squares.
errorblock *cellsredraw(int32_t left, int32_t top, int32_t right, int32_t bottom)
{
    return updatewith(
        gridwindow, left * grid.cellwidth, -(bottom + 1) * grid.cellheight,
        (right + 1) * grid.cellwidth, -top * grid.cellheight,
        [](const redrawrecord &r, intptr_t) { return gridredrawcells(r, true); }, 0);
}

} // namespace

// White is the window's own background. Squares come before all letters and
// those before all bars, so that it doesn't matter where painting begins.
errorblock *gridredrawcells(const redrawrecord &r, bool background)
{
    area a = clipped(r);
    if (a.left > a.right || a.top > a.bottom) return nullptr;
    if (grid.backcolour != WHITE) {
        setcolour(grid.backcolour);
        fillbox(a.left, -a.bottom, a.right - a.left, a.bottom - a.top);
    }
    squares(a, background);
    blockcursor();
    errorblock *err = letters(a);
    lines(a);
    return err;
}

errorblock *gridpaint(window self, intptr_t)
{
    return redrawwith(
        self, [](const redrawrecord &r, intptr_t) { return gridredrawcells(r, false); }, 0);
}

void gridcellsredraw(int32_t left, int32_t top, int32_t right, int32_t bottom)
{
    if (gridwindow) reporterror(cellsredraw(left, top, right, bottom));
}
