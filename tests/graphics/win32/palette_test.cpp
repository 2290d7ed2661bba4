// Palettes, on a display of 8 bits; what needs one is skipped, in so many words,
// on a deeper one.
#include "graphics/palette.h"

#include "graphics/colours.h"
#include "graphics/plot.h"
#include "tests/graphics/win32/canvas.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <algorithm>

namespace
{

bool shallow()
{
    if (modeinfo.palettedevice && modeinfo.bpp <= 8) return true;
    MESSAGE("skipped: this display has no palette");
    return false;
}

struct frame {
    frame()
    {
        w = CreateWindowExA(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, "STATIC", "", WS_POPUP | WS_VISIBLE,
                            20, 20, 80, 80, nullptr, nullptr, nullptr, nullptr);
        REQUIRE(w);
        for (MSG m; PeekMessageA(&m, nullptr, 0, 0, PM_REMOVE);)
            DispatchMessageA(&m);
        dc = GetDC(w);
    }
    ~frame()
    {
        ReleaseDC(w, dc);
        DestroyWindow(w);
    }
    intptr_t window() const
    {
        return reinterpret_cast<intptr_t>(w);
    }
    HWND w;
    HDC dc;
};

uint32_t wordof(const PALETTEENTRY &entry)
{
    return static_cast<uint32_t>(RGB(entry.peRed, entry.peGreen, entry.peBlue)) << 8;
}

void checkread(HDC dc)
{
    PALETTEENTRY entries[PALETTECOLOURS];
    REQUIRE(GetSystemPaletteEntries(dc, 0, PALETTECOLOURS, entries) == PALETTECOLOURS);
    for (int i = 0; i < PALETTECOLOURS; i++)
        CHECK(modeinfo.systempalette[i] == wordof(entries[i]));
    for (int i = 0; i < DESKTOPCOLOURS; i++)
        CHECK(static_cast<int32_t>(modeinfo.nearest[i]) ==
              nearestcolour(modeinfo.desktopcolours[i]));
}

} // namespace

TEST_CASE("palette device: its facts and its two palettes")
{
    if (!shallow()) return;
    frame f;
    CHECK(modeinfo.bpp == 8);
    CHECK(modeinfo.ncolours == modeinfo.sizepalette);
    CHECK(palettelength() == 256);
    checkread(f.dc);

    PALETTEENTRY made[PALETTECOLOURS] = {};
    paletteentry wanted[PALETTECOLOURS];
    REQUIRE(identitypalette);
    REQUIRE(GetPaletteEntries(reinterpret_cast<HPALETTE>(identitypalette), 0, 256, made) == 256);
    for (int i = 0; i < 256; i++) {
        CHECK(made[i].peRed == i);
        CHECK(made[i].peFlags == PC_EXPLICIT);
    }
    REQUIRE(palette);
    REQUIRE(GetPaletteEntries(reinterpret_cast<HPALETTE>(palette), 0, 256, made) == 256);
    paletteentries(256, wanted);
    for (int i = 0; i < 256; i++) {
        CHECK(made[i].peGreen == wanted[i].green);
        CHECK(made[i].peFlags == wanted[i].flags);
    }
}

TEST_CASE("palette device: selected with a surface, read again on its events")
{
    if (!shallow()) return;
    frame f;
    auto selected = [&f] { return reinterpret_cast<intptr_t>(GetCurrentObject(f.dc, OBJ_PAL)); };
    surface s = {};
    s.dc = reinterpret_cast<intptr_t>(f.dc);
    surfacesetorigin(0, 0, &s);
    CHECK(selected() == palette);
    paletteidentity(s.dc);
    CHECK(selected() == identitypalette);
    SelectPalette(f.dc, static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE)), TRUE);

    auto spoil = [] {
        std::fill_n(modeinfo.systempalette, PALETTECOLOURS, 0x12345600u);
        modeinfo.desktopcolours[3] = 0x12345600;
    };
    // The first round fills what the system keeps for a window; no later one
    // may hold on to more.
    int32_t changed = 0;
    paletterealise(f.window(), &changed);
    palettechanged(f.window(), 1, 0);
    paletteupdate(f.window());
    int before = gdiobjects();
    changed = 0;
    spoil();
    paletterealise(f.window(), &changed);
    CHECK(changed == 1);
    checkread(f.dc);
    CHECK(modeinfo.desktopcolours[3] == 0x12345600);

    spoil();
    palettechanged(f.window(), f.window(), 0); // its own doing
    CHECK(modeinfo.systempalette[7] == 0x12345600);
    palettechanged(f.window(), 1, 0);
    CHECK(modeinfo.desktopcolours[3] == 0x99999900);
    checkread(f.dc);

    spoil();
    paletteupdate(f.window());
    checkread(f.dc);
    CHECK(modeinfo.desktopcolours[3] == 0x12345600);
    CHECK(gdiobjects() == before);
}

TEST_CASE("palette device: exclusive-or goes by index")
{
    if (!shallow()) return;
    frame f;
    surface s = {};
    s.dc = reinterpret_cast<intptr_t>(f.dc);
    surfacesetorigin(0, 0, &s);
    setcurrentsurface(&s);
    xorcolours(3, 12);
    CHECK(GetROP2(f.dc) == R2_XORPEN);
    CHECK(reinterpret_cast<intptr_t>(GetCurrentObject(f.dc, OBJ_PAL)) == palette);
    LOGPEN pen = {};
    LOGBRUSH brush = {};
    GetObjectA(GetCurrentObject(f.dc, OBJ_PEN), sizeof pen, &pen);
    GetObjectA(GetCurrentObject(f.dc, OBJ_BRUSH), sizeof brush, &brush);
    CHECK(pen.lopnColor == PALETTEINDEX(modeinfo.nearest[3] ^ modeinfo.nearest[12]));
    CHECK(brush.lbColor == pen.lopnColor);
    surfacerelease(&s);
    clearcurrentsurface();
    SelectPalette(f.dc, static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE)), TRUE);
}

TEST_CASE("a device of 8 bits without a palette has the colours of its solid pens")
{
    modeinfo.bpp = 8;
    modeinfo.palettedevice = 0;
    modeinfo.numcolours = 20;
    std::fill_n(modeinfo.systempalette, PALETTECOLOURS, 0x12345678u);
    HDC dc = GetDC(nullptr);
    palettesetup(reinterpret_cast<intptr_t>(dc));
    ReleaseDC(nullptr, dc);
    CHECK_FALSE(palette);
    CHECK_FALSE(identitypalette);
    for (uint32_t colour : {0u, 0xffffff00u, 0x0000ff00u, 0xff000000u})
        CHECK(modeinfo.systempalette[nearestcolour(colour)] == colour);
    CHECK(modeinfo.nearest[7] == static_cast<uint32_t>(nearestcolour(0)));
}
