#include "graphics/modeinfo.h"

#include "base/numbers.h"

modeinforecord modeinfo;
int32_t scrollbarheight, scrollbarwidth;

int32_t modebpp(int32_t bitspixel)
{
    if (bitspixel == 15) return 16;
    if (bitspixel == 24) return 32;
    return bitspixel;
}

int32_t modelog2bpp(int32_t bpp)
{
    int32_t log2 = 0;
    while (log2 <= 5 && 1 << log2 != bpp)
        log2++;
    return log2 <= 5 ? log2 : 0;
}

// A new sprite mode word: its mark, both resolutions and the type, which for
// these depths is the logarithm plus 1.
static int32_t modewordof(int32_t xdpi, int32_t ydpi, int32_t log2bpp)
{
    uint32_t type = static_cast<uint32_t>(log2bpp) + 1;
    return static_cast<int32_t>((static_cast<uint32_t>(ydpi) << 14) +
                                static_cast<uint32_t>(xdpi) * 2 + 1 + (type << 27));
}

static void geometry(const modefacts &facts)
{
    modeinfo.xscale = modeinfo.yscale = 1;
    modeinfo.xscaleneg = modeinfo.yscaleneg = -1;
    modeinfo.xeig = modeinfo.yeig = 0;
    modeinfo.charx = modeinfo.chary = modeinfo.cellx = modeinfo.celly = 8;
    modeinfo.xdpi = facts.xdpi;
    modeinfo.ydpi = facts.ydpi;
    modeinfo.widthpx = facts.widthpx;
    modeinfo.heightpx = facts.heightpx;
    modeinfo.widthos = devtoosx(facts.widthpx);
    modeinfo.heightos = devtoosy(facts.heightpx);
    modeinfo.pixelx = devtoosx(1) + 1;
    modeinfo.pixely = devtoosy(1) + 1;
}

void modeinfoset(const modefacts &facts)
{
    modeinfo.rastercaps = facts.rastercaps;
    modeinfo.palettedevice = facts.rastercaps & RASTERPALETTE ? 1 : 0;
    modeinfo.sizepalette = facts.sizepalette;
    modeinfo.numreserved = facts.numreserved;
    modeinfo.numcolours = facts.numcolours;
    modeinfo.ncolours = modeinfo.palettedevice ? facts.sizepalette : facts.numcolours;
    modeinfo.bitspixel = facts.bitspixel;
    modeinfo.bpp = modebpp(facts.bitspixel);
    modeinfo.log2bpp = modelog2bpp(modeinfo.bpp);
    modeinfo.modeword = modewordof(facts.xdpi, facts.ydpi, modeinfo.log2bpp);
    geometry(facts);
}
