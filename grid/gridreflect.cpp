#include "grid/gridreflect.h"

#include "grid/grid.h"
#include "grid/gridwindow.h"

namespace
{

constexpr uint8_t BARS = BARLEFT | BARTOP;

uint8_t bits(int32_t x, int32_t y, uint8_t mask)
{
    return grid.flags[x][y] & mask;
}

// The bits of the mask become those of value.
void bitsput(int32_t x, int32_t y, uint8_t mask, uint8_t value)
{
    grid.flags[x][y] = static_cast<uint8_t>((grid.flags[x][y] & ~mask) | (value & mask));
}

// A cell's flags onto another; of the mask's bits the other gets those of the
// cell opposite.
void flagscopy(int32_t x, int32_t y, int32_t tox, int32_t toy, uint8_t mask)
{
    uint8_t kept = bits(grid.width - 1 - x, grid.height - 1 - y, mask);
    grid.flags[tox][toy] = grid.flags[x][y];
    bitsput(tox, toy, mask, kept);
}

void columnmirror(int32_t x, int32_t y)
{
    uint8_t bar = bits(x, y, BARLEFT);
    flagscopy(x, y, grid.width - 1 - x, y, BARLEFT);
    bitsput(grid.width - x, y, BARLEFT, bar);
}

void rowmirror(int32_t x, int32_t y)
{
    uint8_t bar = bits(x, y, BARTOP);
    flagscopy(x, y, x, grid.height - 1 - y, BARTOP);
    bitsput(x, grid.height - y, BARTOP, bar);
}

void turn(int32_t x, int32_t y)
{
    uint8_t bars = bits(x, y, BARS);
    int32_t tox = grid.width - 1 - x, toy = grid.height - 1 - y;
    flagscopy(x, y, tox, toy, BARS);
    bitsput(tox, toy + 1, BARTOP, bars);
    bitsput(tox + 1, toy, BARLEFT, bars);
}

// The orders count: a bar is written to cells that are read later.

void horizontal()
{
    for (int32_t x = 0; x < (grid.width - 1) / 2; x++)
        for (int32_t y = 0; y < grid.height; y++)
            columnmirror(x, y);
}

void vertical()
{
    for (int32_t y = 0; y < (grid.height - 1) / 2; y++)
        for (int32_t x = 0; x < grid.width; x++)
            rowmirror(x, y);
}

void rising()
{
    for (int32_t y = 0; y < grid.height; y++)
        for (int32_t x = 0; x < grid.width * (grid.height - y) / grid.height; x++)
            turn(x, y);
}

void falling()
{
    for (int32_t y = 0; y < grid.height; y++)
        for (int32_t x = grid.width - 1; x >= grid.width * y / grid.height; x--)
            turn(x, y);
}

constexpr void (*REFLECTIONS[])() = {horizontal, vertical, rising, falling};

} // namespace

void gridreflect(int32_t which)
{
    markclear();
    resultsdrop();
    REFLECTIONS[which]();
    gridredraw();
    gridchange();
}
