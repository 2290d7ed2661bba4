#include "graphics/palette.h"

#include "graphics/colours.h"
#include "graphics/win32/windowhandle.h"

#include <windows.h>

#include <cstddef>
#include <cstring>

static_assert(sizeof(paletteentry) == sizeof(PALETTEENTRY));
static_assert(PALETTEEXPLICIT == PC_EXPLICIT && PALETTENOCOLLAPSE == PC_NOCOLLAPSE);

namespace
{

// A palette device that is no deeper than its palette.
bool palettes()
{
    return modeinfo.bpp <= 8 && modeinfo.palettedevice;
}

HPALETTE handleof(intptr_t made)
{
    return reinterpret_cast<HPALETTE>(made);
}

void readentries(HDC dc)
{
    PALETTEENTRY entries[PALETTECOLOURS] = {};
    GetSystemPaletteEntries(dc, 0, PALETTECOLOURS, entries);
    for (int i = 0; i < PALETTECOLOURS; i++) {
        const PALETTEENTRY &entry = entries[i];
        modeinfo.systempalette[i] =
            static_cast<uint32_t>(RGB(entry.peRed, entry.peGreen, entry.peBlue)) << 8;
    }
}

// The solid pens of a device are its colours.
int CALLBACK takepen(void *object, LPARAM argument)
{
    auto count = reinterpret_cast<int *>(argument);
    auto pen = static_cast<const LOGPEN *>(object);
    if (pen->lopnStyle == PS_SOLID) modeinfo.systempalette[(*count)++] = pen->lopnColor << 8;
    return *count < PALETTECOLOURS;
}

void readpalette(HDC dc)
{
    int count = 0;
    if (modeinfo.palettedevice)
        readentries(dc);
    else
        EnumObjects(dc, OBJ_PEN, takepen, reinterpret_cast<LPARAM>(&count));
    palettenearest();
}

intptr_t makepalette(void (*fill)(int32_t size, paletteentry *entries))
{
    struct {
        LOGPALETTE head;
        PALETTEENTRY more[PALETTECOLOURS];
    } logical = {};
    paletteentry entries[PALETTECOLOURS];
    int32_t size = palettelength();
    fill(size, entries);
    logical.head.palVersion = 0x300;
    logical.head.palNumEntries = static_cast<WORD>(size);
    auto first = reinterpret_cast<char *>(&logical) + offsetof(LOGPALETTE, palPalEntry);
    std::memcpy(first, entries, static_cast<size_t>(size) * sizeof(paletteentry));
    return reinterpret_cast<intptr_t>(CreatePalette(&logical.head));
}

void drop(intptr_t *made)
{
    if (*made) DeleteObject(handleof(*made));
    *made = 0;
}

} // namespace

void paletteend()
{
    drop(&identitypalette);
    drop(&palette);
}

void palettesetup(intptr_t dc)
{
    paletteend();
    if (modeinfo.bpp > 8) return;
    readpalette(reinterpret_cast<HDC>(dc));
    if (!modeinfo.palettedevice) return;
    identitypalette = makepalette(paletteidentityentries);
    palette = makepalette(paletteentries);
}

void paletteselect(intptr_t dc)
{
    if (!palettes()) return;
    SelectPalette(reinterpret_cast<HDC>(dc), handleof(palette), FALSE);
    RealizePalette(reinterpret_cast<HDC>(dc));
}

void paletteidentity(intptr_t dc)
{
    if (palettes()) SelectPalette(reinterpret_cast<HDC>(dc), handleof(identitypalette), FALSE);
}

// Rereads the device's palette through a window, after selecting ours or as it
// is.
static void reread(intptr_t window, bool realise)
{
    HWND w = systemwindow(window);
    HDC dc = GetDC(w);
    if (realise) paletteselect(reinterpret_cast<intptr_t>(dc));
    readpalette(dc);
    if (realise && palettes())
        SelectPalette(dc, static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE)), TRUE);
    ReleaseDC(w, dc);
}

void paletterealise(intptr_t window, bool *changed)
{
    if (modeinfo.bpp > 8) return;
    reread(window, true);
    *changed = true;
}

void palettechanged(intptr_t window, intptr_t other, intptr_t)
{
    if (modeinfo.bpp > 8 || other == window) return;
    coloursinstall();
    reread(window, false);
}

void paletteupdate(intptr_t window)
{
    if (modeinfo.bpp <= 8) reread(window, false);
}
