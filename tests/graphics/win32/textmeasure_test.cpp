#include "graphics/textmeasure.h"

#include "base/flex.h"
#include "graphics/fonts.h"
#include "graphics/textplot.h"
#include "graphics/win32/surfacecontext.h"
#include "tests/graphics/codeof.h"
#include "tests/graphics/win32/canvas.h"
#include "tests/graphics/win32/fonttools.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace
{

textspan fit(const char *text, int32_t width, int32_t split, int32_t length = 1000)
{
    textspan span = {text, width, -7, split, length};
    CHECK_FALSE(textfit(&span));
    return span;
}

using four = std::array<int32_t, 4>;

four sides(const glyphextent &box)
{
    return {box.left, box.bottom, box.right, box.top};
}

} // namespace

TEST_CASE("a font's metrics on the screen, and on the current surface")
{
    fontrecord record = arial(192);
    fontmetrics onscreen, here;
    REQUIRE_FALSE(fontinfo(&record, &onscreen));
    CHECK(currentsurface == nullptr);
    CHECK(onscreen.height == onscreen.ascent + onscreen.descent);
    // To the pixel that the system rounds the leading by.
    CHECK(std::abs(onscreen.height - onscreen.internalleading - 192 * modeinfo.ydpi / 1152) <= 1);
    CHECK(onscreen.averagewidth > 0);
    CHECK(onscreen.maxwidth > onscreen.averagewidth);

    canvas c(10, 10, modeinfo.ydpi);
    fontshown shown(192);
    fontmetricsget(&here);
    CHECK(!std::memcmp(&here, &onscreen, sizeof here));
}

TEST_CASE("measuring another font in the middle of a drawing changes nothing there")
{
    canvas c(10, 10);
    fontshown shown(192);
    intptr_t saved = c.drawing->savedfont;
    fontrecord record = arial(400);
    fontmetrics large, here;
    int32_t width;
    REQUIRE_FALSE(fontinfo(&record, &large));
    REQUIRE_FALSE(fontmaxwidth(&record, &width));
    CHECK(fontselected(c.drawing) == shown.font);
    CHECK(c.drawing->font == shown.font);
    CHECK(c.drawing->savedfont == saved);
    CHECK(currentsurface == c.drawing);
    fontmetricsget(&here);
    CHECK(large.height > here.height);
}

TEST_CASE("the widest character")
{
    fontrecord record = arial(192);
    int32_t width = -1, widest = 0;
    REQUIRE_FALSE(fontmaxwidth(&record, &width));
    canvas c(10, 10, modeinfo.ydpi);
    fontshown shown(192);
    for (int ch = 32; ch < 255; ch++)
        widest = std::max(widest, widthof(std::string(1, static_cast<char>(ch))));
    CHECK(width == widest);
    CHECK(width > widthof("W"));
}

TEST_CASE("a measuring surface that can't be had")
{
    fontrecord record = arial(192);
    fontmetrics metrics;
    int32_t width = -1;
    flexfailafter(0);
    CHECK(codeof(fontinfo(&record, &metrics)) == ERRORMEMORY);
    CHECK(metrics.height == 0);
    flexfailafter(0);
    CHECK(fontmaxwidth(&record, &width));
    CHECK(width == 0);
}

TEST_CASE("measured and plotted extents agree")
{
    canvas c(300, 60);
    fontshown shown(160);
    fontmetrics metrics;
    fontmetricsget(&metrics);
    const char *text = "The \xE9lan of it";
    textspan whole = fit(text, 10000, -1);
    CHECK(whole.length == 14);
    CHECK(whole.height == metrics.height);
    CHECK(whole.width == widthof(text));
    fontset(0, 0x0000FF00, 0, 0); // its background shows what it takes
    fontalign(FONTTOP);
    plottext(text, TEXTOSUNITS, 10, -5);
    CHECK(c.drawn() == canvas::extent{10, 5, 10 + whole.width - 1, 5 + whole.height - 1});
}

TEST_CASE("how much of a text fits")
{
    canvas c(10, 10);
    fontshown shown(160);
    int32_t three = widthof("ab "), two = widthof("ab"), all = widthof("ab cd");
    struct {
        const char *what, *text;
        int32_t room, split, length;
        int32_t fitting, width;
    } const rows[] = {
        // Without a split: as many as there is room for, and the whole's width.
        {"just", "ab cd", three, -1, 1000, 3, all},
        {"one less", "ab cd", three - 1, -1, 1000, 2, all},
        {"part of a text", "ab cd", 1000, -1, 4, 4, widthof("ab c")},
        {"no room", "ab cd", 0, -1, 1000, 0, all},
        // With one, back to it.
        {"back to the space", "ab cd", three, ' ', 1000, 2, two},
        {"the space itself didn't fit", "ab cd", three - 1, ' ', 1000, 2, two},
        {"back to the beginning", "ab cd", two - 1, ' ', 1000, 0, 0},
        {"no split in the text", "abcd", widthof("abc"), ' ', 1000, 0, 0},
        // What fits isn't cut.
        {"all", "ab cd", all, ' ', 1000, 5, all},
        {"all of a part", "ab cd", three, ' ', 3, 3, three},
        {"an empty text", "", 10, ' ', 1000, 0, 0},
        {"none of a text", "ab", 10, ' ', 0, 0, 0},
    };
    const int32_t height = fit("x", 1000, -1).height;
    for (const auto &row : rows) {
        CAPTURE(row.what);
        textspan span = fit(row.text, row.room, row.split, row.length);
        CHECK(span.length == row.fitting);
        CHECK(span.width == row.width);
        if (*row.text && row.length) CHECK(span.height == height);
    }
}

TEST_CASE("fitting with no memory leaves the span as it was")
{
    canvas c(10, 10);
    fontshown shown(160);
    textspan span = {"ab cd", 50, -7, ' ', 5};
    flexfailafter(0);
    CHECK(codeof(textfit(&span)) == ERRORMEMORY);
    CHECK(span.width == 50);
    CHECK(span.height == -7);
    CHECK(span.length == 5);
}

TEST_CASE("widths up to each character")
{
    canvas c(10, 10);
    fontshown shown(160);
    int32_t widths[6] = {-1, -1, -1, -1, -1, -1};
    textspan span = {"abcde", widthof("abcd"), 0, ' ', 5};
    REQUIRE_FALSE(textfitdx(&span, widths));
    CHECK(span.length == 4); // the split isn't looked at
    CHECK(span.width == widthof("abcde"));
    for (int32_t i = 0; i < 4; i++)
        CHECK(widths[i] == widthof(std::string("abcde").substr(0, static_cast<size_t>(i) + 1)));
    CHECK(widths[5] == -1);
}

TEST_CASE("placing characters")
{
    canvas c(10, 10);
    fontshown shown(160);
    int32_t widths[4] = {-1, -1, -1, -1};
    auto place = [&](int32_t width, uint32_t flags) {
        textspan span = {"Wil", width, 99, -1, 4};
        CHECK_FALSE(textplace(&span, widths, flags));
        CHECK(span.height == 0);
        return span;
    };
    textspan all = place(0, 0);
    CHECK(all.length == 3);
    CHECK(all.width == widthof("Wil"));
    CHECK(widths[0] == widthof("W"));
    CHECK(widths[1] == widthof("i"));
    CHECK(widths[3] == -1);

    CHECK(place(widthof("Wi"), PLACEFIT).length == 2);
    CHECK(place(widthof("Wi"), PLACEFIT).width == widthof("Wi"));
    CHECK(place(widthof("W") - 1, PLACEFIT).length == 0);
    CHECK(place(0, PLACEFIT).length == 0);
    CHECK(place(-1, PLACEFIT).length == 0);
    CHECK(place(-5, PLACEFIT).width == 0);
    CHECK(place(1000, PLACEFIT).length == 3);

    textspanw wide = {u"Wi\u20AC", widthof("Wi"), 99, -1, 3};
    CHECK_FALSE(textplacew(&wide, widths, PLACEFIT));
    CHECK(wide.length == 2);
    CHECK(wide.width == widthof("Wi"));
    CHECK(wide.height == 0);
    wide = {u"Wi\u20AC", 0, 99, -1, 3};
    CHECK_FALSE(textplacew(&wide, widths, 0));
    CHECK(wide.width == widthof("Wi\x80"));
}

TEST_CASE("kerning pairs, and text placed by them")
{
    canvas c(10, 10);
    fontshown shown(640); // large enough for pairs of more than a pixel
    int32_t count = 1000, again;
    REQUIRE_FALSE(fontkerning(nullptr, &count));
    REQUIRE(count > 0);
    std::vector<kerningpair> pairs(static_cast<size_t>(count));
    again = count;
    REQUIRE_FALSE(fontkerning(pairs.data(), &again));
    CHECK(again == count);
    auto pair = std::find_if(pairs.begin(), pairs.end(), [](const kerningpair &p) {
        return p.first == 'A' && p.second == 'V';
    });
    REQUIRE(pair != pairs.end());
    CHECK(pair->amount < 0);

    int32_t widths[2];
    textspan span = {"AV", 0, 0, -1, 2};
    textplace(&span, widths, 0);
    int32_t apart = span.width;
    span.length = 2;
    textplace(&span, widths, PLACEKERNED);
    CHECK(span.width == apart + pair->amount);

    int32_t wide = 0;
    REQUIRE_FALSE(fontkerningw(nullptr, &wide));
    CHECK(wide >= count);
    std::vector<kerningpair> few(3, {7, 7, 7});
    int32_t three = 2;
    fontkerningw(few.data(), &three);
    CHECK(three <= 2);
    CHECK(few[2].first == 7);
}

TEST_CASE("glyph boxes")
{
    canvas c(100, 100);
    fontshown shown(320);
    glyphextent box, wide;
    int32_t advancex, advancey;
    fontalign(33);
    for (char ch : {'H', 'g', '\xC5', '\x80'}) {
        c.clear();
        glyphbox(static_cast<uint8_t>(ch), &box, &advancex, &advancey);
        plottextn(&ch, 1, TEXTOSUNITS, 30, -60);
        // The box is that of the outline, which a pixel's rounding may leave.
        canvas::extent ink = c.drawn();
        CHECK(std::abs(ink.left - 30 - box.left) <= 1);
        CHECK(std::abs(60 - ink.top - box.top) <= 1);
        CHECK(std::abs(ink.right + 1 - 30 - box.right) <= 1);
        CHECK(std::abs(60 - ink.bottom - 1 - box.bottom) <= 1);
        CHECK(advancex == widthof(std::string(1, ch)));
        CHECK(advancey == 0);
    }
    glyphbox('g', &box, nullptr, nullptr);
    CHECK(box.bottom < 0);

    // The 16-bit forms: by the system, and by the font's own table.
    for (auto [narrow, code] : {std::pair{'\x80', u'\u20AC'}, {'\xE9', u'\u00E9'}, {'g', u'g'}}) {
        glyphbox(static_cast<uint8_t>(narrow), &box, nullptr, nullptr);
        for (bool mapped : {false, true}) {
            int32_t wideadvance;
            (mapped ? glyphboxmapped : glyphboxw)(code, &wide, &wideadvance, nullptr);
            CHECK(sides(wide) == sides(box));
            CHECK(wideadvance == widthof(std::string(1, narrow)));
        }
    }
    glyphboxmapped(0xE000, &wide, &advancex, &advancey); // no such character in the font
    CHECK(wide.right == 0);
    CHECK(wide.top == 0);
    CHECK(advancex == 0);
}

TEST_CASE("the box of a text")
{
    canvas c(10, 10);
    fontshown shown(320);
    glyphextent h, g, both, wide, one;
    glyphbox('H', &h, nullptr, nullptr);
    glyphbox('g', &g, nullptr, nullptr);
    textbox("gH", &both);
    CHECK(sides(both) == four{0, g.bottom, widthof("g") + widthof("H"), h.top});
    textboxw(u"gH", &wide);
    CHECK(sides(wide) == sides(both));
    // A character wholly above the base line: the box doesn't reach down to it.
    glyphbox('"', &h, nullptr, nullptr);
    textbox("\"", &one);
    CHECK(one.bottom == h.bottom);
    CHECK(one.bottom > 0);
    textbox("", &one);
    CHECK(one.right == 0);
    CHECK(one.top == 0);
}

TEST_CASE("extra room between words and characters")
{
    canvas c(200, 40), other(200, 40);
    fontshown shown(160);
    fontset(0, 0x0000FF00, 0, 0); // its background shows what a text takes
    // Which character a word ends at is the font's to say: most have the space.
    TEXTMETRICA metrics;
    GetTextMetricsA(surfacecontext(), &metrics);
    std::string gap(1, static_cast<char>(metrics.tmBreakChar)), words = "a" + gap + "b" + gap + "c";
    auto takes = [&](canvas &on) {
        setcurrentsurface(on.drawing);
        on.clear();
        plottext(words.c_str(), TEXTOSUNITS, 10, -20);
        return on.drawn().right - 9;
    };
    int32_t plain = takes(other);
    setcurrentsurface(c.drawing);
    fontset(shown.font, 0x0000FF00, 0, 0);
    CHECK(takes(c) == plain);
    textjustify(10, 2);
    CHECK(takes(c) == plain + 10);
    textjustify(0, 0);
    CHECK(takes(c) == plain);
    textspacing(3);
    CHECK(takes(c) == plain + 15);
    CHECK(widthof(words) == plain + 15);
    textspacing(0);
    CHECK(takes(other) == plain);

    // By name, whichever is current.
    textspacingon(c.drawing, 3);
    CHECK(takes(c) == plain + 15);
    textspacingon(c.drawing, 0);
    setcurrentsurface(other.drawing);
    textjustifyon(c.drawing, 10, 2);
    CHECK(takes(other) == plain);
    CHECK(takes(c) == plain + 10);
}
