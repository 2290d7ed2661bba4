#include "graphics/modeinfo.h"

#include "base/trace.h"
#include "graphics/colours.h"
#include "graphics/palette.h"

#include <windows.h>

static_assert(RASTERPALETTE == RC_PALETTE);

static modefacts factsof(HDC dc)
{
    auto caps = [dc](int index) { return static_cast<int32_t>(GetDeviceCaps(dc, index)); };
    modefacts facts = {};
    facts.xdpi = caps(LOGPIXELSX);
    facts.ydpi = caps(LOGPIXELSY);
    facts.widthpx = GetSystemMetrics(SM_CXSCREEN);
    facts.heightpx = GetSystemMetrics(SM_CYSCREEN);
    facts.bitspixel = caps(BITSPIXEL);
    facts.rastercaps = caps(RASTERCAPS);
    facts.sizepalette = caps(SIZEPALETTE);
    facts.numreserved = caps(NUMRESERVED);
    facts.numcolours = caps(NUMCOLORS);
    return facts;
}

void modeinforead(intptr_t dc)
{
    modeinfoset(factsof(reinterpret_cast<HDC>(dc)));
    trace("xdpi=%d ydpi=%d bpp=%d nc=%d ln2=%d", modeinfo.xdpi, modeinfo.ydpi, modeinfo.bpp,
          modeinfo.ncolours, modeinfo.log2bpp);
    trace("rastercaps %d numcol %d", modeinfo.rastercaps & RASTERPALETTE, modeinfo.numcolours);
}

errorblock *modeinfoinit()
{
    HDC display = CreateICA("DISPLAY", nullptr, nullptr, nullptr);
    auto dc = reinterpret_cast<intptr_t>(display);
    modeinforead(dc);
    coloursinstall();
    scrollbarheight = devtoosy(GetSystemMetrics(SM_CYHSCROLL));
    scrollbarwidth = devtoosx(GetSystemMetrics(SM_CXVSCROLL));
    palettesetup(dc);
    DeleteDC(display);
    return nullptr;
}

void modeinfoend()
{
    paletteend();
}
