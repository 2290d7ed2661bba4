// Text to the pixel. Heights of fonts differ between systems: where ink must be
// follows from what the system says of the font and its glyphs.
#include "graphics/textplot.h"

#include "graphics/fonts.h"
#include "graphics/plot.h"
#include "graphics/textmeasure.h"
#include "graphics/win32/surfacecontext.h"
#include "tests/graphics/win32/canvas.h"
#include "tests/graphics/win32/fonttools.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <cstdlib>
#include <functional>
#include <string>

namespace
{

using extent = canvas::extent;

// Where a character's ink lies whose origin is at x, y in pixels: drawn there by
// the system alone, in the same font.
extent inkat(char character, int32_t x, int32_t y)
{
    constexpr int32_t size = 400, middle = 200;
    HGDIOBJ font = GetCurrentObject(surfacecontext(), OBJ_FONT);
    surface *drawing = currentsurface;
    canvas c(size, size);
    HGDIOBJ before = SelectObject(surfacecontext(), font);
    SetTextAlign(surfacecontext(), TA_BASELINE);
    SetBkMode(surfacecontext(), TRANSPARENT);
    TextOutA(surfacecontext(), middle, middle, &character, 1);
    SelectObject(surfacecontext(), before);
    extent ink = c.drawn();
    setcurrentsurface(drawing);
    return {ink.left - middle + x, ink.top - middle + y, ink.right - middle + x,
            ink.bottom - middle + y};
}

extent drawnby(canvas &c, uint32_t align, const char *text, int32_t x, int32_t y)
{
    c.clear();
    fontalign(align);
    plottext(text, 2064, x, -y);
    return c.drawn();
}

bool within(const extent &a, const extent &b, int32_t by)
{
    return std::abs(a.left - b.left) <= by && std::abs(a.top - b.top) <= by &&
           std::abs(a.right - b.right) <= by && std::abs(a.bottom - b.bottom) <= by;
}

constexpr int32_t ONE = MATRIXONE;

} // namespace

TEST_CASE("text stands by its position as the alignment says")
{
    canvas c(120, 120);
    fontshown shown(240); // 37 pixels at this scale
    fontmetrics metrics;
    fontmetricsget(&metrics);
    CHECK(metrics.height - metrics.internalleading == 37);
    int32_t advance;
    glyphbox('H', nullptr, &advance, nullptr);

    CHECK(drawnby(c, 33, "H", 60, 60) == inkat('H', 60, 60));
    CHECK(c.drawn().bottom == 59); // on the base line
    CHECK(drawnby(c, 36, "H", 60, 60) == inkat('H', 60 - advance / 2, 60));
    CHECK(drawnby(c, FONTRIGHT, "H", 60, 60) == inkat('H', 60 - advance, 60));
    CHECK(drawnby(c, FONTTOP, "H", 60, 60) == inkat('H', 60, 60 + metrics.ascent));
    CHECK(drawnby(c, FONTBOTTOM, "H", 60, 60) == inkat('H', 60, 60 - metrics.descent));
    CHECK(drawnby(c, FONTRIGHT | FONTTOP, "H", 60, 60) ==
          inkat('H', 60 - advance, 60 + metrics.ascent));
}

TEST_CASE("text at 96 to the inch")
{
    canvas c(200, 60, 96);
    fontshown shown(192);
    fontalign(33);
    const extent wanted = inkat('H', 48, 32); // half and a third of an inch
    plottext("H", 2064, 91, -61);             // the fraction is dropped
    CHECK(c.drawn() == wanted);
    c.clear();
    plottext("H", 0, 91 * 400, -61 * 400);
    CHECK(c.drawn() == wanted);
}

TEST_CASE("all plotters draw the same text alike")
{
    canvas c(120, 40);
    fontshown shown(160);
    fontalign(33);
    constexpr plotmatrix same = {ONE, 0, 0, ONE, 0, 0};
    constexpr uint32_t glyphs = 2064 | TEXTGLYPHS;
    const char *text = "W\xE9g\x80", *longer = "W\xE9g\x80 and more";
    char16_t wide[] = u"W\u00E9g\u20AC and more", ended[] = u"W\u00E9g\u20AC";
    char16_t asglyphs[] = u"W\u00E9g\u20AC and more", asglyphsm[] = u"W\u00E9g\u20AC";
    struct {
        const char *name;
        std::function<void()> plot;
    } const plotters[] = {
        {"n", [&] { plottextn(longer, 4, 2064, 10, -25); }},
        {"w", [&] { plottextw(ended, 2064, 10, -25); }},
        {"m", [&] { plottextm(text, 2064, 10, -25, &same); }},
        {"x", [&] { plottextx(longer, 4, 2064, 10, -25, nullptr, nullptr); }},
        {"xs", [&] { plottextxs(longer, 4, 2064, 10, -25, nullptr, nullptr, ONE, ONE); }},
        {"xm", [&] { plottextxm(longer, 4, 2064, 10, -25, nullptr, nullptr, &same); }},
        {"xw", [&] { plottextxw(wide, 4, 2064, 10, -25, nullptr, nullptr); }},
        {"xsw", [&] { plottextxsw(wide, 4, 2064, 10, -25, nullptr, nullptr, ONE, ONE); }},
        {"xmw", [&] { plottextxmw(wide, 4, 2064, 10, -25, nullptr, nullptr, &same); }},
        {"tab", [&] { plottexttab(text, 2064, 10, -25, 0, nullptr); }},
        {"millipoints", [&] { plottextn(longer, 4, 2048, 4000, -10000); }},
        {"glyphs", [&] { plottextxw(asglyphs, 4, glyphs, 10, -25, nullptr, nullptr); }},
        {"glyphs, m", [&] { plottextxmw(asglyphsm, 4, glyphs, 10, -25, nullptr, nullptr, &same); }},
    };
    plottext(text, 2064, 10, -25);
    const std::string plain = c.picture();
    for (const auto &plotter : plotters) {
        CAPTURE(plotter.name);
        c.clear();
        plotter.plot();
        CHECK(c.picture() == plain);
    }
    CHECK(asglyphs[0] != u'W'); // the caller's own text became the glyphs
    CHECK(asglyphs[4] == u' ');
}

TEST_CASE("text on an opaque background fills its line")
{
    canvas c(120, 60);
    fontshown shown(160);
    fontmetrics metrics;
    fontmetricsget(&metrics);
    fontset(0, 0x0000FF00, 0, 0); // on red
    fontalign(33);
    plottext("Hg", 2064, 10, -40);
    CHECK(c.drawn() ==
          extent{10, 40 - metrics.ascent, 10 + widthof("Hg") - 1, 40 + metrics.descent - 1});
    CHECK(c.at(10, 40 - metrics.ascent) == 0x0000FF);
}

TEST_CASE("spacing tells each character's advance")
{
    canvas c(120, 60);
    fontshown shown(160);
    fontalign(33);
    constexpr int32_t spacing[] = {0, 50, 30};
    const int32_t right = inkat('H', 60, 40).right;
    plottextx("IIH", 3, 2064, 10, -40, nullptr, spacing);
    CHECK(c.drawn().right == right);
    c.clear();
    char16_t wide[] = u"IIH";
    plottextxw(wide, 3, 2064, 10, -40, nullptr, spacing);
    CHECK(c.drawn().right == right);
}

TEST_CASE("a clip box cuts text off, however it is plotted")
{
    canvas c(120, 60);
    fontshown shown(240);
    fontalign(33);
    // As the box is told, upper right corner first; in pixels, 20..59 by 25..44.
    constexpr textclip box = {60, -25, 20, -45};
    constexpr plotmatrix slant = {ONE, ONE / 8, 0, ONE, 0, 0};
    char16_t wide[] = u"HHHHHHHH";
    const char *text = "HHHHHHHH";
    struct {
        const char *name;
        std::function<void(const textclip *clip)> plot;
    } const plotters[] = {
        {"x", [&](auto clip) { plottextx(text, 8, 2064, 5, -50, clip, nullptr); }},
        {"xs", [&](auto clip) { plottextxs(text, 8, 2064, 5, -50, clip, nullptr, 2 * ONE, ONE); }},
        {"xm", [&](auto clip) { plottextxm(text, 8, 2064, 5, -50, clip, nullptr, &slant); }},
        {"xw", [&](auto clip) { plottextxw(wide, 8, 2064, 5, -50, clip, nullptr); }},
        {"xsw",
         [&](auto clip) { plottextxsw(wide, 8, 2064, 5, -50, clip, nullptr, ONE, 2 * ONE); }},
        {"xmw", [&](auto clip) { plottextxmw(wide, 8, 2064, 5, -50, clip, nullptr, &slant); }},
    };
    auto pictureof = [&](const auto &plotter, const textclip *clip) {
        c.clear();
        plotter.plot(clip);
        return c.picture();
    };
    for (const auto &plotter : plotters) {
        CAPTURE(plotter.name);
        std::string whole = pictureof(plotter, nullptr), wanted = whole;
        for (size_t y = 0; y < 60; y++)
            for (size_t x = 0; x < 120; x++)
                if (x < 20 || x >= 60 || y < 25 || y >= 45) wanted[y * 121 + x] = '.';
        CHECK(pictureof(plotter, &box) == wanted);
        CHECK(c.count() > 50);
        CHECK(pictureof(plotter, nullptr) == whole); // the clip is gone again
    }
    // Its unit is that of the position.
    c.clear();
    constexpr textclip small = {24000, -10000, 8000, -18000};
    plottextx("HHHHHHHH", 8, 0, 2000, -20000, &small, nullptr);
    const std::string seen = c.picture();
    CHECK(seen == pictureof(plotters[0], &box));
}

TEST_CASE("scaled text, and the plain map after it")
{
    canvas c(200, 120);
    fontshown shown(160);
    fontalign(33);
    extent plain = inkat('H', 0, 0);
    plottextxs("H", 1, 2064, 50, -100, nullptr, nullptr, 3 * ONE, 2 * ONE);
    extent scaled = {50 + plain.left * 3, 100 + plain.top * 2, 50 + plain.right * 3 + 2, 99};
    CHECK(within(c.drawn(), scaled, 3)); // the letter is drawn anew at its size
    CHECK(c.drawn().bottom == 99);

    c.clear();
    plottextxs("H", 1, 2064, 50, -100, nullptr, nullptr, ONE, 255);
    plottextxs("H", 1, 2064, 50, -100, nullptr, nullptr, 0, ONE);
    CHECK(c.blank());
    CHECK(drawnby(c, 33, "H", 60, 60) == inkat('H', 60, 60));
}

TEST_CASE("text through a matrix, and the plain page after it")
{
    canvas c(160, 160);
    fontshown shown(320);
    fontalign(33);
    extent ink = inkat('L', 0, 0);
    auto through = [&](const plotmatrix &matrix, uint32_t flags, int32_t x, int32_t y) {
        c.clear();
        plottextm("L", flags, x, y, &matrix);
        return c.drawn();
    };
    // Moved alone.
    CHECK(through({ONE, 0, 0, ONE, 20, -10}, 2064, 60, -70) == inkat('L', 80, 80));
    CHECK(through({ONE, 0, 0, ONE, 20, -10}, 0, 60 * 400, -70 * 400) == inkat('L', 80, 80));
    // Turned left, the letter's right is up and its top is left.
    CHECK(within(through({0, ONE, -ONE, 0, 0, 0}, 2064, 80, -80),
                 {80 + ink.top, 80 - ink.right - 1, 80 + ink.bottom, 80 - ink.left - 1}, 1));
    CHECK(within(through({0, -ONE, ONE, 0, 0, 0}, 2064, 80, -80),
                 {80 - ink.bottom - 1, 80 + ink.left, 80 - ink.top - 1, 80 + ink.right}, 1));
    CHECK(within(through({-ONE, 0, 0, -ONE, 0, 0}, 2064, 80, -80),
                 {80 - ink.right - 1, 80 - ink.bottom - 1, 80 - ink.left - 1, 80 - ink.top - 1},
                 1));
    // Leant to the right.
    extent leant = through({ONE, 0, ONE, ONE, 0, 0}, 2064, 60, -80);
    CHECK(leant.right > inkat('L', 60, 80).right);
    CHECK(leant.top == inkat('L', 60, 80).top);

    CHECK(GetGraphicsMode(surfacecontext()) == GM_COMPATIBLE);
    CHECK(drawnby(c, 33, "L", 60, 60) == inkat('L', 60, 60));
}

TEST_CASE("tab stops count from the position")
{
    canvas c(160, 40);
    fontshown shown(160);
    fontalign(33 | FONTTOP);
    fontmetrics metrics;
    fontmetricsget(&metrics);
    constexpr int32_t stops[] = {40, 90};
    plottexttab("I\t\tH", 2064, 10, -2, 2, stops);
    CHECK(c.drawn().left == inkat('I', 10, 0).left);
    CHECK(c.drawn().right == inkat('H', 100, 0).right);
}

TEST_CASE("text that takes the cursor along")
{
    canvas c(160, 40);
    fontshown shown(160);
    fontalign(FONTCURSOR);
    moveto(20, -30);
    plottext("HH", 2064, 0, 0);
    int32_t x, y;
    getcursorpos(&x, &y);
    CHECK(x == 20 + widthof("HH"));
    CHECK(y == 30);
    plottext("H", 2064, 0, 0);
    extent first = inkat('H', 20, 30), last = inkat('H', x, 30);
    CHECK(c.drawn() == extent{first.left, first.top, last.right, last.bottom});
}
