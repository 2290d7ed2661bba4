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

TEST_CASE("measuring has a surface of its own, or borrows that of a redraw")
{
    int before = deviceobjects();
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
    CHECK_FALSE((surfaces || GetObjectType(dc)));
    {
        canvas c(4, 4);
        REQUIRE_FALSE(surfaceopen(false));
        CHECK(currentsurface == c.drawing);
        surfaceclose();
        CHECK(currentsurface == c.drawing);
    }
    surfaceclose(); // a close too many is harmless
    flexfailafter(0);
    CHECK(codeof(surfaceopen(false)) == ERRORMEMORY);
    REQUIRE_FALSE(surfaceopen(false)); // nothing was counted
    surfaceclose();
    CHECK_FALSE(currentsurface);
    CHECK(deviceobjects() == before);
}

TEST_CASE("colours by word, value and number, and the modes that stay or not")
{
    canvas c(4, 4);
    setcolourinverse(0x12345600);
    CHECK(filled(c) == 0xEDCBA9);
    setcolourcode(18 + COLOR_WINDOW);
    CHECK(filled(c) == GetSysColor(COLOR_WINDOW));
    setcolour(0x0F0F0F00);
    filled(c);
    setcolourmode(0xFF00AA00, COLOURXOR);
    CHECK(filled(c) == 0xF00FA5);
    setcolourvalue(0x0000FF); // the mode stays
    CHECK(filled(c) == 0xF00F5A);
    fillbox(1, -2, 1, 1); // a single pixel takes part in the mode too
    CHECK(c.at(1, 1) == 0xF00FA5);
    setcolourmode(0x00FF0000, 2); // any other copies
    CHECK(filled(c) == 0x00FF00);
    setgcol(0x3B); // exclusive-or
    CHECK(filled(c) == (0x00FF00 ^ 0x0000DD));
    setgcol(0x48);
    CHECK(filled(c) == 0x994400);
    setgcol(0xF0);
    CHECK(GetBkMode(surfacecontext()) == TRANSPARENT);
    setgcol(0xBF); // bits 4 to 6 are 3: for a background no more than any other
    CHECK(GetBkMode(surfacecontext()) == OPAQUE);
    CHECK(GetBkColor(surfacecontext()) == 0xffbb00);
    CHECK(filled(c) == 0x994400); // pen and brush are left alone
    setcolour(0);
    fillbox(INT32_MAX, -4, INT32_MAX, 3); // far ends stay on their side
    fillbox(3, -4, INT32_MAX, INT32_MAX);
    CHECK((c.at(2, 0) == 0x994400 && c.at(3, 0) == 0));
}

TEST_CASE("a clip is put back to what was there, a fixed one to its own, and errors are told")
{
    canvas c(20, 20, 90);
    int before = deviceobjects();
    intptr_t none = 17, outer = 0;
    CHECK_FALSE(clipsave(&none));
    CHECK(none == 0); // there was no clip
    CHECK_FALSE(clipbox(4, -24, 20, -8));
    CHECK_FALSE(clipsave(&outer));
    CHECK_FALSE(clipbox(1000, -80, 1100, -40));
    int32_t kind;
    CHECK_FALSE(clipget(nullptr, nullptr, nullptr, nullptr, &kind));
    CHECK(kind == NULLREGION);
    CHECK_FALSE(cliprestore(outer));
    CHECK(shown(&c) == canvas::extent{2, 4, 9, 11});
    CHECK_FALSE(cliprestore(none));
    CHECK(shown(&c) == canvas::extent{0, 0, 19, 19});
    surfacerelease(c.drawing);
    CHECK(deviceobjects() == before);
    c.drawing->flags = SURFACECLIPPED;
    c.drawing->clipleft = 3, c.drawing->cliptop = 4;
    c.drawing->clipright = 13, c.drawing->clipbottom = 15;
    CHECK_FALSE(clipreset());
    CHECK(shown(&c) == canvas::extent{3, 4, 12, 14});
    errorblock *err = clippath(CLIPAND); // there is no path
    REQUIRE(err);
    CHECK(std::strstr(err->text, "(SelectClipPath) ("));
}

TEST_CASE("sprites that can't be plotted")
{
    canvas c(20, 20);
    areamade area;
    spritemade made = spritestriped(1, 8, 8, false);
    std::string bytes = spritebytes(made);
    const spritereference s = spriteitself(spritein(bytes));
    const spritefactors nothing = {1, 1, 0, 0};
    spritetransform turned = {};
    turned.matrix = {MATRIXONE, MATRIXONE, -MATRIXONE, MATRIXONE, 200, -30};
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
}

TEST_CASE("the program's icon and cursors")
{
    HMODULE program = GetModuleHandleA(nullptr);
    CHECK(LoadImageA(program, "!Quillmere", IMAGE_ICON, 48, 48, LR_SHARED));
    for (auto [name, x, y] : {std::tuple{"hand", 5u, 0u}, {"splith", 11u, 8u}}) {
        ICONINFO info = {};
        REQUIRE(GetIconInfo(LoadCursorA(program, name), &info));
        CHECK((info.xHotspot == x && info.yHotspot == y)); // where it points
        DeleteObject(info.hbmMask);
        DeleteObject(info.hbmColor);
    }
}
