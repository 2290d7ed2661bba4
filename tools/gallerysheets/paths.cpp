// Paths, and the pens that are used with them.

#include "graphics/clip.h"
#include "graphics/colours.h"
#include "graphics/plot.h"
#include "tools/gallerysheets/page.h"
#include "tools/gallerysheets/sheets.h"

namespace
{

// Pen styles, in the system's numbers.
constexpr uint32_t SOLID = 0, DASH = 1, DOT = 2, DASHDOT = 3, OWN = 7, FLAT = 0x200, SQUARE = 0x100,
                   BEVEL = 0x1000, MITRE = 0x2000, GEOMETRIC = 0x10000;

void star(int32_t x, int32_t y)
{
    const plotpoint corners[] = {{75, 140}, {117, 12}, {8, 91}, {142, 91}, {33, 12}};
    moveto(x + corners[0].x, y + corners[0].y);
    for (int32_t i = 1; i < 5; i++)
        lineto(x + corners[i].x, y + corners[i].y);
}

void starpath(int32_t x, int32_t y, bool closed)
{
    pathbegin();
    star(x, y);
    if (closed) pathclose();
    pathend();
}

void filled(int32_t x, const char *name, bool even, bool closed)
{
    label(x, -60, name);
    setcolour(0x40C0F000);
    surfaceextpen(GEOMETRIC | SOLID, 5, BLUE, 0, nullptr);
    pathfillmode(even);
    starpath(x, -220, closed);
    pathpaint();
    pathfillmode(true);
}

void drop(int32_t x)
{
    label(x, -60, "Curves");
    setcolour(0x40C0F000);
    surfaceextpen(GEOMETRIC | SOLID, 2, BLUE, 0, nullptr);
    pathbegin();
    moveto(x + 75, -80);
    bezierto(x + 75, -130, x + 20, -150, x + 20, -180);
    bezierto(x + 20, -235, x + 130, -235, x + 130, -180);
    bezierto(x + 130, -150, x + 75, -130, x + 75, -80);
    pathclose();
    pathend();
    pathpaint();
}

struct penrow {
    const char *name;
    uint32_t style, width;
};
const penrow pens[] = {
    {"Solid, 1", GEOMETRIC | SOLID, 1},
    {"Solid, 9, round", GEOMETRIC | SOLID, 9},
    {"Solid, 9, flat ends, mitred", GEOMETRIC | SOLID | FLAT | MITRE, 9},
    {"Solid, 9, square ends, bevelled", GEOMETRIC | SOLID | SQUARE | BEVEL, 9},
    {"Dashes, 3", GEOMETRIC | DASH | FLAT, 3},
    {"Dots, 3", GEOMETRIC | DOT | FLAT, 3},
    {"Dashes and dots, 3", GEOMETRIC | DASHDOT | FLAT, 3},
    {"Own lengths 12 3 3 3, width 2", GEOMETRIC | OWN | FLAT, 2},
};

void zigzag(int32_t x, int32_t y)
{
    const plotpoint corners[] = {{0, 0}, {90, 0}, {110, 22}, {130, -10}, {150, 12}, {220, 12}};
    pathbegin();
    moveto(x, y);
    for (plotpoint p : corners)
        lineto(x + p.x, y + p.y);
    pathend();
}

void penset(const penrow &row, uint32_t colour)
{
    const uint32_t lengths[] = {12, 3, 3, 3};
    bool own = (row.style & 15) == OWN;
    surfaceextpen(row.style, row.width, colour, own ? 4 : 0, lengths);
}

// Each line by itself, and in one path.
void penlines(const penrow &row, int32_t x, int32_t y)
{
    label(x, y + 3, row.name);
    setcolour(WHITE);
    penset(row, BLUE);
    moveto(x + 220, y);
    lineto(x + 340, y);
    lineto(x + 360, y + 24);
    lineto(x + 385, y);
    lineto(x + 460, y);
    penset(row, GREEN);
    zigzag(x + 500, y);
    pathpaint();
}

} // namespace

errorblock *drawpaths(const page *)
{
    heading(20, -30, "Paths");
    filled(20, "Even-odd, closed", true, true);
    filled(200, "By winding, closed", false, true);
    filled(380, "Even-odd, left open", true, false);
    drop(560);

    heading(20, -260, "Pens: lines one by one, and as one path");
    int32_t y = -300;
    for (const penrow &row : pens) {
        penlines(row, 20, y);
        y -= 44;
    }
    label(20, y + 3, "The dotted pen");
    setcolour(BLUE);
    pathdotted();
    moveto(240, y);
    lineto(480, y);
    hollowbox(520, y - 10, 220, 30);
    return nullptr;
}
