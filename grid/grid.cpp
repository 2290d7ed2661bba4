#include "grid/grid.h"

#include "base/chars.h"
#include "base/random.h"
#include "base/text.h"
#include "grid/appearance.h"
#include "grid/gridwindow.h"

#include <algorithm>
#include <cstring>

griddocument grid;

// What isn't named here starts from 0.
void gridreset()
{
    grid = {};
    grid.width = grid.height = 16;
    grid.cursorx = grid.cursory = 5;
    grid.markleft = grid.markright = grid.marktop = grid.markbottom = -1;
    grid.marklength = -1;
    grid.minwordlength = 5;
    grid.filldirections = 15;
    grid.showsolutions = 1;
    grid.splitfraction = SPLITDEFAULT;
    gridclear();
    dirtyreset();

    appearancereset();
    gridsetdefaults();
    gridsquaresize();
}

// The document's name and its changed mark.

// Only the first change alters the title, so typing doesn't rebuild it with
// every letter.
void gridchange()
{
    if (++grid.changed == 1) settitlefromgrid();
}

void gridunchanged()
{
    grid.changed = 0;
}

int gridsunsaved()
{
    return grid.changed ? 1 : 0;
}

// The commands pass the document's own name back in.
void gridsetfilename(const char *path)
{
    if (path != grid.filename) strcopyn(grid.filename, path, sizeof grid.filename);
    settitlefromgrid();
}

void gridnew()
{
    gridclear();
    markclear();
    resultsdrop();
    gridredraw();
    gridunchanged();
    gridsetfilename("");
}

void gridnewwords()
{
    markclear();
    resultsdrop();
    gridclearwords();
    gridredraw();
    gridchange();
}

// Clearing. The reach of each differs on purpose: what lies outside the grid
// comes back with a larger size unless it was cleared with the rest.

void gridclear()
{
    memset(grid.letters, ' ', sizeof grid.letters);
    for (auto &column : grid.flags)
        for (uint8_t &flags : column)
            flags &= static_cast<uint8_t>(~(CELLKIND | BARLEFT | BARTOP));
}

// Marked cells keep their letters too: whoever wants them gone unmarks first.
void gridclearwords()
{
    for (int32_t x = 0; x < GRIDSTRIDE; x++)
        for (int32_t y = 0; y < GRIDSTRIDE; y++)
            if ((grid.flags[x][y] & CELLKIND) == CELLOPEN) grid.letters[x][y] = ' ';
}

void gridclearfill()
{
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++) {
            grid.letters[x][y] = ' ';
            grid.flags[x][y] &= static_cast<uint8_t>(~CELLKIND);
            grid.counts[x][y] = 0;
        }
}

void gridclearcounts()
{
    memset(grid.counts, 0, sizeof grid.counts);
}

void gridfillrandom()
{
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++)
            if (grid.letters[x][y] == ' ')
                grid.letters[x][y] = static_cast<uint8_t>('a' + randomdraw() % 26);
}

uint8_t gridcase(uint8_t ch)
{
    if (grid.casemode == CASEUPPER) return asciiupper(ch);
    if (grid.casemode == CASELOWER) return asciilower(ch);
    return ch;
}

bool gridinside(int32_t x, int32_t y)
{
    return x >= 0 && x < grid.width && y >= 0 && y < grid.height;
}

uint8_t gridletter(int32_t x, int32_t y)
{
    uint8_t letter = grid.letters[x][y];
    return letter ? letter : ' ';
}

// Font height and scale come from files too: the bounds keep the product from
// overflowing, squares from vanishing, and the extent of 127 of them in range.
void gridsquaresize()
{
    constexpr int64_t FACTORMAX = 1 << 20, SQUAREMAX = 1 << 13;
    int64_t height = std::clamp<int64_t>(grid.gridfont.height, 0, FACTORMAX);
    int64_t scale = std::clamp<int64_t>(grid.squarescale, 0, FACTORMAX);
    int64_t square = std::clamp<int64_t>(height * 180 * scale / 115200, 1, SQUAREMAX);
    grid.cellwidth = grid.cellheight = static_cast<int32_t>(square);
}
