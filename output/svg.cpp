#include "output/svgparts.h"

#include "find/solutions.h"
#include "output/exchangeparts.h"
#include "output/numbering.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace
{

constexpr int32_t SQUARE = SVGSQUARE;

std::string colourtext(uint32_t colour)
{
    char text[8];
    snprintf(text, sizeof text, "#%02x%02x%02x", colour >> 8 & 255, colour >> 16 & 255,
             colour >> 24);
    return text;
}

void group(std::string *out, const char *name, const std::string &attributes)
{
    *out += std::string("<g class=\"") + name + "\" " + attributes + ">\n";
}

void rows(std::string *out)
{
    int32_t width = grid.width * SQUARE, height = grid.height * SQUARE;
    group(out, "lines", "stroke=\"" + colourtext(grid.gridcolour) + "\" stroke-width=\"1\"");
    for (int32_t x = 0; x <= grid.width; x++)
        svgadd(out, "<path d=\"M%d 0V%d\"/>\n", x * SQUARE, height);
    for (int32_t y = 0; y <= grid.height; y++)
        svgadd(out, "<path d=\"M0 %dH%d\"/>\n", y * SQUARE, width);
    *out += "</g>\n";
}

void blocksandbars(std::string *out)
{
    group(out, "blocks", "fill=\"" + colourtext(grid.fillcolour) + "\"");
    for (int32_t y = 0; y < grid.height; y++)
        for (int32_t x = 0; x < grid.width; x++)
            if (gridblock(x, y))
                svgadd(out, "<rect x=\"%d\" y=\"%d\" width=\"%d\" height=\"%d\"/>\n", x * SQUARE,
                       y * SQUARE, SQUARE, SQUARE);
    *out += "</g>\n";
    group(out, "bars", "stroke=\"" + colourtext(grid.gridcolour) + "\" stroke-width=\"3\"");
    for (int32_t y = 0; y < grid.height; y++)
        for (int32_t x = 0; x < grid.width; x++) {
            if (grid.flags[x][y] & BARLEFT)
                svgadd(out, "<path d=\"M%d %dv%d\"/>\n", x * SQUARE, y * SQUARE, SQUARE);
            if (grid.flags[x][y] & BARTOP)
                svgadd(out, "<path d=\"M%d %dh%d\"/>\n", x * SQUARE, y * SQUARE, SQUARE);
        }
    *out += "</g>\n";
}

void numbers(std::string *out)
{
    group(out, "numbers",
          "fill=\"" + colourtext(grid.textcolour) + "\" font-size=\"10\" font-family=\"" +
              svgtext(grid.cluefont.face) + ", sans-serif\"");
    numberedcell cell;
    numberingstart(&cell);
    while (numberingnext(&cell))
        svgadd(out, "<text x=\"%d\" y=\"%d\">%d</text>\n", cell.x * SQUARE + 3,
               cell.y * SQUARE + 10, cell.number);
    *out += "</g>\n";
}

void letters(std::string *out)
{
    group(out, "letters",
          "fill=\"" + colourtext(grid.textcolour) +
              "\" font-size=\"20\" text-anchor=\"middle\" font-family=\"" +
              svgtext(grid.gridfont.face) + ", sans-serif\"");
    for (int32_t y = 0; y < grid.height; y++)
        for (int32_t x = 0; x < grid.width; x++) {
            uint8_t letter = gridletter(x, y);
            if (gridblock(x, y) || letter <= ' ') continue;
            svgadd(out, "<text x=\"%d\" y=\"%d\">", x * SQUARE + SQUARE / 2, y * SQUARE + 27);
            *out += svgtext(std::string(1, static_cast<char>(letter))) + "</text>\n";
        }
    *out += "</g>\n";
}

void struckwords(std::string *out)
{
    group(out, "words", "stroke=\"" + colourtext(grid.textcolour) + "\" stroke-width=\"1\"");
    for (int32_t i = 0; i < solutions.count; i++) {
        const wsentry *entry = solword(i);
        if (entry->x < 0) continue;
        int32_t more = (static_cast<int32_t>(strlen(entry->text)) - 1) * SQUARE;
        svgadd(out, "<path d=\"M%d %dl%d %d\"/>\n", entry->x * SQUARE + SQUARE / 2,
               entry->y * SQUARE + SQUARE / 2, more * entry->dx, more * entry->dy);
    }
    *out += "</g>\n";
}

} // namespace

std::string svgtext(const std::string &text)
{
    std::string out;
    for (char c : text)
        out += c == '&'   ? "&amp;"
               : c == '<' ? "&lt;"
               : c == '>' ? "&gt;"
               : c == '"' ? "&quot;"
                          : std::string(1, c);
    return toutf8(out);
}

void svgadd(std::string *out, const char *format, ...)
{
    char text[256];
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    *out += text;
}

void svggrid(std::string *out, uint32_t parts)
{
    svgadd(out, "<rect width=\"%d\" height=\"%d\" fill=\"%s\"/>\n", grid.width * SQUARE,
           grid.height * SQUARE, colourtext(grid.backcolour).c_str());
    rows(out);
    if (grid.kind == GRIDCROSSWORD) {
        blocksandbars(out);
        numbers(out);
    }
    if (parts & SVGLETTERS) letters(out);
    if (parts & SVGSTRUCK && grid.kind == GRIDWORDSQUARE) struckwords(out);
}

void svgwrite(std::string *bytes, std::string *)
{
    int32_t width = grid.width * SQUARE, height = grid.height * SQUARE;
    std::string out;
    // Half a line and bar lie outside the cells.
    svgadd(&out,
           "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%d\" height=\"%d\" "
           "viewBox=\"-2 -2 %d %d\">\n",
           width + 4, height + 4, width + 4, height + 4);
    svggrid(&out, SVGLETTERS | (grid.showsolutions ? SVGSTRUCK : 0));
    *bytes = out + "</svg>\n";
}
