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

struct frame {
    HWND w = CreateWindowExA(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, "STATIC", "", WS_POPUP | WS_VISIBLE,
                             20, 20, 80, 80, nullptr, nullptr, nullptr, nullptr);
    HDC dc = GetDC(w);
    intptr_t window = reinterpret_cast<intptr_t>(w);

    ~frame()
    {
        ReleaseDC(w, dc);
        DestroyWindow(w);
    }
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

TEST_CASE("a palette device: its two palettes, selected, read again, joined by index")
{
    if (!modeinfo.palettedevice || modeinfo.bpp > 8) {
        MESSAGE("skipped: this display has no palette");
        return;
    }
    frame f;
    CHECK(modeinfo.ncolours == modeinfo.sizepalette);
    checkread(f.dc);
    PALETTEENTRY made[2][PALETTECOLOURS] = {};
    paletteentry wanted[PALETTECOLOURS];
    GetPaletteEntries(reinterpret_cast<HPALETTE>(identitypalette), 0, PALETTECOLOURS, made[0]);
    GetPaletteEntries(reinterpret_cast<HPALETTE>(palette), 0, PALETTECOLOURS, made[1]);
    paletteentries(PALETTECOLOURS, wanted);
    for (int i = 0; i < PALETTECOLOURS; i++) {
        CHECK((made[0][i].peRed == i && made[0][i].peFlags == PC_EXPLICIT));
        CHECK((made[1][i].peGreen == wanted[i].green && made[1][i].peFlags == wanted[i].flags));
    }

    auto selected = [&f] { return reinterpret_cast<intptr_t>(GetCurrentObject(f.dc, OBJ_PAL)); };
    surface s = {};
    s.dc = reinterpret_cast<intptr_t>(f.dc);
    surfacesetorigin(0, 0, &s);
    setcurrentsurface(&s);
    CHECK(selected() == palette);
    paletteidentity(s.dc);
    CHECK(selected() == identitypalette);
    paletteselect(s.dc);
    xorcolours(3, 12);
    LOGPEN pen = {};
    GetObjectA(GetCurrentObject(f.dc, OBJ_PEN), sizeof pen, &pen);
    CHECK(pen.lopnColor == PALETTEINDEX(modeinfo.nearest[3] ^ modeinfo.nearest[12]));
    surfacerelease(&s);
    clearcurrentsurface();
    SelectPalette(f.dc, static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE)), TRUE);

    int before = 0;
    for (bool first : {true, false}) { // which fills what the system keeps for a window
        std::fill_n(modeinfo.systempalette, PALETTECOLOURS, 0x12345600u);
        bool changed = false;
        paletterealise(f.window, &changed);
        CHECK((changed || first));
        checkread(f.dc);
        modeinfo.systempalette[7] = 0x12345600;
        palettechanged(f.window, f.window, 0); // its own doing
        CHECK(modeinfo.systempalette[7] == 0x12345600);
        palettechanged(f.window, 1, 0);
        checkread(f.dc);
        if (first) before = deviceobjects();
    }
    CHECK(deviceobjects() == before);
}
