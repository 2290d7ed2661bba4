// One drawing on the screen's way and in metafiles.

#include "base/errors.h"
#include "graphics/colours.h"
#include "graphics/fonts.h"
#include "graphics/metafile.h"
#include "graphics/plot.h"
#include "graphics/spriteplot.h"
#include "graphics/textplot.h"
#include "tools/gallerysheets/page.h"
#include "tools/gallerysheets/sheets.h"

#include <cstdio>

namespace
{

constexpr int32_t WIDTH = 400, HEIGHT = 300, CELL = 28, ORIGIN = 20;

// A puzzle in small: squares, blocks, numbers and letters.
void drawgrid()
{
    const char *const rows[] = {"QUILL.MERE", "U.N.E.A.D.", "IDEAS.PINE", "L.W.S.LE.A",
                                "LEAST.EGGS"};
    fonthandle letters, numbers;
    fontfindpixel("Times New Roman", 0, 18, 0, &letters);
    fontfindpixel("Arial", 0, 8, 0, &numbers);
    for (int32_t i = 0; i < 50; i++) {
        int32_t x = ORIGIN + i % 10 * CELL, y = ORIGIN + i / 10 * CELL;
        char letter = rows[i / 10][i % 10], number[4];
        std::snprintf(number, sizeof number, "%d", i + 1);
        setcolour(letter == '.' ? INK : 0xE8F8FF00);
        drawbox(x, y, CELL, CELL);
        setcolour(INK);
        linebox(x, y, CELL, CELL);
        if (letter == '.') continue;
        fontset(letters, FONTCLEAR, BLUE, 0);
        fontalign(FONTCENTRE);
        plottextn(&letter, 1, TEXTOSUNITS, x + CELL / 2, y + 23);
        fontset(numbers, FONTCLEAR, INK, 0);
        fontalign(FONTTOP);
        plottext(number, TEXTOSUNITS, x + 2, y + 1);
    }
    fontlose(letters);
    fontlose(numbers);
}

void drawfigures()
{
    setcolour(GREEN);
    plot(PLOTMOVE, 60, 200);
    plot(PLOTCIRCLE + PLOTDRAW, 90, 200);
    setcolour(RED);
    plot(PLOTMOVE, 120, 230);
    plot(PLOTMOVE, 150, 175);
    plot(PLOTTRIANGLE + PLOTDRAW, 180, 230);
    setcolour(BLUE);
    hollowbox(200, 175, 50, 55);
    fillbox(210, 185, 30, 35);
    for (int32_t i = 0; i <= 40; i += 8) {
        moveto(270, 175 + i);
        lineto(330, 215 - i);
    }
}

errorblock *drawwarning()
{
    errorblock *err = initsprites();
    if (err) return err;
    err = addspritesshared(nullptr, "Sprites.spr");
    if (!err) err = spriteplot(spritepool, spritenamed("warning"), 0, 340, 230, nullptr, nullptr);
    endsprites();
    return err;
}

errorblock *drawpicture()
{
    setcolour(WHITE);
    fillbox(0, 0, WIDTH, HEIGHT);
    drawgrid();
    drawfigures();
    fonthandle font;
    fontfindpixel("Arial", 0, 20, 0, &font);
    fontset(font, 0xC0F0FF00, INK, 0);
    fontalign(FONTRIGHT);
    plottext("\xC9t\xE9, 5 \x80", TEXTOSUNITS, 380, 280);
    fontlose(font);
    fontfindpixel("Arial", 0, 16, 200, &font);
    fontset(font, FONTCLEAR, GREEN, 0);
    fontalign(0);
    plottext("turned a little", TEXTOSUNITS, 40, 290);
    fontlose(font);
    return drawwarning();
}

// y runs down, as it does in a metafile.
errorblock *pictureopen(page *p)
{
    errorblock *err = pageopen(p, WIDTH, HEIGHT, OSUNITS);
    if (!err) surfacesetunits(OSUNITS, -OSUNITS);
    return err;
}

errorblock *drawplain(const std::string &path)
{
    intptr_t dc;
    errorblock *err = metaopen(0, WIDTH, HEIGHT, &dc);
    if (!err) err = drawpicture();
    return metaclose(err, dc, path.c_str());
}

errorblock *drawplaceable(const std::string &path)
{
    intptr_t dc;
    errorblock *err = metaopen(0, WIDTH, HEIGHT, &dc);
    if (!err) err = drawpicture();
    return metacloseplaceable(err, dc, path.c_str(), 0, WIDTH, HEIGHT, 0, 96);
}

errorblock *drawenhanced(const std::string &path)
{
    intptr_t dc;
    errorblock *err = metaopenenhanced(path.c_str(), 0, WIDTH, HEIGHT, &dc, "Gallery");
    if (!err) err = drawpicture();
    return metacloseenhanced(err, dc);
}

// An enhanced metafile's frame is told in whole 1/100 mm: it is played at a hair
// less than its size, and the edge of a circle can fall into the next pixel.
struct metarow {
    const char *name, *extension;
    errorblock *(*draw)(const std::string &path);
    errorblock *(*play)(const page *p, const std::string &path);
    int32_t unlike; // pixels that may be
};
const metarow kinds[] = {
    {"plain", "wmf", drawplain, pageplay, 0},
    {"placeable", "wmf", drawplaceable, pageplay, 0},
    {"enhanced", "emf", drawenhanced, pageplayenhanced, 400},
};

errorblock *compared(const metarow &kind, const page *played, const page *screen)
{
    int32_t count = pagedifference(played, screen);
    std::printf("%s metafile: %d pixels of %d unlike the screen's\n", kind.name, count,
                WIDTH * HEIGHT);
    if (count <= kind.unlike) return nullptr;
    return makeerrortext(ERRORREAD, "The %s metafile isn't like the screen", kind.name);
}

errorblock *drawkind(const metarow &kind, const std::string &folder, const page *screen)
{
    std::string path = folder + "/" + kind.name + "." + kind.extension;
    errorblock *err = kind.draw(path);
    page played;
    if (!err) err = pictureopen(&played);
    if (err) return err;
    err = kind.play(&played, path);
    if (!err) err = pagesave(&played, folder + "/" + kind.name + "-played.png");
    if (!err) err = compared(kind, &played, screen);
    pageclose(&played);
    return err;
}

} // namespace

errorblock *drawpictures(const std::string &folder)
{
    page screen;
    errorblock *err = pictureopen(&screen);
    if (err) return err;
    err = drawpicture();
    if (!err) err = pagesave(&screen, folder + "/picture.png");
    for (const metarow &kind : kinds)
        if (!err) err = drawkind(kind, folder, &screen);
    pageclose(&screen);
    return err;
}
