#include "grid/gridwindow.h"

#include "grid/grid.h"
#include "tools/headless.h"

// What a screen would show of a cell; it is never reset, since whoever looks
// draws everything first.
static uint32_t drawn[GRIDSTRIDE][GRIDSTRIDE];

static uint32_t looks(int32_t x, int32_t y)
{
    constexpr uint32_t CURSOR = 0x10000;
    uint32_t flags = grid.flags[x][y] & (CELLKIND | BARLEFT | BARTOP);
    bool cursor = x == grid.cursorx && y == grid.cursory;
    return (cursor ? CURSOR : 0) | flags << 8 | grid.letters[x][y];
}

static void draw(int32_t left, int32_t top, int32_t right, int32_t bottom)
{
    for (int32_t x = left; x <= right; x++)
        for (int32_t y = top; y <= bottom; y++)
            if (gridinside(x, y)) drawn[x][y] = looks(x, y);
}

bool headlessdrawn()
{
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++)
            if (drawn[x][y] != looks(x, y)) return false;
    return true;
}

void gridredraw()
{
    headless.redraws++;
    draw(0, 0, grid.width - 1, grid.height - 1);
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
    draw(left, top, right, bottom);
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
