// Lines and the shapes of plot, each with the points that it was told.

#include "graphics/colours.h"
#include "graphics/plot.h"
#include "tools/gallerysheets/page.h"
#include "tools/gallerysheets/sheets.h"

namespace
{

constexpr int32_t STEPX = 190, STEPY = 170, COLUMNS = 5;

// A code with three absolute points of a cell; shapes of two points move to the
// third and go from there.
struct shaperow {
    const char *name;
    int32_t code;
    plotpoint older, last, p;
};
const shaperow rows[] = {
    {"Line, absolute", PLOTLINE + PLOTDRAW, {20, 20}, {20, 20}, {150, 110}},
    {"Line, code 21", 16 + PLOTDRAW, {20, 110}, {20, 110}, {150, 20}},
    {"Line, relative (code 1)", 1, {20, 110}, {20, 20}, {120, 0}},
    {"Just moves (code 0)", 0, {20, 110}, {20, 20}, {120, 0}},
    {"Point", PLOTPOINT + PLOTDRAW, {85, 65}, {85, 65}, {85, 65}},
    {"Triangle", PLOTTRIANGLE + PLOTDRAW, {20, 20}, {80, 120}, {150, 40}},
    {"Triangle, relative", PLOTTRIANGLE + 1, {20, 20}, {80, 120}, {70, -80}},
    {"Rectangle", PLOTRECTANGLE + PLOTDRAW, {20, 20}, {30, 30}, {150, 110}},
    {"Rectangle, turned round", PLOTRECTANGLE + PLOTDRAW, {20, 20}, {150, 110}, {30, 30}},
    {"Parallelogram", PLOTPARALLELOGRAM + PLOTDRAW, {20, 20}, {110, 20}, {150, 110}},
    {"No such shape (208)", 208 + PLOTDRAW, {20, 20}, {80, 120}, {150, 40}},
};

const shaperow roundrows[] = {
    {"Circle", PLOTCIRCLE + PLOTDRAW, {20, 20}, {85, 65}, {130, 65}},
    {"Circle, slanting radius", PLOTCIRCLE + PLOTDRAW, {20, 20}, {85, 65}, {115, 95}},
    {"Pie", PLOTPIE + PLOTDRAW, {85, 65}, {140, 65}, {85, 115}},
    {"Pie, the other way", PLOTPIE + PLOTDRAW, {85, 65}, {85, 115}, {135, 65}},
    {"Ellipse", PLOTELLIPSE + PLOTDRAW, {85, 65}, {150, 65}, {85, 100}},
    {"Ellipse, corners told", PLOTELLIPSE + PLOTDRAW, {85, 65}, {55, 30}, {120, 110}},
};

plotpoint place(int32_t n)
{
    return {20 + n % COLUMNS * STEPX, -50 - STEPY - n / COLUMNS * STEPY};
}

void cell(plotpoint at, const char *name)
{
    setcolour(FAINT);
    hollowbox(at.x, at.y, STEPX - 15, STEPY - 30);
    label(at.x, at.y + STEPY - 26, name);
}

void drawrow(const shaperow &row, plotpoint at)
{
    cell(at, row.name);
    setcolour(BLUE);
    plot(PLOTMOVE, at.x + row.older.x, at.y + row.older.y);
    plot(PLOTMOVE, at.x + row.last.x, at.y + row.last.y);
    bool absolute = (row.code & 7) >= PLOTMOVE;
    plot(row.code, absolute ? at.x + row.p.x : row.p.x, absolute ? at.y + row.p.y : row.p.y);
    mark(at.x + row.older.x, at.y + row.older.y);
    mark(at.x + row.last.x, at.y + row.last.y);
    if (absolute) mark(at.x + row.p.x, at.y + row.p.y);
}

void drawbezier(plotpoint at)
{
    cell(at, "bezierto");
    const plotpoint points[] = {{20, 20}, {40, 130}, {110, -10}, {150, 110}};
    setcolour(BLUE);
    moveto(at.x + 20, at.y + 20);
    bezierto(at.x + 40, at.y + 130, at.x + 110, at.y + 10, at.x + 150, at.y + 110);
    for (plotpoint p : points)
        mark(at.x + p.x, at.y + (p.y < 0 ? 10 : p.y));
}

void drawfan(plotpoint at)
{
    cell(at, "moveto and lineto, all directions");
    setcolour(BLUE);
    for (int32_t i = -5; i <= 5; i++)
        for (int32_t side = 0; side < 4; side++) {
            int32_t along = i * 10, far = side & 1 ? 50 : -50;
            moveto(at.x + 87, at.y + 68);
            lineto(at.x + 87 + (side < 2 ? along : far), at.y + 68 + (side < 2 ? far : along));
        }
}

void drawcursor(plotpoint at)
{
    cell(at, "A line goes on from the cursor");
    setcolour(BLUE);
    moveto(at.x + 20, at.y + 20);
    for (int32_t i = 1; i <= 5; i++)
        plot(PLOTDRAW, at.x + 20 + i * 25, at.y + (i & 1 ? 110 : 20));
    int32_t x, y;
    getcursorpos(&x, &y);
    surfaceos(&x, &y);
    mark(x, y);
    labelf(at.x + 30, at.y + 4, "cursor at %d, %d", x - at.x, y - at.y);
}

} // namespace

errorblock *drawshapes(const page *)
{
    heading(20, -30, "Lines and shapes; the red crosses are the points told");
    int32_t n = 0;
    for (const shaperow &row : rows)
        drawrow(row, place(n++));
    drawfan(place(n++));
    drawcursor(place(n++));
    return nullptr;
}

errorblock *drawcurves(const page *)
{
    heading(20, -30, "Round shapes and a curve");
    int32_t n = 0;
    for (const shaperow &row : roundrows)
        drawrow(row, place(n++));
    drawbezier(place(n++));
    return nullptr;
}
