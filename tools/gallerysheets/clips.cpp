// Clips: stripes over a whole cell, of which just the clip shows.

#include "base/errors.h"
#include "graphics/clip.h"
#include "graphics/colours.h"
#include "graphics/plot.h"
#include "tools/gallerysheets/page.h"
#include "tools/gallerysheets/sheets.h"

namespace
{

constexpr int32_t SIDE = 150, STEP = 180;

void stripes(int32_t x, int32_t y, uint32_t colour)
{
    setcolour(colour);
    for (int32_t i = 0; i < SIDE; i += 6)
        fillbox(x, y + i, SIDE, 4);
}

plotpoint cell(int32_t n, const char *name)
{
    plotpoint at = {20 + n % 4 * STEP, -80 - SIDE - n / 4 * (SIDE + 40)};
    clipreset();
    setcolour(FAINT);
    hollowbox(at.x, at.y, SIDE, SIDE);
    label(at.x, at.y + SIDE + 5, name);
    return at;
}

// Of straight lines: the system strokes a curve its own way.
void diamond(plotpoint at)
{
    pathbegin();
    moveto(at.x + 40, at.y + 75);
    lineto(at.x + 90, at.y + 25);
    lineto(at.x + 140, at.y + 75);
    lineto(at.x + 90, at.y + 125);
    pathclose();
    pathend();
}

errorblock *pathcell(int32_t n, const char *name, int32_t mode)
{
    plotpoint at = cell(n, name);
    errorblock *err = clipbox(at.x + 10, at.y + 10, at.x + 90, at.y + 140);
    diamond(at);
    if (!err) err = clippath(mode);
    stripes(at.x, at.y, BLUE);
    return err;
}

errorblock *boxcell(int32_t n)
{
    plotpoint at = cell(n, "clipbox, twice");
    errorblock *err = clipbox(at.x + 10, at.y + 10, at.x + 100, at.y + 140);
    if (!err) err = clipbox(at.x + 40, at.y + 40, at.x + 140, at.y + 100);
    stripes(at.x, at.y, BLUE);
    return err;
}

errorblock *finecell(int32_t n)
{
    plotpoint at = cell(n, "clipboxfine");
    errorblock *err = clipboxfine((at.x + 10) * 256 + 128, (at.y + 10) * 256,
                                  (at.x + 100) * 256 + 128, (at.y + 140) * 256);
    stripes(at.x, at.y, BLUE);
    return err;
}

// The saved clip comes back: blue in the inner one, green in the outer one.
errorblock *nestedcell(int32_t n)
{
    plotpoint at = cell(n, "clipsave and cliprestore");
    intptr_t outer;
    errorblock *err = clipbox(at.x + 10, at.y + 10, at.x + 140, at.y + 140);
    if (!err) err = clipsave(&outer);
    if (err) return err;
    err = clipbox(at.x + 40, at.y + 40, at.x + 110, at.y + 110);
    stripes(at.x, at.y, BLUE);
    errorblock *restored = cliprestore(outer);
    stripes(at.x, at.y + 3, GREEN);
    return err ? err : restored;
}

// The box round a slanting clip, and which small boxes it would show some of.
errorblock *visiblecell(int32_t n)
{
    plotpoint at = cell(n, "clipget (red), clipvisible (green)");
    int32_t x0, y0, x1, y1, kind;
    bool shows[15][15];
    diamond(at);
    errorblock *err = clippath(CLIPCOPY);
    if (!err) err = clipget(&x0, &y0, &x1, &y1, &kind);
    for (int32_t i = 0; !err && i < 225; i++) {
        int32_t x = (at.x + i % 15 * 10) * 256, y = (at.y + i / 15 * 10) * 256;
        err = clipvisible(x, y, x + 9 * 256, y + 9 * 256, &shows[i / 15][i % 15]);
    }
    if (err) return err;
    err = clipreset();
    for (int32_t i = 0; i < 225; i++) {
        setcolour(shows[i / 15][i % 15] ? 0x90E09000 : FAINT);
        fillbox(at.x + i % 15 * 10, at.y + i / 15 * 10, 9, 9);
    }
    setcolour(RED);
    hollowbox(x0, y0, x1 - x0, y1 - y0);
    return err;
}

} // namespace

errorblock *drawclips(const page *)
{
    heading(20, -30, "Clips");
    errorblock *err = boxcell(0);
    if (!err) err = finecell(1);
    if (!err) err = nestedcell(2);
    if (!err) err = visiblecell(3);
    if (!err) err = pathcell(4, "A box AND a diamond", CLIPAND);
    if (!err) err = pathcell(5, "A box without a diamond", CLIPDIFF);
    if (!err) err = pathcell(6, "The diamond alone", CLIPCOPY);
    if (!err) err = pathcell(7, "A box OR a diamond", CLIPOR);
    if (!err) err = pathcell(8, "A box XOR a diamond", CLIPXOR);
    plotpoint at = cell(9, "No clip");
    stripes(at.x, at.y, BLUE);
    return err;
}
