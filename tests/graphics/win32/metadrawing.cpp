#include "tests/graphics/win32/metadrawing.h"

#include "graphics/colours.h"
#include "graphics/fonts.h"
#include "graphics/plot.h"
#include "graphics/spriteplot.h"
#include "graphics/textplot.h"
#include "tests/graphics/spritemade.h"

static void drawboxes()
{
    setcolour(0xE0F8FF00);
    fillbox(0, 0, DRAWINGWIDTH, DRAWINGHEIGHT);
    setcolour(0x00800000);
    fillbox(20, 20, 21, 21);
    drawbox(60, 20, 20, 10);
    hollowbox(100, 20, 30, 15);
    setcolour(0xC0000000);
    linebox(140, 20, 40, 15);
}

static void drawlines()
{
    setcolour(0x00000000);
    for (int32_t x = 0; x <= 200; x += 40) {
        moveto(x, 0);
        lineto(x, 120);
    }
    setcolour(0x0000FF00);
    moveto(3, 100);
    lineto(60, 70);
}

static void drawtext()
{
    fonthandle font;
    fontfindsize("Arial", 0, 12 * 16, 0, 0, &font);
    fontset(font, FONTCLEAR, 0x30000000, 0);
    fontalign(FONTCENTRE);
    plottext("Quillmere", TEXTOSUNITS, 100, 60);
    fontcolour(0x00008000);
    fontalign(0);
    plottext("\xC9t\xE9 \x80", TEXTOSUNITS, 70, 110);
    fontlose(font);
}

static void drawsprite()
{
    spritemade made = spritestriped(4, 12, 9, true);
    std::string bytes = spritebytes(made);
    flexptr area = nullptr;
    if (spriteinit(&area)) return;
    spriteplot(area, spriteitself(spritein(bytes)), 0, 150, 90, nullptr, nullptr);
    flex_free(&area);
}

void metadraw()
{
    drawboxes();
    drawlines();
    drawtext();
    drawsprite();
}
