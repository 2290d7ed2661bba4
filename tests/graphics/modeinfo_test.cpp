#include "graphics/modeinfo.h"

#include "graphics/palette.h"

#include <doctest/doctest.h>

#include <climits>

namespace
{

modefacts screen(int32_t xdpi, int32_t ydpi, int32_t bits)
{
    modefacts facts = {};
    facts.xdpi = xdpi;
    facts.ydpi = ydpi;
    facts.widthpx = 1024;
    facts.heightpx = 768;
    facts.bitspixel = bits;
    facts.numcolours = bits > 8 ? -1 : 20;
    return facts;
}

} // namespace

TEST_CASE("screen conversions go to the nearest")
{
    modeinfoset(screen(96, 120, 32));
    CHECK(ostodevx(180) == 96);
    CHECK(ostodevx(-1) == -1); // 0.53: halves and more away from zero
    CHECK(ostodevx(15) == 8);
    CHECK(ostodevx(14) == 7); // 7.47
    CHECK(ostodevy(180) == 120);
    CHECK(devtoosx(1) == 2); // 1.875
    CHECK(devtoosy(1) == 2); // 1.5
    CHECK(devtoosy(-1) == -2);
    CHECK(devtoosx(INT_MAX) == -1); // beyond 32 bits
    CHECK(ostodevx(INT_MAX) == 1145324612);

    CHECK(ostoscreeny(180) == 648);
    CHECK(screentoosy(648) == 180);
    CHECK(ostoscreeny(INT_MIN) == 768 + 1431655765);

    modeinfoset({}); // no device at all
    CHECK(ostodevx(180) == 0);
    CHECK(devtoosx(180) == -1);
}

TEST_CASE("products of 16.16 numbers")
{
    CHECK(fixmul(0x18000, 0x20000) == 0x30000);
    CHECK(fixmul(-0x18000, 0x8000) == -0xC000);
    CHECK(fixmul(1, 0x8000) == 1); // half, away from zero
    CHECK(fixmul(1, 0x7FFF) == 0);
    CHECK(fixmul(-1, 0x8000) == -1);
    CHECK(fixmul(INT_MAX, INT_MAX) == -1);
}

TEST_CASE("depths")
{
    const struct {
        int32_t bits, bpp, log2;
    } depths[] = {{1, 1, 0},   {2, 2, 1},   {4, 4, 2}, {8, 8, 3}, {15, 16, 4}, {16, 16, 4},
                  {24, 32, 5}, {32, 32, 5}, {0, 0, 0}, {3, 3, 0}, {64, 64, 0}, {-1, -1, 0}};
    for (auto depth : depths) {
        CAPTURE(depth.bits);
        CHECK(modebpp(depth.bits) == depth.bpp);
        CHECK(modelog2bpp(depth.bpp) == depth.log2);
    }
}

TEST_CASE("facts of a deep screen")
{
    modeinfoset(screen(96, 96, 24));
    CHECK(modeinfo.xscale == 1);
    CHECK(modeinfo.yscaleneg == -1);
    CHECK(modeinfo.xeig == 0);
    CHECK(modeinfo.cellx == 8);
    CHECK(modeinfo.widthos == 1920);
    CHECK(modeinfo.heightos == 1440);
    CHECK(modeinfo.pixelx == 3);
    CHECK(modeinfo.pixely == 3);
    CHECK(modeinfo.bitspixel == 24);
    CHECK(modeinfo.bpp == 32);
    CHECK(modeinfo.ncolours == -1);
    CHECK(modeinfo.palettedevice == 0);
    CHECK(modeinfo.modeword == (96 << 14) + 96 * 2 + 1 + (6 << 27));

    modeinfoset(screen(300, 600, 1));
    CHECK(modeinfo.pixelx == 2); // 0.6 and 1
    CHECK(modeinfo.pixely == 1); // 0.3 and 1
    CHECK(modeinfo.modeword == (600 << 14) + 300 * 2 + 1 + (1 << 27));
}

TEST_CASE("facts of a palette device")
{
    modefacts facts = screen(96, 96, 8);
    facts.rastercaps = 0x7F99;
    facts.sizepalette = 256;
    facts.numreserved = 20;
    modeinfoset(facts);
    CHECK(modeinfo.palettedevice == 1);
    CHECK(modeinfo.ncolours == 256);
    CHECK(modeinfo.numcolours == 20);
    CHECK(modeinfo.numreserved == 20);
    CHECK(modeinfo.log2bpp == 3);
    CHECK(palettelength() == 256);

    facts.rastercaps &= ~RASTERPALETTE;
    modeinfoset(facts);
    CHECK(modeinfo.palettedevice == 0);
    CHECK(modeinfo.ncolours == 20);
    CHECK(palettelength() == 20);

    modeinfo.numcolours = -1; // no end of them
    CHECK(palettelength() == 0);
    modeinfo.numcolours = 4096;
    CHECK(palettelength() == 256);
}
