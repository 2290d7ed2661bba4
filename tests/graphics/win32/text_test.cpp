// Fonts as the system got them, measuring, and where ink lies to the pixel. The sizes
// of fonts differ between systems: what is wanted follows from what the system says of
// the font. Every way to plot a text is on the gallery's sheets.
#include "graphics/textplot.h"

#include "graphics/fonts.h"
#include "graphics/plot.h"
#include "graphics/textmeasure.h"
#include "graphics/win32/surfacecontext.h"
#include "tests/graphics/win32/canvas.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace
{

using extent = canvas::extent;

// Where a character's ink lies whose origin is at x, y in pixels: drawn there by
// the system alone, in the same font.
extent inkat(char character, int32_t x, int32_t y)
{
    constexpr int32_t size = 200, middle = 100;
    HGDIOBJ font = GetCurrentObject(surfacecontext(), OBJ_FONT);
    canvas c(size, size);
    HGDIOBJ before = SelectObject(surfacecontext(), font);
    SetTextAlign(surfacecontext(), TA_BASELINE);
    SetBkMode(surfacecontext(), TRANSPARENT);
    TextOutA(surfacecontext(), middle, middle, &character, 1);
    SelectObject(surfacecontext(), before);
    extent ink = c.drawn();
    return {ink.left - middle + x, ink.top - middle + y, ink.right - middle + x,
            ink.bottom - middle + y};
}

} // namespace

TEST_CASE("a lost font leaves every surface what it had")
{
    canvas one(10, 10), two(10, 10);
    intptr_t first = fontselected(one.drawing);
    fonthandle font, other;
    fontfindpixel("Arial", 0, 20, 0, &font);
    fontfindpixel("Arial", 0, 30, 0, &other);
    for (canvas *c : {&one, &two}) {
        setcurrentsurface(c->drawing);
        fontset(other, FONTCLEAR, 0, 0);   // what the surface had is saved
        fontset(font, FONTCLEAR, 0, 0);    // and no other font is
        fontset(0x7FFF0, FONTCLEAR, 0, 0); // no handle of the system
    }
    fontlose(font);
    for (const surface *s : {one.drawing, two.drawing})
        CHECK((fontselected(s) == first && s->font == 0 && s->savedfont == 0));
    LOGFONTA order;
    CHECK(GetObjectA(reinterpret_cast<HGDIOBJ>(font), sizeof order, &order) == 0);
    fontlose(other);
    fontset(0, 0xFFFFFF00, 0x11223300, 0); // white, which is not "none"
    CHECK(GetBkMode(surfacecontext()) == OPAQUE);
    setcurrentsurface(one.drawing);
}

TEST_CASE("text stands by its position as the alignment says, at any scale")
{
    for (int32_t scale : {96, 180}) {
        canvas c(160, 120, scale);
        fontshown shown(240);
        fontmetrics m;
        fontmetricsget(&m);
        int32_t x = 90, y = -61; // in OS units, and in pixels where that is
        surfacedevice(&x, &y);
        int32_t advance = widthof("H");
        auto ink = [&](uint32_t align) {
            c.clear();
            fontalign(align);
            plottext("H", TEXTOSUNITS, 90, -61);
            return c.drawn();
        };
        CHECK(ink(0) == inkat('H', x, y));
        CHECK(c.drawn().bottom == y - 1); // on the base line
        CHECK(ink(FONTCENTRE) == inkat('H', x - advance / 2, y));
        CHECK(ink(FONTRIGHT) == inkat('H', x - advance, y));
        CHECK(ink(FONTTOP) == inkat('H', x, y + m.ascent));
        CHECK(ink(FONTBOTTOM) == inkat('H', x, y - m.descent));
        c.clear();
        fontalign(0);
        plottext("H", 0, 90 * 400, -61 * 400);
        CHECK(c.drawn() == inkat('H', x, y));
        fontalign(FONTCURSOR);
        moveto(90, -61);
        plottext("HH", TEXTOSUNITS, 0, 0);
        int32_t across, down;
        getcursorpos(&across, &down);
        CHECK((across == x + widthof("HH") && down == y));

        // 16-bit text of a scale or a matrix is where the same in bytes is.
        constexpr plotmatrix turned = {0, MATRIXONE, -MATRIXONE, 0, 90, -90};
        char16_t wide[] = u"H";
        fontalign(0);
        auto plotted = [&](auto plot) {
            c.clear();
            plot();
            return c.drawn();
        };
        extent big = plotted(
            [] { plottextxs("H", 1, TEXTOSUNITS, 20, -61, nullptr, nullptr, 2 << 16, 1 << 15); });
        extent lying =
            plotted([&] { plottextxm("H", 1, TEXTOSUNITS, 0, 0, nullptr, nullptr, &turned); });
        CHECK((big.right > big.left && lying.right > lying.left));
        CHECK(plotted([&] {
                  plottextxsw(wide, 1, TEXTOSUNITS, 20, -61, nullptr, nullptr, 2 << 16, 1 << 15);
              }) == big);
        CHECK(plotted([&] {
                  plottextxmw(wide, 1, TEXTOSUNITS, 0, 0, nullptr, nullptr, &turned);
              }) == lying);
    }
}

TEST_CASE("a font's measures, and another's in the middle of a drawing")
{
    fontrecord record = arial(192);
    fontmetrics onscreen, here;
    REQUIRE_FALSE(fontinfo(&record, &onscreen));
    CHECK(currentsurface == nullptr);
    // To the pixel that the system rounds the leading by.
    CHECK(std::abs(onscreen.height - onscreen.internalleading - 192 * modeinfo.ydpi / 1152) <= 1);
    canvas c(60, 60, modeinfo.ydpi);
    fontshown shown(192);
    fontmetricsget(&here);
    CHECK(!std::memcmp(&here, &onscreen, sizeof here));
    int32_t width = -1, widest = 0;
    fontrecord large = arial(400);
    REQUIRE_FALSE(fontinfo(&large, &here));
    REQUIRE_FALSE(fontmaxwidth(&record, &width));
    CHECK((fontselected(c.drawing) == shown.font && currentsurface == c.drawing));
    for (int ch = 32; ch < 255; ch++)
        widest = std::max(widest, widthof(std::string(1, static_cast<char>(ch))));
    CHECK(width == widest);
}

TEST_CASE("how much of a text fits")
{
    canvas c(10, 10);
    fontshown shown(160);
    int32_t three = widthof("ab "), two = widthof("ab"), all = widthof("ab cd");
    const struct {
        const char *what, *text;
        int32_t room, split, length;
        int32_t fitting, width;
    } rows[] = {
        // Without a split: as many as there is room for, and the whole's width.
        {"just", "ab cd", three, -1, 1000, 3, all},
        {"part of a text", "ab cd", three - 1, -1, 4, 2, widthof("ab c")},
        // With one, back to it.
        {"back to the space", "ab cd", three, ' ', 1000, 2, two},
        {"all", "ab cd", all, ' ', 1000, 5, all}, // what fits isn't cut
    };
    for (const auto &row : rows) {
        CAPTURE(row.what);
        textspan span = {row.text, row.room, -7, row.split, row.length};
        CHECK_FALSE(textfit(&span));
        CHECK((span.length == row.fitting && span.width == row.width));
    }
}
