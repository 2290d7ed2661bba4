// Fonts as the system got them, measuring, and where ink lies to the pixel. The
// sizes of fonts differ between systems: what is wanted follows from what the
// system says of the font.
#include "graphics/textplot.h"

#include "base/flex.h"
#include "graphics/fonts.h"
#include "graphics/plot.h"
#include "graphics/textmeasure.h"
#include "graphics/win32/surfacecontext.h"
#include "tests/graphics/codeof.h"
#include "tests/graphics/win32/canvas.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <vector>

namespace
{

using extent = canvas::extent;
constexpr int32_t ONE = MATRIXONE;

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

textspan fit(const char *text, int32_t width, int32_t split, int32_t length = 1000)
{
    textspan span = {text, width, -7, split, length};
    CHECK_FALSE(textfit(&span));
    return span;
}

std::array<int32_t, 4> sides(const glyphextent &box)
{
    return {box.left, box.bottom, box.right, box.top};
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
    for (const surface *s : {one.drawing, two.drawing}) {
        CHECK(fontselected(s) == first);
        CHECK(s->font == 0);
        CHECK(s->savedfont == 0);
    }
    LOGFONTA order;
    CHECK(GetObjectA(reinterpret_cast<HGDIOBJ>(font), sizeof order, &order) == 0);
    fontlose(other);
    CHECK_FALSE(fontlose(0));

    fontset(0, 0xFFFFFF00, 0x11223300, 0); // white, which is not "none"
    CHECK(GetTextColor(surfacecontext()) == 0x112233);
    CHECK(GetBkMode(surfacecontext()) == OPAQUE);
    fontset(0, FONTCLEAR, 0, 0);
    CHECK(GetBkMode(surfacecontext()) == TRANSPARENT);
    fontalign(0xFFFFFFA1);
    CHECK(GetTextAlign(surfacecontext()) == (TA_LEFT | TA_BASELINE));
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
        CHECK(across == x + widthof("HH"));
        CHECK(down == y);
    }
}

TEST_CASE("all plotters draw the same text alike, and leave the page as it was")
{
    canvas c(120, 40);
    fontshown shown(160);
    constexpr plotmatrix same = {ONE, 0, 0, ONE, 0, 0};
    constexpr uint32_t os = TEXTOSUNITS, glyphs = os | TEXTGLYPHS;
    constexpr textclip all = {120, 0, 0, -40};
    const char *text = "W\xE9g\x80", *longer = "W\xE9g\x80 and more";
    char16_t wide[] = u"W\u00E9g\u20AC and more", ended[] = u"W\u00E9g\u20AC";
    char16_t asglyphs[] = u"W\u00E9g\u20AC and more", asglyphsm[] = u"W\u00E9g\u20AC";
    const std::function<void()> plotters[] = {
        [&] { plottext(text, os, 10, -25); },
        [&] { plottextn(longer, 4, os, 10, -25); },
        [&] { plottextw(ended, os, 10, -25); },
        [&] { plottextm(text, os, 10, -25, &same); },
        [&] { plottextx(longer, 4, os, 10, -25, &all, nullptr); },
        [&] { plottextxs(longer, 4, os, 10, -25, nullptr, nullptr, ONE, ONE); },
        [&] { plottextxm(longer, 4, os, 10, -25, nullptr, nullptr, &same); },
        [&] { plottextxw(wide, 4, os, 10, -25, &all, nullptr); },
        [&] { plottextxsw(wide, 4, os, 10, -25, nullptr, nullptr, ONE, ONE); },
        [&] { plottextxmw(wide, 4, os, 10, -25, nullptr, nullptr, &same); },
        [&] { plottexttab(text, os, 10, -25, 0, nullptr); },
        [&] { plottextn(longer, 4, 0, 4000, -10000); },
        [&] { plottextxw(asglyphs, 4, glyphs, 10, -25, nullptr, nullptr); },
        [&] { plottextxmw(asglyphsm, 4, glyphs, 10, -25, nullptr, nullptr, &same); },
    };
    const size_t size = static_cast<size_t>(c.paper.rowbytes * c.paper.height);
    std::string plain;
    for (const auto &plotter : plotters) {
        CAPTURE(&plotter - plotters);
        c.clear();
        plotter();
        CHECK(c.drawn().right > 20);
        std::string picture(reinterpret_cast<char *>(c.paper.bits), size);
        if (plain.empty()) plain = picture;
        const bool alike = picture == plain;
        CHECK(alike);
    }
    CHECK(asglyphs[0] != u'W'); // the caller's own text became the glyphs
    CHECK(asglyphs[4] == u' ');
    c.clear();
    plottextxs("H", 1, os, 50, -30, nullptr, nullptr, ONE, 255);
    plottextxs("H", 1, os, 50, -30, nullptr, nullptr, 0, ONE);
    CHECK(c.drawn().right == -1);
    CHECK(GetGraphicsMode(surfacecontext()) == GM_COMPATIBLE);
}

TEST_CASE("a font's measures, and another's in the middle of a drawing")
{
    fontrecord record = arial(192);
    fontmetrics onscreen, here;
    REQUIRE_FALSE(fontinfo(&record, &onscreen));
    CHECK(currentsurface == nullptr);
    CHECK(onscreen.height == onscreen.ascent + onscreen.descent);
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
    CHECK(fontselected(c.drawing) == shown.font);
    CHECK(currentsurface == c.drawing);
    for (int ch = 32; ch < 255; ch++)
        widest = std::max(widest, widthof(std::string(1, static_cast<char>(ch))));
    CHECK(width == widest);
    setcurrentsurface(nullptr);
    flexfailafter(0);
    CHECK(codeof(fontinfo(&record, &here)) == ERRORMEMORY);
    CHECK(here.height == 0);
    flexfailafter(0);
    CHECK(fontmaxwidth(&record, &width));
    CHECK(width == 0);
    setcurrentsurface(c.drawing);
}

TEST_CASE("how much of a text fits, and where its characters stand")
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
        {"one less", "ab cd", three - 1, -1, 1000, 2, all},
        {"part of a text", "ab cd", 1000, -1, 4, 4, widthof("ab c")},
        // With one, back to it.
        {"back to the space", "ab cd", three, ' ', 1000, 2, two},
        {"back to the beginning", "ab cd", two - 1, ' ', 1000, 0, 0},
        {"all", "ab cd", all, ' ', 1000, 5, all}, // what fits isn't cut
        {"all of a part", "ab cd", three, ' ', 3, 3, three},
        {"none of a text", "ab", 10, ' ', 0, 0, 0},
    };
    for (const auto &row : rows) {
        CAPTURE(row.what);
        textspan span = fit(row.text, row.room, row.split, row.length);
        CHECK(span.length == row.fitting);
        CHECK(span.width == row.width);
    }
    fontmetrics m;
    fontmetricsget(&m);
    CHECK(fit("x", 1000, -1).height == m.height);
    textspan span = {"ab cd", 50, -7, ' ', 5};
    flexfailafter(0);
    CHECK(codeof(textfit(&span)) == ERRORMEMORY);
    CHECK(span.width == 50);

    int32_t widths[6] = {-1, -1, -1, -1, -1, -1};
    span = {"abcde", widthof("abcd"), 0, ' ', 5};
    REQUIRE_FALSE(textfitdx(&span, widths));
    CHECK(span.length == 4); // the split isn't looked at
    CHECK(widths[2] == widthof("abc"));
    CHECK(widths[5] == -1);
    auto placed = [&](int32_t width, uint32_t flags) {
        span = {"Wil", width, 99, -1, 4};
        CHECK_FALSE(textplace(&span, widths, flags));
        CHECK(span.height == 0);
        return span.length;
    };
    CHECK(placed(0, 0) == 3);
    CHECK(span.width == widthof("Wil"));
    CHECK(widths[1] == widthof("i"));
    CHECK(placed(widthof("Wi"), PLACEFIT) == 2);
    CHECK(span.width == widthof("Wi"));
    CHECK(placed(widthof("W") - 1, PLACEFIT) == 0);
    CHECK(placed(-5, PLACEFIT) == 0);
    textspanw wide = {u"Wi\u20AC", widthof("Wi"), 99, -1, 3};
    CHECK_FALSE(textplacew(&wide, widths, PLACEFIT));
    CHECK(wide.length == 2);
}

TEST_CASE("boxes of glyphs and texts in both forms, and kerning")
{
    canvas c(100, 100);
    fontshown shown(640); // large enough for pairs of more than a pixel
    glyphextent box, wide, h;
    int32_t advance, wideadvance;
    for (auto [narrow, code] : {std::pair{'\x80', u'\u20AC'}, {'\xE9', u'\u00E9'}, {'g', u'g'}}) {
        glyphbox(static_cast<uint8_t>(narrow), &box, &advance, nullptr);
        CHECK(advance == widthof(std::string(1, narrow)));
        for (auto wideform : {glyphboxw, glyphboxmapped}) {
            wideform(code, &wide, &wideadvance, nullptr);
            CHECK(sides(wide) == sides(box));
            CHECK(wideadvance == advance);
        }
    }
    glyphboxmapped(0xE000, &wide, &advance, nullptr); // no such character in the font
    CHECK(wide.right == 0);
    CHECK(advance == 0);
    glyphbox('H', &h, nullptr, nullptr);
    textbox("gH", &wide);
    CHECK(sides(wide) == std::array{0, box.bottom, widthof("g") + widthof("H"), h.top});
    textboxw(u"gH", &box);
    CHECK(sides(box) == sides(wide));
    textbox("\"", &wide);
    CHECK(wide.bottom > 0); // it doesn't reach down to the base line

    int32_t count = 1000, widths[2];
    REQUIRE_FALSE(fontkerning(nullptr, &count));
    std::vector<kerningpair> pairs(static_cast<size_t>(count));
    REQUIRE_FALSE(fontkerning(pairs.data(), &count));
    auto pair = std::find_if(pairs.begin(), pairs.end(), [](const kerningpair &p) {
        return p.first == 'A' && p.second == 'V';
    });
    REQUIRE(pair != pairs.end());
    textspan span = {"AV", 0, 0, -1, 2};
    textplace(&span, widths, 0);
    int32_t apart = span.width;
    textplace(&span, widths, PLACEKERNED);
    CHECK(span.width == apart + pair->amount);
}

TEST_CASE("extra room between words and characters, on any surface")
{
    canvas c(200, 40);
    fontshown shown(160);
    fontset(0, 0x0000FF00, 0, 0); // its background shows what a text takes
    // Which character a word ends at is the font's to say: most have the space.
    TEXTMETRICA metrics;
    GetTextMetricsA(surfacecontext(), &metrics);
    std::string gap(1, static_cast<char>(metrics.tmBreakChar)), words = "a" + gap + "b" + gap + "c";
    auto takes = [&] {
        c.clear();
        plottext(words.c_str(), TEXTOSUNITS, 10, -20);
        return c.drawn().right - 9;
    };
    int32_t plain = takes();
    CHECK(plain == widthof(words));
    textjustify(10, 2);
    CHECK(takes() == plain + 10);
    textjustify(0, 0);
    textspacing(3);
    CHECK(takes() == plain + 15);
    CHECK(widthof(words) == plain + 15);
    canvas other(10, 10);
    textspacingon(c.drawing, 0);
    textjustifyon(c.drawing, 10, 2);
    setcurrentsurface(c.drawing);
    CHECK(takes() == plain + 10);
    setcurrentsurface(other.drawing);
}
