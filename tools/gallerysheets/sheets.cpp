#include "tools/gallerysheets/sheets.h"

#include "graphics/colours.h"
#include "graphics/fonts.h"
#include "graphics/plot.h"
#include "graphics/textplot.h"
#include "tools/gallerysheets/page.h"

#include <cstdarg>
#include <cstdio>

bool forkeeping;

namespace
{

void write(int32_t points, int32_t x, int32_t y, const char *text)
{
    if (forkeeping) return;
    fonthandle font;
    fontfindpixel("Arial", 0, points, 0, &font);
    fontset(font, FONTCLEAR, INK, 0);
    fontalign(0);
    plottext(text, TEXTOSUNITS, x, y);
    fontlose(font);
}

} // namespace

void label(int32_t x, int32_t y, const char *text)
{
    write(12, x, y, text);
}

void labelf(int32_t x, int32_t y, const char *format, ...)
{
    char text[200];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    label(x, y, text);
}

void heading(int32_t x, int32_t y, const char *text)
{
    write(18, x, y, text);
}

void mark(int32_t x, int32_t y)
{
    setcolour(RED);
    moveto(x - 3, y);
    lineto(x + 3, y);
    moveto(x, y + 3);
    lineto(x, y - 3);
}

void magnify(const page *from, int32_t x, int32_t y, int32_t size)
{
    setcolour(FAINT);
    fillbox(x - 1, y + 1, from->width * size + 1, -from->height * size - 1);
    for (int32_t row = 0; row < from->height; row++)
        for (int32_t column = 0; column < from->width; column++) {
            setcolour(pageat(from, column, row));
            fillbox(x + column * size, y - row * size, size - 1, 1 - size);
        }
}
