// Boxes, pixel by pixel: each pixel of a small page is a square of the sheet.

#include "base/errors.h"
#include "graphics/colours.h"
#include "graphics/plot.h"
#include "tools/gallerysheets/page.h"
#include "tools/gallerysheets/sheets.h"

namespace
{

constexpr int32_t CELL = 24, PIXEL = 6; // pixels of a small page, and the size of each
constexpr int32_t STEPX = CELL * PIXEL + 20, STEPY = CELL * PIXEL + 34;

struct boxkind {
    const char *name;
    errorblock *(*draw)(int32_t x, int32_t y, int32_t width, int32_t height);
};
const boxkind kinds[] = {
    {"fillbox", fillbox},
    {"drawbox", drawbox},
    {"hollowbox", hollowbox},
    {"linebox", linebox},
};

struct boxcase {
    int32_t scale, x, y, width, height;
};
const boxcase cases[] = {
    {180, 3, -14, 12, 9},   {90, 3, -14, 12, 9},  {96, 3, -14, 12, 9},  {120, 3, -14, 12, 9},
    {144, 3, -14, 12, 9},   {192, 3, -14, 12, 9}, {240, 3, -14, 12, 9}, {180, 8, -8, 1, 1},
    {180, 8, -8, 0, 0},     {180, 8, -8, 2, 2},   {180, 8, -14, 0, 9},  {180, 8, -8, 9, 0},
    {180, 15, -5, -12, -9},
};

// A dot in the middle of a magnified pixel.
void dot(int32_t x, int32_t y, int32_t pixelx, int32_t pixely)
{
    fillbox(x + pixelx * PIXEL + 1, y - pixely * PIXEL - 1, 3, -3);
}

errorblock *drawcase(const boxkind &kind, const boxcase &c, int32_t x, int32_t y)
{
    page small;
    errorblock *err = pageopen(&small, CELL, CELL, c.scale);
    if (err) return err;
    setcolour(BLUE);
    kind.draw(c.x, c.y, c.width, c.height);
    int32_t x0 = c.x, y0 = c.y, x1 = c.x + c.width, y1 = c.y + c.height;
    surfacedevice(&x0, &y0);
    surfacedevice(&x1, &y1);
    setcurrentsurface(small.outer);
    magnify(&small, x, y, PIXEL);
    setcolour(RED);
    dot(x, y, x0, y0);
    dot(x, y, x1, y1);
    pageclose(&small);
    labelf(x, y + 5, "%s %dx%d at %d", kind.name, c.width, c.height, c.scale);
    return nullptr;
}

} // namespace

errorblock *drawboxes(const page *)
{
    heading(20, -30, "Boxes; the red dots are the pixels of the two corners that were told");
    errorblock *err = nullptr;
    int32_t y = -70;
    for (const boxcase &c : cases) {
        for (int32_t i = 0; !err && i < 4; i++)
            err = drawcase(kinds[i], c, 20 + i * STEPX, y);
        y -= STEPY;
    }
    return err;
}
