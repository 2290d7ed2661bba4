// The plotters of text.

#include "graphics/colours.h"
#include "graphics/fonts.h"
#include "graphics/plot.h"
#include "graphics/textplot.h"
#include "tools/gallerysheets/page.h"
#include "tools/gallerysheets/sheets.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace
{

constexpr int32_t LEFT = 330;
const char sample[] = "Quillmere";
constexpr int32_t LENGTH = 9;
const int32_t advances[] = {24, 17, 11, 11, 11, 24, 17, 14, 17};
fonthandle font;

// A row with its name; the text goes to LEFT and the base line that it gives.
int32_t row(int32_t n, const char *name)
{
    int32_t y = -80 - n * 44;
    label(20, y, name);
    setcolour(FAINT);
    moveto(LEFT - 10, y);
    lineto(LEFT + 600, y);
    fontset(font, FONTCLEAR, INK, 0);
    fontalign(0);
    return y;
}

void clipshown(const textclip &clip)
{
    setcolour(RED);
    hollowbox(clip.x0, clip.y0, clip.x1 - clip.x0, clip.y1 - clip.y0);
}

void plain(int32_t n)
{
    plottext(sample, TEXTOSUNITS, LEFT, row(n, "plottext, OS units"));
    int32_t y = row(n + 1, "plottext, millipoints");
    plottext(sample, 0, LEFT * MILLIPOINTS, y * MILLIPOINTS);
    plottextn(sample, 5, TEXTOSUNITS, LEFT, row(n + 2, "plottextn, 5 characters"));
    plottextw(u"Qu\u012Bll \u03A9 \u20AC \u0416", TEXTOSUNITS, LEFT, row(n + 3, "plottextw"));
}

void spaced(int32_t n)
{
    int32_t y = row(n, "plottextx, with spacing");
    plottextx(sample, LENGTH, TEXTOSUNITS, LEFT, y, nullptr, advances);
    y = row(n + 1, "plottextx, clipped");
    textclip clip = {LEFT + 20, y - 4, LEFT + 80, y + 14};
    plottextx(sample, LENGTH, TEXTOSUNITS, LEFT, y, &clip, nullptr);
    clipshown(clip);
    char16_t wide[] = u"Qu\u012Bllmere";
    y = row(n + 2, "plottextxw, by glyphs");
    plottextxw(wide, LENGTH, TEXTOSUNITS | TEXTGLYPHS, LEFT, y, nullptr, nullptr);
    y = row(n + 3, "textspacing 5");
    textspacing(5);
    plottext(sample, TEXTOSUNITS, LEFT, y);
    textspacing(0);
    y = row(n + 4, "textjustify, 120 over 3");
    textjustify(120, 3);
    plottext("The four spread words", TEXTOSUNITS, LEFT, y);
    textjustify(0, 0);
    plottext("The four spread words", TEXTOSUNITS, LEFT + 350, y);
    const int32_t stops[] = {100, 180, 320};
    y = row(n + 5, "plottexttab, stops at 100, 180, 320");
    plottexttab("A\tB\tC\tD", TEXTOSUNITS, LEFT, y, 3, stops);
    for (int32_t stop : stops)
        mark(LEFT + stop, y);
}

struct scalerow {
    const char *name;
    int32_t x, y;
};
const scalerow scales[] = {
    {"2 by 1", 2 * MATRIXONE, MATRIXONE},
    {"1/2 by 1", MATRIXONE / 2, MATRIXONE},
    {"1 by 3/2", MATRIXONE, MATRIXONE * 3 / 2},
};

void scaled(int32_t n)
{
    for (const scalerow &s : scales) {
        int32_t y = row(n++, s.name);
        label(90, y, "plottextxs; spaced, clipped");
        fontset(font, FONTCLEAR, INK, 0);
        fontalign(0);
        plottextxs(sample, LENGTH, TEXTOSUNITS, LEFT, y, nullptr, nullptr, s.x, s.y);
        plottextxs(sample, LENGTH, TEXTOSUNITS, LEFT + 280, y, nullptr, advances, s.x, s.y);
        textclip clip = {LEFT + 630, y - 4, LEFT + 690, y + 20};
        plottextxs(sample, LENGTH, TEXTOSUNITS, LEFT + 600, y, &clip, nullptr, s.x, s.y);
        clipshown(clip);
    }
}

plotmatrix turn(int32_t degrees)
{
    double angle = degrees * 3.14159265358979 / 180;
    int32_t c = static_cast<int32_t>(std::lround(std::cos(angle) * MATRIXONE));
    int32_t s = static_cast<int32_t>(std::lround(std::sin(angle) * MATRIXONE));
    return {c, s, -s, c, 0, 0};
}

struct matrixrow {
    const char *name;
    int32_t right; // of its column, for the room it needs
    plotmatrix matrix;
};
const matrixrow matrices[] = {
    {"turned by 30", 0, turn(30)},
    {"turned by 90", 0, turn(90)},
    {"sheared", 0, {MATRIXONE, 0, MATRIXONE / 2, MATRIXONE, 0, 0}},
    {"mirrored", 60, {-MATRIXONE, 0, 0, MATRIXONE, 0, 0}},
    {"moved by 30, 20", 20, {MATRIXONE, 0, 0, MATRIXONE, 30, 20}},
    {"turned by 200, doubled", 90, {}},
};

void matrixed(int32_t y)
{
    heading(20, y + 130, "plottextm; plottextxm with spacing and clip, in blue");
    for (int32_t i = 0; i < 6; i++) {
        int32_t x = 80 + i * 170 + matrices[i].right;
        plotmatrix m = matrices[i].matrix;
        if (i == 5) {
            m = turn(200);
            for (int32_t *part : {&m.a, &m.b, &m.c, &m.d})
                *part *= 2;
        }
        label(30 + i * 170, y + 108, matrices[i].name);
        fontset(font, FONTCLEAR, INK, 0);
        fontalign(0);
        plottextm(sample, TEXTOSUNITS, x, y, &m);
        textclip clip = {x - 60, y - 180, x + 60, y - 60};
        fontcolour(BLUE);
        plottextxm(sample, LENGTH, TEXTOSUNITS, x, y - 130, &clip, advances, &m);
        clipshown(clip);
        mark(x, y);
        mark(x, y - 130);
    }
}

} // namespace

errorblock *drawtext(const page *)
{
    heading(20, -30, "Plotters of text");
    fontfindsize("Arial", 0, 9 * 16, 0, 0, &font);
    plain(0);
    spaced(4);
    scaled(10);
    matrixed(-790);
    fontlose(font);
    return nullptr;
}
