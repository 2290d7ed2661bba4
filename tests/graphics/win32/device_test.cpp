// What no picture shows of a surface on a device: its objects, its state, errors.
#include "base/errorcodes.h"
#include "base/flex.h"
#include "graphics/clip.h"
#include "graphics/colours.h"
#include "graphics/palette.h"
#include "graphics/plot.h"
#include "graphics/spriteplot.h"
#include "graphics/win32/surfacecontext.h"
#include "tests/graphics/codeof.h"
#include "tests/graphics/spritemade.h"
#include "tests/graphics/win32/canvas.h"
#include "tools/headless.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <cstring>
#include <tuple>

namespace
{

// The colour that a fill and an outline leave now, over what is there.
uint32_t filled(const canvas &c)
{
    fillbox(0, -4, 4, 4);
    CHECK(c.at(0, 0) == c.at(1, 1)); // pen and brush agree
    return c.at(1, 1);
}

// What the clip lets through.
canvas::extent shown(canvas *c)
{
    c->clear();
    setcolour(0);
    fillbox(-100, -100, 200, 200);
    return c->drawn();
}

} // namespace

TEST_CASE("the screen's facts are the screen's, however often they are asked")
{
    headless.keeptrace = true;
    REQUIRE_FALSE(modeinfoinit());
    HDC dc = GetDC(nullptr);
    CHECK(modeinfo.xdpi == GetDeviceCaps(dc, LOGPIXELSX));
    CHECK(modeinfo.bitspixel == GetDeviceCaps(dc, BITSPIXEL));
    CHECK(modeinfo.rastercaps == GetDeviceCaps(dc, RASTERCAPS));
    CHECK(modeinfo.widthpx == GetDeviceCaps(dc, HORZRES));
    CHECK(modeinfo.heightpx == GetDeviceCaps(dc, VERTRES));
    ReleaseDC(nullptr, dc);
    CHECK(scrollbarheight == devtoosy(GetSystemMetrics(SM_CYHSCROLL)));
    CHECK(scrollbarwidth == devtoosx(GetSystemMetrics(SM_CXVSCROLL)));
    CHECK(headless.tracetext.find("ydpi=" + std::to_string(modeinfo.ydpi)) != std::string::npos);
    int before = deviceobjects();
    for (int i = 0; i < 20; i++)
        modeinfoinit();
    CHECK(deviceobjects() == before);
    modeinfoend();
    CHECK_FALSE(palette);
}

TEST_CASE("measuring has a surface of its own, or borrows that of a redraw")
{
    int before = deviceobjects();
    surfaceclose(); // harmless
    REQUIRE_FALSE(surfaceopen(false));
    const surface *first = currentsurface;
    REQUIRE(first);
    CHECK(first->scalex == modeinfo.xdpi);
    HDC dc = surfacecontext();
    REQUIRE_FALSE(surfaceopen(true)); // one context serves both
    CHECK(currentsurface == first);
    surfaceclose();
    setcolour(0x12345600); // goes with it
    surfaceclose();
    CHECK_FALSE(surfaces);
    CHECK_FALSE(GetObjectType(dc));
    surface *own = nullptr; // which is nobody's but the caller's
    REQUIRE_FALSE(surfacescreen(&own));
    CHECK_FALSE(currentsurface);
    CHECK(GetDeviceCaps(surfacecontext(own), LOGPIXELSY) == modeinfo.ydpi);
    surfacescreenfree(own);
    {
        canvas c(4, 4);
        REQUIRE_FALSE(surfaceopen(false));
        CHECK(currentsurface == c.drawing);
        surfaceclose();
        CHECK(currentsurface == c.drawing);
    }
    surfaceclose(); // a close too many is harmless
    CHECK_FALSE(currentsurface);
    CHECK(deviceobjects() == before);
    flexfailafter(0);
    CHECK(codeof(surfaceopen(false)) == ERRORMEMORY);
    flexfailafter(0);
    CHECK(codeof(surfacescreen(&own)) == ERRORMEMORY);
    REQUIRE_FALSE(surfaceopen(false)); // nothing was counted
    surfaceclose();
    CHECK_FALSE(currentsurface);
}

TEST_CASE("one pen and one brush a surface, and the context gets its own back")
{
    canvas c(4, 4);
    HGDIOBJ pen = GetCurrentObject(surfacecontext(), OBJ_PEN);
    HGDIOBJ brush = GetCurrentObject(surfacecontext(), OBJ_BRUSH);
    HFONT font = CreateFontA(-16, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, "Arial");
    HGDIOBJ fontbefore = SelectObject(surfacecontext(), font);
    c.drawing->font = reinterpret_cast<intptr_t>(font);
    c.drawing->savedfont = reinterpret_cast<intptr_t>(fontbefore);
    setcolour(0);
    int one = deviceobjects();
    for (uint32_t i = 0; i < 200; i++)
        setcolour(i << 12);
    CHECK(deviceobjects() == one);
    surfacerelease(c.drawing);
    CHECK(GetCurrentObject(surfacecontext(), OBJ_PEN) == pen);
    CHECK(GetCurrentObject(surfacecontext(), OBJ_BRUSH) == brush);
    CHECK(deviceobjects() == one - 2);
    CHECK(fontselected(c.drawing) == reinterpret_cast<fonthandle>(fontbefore));
    CHECK(GetObjectType(font) == OBJ_FONT); // put back and not deleted
    DeleteObject(font);
}

TEST_CASE("colours by word, value and number, and the modes that stay or not")
{
    canvas c(4, 4);
    setcolour(0x0000ff00);
    CHECK(modeinfo.currentcolour == 0x0000ff); // red is the lowest
    setcolourinverse(0x12345600);
    CHECK(filled(c) == 0xEDCBA9);
    setcolourcode(0x12345601);
    CHECK(filled(c) == 0x123456);
    setcolourcode(18 + COLOR_WINDOW);
    CHECK(filled(c) == GetSysColor(COLOR_WINDOW));
    setcolour(0x0F0F0F00);
    filled(c);
    setcolourmode(0xFF00AA00, COLOURXOR);
    CHECK(filled(c) == 0xF00FA5);
    setcolourvalue(0x0000FF); // the mode stays
    CHECK(filled(c) == 0xF00F5A);
    uint32_t store = 0;
    setcolourstore(0x11223344, COLOURXOR, &store);
    CHECK(store == 0x11223344);
    CHECK(filled(c) == (0xF00F5A ^ 0x112233));
    setcolourmode(0x00FF0000, 2); // any other copies
    CHECK(filled(c) == 0x00FF00);
    setgcol(11);
    CHECK(filled(c) == 0x0000dd);
    setgcol(0x38); // exclusive-or
    CHECK(filled(c) == (0x0000dd ^ 0x994400));
    setgcol(0x48);
    CHECK(filled(c) == 0x994400);
    setgcol(0x83);
    CHECK(GetBkMode(surfacecontext()) == OPAQUE);
    CHECK(GetBkColor(surfacecontext()) == 0x999999);
    setgcol(0xF0);
    CHECK(GetBkMode(surfacecontext()) == TRANSPARENT);
    setgcol(0xBF); // bits 4 to 6 are 3: for a background no more than any other
    CHECK(GetBkMode(surfacecontext()) == OPAQUE);
    CHECK(GetBkColor(surfacecontext()) == 0xffbb00);
    CHECK(filled(c) == 0x994400); // pen and brush are left alone
    setcolourmode(0x00ffff00, COLOURXOR);
    fillbox(1, -2, 1, 1); // a single pixel takes part in the mode too
    CHECK(c.at(1, 1) == (0x994400 ^ 0x00ffff));
    setcolour(0);
    fillbox(INT32_MAX, -4, INT32_MAX, 3); // far ends stay on their side
    fillbox(3, -4, INT32_MAX, INT32_MAX);
    CHECK(c.at(2, 0) == 0x994400);
    CHECK(c.at(3, 0) == 0);
    setcolour(0x99440000);
    filled(c);
    if (modeinfo.bpp > 8) {
        xorcolourword(0x99440000, 9);
        CHECK(filled(c) == modeinfo.desktopcolours[9] >> 8);
    }
}

TEST_CASE("clips are told in OS units, put back to what was there, and say what failed")
{
    canvas c(20, 20, 90);
    int before = deviceobjects();
    intptr_t none = 17, outer = 0;
    CHECK_FALSE(clipsave(&none));
    CHECK(none == 0); // there was no clip
    CHECK_FALSE(clipbox(4, -24, 20, -8));
    int32_t x0, y0, x1, y1, kind;
    CHECK_FALSE(clipget(&x0, &y0, &x1, &y1, &kind));
    CHECK(canvas::extent{x0, y0, x1, y1} == canvas::extent{4, -24, 20, -8});
    CHECK(kind == SIMPLEREGION);
    CHECK_FALSE(clipsave(&outer));
    CHECK_FALSE(clipbox(1000, -80, 1100, -40));
    CHECK_FALSE(clipget(nullptr, nullptr, nullptr, nullptr, &kind));
    CHECK(kind == NULLREGION);
    CHECK_FALSE(cliprestore(outer));
    CHECK(shown(&c) == canvas::extent{2, 4, 9, 11});
    CHECK_FALSE(cliprestore(none));
    CHECK(shown(&c) == canvas::extent{0, 0, 19, 19});
    surfacerelease(c.drawing);
    CHECK(deviceobjects() == before);
    c.drawing->flags = SURFACECLIPPED; // what a fixed one is reset to
    c.drawing->clipleft = 3;
    c.drawing->cliptop = 4;
    c.drawing->clipright = 13;
    c.drawing->clipbottom = 15;
    CHECK_FALSE(clipreset());
    CHECK(shown(&c) == canvas::extent{3, 4, 12, 14});
    errorblock *err = clippath(CLIPAND); // there is no path
    REQUIRE(err);
    CHECK(std::strstr(err->text, "(SelectClipPath) ("));
}

TEST_CASE("sprites that can't be plotted, and the surface as it was")
{
    canvas c(20, 20);
    areamade area;
    spritemade made = spritestriped(1, 8, 8, false);
    std::string bytes = spritebytes(made);
    const spritereference s = spriteitself(spritein(bytes));
    const spritefactors nothing = {1, 1, 0, 0};
    spritetransform turned = {};
    turned.matrix = {MATRIXONE, MATRIXONE, -MATRIXONE, MATRIXONE, 200, -30};
    surfacescale before, after;
    surfacestate(currentsurface, &before);
    CHECK_FALSE(spriteplotdevice(area.block, spritenamed("none"), 0, 9, 9, nullptr, nullptr));
    CHECK_FALSE(spriteplotdevice(nullptr, s, 0, 9, 9, nullptr, nullptr));
    CHECK_FALSE(spriteplotdevice(area.block, s, 0, 9, 9, &nothing, nullptr));
    CHECK_FALSE(spriteplottransformed(area.block, s, 0, &turned, nullptr, nullptr));
    made.mode = 15u << 27 | 1;
    std::string unread = spritebytes(made);
    const spritereference odd = spriteitself(spritein(unread));
    CHECK(codeof(spriteplot(area.block, odd, 0, 9, -9, nullptr, nullptr)) == EMODE);
    clipbox(5, -5, 5, -5);
    CHECK_FALSE(spriteplotdevice(area.block, s, 0, 9, 9, nullptr, nullptr));
    CHECK(c.drawn().right == -1);
    surfacestate(currentsurface, &after);
    CHECK(!std::memcmp(&before, &after, sizeof before));
}

TEST_CASE("the program's icon and cursors")
{
    HMODULE program = GetModuleHandleA(nullptr);
    CHECK(LoadImageA(program, "!Quillmere", IMAGE_ICON, 48, 48, LR_SHARED));
    for (auto [name, x, y] : {std::tuple{"hand", 5u, 0u}, {"splith", 11u, 8u}}) {
        ICONINFO info = {};
        REQUIRE(GetIconInfo(LoadCursorA(program, name), &info));
        CHECK(info.xHotspot == x); // where it points
        CHECK(info.yHotspot == y);
        DeleteObject(info.hbmMask);
        DeleteObject(info.hbmColor);
    }
}
