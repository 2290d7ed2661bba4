// Text alignments: each text with the position that it was plotted at.

#include "graphics/colours.h"
#include "graphics/fonts.h"
#include "graphics/plot.h"
#include "graphics/textplot.h"
#include "tools/gallerysheets/page.h"
#include "tools/gallerysheets/sheets.h"

namespace
{

const uint32_t across[] = {0, FONTCENTRE, FONTRIGHT, FONTRIGHT | FONTCENTRE};
const uint32_t down[] = {FONTTOP, 0, FONTBOTTOM, FONTTOP | FONTBOTTOM};
const char *const acrossname[] = {"left", "centre", "right", "right and centre"};
const char *const downname[] = {"top", "base line", "bottom", "top and bottom"};

void crosshair(int32_t x, int32_t y)
{
    setcolour(FAINT);
    moveto(x - 100, y);
    lineto(x + 100, y);
    moveto(x, y - 40);
    lineto(x, y + 40);
}

void aligned(int32_t i, int32_t j, uint32_t background)
{
    int32_t x = 130 + i * 230, y = -110 - j * 100;
    crosshair(x, y);
    labelf(x - 100, y - 50, "%s, %s", acrossname[i], downname[j]);
    fonthandle font;
    fontfindsize("Arial", 0, 14 * 16, 0, 0, &font);
    fontset(font, background, INK, 0);
    fontalign(across[i] | down[j]);
    plottext("\xC1"
             "jgy|",
             TEXTOSUNITS, x, y);
    fontlose(font);
    mark(x, y);
}

void word(const char *text, uint32_t colour, const char *face, int32_t points)
{
    fonthandle font;
    fontfindsize(face, 0, points * 16, 0, 0, &font);
    fontset(font, FONTCLEAR, colour, 0);
    fontalign(FONTCURSOR);
    plottext(text, TEXTOSUNITS, 0, 0);
    fontlose(font);
}

void running()
{
    heading(20, -510, "FONTCURSOR: words that go on where the last one ended, on one base line");
    setcolour(FAINT);
    moveto(20, -570);
    lineto(900, -570);
    moveto(40, -570);
    word("Words ", INK, "Arial", 14);
    word("of several ", RED, "Arial", 9);
    word("sizes ", BLUE, "Times New Roman", 24);
    word("and faces ", GREEN, "Courier New", 14);
    word("in one line", INK, "Arial", 14);
    int32_t x, y;
    getcursorpos(&x, &y);
    surfaceos(&x, &y);
    mark(x, y);
}

void turned(int32_t x, int32_t y, uint32_t align, const char *name)
{
    label(x - 60, y + 160, name);
    for (int32_t i = 0; i < 12; i++) {
        fonthandle font;
        fontfindangle("Arial", 0, 10 * 16, i * 30 * 0x10000, &font);
        fontset(font, FONTCLEAR, i ? INK : RED, 0);
        fontalign(align);
        plottext("     angle", TEXTOSUNITS, x, y);
        fontlose(font);
    }
    mark(x, y);
}

} // namespace

errorblock *drawaligned(const page *)
{
    heading(20, -30, "Alignments; the crosses are the positions told");
    for (int32_t i = 0; i < 4; i++)
        for (int32_t j = 0; j < 4; j++)
            aligned(i, j, i == 3 ? 0xC0F0FF00 : FONTCLEAR);
    running();
    heading(20, -620, "Angles, every 30 degrees, the first in red");
    turned(200, -820, 0, "On the base line");
    turned(500, -820, FONTTOP, "From the top");
    turned(800, -820, FONTBOTTOM, "From the bottom");
    return nullptr;
}
