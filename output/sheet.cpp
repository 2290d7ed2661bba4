#include "output/sheet.h"

#include "find/solutions.h"
#include "grid/grid.h"
#include "output/numbering.h"
#include "output/svgparts.h"

#include <algorithm>

namespace
{

// In mm. A cell is no larger than in a newspaper.
constexpr double MARGIN = 15, WIDTH = SHEETWIDTH - 2 * MARGIN, BOTTOM = SHEETHEIGHT - MARGIN;
constexpr double HEADING = 12, LARGESTCELL = 9, GRIDMOST = 150, GAP = 8;

struct sheet {
    std::vector<std::string> pages;
    std::string title;
    double y; // where the page goes on
};

void text(std::string *out, double x, double y, double size, const char *look,
          const std::string &words)
{
    svgadd(out, "<text x=\"%.1f\" y=\"%.1f\" font-size=\"%.1f\"%s>", x, y, size, look);
    *out += svgtext(words) + "</text>\n";
}

void pagestart(sheet *s, const std::string &heading)
{
    std::string page;
    svgadd(&page,
           "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%dmm\" height=\"%dmm\" "
           "viewBox=\"0 0 %d %d\" font-family=\"sans-serif\">\n",
           SHEETWIDTH, SHEETHEIGHT, SHEETWIDTH, SHEETHEIGHT);
    text(&page, SHEETWIDTH / 2.0, MARGIN + 5, 6, " text-anchor=\"middle\" font-weight=\"bold\"",
         heading);
    s->pages.push_back(page);
    s->y = MARGIN + HEADING;
}

void gridplace(sheet *s, uint32_t parts)
{
    double cell = std::min({LARGESTCELL, WIDTH / grid.width, GRIDMOST / grid.height});
    std::string *page = &s->pages.back();
    svgadd(page, "<g transform=\"translate(%.2f %.2f) scale(%.4f)\">\n",
           (SHEETWIDTH - cell * grid.width) / 2, s->y, cell / SVGSQUARE);
    svggrid(page, parts);
    *page += "</g>\n";
    s->y += cell * grid.height + GAP;
}

// A line of a list: its text in front and behind, with room to write between; a heading
// has nothing behind, and a row of words only that in front.
struct listline {
    std::string front, behind;
    bool heading;
};

// Lines in columns, as many to a column as the page has room for, and on from page to
// page. Columns are even on the last.
void linesplace(sheet *s, const std::vector<listline> &lines, int columns, double height)
{
    double width = (WIDTH - GAP * (columns - 1)) / columns;
    for (size_t at = 0; at < lines.size();) {
        auto room = static_cast<size_t>(std::max(0.0, (BOTTOM - s->y) / height));
        if (room < 3) {
            pagestart(s, s->title);
            continue;
        }
        auto all = static_cast<size_t>(columns);
        size_t rows = std::min(room, (lines.size() - at + all - 1) / all);
        for (size_t n = 0; n < rows * all && at < lines.size(); n++, at++) {
            const listline &line = lines[at];
            double x = MARGIN + static_cast<double>(n / rows) * (width + GAP);
            double y = s->y + static_cast<double>(n % rows + 1) * height;
            std::string *page = &s->pages.back();
            text(page, x, y, 3.8, line.heading ? " font-weight=\"bold\"" : "", line.front);
            if (line.behind.empty()) continue;
            svgadd(page, "<path d=\"M%.1f %.1fH%.1f\" stroke=\"#999\" stroke-width=\"0.2\"/>\n",
                   x + 8, y + 1, x + width - 10);
            text(page, x + width, y, 3.8, " text-anchor=\"end\"", line.behind);
        }
        s->y = BOTTOM;
    }
}

void cluelines(std::vector<listline> *lines, const char *heading, int32_t numberedcell::*length)
{
    size_t before = lines->size();
    numberedcell cell;
    lines->push_back({heading, "", true});
    for (numberingstart(&cell); numberingnext(&cell);)
        if (cell.*length > 1)
            lines->push_back(
                {std::to_string(cell.number), "(" + std::to_string(cell.*length) + ")", false});
    if (lines->size() == before + 1) lines->pop_back(); // no word in that direction
}

void crosswordplace(sheet *s)
{
    gridplace(s, 0);
    std::vector<listline> lines;
    cluelines(&lines, "Across", &numberedcell::across);
    cluelines(&lines, "Down", &numberedcell::down);
    linesplace(s, lines, 2, 7);
}

void squareplace(sheet *s)
{
    gridplace(s, SVGLETTERS);
    std::vector<listline> lines;
    for (int32_t entry = 0; entry < solutions.count; entry++)
        lines.push_back({solword(entry)->text, "", false});
    linesplace(s, lines, 4, 6);
}

} // namespace

std::vector<std::string> sheetpages(const std::string &title)
{
    sheet s = {{}, title, 0};
    pagestart(&s, title);
    if (grid.kind == GRIDCROSSWORD)
        crosswordplace(&s);
    else
        squareplace(&s);
    pagestart(&s, title.empty() ? "Solution" : title + ": solution");
    gridplace(&s, SVGLETTERS | SVGSTRUCK);
    for (std::string &page : s.pages)
        page += "</svg>\n";
    return s.pages;
}

std::string sheetsvg(const std::vector<std::string> &pages)
{
    std::string out;
    int height = SHEETHEIGHT * static_cast<int>(pages.size());
    svgadd(&out,
           "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%dmm\" height=\"%dmm\" "
           "viewBox=\"0 0 %d %d\">\n",
           SHEETWIDTH, height, SHEETWIDTH, height);
    for (size_t n = 0; n < pages.size(); n++) {
        svgadd(&out, "<g transform=\"translate(0 %d)\">\n", SHEETHEIGHT * static_cast<int>(n));
        std::string page = pages[n]; // in units of its own, so without its size
        size_t size = page.find(" width="), box = page.find(" viewBox=");
        page.replace(size, box - size,
                     " width=\"" + std::to_string(SHEETWIDTH) + "\" height=\"" +
                         std::to_string(SHEETHEIGHT) + "\"");
        out += page + "</g>\n";
    }
    return out + "</svg>\n";
}

std::string sheethtml(const std::string &title, const std::vector<std::string> &pages)
{
    std::string out = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                      "<title>" +
                      svgtext(title.empty() ? "Puzzle" : title) +
                      "</title>\n<style>\n"
                      "@page { margin: 0 }\n"
                      "body { margin: 0 }\n"
                      "svg { display: block; margin: 0 auto; break-after: page }\n"
                      "svg:last-child { break-after: auto }\n"
                      "</style>\n</head>\n<body>\n";
    for (const std::string &page : pages)
        out += page;
    return out + "</body>\n</html>\n";
}
