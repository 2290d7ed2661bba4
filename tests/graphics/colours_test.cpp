// Colours, palettes, and what a screen says of itself.
#include "graphics/colours.h"

#include "graphics/palette.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <climits>
#include <vector>

namespace
{

using words = std::vector<uint32_t>;

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

words library()
{
    words colours(256);
    paletteexpand(palettebase, colours.data());
    return colours;
}

// The colours of a palette made of the system's, and their flags.
words entriesof(int32_t count, words *flags)
{
    paletteentry entries[256];
    paletteentries(count, entries);
    words colours;
    for (int32_t i = 0; i < count; i++) {
        colours.push_back(entries[i].blue * 0x1000000u + entries[i].green * 0x10000u +
                          entries[i].red * 0x100u);
        flags->push_back(entries[i].flags);
    }
    return colours;
}

} // namespace

TEST_CASE("the sixteen colours, codes, distances and greys")
{
    coloursinstall();
    const uint32_t *c = modeinfo.desktopcolours;
    CHECK(words{c[0], c[7], c[8], c[15]} == words{0xffffff00, 0, 0x99440000, 0xffbb0000});
    CHECK(words(c + 16, c + 20) == words{c[0], c[1], c[2], c[0]});
    for (int i = 0; i < 8; i++)
        CHECK((c[i] >> 24) == (c[i] >> 8 & 255));

    CHECK(colourcodevalue(0x12345600) == COLOURNONE);
    CHECK(colourcodevalue(0x123456FF) == COLOURNONE);
    CHECK(colourcodevalue(0x12345601) == 0x123456);
    CHECK(colourcodevalue(0x12345602) == 0xffffff);
    CHECK(colourcodevalue(0x00000011) == 0xffbb00);
    CHECK(colourcodevalue(0x00000012) == 0x5C0000);       // the first of the system
    CHECK(colourcodevalue(0xABCDEFFE) == 0x5C0000 + 236); // the last
    CHECK(colourinverse(0x12345678) == 0xEDCBA978);       // the low byte stays
    CHECK(colourdistance(0x12345600, 0x123456FF) == 0);
    CHECK(colourdistance(0, 0x0000ff00) == 3 * 255 * 255);
    CHECK(colourdistance(0x00ff0000, 0) == 10 * 255 * 255);
    CHECK(colourdistance(0, 0xff000000) == 255 * 255);
    const uint32_t table[] = {0x10101000, 0x20202000, 0x20202000, 0};
    CHECK(nearestinpalette(table, 4, 0x21202000) == 1); // of equals the first
    CHECK(nearestinpalette(table, 3, 0) == 0);
    CHECK(nearestinpalette(table, 4, 0x18181800) == 0); // half way

    // 76.2, 149.7 and 29.1 of 255; 76 * 128 / 255 = 38, and 127
    words own = {0x0000ff00, 0x00ff0000, 0xff000000, 0xffffff7b, 0};
    greyscale(own.data(), 5);
    CHECK(own == words{0x4c4c4c00, 0x95959500, 0x1d1d1d00, 0xffffff7b, 0});
    words system = {0x0000ff, 0x00ff00, 0xff0000, 0xffffff, 0, 0x808080};
    greyscalelight(system.data(), 6);
    CHECK(system == words{0xa5a5a5, 0xc9c9c9, 0x8d8d8d, 0xffffff, 0x7f7f7f, 0xbfbfbf});
}

TEST_CASE("exclusive-or turns one colour into the other, by colour, index or both")
{
    shallow(true);
    CHECK(modeinfo.nearest[1] == 0x22);
    CHECK(xorvalue(7, 1) == (COLOURINDEX | (255 ^ 0x22)));
    CHECK(xorvalueword(0xf0f0f000, 7) == (COLOURINDEX | (15 ^ 255)));
    CHECK(nearestcolour(0x01010100) == 254);
    shallow(false); // the palette's colour at the joined index
    CHECK(xorvalue(7, 1) == (255u - (255 ^ 0x22)) * 0x010101);
    CHECK(xorvalueword(0xf0f0f000, 7) == 15u * 0x010101);
    modeinfo.bpp = 32;
    modeinfo.numcolours = -1;
    for (int32_t a = 0; a < 16; a++)
        for (int32_t b = 0; b < 16; b++)
            CHECK((modeinfo.desktopcolours[a] >> 8 ^ xorvalue(a, b)) ==
                  modeinfo.desktopcolours[b] >> 8);
    CHECK(xorvalueword(0x12345600, 7) == 0x123456);
    CHECK(nearestcolour(0) == 0);
}

TEST_CASE("a palette keeps the system's twenty colours in place, or the first sixteen")
{
    // Twenty of the library's own: what remains is the other 236, each once.
    words colours = library(), flags;
    for (size_t i = 0; i < 10; i++) {
        modeinfo.systempalette[i] = colours[i * 7];
        modeinfo.systempalette[246 + i] = colours[255 - i * 3];
    }
    words all = entriesof(256, &flags);
    for (size_t i = 0; i < 256; i++) {
        bool system = i < 10 || i >= 246;
        CHECK(flags[i] == (system ? 0 : 4));
        if (system) CHECK(all[i] == modeinfo.systempalette[i]);
    }
    std::sort(all.begin(), all.end());
    std::sort(colours.begin(), colours.end());
    CHECK(all == colours);
    std::fill_n(modeinfo.systempalette, 256, 0xAB00CD00u);
    flags.clear();
    all = entriesof(64, &flags);
    CHECK(flags == words(64));
    CHECK(std::count(all.begin(), all.begin() + 16, 0xAB00CD00) == 16);
    CHECK(std::count(all.begin() + 16, all.end(), 0u) == 48);
    CHECK(entriesof(4, &flags)[3] == 0xAB00CD00);
}

TEST_CASE("a screen's conversions go to the nearest, and its facts follow from its depth")
{
    modeinfoset({96, 120, 1024, 768, 24, 0, 0, 0, -1});
    CHECK(ostodevx(-1) == -1); // 0.53: halves and more away from zero
    CHECK(ostodevx(14) == 7);  // 7.47
    CHECK(ostodevy(180) == 120);
    CHECK(devtoosx(1) == 2);        // 1.875
    CHECK(devtoosy(-1) == -2);      // 1.5
    CHECK(devtoosx(INT_MAX) == -1); // beyond 32 bits
    CHECK(ostoscreeny(180) == 648);
    CHECK(screentoosy(648) == 180);
    CHECK(fixmul(-0x18000, 0x8000) == -0xC000);
    CHECK(fixmul(1, 0x8000) == 1); // half, away from zero
    CHECK(fixmul(1, 0x7FFF) == 0);
    CHECK((modeinfo.widthos == 1920 && modeinfo.heightos == 1152));
    CHECK((modeinfo.cellx == 8 && modeinfo.pixelx == 3 && modeinfo.bpp == 32));
    CHECK(modeinfo.modeword == (120 << 14) + 96 * 2 + 1 + (6 << 27));
    modefacts facts = {300, 600, 9, 9, 1, 0, 0, 0, 2};
    modeinfoset(facts);
    CHECK(modeinfo.pixelx == 2); // 0.6 and 1
    CHECK(modeinfo.pixely == 1); // 0.3 and 1
    const int32_t depths[][3] = {{2, 2, 1}, {8, 8, 3}, {15, 16, 4}, {24, 32, 5}, {3, 3, 0}};
    for (const auto &[bits, bpp, log2] : depths) {
        CHECK(modebpp(bits) == bpp);
        CHECK(modelog2bpp(bpp) == log2);
    }

    facts.bitspixel = 8;
    facts.rastercaps = 0x7F99;
    facts.sizepalette = 256;
    facts.numcolours = 20;
    modeinfoset(facts);
    CHECK((modeinfo.palettedevice == 1 && modeinfo.ncolours == 256 && palettelength() == 256));
    facts.rastercaps &= ~RASTERPALETTE;
    modeinfoset(facts);
    CHECK((modeinfo.ncolours == 20 && palettelength() == 20));
    modeinfo.numcolours = 4096;
    CHECK(palettelength() == 256);
    modeinfo.numcolours = -1; // no end of them
    CHECK(palettelength() == 0);
}
