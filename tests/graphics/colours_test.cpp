#include "graphics/colours.h"

#include "graphics/palette.h"

#include <doctest/doctest.h>

#include <vector>

namespace
{

using words = std::vector<uint32_t>;

void deep()
{
    modeinfo.bpp = 32;
    modeinfo.palettedevice = 0;
    modeinfo.numcolours = -1;
    coloursinstall();
}

// Eight bits, each index its own grey, brightest first.
void shallow(bool palettedevice)
{
    modeinfo.bpp = 8;
    modeinfo.palettedevice = palettedevice;
    modeinfo.sizepalette = palettedevice ? 256 : 0;
    modeinfo.numcolours = palettedevice ? 20 : 256;
    for (uint32_t i = 0; i < 256; i++)
        modeinfo.systempalette[i] = (255 - i) * 0x01010100;
    coloursinstall();
    palettenearest();
}

} // namespace

TEST_CASE("the sixteen colours")
{
    coloursinstall();
    const uint32_t *colours = modeinfo.desktopcolours;
    CHECK(words{colours[0], colours[7], colours[8], colours[15]} ==
          words{0xffffff00, 0, 0x99440000, 0xffbb0000});
    for (int i = 0; i < 8; i++) // greys
        CHECK((colours[i] >> 24) == (colours[i] >> 8 & 255));
    CHECK(words(colours + 16, colours + 20) ==
          words{colours[0], colours[1], colours[2], colours[0]});
}

TEST_CASE("colour codes")
{
    coloursinstall();
    CHECK(colourcodevalue(0x12345600) == COLOURNONE);
    CHECK(colourcodevalue(0x123456FF) == COLOURNONE);
    CHECK(colourcodevalue(0x12345601) == 0x123456);
    CHECK(colourcodevalue(0x12345602) == 0xffffff);
    CHECK(colourcodevalue(0x00000011) == 0xffbb00);
    CHECK(colourcodevalue(0x00000012) == 0x5C0000);       // the first of the system
    CHECK(colourcodevalue(0xABCDEFFE) == 0x5C0000 + 236); // the last
}

TEST_CASE("inverse")
{
    CHECK(colourinverse(0xFF00AA00) == 0x00FF5500);
    CHECK(colourinverse(0x12345678) == 0xEDCBA978); // the low byte stays
}

TEST_CASE("distances weigh red, green and blue")
{
    CHECK(colourdistance(0x12345600, 0x123456FF) == 0);
    CHECK(colourdistance(0x00000000, 0x0000ff00) == 3 * 255 * 255);
    CHECK(colourdistance(0x00ff0000, 0x00000000) == 10 * 255 * 255);
    CHECK(colourdistance(0x00000000, 0xff000000) == 255 * 255);
    CHECK(colourdistance(0xffffff00, 0x00000000) == 14 * 255 * 255);
}

TEST_CASE("of equal candidates the first is nearest")
{
    const uint32_t table[] = {0x10101000, 0x20202000, 0x20202000, 0x00000000};
    CHECK(nearestinpalette(table, 4, 0x21202000) == 1);
    CHECK(nearestinpalette(table, 4, 0x00000000) == 3);
    CHECK(nearestinpalette(table, 3, 0x00000000) == 0);
    CHECK(nearestinpalette(table, 4, 0x18181800) == 0); // half way
    CHECK(nearestinpalette(table, 0, 0x20202000) == 0);
}

TEST_CASE("grey")
{
    // 76.2, 149.7 and 29.1 of 255
    words own = {0x0000ff00, 0x00ff0000, 0xff000000, 0xffffff7b, 0};
    greyscale(own.data(), 5);
    CHECK(own == words{0x4c4c4c00, 0x95959500, 0x1d1d1d00, 0xffffff7b, 0});

    // 76 * 128 / 255 = 38, and 127
    words system = {0x0000ff, 0x00ff00, 0xff0000, 0xffffff, 0, 0x808080};
    greyscalelight(system.data(), 6);
    CHECK(system == words{0xa5a5a5, 0xc9c9c9, 0x8d8d8d, 0xffffff, 0x7f7f7f, 0xbfbfbf});
}

TEST_CASE("exclusive-or turns one colour into the other")
{
    SUBCASE("by colour on a deep device")
    {
        deep();
        for (int32_t a = 0; a < 16; a++)
            for (int32_t b = 0; b < 16; b++) {
                uint32_t from = modeinfo.desktopcolours[a] >> 8,
                         to = modeinfo.desktopcolours[b] >> 8;
                CHECK((from ^ xorvalue(a, b)) == to);
            }
        CHECK((0x123456 ^ xorvalueword(0x12345600, 7)) == 0);
    }
    SUBCASE("by index on a palette device")
    {
        shallow(true);
        CHECK(modeinfo.nearest[0] == 0);
        CHECK(modeinfo.nearest[7] == 255);
        CHECK(modeinfo.nearest[1] == 0x22);
        CHECK(xorvalue(7, 1) == (COLOURINDEX | (255 ^ 0x22)));
        CHECK(xorvalue(3, 3) == COLOURINDEX);
        CHECK(xorvalueword(0xf0f0f000, 7) == (COLOURINDEX | (15 ^ 255)));
    }
    SUBCASE("by the palette's colour at the joined index elsewhere")
    {
        shallow(false);
        CHECK(xorvalue(7, 1) == (255u - (255 ^ 0x22)) * 0x010101);
        CHECK(xorvalueword(0xf0f0f000, 7) == 15u * 0x010101);
    }
}

TEST_CASE("the nearest colour of the device")
{
    shallow(true);
    CHECK(nearestcolour(0xffffff00) == 0);
    CHECK(nearestcolour(0x01010100) == 254);
    deep();
    CHECK(nearestcolour(0x00000000) == 0);
}
