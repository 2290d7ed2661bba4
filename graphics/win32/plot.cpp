#include "graphics/plot.h"

#include "base/numbers.h"
#include "graphics/win32/surfacecontext.h"

#include <windows.h>

#include <algorithm>
#include <cstdlib>

namespace
{

plotpoint pixelat(int32_t x, int32_t y)
{
    POINT p = surfacepixel(x, y);
    return {p.x, p.y};
}

plotpoint added(plotpoint from, plotpoint by)
{
    return {std::clamp(from.x + by.x, -SURFACEEDGE, SURFACEEDGE),
            std::clamp(from.y + by.y, -SURFACEEDGE, SURFACEEDGE)};
}

void cursorto(plotpoint p)
{
    MoveToEx(surfacecontext(), p.x, p.y, nullptr);
}

void pixel(plotpoint p)
{
    SetPixel(surfacecontext(), p.x, p.y, modeinfo.currentcolour);
}

// The system leaves a line's end out.
void line(plotpoint to)
{
    LineTo(surfacecontext(), to.x, to.y);
    pixel(to);
}

HGDIOBJ outlineoff()
{
    return SelectObject(surfacecontext(), GetStockObject(NULL_PEN));
}

void filled(const POINT *corners, int count)
{
    HGDIOBJ pen = outlineoff();
    Polygon(surfacecontext(), corners, count);
    SelectObject(surfacecontext(), pen);
}

void triangle(plotpoint p)
{
    plotpoint last = plotlast(0), older = plotlast(1);
    POINT corners[] = {{older.x, older.y}, {last.x, last.y}, {p.x, p.y}};
    filled(corners, 3);
}

// The fourth corner lies opposite the last point.
void parallelogram(plotpoint p)
{
    plotpoint last = plotlast(0), older = plotlast(1);
    POINT corners[] = {{older.x, older.y},
                       {last.x, last.y},
                       {p.x, p.y},
                       {p.x + older.x - last.x, p.y + older.y - last.y}};
    filled(corners, 4);
}

void rectangle(plotpoint p)
{
    plotpoint last = plotlast(0);
    surfacerectangle({std::min(last.x, p.x), std::min(last.y, p.y), std::max(last.x, p.x),
                      std::max(last.y, p.y)});
}

int32_t between(plotpoint a, plotpoint b)
{
    return distance(b.x - a.x, b.y - a.y);
}

// All the way round, from the leftmost point.
void outline(plotpoint centre, int32_t rx, int32_t ry)
{
    Arc(surfacecontext(), centre.x - rx, centre.y - ry, centre.x + rx, centre.y + ry, centre.x - rx,
        centre.y, centre.x - rx, centre.y);
}

void circle(plotpoint p)
{
    plotpoint centre = plotlast(0);
    int32_t radius = between(centre, p);
    outline(centre, radius, radius);
}

void ellipse(plotpoint p)
{
    plotpoint centre = plotlast(1);
    outline(centre, std::abs(plotlast(0).x - centre.x), std::abs(p.y - centre.y));
}

void pie(plotpoint p)
{
    plotpoint centre = plotlast(1), from = plotlast(0);
    int32_t radius = between(centre, p);
    HGDIOBJ pen = outlineoff();
    Pie(surfacecontext(), centre.x - radius, centre.y - radius, centre.x + radius,
        centre.y + radius, from.x, from.y, p.x, p.y);
    SelectObject(surfacecontext(), pen);
}

struct shaperow {
    int32_t shape;
    void (*draw)(plotpoint p);
};

// Shapes that aren't here draw nothing.
const shaperow shapes[] = {
    {PLOTPOINT, pixel},         {PLOTTRIANGLE, triangle},
    {PLOTRECTANGLE, rectangle}, {PLOTPARALLELOGRAM, parallelogram},
    {PLOTCIRCLE, circle},       {PLOTPIE, pie},
    {PLOTELLIPSE, ellipse},
};

void shape(int32_t code, plotpoint p)
{
    for (const shaperow &row : shapes)
        if (row.shape == code) row.draw(p);
}

} // namespace

errorblock *moveto(int32_t x, int32_t y)
{
    plotpoint p = pixelat(x, y);
    plotenter(p);
    cursorto(p);
    return nullptr;
}

errorblock *lineto(int32_t x, int32_t y)
{
    plotpoint p = pixelat(x, y);
    plotenter(p);
    line(p);
    return nullptr;
}

errorblock *getcursorpos(int32_t *x, int32_t *y)
{
    POINT p = {};
    GetCurrentPositionEx(surfacecontext(), &p);
    *x = p.x;
    *y = p.y;
    return nullptr;
}

errorblock *bezierto(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t x3, int32_t y3)
{
    POINT points[] = {surfacepixel(x1, y1), surfacepixel(x2, y2), surfacepixel(x3, y3)};
    PolyBezierTo(surfacecontext(), points, 3);
    return nullptr;
}

// A line goes from the system's cursor, which keeps a path whole; all else puts
// the cursor where the next line is to begin.
errorblock *plot(int32_t code, int32_t x, int32_t y)
{
    int32_t action = code & 7, drawn = code & ~7;
    plotpoint p = pixelat(x, y);
    if (action < PLOTMOVE) p = added(plotlast(0), p);
    bool draw = action & 3, isline = drawn >= PLOTLINE && drawn < PLOTPOINT;
    if (draw && isline) {
        line(p);
    } else {
        if (draw) shape(drawn, p);
        cursorto(p);
    }
    plotenter(p);
    return nullptr;
}

errorblock *beep(int32_t frequency, int32_t duration)
{
    if (frequency == -1) MessageBeep(static_cast<UINT>(duration));
    if (!frequency && !duration) {
        MessageBeep(0);
        return nullptr;
    }
    Beep(static_cast<DWORD>(frequency ? frequency : 400),
         static_cast<DWORD>(duration ? duration : 300));
    return nullptr;
}

errorblock *vdu(int32_t code)
{
    return code == 7 ? beep(0, 0) : nullptr;
}
