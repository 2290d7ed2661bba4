#include "graphics/palette.h"

#include "graphics/colours.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <vector>

namespace
{

uint32_t wordof(const paletteentry &entry)
{
    return static_cast<uint32_t>(entry.blue) << 24 | static_cast<uint32_t>(entry.green) << 16 |
           static_cast<uint32_t>(entry.red) << 8;
}

std::vector<uint32_t> library()
{
    std::vector<uint32_t> colours(256);
    paletteexpand(palettebase, colours.data());
    return colours;
}

} // namespace

TEST_CASE("sixteen colours become 256")
{
    std::vector<uint32_t> colours = library();
    CHECK(colours[0] == 0);
    CHECK(colours[255] == 0xffffff00);
    CHECK(colours[0x04] == 0x00004400);
    CHECK(colours[0x10] == 0x00008800);
    CHECK(colours[0x20] == 0x00440000);
    CHECK(colours[0x40] == 0x00880000);
    CHECK(colours[0x80] == 0x88000000);

    std::sort(colours.begin(), colours.end());
    CHECK(std::unique(colours.begin(), colours.end()) == colours.end());
    for (uint32_t word : colours) // each byte is one digit twice
        CHECK((word & 0xF0F0F000) == (word & 0x0F0F0F00) << 4);
}

TEST_CASE("the index decides its bits, whatever the base says")
{
    std::vector<uint32_t> base(16, 0xFFFFFF00), colours(256);
    paletteexpand(base.data(), colours.data());
    CHECK(colours[0] == 0x77337700);
    CHECK(colours[0x10] == 0x7733FF00);
    CHECK(colours[0xF0] == 0xFFFFFF00);
}

TEST_CASE("the identity palette names each index")
{
    paletteentry entries[256];
    paletteidentityentries(256, entries);
    for (int i = 0; i < 256; i++) {
        CHECK(entries[i].red == i);
        CHECK(entries[i].green == 0);
        CHECK(entries[i].blue == 0);
        CHECK(entries[i].flags == 2);
    }
}

TEST_CASE("the palette keeps the system's twenty colours in place")
{
    // The system's colours are twenty of the library's own, so that what
    // remains is known: the other 236, each once.
    std::vector<uint32_t> colours = library();
    for (int i = 0; i < 256; i++)
        modeinfo.systempalette[i] = 0x01020300;
    for (size_t i = 0; i < 10; i++) {
        modeinfo.systempalette[i] = colours[i * 7];
        modeinfo.systempalette[246 + i] = colours[255 - i * 3];
    }
    paletteentry entries[256];
    paletteentries(256, entries);

    std::vector<uint32_t> all;
    for (int i = 0; i < 256; i++) {
        CAPTURE(i);
        bool system = i < 10 || i >= 246;
        CHECK(entries[i].flags == (system ? 0 : 4));
        if (system) CHECK(wordof(entries[i]) == modeinfo.systempalette[i]);
        all.push_back(wordof(entries[i]));
    }
    std::sort(all.begin(), all.end());
    std::sort(colours.begin(), colours.end());
    CHECK(all == colours);
}

TEST_CASE("what is removed is filled with the last that remains")
{
    std::vector<uint32_t> colours = library();
    std::fill_n(modeinfo.systempalette, 256, 0u); // black, all twenty
    paletteentry entries[256];
    paletteentries(256, entries);
    CHECK(wordof(entries[10]) == colours[255]); // in the place of black
    CHECK(wordof(entries[11]) == colours[254]); // of the darkest grey, next to it
}

TEST_CASE("a small palette is the system's first sixteen")
{
    for (uint32_t i = 0; i < 256; i++)
        modeinfo.systempalette[i] = i << 8 | 0xAB000000;
    paletteentry entries[64];
    paletteentries(64, entries);
    for (int i = 0; i < 64; i++) {
        CHECK(entries[i].flags == 0);
        CHECK(wordof(entries[i]) == (i < 16 ? modeinfo.systempalette[i] : 0));
    }
    paletteentries(4, entries); // fewer than that
    CHECK(wordof(entries[3]) == modeinfo.systempalette[3]);
}
