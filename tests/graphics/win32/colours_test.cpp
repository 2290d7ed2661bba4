#include "graphics/colours.h"

#include "graphics/palette.h"
#include "graphics/plot.h"
#include "graphics/win32/surfacecontext.h"
#include "tests/graphics/win32/canvas.h"

#include <doctest/doctest.h>
#include <windows.h>

namespace
{

// The colour that a fill and an outline leave now, over what is there.
uint32_t filled(const canvas &c)
{
    fillbox(0, -4, 4, 4);
    CHECK(c.at(0, 0) == c.at(1, 1)); // pen and brush agree
    return c.at(1, 1);
}

} // namespace

TEST_CASE("setcolour")
{
    canvas c(4, 4);
    setcolour(0x0000ff00);
    CHECK(modeinfo.currentcolour == 0x0000ff);
    CHECK(filled(c) == 0x0000ff); // red is the lowest
    setcolour(0x12345678);
    CHECK(filled(c) == 0x123456);
    setcolourinverse(0x12345600);
    CHECK(filled(c) == 0xEDCBA9);
    setcolourvalue(0x00ff00);
    CHECK(filled(c) == 0x00ff00);
    setcolourcode(0x12345601);
    CHECK(filled(c) == 0x123456);
    setcolourcode(0x0D);
    CHECK(filled(c) == 0x0000dd);
    setcolourcode(18 + COLOR_WINDOW);
    CHECK(filled(c) == GetSysColor(COLOR_WINDOW));
    CHECK(systemcolour(COLOR_BTNFACE) == GetSysColor(COLOR_BTNFACE));
}

TEST_CASE("modes")
{
    canvas c(4, 4);
    c.clear(0x0F0F0F);
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
    setcolourmode(0xFFFFFF00, COLOURXOR);
    setcolour(0x01020300);
    CHECK(filled(c) == 0x010203);
}

TEST_CASE("the number road")
{
    canvas c(4, 4);
    setgcol(11);
    CHECK(filled(c) == 0x0000dd);
    setgcol(0x38); // exclusive-or
    CHECK(GetROP2(surfacecontext()) == R2_XORPEN);
    CHECK(filled(c) == (0x0000dd ^ 0x994400));
    setgcol(0x48);
    CHECK(GetROP2(surfacecontext()) == R2_COPYPEN);
    CHECK(filled(c) == 0x994400);

    setgcol(0x83);
    CHECK(GetBkMode(surfacecontext()) == OPAQUE);
    CHECK(GetBkColor(surfacecontext()) == 0x999999);
    setgcol(0xF0);
    CHECK(GetBkMode(surfacecontext()) == TRANSPARENT);
    CHECK(GetBkColor(surfacecontext()) == 0x999999);
    setgcol(0xBF); // bits 4 to 6 are 3: for a background no more than any other
    CHECK(GetBkMode(surfacecontext()) == OPAQUE);
    CHECK(GetBkColor(surfacecontext()) == 0xffbb00);
    CHECK(filled(c) == 0x994400); // pen and brush are left alone
}

TEST_CASE("exclusive-or from one colour to another and back")
{
    if (modeinfo.bpp <= 8) {
        MESSAGE("skipped: a palette joins indices, and this canvas has none");
        return;
    }
    canvas c(4, 4);
    setgcol(3);
    filled(c);
    xorcolours(3, 14);
    CHECK(filled(c) == modeinfo.desktopcolours[14] >> 8);
    CHECK(filled(c) == modeinfo.desktopcolours[3] >> 8);
    xorcolourword(modeinfo.desktopcolours[3], 9);
    CHECK(filled(c) == modeinfo.desktopcolours[9] >> 8);
}

TEST_CASE("one pen and one brush a surface, and the context gets its own back")
{
    int before = gdiobjects();
    {
        canvas c(4, 4);
        HGDIOBJ pen = GetCurrentObject(surfacecontext(), OBJ_PEN);
        HGDIOBJ brush = GetCurrentObject(surfacecontext(), OBJ_BRUSH);
        setcolour(0);
        int one = gdiobjects();
        for (uint32_t i = 0; i < 200; i++)
            setcolour(i << 12);
        CHECK(gdiobjects() == one);
        surfacerelease(c.drawing);
        CHECK(GetCurrentObject(surfacecontext(), OBJ_PEN) == pen);
        CHECK(GetCurrentObject(surfacecontext(), OBJ_BRUSH) == brush);
        CHECK(gdiobjects() == one - 2);
    }
    CHECK(gdiobjects() == before);
}

TEST_CASE("a deep device has no palettes, and none of their events")
{
    if (modeinfo.bpp <= 8) {
        MESSAGE("skipped: this display has a palette");
        return;
    }
    canvas c(4, 4);
    CHECK_FALSE(palette);
    CHECK_FALSE(identitypalette);
    int before = gdiobjects();
    int32_t changed = 0;
    paletterealise(reinterpret_cast<intptr_t>(GetDesktopWindow()), &changed);
    CHECK(changed == 0);
    modeinfo.desktopcolours[3] = 0x12345600;
    palettechanged(1, 2, 0);
    paletteupdate(1);
    CHECK(modeinfo.desktopcolours[3] == 0x12345600);
    paletteselect(c.drawing->dc);
    paletteidentity(c.drawing->dc);
    CHECK(gdiobjects() == before);
}
