#include "grid/gridwindow.h"

#include "grid/grid.h"
#include "tools/headless.h"

void gridredraw()
{
    headless.redraws++;
}
void gridextent()
{
    headless.extents++;
}
void settitlefromgrid()
{
    headless.titles++;
}
void gridbeep()
{
    headless.beeps++;
}
void stoprequest()
{
    headless.stops++;
}
bool searchunderway()
{
    return headless.searching;
}
void marklengthfield(int32_t length)
{
    headless.marklength = length;
}

void gridcellsredraw(int32_t left, int32_t top, int32_t right, int32_t bottom)
{
    headless.cellredraws++;
    headless.cells[0] = left;
    headless.cells[1] = top;
    headless.cells[2] = right;
    headless.cells[3] = bottom;
}

void gridcellshow(int32_t x, int32_t y)
{
    headless.shownx = x;
    headless.showny = y;
}

void resultsdrop()
{
    headless.resultsdropped++;
}

void gridkindapply(int32_t kind)
{
    grid.kind = kind;
    headless.kind = kind;
    headless.kindsapplied++;
}

void mainwindowsize(int32_t *width, int32_t *height)
{
    *width = headless.windowwidth;
    *height = headless.windowheight;
}

void mainwindowresize(int32_t width, int32_t height)
{
    headless.windowwidth = width;
    headless.windowheight = height;
}

void wordlistload(const char *)
{
    headless.wordlists++;
}
