// Fonts as the system got them, and what a surface keeps of them.
#include "graphics/fonts.h"

#include "graphics/textplot.h"
#include "graphics/win32/surfacecontext.h"
#include "tests/graphics/win32/canvas.h"
#include "tests/graphics/win32/fonttools.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <cstring>
#include <string>

namespace
{

// What the system was asked for; the font is lost.
LOGFONTA orderof(fonthandle font)
{
    LOGFONTA order = {};
    REQUIRE(GetObjectA(reinterpret_cast<HGDIOBJ>(font), sizeof order, &order) > 0);
    fontlose(font);
    return order;
}

LOGFONTA orderfound(const fontrecord &record)
{
    fonthandle font;
    CHECK_FALSE(fontfind(&record, &font));
    return orderof(font);
}

} // namespace

TEST_CASE("a font's size follows the surface it is made on")
{
    canvas c(10, 10, 96);
    c.drawing->scalex = 300;
    fontrecord wide = arial(192);
    wide.width = 97;
    CHECK(orderfound(wide).lfHeight == -16);
    CHECK(orderfound(wide).lfWidth == 25); // 300 to the inch
    CHECK(orderfound(arial(INT32_MIN)).lfHeight == 178956970);
}

TEST_CASE("a font is as its record says")
{
    canvas c(10, 10, 96);
    fontrecord record = arial(128);
    record.weight = 700;
    record.italic = 2;
    record.charset = SYMBOL_CHARSET;
    LOGFONTA order = orderfound(record);
    CHECK(order.lfWeight == 700);
    CHECK(order.lfItalic == 1);
    CHECK(order.lfCharSet == SYMBOL_CHARSET);
    CHECK(order.lfEscapement == 0);
    CHECK(order.lfUnderline == 0);
    CHECK(std::string(order.lfFaceName) == "Arial");

    std::memset(record.face, 'x', sizeof record.face);
    record.face[63] = 0;
    CHECK(std::string(orderfound(record).lfFaceName) == std::string(31, 'x'));
}

TEST_CASE("the other ways of making a font")
{
    canvas c(10, 10, 96);
    fonthandle font;
    fontfindsize("Arial", 120, 240, 0, 0, &font);
    LOGFONTA order = orderof(font);
    CHECK(order.lfHeight == -20);
    CHECK(order.lfWidth == 10);
    CHECK(order.lfWeight == 400);

    fontfindangle("Arial", 0, 240, -45 * 65536, &font);
    order = orderof(font);
    CHECK(order.lfHeight == -20);
    CHECK(order.lfEscapement == -450);
    CHECK(order.lfOrientation == -450);

    fontfindpixel("Arial", 7, 33, 900, &font);
    order = orderof(font);
    CHECK(order.lfHeight == -33);
    CHECK(order.lfWidth == 7);
    CHECK(order.lfEscapement == 900);
    CHECK(order.lfWeight == 400);
    CHECK(order.lfOutPrecision == OUT_SCREEN_OUTLINE_PRECIS);
    CHECK(order.lfClipPrecision == CLIP_EMBEDDED);

    fontfindset("Arial", GREEK_CHARSET, 0, 33, 10, &font);
    order = orderof(font);
    CHECK(order.lfCharSet == GREEK_CHARSET);
    CHECK(order.lfHeight == -33);
    CHECK(order.lfOrientation == 10);

    fontfindall("", ANSI_CHARSET, 700, 1, 3, FIXED_PITCH, 0, 12, 0, &font);
    order = orderof(font);
    CHECK(order.lfCharSet == ANSI_CHARSET);
    CHECK(order.lfPitchAndFamily == (FF_MODERN | FIXED_PITCH));
    CHECK(order.lfWeight == 700);
    CHECK(order.lfItalic == 1);
    CHECK(order.lfHeight == -12);
}

TEST_CASE("a lost font leaves every surface what it had")
{
    canvas one(10, 10), two(10, 10), three(10, 10);
    intptr_t first = fontselected(one.drawing);
    fonthandle font, other, third;
    fontfindpixel("Arial", 0, 20, 0, &font);
    fontfindpixel("Arial", 0, 30, 0, &other);
    fontfindpixel("Arial", 0, 40, 0, &third);

    fontset(third, FONTCLEAR, 0, 0); // three
    setcurrentsurface(one.drawing);
    fontset(other, FONTCLEAR, 0, 0); // what the surface had is saved
    fontset(font, FONTCLEAR, 0, 0);  // and no other font is
    CHECK(one.drawing->font == font);
    CHECK(one.drawing->savedfont == first);
    setcurrentsurface(two.drawing);
    fontset(font, FONTCLEAR, 0, 0);
    CHECK(fontselected(two.drawing) == font);

    fontlose(font);
    for (const surface *s : {one.drawing, two.drawing}) {
        CHECK(fontselected(s) == first);
        CHECK(s->font == 0);
        CHECK(s->savedfont == 0);
    }
    CHECK(fontselected(three.drawing) == third);
    LOGFONTA order;
    CHECK(GetObjectA(reinterpret_cast<HGDIOBJ>(font), sizeof order, &order) == 0);
    fontlose(other); // selected nowhere now
    fontlose(third);
    CHECK_FALSE(fontlose(0));
}

TEST_CASE("the colours of text")
{
    canvas c(10, 10);
    fontshown shown(160);
    fontset(0, 0xFFFFFF00, 0x11223300, 0); // white, which is not "none"
    CHECK(fontselected(c.drawing) == shown.font);
    CHECK(GetTextColor(surfacecontext()) == 0x112233);
    CHECK(GetBkMode(surfacecontext()) == OPAQUE);
    CHECK(GetBkColor(surfacecontext()) == 0xFFFFFF);
    fontset(0, FONTCLEAR, 0, 0);
    CHECK(GetBkMode(surfacecontext()) == TRANSPARENT);
    CHECK(GetBkColor(surfacecontext()) == 0xFFFFFF);
    fontcolour(0x0000FF00);
    CHECK(GetTextColor(surfacecontext()) == 0x0000FF); // red
    CHECK(GetBkMode(surfacecontext()) == TRANSPARENT);
}

TEST_CASE("no font in place of one that isn't there")
{
    canvas c(10, 10);
    intptr_t first = fontselected(c.drawing);
    fontset(0x7FFF0, FONTCLEAR, 0, 0); // no handle of the system
    CHECK(fontselected(c.drawing) == first);
    CHECK(c.drawing->font == 0);
}

TEST_CASE("alignment flags")
{
    canvas c(10, 10);
    auto aligned = [](uint32_t flags) {
        fontalign(flags);
        return GetTextAlign(surfacecontext());
    };
    CHECK(aligned(0) == (TA_LEFT | TA_BASELINE));
    CHECK(aligned(33) == (TA_LEFT | TA_BASELINE));
    CHECK(aligned(36) == (TA_CENTER | TA_BASELINE));
    CHECK(aligned(6) == (TA_RIGHT | TA_BASELINE));
    CHECK(aligned(24) == (TA_LEFT | TA_TOP));
    CHECK(aligned(20) == (TA_CENTER | TA_BOTTOM));
    CHECK(aligned(64) == (TA_LEFT | TA_BASELINE | TA_UPDATECP));
    CHECK(aligned(0xFFFFFFA1) == (TA_LEFT | TA_BASELINE));
}
