#include "grid/gridtype.h"

#include "base/chars.h"
#include "grid/grid.h"
#include "grid/gridwindow.h"

namespace
{

bool hascursor()
{
    return gridinside(grid.cursorx, grid.cursory);
}

bool open(int32_t x, int32_t y)
{
    return gridinside(x, y) && (grid.flags[x][y] & CELLKIND) != CELLBLOCK;
}

bool unbarred(int32_t x, int32_t y, uint8_t bar)
{
    return open(x, y) && !(grid.flags[x][y] & bar);
}

// Whether the last move was this one. A jump over blocks was none.
bool lastmove(int32_t dx, int32_t dy)
{
    return grid.cursorx - grid.lastcursorx == dx && grid.cursory - grid.lastcursory == dy;
}

// The view follows before the cell is drawn, or what is drawn would be scrolled
// from under it.
void place(int32_t x, int32_t y)
{
    grid.lastcursorx = grid.cursorx;
    grid.lastcursory = grid.cursory;
    grid.cursorx = x;
    grid.cursory = y;
    gridcellshow(x, y);
}

void cursorput(int32_t x, int32_t y)
{
    cursordrawoff();
    place(x, y);
    cursordraw();
}

void stepforward()
{
    int32_t x = grid.cursorx, y = grid.cursory;
    bool across = unbarred(x + 1, y, BARLEFT), down = unbarred(x, y + 1, BARTOP);
    if (across && (lastmove(1, 0) || !down))
        place(x + 1, y);
    else if (down && (lastmove(0, 1) || !across))
        place(x, y + 1);
    else
        gridbeep();
}

void stepback()
{
    int32_t x = grid.cursorx, y = grid.cursory;
    bool left = open(x - 1, y), up = open(x, y - 1);
    if (left && (lastmove(-1, 0) || !up))
        place(x - 1, y);
    else if (up && (lastmove(0, -1) || !left))
        place(x, y - 1);
    else
        gridbeep();
}

void cellput(uint8_t ch, void (*step)())
{
    grid.letters[grid.cursorx][grid.cursory] = ch;
    cursordrawoff();
    step();
    cursordraw();
    gridchange();
}

} // namespace

void cursorto(int32_t x, int32_t y)
{
    cursordrawoff();
    grid.cursorx = grid.lastcursorx = x;
    grid.cursory = grid.lastcursory = y;
    cursordraw();
}

void cursormove(int32_t dx, int32_t dy)
{
    if (!hascursor()) return;
    int32_t x = grid.cursorx + dx, y = grid.cursory + dy;
    while (gridinside(x, y) && !open(x, y)) {
        x += dx;
        y += dy;
    }
    if (gridinside(x, y)) cursorput(x, y);
}

void cursorstep(int32_t dx, int32_t dy)
{
    int32_t x = grid.cursorx + dx, y = grid.cursory + dy;
    if (hascursor() && gridinside(x, y)) cursorput(x, y);
}

void gridtype(uint8_t ch)
{
    uint8_t letter = gridcase(ch);
    bool kept = letter == ' ' || letter == '*' || charisletter(letter);
    if (kept && hascursor()) cellput(letter, stepforward);
}

void griderase()
{
    if (hascursor()) cellput(' ', stepback);
}
