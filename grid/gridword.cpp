// The grid's words, row by row, an across word before the down word of the same
// cell. A bar on a word's first cell doesn't matter: it ends the word before.
#include "grid/grid.h"

namespace
{

// The two ways of running: a step, the bar that ends a word, and the visited
// bit of a cell whose word this way is known.
struct way {
    int32_t dx, dy;
    uint8_t bar, visited;
};

constexpr way WAYS[] = {
    {1, 0, BARLEFT, VISITEDACROSS},
    {0, 1, BARTOP, VISITEDDOWN},
};

// Blocks bear both visited bits during a scan, so they are walls here.
bool wordstarts(int32_t x, int32_t y, const way &way)
{
    if (grid.flags[x][y] & way.visited) return false;
    x += way.dx;
    y += way.dy;
    return gridinside(x, y) && !(grid.flags[x][y] & (way.visited | way.bar));
}

void wordtake(int32_t x, int32_t y, const way &way, char *buffer)
{
    do {
        grid.flags[x][y] |= way.visited;
        *buffer++ = static_cast<char>(gridletter(x, y));
        x += way.dx;
        y += way.dy;
    } while (gridinside(x, y) && (grid.flags[x][y] & CELLKIND) != CELLBLOCK &&
             !(grid.flags[x][y] & way.bar));
    *buffer = 0;
}

} // namespace

void gridvisitreset()
{
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++) {
            uint8_t &flags = grid.flags[x][y];
            if ((flags & CELLKIND) == CELLBLOCK)
                flags |= VISITEDBOTH;
            else
                flags &= static_cast<uint8_t>(~VISITEDBOTH);
        }
}

// Every word before the one asked for is walked again on each call: the text
// stays one grid's, whatever was edited between two calls.
bool gridword(char *buffer, int32_t n)
{
    gridvisitreset();
    for (int32_t y = 0; y < grid.height; y++)
        for (int32_t x = 0; x < grid.width; x++)
            for (const way &way : WAYS) {
                if (!wordstarts(x, y, way)) continue;
                wordtake(x, y, way, buffer);
                if (n-- == 0) return true;
            }
    return false;
}
