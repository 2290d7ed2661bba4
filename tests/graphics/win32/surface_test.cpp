#include "graphics/surface.h"

#include "base/flex.h"
#include "graphics/clip.h"
#include "graphics/colours.h"
#include "graphics/palette.h"
#include "graphics/plot.h"
#include "graphics/spriteplot.h"
#include "graphics/textmeasure.h"
#include "graphics/textplot.h"
#include "graphics/win32/surfacecontext.h"
#include "tests/graphics/codeof.h"
#include "tests/graphics/spritemade.h"
#include "tests/graphics/win32/canvas.h"
#include "tests/graphics/win32/fonttools.h"
#include "tools/headless.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <cstdio>
#include <cstring>

TEST_CASE("the screen's facts are the screen's")
{
    headless.keeptrace = true;
    REQUIRE_FALSE(modeinfoinit());
    HDC dc = GetDC(nullptr);
    CHECK(modeinfo.xdpi == GetDeviceCaps(dc, LOGPIXELSX));
    CHECK(modeinfo.ydpi == GetDeviceCaps(dc, LOGPIXELSY));
    CHECK(modeinfo.bitspixel == GetDeviceCaps(dc, BITSPIXEL));
    CHECK(modeinfo.rastercaps == GetDeviceCaps(dc, RASTERCAPS));
    CHECK(modeinfo.widthpx == GetDeviceCaps(dc, HORZRES));
    CHECK(modeinfo.heightpx == GetDeviceCaps(dc, VERTRES));
    ReleaseDC(nullptr, dc);
    CHECK(modeinfo.desktopcolours[0] == 0xffffff00);
    CHECK(scrollbarheight == devtoosy(GetSystemMetrics(SM_CYHSCROLL)));
    CHECK(scrollbarwidth == devtoosx(GetSystemMetrics(SM_CXVSCROLL)));
    CHECK(scrollbarwidth > 10);

    char line[100];
    std::snprintf(line, sizeof line, "xdpi=%d ydpi=%d bpp=%d nc=%d ln2=%d", modeinfo.xdpi,
                  modeinfo.ydpi, modeinfo.bpp, modeinfo.ncolours, modeinfo.log2bpp);
    CHECK(headless.tracetext.find(line) != std::string::npos);

    int before = gdiobjects();
    for (int i = 0; i < 20; i++)
        modeinfoinit();
    CHECK(gdiobjects() == before);
    modeinfoend();
    CHECK_FALSE(palette);
}

TEST_CASE("a measuring surface of its own")
{
    REQUIRE_FALSE(currentsurface);
    int before = gdiobjects();
    surfaceclose(); // harmless
    CHECK_FALSE(currentsurface);

    REQUIRE_FALSE(surfaceopen(false));
    const surface *first = currentsurface;
    REQUIRE(first);
    CHECK(surfaces == first);
    CHECK(first->scalex == modeinfo.xdpi);
    HDC dc = surfacecontext();
    CHECK(GetDeviceCaps(dc, LOGPIXELSX) == modeinfo.xdpi);

    REQUIRE_FALSE(surfaceopen(true)); // one context serves both
    CHECK(currentsurface == first);
    CHECK_FALSE(surfaces->next);
    surfaceclose();
    CHECK(currentsurface == first);
    setcolour(0x12345600); // goes with it
    surfaceclose();
    CHECK_FALSE(currentsurface);
    CHECK_FALSE(surfaces);
    CHECK_FALSE(GetObjectType(dc));
    CHECK(gdiobjects() == before);

    REQUIRE_FALSE(surfaceopen(true)); // now it is asked first
    CHECK(GetObjectType(surfacecontext()) == OBJ_DC);
    surfaceclose();
}

TEST_CASE("measuring during a redraw borrows its surface and leaves it")
{
    for (bool more : {false, true}) {
        {
            canvas c(4, 4);
            for (int i = 0; i < 3; i++) {
                REQUIRE_FALSE(surfaceopen(false));
                CHECK(currentsurface == c.drawing);
                REQUIRE_FALSE(surfaceopen(false));
                surfaceclose();
                surfaceclose();
                CHECK(currentsurface == c.drawing);
            }
            CHECK(surfaces == c.drawing);
            setcolour(0);
            fillbox(0, -4, 4, 4);
            CHECK(c.count() == 16);
        }
        if (more) surfaceclose(); // a close too many is harmless
        CHECK_FALSE(currentsurface);
        // Behind it, a surface of its own again, ended by one close.
        REQUIRE_FALSE(surfaceopen(false));
        REQUIRE(currentsurface);
        surfaceclose();
        CHECK_FALSE(currentsurface);
        CHECK_FALSE(surfaces);
    }
}

TEST_CASE("short memory makes no measuring surface")
{
    flexfailafter(0);
    CHECK(codeof(surfaceopen(false)) == ERRORMEMORY);
    CHECK_FALSE(currentsurface);
    flexfailafter(0);
    surface *s = nullptr;
    CHECK(codeof(surfacescreen(&s)) == ERRORMEMORY);
    REQUIRE_FALSE(surfaceopen(false)); // nothing was counted
    surfaceclose();
    CHECK_FALSE(currentsurface);
}

TEST_CASE("a screen information surface is private")
{
    int before = gdiobjects();
    surface *s = nullptr;
    REQUIRE_FALSE(surfacescreen(&s));
    CHECK_FALSE(currentsurface);
    CHECK(surfaces == s);
    CHECK(s->scaley == modeinfo.ydpi);
    CHECK(GetDeviceCaps(surfacecontext(s), LOGPIXELSY) == modeinfo.ydpi);
    surfacescreenfree(s);
    CHECK_FALSE(surfaces);
    CHECK(gdiobjects() == before);
}

TEST_CASE("a surface's font is put back and not deleted")
{
    canvas c(4, 4);
    HDC dc = surfacecontext();
    HFONT font = CreateFontA(-16, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, "Arial");
    HGDIOBJ before = SelectObject(dc, font);
    c.drawing->font = reinterpret_cast<intptr_t>(font);
    c.drawing->savedfont = reinterpret_cast<intptr_t>(before);
    surfacerelease(c.drawing);
    CHECK(GetCurrentObject(dc, OBJ_FONT) == before);
    CHECK(GetObjectType(font) == OBJ_FONT);
    CHECK_FALSE(c.drawing->font);
    DeleteObject(font);
}

TEST_CASE("an origin with its scale")
{
    canvas c(4, 4);
    surfacesetorigin(90, -45, c.drawing);
    CHECK(c.drawing->originx == 90);
    CHECK(c.drawing->originy == -45);
    int32_t x = 180, y = -180;
    surfacedevice(&x, &y);
    CHECK(x == modeinfo.xdpi);
    CHECK(y == modeinfo.ydpi);
}

TEST_CASE("maps and the way back")
{
    canvas c(10, 10);
    setcolour(0);
    auto box = [&] {
        c.clear();
        fillbox(0, -1, 2, 1);
        return c.drawn();
    };
    surfacemap(1, 3, 1, 2, 0, 0, 1, 4);
    CHECK(box() == canvas::extent{1, 4, 6, 5});
    surfacemap(1, 1, 1, 1, 0, 0, 0, 0);
    CHECK(box() == canvas::extent{0, 0, 1, 0});
    surfacemap(1, 1, 1, 1, -2, -3, 0, 0);
    CHECK(box() == canvas::extent{2, 3, 3, 3});
}

namespace
{

void drawshapes(int frame)
{
    for (int colour = 0; colour < 16; colour++) {
        setgcol(static_cast<uint32_t>(colour));
        fillbox(colour * 3, -100, 20, 90);
        hollowbox(colour * 3, -100, 20, 90);
        linebox(colour * 3, -100, 20, 90);
    }
    setgcol(0x84);
    xorcolours(1, 2);
    for (int32_t shape = 0; shape < 256; shape += 8) {
        plot(shape + PLOTMOVE, frame % 31, -10);
        plot(shape + PLOTDRAW, 30, -frame % 37);
    }
    pathdotted();
    surfaceextpen(PS_GEOMETRIC | PS_SOLID, 3, 0x11223300, 0, nullptr);
    pathbegin();
    moveto(0, 0);
    bezierto(10, -10, 20, -10, 30, 0);
    lineto(20, -20);
    pathclose();
    pathend();
    pathpaint();
}

void drawclipped()
{
    intptr_t clip = 0, inner = 0;
    clipsave(&clip);
    clipbox(10, -50, 50, -10);
    clipsave(&inner);
    clipreset();
    cliprestore(inner);
    cliprestore(clip);
}

void drawtext(int frame)
{
    fonthandle font, other;
    fontrecord record = arial(100 + frame % 50);
    fontmetrics metrics;
    int32_t width;
    fontinfo(&record, &metrics);
    fontmaxwidth(&record, &width);
    fontfind(&record, &font);
    fontset(font, FONTCLEAR, 0, 0);
    plottext("x", TEXTOSUNITS, 5, -20);
    fontfindangle("Arial", 0, 160, frame * 65536, &other);
    fontset(other, FONTCLEAR, 0, 0);
    plottext("y", TEXTOSUNITS, 15, -20);
    fontlose(font); // no longer selected
    fontlose(other);
}

// Masked or not, plain, scaled and turned.
void drawsprites(const void *area, int frame)
{
    const std::string bytes =
        spritebytes(frame & 2 ? spritestriped(4, 11, 9, true) : spritestriped(32, 11, 9, false));
    const spritereference s = spriteitself(spritein(bytes));
    const uint32_t action = frame & 1 ? SPRITEGREYED : 0;
    const spritefactors zoom = {7, 7, 3, 3};
    spritetransform transform = {};
    transform.matrix = {MATRIXONE, MATRIXONE, -MATRIXONE, MATRIXONE, 20, -30};
    spriteplot(area, s, action, 3, -20, nullptr, nullptr);
    spriteplot(area, s, action, 3, -30, &zoom, nullptr);
    spriteplottransformed(area, s, action, &transform, nullptr, nullptr);
}

} // namespace

TEST_CASE("thousands of frames of all that draws and measures leave no object of the system")
{
    HWND w =
        CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 200, 200, nullptr, nullptr, nullptr, nullptr);
    REQUIRE(w);
    areamade area;
    int before = 0;
    for (int frame = 0; frame < 2000; frame++) {
        HDC dc = GetDC(w);
        surface *s = nullptr;
        REQUIRE_FALSE(surfacenew(&s));
        s->dc = reinterpret_cast<intptr_t>(dc);
        setcurrentsurface(s);
        surfacesetorigin(frame % 50, frame % 70, s);
        drawshapes(frame);
        drawclipped();
        drawtext(frame);
        drawsprites(area.block, frame);
        surfaceopen(true);
        surfaceclose();
        surfacerelease(s);
        clearcurrentsurface();
        surfacefree(s);
        ReleaseDC(w, dc);
        surfaceopen(frame & 1);
        surfaceclose();
        if (frame == 100) before = gdiobjects();
    }
    CHECK(gdiobjects() == before);
    HBRUSH brush = CreateSolidBrush(0x123456); // the count counts
    CHECK(gdiobjects() == before + 1);
    DeleteObject(brush);
    DestroyWindow(w);
}
