#include "output/picture.h"

#include "base/chars.h"
#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/trace.h"
#include "find/solutions.h"
#include "graphics/colours.h"
#include "graphics/fonts.h"
#include "graphics/metafile.h"
#include "graphics/modeinfo.h"
#include "graphics/plot.h"
#include "graphics/textmeasure.h"
#include "graphics/textplot.h"
#include "grid/grid.h"
#include "output/numbering.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace
{

constexpr int32_t NUMBERLEFT = 3, NUMBERTOP = 2; // of a clue number in its square
constexpr int32_t PLACEABLEINCH = 120;           // units to the inch of the placeable kind

errorblock *background(int32_t square)
{
    errorblock *err = setcolour(grid.backcolour);
    if (!err) err = fillbox(0, 0, grid.width * square, grid.height * square);
    return err;
}

errorblock *line(int32_t x0, int32_t y0, int32_t x1, int32_t y1)
{
    errorblock *err = moveto(x0, y0);
    if (!err) err = lineto(x1, y1);
    return err;
}

errorblock *gridlines(int32_t square)
{
    int32_t width = grid.width * square, height = grid.height * square;
    errorblock *err = setcolour(grid.gridcolour);
    for (int32_t x = 0; x <= grid.width && !err; x++)
        err = line(x * square, 0, x * square, height);
    for (int32_t y = 0; y <= grid.height && !err; y++)
        err = line(0, y * square, width, y * square);
    return err;
}

// Calls paint for each cell, by column then row, until an error.
errorblock *eachcell(const picturesizes *sizes,
                     errorblock *(*paint)(const picturesizes *, int32_t, int32_t))
{
    errorblock *err = nullptr;
    for (int32_t x = 0; x < grid.width && !err; x++)
        for (int32_t y = 0; y < grid.height && !err; y++)
            err = paint(sizes, x, y);
    return err;
}

// A box by its corners: the record of an enhanced metafile's rectangle has one unit less
// on two sides, and of a bar that is half.
errorblock *solid(int32_t x, int32_t y, int32_t width, int32_t height)
{
    errorblock *err = plot(PLOTMOVE, x, y);
    if (!err) err = plot(PLOTMOVE, x + width, y);
    if (!err) err = plot(PLOTPARALLELOGRAM | PLOTDRAW, x + width, y + height);
    return err;
}

// A bar is two units thick and lies astride its edge.
errorblock *bars(const picturesizes *sizes, int32_t x, int32_t y)
{
    int32_t square = sizes->square, left = x * square, top = y * square;
    errorblock *err = nullptr;
    if (grid.flags[x][y] & BARLEFT) err = solid(left - 1, top, 2, square);
    if (!err && (grid.flags[x][y] & BARTOP)) err = solid(left, top - 1, square, 2);
    return err;
}

// One unit larger than its square, so that no frame of another colour shows
// between blocks.
errorblock *block(const picturesizes *sizes, int32_t x, int32_t y)
{
    if ((grid.flags[x][y] & CELLKIND) != CELLBLOCK) return nullptr;
    int32_t square = sizes->square;
    return solid(x * square, y * square, square + 1, square + 1);
}

errorblock *numbers(const picturesizes *sizes)
{
    fonthandle font = 0;
    errorblock *err = fontfind(&grid.cluefont, &font);
    if (!err) err = fontset(font, FONTCLEAR, grid.textcolour, 0);
    if (!err) err = fontalign(0);
    numberedcell cell;
    numberingstart(&cell);
    while (!err && numberingnext(&cell)) {
        char text[16];
        snprintf(text, sizeof text, "%d", cell.number);
        err = plottext(text, TEXTOSUNITS, cell.x * sizes->square + NUMBERLEFT,
                       cell.y * sizes->square + sizes->clueascent + NUMBERTOP);
    }
    fontlose(font);
    return err;
}

errorblock *letter(const picturesizes *sizes, int32_t x, int32_t y)
{
    uint8_t ch = grid.letters[x][y];
    if ((grid.flags[x][y] & CELLKIND) == CELLBLOCK || ch == ' ' || ch == 0) return nullptr;
    if (grid.pictureupper) ch = charupper(ch);
    char text[2] = {static_cast<char>(ch), 0};
    int32_t square = sizes->square;
    return plottext(text, TEXTOSUNITS, x * square + square / 2,
                    y * square + sizes->gridascent + (square - sizes->gridheight) / 2);
}

errorblock *letters(const picturesizes *sizes)
{
    fonthandle font = 0;
    errorblock *err = fontfind(&grid.gridfont, &font);
    if (!err) err = fontset(font, FONTCLEAR, grid.textcolour, 0);
    if (!err) err = fontalign(FONTCENTRE);
    if (!err) err = eachcell(sizes, letter);
    fontlose(font);
    return err;
}

// A word that is not placed has -1 in all its fields. A line for it would lie outside
// the picture and move its bounds.
errorblock *solutionline(const picturesizes *sizes, const wsentry *entry)
{
    if (entry->x < 0) return nullptr;
    int32_t square = sizes->square, more = static_cast<int32_t>(strlen(entry->text)) - 1;
    int32_t lastx = entry->x + more * entry->dx, lasty = entry->y + more * entry->dy;
    return line(entry->x * square + square / 2, entry->y * square + square / 2,
                lastx * square + square / 2, lasty * square + square / 2);
}

errorblock *solutionlines(const picturesizes *sizes)
{
    errorblock *err = nullptr;
    for (int32_t i = 0; i < solutions.count && !err; i++)
        err = solutionline(sizes, solword(i));
    return err;
}

errorblock *crosswordmarks(const picturesizes *sizes)
{
    errorblock *err = eachcell(sizes, bars);
    if (!err) err = setcolour(grid.fillcolour);
    if (!err) err = eachcell(sizes, block);
    if (!err) err = numbers(sizes);
    return err;
}

// The records of the older kinds hold 16 bits.
errorblock *sizecheck(int32_t kind, int32_t width, int32_t height)
{
    if (kind == PICTUREENHANCED || std::max(width, height) <= INT16_MAX) return nullptr;
    return makeerrortext(EPICTURE, "A picture of %d by %d units is too large for a *.wmf file.",
                         width, height);
}

errorblock *open(int32_t kind, const char *path, int32_t width, int32_t height, intptr_t *dc)
{
    if (kind == PICTUREENHANCED) return metaopenenhanced(path, 0, width, height, dc, "Calendar");
    return metaopen(0, width, height, dc);
}

errorblock *close(int32_t kind, errorblock *err, const char *path, int32_t width, int32_t height,
                  intptr_t dc)
{
    if (kind == PICTUREENHANCED) return metacloseenhanced(err, dc);
    if (kind == PICTUREMETAFILE) return metaclose(err, dc, path);
    return metacloseplaceable(err, dc, path, 0, static_cast<int16_t>(width),
                              static_cast<int16_t>(height), 0, PLACEABLEINCH);
}

} // namespace

errorblock *picturemetrics(picturesizes *sizes)
{
    sizes->square = grid.cellwidth;
    trace("mfmeshx %d", sizes->square);
    fontmetrics metrics;
    errorblock *err = fontinfo(&grid.gridfont, &metrics);
    if (err) return err;
    sizes->gridascent = devtoosy(metrics.ascent);
    sizes->gridheight = devtoosy(metrics.height);
    err = fontinfo(&grid.cluefont, &metrics);
    if (!err) sizes->clueascent = devtoosy(metrics.ascent);
    return err;
}

errorblock *picturedraw(const picturesizes *sizes)
{
    errorblock *err = background(sizes->square);
    if (!err) err = gridlines(sizes->square);
    if (!err && grid.kind == GRIDCROSSWORD) err = crosswordmarks(sizes);
    if (!err) err = letters(sizes);
    if (!err && grid.kind == GRIDWORDSQUARE && grid.showsolutions) err = solutionlines(sizes);
    return err;
}

errorblock *picturesave(int32_t kind, const char *path)
{
    picturesizes sizes;
    errorblock *err = picturemetrics(&sizes);
    if (err) return err;
    int32_t width = grid.width * sizes.square + 1, height = grid.height * sizes.square + 1;
    intptr_t dc = 0;
    err = sizecheck(kind, width, height);
    if (err) return err;
    err = open(kind, path, width, height, &dc);
    if (!err) err = picturedraw(&sizes);
    return close(kind, err, path, width, height, dc);
}
